/// @file
/// Folders: whether one exists, creating one or a whole chain, deleting a tree.
///
/// The narrow functions do the work. The wide ones exist so that programs with wide paths link: the
/// wide xIsDirExist() answers, the wide creating and deleting functions only print a notice.
///
/// Paths are taken as the system takes them: links are followed, relative paths start at the
/// working directory, which nothing here changes. A path is zero-terminated, and a zero in a
/// standard string ends what the system sees. A null path counts as an empty one. Status codes are
/// formed with the offset of the moment (Brindle/BrindleErrcode.h).
///
/// @warning The wide xIsDirExist() and xCreateNestedDir(), and xDeleteDir() of a `std::string`, set
/// the process's locale to "chinese" and leave it there, or in the locale in force where the system
/// knows no such name. They must not run beside other threads that use the locale.
#pragma once

#include <string>

/// Tells whether a folder, or a link to one, has this name.
///
/// Wide: asks the same of the path converted to narrow. Sets the process's locale. Returns false
/// after either message.
///
/// - Prints "Error: problem occurs when converting wchar_t string to char string (inside
///   isDirectoryExist_wchar(...))!\n" (one line), behind the line of wcharStr2charStr(), when a
///   character cannot be converted.
/// - Prints "Error: cannot create temporary storage for char string (inside
///   isDirectoryExist_wchar(...))!\n" (one line) when there is no memory.
///
/// @warning The converted path is cut after two bytes for each wide character plus one, so the wide
/// forms may answer for another folder than the one asked about.
/// @param path  a folder
/// @return false for what does not exist, cannot be examined, is something else, or is empty
/// @{
bool xIsDirExist(const char* path);
bool xIsDirExist(const std::string& path);
bool xIsDirExist(const wchar_t* path);
bool xIsDirExist(const std::wstring& path);
/// @}

/// Creates one folder. Its permissions are 0775 less the bits of the process's file-creation mask.
///
/// Prints "xCreateDir: Fail to create directory '%s'. (Err: %s)\n" with the path and the system's
/// text when it fails, but nothing when the name is taken, be it by a folder or by something else.
///
/// Wide: creates nothing. Prints "WCHAR for create directory is not supported!\n".
/// @param path  a folder; its parent must exist
/// @param mode  ignored
/// @return a status code:
/// - offset - 67 ("Success to create file directory"),
/// - offset - 68 ("File directory already existed") when the name is taken,
/// - offset - 65 ("File directory is not ready") otherwise, and for wide paths
/// @{
int xCreateDir(const char* path, int mode);
int xCreateDir(const wchar_t* path, int mode);
/// @}

/// Creates a folder and those of its parents that are missing, each as xCreateDir() does. `/` and
/// `\` both separate: `/tmp/a\b` makes the folders `/tmp/a\` and then `/tmp/a\b`, as the system
/// sees a backslash as part of a name.
///
/// - A relative path of a single component is not created, and the result is true: "new" and "new/"
///   create nothing (but "new//" makes the folder). So "new/a" fails where `new` does not exist.
/// - A folder whose parent could not be created is not tried, and counts as success: without `new`,
///   "new/a" gives false, and "new/a/b" gives true after the message about `new/a/`.
///
/// Wide: creates nothing. Sets the process's locale. Walks from `path` towards the root, to the
/// first folder that exists, and asks the wide xIsDirExist() at each level, which prints its two
/// lines for every level that holds a character that cannot be converted. Prints the notice of the
/// wide xCreateDir() when no separator is left.
///
/// Throws std::out_of_range for an empty path.
///
/// @warning True does not mean that the folder exists. The wide form may also take another folder
/// for one of the path's, as the wide xIsDirExist() does.
/// @param path  a folder
/// @param mode  ignored
/// @return narrow: false when the folder itself was tried and could not be created; wide: false
/// when the notice is printed and its code, offset - 65, is 0
/// @{
bool xCreateNestedDir(const std::string& path, int mode);
bool xCreateNestedDir(const std::wstring& path, int mode);
/// @}

/// Deletes a folder with everything in it. At the first failure it stops: what was deleted until
/// then is gone, the rest stays. Holds one open file descriptor for each level of folders.
///
/// A link to a file is deleted itself, and its target kept. A link to a folder is never deleted:
/// its target is emptied, and then the deletion fails at the link. A link to a missing file makes
/// it fail too; that file may be one of the tree's, deleted just before.
///
/// @warning Links to folders are followed: the contents of a folder that a link in the tree points
/// to are deleted, wherever that folder lies.
/// @param path  a folder
/// @return 0; -1 on failure, with `errno` as the failing call set it
int xDeleteDir(const char* path);

/// Deletes nothing, whatever the path. Prints "WCHAR for delete directory is not supported!\n".
/// @param path  ignored
/// @return the status code offset - 65
/// @{
int xDeleteDir(const wchar_t* path);
int xDeleteDir(const std::wstring& path);
/// @}

/// Deletes nothing, like the wide forms. Prints "WCHAR for delete directory is not supported!\n".
/// Sets the process's locale.
///
/// @warning A `std::string` takes this form, which deletes nothing and has no result that would
/// tell. To delete, call `xDeleteDir(path.c_str())`.
/// @param path  converted to wide, then ignored
void xDeleteDir(const std::string& path);
