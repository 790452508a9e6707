#include "HammingScore.h"

#include <cstddef>
#include <cstdint>

#include "detail/dispatch.h"
#include "detail/load.h"
#include "detail/wrap.h"

using namespace vorquell::detail;

// clang-format off
const int numOnesInByte[256] = {
    0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4, 1, 2, 2, 3, 2, 3, 3, 4, 2, 3, 3, 4, 3, 4, 4, 5,
    1, 2, 2, 3, 2, 3, 3, 4, 2, 3, 3, 4, 3, 4, 4, 5, 2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6,
    1, 2, 2, 3, 2, 3, 3, 4, 2, 3, 3, 4, 3, 4, 4, 5, 2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6,
    2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6, 3, 4, 4, 5, 4, 5, 5, 6, 4, 5, 5, 6, 5, 6, 6, 7,
    1, 2, 2, 3, 2, 3, 3, 4, 2, 3, 3, 4, 3, 4, 4, 5, 2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6,
    2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6, 3, 4, 4, 5, 4, 5, 5, 6, 4, 5, 5, 6, 5, 6, 6, 7,
    2, 3, 3, 4, 3, 4, 4, 5, 3, 4, 4, 5, 4, 5, 5, 6, 3, 4, 4, 5, 4, 5, 5, 6, 4, 5, 5, 6, 5, 6, 6, 7,
    3, 4, 4, 5, 4, 5, 5, 6, 4, 5, 5, 6, 5, 6, 6, 7, 4, 5, 5, 6, 5, 6, 6, 7, 5, 6, 6, 7, 6, 7, 7, 8,
};
// clang-format on

namespace {

template <class Word>
[[gnu::always_inline]] inline std::uint64_t differingBits(const char* a, const char* b) {
  return static_cast<Word>(load<Word>(a) ^ load<Word>(b));
}

/// The differing bits of fewer than 8 bytes, packed into one word.
[[gnu::always_inline]] inline std::uint64_t shortDifference(const char* a, const char* b,
                                                            std::size_t length) {
  std::uint64_t bits = 0;
  if (length & 4) bits = differingBits<std::uint32_t>(a, b);
  if (length & 2) {
    const std::size_t at = length & 4;
    bits = bits << 16 | differingBits<std::uint16_t>(a + at, b + at);
  }
  if (length & 1) bits = bits << 8 | differingBits<std::uint8_t>(a + length - 1, b + length - 1);
  return bits;
}

/// Counts the bits in which `a` and `b` differ. Inlined into one function for each instruction set,
/// where the compiler turns the loop into the best that set has.
[[gnu::always_inline]] inline std::uint64_t countBits(const char* a, const char* b,
                                                      std::size_t length) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  if (length < kWord) {
    return static_cast<std::uint64_t>(__builtin_popcountll(shortDifference(a, b, length)));
  }
  std::uint64_t count = 0;
  const std::size_t words = length / kWord;
  for (std::size_t i = 0; i < words; ++i) {
    count += static_cast<std::uint64_t>(
        __builtin_popcountll(differingBits<std::uint64_t>(a + i * kWord, b + i * kWord)));
  }
  if (const std::size_t rest = length % kWord; rest != 0) {
    // The last whole word again, without the bytes of it that are counted already.
    const std::uint64_t last = differingBits<std::uint64_t>(a + length - kWord, b + length - kWord);
    count += static_cast<std::uint64_t>(__builtin_popcountll(last >> (8 * (kWord - rest))));
  }
  return count;
}

__attribute__((target(VORQUELL_AVX512))) std::uint64_t countBitsAvx512(const char* a, const char* b,
                                                                       std::size_t length) {
  return countBits(a, b, length);
}

__attribute__((target("popcnt"))) std::uint64_t countBitsPopcnt(const char* a, const char* b,
                                                                std::size_t length) {
  return countBits(a, b, length);
}

std::uint64_t countBitsPlain(const char* a, const char* b, std::size_t length) {
  return countBits(a, b, length);
}

constexpr Variant<std::uint64_t(const char*, const char*, std::size_t)> kBitCounters[] = {
    {InstructionSet::kAvx512, countBitsAvx512},
    {InstructionSet::kPopcnt, countBitsPopcnt},
    {InstructionSet::kBaseline, countBitsPlain},
};

}  // namespace

double calculateScores(const char* a, const char* b, int length) {
  const std::uint64_t bits =
      length > 0 ? Dispatch<kBitCounters>::call(a, b, static_cast<std::size_t>(length)) : 0;
  // Both numbers wrap around in 32 bits.
  const std::int32_t total = wrapped(bits);
  const std::int32_t divisor = wrappingMultiply(length, 8);
  return static_cast<double>(total) / static_cast<double>(divisor);
}
