#include "Brindle/utility/mask.h"

#include <immintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Brindle/detail/byteBits.h"
#include "Brindle/utility/mask/packedRows.h"
#include "detail/dispatch.h"
#include "detail/load.h"
#include "detail/wrap.h"

using namespace brindle::detail;
using namespace vorquell::detail;

namespace {

constexpr std::size_t kBlock = 8;  // packed bytes

/// Rows of `width` pixels, and where their packed bytes go.
struct Rows {
  const unsigned char* pixels;
  unsigned char* packed;
  std::size_t rows, width;
};

/// Packs 64 pixels into 8 bytes: 21 us for 1000 x 1001 pixels, of which firstByteHighest() alone
/// would take 72.
inline void packBlock(const unsigned char* pixels, unsigned char* packed) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i pixelBits = _mm_set1_epi64x(static_cast<long long>(kPixelBits));
  __m128i sums[4];
  for (int i = 0; i < 4; ++i) {
    const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels) + i);
    const __m128i bits = _mm_andnot_si128(_mm_cmpeq_epi8(sixteen, zero), pixelBits);
    sums[i] = _mm_sad_epu8(bits, zero);  // the sum of eight bytes that share no bit
  }
  const __m128i words =
      _mm_packs_epi32(_mm_packs_epi32(sums[0], sums[1]), _mm_packs_epi32(sums[2], sums[3]));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(packed), _mm_packus_epi16(words, words));
}

/// The same in 15 us: the comparisons move to bits at once. As the first pixel's bit would be the
/// lowest, each eight pixels are reversed before.
VORQUELL_AVX2 inline void packBlockAvx2(const unsigned char* pixels, unsigned char* packed) {
  const __m256i reverseEights = _mm256_setr_epi64x(0x0001020304050607, 0x08090A0B0C0D0E0F,
                                                   0x0001020304050607, 0x08090A0B0C0D0E0F);
  for (std::ptrdiff_t i = 0; i < 2; ++i) {
    const __m256i thirtyTwo = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels) + i);
    const __m256i isZero =
        _mm256_cmpeq_epi8(_mm256_shuffle_epi8(thirtyTwo, reverseEights), _mm256_setzero_si256());
    store(packed + 4 * i, ~_mm256_movemask_epi8(isZero));
  }
}

/// The last byte of a row whose width is no multiple of 8.
unsigned char packRest(const unsigned char* pixels, std::size_t width) {
  if (width >= 8) {
    const unsigned int eight = firstByteHighest(load<std::uint64_t>(pixels + width - 8));
    return static_cast<unsigned char>(eight << (8 - width % 8));
  }
  std::uint64_t rest = 0;
  std::memcpy(&rest, pixels, width);
  return firstByteHighest(rest);
}

/// Inlined into one function for each instruction set. The last byte of a row is filled only from
/// fewer than eight pixels. The second block overlaps the first, so that the last one ends with the
/// bytes before it.
template <void (*kPackBlock)(const unsigned char*, unsigned char*)>
[[gnu::always_inline]] inline void packRows(Rows rows) {
  const std::size_t bytes = (rows.width + 7) / 8 - 1;
  for (; rows.rows > 0; --rows.rows) {
    if (bytes < kBlock) {
      for (std::size_t i = 0; i < bytes; ++i) {
        rows.packed[i] = firstByteHighest(load<std::uint64_t>(rows.pixels + 8 * i));
      }
    } else {
      kPackBlock(rows.pixels, rows.packed);
      for (std::size_t i = (bytes - 1) % kBlock + 1; i < bytes; i += kBlock) {
        kPackBlock(rows.pixels + 8 * i, rows.packed + i);
      }
    }
    if (rows.width % 8 != 0) rows.packed[bytes] = packRest(rows.pixels, rows.width);
    rows.pixels += rows.width;
    rows.packed += bytes + 1;
  }
}

void packRowsPlain(Rows rows) {
  packRows<packBlock>(rows);
}

VORQUELL_AVX2 void packRowsAvx2(Rows rows) {
  packRows<packBlockAvx2>(rows);
}

constexpr Variant<void(Rows)> kPackers[] = {
    {InstructionSet::kAvx2, packRowsAvx2},
    {InstructionSet::kBaseline, packRowsPlain},
};

}  // namespace

void byte2BitData(unsigned char* bytes, int width, int height, unsigned char*& packed,
                  unsigned long& packedLength) {
  packedLength = 0;
  if (width == 0 || height == 0 || bytes == nullptr) {
    std::puts("Error: invalid input (inside byte2BitData(...))!");
    return;
  }
  std::free(packed);
  packed = nullptr;
  const std::int32_t rowBytes = wrappingAdd(width, 7) / 8;
  const std::int32_t length = wrappingMultiply(height, rowBytes);
  packedLength = static_cast<unsigned long>(length);
  if (length == 0) {
    std::puts(
        "Error: unknown error occurs where packed data length is invalid (inside "
        "byte2BitData(...))!");
    return;
  }
  if (length > 0) packed = static_cast<unsigned char*>(std::calloc(packedLength, 1));
  if (packed == nullptr) {
    std::puts("Error: cannot allocate output memory (inside byte2BitData(...))!");
    return;
  }
  const std::int32_t rows = std::min(height, length / rowBytes);  // none for a negative size
  if (rows < 1) return;
  Dispatch<kPackers>::call(
      Rows{bytes, packed, static_cast<std::size_t>(rows), static_cast<std::size_t>(width)});
}
