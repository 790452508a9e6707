#include "search/kernelParts.h"

namespace vorquell::search {

namespace {

constexpr std::uint64_t kAvx512Bytes = sizeof(__m512i);

VORQUELL_AVX512 VORQUELL_INLINE __m256i foldHalves(__m512i sums) {
  return _mm256_add_epi64(_mm512_castsi512_si256(sums), _mm512_extracti64x4_epi64(sums, 1));
}

using Avx512Sums = __m512i[kGroup];

VORQUELL_AVX512 VORQUELL_INLINE __m256i foldSums(const Avx512Sums& sums) {
  __m256i pairs[4];
#pragma GCC unroll 4
  for (std::size_t i = 0; i < 4; ++i) {
    pairs[i] = foldHalves(_mm512_add_epi64(sums[2 * i], _mm512_slli_epi64(sums[2 * i + 1], 32)));
  }
  return foldPairs(pairs);
}

VORQUELL_AVX512 VORQUELL_INLINE __m512i bitsOf(const char* feature, __m512i wanted) {
  return _mm512_popcnt_epi64(_mm512_loadu_si512(feature) ^ wanted);
}

/// A known length: one feature after the other, so that the processor fetches ahead what comes from
/// memory. The empty assembly keeps g++ from mixing them.
template <std::uint64_t kLength>
VORQUELL_AVX512 VORQUELL_INLINE void addInOrder(const char* target, const char* features,
                                                Avx512Sums& sums) {
#pragma GCC unroll 8
  for (std::uint64_t i = 0; i < kGroup; ++i) {
#pragma GCC unroll 4
    for (std::uint64_t at = 0; at < kLength; at += kAvx512Bytes) {
      sums[i] += bitsOf(features + i * kLength + at, _mm512_loadu_si512(target + at));
    }
    asm volatile("" : "+v"(sums[i]));
  }
}

/// Any length: the same bytes of all eight, so that the target is read once.
VORQUELL_AVX512 VORQUELL_INLINE void addTogether(const char* target, const char* features,
                                                 std::uint64_t length, Avx512Sums& sums) {
  for (std::uint64_t at = 0; at + kAvx512Bytes <= length; at += kAvx512Bytes) {
    const __m512i wanted = _mm512_loadu_si512(target + at);
#pragma GCC unroll 8
    for (std::uint64_t i = 0; i < kGroup; ++i) {
      sums[i] += bitsOf(features + i * length + at, wanted);
    }
  }
}

/// The bytes after the last whole register.
VORQUELL_AVX512 VORQUELL_INLINE void addRests(const char* target, const char* features,
                                              std::uint64_t length, Avx512Sums& sums) {
  const std::uint64_t whole = length - length % kAvx512Bytes;
  const __mmask64 rest = (std::uint64_t{1} << (length % kAvx512Bytes)) - 1;
  const __m512i wanted = _mm512_maskz_loadu_epi8(rest, target + whole);
#pragma GCC unroll 8
  for (std::uint64_t i = 0; i < kGroup; ++i) {
    const __m512i bytes = _mm512_maskz_loadu_epi8(rest, features + i * length + whole);
    sums[i] += _mm512_popcnt_epi64(bytes ^ wanted);
  }
}

/// For features of kLength bytes, or with kLength of 0 of any length; kHasRest: no multiple of 64.
template <std::uint64_t kLength, bool kHasRest>
VORQUELL_AVX512 std::uint64_t countAvx512(const char* target, const char* features,
                                          std::uint64_t featureCount, std::uint64_t length,
                                          std::uint32_t limit, std::uint32_t* counts) {
  const __m256i limits = _mm256_set1_epi32(static_cast<int>(limit));
  for (std::uint64_t counted = 0; counted < featureCount; features += kGroup * length) {
    Avx512Sums sums = {};
    if constexpr (kHasRest) addRests(target, features, length, sums);
    if constexpr (kLength != 0) {
      addInOrder<kLength>(target, features, sums);
    } else {
      addTogether(target, features, length, sums);
    }
    const __m256i group = foldSums(sums);
    storeAvx2(counts + counted, group);
    counted += kGroup;
    if (_mm256_cmplt_epu32_mask(group, limits) != 0) return counted;
  }
  return featureCount;
}

/// Two features of 32 bytes in a register: after the first fold one half has the even features'
/// sums, and the other one the odd features'.
VORQUELL_AVX512 std::uint64_t count32Avx512(const char* target, const char* features,
                                            std::uint64_t featureCount, std::uint32_t limit,
                                            std::uint32_t* counts) {
  const __m512i wanted = _mm512_broadcast_i64x4(detail::loadVector(target));
  const __m256i limits = _mm256_set1_epi32(static_cast<int>(limit));
  const __m512i order = _mm512_setr_epi32(0, 8, 2, 10, 1, 9, 3, 11, 0, 0, 0, 0, 0, 0, 0, 0);
  for (std::uint64_t counted = 0; counted < featureCount;) {
    __m512i sums[4];
#pragma GCC unroll 4
    for (std::uint64_t i = 0; i < 4; ++i) {
      sums[i] = bitsOf(features + i * kAvx512Bytes, wanted);
    }
    const __m512i a = _mm512_add_epi64(sums[0], _mm512_slli_epi64(sums[2], 32));
    const __m512i b = _mm512_add_epi64(sums[1], _mm512_slli_epi64(sums[3], 32));
    const __m512i both = _mm512_add_epi64(_mm512_unpacklo_epi64(a, b), _mm512_unpackhi_epi64(a, b));
    const __m512i folded = _mm512_add_epi64(both, _mm512_shuffle_i64x2(both, both, 0xB1));
    const __m256i group = _mm512_castsi512_si256(_mm512_permutexvar_epi32(order, folded));
    storeAvx2(counts + counted, group);
    counted += kGroup;
    features += kGroup * detail::kVector;
    if (_mm256_cmplt_epu32_mask(group, limits) != 0) return counted;
  }
  return featureCount;
}

}  // namespace

VORQUELL_AVX512 std::uint64_t countGroupsAvx512(const char* target, const char* features,
                                                std::uint64_t featureCount, std::uint64_t length,
                                                std::uint32_t limit, std::uint32_t* counts) {
  if (length == 32) return count32Avx512(target, features, featureCount, limit, counts);
  const auto kernel = length % kAvx512Bytes != 0 ? countAvx512<0, true>
                      : length == 64             ? countAvx512<64, false>
                      : length == 128            ? countAvx512<128, false>
                      : length == 256            ? countAvx512<256, false>
                                                 : countAvx512<0, false>;
  return kernel(target, features, featureCount, length, limit, counts);
}

}  // namespace vorquell::search
