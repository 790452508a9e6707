// Folders: whether one exists, creating one or a whole chain, deleting a tree.
//
// The narrow functions do the work. The wide ones exist so that programs with wide paths link: the
// wide xIsDirExist() answers, the wide creating and deleting functions only print a notice.
//
// Paths are taken as the system takes them: links are followed, relative paths start at the working
// directory, which nothing here changes. In a standard string a zero ends what the system sees. A
// null path counts as an empty one. Messages go to standard output.
//
// Process-wide state: status codes are formed with the offset of the moment
// (Brindle/BrindleErrcode.h). The wide xIsDirExist() and xCreateNestedDir(), and xDeleteDir() of a
// `std::string`, set the process's locale to "chinese" and leave it there, or in the locale in
// force where the system knows no such name; they must not run beside other threads that use the
// locale.
#pragma once

#include <string>

/// Tells whether `path` names a folder, or a link to one. False, without a message, for what does
/// not exist, cannot be examined, is something else, or is empty.
///
/// Wide: asks the same of the path converted to narrow, which is cut after two bytes for each
/// character plus one. Sets the process's locale. When a character cannot be converted, prints the
/// conversion's message and "Error: problem occurs when converting wchar_t string to char string
/// (inside isDirectoryExist_wchar(...))!\n" (one line); when there is no memory, "Error: cannot
/// create temporary storage for char string (inside isDirectoryExist_wchar(...))!\n". Both give
/// false.
bool xIsDirExist(const char* path);
bool xIsDirExist(const std::string& path);
bool xIsDirExist(const wchar_t* path);
bool xIsDirExist(const std::wstring& path);

/// Creates one folder; its parent must exist. Its permissions are 0775 less the bits of the
/// process's file-creation mask; `mode` is ignored. Returns one of the status codes
///
/// - offset - 67 ("Success to create file directory"),
/// - offset - 68 ("File directory already existed"), printing nothing, when the name is taken, be
///   it by a folder or by something else,
/// - offset - 65 ("File directory is not ready") otherwise, after printing "xCreateDir: Fail to
///   create directory '%s'. (Err: %s)\n" with the path and the system's text.
///
/// Wide: creates nothing, prints "WCHAR for create directory is not supported!\n" and returns
/// offset - 65, whatever the path.
int xCreateDir(const char* path, int mode);
int xCreateDir(const wchar_t* path, int mode);

/// Creates a folder and those of its parents that are missing, each as xCreateDir() does. '/' and
/// '\' both separate: "/tmp/a\b" makes the folders `/tmp/a\` and then `/tmp/a\b`, as the system
/// sees a backslash as part of a name.
///
/// - A relative path of a single component is not created, and the result is true: "new" and "new/"
///   create nothing (but "new//" makes the folder). So "new/a" fails where `new` does not exist.
/// - A folder whose parent could not be created is not tried, and counts as success: without `new`,
///   "new/a" gives false, and "new/a/b" gives true after the message about `new/a/`.
/// - `mode` is ignored.
///
/// Wide: creates nothing. Walks from `path` towards the root. Returns true at the first path that
/// exists; where no separator is left, prints the notice of the wide xCreateDir() and returns true
/// (false if the notice's code, offset - 65, is 0). Sets the process's locale.
///
/// An empty path throws std::out_of_range.
bool xCreateNestedDir(const std::string& path, int mode);
bool xCreateNestedDir(const std::wstring& path, int mode);

/// Deletes the folder `path` with everything in it and returns 0. At the first failure it stops and
/// returns -1, with `errno` as the failing call set it; what was deleted until then is gone, the
/// rest stays. Prints nothing. Holds one open file descriptor for each level of folders.
///
/// A link to a folder is never deleted: its target is emptied, and then the deletion fails at the
/// link. A link to a missing file makes it fail too; that file may be one of the tree's, deleted
/// just before.
///
/// @warning Links are followed: the contents of a folder that a link in the tree points to are
/// deleted, wherever that folder lies.
int xDeleteDir(const char* path);

/// Delete nothing, whatever the path: print "WCHAR for delete directory is not supported!\n" and
/// return the status code offset - 65.
int xDeleteDir(const wchar_t* path);
int xDeleteDir(const std::wstring& path);

/// Deletes nothing, like the wide forms: prints "WCHAR for delete directory is not supported!\n".
/// Sets the process's locale. To delete, call xDeleteDir(path.c_str()).
void xDeleteDir(const std::string& path);
