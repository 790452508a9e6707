#include "Brindle/utility/stringConversion.h"

#include <cstddef>
#include <cstring>

#include "Brindle/detail/conversion.h"

int charStr2wcharStr(const char* source, wchar_t* destination, const char* locale) {
  const std::size_t room = source == nullptr ? 0 : std::strlen(source) + 1;
  return brindle::detail::reportedCount(
      brindle::detail::widen(source, destination, room, locale),
      "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!");
}

int wcharStr2charStr(const wchar_t* source, char* destination, const char* locale) {
  return brindle::detail::narrowOrReport(source, destination, locale);
}
