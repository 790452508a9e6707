/// @file
/// Listing directories: the walker (xWalking(), xDirWalking(): paths, sorted, optionally with
/// everything below) and the plain lister (xGetFileList(): bare names of one directory, unsorted).
///
/// An entry counts as a directory when bit value 4 of its type byte (`d_type`) is set: directories,
/// but also block devices, sockets and whiteouts. Everything else counts as a file: regular files,
/// symbolic links (which are never followed, wherever they point), pipes, character devices, and
/// entries whose type the file system does not tell.
///
/// A path is zero-terminated; a null path counts as an empty one.
///
/// @warning The walker changes the working directory of the process while it runs, and the wide
/// xGetFileList() sets the process's locale. Neither may run beside other threads that depend on
/// these.
#pragma once

#include <dirent.h>

#include <cstdint>
#include <list>
#include <string>
#include <vector>

/// Which entries the walker lists. Every value other than the first two means `WALK_ALL`.
enum FILE_WALKING_OPTION : int {
  WALK_FILES = 0,    ///< what does not count as a directory
  WALK_FOLDERS = 1,  ///< what counts as a directory
  WALK_ALL = 2,      ///< both
};

/// A growable array of directory entries; {0, 0, nullptr} is the empty one. The owner releases
/// `entries` with `free`.
struct flist {
  std::int32_t count;     ///< entries in use
  std::int32_t capacity;  ///< entries allocated
  dirent* entries;        ///< a block from `malloc`, or null
};

/// Compares two `dirent` records for `qsort`: what counts as a directory comes before what does
/// not, and each group is in byte order of the names.
/// @param a  a record
/// @param b  another record
/// @return below 0, 0 or above 0 as `a` comes before, beside or behind `b`
int xSortFiles(const void* a, const void* b);

/// Appends a copy of an entry: the bytes of the record's length, and in any case its name; the rest
/// of the copy is zero.
///
/// Without memory, or beyond what `capacity` can count, writes "Out of memory\n" to standard error
/// and ends the process with status 1.
/// @param list  grows to a capacity of 16, then to twice the one before
/// @param entry  may be one of the list's own
void xAddFile(flist* list, dirent* entry);

/// Appends to a list of paths the entries of the working directory, without "." and "..".
/// Directories come before files, each group in byte order of the names.
///
/// Prints "Error: cannot open directory %s\n" with the path of a directory that cannot be read, and
/// goes on with the next one.
///
/// @warning A path of 255 bytes or more, not counting the terminator, aborts the process, be it to
/// be listed or entered.
/// @warning A sub-directory that cannot be entered is not reported. Under its prefix the directory
/// around it is listed again, with everything below; then the walk goes on one level too high, and
/// leaves the working directory there. Where entering keeps failing, the directory is listed within
/// itself until the length of the path aborts the process. Sockets and block devices count as
/// directories and can never be entered, so a recursive walk that meets one always ends this way.
/// @param path  the prefix of each entry, a slash between them; the working directory must be the
/// one that it names
/// @param files  appended to
/// @param option  what is listed; sub-directories are entered whatever it is
/// @param recursive  whether the entries of each sub-directory follow as a block of their own, in
/// the same order, depth first
void xWalking(const char* path, std::list<std::string>& files, FILE_WALKING_OPTION option,
              bool recursive);

/// Enters a directory, replaces an array by the paths that xWalking() lists there, and returns to
/// the working directory of before by its path. Where that path can no longer be entered, the
/// working directory stays another one, without a message.
///
/// Without memory for the array or one of its strings the process ends as in xAddFile(); without
/// memory for the walk itself std::bad_alloc is thrown, with `files` and `count` untouched.
///
/// Leaves `files` and `count` untouched, too, when it
/// - prints "Error: cannot get current working directory!\n" because the working directory has been
///   removed, or its path has 255 bytes or more, not counting the terminator;
/// - prints "Error: cannot goto target directory!\n" because `path` cannot be entered.
///
/// @warning What xWalking() warns of aborts the process here too.
/// @param path  a directory; may be one of the strings in `files`
/// @param files  must be null at the first call; receives an array, which is not null even for an
/// empty directory, of strings. The caller releases the strings and the array with `free`, or
/// passes them to the next call, which does.
/// @param count  must be 0 at the first call; receives the number of strings
/// @param option  as in xWalking()
/// @param recursive  as in xWalking()
void xDirWalking(const char* path, char**& files, int& count, FILE_WALKING_OPTION option,
                 bool recursive);

/// Lists the names in a folder, "." and ".." included, in the system's order.
///
/// Wide: converts the folder by wstr2str() and every name by str2wstr(), in the locale "chinese"
/// or, where the system knows no such name, in the one in force. Sets the process's locale.
///
/// @warning The conversion cuts a folder at a character that the locale cannot encode and after two
/// bytes for each character plus one; what the cut path names is listed. Each name is cut at what
/// the locale cannot decode.
/// @param folder  a folder
/// @return the names; empty when the folder cannot be opened
/// @{
std::vector<std::string> xGetFileList(const std::string& folder);
std::vector<std::wstring> xGetFileList(const std::wstring& folder);
/// @}

/// Not supported. Prints "Not supported!\n".
/// @param folder  untouched
/// @param filter  untouched
/// @param names  untouched
/// @return false
/// @{
bool xGetFileNames(std::string& folder, std::string& filter, std::vector<std::string>& names);
bool xGetFileNames(std::wstring& folder, std::wstring& filter, std::vector<std::wstring>& names);
/// @}

/// Not supported: does nothing.
/// @param owner  ignored
/// @param title  ignored
/// @param folder  ignored
/// @param filters  untouched
/// @param path  ignored
/// @param size  ignored
/// @return 0
int xCPFileDialog(void* owner, char* title, char* folder,
                  std::vector<std::vector<std::string>>& filters, char* path, int size);
