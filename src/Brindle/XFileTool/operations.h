/// @file
/// Operations on whole files: existence, deletion with retries, copying, joining through the shell,
/// and writing that waits for the disk.
///
/// A null path counts as an empty one, which names no file. Nothing is printed unless a contract
/// says so. Status codes are formed with the current offset (Brindle/BrindleErrcode.h).
///
/// @warning Opening a FIFO blocks until the other end is opened. See docs/hazards.md.
/// @warning The wide xDeleteFile() sets the process's locale to "chinese" (see
/// Brindle/XTypeConvertTool.h), which other threads must not use meanwhile.
#pragma once

#include <list>
#include <string>

/// @defgroup operations File operations
/// @{

/// Returns whether a file of any kind exists. Links are followed; permissions are not looked at.
/// @{
bool xIsFileExist(const char* path);
bool xIsFileExist(std::string& path);
/// @}

/// No test: returns false, whether the file exists or not.
/// @{
bool xIsFileExist(const wchar_t* path);
bool xIsFileExist(std::wstring& path);
/// @}

/// Deletes a file, a link (not what it points to) or an empty directory. Returns whether a try
/// succeeded; a missing file is tried as often as any other.
///
/// @warning The wide form deletes what the path names when converted by wstr2str(), which may be
/// another file. See docs/hazards.md.
/// @param retries  two less than the number of tries; if negative, there is a single one
/// @param waitMs  how long the thread sleeps between two tries, in milliseconds, at most 2^32 - 1
/// microseconds; if negative, not at all; see docs/hazards.md
/// @{
bool xDeleteFile(const std::string& path, int retries, int waitMs);
bool xDeleteFile(const std::wstring& path, int retries, int waitMs);
/// @}

/// Deletes each file in the list's order, with two tries 100 milliseconds apart. Failures go
/// unnoticed.
/// @{
void xDeleteFiles(std::list<std::string>& files);
void xDeleteFiles(const std::list<std::string>& files);
/// @}

/// Copies the bytes of a file, held in memory as a whole meanwhile, to a new file of default mode;
/// permissions, owner and times are not copied. With `overwrite`, an existing target is deleted
/// first, in up to seven tries 100 milliseconds apart. A link to a missing file counts as a missing
/// target, and that file is made. Throws std::bad_alloc only while the target is untouched.
///
/// @warning The target stays deleted when the copy then fails, and a file that is copied onto
/// itself is lost. A target that is an empty directory is deleted as well. See docs/hazards.md.
/// @return 0, also when bytes of the source could not be read, which are zeros in the copy, or
/// closing the target failed; or -1 when
/// - the source is missing, cannot be opened, is empty, has no size or does not fit in memory,
/// - the target exists and is not to be, or cannot be, deleted, or cannot be created,
/// - not all bytes could be written; then a part of the target remains.
int xFileCopy(const char* source, const char* target, bool overwrite);

/// Copies nothing and returns -1. If both paths are directories and `overwrite` is true, it deletes
/// the target, which may be the source, as xDeleteDir() does.
///
/// @warning xDeleteDir() follows links to directories: what they hold is deleted, too. See
/// docs/hazards.md.
int xDirCopy(const char* source, const char* target, bool overwrite);

/// Joins files in the list's order, with one command line for the system's shell:
///
///     cat "FIRST" "SECOND" > "OUTPUT"
///
/// Spaces at the end of a name are dropped, but not of the output's; a name that is then empty is
/// skipped. An existing output is deleted first, in up to seven tries 100 milliseconds apart; if
/// that fails, the command still runs. Messages of the shell and of `cat` go where they send
/// them. An empty list does nothing.
///
/// Returns 0, whatever became of the command: look at the output to know. Throws std::bad_alloc
/// before the command is run, perhaps after the output is deleted.
///
/// @warning Names reach the shell between double quotes and otherwise as they are. A double quote,
/// dollar sign, backquote or backslash in a name is interpreted by the shell, which then may run
/// any command; a name that begins with `-` is an option to `cat`, and `-` its standard input.
/// Never pass names from outside. See docs/hazards.md.
/// @warning An output that is also among the files is lost. If every name is blank, `cat` reads
/// from standard input until its end.
int xConcatBinaryFiles(const std::list<std::string>& files, std::string output);

/// Writes `size` bytes over a part of an existing file, from its byte `offset` on, and waits for
/// the disk. The file is not truncated; one that was shorter is extended, and a gap reads as zeros.
/// @return 0, also when the system took only some of the bytes or failed to bring them to the disk;
/// or a status code, after a line with the path, the system's text for the error and its number:
/// - offset - 50 ("Fail to open file") after "Error in opening %s: %s (errno %d)\n",
/// - the same after "Error in setting position to %d in %s: %s (errno %d)\n", with the position,
/// - offset - 54 ("Fail to write into file") after "Error in writing %d byte data to %s: %s (errno
///   %d)\n", with `size` as a signed int
int xWriteFileThroughCache(const char* path, const char* data, unsigned int size, int offset);

/// Waits until what was written to a file has reached the disk.
/// @return 0; -1 when the system cannot do that; for a path that cannot be opened for writing (a
/// missing or read-only file, a directory), the status code offset - 50 ("Fail to open file")
/// @{
int xFileSync(const char* path);
int xFileSync(int fd);
/// @}

/// @}
