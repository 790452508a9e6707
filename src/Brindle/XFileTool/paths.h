/// @file
/// Path strings: taking a file path apart and putting it together. Nothing here looks at the file
/// system, prints, or resolves "." and "..".
///
/// An extension is what follows a dot, a component what lies between separators (`/` and `\`).
/// Every function comes narrow (bytes) and wide, with the same behaviour unless its contract says
/// otherwise. The functions of the warning apart, they keep no state and are callable from any
/// thread; one reads the offset of the status codes.
///
/// A pointer that is returned is to a new block of 1024 characters, which the caller releases with
/// `free`. It is null for a null path, when there is no memory, and when any part of the path
/// between the characters at which it is split is longer than 1023.
///
/// @warning The narrow xUniformFilePath(), xFixFolderPath() and xIsPathAbsolute() set the process's
/// locale (see Brindle/XTypeConvertTool.h), to "en_US.UTF-8" and the last to "chinese"; other
/// threads must not use it meanwhile.
#pragma once

#include <string>

/// @defgroup paths Path strings
/// @{

/// Takes what follows the last dot or blank of a path: "my file" gives "file". The folder is not
/// set apart: "dir.d/readme" gives "d/readme". A path without a dot or blank is returned whole.
/// Dots and blanks at the end are passed over: "name." gives "name", and a path of nothing else an
/// empty string.
/// @{
char* xGetFileExtension(const char* path);
wchar_t* xGetFileExtension(const wchar_t* path);
/// @}

/// Takes what follows the last dot of a path, perhaps with that dot; an empty string where there is
/// none. Blanks do not count here, but folders do: "dir.d/file" gives ".d/file" or "d/file".
/// @{
std::string xGetFileExtension(const std::string& path, bool withDot);
std::wstring xGetFileExtension(const std::wstring& path, bool withDot);
/// @}

/// Takes the last component of a path, extension included. A trailing separator is passed over:
/// "a/b/" gives "b". A path of separators only gives an empty string.
/// @{
char* xGetFileNameExtension(const char* path);
wchar_t* xGetFileNameExtension(const wchar_t* path);
/// @}

/// Splits a path into its last component, as xGetFileNameExtension() gives it, and the folder: the
/// path without as many characters at its end as the component has. "/a/b/c.txt" gives "c.txt" and
/// "/a/b/"; "c.txt" gives "c.txt" and "". With a trailing separator the folder ends inside the
/// component: "sub/name/" gives "name" and "sub/n".
///
/// @warning No output is bounded: each must have room for what it receives and a terminator. 1024
/// characters hold every name, the length of `path` plus 1 every folder. See docs/hazards.md.
/// @param name,folder  receive the two; null for what is not wanted; `folder` alone may be `path`
/// @return 0; or, with nothing written, the status codes offset - 51 ("Fail to locate the file")
/// for a null path and offset - 57 ("File path too long") when any component is longer than 1023
/// characters
/// @{
int xGetFileNameFolderPath(const char* path, char* name, char* folder);
int xGetFileNameFolderPath(const wchar_t* path, wchar_t* name, wchar_t* folder);
/// @}

/// Takes parts of a path. What follows the last separator is kept, which for "a/b/", unlike above,
/// is nothing.
/// @param keepFolder  keeps what precedes the last separator, and that separator
/// @param keepExtension  keeps the last dot of what is kept until then, and what follows it. The
/// dot may be a folder's: "r1.2/file" without extension is "r1".
/// @param folderOnly  takes the folder, as above, instead; the other flags are ignored, a zero ends
/// the path, and one of more than 259 characters gives an empty string
/// @{
std::string xGetFileNameFolderPath(const std::string& path, bool keepFolder, bool keepExtension,
                                   bool folderOnly);
std::wstring xGetFileNameFolderPath(const std::wstring& path, bool keepFolder, bool keepExtension,
                                    bool folderOnly);
/// @}

/// Narrow: returns whether xGetFileExtension(path) gives `ext`; case counts, and the dot is no part
/// of it. For a path without a dot or blank an empty `ext` is right, and so is the whole path.
///
/// Wide: compares the last component, not the extension. L"/d/a.txt" matches L"a.txt" and not
/// L"txt"; a path without a separator matches itself and an empty `ext`.
///
/// False also for a null argument, and where xGetFileExtension() or xGetFileNameExtension() refuses
/// a path as too long.
/// @{
bool xCheckFileExtension(const char* path, const char* ext);
bool xCheckFileExtension(const wchar_t* path, const wchar_t* ext);
/// @}

/// Drops a path's last dot, be it a folder's, and what follows it: "r1.2/readme" gives "r1".
/// @{
std::string xDeleteExtension(const std::string& path);
std::wstring xDeleteExtension(const std::wstring& path);
/// @}

/// Replaces every `/` by `\`.
/// @{
std::string forwardSlashToBackward(std::string path);
std::wstring forwardSlashToBackward(std::wstring path);
/// @}

/// Replaces every `\` by `/` and collapses every run of slashes to one; a trailing slash stays.
/// Where the path that was passed begins with `/`, runs count only from the third character on:
/// `//srv//x` gives `//srv/x`, `///` stays `///`, but `\\srv` gives `/srv`.
///
/// @warning The narrow form converts by str2wstr() and wstr2str(), and so may return another,
/// shorter path: "\xff/tmp" gives "". See docs/hazards.md.
/// @{
std::string xUniformFilePath(std::string path);
std::wstring xUniformFilePath(std::wstring path);
/// @}

/// Makes a path uniform, as xUniformFilePath() does, with a `/` at its end, added where there is
/// none. An empty path stays empty.
///
/// @warning The narrow form converts likewise: "a\xff/b" gives "a/", and where the way back
/// truncates, the `/` may be lost.
/// @{
std::string xFixFolderPath(std::string path);
std::wstring xFixFolderPath(std::wstring path);
/// @}

/// Returns whether a path, narrow ones converted by str2wstr(), begins with `/`: not so `C:\x`.
/// @{
bool xIsPathAbsolute(const std::string& path);
bool xIsPathAbsolute(const std::wstring& path);
/// @}

/// @}
