#include "Brindle/utility/imageBuffer.h"

#include <tmmintrin.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "detail/dispatch.h"
#include "detail/load.h"

using namespace vorquell::detail;

namespace {

void swapPixels(const unsigned char* from, unsigned char* to, std::size_t pixels) {
  for (std::size_t i = 0; i < 3 * pixels; i += 3) {
    const unsigned char first = from[i];
    const unsigned char third = from[i + 2];
    to[i] = third;
    to[i + 1] = from[i + 1];
    to[i + 2] = first;
  }
}

/// What brings bytes from third `kFrom` of 48 bytes to third `kTo` of their swapped copy: for each
/// byte there its place in the third that it comes from, -1 when it comes from another one. Byte o
/// of the copy is byte 3 * (o / 3) + 2 - o % 3 of the original.
template <int kTo, int kFrom>
constexpr auto makeShuffle() {
  std::array<signed char, 16> places{};
  for (int i = 0; i < 16; ++i) {
    const int o = 16 * kTo + i;
    const int place = 3 * (o / 3) + 2 - o % 3 - 16 * kFrom;
    places[static_cast<std::size_t>(i)] =
        static_cast<signed char>(place >= 0 && place < 16 ? place : -1);
  }
  return places;
}

template <int kTo, int kFrom>
__attribute__((target("ssse3"), always_inline)) inline __m128i bring(__m128i third) {
  static constexpr auto kShuffle = makeShuffle<kTo, kFrom>();
  return _mm_shuffle_epi8(third, load<__m128i>(kShuffle.data()));
}

/// The same, 16 pixels at a time: the compilers find no such shuffles themselves.
__attribute__((target("ssse3"))) void swapPixelsShuffled(const unsigned char* from,
                                                         unsigned char* to, std::size_t pixels) {
  std::size_t i = 0;
  for (; i + 16 <= pixels; i += 16) {
    const auto head = load<__m128i>(from + 3 * i);
    const auto middle = load<__m128i>(from + 3 * i + 16);
    const auto tail = load<__m128i>(from + 3 * i + 32);
    const __m128i edges = _mm_or_si128(bring<1, 0>(head), bring<1, 2>(tail));
    store(to + 3 * i, _mm_or_si128(bring<0, 0>(head), bring<0, 1>(middle)));
    store(to + 3 * i + 16, _mm_or_si128(edges, bring<1, 1>(middle)));
    store(to + 3 * i + 32, _mm_or_si128(bring<2, 1>(middle), bring<2, 2>(tail)));
  }
  swapPixels(from + 3 * i, to + 3 * i, pixels - i);
}

constexpr Variant<void(const unsigned char*, unsigned char*, std::size_t)> kRowSwaps[] = {
    {InstructionSet::kSsse3, swapPixelsShuffled},
    {InstructionSet::kBaseline, swapPixels},
};

}  // namespace

int xSwapImageDataOrder(const unsigned char* source, int width, int height, int stride, int length,
                        unsigned char*& target) {
  const std::int64_t pixelBytes = std::int64_t{width} * 3;
  if (source == nullptr || target == nullptr || std::int64_t{height} * stride != length ||
      stride < pixelBytes) {
    return 1;
  }
  if (length < 1) return 0;
  const bool copies = target[0] != source[0];
  if (width < 1 || height < 1) {  // no pixels, but bytes to copy
    if (copies) std::memcpy(target, source, static_cast<std::size_t>(length));
    return 0;
  }
  const unsigned char* const pixels = copies ? source : target;
  for (std::int64_t r = 0; r < height; ++r) {
    const std::int64_t row = r * stride;
    Dispatch<kRowSwaps>::call(pixels + row, target + row, static_cast<std::size_t>(width));
    if (copies) {
      std::memcpy(target + row + pixelBytes, source + row + pixelBytes,
                  static_cast<std::size_t>(stride - pixelBytes));
    }
  }
  return 0;
}
