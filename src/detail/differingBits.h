// How many bits of two runs of bytes differ, by the best instructions that the processor has.
// Private: not installed. Used by the scoring and by the search.
#pragma once

#include <cstddef>
#include <cstdint>

#include "detail/dispatch.h"
#include "detail/load.h"

namespace vorquell::detail {

template <class Word>
[[gnu::always_inline]] inline std::uint64_t differenceOf(const char* a, const char* b) {
  return static_cast<Word>(load<Word>(a) ^ load<Word>(b));
}

/// The differing bits of fewer than 8 bytes, packed into one word.
[[gnu::always_inline]] inline std::uint64_t shortDifference(const char* a, const char* b,
                                                            std::size_t length) {
  std::uint64_t bits = 0;
  if (length & 4) bits = differenceOf<std::uint32_t>(a, b);
  if (length & 2) {
    const std::size_t at = length & 4;
    bits = bits << 16 | differenceOf<std::uint16_t>(a + at, b + at);
  }
  if (length & 1) bits = bits << 8 | differenceOf<std::uint8_t>(a + length - 1, b + length - 1);
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
        __builtin_popcountll(differenceOf<std::uint64_t>(a + i * kWord, b + i * kWord)));
  }
  if (const std::size_t rest = length % kWord; rest != 0) {
    // The last whole word again, without the bytes of it that are counted already.
    const std::uint64_t last = differenceOf<std::uint64_t>(a + length - kWord, b + length - kWord);
    count += static_cast<std::uint64_t>(__builtin_popcountll(last >> (8 * (kWord - rest))));
  }
  return count;
}

__attribute__((target(VORQUELL_AVX512))) inline std::uint64_t countBitsAvx512(const char* a,
                                                                              const char* b,
                                                                              std::size_t length) {
  return countBits(a, b, length);
}

__attribute__((target("popcnt"))) inline std::uint64_t countBitsPopcnt(const char* a, const char* b,
                                                                       std::size_t length) {
  return countBits(a, b, length);
}

inline std::uint64_t countBitsPlain(const char* a, const char* b, std::size_t length) {
  return countBits(a, b, length);
}

inline constexpr Variant<std::uint64_t(const char*, const char*, std::size_t)> kBitCounters[] = {
    {InstructionSet::kAvx512, countBitsAvx512},
    {InstructionSet::kPopcnt, countBitsPopcnt},
    {InstructionSet::kBaseline, countBitsPlain},
};

[[gnu::always_inline]] inline std::uint64_t differingBits(const char* a, const char* b,
                                                          std::size_t length) {
  return Dispatch<kBitCounters>::call(a, b, length);
}

}  // namespace vorquell::detail
