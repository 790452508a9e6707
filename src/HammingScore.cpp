#include "HammingScore.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Brindle/processorHas.h"

#define AVX512_POPCOUNT "avx512f,avx512bw,avx512vl,avx512vpopcntdq,popcnt"
#ifdef __clang__
#define AVX512_TARGET AVX512_POPCOUNT
#else
#define AVX512_TARGET AVX512_POPCOUNT ",prefer-vector-width=512"
#endif

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
  Word wordA;
  Word wordB;
  std::memcpy(&wordA, a, sizeof(Word));
  std::memcpy(&wordB, b, sizeof(Word));
  return static_cast<Word>(wordA ^ wordB);
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

__attribute__((target(AVX512_TARGET))) std::uint64_t countBitsAvx512(const char* a, const char* b,
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

using BitCounter = std::uint64_t(const char* a, const char* b, std::size_t length);

BitCounter* fastestCounter() {
  if (PROCESSOR_HAS(AVX512_VPOPCNTDQ, "avx512vpopcntdq") && PROCESSOR_HAS(AVX512VL, "avx512vl") &&
      PROCESSOR_HAS(AVX512BW, "avx512bw")) {
    return countBitsAvx512;
  }
  if (PROCESSOR_HAS(POPCNT, "popcnt")) return countBitsPopcnt;
  return countBitsPlain;
}

std::uint64_t chooseAndCount(const char* a, const char* b, std::size_t length);

/// Starts as the function that replaces it by the fastest one; any thread may do that first.
std::atomic<BitCounter*> bitCounter{chooseAndCount};

std::uint64_t chooseAndCount(const char* a, const char* b, std::size_t length) {
  BitCounter* const fastest = fastestCounter();
  bitCounter.store(fastest, std::memory_order_relaxed);
  return fastest(a, b, length);
}

}  // namespace

double calculateScores(const char* a, const char* b, int length) {
  BitCounter* const count = bitCounter.load(std::memory_order_relaxed);
  const std::uint64_t bits = length > 0 ? count(a, b, static_cast<std::size_t>(length)) : 0;
  // Both numbers wrap around in 32 bits.
  const auto total = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
  const auto divisor = static_cast<std::int32_t>(static_cast<std::uint32_t>(length) * 8U);
  return static_cast<double>(total) / static_cast<double>(divisor);
}
