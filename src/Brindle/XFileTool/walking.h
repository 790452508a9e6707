// Listing directories: the walker (xWalking(), xDirWalking(): full paths, sorted, optionally with
// everything below) and the plain lister (xGetFileList(): bare names of one directory, unsorted).
//
// An entry counts as a directory when bit value 4 of its type byte (`d_type`) is set: directories,
// but also block devices, sockets and whiteouts. Everything else counts as a file: regular files,
// symbolic links (which are never followed, wherever they point), pipes, character devices, and
// entries whose type the file system does not tell.
//
// The walker changes the working directory of the process while it runs, and the wide
// xGetFileList() sets the process's locale; neither may run beside other threads that depend on
// these. A null path counts as an empty one.
#pragma once

#include <dirent.h>

#include <cstdint>
#include <list>
#include <string>
#include <vector>

/// Which entries the walker lists. Every value other than the first two means WALK_ALL.
enum FILE_WALKING_OPTION : int {
  WALK_FILES = 0,    ///< what does not count as a directory
  WALK_FOLDERS = 1,  ///< what counts as a directory
  WALK_ALL = 2
};

/// A growable array of directory entries; {0, 0, nullptr} is the empty one. The owner releases
/// `entries` with `free`.
struct flist {
  std::int32_t count;     ///< entries in use
  std::int32_t capacity;  ///< entries allocated
  dirent* entries;
};

/// Compares two `dirent` records for `qsort`: what counts as a directory comes before what does
/// not, and each group is in byte order of the names.
int xSortFiles(const void* a, const void* b);

/// Appends a copy of `entry` to `list`, whose capacity grows to 16 and then doubles. Copies the
/// bytes of the record's length, and in any case its name; the rest of the slot is zero.
///
/// Without memory, or beyond what `capacity` can count, writes "Out of memory\n" to standard error
/// and ends the process with status 1.
void xAddFile(flist* list, dirent* entry);

/// Appends to `files` the entries of the working directory, without "." and "..", each as `path`, a
/// slash and its name. `path` only serves as that prefix: the working directory must be the one
/// that it names.
///
/// Directories come before files, each group in byte order of the names. If `recursive`, the
/// entries of each sub-directory follow as a block of their own, in the same order, depth first;
/// sub-directories are entered whatever `option` lists. Afterwards the working directory is the one
/// of before.
///
/// Prints "Error: cannot open directory %s\n" with `path` for a directory that cannot be read, and
/// goes on with the next one.
///
/// @warning A path of 255 bytes or more, to be listed or entered, aborts the process.
/// @warning A sub-directory that cannot be entered is not reported: the directory around it is
/// listed again under the sub-directory's prefix, and again below that, until the length of the
/// path aborts the process. Sockets and block devices count as directories and can never be
/// entered, so a recursive walk that meets one always ends this way.
void xWalking(const char* path, std::list<std::string>& files, FILE_WALKING_OPTION option,
              bool recursive);

/// Replaces the caller's array by the paths that xWalking() lists for the directory `path`, which
/// the walk enters. Set `files` to null and `count` to 0 before the first call.
///
/// The previous array is released: the first `count` strings and `files` itself, with `free`. The
/// new array and its `count` strings belong to the caller, who releases them likewise or passes
/// them to the next call; `path` may be one of the previous strings. An empty directory gives
/// `count` 0 and an array without elements, which is released all the same. Without memory the
/// process ends as in xAddFile().
///
/// Returns to the working directory of before. Leaves `files` and `count` untouched after printing
/// - "Error: cannot get current working directory!\n" when its path has 255 bytes or more,
/// - "Error: cannot goto target directory!\n" when `path` cannot be entered.
///
/// @warning What xWalking() warns of aborts the process here too.
void xDirWalking(const char* path, char**& files, int& count, FILE_WALKING_OPTION option,
                 bool recursive);

/// Returns the names in `folder`, "." and ".." included, in the system's order. Empty when the
/// folder cannot be opened. Prints nothing.
///
/// Wide: converts the folder by wstr2str() and every name by str2wstr(), which cut a text at what
/// the locale cannot encode or decode. Sets the process's locale to "chinese" and leaves it there,
/// or in the locale in force where the system knows no such name.
std::vector<std::string> xGetFileList(const std::string& folder);
std::vector<std::wstring> xGetFileList(const std::wstring& folder);

/// Not supported: prints "Not supported!\n" and returns false. The arguments stay as they are.
bool xGetFileNames(std::string& folder, std::string& filter, std::vector<std::string>& names);
bool xGetFileNames(std::wstring& folder, std::wstring& filter, std::vector<std::wstring>& names);

/// Not supported: does nothing and returns 0.
int xCPFileDialog(void* owner, char* title, char* folder,
                  std::vector<std::vector<std::string>>& filters, char* path, int size);
