#include "Brindle/utility/imageBuffer.h"

#include <tmmintrin.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

#include "Brindle/detail/formattedError.h"
#include "detail/dispatch.h"

using namespace vorquell::detail;

namespace {

// --- Masked copies

/// For each byte of eight mask bits, the first pixel's lowest: 255 in the bytes of pixels to copy.
template <std::size_t kPixelBytes>
constexpr auto makeSelections() {
  std::array<std::array<unsigned char, 8 * kPixelBytes>, 256> selections{};
  for (std::size_t bits = 0; bits < selections.size(); ++bits) {
    for (std::size_t i = 0; i < 8 * kPixelBytes; ++i) {
      selections[bits][i] = (bits >> (i / kPixelBytes) & 1) != 0 ? 255 : 0;
    }
  }
  return selections;
}

template <std::size_t kPixelBytes>
constexpr auto kSelections = makeSelections<kPixelBytes>();

/// One bit for each of eight mask bytes that is not 0, the first byte's lowest.
std::size_t packMask(std::uint64_t eight) {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
  const std::uint64_t set = (((eight & kLowBits) + kLowBits) | eight) & ~kLowBits;
  return ((set >> 7) * 0x0102040810204080) >> 56;
}

void copyPixelByPixel(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                      std::size_t pixels, std::size_t pixelBytes) {
  for (std::size_t i = 0; i < pixels; ++i) {
    if (mask[i] != 0) std::memmove(to + i * pixelBytes, from + i * pixelBytes, pixelBytes);
  }
}

/// The same for a target that overlaps neither its row nor its mask, eight pixels at a time without
/// a branch: mask bytes that come as they like make a branch for each pixel ten times as slow.
template <std::size_t kPixelBytes>
void copySelected(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                  std::size_t pixels) {
  std::size_t i = 0;
  for (; i + 8 <= pixels; i += 8) {
    std::uint64_t eight;
    std::memcpy(&eight, mask + i, sizeof eight);
    const unsigned char* const selection = kSelections<kPixelBytes>[packMask(eight)].data();
    for (std::size_t k = 0; k < kPixelBytes; ++k) {
      const std::size_t at = i * kPixelBytes + 8 * k;
      std::uint64_t old, replacement, selected;
      std::memcpy(&old, to + at, sizeof old);
      std::memcpy(&replacement, from + at, sizeof replacement);
      std::memcpy(&selected, selection + 8 * k, sizeof selected);
      old ^= (old ^ replacement) & selected;
      std::memcpy(to + at, &old, sizeof old);
    }
  }
  copyPixelByPixel(mask + i, from + i * kPixelBytes, to + i * kPixelBytes, pixels - i, kPixelBytes);
}

void copyMaskedRow(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                   std::size_t pixels, std::size_t pixelBytes) {
  const std::size_t bytes = pixels * pixelBytes;
  const bool overlaps =
      (from < to + bytes && to < from + bytes) || (mask < to + bytes && to < mask + pixels);
  if (!overlaps && pixelBytes == 1) return copySelected<1>(mask, from, to, pixels);
  if (!overlaps && pixelBytes == 3) return copySelected<3>(mask, from, to, pixels);
  if (!overlaps && pixelBytes == 4) return copySelected<4>(mask, from, to, pixels);
  copyPixelByPixel(mask, from, to, pixels, pixelBytes);
}

// --- Clipping

/// First and last column of the visible region in both images.
struct Columns {
  std::int64_t sourceFirst, sourceLast, destinationFirst, destinationLast;

  std::int64_t count() const { return sourceLast - sourceFirst + 1; }
  bool isEmpty() const { return sourceLast < sourceFirst || destinationLast < destinationFirst; }
};

Columns clipColumns(std::int64_t x, std::int64_t width, int sourceWidth, std::int64_t destinationX,
                    int destinationWidth) {
  const std::int64_t beyondSource = std::max<std::int64_t>(x + width - sourceWidth, 0);
  Columns columns{std::max<std::int64_t>(x, 0), x + width - 1 - beyondSource,
                  destinationX + std::max<std::int64_t>(-x, 0),
                  destinationX + width - 1 - beyondSource};
  if (columns.destinationFirst < 0) {
    columns.sourceFirst -= columns.destinationFirst;
    columns.destinationFirst = 0;
  }
  if (columns.destinationLast >= destinationWidth) {
    columns.sourceLast -= columns.destinationLast - destinationWidth + 1;
    columns.destinationLast = destinationWidth - 1;
  }
  return columns;
}

bool failToCopy(const char* error, int line) {
  brindle::detail::printFormattedError(
      error,
      "bool copyImageAnywhere(unsigned char*, int, int, int, int, int, int, int, int, unsigned "
      "char*, int, int, int, int, int, bool, unsigned char*, int)",
      line);
  return false;
}

// --- Rows

/// Exchanges two rows that do not overlap.
void exchangeRows(unsigned char* __restrict a, unsigned char* __restrict b, std::size_t rowBytes) {
  for (std::size_t i = 0; i < rowBytes; ++i) std::swap(a[i], b[i]);
}

void flipInPlace(unsigned char* rows, std::size_t rowCount, std::size_t rowBytes) {
  if (rowCount < 2) return;
  // The upper of the rows that meet in the middle keeps its content.
  const std::size_t kept = rowCount / 2 - 1;
  const auto row = [=](std::size_t r) { return rows + r * rowBytes; };
  for (std::size_t r = 0; r < kept; ++r) exchangeRows(row(r), row(rowCount - 1 - r), rowBytes);
  std::memcpy(row(rowCount - 1 - kept), row(kept), rowBytes);
}

void swapPixels(const unsigned char* from, unsigned char* to, std::size_t pixels) {
  for (std::size_t i = 0; i < 3 * pixels; i += 3) {
    const unsigned char first = from[i];
    const unsigned char third = from[i + 2];
    to[i] = third;
    to[i + 1] = from[i + 1];
    to[i + 2] = first;
  }
}

/// Which bytes of a third of 48 bytes go into a third of their copy; -1 for none.
enum Shuffle {
  kHeadToHead,
  kMiddleToHead,
  kHeadToMiddle,
  kMiddleToMiddle,
  kTailToMiddle,
  kMiddleToTail,
  kTailToTail
};
alignas(16) constexpr signed char kShuffles[][16] = {
    {2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, -1},
    {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, 1},
    {-1, 15, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
    {0, -1, 4, 3, 2, 7, 6, 5, 10, 9, 8, 13, 12, 11, -1, 15},
    {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, 0, -1},
    {14, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
    {-1, 3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10, 15, 14, 13},
};

/// The same, 16 pixels at a time: the compilers find no such shuffles themselves.
__attribute__((target("ssse3"))) void swapPixelsShuffled(const unsigned char* from,
                                                         unsigned char* to, std::size_t pixels) {
  __m128i shuffles[std::size(kShuffles)];
  std::memcpy(shuffles, kShuffles, sizeof shuffles);
  std::size_t i = 0;
  for (; i + 16 <= pixels; i += 16) {
    const auto* const in = reinterpret_cast<const __m128i*>(from + 3 * i);
    auto* const out = reinterpret_cast<__m128i*>(to + 3 * i);
    const __m128i head = _mm_loadu_si128(in);
    const __m128i middle = _mm_loadu_si128(in + 1);
    const __m128i tail = _mm_loadu_si128(in + 2);
    const __m128i newHead = _mm_or_si128(_mm_shuffle_epi8(head, shuffles[kHeadToHead]),
                                         _mm_shuffle_epi8(middle, shuffles[kMiddleToHead]));
    const __m128i edges = _mm_or_si128(_mm_shuffle_epi8(head, shuffles[kHeadToMiddle]),
                                       _mm_shuffle_epi8(tail, shuffles[kTailToMiddle]));
    const __m128i newMiddle =
        _mm_or_si128(edges, _mm_shuffle_epi8(middle, shuffles[kMiddleToMiddle]));
    const __m128i newTail = _mm_or_si128(_mm_shuffle_epi8(middle, shuffles[kMiddleToTail]),
                                         _mm_shuffle_epi8(tail, shuffles[kTailToTail]));
    _mm_storeu_si128(out, newHead);
    _mm_storeu_si128(out + 1, newMiddle);
    _mm_storeu_si128(out + 2, newTail);
  }
  swapPixels(from + 3 * i, to + 3 * i, pixels - i);
}

constexpr Variant<void(const unsigned char*, unsigned char*, std::size_t)> kRowSwaps[] = {
    {InstructionSet::kSsse3, swapPixelsShuffled},
    {InstructionSet::kBaseline, swapPixels},
};

}  // namespace

bool copyImageAnywhere(unsigned char* source, int sourceWidth, int sourceHeight, int sourceStride,
                       int bytesPerPixel, int x, int y, int regionWidth, int regionHeight,
                       unsigned char* destination, int destinationWidth, int destinationHeight,
                       int destinationStride, int destinationX, int destinationY, bool clearFirst,
                       unsigned char* mask, int maskStride) {
  if (source == nullptr || sourceWidth < 1 || sourceHeight < 1 || sourceStride < 1 ||
      bytesPerPixel < 1 || destination == nullptr || destinationWidth < 1 ||
      destinationHeight < 1 || destinationStride < 1 || (mask != nullptr && maskStride < 1)) {
    std::puts("Error: invalid input (inside copyImage)!");
    return false;
  }
  if (clearFirst) {
    std::memset(
        destination, 0,
        static_cast<std::size_t>(destinationStride) * static_cast<std::size_t>(destinationHeight));
  }
  // Rows of the region that lie in both images.
  const std::int64_t top = y;
  const std::int64_t destinationTop = destinationY;
  const std::int64_t begin = std::max<std::int64_t>({0, -top, -destinationTop});
  const std::int64_t end = std::min<std::int64_t>(
      {regionHeight, sourceHeight - top, destinationHeight - destinationTop});
  const Columns columns = clipColumns(x, regionWidth, sourceWidth, destinationX, destinationWidth);
  if (begin >= end || columns.isEmpty()) return true;

  // Neither guard is ever tripped. sourceFirst - destinationFirst and sourceLast - destinationLast
  // both start as x - destinationX, and each step of the clipping changes both of a pair alike. In
  // the source, the first column starts at 0 or above and only grows, the last one starts below the
  // width and only shrinks; columns that are not empty have destinationFirst <= destinationLast.
  if (columns.sourceLast >= sourceWidth || columns.sourceFirst < 0 ||
      columns.destinationFirst >= destinationWidth) {
    return failToCopy("bounding box error!", 2949);
  }
  if (columns.sourceLast - columns.sourceFirst !=
      columns.destinationLast - columns.destinationFirst) {
    return failToCopy("unknown error occurs!", 2955);
  }

  const auto pixelBytes = static_cast<std::size_t>(bytesPerPixel);
  const auto count = static_cast<std::size_t>(columns.count());
  const auto first = static_cast<std::size_t>(columns.sourceFirst);
  const auto destinationFirst = static_cast<std::size_t>(columns.destinationFirst);
  for (std::int64_t i = begin; i < end; ++i) {
    const unsigned char* const from = source + (top + i) * sourceStride + first * pixelBytes;
    unsigned char* const to =
        destination + (destinationTop + i) * destinationStride + destinationFirst * pixelBytes;
    if (mask == nullptr) {
      std::memmove(to, from, count * pixelBytes);
    } else if (first < count) {
      copyMaskedRow(mask + (top + i) * maskStride + first, from, to, count - first, pixelBytes);
    }
  }
  return true;
}

int xImageUpsideDown(unsigned char* source, int rows, int rowBytes, int bufferLength,
                     unsigned char*& target) {
  if (source == nullptr || target == nullptr || std::int64_t{rows} * rowBytes > bufferLength) {
    return 1;
  }
  const std::int64_t half = (std::int64_t{rows} + (rows > 0)) / 2;  // rounded up
  if (target == source && half * rowBytes < 0) return 1;
  if (rows < 1 || rowBytes < 1) return 0;
  const auto rowCount = static_cast<std::size_t>(rows);
  const auto size = static_cast<std::size_t>(rowBytes);
  if (target == source) {
    flipInPlace(source, rowCount, size);
    return 0;
  }
  for (std::size_t r = 0; r < rowCount; ++r) {
    std::memcpy(target + r * size, source + (rowCount - 1 - r) * size, size);
  }
  return 0;
}

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

int xTruncateImagePadding(const unsigned char* source, int width, int height, int stride,
                          int length, unsigned char*& target) {
  constexpr std::int64_t kMany = std::int64_t{1} << 40;  // more pixels than any length has room for
  const std::int64_t pixels = std::clamp(std::int64_t{width} * height, -kMany, kMany);
  const std::int64_t rowBytes = std::int64_t{width} * 3;
  if (source == nullptr || target == nullptr || pixels * 3 > length || rowBytes > stride) return 1;
  if (pixels < 1) return 0;
  if (rowBytes == stride) {
    if (target[0] != source[0]) {
      std::memcpy(target, source, static_cast<std::size_t>(pixels * 3));
    }
    return 0;
  }
  for (std::int64_t r = 0; r < height; ++r) {
    std::memmove(target + r * rowBytes, source + r * stride, static_cast<std::size_t>(rowBytes));
  }
  return 0;
}
