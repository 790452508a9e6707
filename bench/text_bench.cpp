// UTF-8 validity of a megabyte, also against the best kernel known where the processor has its
// instructions, and replacing and splitting with 100,000 occurrences.
#include <immintrin.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility/stringTools.h"
#include "detail/dispatch.h"
#include "ratio.h"
#include "reference/PlainUtf8.h"

using namespace vorquell::detail;

namespace {

constexpr std::size_t kMegabyte = 1 << 20;

std::string repeated(const std::string& piece, std::size_t size) {
  std::string text;
  while (text.size() < size) text += piece;
  return text;
}

#define KERNEL __attribute__((target("avx2"), noinline))
#define KERNEL_PART __attribute__((target("avx2"), always_inline)) inline

/// Looks the low halves of `index` up in `table`, which is in both halves of the register.
KERNEL_PART __m256i lookUp(const char (&table)[17], __m256i index) {
  const __m128i entries = _mm_loadu_si128(reinterpret_cast<const __m128i*>(table));
  return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(entries), index);
}

KERNEL_PART __m256i highHalves(__m256i bytes) {
  return _mm256_srli_epi16(bytes, 4) & _mm256_set1_epi8(15);
}

/// `bytes` shifted by `kBy`, the ends of the vector before moving in.
template <int kBy>
KERNEL_PART __m256i shifted(__m256i bytes, __m256i before) {
  return _mm256_alignr_epi8(bytes, _mm256_permute2x128_si256(before, bytes, 0x21), 16 - kBy);
}

/// The three look-ups, with the tables as the paper has them (Keiser, Lemire: Validating UTF-8 In
/// Less Than One Instruction Per Byte, 2021).
KERNEL_PART __m256i sequenceErrors(__m256i bytes, __m256i before) {
  constexpr char kFirstHigh[] = "\x02\x02\x02\x02\x02\x02\x02\x02\x80\x80\x80\x80\x21\x01\x15\x49";
  constexpr char kFirstLow[] = "\xE7\xA3\x83\x83\x8B\xCB\xCB\xCB\xCB\xCB\xCB\xCB\xCB\xDB\xCB\xCB";
  constexpr char kSecondHigh[] = "\x01\x01\x01\x01\x01\x01\x01\x01\xE6\xAE\xBA\xBA\x01\x01\x01\x01";
  const __m256i first = shifted<1>(bytes, before);
  const __m256i special = lookUp(kFirstHigh, highHalves(first)) &
                          lookUp(kFirstLow, first & _mm256_set1_epi8(15)) &
                          lookUp(kSecondHigh, highHalves(bytes));
  const __m256i due = _mm256_subs_epu8(shifted<2>(bytes, before), _mm256_set1_epi8(0x60)) |
                      _mm256_subs_epu8(shifted<3>(bytes, before), _mm256_set1_epi8(0x70));
  return (due & _mm256_set1_epi8(static_cast<char>(0x80))) ^ special;
}

/// Control characters but \t, \n and \r, and 0x7F.
KERNEL_PART __m256i refusedAscii(__m256i bytes) {
  constexpr char kHigh[] = "\1\2\0\0\0\0\0\4\0\0\0\0\0\0\0\0";
  constexpr char kLow[] = "\3\3\3\3\3\3\3\3\3\2\2\3\3\2\3\7";
  return lookUp(kHigh, highHalves(bytes)) & lookUp(kLow, bytes);
}

struct Utf8State {
  __m256i errors, before, incomplete;
};

KERNEL_PART void check64(const char* block, Utf8State& state) {
  const auto* vectors = reinterpret_cast<const __m256i*>(block);
  const __m256i a = _mm256_loadu_si256(vectors);
  const __m256i b = _mm256_loadu_si256(vectors + 1);
  state.errors |= refusedAscii(a) | refusedAscii(b);
  if (_mm256_movemask_epi8(a | b) == 0) {
    state.errors |= state.incomplete;
  } else {
    const __m256i lastStarts =
        _mm256_setr_epi8(-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1,
                         -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, static_cast<char>(0xEF),
                         static_cast<char>(0xDF), static_cast<char>(0xBF));
    state.errors |= sequenceErrors(a, state.before) | sequenceErrors(b, a);
    state.incomplete = _mm256_subs_epu8(b, lastStarts);
  }
  state.before = b;
}

KERNEL bool avx2IsUtf8(const char* text) {
  const std::size_t length = std::strlen(text);
  const __m256i zero = _mm256_setzero_si256();
  Utf8State state = {zero, zero, zero};
  std::size_t at = 0;
  for (; at + 64 <= length; at += 64) check64(text + at, state);
  char last[64];
  std::memset(last, ' ', sizeof last);
  std::memcpy(last, text + at, length - at);
  check64(last, state);
  const __m256i errors = state.errors | state.incomplete;
  return _mm256_testz_si256(errors, errors) != 0;
}

void utf8(const char* name, const std::string& text, bool (*plainVersion)(const char*)) {
  const auto fast = [text] {
    bool isValid = IsUtf8(text.c_str());
    benchmark::DoNotOptimize(isValid);
    return isValid;
  };
  const auto plain = [=] {
    bool isValid = plainVersion(text.c_str());
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
  const std::string ascii = repeated("plain text, line after line\n", kMegabyte);
  const std::string mixed = repeated("text, é, ñ, 漢字, 😀; ", kMegabyte);
  utf8("IsUtf8/ascii", ascii, plainIsUtf8);
  utf8("IsUtf8/mixed", mixed, plainIsUtf8);
  if (processorHas(InstructionSet::kAvx2)) {
    utf8("IsUtf8 over look-ups/ascii", ascii, avx2IsUtf8);
    utf8("IsUtf8 over look-ups/mixed", mixed, avx2IsUtf8);
  }
  replacing();
  splitting();
  benchmark::RunSpecifiedBenchmarks();
}
