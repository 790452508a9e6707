// Conversions between narrow and wide C strings into buffers of the caller's.
//
// Both first call `setlocale(LC_ALL, locale)` and never restore what was set before: the whole
// process stays in the locale that was asked for, or, where the system knows no locale of that
// name, in the one it was in. They must not run beside other threads that use the locale.
#pragma once

/// Converts `source` into `destination`, which has room for strlen(source) + 1 wide characters, or
/// is null to convert nothing. Returns the number of wide characters before the terminator, cut to
/// 32 bits.
///
/// Where `source` is null or holds a sequence that is invalid in the locale, returns -1 after
/// printing this as a line; what precedes the sequence is converted, without a terminator:
/// "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!"
int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale);

/// Converts `source` into `destination`, which has room for 2 * wcslen(source) + 1 bytes, or is
/// null to convert nothing. Returns the number of bytes before the terminator, cut to 32 bits. A
/// longer result is cut after the last whole character that fits, and has no terminator when it
/// fills the room.
///
/// Where `source` is null or holds a character that the locale cannot encode, returns -1 after
/// printing this as a line; what precedes the character is converted, without a terminator:
/// "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!"
int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale);
