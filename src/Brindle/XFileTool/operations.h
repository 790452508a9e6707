/// @file
/// Operations on whole files: existence, deletion with retries, copying, joining through the shell,
/// and writing that waits for the disk.
///
/// A path is zero-terminated; a null path counts as an empty one, which names no file. Functions
/// print nothing unless their contract says so. Status codes are formed with the offset of the
/// moment (Brindle/BrindleErrcode.h).
///
/// @warning The wide xDeleteFile() sets the process's locale to "chinese" and leaves it there, or
/// in the locale in force where the system knows no such name. It must not run beside other threads
/// that use the locale.
#pragma once

#include <list>
#include <string>

/// Tells whether a file of any kind exists. Symbolic links are followed; permissions are not looked
/// at.
/// @param path  a file
/// @return whether it exists
/// @{
bool xIsFileExist(const char* path);
bool xIsFileExist(std::string& path);
/// @}

/// No test: the wide forms do not look at the path.
/// @param path  ignored
/// @return false, whether the file exists or not
/// @{
bool xIsFileExist(const wchar_t* path);
bool xIsFileExist(std::wstring& path);
/// @}

/// Deletes a file, a symbolic link (not what it points to) or an empty directory. The calling
/// thread sleeps between two tries; a missing file is tried as often as any other.
///
/// Wide: deletes what the path names when converted by wstr2str(). Sets the process's locale.
///
/// @warning The conversion cuts a path at a character that the locale cannot encode and after two
/// bytes for each character plus one; what the cut path names is deleted.
/// @param path  what to delete
/// @param retries  two less than the number of tries; if negative, there is a single one
/// @param waitMs  the pause in milliseconds, at most 2^32 - 1 microseconds; if negative, none
/// @return whether a try succeeded
/// @{
bool xDeleteFile(const std::string& path, int retries, int waitMs);
bool xDeleteFile(const std::wstring& path, int retries, int waitMs);
/// @}

/// Deletes each file in the list's order, with two tries 100 milliseconds apart. What cannot be
/// deleted is passed over without a word.
/// @param files  left as it is
/// @{
void xDeleteFiles(std::list<std::string>& files);
void xDeleteFiles(const std::list<std::string>& files);
/// @}

/// Copies the bytes of a file to a new file of default mode; permissions, owner and times are not
/// copied. The source is held in memory as a whole meanwhile. Bytes of it that cannot be read are
/// zeros in the copy, and the result is 0 all the same.
///
/// @warning An existing target is deleted before the source is read. It stays deleted when the copy
/// then fails, and a file that is copied onto itself is lost. A target that is an empty directory
/// is deleted as well.
/// @warning To open a pipe as `source` is to wait for its writer.
/// @param source  an existing file
/// @param target  where to; a link to a missing file counts as missing, and that file is made
/// @param overwrite  whether an existing target is deleted, in up to seven tries 100 milliseconds
/// apart
/// @return 0; or -1 when
/// - the source is missing, cannot be opened, is empty, has no size or does not fit in memory,
/// - the target exists and is not to be, or cannot be, deleted,
/// - the target cannot be created,
/// - not all bytes could be written; then a part of the target remains.
int xFileCopy(const char* source, const char* target, bool overwrite);

/// Copies nothing. If both paths are directories and `overwrite` is true, it deletes the target
/// with all that it holds, as xDeleteDir() does.
///
/// @warning xDeleteDir() follows symbolic links to directories: what they hold is deleted, too.
/// @param source  a directory
/// @param target  the directory to delete; may be the source
/// @param overwrite  whether to delete
/// @return -1, whatever was done
int xDirCopy(const char* source, const char* target, bool overwrite);

/// Joins files in the list's order, with one command line for the system's shell:
///
///     cat "FIRST" "SECOND" > "OUTPUT"
///
/// An existing output is deleted first, in up to seven tries 100 milliseconds apart; if that fails,
/// the command is run all the same. An empty list does nothing. Messages of the shell and of `cat`
/// go where they send them.
///
/// @warning Names reach the shell between double quotes and otherwise as they are. A double quote,
/// dollar sign, backquote or backslash in a name is interpreted by the shell, which then may run
/// any command; a name that begins with `-` is an option to `cat`, and `-` its standard input.
/// Never pass names from outside.
/// @warning An output that is also among the files is lost.
/// @warning If every name is blank, `cat` reads from standard input until its end.
/// @param files  spaces at the end of a name are dropped, and a name that is then empty is skipped
/// @param output  used as it is
/// @return 0, whatever became of the command: look at the output to know
int xConcatBinaryFiles(const std::list<std::string>& files, std::string output);

/// Writes over a part of an existing file, and waits for the disk. The file is not truncated; one
/// that was shorter is extended, and a gap reads as zeros.
///
/// A code is returned after a line with the path, the system's text for the error and its number:
/// - Prints "Error in opening %s: %s (errno %d)\n".
/// - Prints "Error in setting position to %d in %s: %s (errno %d)\n" with `offset` first.
/// - Prints "Error in writing %d byte data to %s: %s (errno %d)\n" with `size`, as a signed int,
///   first.
///
/// @warning To open a pipe is to wait for its reader.
/// @param path  a file
/// @param data  `size` bytes
/// @param size  how many to write
/// @param offset  the byte of the file where they begin
/// @return 0, also if the system took only some of the bytes, or then failed to bring them to the
/// disk; or the status code offset - 50 ("Fail to open file") after the first and the second
/// message, offset - 54 ("Fail to write into file") after the third
int xWriteFileThroughCache(const char* path, const char* data, unsigned int size, int offset);

/// Waits until what was written to a file has reached the disk.
///
/// @warning To open a pipe is to wait for its reader.
/// @param path  a file
/// @return 0; -1 when the system cannot do that; the status code offset - 50 ("Fail to open file")
/// when the file cannot be opened for writing (a missing or read-only file, a directory)
int xFileSync(const char* path);

/// The same for an open file.
/// @param fd  its descriptor
/// @return 0; -1 when the system cannot do that
int xFileSync(int fd);
