// What the kernels for different instruction sets share. Private: not installed.
#pragma once

#ifndef __clang__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"  // in g++'s own header
#endif
#include <immintrin.h>
#ifndef __clang__
#pragma GCC diagnostic pop
#endif

#include <cstddef>
#include <cstdint>

#include "detail/differingBitsAvx2.h"
#include "detail/dispatch.h"
#include "search/kernels.h"

namespace vorquell::search {

using PairCounter = std::uint64_t(const char*, const char*, std::uint64_t);
using GroupCounter = std::uint64_t(const char*, const char*, std::uint64_t, std::uint64_t,
                                   std::uint32_t, std::uint32_t*);

/// countGroups() for one instruction set each.
GroupCounter countGroupsAvx512;
GroupCounter countGroupsAvx2;

/// differingBits() with AVX2.
PairCounter differingBitsAvx2;

VORQUELL_AVX2 VORQUELL_INLINE void storeAvx2(void* bytes, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(bytes), value);
}

// A kernel holds eight features against the target at a time. Each has a register of partial sums,
// 64 bits each; these are brought together until one register holds the eight sums, 32 bits each:
//
//   pairs     a feature's sums in the low halves, the next one's in the high halves   8 -> 4
//   unpack    the sums of two pairs side by side, added                               4 -> 2
//   fold      the upper half of the register onto the lower one                       2 -> 1
static_assert(kGroup == 8);

VORQUELL_AVX2 VORQUELL_INLINE __m256i foldPairs(const __m256i (&pairs)[4]) {
  const __m256i a = _mm256_add_epi64(_mm256_unpacklo_epi64(pairs[0], pairs[1]),
                                     _mm256_unpackhi_epi64(pairs[0], pairs[1]));
  const __m256i b = _mm256_add_epi64(_mm256_unpacklo_epi64(pairs[2], pairs[3]),
                                     _mm256_unpackhi_epi64(pairs[2], pairs[3]));
  return _mm256_add_epi64(_mm256_permute2x128_si256(a, b, 0x20),
                          _mm256_permute2x128_si256(a, b, 0x31));
}

}  // namespace vorquell::search
