#include "Brindle/utility/mask.h"

#include <immintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Brindle/utility/mask/packedRows.h"
#include "detail/dispatch.h"
#include "detail/load.h"

using namespace brindle::detail;
using namespace vorquell::detail;

namespace {

constexpr std::size_t kBlock = 8;  // packed bytes

/// Rows to unpack, and where their pixels go.
struct Rows {
  const unsigned char* packed;
  std::size_t packedStride;
  unsigned char* out;
  std::size_t outStride;
  std::size_t rows, pixels;
};

/// The eight pixels of a packed byte. Of eight copies each keeps the bit of its own pixel: 0x41
/// gives 00 40 00 00 00 00 00 01. Adding 0x7F moves that to the highest bit, 00 80 00 00 00 00 00
/// 80, and 0x80 minus 0x01, with 0x80 again, is 0xFF.
std::uint64_t unpackByte(unsigned int packed) {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
  const std::uint64_t set = ((((packed & 0xFFU) * kEveryByte) & kPixelBits) + kLowBits) & ~kLowBits;
  return set | (set - (set >> 7));
}

/// Unpacks 8 bytes into 64 pixels: 21 us for 1000 x 1001 pixels, of which unpackByte() alone would
/// take 72.
inline void unpackBlock(const unsigned char* packed, unsigned char* out) {
  const __m128i pixelBits = _mm_set1_epi64x(static_cast<long long>(kPixelBits));
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(packed));
  const __m128i pairs = _mm_unpacklo_epi8(bytes, bytes);
  const __m128i fours[2] = {_mm_unpacklo_epi16(pairs, pairs), _mm_unpackhi_epi16(pairs, pairs)};
  auto* const target = reinterpret_cast<__m128i*>(out);
  for (std::ptrdiff_t i = 0; i < 2; ++i) {
    const __m128i first = _mm_unpacklo_epi32(fours[i], fours[i]);
    const __m128i second = _mm_unpackhi_epi32(fours[i], fours[i]);
    _mm_storeu_si128(target + 2 * i, _mm_cmpeq_epi8(_mm_and_si128(first, pixelBits), pixelBits));
    _mm_storeu_si128(target + 2 * i + 1,
                     _mm_cmpeq_epi8(_mm_and_si128(second, pixelBits), pixelBits));
  }
}

/// The same in 15 us: four bytes are broadcast and each shuffled to its eight pixels at once.
VORQUELL_AVX2 inline void unpackBlockAvx2(const unsigned char* packed, unsigned char* out) {
  const __m256i pixelBits = _mm256_set1_epi64x(static_cast<long long>(kPixelBits));
  const __m256i eightOfEach =
      _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
  auto* const target = reinterpret_cast<__m256i*>(out);
  for (std::ptrdiff_t i = 0; i < 2; ++i) {
    const __m256i four = _mm256_set1_epi32(load<int>(packed + 4 * i));
    const __m256i bits = _mm256_and_si256(_mm256_shuffle_epi8(four, eightOfEach), pixelBits);
    _mm256_storeu_si256(target + i, _mm256_cmpeq_epi8(bits, pixelBits));
  }
}

/// Unpacks a row of fewer than eight pixels. On its own, as its guarded stack would cost every row
/// of wider masks 4 %.
[[gnu::noinline]] void unpackShortRow(const unsigned char* packed, std::size_t pixels,
                                      unsigned char* out) {
  const std::uint64_t eight = unpackByte(packed[0]);
  std::memcpy(out, &eight, pixels);
}

/// Unpacks the pixels of a row's last byte when it holds fewer than eight, together with those that
/// come before them.
void unpackRest(const unsigned char* packed, std::size_t pixels, unsigned char* out) {
  const std::size_t wholeBytes = pixels / 8;
  const std::size_t rest = pixels % 8;
  if (rest == 0) return;
  if (wholeBytes == 0) return unpackShortRow(packed, rest, out);
  const auto last = static_cast<unsigned int>(packed[wholeBytes - 1] << 8 | packed[wholeBytes]);
  store(out + pixels - 8, unpackByte(last >> (8 - rest)));
}

/// Inlined into one function for each instruction set. The second block overlaps the first, so that
/// the last one ends with the row.
template <void (*kUnpackBlock)(const unsigned char*, unsigned char*)>
[[gnu::always_inline]] inline void unpackRows(Rows rows) {
  const std::size_t wholeBytes = rows.pixels / 8;
  for (; rows.rows > 0; --rows.rows) {
    if (wholeBytes < kBlock) {
      for (std::size_t i = 0; i < wholeBytes; ++i) {
        store(rows.out + 8 * i, unpackByte(rows.packed[i]));
      }
    } else {
      kUnpackBlock(rows.packed, rows.out);
      for (std::size_t i = (wholeBytes - 1) % kBlock + 1; i < wholeBytes; i += kBlock) {
        kUnpackBlock(rows.packed + i, rows.out + 8 * i);
      }
    }
    unpackRest(rows.packed, rows.pixels, rows.out);
    rows.packed += rows.packedStride;
    rows.out += rows.outStride;
  }
}

void unpackRowsPlain(Rows rows) {
  unpackRows<unpackBlock>(rows);
}

VORQUELL_AVX2 void unpackRowsAvx2(Rows rows) {
  unpackRows<unpackBlockAvx2>(rows);
}

constexpr Variant<void(Rows)> kUnpackers[] = {
    {InstructionSet::kAvx2, unpackRowsAvx2},
    {InstructionSet::kBaseline, unpackRowsPlain},
};

}  // namespace

void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst) {
  if (packed == nullptr || width < 1 || height < 1 || out == nullptr || outWidth < 1 ||
      outHeight < 1 || x0 < 0 || x0 >= outWidth || y0 < 0 || y0 >= outHeight ||
      height > outHeight - y0) {
    return;
  }
  const auto outStride = static_cast<std::size_t>(outWidth);
  if (clearFirst) std::memset(out, 0, outStride * static_cast<std::size_t>(outHeight));

  const auto rows = static_cast<std::size_t>(height);
  const auto visible = static_cast<std::size_t>(std::min(width, outWidth - x0));
  const std::size_t pixels = std::min(visible, static_cast<std::size_t>(countRowPixels(width)));
  unsigned char* const target = out + static_cast<std::size_t>(y0) * outStride + x0;
  const auto packedStride = static_cast<std::size_t>(countRowBytes(width));
  Dispatch<kUnpackers>::call(Rows{packed, packedStride, target, outStride, rows, pixels});
  if (pixels == visible) return;
  for (std::size_t r = 0; r < rows; ++r) {
    std::memset(target + r * outStride + pixels, 0, visible - pixels);
  }
}
