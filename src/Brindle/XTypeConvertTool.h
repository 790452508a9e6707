/// @file
/// Narrow strings (bytes in the locale's multibyte encoding) to wide ones and back, a trim, and a
/// test for UTF-8.
///
/// A conversion first calls `setlocale(LC_ALL, locale)` and never restores what was set before: the
/// whole process stays in that locale or, where the system knows none of that name, in the one that
/// it was in, which then converts.
///
/// @warning Conversions must not run beside other threads that use the locale. The trim and the
/// test touch no state and are callable from any thread. See docs/hazards.md.
#pragma once

#include <string>

/// @defgroup XTypeConvertTool Narrow and wide strings, UTF-8
/// @{

/// Converts to wide, up to the first zero byte or sequence that is invalid in the locale.
std::wstring str2wstr(std::string text, std::string locale);

/// Converts to narrow, up to the first zero or character that the locale cannot encode. The result
/// holds at most two bytes for each character of `text`, those after a zero included, plus one; a
/// longer one is truncated after the last whole character that fits. Of two characters of three
/// bytes, only the first is converted.
std::string wstr2str(std::wstring text, std::string locale);

/// Drops the spaces (0x20) at the end; other white space stays.
std::string trimTailSpacesInString(const std::string& text);

/// Returns whether zero-terminated bytes are well-formed UTF-8 text: no overlong form, no
/// surrogate, nothing above U+10FFFF, and of the control characters only tab, line feed and
/// carriage return (0x7F is refused as well). True for an empty string, false for null.
bool IsUtf8(const char* text);

/// @}
