/// @file
/// Folders: whether one exists, creating one or a whole chain, deleting a tree.
///
/// The narrow functions do the work. The wide ones exist so that programs with wide paths link: the
/// wide xIsDirExist() works, the wide creating and deleting functions only print a notice.
///
/// Links are followed, and relative paths start at the working directory, which nothing here
/// changes. A null path counts as an empty one, and a zero ends a standard string. Status codes are
/// formed with the current offset (Brindle/BrindleErrcode.h).
///
/// @warning The wide xIsDirExist() and xCreateNestedDir(), and xDeleteDir() of a `std::string`, set
/// the process's locale to "chinese" (see Brindle/XTypeConvertTool.h), which other threads must not
/// use meanwhile.
#pragma once

#include <string>

/// @defgroup directories Folders
/// @{

/// Returns whether a folder, or a link to one, has this name; false for what cannot be examined.
///
/// Wide: tests the path as converted by wcharStr2charStr(); truncated, that may be another one.
/// Returns false after printing one of these lines, the first after the conversion's own:
/// - "Error: problem occurs when converting wchar_t string to char string (inside
///   isDirectoryExist_wchar(...))!\n" when a character cannot be converted,
/// - "Error: cannot create temporary storage for char string (inside
///   isDirectoryExist_wchar(...))!\n" when there is no memory.
/// @{
bool xIsDirExist(const char* path);
bool xIsDirExist(const std::string& path);
bool xIsDirExist(const wchar_t* path);
bool xIsDirExist(const std::wstring& path);
/// @}

/// Creates one folder, whose parent must exist, with permissions 0775 less the process's
/// file-creation mask. `mode` is ignored.
///
/// Wide: creates nothing and prints "WCHAR for create directory is not supported!\n".
/// @return a status code:
/// - offset - 67 ("Success to create file directory"),
/// - offset - 68 ("File directory already existed") when a folder or something else has the name,
/// - offset - 65 ("File directory is not ready") for wide paths, and otherwise, after printing
///   "xCreateDir: Fail to create directory '%s'. (Err: %s)\n" with the path and the system's text
/// @{
int xCreateDir(const char* path, int mode);
int xCreateDir(const wchar_t* path, int mode);
/// @}

/// Creates a folder and those of its parents that are missing, each as xCreateDir() does. `/` and
/// `\` both separate: `/tmp/a\b` makes the folders `/tmp/a\` and then `/tmp/a\b`, as the system
/// sees a backslash as part of a name. Returns false when the folder itself was tried and could not
/// be created.
///
/// - A relative path of a single component is not created, and the result is true: "new" and "new/"
///   create nothing (but "new//" makes the folder). So "new/a" fails where `new` does not exist.
/// - A folder whose parent could not be created is not tried, and counts as success: without `new`,
///   "new/a" gives false, and "new/a/b" gives true after the message about `new/a/`.
///
/// Wide: creates nothing. Asks the wide xIsDirExist(), messages included, about `path` and each
/// parent up to the first that exists. When no separator is left, prints the notice of the wide
/// xCreateDir() and returns whether its code is not 0.
///
/// Throws std::out_of_range for an empty path, and std::bad_alloc before anything is created.
///
/// @warning True does not mean that the folder exists. See docs/hazards.md.
/// @{
bool xCreateNestedDir(const std::string& path, int mode);
bool xCreateNestedDir(const std::wstring& path, int mode);
/// @}

/// Deletes a folder with everything in it, holding one open file descriptor for each level. Returns
/// 0; or -1, with `errno` as the failing call set it, at the first failure: what was deleted until
/// then is gone, the rest stays. An error while a folder is read counts as its end.
///
/// A link to a file is deleted itself. A link to a missing file makes the deletion fail; that file
/// may be one of the tree's, deleted just before.
///
/// @warning Links to folders are followed: a folder that a link in the tree points to is emptied,
/// wherever it lies, and the deletion then fails at the link. See docs/hazards.md.
int xDeleteDir(const char* path);

/// Deletes nothing, whatever the path: prints "WCHAR for delete directory is not supported!\n" and
/// returns the status code offset - 65.
/// @{
int xDeleteDir(const wchar_t* path);
int xDeleteDir(const std::wstring& path);
/// @}

/// Deletes nothing and prints the same notice.
///
/// @warning A `std::string` takes this form. To delete, call `xDeleteDir(path.c_str())`. See
/// docs/hazards.md.
void xDeleteDir(const std::string& path);

/// @}
