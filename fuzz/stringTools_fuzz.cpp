// Splitting and replacing. Input: two bytes for the lengths of a pattern and a replacement, these
// two, then the text.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "Brindle/utility/stringTools.h"
#include "Input.h"

namespace {

/// One replacement after the other, in place.
std::string plainReplaced(std::string text, const std::string& pattern,
                          const std::string& replacement) {
  for (std::size_t at = 0; (at = text.find(pattern, at)) != std::string::npos;
       at += replacement.size()) {
    text.replace(at, pattern.size(), replacement);
  }
  return text;
}

void checkTokens(const std::string& text, const std::string& delimiters) {
  std::vector<std::string> expected(1);
  bool isSplit = false;
  for (const char character : text) {
    if (delimiters.find(character) == std::string::npos) {
      expected.back() += character;
    } else {
      isSplit = true;
      if (!expected.back().empty()) expected.emplace_back();
    }
  }
  if (isSplit && expected.back().empty()) expected.pop_back();
  require(stringTokenizer(text, delimiters.c_str()) == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string rest(data + 2, data + size);
  const std::size_t patternSize = std::min<std::size_t>(data[0] % 8, rest.size());
  const std::size_t replacementSize = std::min<std::size_t>(data[1] % 8, rest.size() - patternSize);
  const std::string pattern = rest.substr(0, patternSize);
  const std::string replacement = rest.substr(patternSize, replacementSize);
  const std::string text = rest.substr(patternSize + replacementSize);

  std::string replaced = text;
  replaceSubString(replaced, pattern, replacement);
  require(replaced == (pattern.empty() ? text : plainReplaced(text, pattern, replacement)));
  checkTokens(text, pattern.c_str());
  const std::vector<std::string> elements = stringTokenizer(text, "/\\");
  require(getPathLastName(text) == (elements.empty() ? "" : elements.back()));
  return 0;
}
