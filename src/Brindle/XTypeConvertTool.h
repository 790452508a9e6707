/// @file
/// Narrow strings (bytes in the locale's multibyte encoding) to wide ones and back, a trim, and a
/// test for UTF-8.
///
/// A conversion first calls `setlocale(LC_ALL, locale)` and never restores what was set before: the
/// whole process stays in the locale that was asked for, or, where the system knows no locale of
/// that name, in the one it was in. trimTailSpacesInString() and IsUtf8() touch no state and are
/// callable from any thread.
///
/// @warning Conversions must not run beside other threads that use the locale.
#pragma once

#include <string>

/// Converts to wide. Sets the process's locale.
/// @param text  bytes in the locale's encoding; a zero byte ends them
/// @param locale  a name as `setlocale` takes it
/// @return the text up to the first sequence that is invalid in the locale
std::wstring str2wstr(std::string text, std::string locale);

/// Converts to narrow. Sets the process's locale.
///
/// The result never holds more than two bytes for each wide character of `text` plus one: a longer
/// one is cut after the last whole character that fits.
/// @param text  wide characters; a zero ends them, but those behind it count for the room
/// @param locale  a name as `setlocale` takes it
/// @return the text up to the first character that the locale cannot encode
std::string wstr2str(std::wstring text, std::string locale);

/// Drops the spaces (0x20) at the end; other white space stays.
/// @param text  any bytes
/// @return what precedes the spaces
std::string trimTailSpacesInString(const std::string& text);

/// Tells whether bytes are well-formed UTF-8 text: no overlong form, no surrogate, nothing above
/// U+10FFFF, and of the control characters only tab, line feed and carriage return (0x7F is refused
/// as well).
/// @param text  zero-terminated, or null
/// @return true also for an empty string, false for null
bool IsUtf8(const char* text);
