// UTF-8 validity of a megabyte, and replacing and splitting with 100,000 occurrences.
#include <cstdio>
#include <string>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility/stringTools.h"
#include "ratio.h"
#include "reference/PlainUtf8.h"

namespace {

constexpr std::size_t kMegabyte = 1 << 20;

std::string repeated(const std::string& piece, std::size_t size) {
  std::string text;
  while (text.size() < size) text += piece;
  return text;
}

void utf8(const char* name, const std::string& text) {
  const auto fast = [text] {
    bool isValid = IsUtf8(text.c_str());
    benchmark::DoNotOptimize(isValid);
    return isValid;
  };
  const auto plain = [text] {
    bool isValid = plainIsUtf8(text.c_str());
    benchmark::DoNotOptimize(isValid);
    return isValid;
  };
  bench::pair(name, fast, plain, [=] { return fast() && plain(); });
}

/// One replacement after the other, in place, which moves the rest of the text each time.
std::string plainReplaced(std::string text, const std::string& pattern,
                          const std::string& replacement) {
  for (std::size_t at = 0; (at = text.find(pattern, at)) != std::string::npos;
       at += replacement.size()) {
    text.erase(at, pattern.size());
    text.insert(at, replacement);
  }
  return text;
}

void replacing() {
  const std::string text = repeated("0123456789,", 1'100'000);
  const auto fast = [text] {
    std::string replaced = text;
    replaceSubString(replaced, ",", ", ");
    benchmark::DoNotOptimize(replaced);
    return replaced;
  };
  const auto plain = [text] {
    std::string replaced = plainReplaced(text, ",", ", ");
    benchmark::DoNotOptimize(replaced);
    return replaced;
  };
  bench::pair("replaceSubString/100000", fast, plain, [=] { return fast() == plain(); });
}

/// Looks at every character, then copies the pieces.
std::vector<std::string> plainTokens(const std::string& text, char delimiter) {
  std::vector<std::string> tokens(1);
  for (const char character : text) {
    if (character != delimiter) {
      tokens.back() += character;
    } else if (!tokens.back().empty()) {
      tokens.emplace_back();
    }
  }
  if (tokens.back().empty()) tokens.pop_back();
  return tokens;
}

void splitting() {
  const std::string text = repeated("0123456789,", 1'100'000);
  const auto fast = [text] { return stringTokenizer(text, ","); };
  const auto plain = [text] { return plainTokens(text, ','); };
  bench::pair("stringTokenizer/100000", fast, plain, [=] { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  utf8("IsUtf8/ascii", repeated("plain text, line after line\n", kMegabyte));
  utf8("IsUtf8/mixed", repeated("text, é, ñ, 漢字, 😀; ", kMegabyte));
  replacing();
  splitting();
  benchmark::RunSpecifiedBenchmarks();
}
