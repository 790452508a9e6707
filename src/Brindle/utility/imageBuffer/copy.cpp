#include "Brindle/utility/imageBuffer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "Brindle/detail/byteBits.h"
#include "Brindle/detail/formattedError.h"
#include "detail/load.h"

using namespace brindle::detail;
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

void copyPixelByPixel(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                      std::size_t pixels, std::size_t pixelBytes) {
  for (std::size_t i = 0; i < pixels; ++i) {
    if (mask[i] != 0) std::memmove(to + i * pixelBytes, from + i * pixelBytes, pixelBytes);
  }
}

/// The same for a target that overlaps neither its row nor its mask: eight pixels at a time,
/// without a branch. With a branch for each pixel a random mask takes ten times as long.
template <std::size_t kPixelBytes>
void copySelected(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                  std::size_t pixels) {
  std::size_t i = 0;
  for (; i + 8 <= pixels; i += 8) {
    const unsigned char bits = firstByteLowest(load<std::uint64_t>(mask + i));
    const unsigned char* const selection = kSelections<kPixelBytes>[bits].data();
    for (std::size_t k = 0; k < kPixelBytes; ++k) {
      const std::size_t at = i * kPixelBytes + 8 * k;
      const auto old = load<std::uint64_t>(to + at);
      const auto replacement = load<std::uint64_t>(from + at);
      const auto selected = load<std::uint64_t>(selection + 8 * k);
      store(to + at, old ^ ((old ^ replacement) & selected));
    }
  }
  copyPixelByPixel(mask + i, from + i * kPixelBytes, to + i * kPixelBytes, pixels - i, kPixelBytes);
}

/// Whether two blocks overlap. Compares numbers, as pointers into different blocks have no order.
bool overlap(const unsigned char* a, std::size_t bytesA, const unsigned char* b,
             std::size_t bytesB) {
  const auto beginA = reinterpret_cast<std::uintptr_t>(a);
  const auto beginB = reinterpret_cast<std::uintptr_t>(b);
  return beginA < beginB + bytesB && beginB < beginA + bytesA;
}

void copyMaskedRow(const unsigned char* mask, const unsigned char* from, unsigned char* to,
                   std::size_t pixels, std::size_t pixelBytes) {
  const std::size_t bytes = pixels * pixelBytes;
  const bool isApart = !overlap(from, bytes, to, bytes) && !overlap(mask, pixels, to, bytes);
  if (isApart && pixelBytes == 1) return copySelected<1>(mask, from, to, pixels);
  if (isApart && pixelBytes == 3) return copySelected<3>(mask, from, to, pixels);
  if (isApart && pixelBytes == 4) return copySelected<4>(mask, from, to, pixels);
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
  printFormattedError(
      error,
      "bool copyImageAnywhere(unsigned char*, int, int, int, int, int, int, int, int, unsigned "
      "char*, int, int, int, int, int, bool, unsigned char*, int)",
      line);
  return false;
}

/// Guards what clipColumns() promises; prints otherwise. It never does: sourceFirst -
/// destinationFirst and sourceLast - destinationLast both start as x - destinationX, and each step
/// changes both of a pair alike. In the source the first column starts at 0 or above and only
/// grows, the last one starts below the width and only shrinks; columns that are not empty have
/// destinationFirst <= destinationLast.
bool isClipped(const Columns& columns, int sourceWidth, int destinationWidth) {
  if (columns.sourceLast >= sourceWidth || columns.sourceFirst < 0 ||
      columns.destinationFirst >= destinationWidth) {
    return failToCopy("bounding box error!", 2949);
  }
  if (columns.sourceLast - columns.sourceFirst !=
      columns.destinationLast - columns.destinationFirst) {
    return failToCopy("unknown error occurs!", 2955);
  }
  return true;
}

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

  if (!isClipped(columns, sourceWidth, destinationWidth)) return false;

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
