/// @file
/// Listing directories: the walker (xWalking(), xDirWalking(): paths, sorted, optionally with
/// everything below) and the plain lister (xGetFileList(): bare names of one directory, unsorted).
///
/// An entry counts as a directory when bit value 4 of its type byte (`d_type`) is set: directories,
/// but also block devices, sockets and whiteouts. Everything else counts as a file: regular files,
/// symbolic links (which are never followed), FIFOs, character devices, and entries whose type the
/// file system does not give.
///
/// A null path counts as an empty one. An error while a directory is read counts as its end.
///
/// @warning The walker changes the working directory of the process while it runs, and the wide
/// xGetFileList() sets its locale to "chinese" (see Brindle/XTypeConvertTool.h). Neither may run
/// beside other threads that depend on these. See docs/hazards.md.
#pragma once

#include <dirent.h>

#include <cstdint>
#include <list>
#include <string>
#include <vector>

/// @defgroup walking Listing directories
/// @{

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

/// Compares two `dirent` records for `qsort`: what counts as a directory comes first, and each
/// group is in byte order of the names.
int xSortFiles(const void* a, const void* b);

/// Appends a copy of an entry, which may be one of the list's own: the bytes of the record's
/// length, and in any case its name; the rest of the copy is zero, as is the last byte of a name
/// that fills its place. The list grows to a capacity of 16, then to twice the one before.
///
/// Without memory, or beyond what `capacity` can count, writes "Out of memory\n" to standard error
/// and ends the process with status 1. See docs/hazards.md.
void xAddFile(flist* list, dirent* entry);

/// Appends to `files` the paths of the entries of the working directory, without "." and "..":
/// `path`, a slash and the name. The working directory must be the one that `path` names.
/// Directories come before files, each group in byte order of the names. If `recursive`, the
/// entries of each sub-directory follow as a block of their own, depth first, whatever `option`
/// lists.
///
/// Prints "Error: cannot open directory %s\n" with the path of a directory that cannot be read, and
/// goes on with the next one. Ends the process without memory for its records, as xAddFile() does.
/// After std::bad_alloc the working directory is the one that was being listed or entered, and
/// `files` keeps what was listed.
///
/// @warning A path of 255 bytes or more, not counting the terminator, aborts the process, be it to
/// be listed or entered. See docs/hazards.md.
/// @warning A sub-directory that cannot be entered is not reported. Under its prefix the directory
/// around it is listed again, with everything below; then the walk goes on one level too high, and
/// leaves the working directory there. Where entering keeps failing, the directory is listed within
/// itself until the length of the path aborts the process. Sockets and block devices count as
/// directories and can never be entered, so a recursive walk that meets one always ends this way.
void xWalking(const char* path, std::list<std::string>& files, FILE_WALKING_OPTION option,
              bool recursive);

/// Enters a directory, replaces an array by the paths that xWalking() lists there, and returns to
/// the working directory of before by its path. Where that path can no longer be entered, the
/// working directory stays another one, without a message. What xWalking() warns of holds here too.
///
/// Leaves `files` and `count` untouched when it
/// - prints "Error: cannot get current working directory!\n" because the working directory has been
///   removed, or its path has 255 bytes or more, not counting the terminator;
/// - prints "Error: cannot goto target directory!\n" because `path` cannot be entered;
/// - throws std::bad_alloc, back in the working directory. Without memory for the array or its
///   strings the process ends as in xAddFile().
/// @param path  a directory; may be one of the strings in `files`
/// @param files  must be null at the first call; receives an array, which is not null even for an
/// empty directory, of strings. The caller releases the strings and the array with `free`, or
/// passes them to the next call, which does.
/// @param count  must be 0 at the first call; receives the number of strings
/// @param option,recursive  as in xWalking()
void xDirWalking(const char* path, char**& files, int& count, FILE_WALKING_OPTION option,
                 bool recursive);

/// Lists the names in a folder, "." and ".." included, in the system's order; none when it cannot
/// be opened.
///
/// @warning The wide form lists the folder that wstr2str() makes of the path, which may be another
/// one, and converts each name by str2wstr(), which may truncate it. See docs/hazards.md.
/// @{
std::vector<std::string> xGetFileList(const std::string& folder);
std::vector<std::wstring> xGetFileList(const std::wstring& folder);
/// @}

/// Not supported: prints "Not supported!\n" and returns false.
/// @{
bool xGetFileNames(std::string& folder, std::string& filter, std::vector<std::string>& names);
bool xGetFileNames(std::wstring& folder, std::wstring& filter, std::vector<std::wstring>& names);
/// @}

/// Not supported: does nothing and returns 0.
int xCPFileDialog(void* owner, char* title, char* folder,
                  std::vector<std::vector<std::string>>& filters, char* path, int size);

/// @}
