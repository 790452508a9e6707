#include "Brindle/utility/stringTools.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <utility>

#include "Brindle/detail/path.h"

namespace {

/// A set of characters that are looked up in one step; null stands for the empty set.
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

/// The first occurrence or null; unlike std::string::find never quadratic.
const char* findPattern(const char* begin, const char* end, const std::string& pattern) {
  return static_cast<const char*>(
      memmem(begin, static_cast<std::size_t>(end - begin), pattern.data(), pattern.size()));
}

}  // namespace

// The interface takes its strings by value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void replaceSubString(std::string& text, std::string pattern, std::string replacement) {
  if (pattern.empty()) return;
  const char* const end = text.data() + text.size();
  const char* copied = text.data();
  const char* found = findPattern(copied, end, pattern);
  if (found == nullptr) return;

  std::string replaced;
  for (; found != nullptr; found = findPattern(copied, end, pattern)) {
    replaced.append(copied, found).append(replacement);
    copied = found + pattern.size();
  }
  replaced.append(copied, end);
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
  const std::vector<std::string> elements =
      stringTokenizer(std::move(path), brindle::detail::kSeparators<char>);
  return elements.empty() ? std::string() : elements.back();
}
