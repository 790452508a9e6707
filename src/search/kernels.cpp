#include "search/kernels.h"

#ifndef __clang__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"  // in g++'s own header
#endif
#include <immintrin.h>
#ifndef __clang__
#pragma GCC diagnostic pop
#endif

#include <algorithm>

#include "detail/differingBits.h"

using namespace vorquell::detail;

namespace vorquell::search {

namespace {

using Kernel = std::uint64_t(const char*, const char*, std::uint64_t, std::uint64_t, std::uint32_t,
                             std::uint32_t*);

#define AVX512 __attribute__((target(VORQUELL_AVX512)))
#define AVX2 __attribute__((target(VORQUELL_AVX2)))
#define INLINE inline __attribute__((always_inline))

constexpr std::uint64_t kAvx512Bytes = sizeof(__m512i);
constexpr std::uint64_t kAvx2Bytes = sizeof(__m256i);

AVX2 INLINE __m256i loadAvx2(const void* bytes) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(bytes));
}

AVX2 INLINE void storeAvx2(void* bytes, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(bytes), value);
}

// A kernel holds eight features against the target at a time. Each has a register of partial sums,
// 64 bits each; these are brought together until one register holds the eight sums, 32 bits each:
//
//   pairs     a feature's sums in the low halves, the next one's in the high halves   8 -> 4
//   unpack    the sums of two pairs side by side, added                               4 -> 2
//   fold      the upper half of the register onto the lower one                       2 -> 1

AVX2 INLINE __m256i foldPairs(const __m256i (&pairs)[4]) {
  const __m256i a = _mm256_add_epi64(_mm256_unpacklo_epi64(pairs[0], pairs[1]),
                                     _mm256_unpackhi_epi64(pairs[0], pairs[1]));
  const __m256i b = _mm256_add_epi64(_mm256_unpacklo_epi64(pairs[2], pairs[3]),
                                     _mm256_unpackhi_epi64(pairs[2], pairs[3]));
  return _mm256_add_epi64(_mm256_permute2x128_si256(a, b, 0x20),
                          _mm256_permute2x128_si256(a, b, 0x31));
}

AVX512 INLINE __m256i foldHalves(__m512i sums) {
  return _mm256_add_epi64(_mm512_castsi512_si256(sums), _mm512_extracti64x4_epi64(sums, 1));
}

using Avx512Sums = __m512i[kGroup];

AVX512 INLINE __m256i foldSums(const Avx512Sums& sums) {
  __m256i pairs[4];
#pragma GCC unroll 4
  for (int i = 0; i < 4; ++i) {
    pairs[i] = foldHalves(_mm512_add_epi64(sums[2 * i], _mm512_slli_epi64(sums[2 * i + 1], 32)));
  }
  return foldPairs(pairs);
}

AVX512 INLINE __m512i bitsOf(const char* feature, __m512i wanted) {
  return _mm512_popcnt_epi64(_mm512_loadu_si512(feature) ^ wanted);
}

/// A known length: one feature after the other, as they lie in memory, so that the processor
/// fetches ahead. The empty assembly keeps g++ from mixing them.
template <std::uint64_t kLength>
AVX512 INLINE void addInOrder(const char* target, const char* features, Avx512Sums& sums) {
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
AVX512 INLINE void addTogether(const char* target, const char* features, std::uint64_t length,
                               Avx512Sums& sums) {
  for (std::uint64_t at = 0; at + kAvx512Bytes <= length; at += kAvx512Bytes) {
    const __m512i wanted = _mm512_loadu_si512(target + at);
#pragma GCC unroll 8
    for (std::uint64_t i = 0; i < kGroup; ++i) {
      sums[i] += bitsOf(features + i * length + at, wanted);
    }
  }
}

/// The bytes after the last whole register.
AVX512 INLINE void addRests(const char* target, const char* features, std::uint64_t length,
                            Avx512Sums& sums) {
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
AVX512 std::uint64_t countAvx512(const char* target, const char* features,
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
AVX512 std::uint64_t count32Avx512(const char* target, const char* features,
                                   std::uint64_t featureCount, std::uint32_t limit,
                                   std::uint32_t* counts) {
  const __m512i wanted = _mm512_broadcast_i64x4(loadAvx2(target));
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
    features += kGroup * kAvx2Bytes;
    if (_mm256_cmplt_epu32_mask(group, limits) != 0) return counted;
  }
  return featureCount;
}

AVX512 std::uint64_t countByLengthAvx512(const char* target, const char* features,
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
        countBits(target + whole, features + i * length + whole, length - whole));
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
      for (int i = 0; i < 4; ++i) {
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

/// Each feature alone, as the compiler counts bits with what the set has.
INLINE std::uint64_t countOneByOne(const char* target, const char* features,
                                   std::uint64_t featureCount, std::uint64_t length,
                                   std::uint32_t limit, std::uint32_t* counts) {
  std::uint64_t counted = 0;
  while (counted < featureCount) {
    std::uint32_t lowest = limit;
    for (const std::uint64_t end = counted + kGroup; counted < end; ++counted) {
      counts[counted] =
          static_cast<std::uint32_t>(countBits(target, features + counted * length, length));
      lowest = std::min(lowest, counts[counted]);
    }
    if (lowest < limit) break;
  }
  return counted;
}

AVX2 std::uint64_t countByLengthAvx2(const char* target, const char* features,
                                     std::uint64_t featureCount, std::uint64_t length,
                                     std::uint32_t limit, std::uint32_t* counts) {
  if (length < kAvx2Bytes) {
    return countOneByOne(target, features, featureCount, length, limit, counts);
  }
  switch (length) {
    case 32:
      return countAvx2<32>(target, features, featureCount, length, limit, counts);
    case 64:
      return countAvx2<64>(target, features, featureCount, length, limit, counts);
    default:
      return countAvx2<0>(target, features, featureCount, length, limit, counts);
  }
}

__attribute__((target("popcnt"))) std::uint64_t countPopcnt(
    const char* target, const char* features, std::uint64_t featureCount, std::uint64_t length,
    std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne(target, features, featureCount, length, limit, counts);
}

std::uint64_t countPlain(const char* target, const char* features, std::uint64_t featureCount,
                         std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne(target, features, featureCount, length, limit, counts);
}

constexpr Variant<Kernel> kKernels[] = {
    {InstructionSet::kAvx512, countByLengthAvx512},
    {InstructionSet::kAvx2, countByLengthAvx2},
    {InstructionSet::kPopcnt, countPopcnt},
    {InstructionSet::kBaseline, countPlain},
};

}  // namespace

std::uint64_t countGroups(const char* target, const char* features, std::uint64_t featureCount,
                          std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return Dispatch<kKernels>::call(target, features, featureCount, length, limit, counts);
}

}  // namespace vorquell::search
