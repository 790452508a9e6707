#include "Brindle/utility/stringTools.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <utility>

namespace {

/// Tells in one step whether a character is in a set; null stands for the empty set.
class CharacterSet {
 public:
  explicit CharacterSet(const char* characters) {
    if (characters == nullptr) return;
    for (; *characters != '\0'; ++characters) {
      holds_[static_cast<unsigned char>(*characters)] = true;
    }
  }
  bool operator()(char character) const { return holds_[static_cast<unsigned char>(character)]; }

 private:
  std::array<bool, 256> holds_{};
};

}  // namespace

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
  const CharacterSet delimiterSet(delimiters);
  const auto isDelimiter = std::cref(delimiterSet);
  if (std::none_of(text.begin(), text.end(), isDelimiter)) return {std::move(text)};

  std::vector<std::string> tokens;
  const auto end = text.cend();
  for (auto begin = text.cbegin(); begin != end;) {
    const auto next = std::find_if(begin, end, isDelimiter);
    if (next != begin) tokens.emplace_back(begin, next);
    begin = next == end ? end : next + 1;
  }
  return tokens;
}

std::string getPathLastName(std::string path) {
  const std::vector<std::string> elements = stringTokenizer(std::move(path), "/\\");
  return elements.empty() ? std::string() : elements.back();
}
