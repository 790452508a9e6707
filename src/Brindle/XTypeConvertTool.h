// Narrow strings (bytes in the locale's multibyte encoding) to wide ones and back, a trim, and a
// test for UTF-8.
//
// A conversion first calls `setlocale(LC_ALL, locale)` and never restores what was set before: the
// whole process stays in the locale that was asked for, or, where the system knows no locale of
// that name, in the one it was in. So conversions must not run beside other threads that use the
// locale. trimTailSpacesInString() and IsUtf8() touch no state.
#pragma once

#include <string>

/// Returns `text` as a wide string, up to its first zero byte or the first sequence that is invalid
/// in the locale. Sets the process's locale.
std::wstring str2wstr(std::string text, std::string locale);

/// Returns `text` as a narrow string, up to its first zero or the first character that the locale
/// cannot encode, and never more than two bytes for each wide character of `text` plus one: a
/// longer result is cut after the last whole character that fits. Sets the process's locale.
std::string wstr2str(std::wstring text, std::string locale);

/// Returns `text` without the spaces (0x20) at its end; other white space stays.
std::string trimTailSpacesInString(const std::string& text);

/// Tells whether a zero-terminated string is well-formed UTF-8 text: no overlong form, no
/// surrogate, nothing above U+10FFFF, and of the control characters only tab, line feed and
/// carriage return (0x7F is refused as well). True for an empty string, false for null.
bool IsUtf8(const char* text);
