#include "Brindle/XTypeConvertTool.h"

#include <cstring>
#include <cwchar>

#include "Brindle/detail/conversion.h"

// The interface takes its strings by value.
// NOLINTBEGIN(performance-unnecessary-value-param)
std::wstring str2wstr(std::string text, std::string locale) {
  std::wstring wide(text.size() + 1, L'\0');
  brindle::detail::widen(text.c_str(), wide.data(), wide.size(), locale.c_str());
  wide.resize(std::wcslen(wide.c_str()));
  return wide;
}

std::string wstr2str(std::wstring text, std::string locale) {
  std::string narrow(brindle::detail::narrowRoom(text.size()), '\0');
  brindle::detail::narrow(text.c_str(), narrow.data(), narrow.size(), locale.c_str());
  narrow.resize(std::strlen(narrow.c_str()));
  return narrow;
}
// NOLINTEND(performance-unnecessary-value-param)

std::string trimTailSpacesInString(const std::string& text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}
