#include "Brindle/utility/stringConversion.h"

#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace {

constexpr std::size_t kRefused = static_cast<std::size_t>(-1);

/// Cuts a conversion's count to 32 bits, and prints `error` where that is negative.
int reportedCount(std::size_t converted, const char* error) {
  const int count = static_cast<int>(converted);
  if (count < 0) std::puts(error);
  return count;
}

}  // namespace

int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale) {
  std::setlocale(LC_ALL, locale);
  return reportedCount(
      source == nullptr ? kRefused : std::mbstowcs(destination, source, std::strlen(source) + 1),
      "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!");
}

int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale) {
  std::setlocale(LC_ALL, locale);
  return reportedCount(
      source == nullptr ? kRefused
                        : std::wcstombs(destination, source, 2 * std::wcslen(source) + 1),
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!");
}
