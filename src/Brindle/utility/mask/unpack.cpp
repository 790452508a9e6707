#include "Brindle/utility/mask.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Brindle/utility/mask/packedRows.h"
#include "detail/load.h"

using namespace brindle::detail;
using namespace vorquell::detail;

namespace {

constexpr std::size_t kBlock = 8;  // packed bytes

/// Unpacks 8 bytes into 64 pixels.
void unpackBlock(const unsigned char* packed, unsigned char* out) {
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

/// The eight pixels of a packed byte. Of eight copies each keeps the bit of its own pixel: 0x41
/// gives 00 40 00 00 00 00 00 01. Adding 0x7F moves that to the highest bit, 00 80 00 00 00 00 00
/// 80, and 0x80 minus 0x01, with 0x80 again, is 0xFF.
std::uint64_t unpackByte(unsigned char packed) {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
  const std::uint64_t set = (((packed * kEveryByte) & kPixelBits) + kLowBits) & ~kLowBits;
  return set | (set - (set >> 7));
}

void unpackRow(const unsigned char* packed, std::size_t pixels, unsigned char* out) {
  const std::size_t wholeBytes = pixels / 8;
  std::size_t i = 0;
  for (; i + kBlock <= wholeBytes; i += kBlock) unpackBlock(packed + i, out + 8 * i);
  for (; i < wholeBytes; ++i) store(out + 8 * i, unpackByte(packed[i]));
  if (pixels % 8 != 0) {
    const std::uint64_t rest = unpackByte(packed[i]);
    std::memcpy(out + 8 * i, &rest, pixels % 8);
  }
}

}  // namespace

void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst) {
  if (packed == nullptr || width < 1 || height < 1 || out == nullptr || outWidth < 1 ||
      outHeight < 1 || x0 < 0 || x0 >= outWidth || y0 < 0 || y0 >= outHeight ||
      height > outHeight - y0) {
    return;
  }
  const auto outRowBytes = static_cast<std::size_t>(outWidth);
  if (clearFirst) std::memset(out, 0, outRowBytes * static_cast<std::size_t>(outHeight));

  const auto visible = static_cast<std::size_t>(std::min(width, outWidth - x0));
  const std::size_t pixels = std::min(visible, static_cast<std::size_t>(countRowPixels(width)));
  unsigned char* target = out + static_cast<std::size_t>(y0) * outRowBytes + x0;
  for (int r = 0; r < height; ++r) {
    unpackRow(packed, pixels, target);
    std::memset(target + pixels, 0, visible - pixels);
    packed += countRowBytes(width);
    target += outRowBytes;
  }
}
