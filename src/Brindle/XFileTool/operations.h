// Operations on whole files: existence, deletion with retries, copying, joining through the shell,
// and writing that waits for the disk.
//
// A null path counts as an empty one, which names no file. Functions print nothing unless their
// contract says so; messages go to standard output.
//
// Process-wide state: status codes are formed with the offset of the moment
// (Brindle/BrindleErrcode.h). The wide xDeleteFile() sets the process's locale to "chinese" and
// leaves it there, or in the locale in force where the system knows no such name; it must not run
// beside other threads that use the locale.
#pragma once

#include <list>
#include <string>

/// Tells whether a file of any kind exists at `path` (symbolic links are followed, permissions are
/// not looked at).
bool xIsFileExist(const char* path);
bool xIsFileExist(std::string& path);

/// The wide forms are no test: they return false for every path, existing or not.
bool xIsFileExist(const wchar_t* path);
bool xIsFileExist(std::wstring& path);

/// Deletes a file, a symbolic link (not what it points to) or an empty directory. Returns whether
/// that succeeded.
///
/// Tries `retries` + 2 times at most, or once if `retries` is negative, and pauses `waitMs`
/// milliseconds between two tries; a missing file is tried as often as any other. The calling
/// thread sleeps meanwhile. A negative `waitMs` is no pause, and none is longer than 2^32 - 1
/// microseconds.
///
/// Wide: deletes what the path names when converted by wstr2str(), which cuts it at a character
/// that the locale cannot encode. Sets the process's locale.
bool xDeleteFile(const std::string& path, int retries, int waitMs);
bool xDeleteFile(const std::wstring& path, int retries, int waitMs);

/// Deletes each file in the list's order, with two tries 100 milliseconds apart. What cannot be
/// deleted is passed over without a word.
void xDeleteFiles(std::list<std::string>& files);
void xDeleteFiles(const std::list<std::string>& files);

/// Copies the bytes of the file `source` to a new file `target`, of default mode; permissions,
/// owner and times are not copied. The source is held in memory as a whole meanwhile.
///
/// Returns 0, or -1 when
/// - there is no `source`,
/// - `target` exists and `overwrite` is false, or it cannot be deleted in seven tries 100
///   milliseconds apart,
/// - the source is empty, cannot be read or has no size: an empty file is never copied,
/// - the target cannot be created, or not all bytes could be written; then a part of it remains.
///
/// @warning An existing target is deleted before the source is read. It stays deleted when the copy
/// then fails, and a file that is copied onto itself is lost. A target that is an empty directory
/// is deleted as well.
int xFileCopy(const char* source, const char* target, bool overwrite);

/// Copies nothing and always returns -1. If both paths are directories and `overwrite` is true, it
/// deletes `target` with all that it holds, as xDeleteDir() does.
///
/// @warning xDeleteDir() follows symbolic links to directories: what they hold is deleted, too.
int xDirCopy(const char* source, const char* target, bool overwrite);

/// Joins `files` in the list's order into `output`, with one command line for the system's shell:
///
///     cat "FIRST" "SECOND" > "OUTPUT"
///
/// Spaces at the end of a file's name are removed, and a name that is then empty is skipped;
/// `output` is used as it is. An existing `output` is deleted first, in up to seven tries 100
/// milliseconds apart. An empty list does nothing. Always returns 0, whatever became of the
/// command: look at the output to know. Messages of the shell and of `cat` go where they send them.
///
/// @warning Names reach the shell between double quotes and otherwise as they are. A double quote,
/// dollar sign, backquote or backslash in a name is interpreted by the shell, which then may run
/// any command. Never pass names from outside.
/// @warning An `output` that is also among the files is lost.
/// @warning If every name is blank, `cat` reads from standard input until its end.
int xConcatBinaryFiles(const std::list<std::string>& files, std::string output);

/// Writes `size` bytes of `data` over an existing file from byte `offset` on, and returns when they
/// have reached the disk. The file is not truncated; one that was shorter is extended, and a gap
/// reads as zeros.
///
/// Returns 0, also if the system wrote only some of the bytes. In the messages `size` is printed as
/// a signed int. Otherwise returns the status code
/// - offset - 50 after printing "Error in opening %s: %s (errno %d)\n",
/// - offset - 50 after printing "Error in setting position to %d in %s: %s (errno %d)\n",
/// - offset - 54 after printing "Error in writing %d byte data to %s: %s (errno %d)\n".
int xWriteFileThroughCache(const char* path, const char* data, unsigned int size, int offset);

/// Waits until what was written to the file has reached the disk. Returns 0, or -1 when the system
/// cannot do that. For a path that cannot be opened for writing (a missing or read-only file, a
/// directory) returns the status code offset - 50.
int xFileSync(const char* path);

/// The same for an open file descriptor: returns 0 or -1.
int xFileSync(int fd);
