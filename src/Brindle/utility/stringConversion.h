// Conversions between narrow and wide C strings into buffers of the caller's.
//
// Both first call `setlocale(LC_ALL, locale)` and never restore what was set before: the whole
// process stays in the locale that was asked for, or, where the system knows no locale of that
// name, in the one it was in. They must not run beside other threads that use the locale.
#pragma once

/// Converts `source` into `destination`, which has room for strlen(source) + 1 wide characters.
/// Returns the number of wide characters written before the terminator, cut to 32 bits.
///
/// Prints "Error: some characters cannot be converted into wchat_t (inside
/// charStr2wcharStr(...))!\n" (one line) and returns -1 when `source` holds a sequence that is
/// invalid in the locale; what precedes it is converted, and there is no terminator.
int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale);

/// Converts `source` into `destination`, which has room for 2 * wcslen(source) + 1 bytes. Returns
/// the number of bytes written before the terminator, cut to 32 bits.
///
/// A longer result is cut after the last whole character that fits, and then has no terminator when
/// it fills the buffer. Prints "Error: some characters cannot be converted into char (inside
/// wcharStr2charStr(...))!\n" (one line) and returns -1 when the locale cannot encode a character.
int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale);
