#include <algorithm>

#include "detail/differingBits.h"
#include "search/kernelParts.h"

namespace vorquell::search {

namespace {

/// The number of bits set in each byte, looked up by halves of a byte.
AVX2 INLINE __m256i bitsOfBytes(__m256i bytes) {
  const __m256i table = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4,  //
                                         0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
  const __m256i low = _mm256_set1_epi8(15);
  return _mm256_add_epi8(_mm256_shuffle_epi8(table, bytes & low),
                         _mm256_shuffle_epi8(table, _mm256_srli_epi16(bytes, 4) & low));
}

/// Sums of bytes do not overflow within so many registers.
constexpr std::uint64_t kAvx2Stretch = 255 / 8 * kAvx2Bytes;

/// The sums of the bytes after the whole registers, eight features' in one.
AVX2 INLINE __m256i countRests(const char* target, const char* features, std::uint64_t length,
                               std::uint64_t whole) {
  std::uint32_t rests[kGroup];
  for (std::uint64_t i = 0; i < kGroup; ++i) {
    rests[i] = static_cast<std::uint32_t>(
        detail::countBits<true>(target + whole, features + i * length + whole, length - whole));
  }
  return loadAvx2(rests);
}

template <std::uint64_t kLength>
AVX2 std::uint64_t countAvx2(const char* target, const char* features, std::uint64_t featureCount,
                             std::uint64_t anyLength, std::uint32_t limit, std::uint32_t* counts) {
  const std::uint64_t length = kLength != 0 ? kLength : anyLength;
  const std::uint64_t whole = length - length % kAvx2Bytes;
  const __m256i limits = _mm256_set1_epi32(static_cast<int>(limit));
  for (std::uint64_t counted = 0; counted < featureCount; features += kGroup * length) {
    __m256i pairs[4] = {};
    for (std::uint64_t at = 0; at < whole;) {
      __m256i sums[kGroup] = {};
      for (const std::uint64_t end = std::min(whole, at + kAvx2Stretch); at < end;
           at += kAvx2Bytes) {
        const __m256i wanted = loadAvx2(target + at);
#pragma GCC unroll 8
        for (std::uint64_t i = 0; i < kGroup; ++i) {
          const __m256i bits = loadAvx2(features + i * length + at) ^ wanted;
          sums[i] = _mm256_add_epi8(sums[i], bitsOfBytes(bits));
        }
      }
#pragma GCC unroll 4
      for (std::size_t i = 0; i < 4; ++i) {
        const __m256i even = _mm256_sad_epu8(sums[2 * i], _mm256_setzero_si256());
        const __m256i odd = _mm256_sad_epu8(sums[2 * i + 1], _mm256_setzero_si256());
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

AVX2 std::uint64_t countGroupsAvx2(const char* target, const char* features,
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

}  // namespace vorquell::search
