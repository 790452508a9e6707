/// @file
/// Path strings: taking a file path apart and putting it together. Nothing here looks at the file
/// system, and no "." or ".." is resolved.
///
/// A path is a zero-terminated string or a standard string. An extension is what follows a dot, a
/// component what lies between separators (`/` and `\`). Every function comes narrow (bytes) and
/// wide, with the same behaviour unless its contract says otherwise. None prints or throws on
/// purpose.
///
/// xGetFileNameFolderPath() with output buffers reads the offset of the status codes. The narrow
/// functions of the warning apart, the rest keep no state and are callable from any thread.
///
/// @warning The narrow xUniformFilePath(), xFixFolderPath() and xIsPathAbsolute() set the process's
/// locale, as every conversion between narrow and wide strings does, and leave it in force; where
/// the system does not know the locale that they name, they convert in the one in force, which
/// stays. They must not run beside other threads that use the locale.
#pragma once

#include <string>

/// Takes what follows the last dot or blank of a path.
///
/// - Blanks count like dots: "my file" gives "file".
/// - The folder is not set apart: "dir.d/readme" gives "d/readme".
/// - A path without a dot or blank is returned whole, and dots and blanks at its end are passed
///   over: "name." gives "name".
/// - A path of dots and blanks only, or an empty one, gives an empty string.
/// @param path  zero-terminated, or null
/// @return a new block of 1024 characters, which the caller releases with `free`; null for a null
/// path, when any run of characters between dots and blanks is longer than 1023, and when there is
/// no memory
/// @{
char* xGetFileExtension(const char* path);
wchar_t* xGetFileExtension(const wchar_t* path);
/// @}

/// Takes what follows the last dot of a path. Blanks do not count here, but folders do:
/// "dir.d/file" gives ".d/file" or "d/file".
/// @param path  any characters
/// @param withDot  whether the result begins with that dot
/// @return the extension; an empty string when there is no dot
/// @{
std::string xGetFileExtension(const std::string& path, bool withDot);
std::wstring xGetFileExtension(const std::wstring& path, bool withDot);
/// @}

/// Takes the last component of a path, extension included. A trailing separator is passed over:
/// "a/b/" gives "b". A path of separators only, or an empty one, gives an empty string.
/// @param path  zero-terminated, or null
/// @return a new block of 1024 characters, which the caller releases with `free`; null for a null
/// path, when any component is longer than 1023 characters, and when there is no memory
/// @{
char* xGetFileNameExtension(const char* path);
wchar_t* xGetFileNameExtension(const wchar_t* path);
/// @}

/// Splits a path into its last component, as xGetFileNameExtension() gives it, and the folder: the
/// path without as many characters at its end as the component has.
///
/// "/a/b/c.txt" gives "c.txt" and "/a/b/"; "c.txt" gives "c.txt" and "". Behind a trailing
/// separator the cut falls inside the component: "sub/name/" gives "name" and "sub/n".
///
/// @warning No output is bounded: each must have room for what it receives and a terminator. 1024
/// characters hold every name, the length of `path` plus 1 every folder.
/// @param path  zero-terminated, or null
/// @param name  receives the component, or is null
/// @param folder  receives the folder, or is null
/// @return 0; or, with nothing written, the status codes offset - 51 ("Fail to locate the file")
/// for a null path and offset - 57 ("File path too long") when any component is longer than 1023
/// characters
/// @{
int xGetFileNameFolderPath(const char* path, char* name, char* folder);
int xGetFileNameFolderPath(const wchar_t* path, wchar_t* name, wchar_t* folder);
/// @}

/// Takes parts of a path: its folder, or what two flags leave of it.
///
/// What follows the last separator is always kept. Behind a trailing separator that is nothing:
/// unlike above, "a/b/" gives "". With the folder kept, the last dot may be one of the folder's:
/// "r1.2/file" gives "r1".
/// @param path  any characters
/// @param keepFolder  whether what precedes the last separator, and that separator, is kept
/// @param keepExtension  whether the last dot of what is kept until then, and what follows the dot,
/// is kept
/// @param folderOnly  takes the folder, as above, of the characters before the first zero instead;
/// the other flags are ignored, and a path of more than 259 characters gives an empty string
/// @return the parts
/// @{
std::string xGetFileNameFolderPath(const std::string& path, bool keepFolder, bool keepExtension,
                                   bool folderOnly);
std::wstring xGetFileNameFolderPath(const std::wstring& path, bool keepFolder, bool keepExtension,
                                    bool folderOnly);
/// @}

/// Narrow: tells whether the extension of a path, as xGetFileExtension(path) gives it, is the one
/// asked for. For a path without a dot or blank an empty `ext` is right, and so is the whole path.
///
/// Wide: compares the last component, not the extension. L"/d/a.txt" matches L"a.txt" and not
/// L"txt"; a path without a separator matches itself and an empty `ext`.
/// @param path  zero-terminated, or null
/// @param ext  zero-terminated, or null; case counts, and the dot is not part of an extension
/// @return false also for a null argument, and where xGetFileExtension() or xGetFileNameExtension()
/// refuses a path as too long
/// @{
bool xCheckFileExtension(const char* path, const char* ext);
bool xCheckFileExtension(const wchar_t* path, const wchar_t* ext);
/// @}

/// Drops the last dot of a path and what follows it. The dot may be one of the folder's:
/// "r1.2/readme" gives "r1".
/// @param path  any characters
/// @return what precedes the dot; `path` when it has none
/// @{
std::string xDeleteExtension(const std::string& path);
std::wstring xDeleteExtension(const std::wstring& path);
/// @}

/// Replaces every `/` by `\`.
/// @param path  any characters
/// @return the path with backslashes
/// @{
std::string forwardSlashToBackward(std::string path);
std::wstring forwardSlashToBackward(std::wstring path);
/// @}

/// Replaces every `\` by `/` and collapses every run of slashes to one; a trailing slash stays.
/// Where the path that was passed begins with `/`, runs count only from the third character on:
/// `//srv//x` gives `//srv/x`, `///` stays `///`, but `\\srv` gives `/srv`.
///
/// Narrow: converts to wide and back in the locale "en_US.UTF-8". Sets the process's locale.
///
/// @warning The narrow form may return another, shorter path. It stops at the first zero byte and
/// at the first byte that cannot be converted ("\xff/tmp" gives ""), and it cuts a result of more
/// than two bytes for each wide character plus one: of two characters of three bytes only the first
/// comes back.
/// @param path  any characters; wide ones may hold zeros, which stay
/// @return the uniform path
/// @{
std::string xUniformFilePath(std::string path);
std::wstring xUniformFilePath(std::wstring path);
/// @}

/// Makes a path uniform, as xUniformFilePath() does, with a `/` at its end, added where there is
/// none.
///
/// Narrow: converts to wide and back in the locale "en_US.UTF-8". Sets the process's locale.
///
/// @warning The narrow form may return another, shorter path, cut twice. It first stops at a zero
/// byte or one that cannot be converted, before the `/` is added: "ä\xff/b" gives "ä/". Last, a
/// result of more than two bytes for each wide character, those of an added `/` included, plus one
/// is cut, which may take the `/` along.
/// @param path  any characters; wide ones may hold zeros, which stay
/// @return the folder's path; an empty string for an empty path
/// @{
std::string xFixFolderPath(std::string path);
std::wstring xFixFolderPath(std::wstring path);
/// @}

/// Tells whether a path begins with `/`. `C:\x` and `\x` do not.
///
/// Narrow: converts to wide in the locale "chinese". Sets the process's locale.
/// @param path  any characters
/// @return false also for an empty path
/// @{
bool xIsPathAbsolute(const std::string& path);
bool xIsPathAbsolute(const std::wstring& path);
/// @}
