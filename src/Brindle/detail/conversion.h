// Conversions between narrow and wide text in a locale that is named. Private: not installed. Used
// by XTypeConvertTool for strings, by stringConversion for buffers and by the folders for wide
// paths, so that the locale is set, and the room of narrow text reckoned, in one place.
#pragma once

#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace brindle::detail {

inline constexpr std::size_t kInconvertible = static_cast<std::size_t>(-1);

/// The bytes that narrow text may take, its terminator included: two for each wide character.
constexpr std::size_t narrowRoom(std::size_t wideLength) {
  return 2 * wideLength + 1;
}

/// Converts the zero-terminated `source` as `mbstowcs` does. Null is inconvertible.
inline std::size_t widen(const char* source, wchar_t* destination, std::size_t room,
                         const char* locale) {
  std::setlocale(LC_ALL, locale);
  return source == nullptr ? kInconvertible : std::mbstowcs(destination, source, room);
}

/// Converts the zero-terminated `source` as `wcstombs` does. Null is inconvertible.
inline std::size_t narrow(const wchar_t* source, char* destination, std::size_t room,
                          const char* locale) {
  std::setlocale(LC_ALL, locale);
  return source == nullptr ? kInconvertible : std::wcstombs(destination, source, room);
}

/// The low 32 bits of a conversion's count. Prints `error` where they are negative.
inline int reportedCount(std::size_t converted, const char* error) {
  const int count = static_cast<int>(converted);
  if (count < 0) std::puts(error);
  return count;
}

/// What wcharStr2charStr() does, its message included.
inline int narrowOrReport(const wchar_t* source, char* destination, const char* locale) {
  const std::size_t room = source == nullptr ? 0 : narrowRoom(std::wcslen(source));
  return reportedCount(
      narrow(source, destination, room, locale),
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!");
}

}  // namespace brindle::detail
