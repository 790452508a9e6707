/// @file
/// Conversions between narrow and wide C strings into buffers of the caller's.
///
/// Both set the process's locale as str2wstr() does (Brindle/XTypeConvertTool.h); a null `locale`
/// keeps it. They must not run beside other threads that use the locale.
///
/// They return how many bytes or wide characters they wrote before the terminator, low 32 bits;
/// with a null `destination` they only count, without a limit. When `source` is null, or holds what
/// cannot be converted before the room is full, they return -1, with what precedes that in
/// `destination`, without a terminator. They print a message when what they return is negative.
#pragma once

/// @defgroup stringConversion Narrow and wide buffers
/// @{

/// Converts to wide. `destination` has room for strlen(source) + 1 wide characters. Prints "Error:
/// some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!\n" (one line).
int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale);

/// Converts to narrow. `destination` has room for 2 * wcslen(source) + 1 bytes; a longer result is
/// truncated as by wstr2str(). A truncated result, and one of more than 2 * wcslen(source) bytes,
/// has no terminator. Prints "Error: some characters cannot be converted into char (inside
/// wcharStr2charStr(...))!\n" (one line).
int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale);

/// @}
