#include "HammingScore.h"

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "detail/differingBits.h"
#include "detail/differingBitsAvx2.h"
#include "detail/dispatch.h"
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

/// share() of the sum of four counts. The low 32 bits of the sum become the number without a detour
/// through the other registers.
VORQUELL_AVX2 VORQUELL_INLINE double shareOfSum(__m256i counts, int length) {
  __m128i sum = _mm256_castsi256_si128(counts) + _mm256_extracti128_si256(counts, 1);
  sum += _mm_unpackhi_epi64(sum, sum);
  return _mm_cvtsd_f64(_mm_cvtepi32_pd(sum)) / static_cast<double>(wrappingMultiply(length, 8));
}

VORQUELL_AVX2 double scoreAvx2(const char* a, const char* b, int length) {
  if (length < static_cast<int>(2 * kVector)) return scoreWords<true>(a, b, length);
  return shareOfSum(countDifferingVectors(a, b, static_cast<std::size_t>(length)), length);
}

/// Counts in 1 to 32 bytes, read through a mask.
VORQUELL_AVX512 inline __m256i countUpTo32(const char* a, const char* b, int length) {
  const __mmask32 mask = ~std::uint32_t{0} >> (32 - length);
  return _mm256_popcnt_epi64(_mm256_maskz_loadu_epi8(mask, a) ^ _mm256_maskz_loadu_epi8(mask, b));
}

VORQUELL_AVX512 inline __m256i countFrom33To64(const char* a, const char* b, int length) {
  return _mm256_popcnt_epi64(differingVector(a, b)) + countUpTo32(a + 32, b + 32, length - 32);
}

/// For more than 64 bytes.
VORQUELL_AVX512 __attribute__((noinline)) double scoreLongAvx512(const char* a, const char* b,
                                                                 int length) {
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
VORQUELL_AVX512 double scoreAvx512(const char* a, const char* b, int length) {
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
