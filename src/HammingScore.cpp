#include "HammingScore.h"

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "detail/differingBits.h"
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

/// Both numbers wrap around in 32 bits.
[[gnu::always_inline]] inline double share(std::uint64_t bits, int length) {
  return static_cast<double>(wrapped(bits)) / static_cast<double>(wrappingMultiply(length, 8));
}

template <bool kWordByWord>
[[gnu::always_inline]] inline double scoreWords(const char* a, const char* b, int length) {
  return share(length > 0 ? countBits<kWordByWord>(a, b, static_cast<std::size_t>(length)) : 0,
               length);
}

double scorePlain(const char* a, const char* b, int length) {
  return scoreWords<false>(a, b, length);
}

__attribute__((target("popcnt"))) double scorePopcnt(const char* a, const char* b, int length) {
  return scoreWords<true>(a, b, length);
}

// The kernels of whole registers. Each reads the bytes of the two features and no others.

#define AVX2_INLINE __attribute__((target(VORQUELL_AVX2), always_inline)) inline

constexpr std::size_t kVector = sizeof(__m256i);

AVX2_INLINE __m256i loadVector(const void* bytes) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(bytes));
}

AVX2_INLINE __m256i differingBits(const char* a, const char* b) {
  return loadVector(a) ^ loadVector(b);
}

/// share() of the sum of four counts. The low 32 bits of the sum become the number without a detour
/// through the other registers.
AVX2_INLINE double shareOfSum(__m256i counts, int length) {
  __m128i sum = _mm256_castsi256_si128(counts) + _mm256_extracti128_si256(counts, 1);
  sum += _mm_unpackhi_epi64(sum, sum);
  return _mm_cvtsd_f64(_mm_cvtepi32_pd(sum)) / static_cast<double>(wrappingMultiply(length, 8));
}

/// The number of set bits of each byte: two look-ups, one for each half of it (Muła, Kurz, Lemire:
/// Faster Population Counts Using AVX2 Instructions, 2018). 1.2 times as fast as one instruction a
/// word at 64 bytes, twice at 512, 3 times at 4 KiB.
AVX2_INLINE __m256i bitsOfBytes(__m256i bytes) {
  const __m256i bitsOfHalf =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4));
  const __m256i half = _mm256_set1_epi8(0x0F);
  return _mm256_add_epi8(_mm256_shuffle_epi8(bitsOfHalf, bytes & half),
                         _mm256_shuffle_epi8(bitsOfHalf, _mm256_srli_epi16(bytes, 4) & half));
}

/// Four sums of eight bytes each.
AVX2_INLINE __m256i sumsOfBytes(__m256i bytes) {
  return _mm256_sad_epu8(bytes, _mm256_setzero_si256());
}

/// Counts in `kVectors` vectors, at most 31, so that no byte overflows.
template <std::size_t kVectors>
AVX2_INLINE __m256i countVectors(const char* a, const char* b) {
  __m256i bits = bitsOfBytes(differingBits(a, b));
  for (std::size_t at = kVector; at < kVectors * kVector; at += kVector) {
    bits = _mm256_add_epi8(bits, bitsOfBytes(differingBits(a + at, b + at)));
  }
  return sumsOfBytes(bits);
}

/// Adds 2^`kLevel` vectors to the counters, of which the one at i holds a binary digit of weight
/// 2^i for each bit of a vector. Returns the carry, of weight 2^`kLevel`.
template <int kLevel>
AVX2_INLINE __m256i addTree(const char* a, const char* b, __m256i* counters) {
  if constexpr (kLevel == 0) {
    return differingBits(a, b);
  } else {
    constexpr std::size_t kHalf = kVector << (kLevel - 1);
    const __m256i x = addTree<kLevel - 1>(a, b, counters);
    const __m256i y = addTree<kLevel - 1>(a + kHalf, b + kHalf, counters);
    __m256i& digit = counters[kLevel - 1];
    const __m256i carry = (x & y) | ((x ^ y) & digit);
    digit ^= x ^ y;
    return carry;
  }
}

constexpr int kLevels = 4;
constexpr std::size_t kTree = kVector << kLevels;

/// Harley and Seal's count (in the same paper): adds 16 vectors digit by digit, which takes less
/// than to look them up, and looks up the last carry only. 1.2 times as fast as the look-ups alone
/// at 4 and 16 KiB.
AVX2_INLINE __m256i countTrees(const char* a, const char* b, std::size_t trees) {
  __m256i counters[kLevels] = {};
  __m256i count = _mm256_setzero_si256();
  for (; trees > 0; --trees, a += kTree, b += kTree) {
    count += sumsOfBytes(bitsOfBytes(addTree<kLevels>(a, b, counters)));
  }
  for (int level = kLevels - 1; level >= 0; --level) {
    count += count + sumsOfBytes(bitsOfBytes(counters[level]));
  }
  return count;
}

/// Zeros and then ones: a vector loaded at `n` selects the last `n` bytes of another one.
constexpr auto kLastBytes = [] {
  std::array<std::uint8_t, 2 * kVector> mask{};
  std::fill(mask.begin() + kVector, mask.end(), std::uint8_t{0xFF});
  return mask;
}();

__attribute__((target(VORQUELL_AVX2))) double scoreAvx2(const char* a, const char* b, int length) {
  if (length < static_cast<int>(2 * kVector)) return scoreWords<true>(a, b, length);
  auto left = static_cast<std::size_t>(length);
  const auto advance = [&](std::size_t size) {
    a += size;
    b += size;
    left -= size;
  };
  __m256i count = _mm256_setzero_si256();
  if (left >= 2 * kTree) {
    count = countTrees(a, b, left / kTree);
    advance(left / kTree * kTree);
  }
  for (; left >= 4 * kVector; advance(4 * kVector)) count += countVectors<4>(a, b);
  for (; left >= kVector; advance(kVector)) count += countVectors<1>(a, b);
  if (left > 0) {
    const std::size_t counted = kVector - left;
    const __m256i last = differingBits(a - counted, b - counted);
    count += sumsOfBytes(bitsOfBytes(last & loadVector(kLastBytes.data() + left)));
  }
  return shareOfSum(count, length);
}

#define AVX512 __attribute__((target(VORQUELL_AVX512)))

/// Counts in 1 to 32 bytes, read through a mask.
AVX512 inline __m256i countUpTo32(const char* a, const char* b, int length) {
  const __mmask32 mask = ~std::uint32_t{0} >> (32 - length);
  return _mm256_popcnt_epi64(_mm256_maskz_loadu_epi8(mask, a) ^ _mm256_maskz_loadu_epi8(mask, b));
}

AVX512 inline __m256i countFrom33To64(const char* a, const char* b, int length) {
  return _mm256_popcnt_epi64(differingBits(a, b)) + countUpTo32(a + 32, b + 32, length - 32);
}

/// For more than 64 bytes.
AVX512 __attribute__((noinline)) double scoreLongAvx512(const char* a, const char* b, int length) {
  __m512i wide = _mm512_setzero_si512();
  int left = length;
  for (; left > 64; left -= 64, a += 64, b += 64) {
    wide += _mm512_popcnt_epi64(_mm512_loadu_si512(a) ^ _mm512_loadu_si512(b));
  }
  // With masks of all lanes, as g++ 12 warns of its own header without.
  __m256i count = _mm512_maskz_extracti64x4_epi64(0xFF, wide, 0) +
                  _mm512_maskz_extracti64x4_epi64(0xFF, wide, 1);
  count += left > 32 ? countFrom33To64(a, b, left) : countUpTo32(a, b, left);
  return shareOfSum(count, length);
}

/// One instruction counts the bits of a register: twice as fast as scoreAvx2() at 256 bytes.
/// Through the masks features of 1 to 64 bytes take about the same time, whole words or not; for
/// these the narrower registers are the faster ones.
AVX512 double scoreAvx512(const char* a, const char* b, int length) {
  if (length <= 0) return share(0, length);
  if (length > 64) return scoreLongAvx512(a, b, length);
  if (length > 32) return shareOfSum(countFrom33To64(a, b, length), length);
  return shareOfSum(countUpTo32(a, b, length), length);
}

constexpr Variant<double(const char*, const char*, int)> kScores[] = {
    {InstructionSet::kAvx512, scoreAvx512},
    {InstructionSet::kAvx2, scoreAvx2},
    {InstructionSet::kPopcnt, scorePopcnt},
    {InstructionSet::kBaseline, scorePlain},
};

}  // namespace

double calculateScores(const char* a, const char* b, int length) {
  return Dispatch<kScores>::call(a, b, length);
}
