// Path strings: taking a file path apart and putting it together. Nothing here looks at the file
// system, and no "." or ".." is resolved.
//
// A path is a zero-terminated string or a standard string. An extension is what follows a dot, a
// component what lies between separators ('/' and '\'); a folder keeps its trailing separator.
// Every function comes narrow (bytes) and wide, with the same behaviour unless the comment says
// otherwise. None prints or throws on purpose.
//
// Process-wide state: the narrow xUniformFilePath(), xFixFolderPath() and xIsPathAbsolute() set the
// process's locale, as every conversion between narrow and wide strings does, and so must not run
// beside other threads that use the locale. xGetFileNameFolderPath() with output buffers reads the
// offset of the status codes. The rest keep no state and are callable from any thread.
#pragma once

#include <string>

/// Returns what follows the last dot or blank of `path` in a new block of 1024 characters, which
/// the caller releases with `free`.
///
/// - Blanks count like dots: "my file" gives "file".
/// - The folder is not set apart: "dir.d/readme" gives "d/readme".
/// - A path without a dot or blank is returned whole, and dots and blanks at its end are passed
///   over: "name." gives "name".
/// - A path of dots and blanks only, or an empty one, gives an empty string.
///
/// Returns null for a null path, when any run of characters between dots and blanks is longer than
/// 1023, and when there is no memory.
char* xGetFileExtension(const char* path);
wchar_t* xGetFileExtension(const wchar_t* path);

/// Returns what follows the last dot of `path`, with that dot when `withDot` is set; an empty
/// string when there is no dot. Blanks do not count here, but folders do: "dir.d/file" gives
/// ".d/file" or "d/file".
std::string xGetFileExtension(const std::string& path, bool withDot);
std::wstring xGetFileExtension(const std::wstring& path, bool withDot);

/// Returns the last component of `path`, extension included, in a new block of 1024 characters,
/// which the caller releases with `free`. A trailing separator is passed over: "a/b/" gives "b". A
/// path of separators only, or an empty one, gives an empty string.
///
/// Returns null for a null path, when any component is longer than 1023 characters, and when there
/// is no memory.
char* xGetFileNameExtension(const char* path);
wchar_t* xGetFileNameExtension(const wchar_t* path);

/// Splits `path` into its last component, as xGetFileNameExtension() gives it, and the folder: the
/// path without as many characters at its end as the component has. Either output may be null.
///
/// "/a/b/c.txt" gives "c.txt" and "/a/b/"; "c.txt" gives "c.txt" and "". Behind a trailing
/// separator the cut falls inside the component: "sub/name/" gives "name" and "sub/n".
///
/// Returns 0; or, writing nothing, the status codes offset - 51 ("Fail to locate the file") for a
/// null path and offset - 57 ("File path too long") when any component is longer than 1023
/// characters. `folder` may be the path's own buffer, and so may `name` when `folder` is null.
///
/// @warning No output is bounded: `name` needs room for its component and `folder` for the folder,
/// each with a terminator. 1024 characters hold every name, the length of `path` plus 1 every
/// folder.
int xGetFileNameFolderPath(const char* path, char* name, char* folder);
int xGetFileNameFolderPath(const wchar_t* path, wchar_t* name, wchar_t* folder);

/// Returns parts of `path`:
///
/// - `folderOnly`: the folder, as above, of the characters before the first zero. The other flags
///   are ignored. A path of more than 259 characters gives an empty string.
/// - Otherwise the folder is left out unless `keepFolder` is set, and then the last dot and what
///   follows it unless `keepExtension` is set. With the folder kept, the last dot may be one of the
///   folder's: "r1.2/file" gives "r1".
std::string xGetFileNameFolderPath(const std::string& path, bool keepFolder, bool keepExtension,
                                   bool folderOnly);
std::wstring xGetFileNameFolderPath(const std::wstring& path, bool keepFolder, bool keepExtension,
                                    bool folderOnly);

/// Narrow: tells whether `ext` is the extension of `path`, as xGetFileExtension(path) gives it
/// (without the dot; case counts). For a path without a dot or blank an empty `ext` is right, and
/// so is the whole path.
///
/// Wide: compares the last component, not the extension. L"/d/a.txt" matches L"a.txt" and not
/// L"txt"; a path without a separator matches itself and an empty `ext`.
///
/// False for a null argument, and where xGetFileExtension() or xGetFileNameExtension() refuses a
/// path as too long.
bool xCheckFileExtension(const char* path, const char* ext);
bool xCheckFileExtension(const wchar_t* path, const wchar_t* ext);

/// Returns what precedes the last dot of `path`, or `path` when it has none. The dot may be one of
/// the folder's: "r1.2/readme" gives "r1".
std::string xDeleteExtension(const std::string& path);
std::wstring xDeleteExtension(const std::wstring& path);

/// Returns `path` with every '/' replaced by '\'.
std::string forwardSlashToBackward(std::string path);
std::wstring forwardSlashToBackward(std::wstring path);

/// Returns `path` with every '\' replaced by '/' and every run of slashes collapsed to one; a
/// trailing slash stays. Where the path that was passed begins with '/', runs count only from the
/// third character on: "//srv//x" gives "//srv/x", "///" stays "///", but "\\srv" gives "/srv".
///
/// Narrow: converts to wide and back in the locale "en_US.UTF-8" and leaves the process in that
/// locale; where the system does not know it, in the locale in force, which stays. The result is
/// cut at the first character that this locale cannot convert, and when it is longer than twice the
/// number of characters plus 1 byte: of two characters of three bytes only the first comes back.
std::string xUniformFilePath(std::string path);
std::wstring xUniformFilePath(std::wstring path);

/// Returns xUniformFilePath(path) with a '/' at its end, added where there is none; an empty string
/// for an empty path. Narrow: converts, cuts and leaves the locale as xUniformFilePath() does. The
/// cut comes last, so it may take the '/' along.
std::string xFixFolderPath(std::string path);
std::wstring xFixFolderPath(std::wstring path);

/// Tells whether `path` begins with '/'. "C:\x" and "\x" do not.
///
/// Narrow: converts to wide in the locale "chinese" and leaves the process in that locale; where
/// the system does not know it, in the locale in force, which stays.
bool xIsPathAbsolute(const std::string& path);
bool xIsPathAbsolute(const std::wstring& path);
