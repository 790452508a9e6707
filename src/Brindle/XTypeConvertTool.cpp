#include "Brindle/XTypeConvertTool.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>

#include "Brindle/detail/conversion.h"
#include "detail/dispatch.h"

using namespace vorquell::detail;

namespace {

using Byte = std::uint8_t;

constexpr std::size_t kLongestTail = 3;  // bytes that can follow a leading byte
constexpr std::size_t kBlock = 2048;     // bytes looked at before the next early return

// The bitwise operators keep the two loops below free of branches, so that they are vectorised.

/// Whether an ASCII byte is none that text may hold.
[[gnu::always_inline]] inline bool isRefusedAscii(Byte byte) {
  const bool isControl = (byte < 0x20) & (byte != '\t') & (byte != '\n') & (byte != '\r');
  return isControl | (byte == 0x7F);
}

/// Whether the byte at `at` must not follow the three bytes before it, which are readable.
[[gnu::always_inline]] inline bool breaksSequence(const Byte* at) {
  const Byte byte = at[0];
  const Byte before = at[-1];
  const bool isTail = (byte & 0xC0) == 0x80;
  const bool mustBeTail = (before >= 0xC2) | (at[-2] >= 0xE0) | (at[-3] >= 0xF0);
  const bool isNoByte = (byte == 0xC0) | (byte == 0xC1) | (byte >= 0xF5);
  const bool isOverlong = ((before == 0xE0) & (byte < 0xA0)) | ((before == 0xF0) & (byte < 0x90));
  const bool isOutOfRange = ((before == 0xED) & (byte > 0x9F)) | ((before == 0xF4) & (byte > 0x8F));
  return (isTail != mustBeTail) | isNoByte | isOverlong | isOutOfRange | isRefusedAscii(byte);
}

[[gnu::always_inline]] inline bool isAscii(const Byte* bytes, std::size_t length) {
  Byte all = 0;
  for (std::size_t i = 0; i < length; ++i) all |= bytes[i];
  return all < 0x80;
}

[[gnu::always_inline]] inline bool isRefusedAsciiIn(const Byte* bytes, std::size_t length) {
  Byte refused = 0;
  for (std::size_t i = 0; i < length; ++i) refused |= static_cast<Byte>(isRefusedAscii(bytes[i]));
  return refused != 0;
}

/// The three bytes before `bytes` must be readable; they belong to the text before it.
[[gnu::always_inline]] inline bool breaksSequenceIn(const Byte* bytes, std::size_t length) {
  Byte broken = 0;
  for (std::size_t i = 0; i < length; ++i) broken |= static_cast<Byte>(breaksSequence(bytes + i));
  return broken != 0;
}

/// Checks text of which the three bytes before `bytes` are known to be good. Inlined into one
/// function for each instruction set, whose registers the loops then fill.
[[gnu::always_inline]] inline bool isWellFormed(const Byte* bytes, std::size_t length) {
  for (std::size_t begin = 0; begin < length; begin += kBlock) {
    const std::size_t size = std::min(kBlock, length - begin);
    const Byte* block = bytes + begin;
    // A sequence that began in the block before makes the block's first bytes non-ASCII.
    const bool endsClean = isAscii(block - kLongestTail, size + kLongestTail);
    if (endsClean ? isRefusedAsciiIn(block, size) : breaksSequenceIn(block, size)) return false;
  }
  return true;
}

__attribute__((target(VORQUELL_AVX2))) bool isWellFormedAvx2(const Byte* bytes,
                                                             std::size_t length) {
  return isWellFormed(bytes, length);
}

bool isWellFormedBaseline(const Byte* bytes, std::size_t length) {
  return isWellFormed(bytes, length);
}

constexpr Variant<bool(const Byte*, std::size_t)> kCheckers[] = {
    {InstructionSet::kAvx2, isWellFormedAvx2},
    {InstructionSet::kBaseline, isWellFormedBaseline},
};

}  // namespace

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

bool IsUtf8(const char* text) {
  if (text == nullptr) return false;
  const auto* bytes = reinterpret_cast<const Byte*>(text);
  const std::size_t length = std::strlen(text);

  // Both ends are checked between spaces; what lies between them has three bytes before it.
  const std::size_t headSize = std::min<std::size_t>(length, kLongestTail);
  Byte head[2 * kLongestTail];
  std::fill_n(head, sizeof head, Byte{' '});
  std::copy_n(bytes, headSize, head + kLongestTail);
  Byte tail[2 * kLongestTail];
  std::fill_n(tail, sizeof tail, Byte{' '});
  std::copy_n(bytes + length - headSize, headSize, tail + kLongestTail - headSize);

  return !breaksSequenceIn(head + kLongestTail, headSize) &&
         !breaksSequenceIn(tail + kLongestTail, kLongestTail) &&
         Dispatch<kCheckers>::call(bytes + headSize, length - headSize);
}
