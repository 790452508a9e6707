#include "Brindle/XTypeConvertTool.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwchar>

std::wstring str2wstr(std::string text, std::string locale) {
  std::setlocale(LC_ALL, locale.c_str());
  std::wstring wide(text.size() + 1, L'\0');
  std::mbstowcs(wide.data(), text.c_str(), wide.size());
  wide.resize(std::wcslen(wide.c_str()));
  return wide;
}

std::string wstr2str(std::wstring text, std::string locale) {
  std::setlocale(LC_ALL, locale.c_str());
  std::string narrow(2 * text.size() + 1, '\0');
  std::wcstombs(narrow.data(), text.c_str(), narrow.size());
  narrow.resize(std::strlen(narrow.c_str()));
  return narrow;
}

std::string trimTailSpacesInString(const std::string& text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}
