#include "Brindle/utility/stringTools.h"

#include <algorithm>
#include <cstddef>
#include <utility>

void replaceSubString(std::string& text, std::string pattern, std::string replacement) {
  if (pattern.empty()) return;
  std::size_t found = text.find(pattern);
  if (found == std::string::npos) return;

  std::string replaced;
  std::size_t copied = 0;
  for (; found != std::string::npos; found = text.find(pattern, copied)) {
    replaced.append(text, copied, found - copied).append(replacement);
    copied = found + pattern.size();
  }
  replaced.append(text, copied);
  text = std::move(replaced);
}

std::vector<std::string> stringTokenizer(std::string text, const char* delimiters) {
  if (delimiters == nullptr || text.find_first_of(delimiters) == std::string::npos) {
    return {std::move(text)};
  }
  std::vector<std::string> tokens;
  std::size_t begin = 0;
  while ((begin = text.find_first_not_of(delimiters, begin)) != std::string::npos) {
    const std::size_t end = std::min(text.find_first_of(delimiters, begin), text.size());
    tokens.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return tokens;
}

std::string getPathLastName(std::string path) {
  const std::vector<std::string> elements = stringTokenizer(std::move(path), "/\\");
  return elements.empty() ? std::string() : elements.back();
}
