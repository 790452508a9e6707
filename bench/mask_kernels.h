// The best known kernels for masks, to measure against. They are spared what the product has to do:
// their buffers are padded, so that each row may read and write beyond its end.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace bench {

constexpr int kPadding = 64;  // bytes after every buffer

/// Broadcast four bytes, shuffle each to its eight pixels, keep each pixel's bit, compare: 32
/// pixels, and two of them a step.
__attribute__((target("avx2"), noinline)) inline void unpackByShuffle(const unsigned char* packed,
                                                                      int width, int height,
                                                                      unsigned char* out) {
  const __m256i eightOfEach =
      _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
  const __m256i pixelBits = _mm256_set1_epi64x(0x0102040810204080);
  for (int r = 0; r < height; ++r) {
    for (int i = 0; i < width; i += 64) {
      int fours[2];
      std::memcpy(fours, packed + i / 8, sizeof fours);
      auto* const target = reinterpret_cast<__m256i*>(out + i);
      for (int k = 0; k < 2; ++k) {
        const __m256i bytes = _mm256_shuffle_epi8(_mm256_set1_epi32(fours[k]), eightOfEach);
        const __m256i bits = _mm256_and_si256(bytes, pixelBits);
        _mm256_storeu_si256(target + k, _mm256_cmpeq_epi8(bits, pixelBits));
      }
    }
    packed += (width + 7) / 8;
    out += width;
  }
}

/// Compare with 0 and move the mask to four bytes, with the bits of each reversed by reversing its
/// eight pixels before: 32 pixels, and two of them a step. Clears what byte2BitData() leaves out.
__attribute__((target("avx2"), noinline)) inline void packByMovemask(const unsigned char* pixels,
                                                                     int width, int height,
                                                                     unsigned char* packed) {
  const __m256i reverseEights =
      _mm256_broadcastsi128_si256(_mm_set_epi64x(0x08090A0B0C0D0E0F, 0x0001020304050607));
  const int rowBytes = (width + 7) / 8;
  for (int r = 0; r < height; ++r) {
    for (int i = 0; i < width; i += 64) {
      const auto* const source = reinterpret_cast<const __m256i*>(pixels + i);
      int fours[2];
      for (int k = 0; k < 2; ++k) {
        const __m256i reversed = _mm256_shuffle_epi8(_mm256_loadu_si256(source + k), reverseEights);
        fours[k] = ~_mm256_movemask_epi8(_mm256_cmpeq_epi8(reversed, _mm256_setzero_si256()));
      }
      std::memcpy(packed + i / 8, fours, sizeof fours);
    }
    unsigned char& last = packed[rowBytes - 1];
    last = static_cast<unsigned char>(last & 0xFF00 >> width % 8);
    pixels += width;
    packed += rowBytes;
  }
}

/// Whether rows of whole words, all of which begin at the same bit, have a bit in common.
__attribute__((noinline)) inline bool alignedRowsMeet(const std::uint64_t* a,
                                                      const std::uint64_t* b, int words,
                                                      int height) {
  for (int r = 0; r < height; ++r) {
    std::uint64_t common = 0;
    for (int i = 0; i < words; ++i) common |= a[i] & b[i];
    if (common != 0) return true;
    a += words;
    b += words;
  }
  return false;
}

}  // namespace bench
