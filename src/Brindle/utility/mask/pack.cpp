#include "Brindle/utility/mask.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Brindle/detail/byteBits.h"
#include "Brindle/utility/mask/packedRows.h"
#include "detail/load.h"
#include "detail/wrap.h"

using namespace brindle::detail;
using namespace vorquell::detail;

namespace {

constexpr std::size_t kBlock = 8;  // packed bytes

/// Packs 64 pixels into 8 bytes.
void packBlock(const unsigned char* pixels, unsigned char* packed) {
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

/// Packs one row of `width` pixels. The last byte is filled only from fewer than eight pixels.
void packRow(const unsigned char* pixels, std::size_t width, unsigned char* packed) {
  const std::size_t wholeBytes = (width + 7) / 8 - 1;
  std::size_t i = 0;
  for (; i + kBlock <= wholeBytes; i += kBlock) packBlock(pixels + 8 * i, packed + i);
  for (; i < wholeBytes; ++i) packed[i] = firstByteHighest(load<std::uint64_t>(pixels + 8 * i));
  if (width % 8 != 0) {
    std::uint64_t rest = 0;
    std::memcpy(&rest, pixels + 8 * i, width % 8);
    packed[i] = firstByteHighest(rest);
  }
}

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
  for (std::int64_t r = 0; r < rows; ++r) {
    packRow(bytes + r * width, static_cast<std::size_t>(width), packed + r * rowBytes);
  }
}
