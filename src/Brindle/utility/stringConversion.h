/// @file
/// Conversions between narrow and wide C strings into buffers of the caller's.
///
/// Both first call `setlocale(LC_ALL, locale)` and never restore what was set before: the whole
/// process stays in the locale that was asked for, or, where the system knows no locale of that
/// name, in the one it was in.
///
/// @warning Conversions must not run beside other threads that use the locale.
#pragma once

/// Converts to wide. Sets the process's locale.
///
/// Prints "Error: some characters cannot be converted into wchat_t (inside
/// charStr2wcharStr(...))!\n" (one line) when `source` is null or holds a sequence that is invalid
/// in the locale; what precedes the sequence is converted, without a terminator.
/// @param source  zero-terminated bytes in the locale's encoding, or null
/// @param destination  must have room for strlen(source) + 1 wide characters; null converts nothing
/// @param locale  a name as `setlocale` takes it; null keeps the locale
/// @return the number of wide characters before the terminator, cut to 32 bits; -1 after the
/// message
int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale);

/// Converts to narrow. Sets the process's locale.
///
/// A result of more than 2 * wcslen(source) + 1 bytes is cut after the last whole character that
/// fits, and has no terminator when it fills the room.
///
/// Prints "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n"
/// when `source` is null or holds a character that the locale cannot encode; what precedes the
/// character is converted, without a terminator.
/// @param source  zero-terminated wide characters, or null
/// @param destination  must have room for 2 * wcslen(source) + 1 bytes; null converts nothing
/// @param locale  a name as `setlocale` takes it; null keeps the locale
/// @return the number of bytes before the terminator, cut to 32 bits; -1 after the message
int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale);
