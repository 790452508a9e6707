#include <algorithm>

#include "detail/differingBits.h"
#include "search/kernelParts.h"

using namespace vorquell::detail;

namespace vorquell::search {

namespace {

/// Sums of bytes do not overflow within so many registers.
constexpr std::uint64_t kStretch = 255 / 8 * kVector;

/// The sums of the bytes after the whole registers, eight features' in one.
VORQUELL_AVX2 VORQUELL_INLINE __m256i countRests(const char* target, const char* features,
                                                 std::uint64_t length, std::uint64_t whole) {
  std::uint32_t rests[kGroup];
  for (std::uint64_t i = 0; i < kGroup; ++i) {
    rests[i] = static_cast<std::uint32_t>(
        countBits<true>(target + whole, features + i * length + whole, length - whole));
  }
  return loadVector(rests);
}

template <std::uint64_t kLength>
VORQUELL_AVX2 std::uint64_t countAvx2(const char* target, const char* features,
                                      std::uint64_t featureCount, std::uint64_t anyLength,
                                      std::uint32_t limit, std::uint32_t* counts) {
  const std::uint64_t length = kLength != 0 ? kLength : anyLength;
  const std::uint64_t whole = length - length % kVector;
  const __m256i limits = _mm256_set1_epi32(static_cast<int>(limit));
  for (std::uint64_t counted = 0; counted < featureCount; features += kGroup * length) {
    __m256i pairs[4] = {};
    for (std::uint64_t at = 0; at < whole;) {
      __m256i sums[kGroup] = {};
      for (const std::uint64_t end = std::min(whole, at + kStretch); at < end; at += kVector) {
        const __m256i wanted = loadVector(target + at);
#pragma GCC unroll 8
        for (std::uint64_t i = 0; i < kGroup; ++i) {
          const __m256i bits = loadVector(features + i * length + at) ^ wanted;
          sums[i] = _mm256_add_epi8(sums[i], bitsOfBytes(bits));
        }
      }
#pragma GCC unroll 4
      for (std::size_t i = 0; i < 4; ++i) {
        const __m256i even = sumsOfBytes(sums[2 * i]);
        const __m256i odd = sumsOfBytes(sums[2 * i + 1]);
        pairs[i] = _mm256_add_epi64(pairs[i], _mm256_add_epi64(even, _mm256_slli_epi64(odd, 32)));
      }
    }
    __m256i group = foldPairs(pairs);
    if (whole < length) {
      group = _mm256_add_epi32(group, countRests(target, features, length, whole));
    }
    storeAvx2(counts + counted, group);
    counted += kGroup;
    const __m256i tooMany = _mm256_cmpeq_epi32(_mm256_max_epu32(group, limits), group);
    if (_mm256_movemask_epi8(tooMany) != -1) return counted;
  }
  return featureCount;
}

}  // namespace

VORQUELL_AVX2 std::uint64_t countGroupsAvx2(const char* target, const char* features,
                                            std::uint64_t featureCount, std::uint64_t length,
                                            std::uint32_t limit, std::uint32_t* counts) {
  switch (length) {
    case 32:
      return countAvx2<32>(target, features, featureCount, length, limit, counts);
    case 64:
      return countAvx2<64>(target, features, featureCount, length, limit, counts);
    default:
      return countAvx2<0>(target, features, featureCount, length, limit, counts);
  }
}

VORQUELL_AVX2 std::uint64_t differingBitsAvx2(const char* a, const char* b, std::uint64_t length) {
  if (length < 2 * kVector) return countBits<true>(a, b, length);
  const __m256i counts = countDifferingVectors(a, b, length);
  const __m128i halves =
      _mm_add_epi64(_mm256_castsi256_si128(counts), _mm256_extracti128_si256(counts, 1));
  return static_cast<std::uint64_t>(_mm_cvtsi128_si64(halves) +
                                    _mm_cvtsi128_si64(_mm_unpackhi_epi64(halves, halves)));
}

}  // namespace vorquell::search
