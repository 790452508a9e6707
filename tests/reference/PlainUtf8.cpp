#include "reference/PlainUtf8.h"

#include <cstddef>

namespace {

struct Range {
  unsigned char first, last;
};

// The well-formed sequences as rows of byte ranges (Unicode Standard, table 3-7), without the
// control characters that text does not hold.
constexpr Range kTail = {0x80, 0xBF};
constexpr Range kSequences[][4] = {
    {{0x09, 0x0A}},
    {{0x0D, 0x0D}},
    {{0x20, 0x7E}},
    {{0xC2, 0xDF}, kTail},
    {{0xE0, 0xE0}, {0xA0, 0xBF}, kTail},
    {{0xE1, 0xEC}, kTail, kTail},
    {{0xED, 0xED}, {0x80, 0x9F}, kTail},
    {{0xEE, 0xEF}, kTail, kTail},
    {{0xF0, 0xF0}, {0x90, 0xBF}, kTail, kTail},
    {{0xF1, 0xF3}, kTail, kTail, kTail},
    {{0xF4, 0xF4}, {0x80, 0x8F}, kTail, kTail},
};

/// The length of the well-formed sequence that `text` begins with, 0 when there is none.
std::size_t sequenceLength(const unsigned char* text) {
  for (const auto& sequence : kSequences) {
    std::size_t length = 0;
    while (length < 4 && sequence[length].last != 0 && text[length] >= sequence[length].first &&
           text[length] <= sequence[length].last) {
      ++length;
    }
    if (length == 4 || sequence[length].last == 0) return length;
  }
  return 0;
}

}  // namespace

bool plainIsUtf8(const char* text) {
  if (text == nullptr) return false;
  const auto* bytes = reinterpret_cast<const unsigned char*>(text);
  while (*bytes != 0) {
    const std::size_t length = sequenceLength(bytes);
    if (length == 0) return false;
    bytes += length;
  }
  return true;
}
