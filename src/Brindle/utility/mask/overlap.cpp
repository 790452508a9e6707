#include "Brindle/utility/mask.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "Brindle/utility/mask/packedRows.h"
#include "detail/load.h"

using namespace brindle::detail;
using namespace vorquell::detail;

namespace {

/// Rows of packed bits on a canvas whose positions are counted row after row: row r begins at
/// position `begin` + r * the canvas's width.
struct PlacedRows {
  const unsigned char* row(std::int64_t r) const { return bits + r * rowBytes; }

  const unsigned char* bits;
  std::int64_t rowBytes;
  std::int64_t rows;
  std::int64_t begin;
  std::int64_t pixels;  // in each row
};

/// Eight bits of a row from `bit` on; those outside the row are 0.
unsigned int eightBits(const unsigned char* row, std::int64_t rowBytes, std::int64_t bit) {
  const std::int64_t i = bit >> 3;
  const unsigned int high = i >= 0 && i < rowBytes ? row[i] : 0U;
  const unsigned int low = i + 1 >= 0 && i + 1 < rowBytes ? row[i + 1] : 0U;
  return (high << 8 | low) >> (8 - (bit & 7)) & 0xFFU;
}

/// Whether `count` bytes of `b` have a bit in common with as many of `a`, taken from its bit
/// `shift` on. Reads one byte more of `a`.
bool bytesMeet(const unsigned char* a, int shift, const unsigned char* b, std::int64_t count) {
  constexpr std::int64_t kWord = sizeof(std::uint64_t);
  // A shifted word is shifted in all its bytes at once; these bits stay in their bytes.
  const std::uint64_t upper = (0xFFU << shift & 0xFFU) * kEveryByte;
  const auto commonWord = [=](std::int64_t i) {
    const std::uint64_t shifted = (load<std::uint64_t>(a + i) << shift & upper) |
                                  (load<std::uint64_t>(a + i + 1) >> (8 - shift) & ~upper);
    return shifted & load<std::uint64_t>(b + i);
  };
  std::uint64_t common = 0;
  if (count < kWord) {
    for (std::int64_t i = 0; i < count; ++i) common |= eightBits(a + i, 2, shift) & b[i];
    return common != 0;
  }
  for (std::int64_t i = 0; i + kWord <= count; i += kWord) common |= commonWord(i);
  return (common | commonWord(count - kWord)) != 0;
}

/// Whether a row r + `lead` of `a` has a set pixel in common with row r of `b`, for any r.
/// All these pairs of rows lie above each other in the same way.
bool pairsMeet(const PlacedRows& a, const PlacedRows& b, std::int64_t canvasWidth,
               std::int64_t lead) {
  const std::int64_t offset = a.begin - b.begin + lead * canvasWidth;  // of a's row, in b's row
  const std::int64_t from = std::max<std::int64_t>(offset, 0);
  const std::int64_t to = std::min(offset + a.pixels, b.pixels);
  if (from >= to) return false;
  const std::int64_t first = from / 8;
  const std::int64_t last = (to - 1) / 8;
  unsigned int firstBits = 0xFFU >> (from & 7);
  unsigned int lastBits = 0xFFU << (7 - ((to - 1) & 7));
  if (first == last) firstBits = lastBits = firstBits & lastBits;
  const std::int64_t innerBit = 8 * (first + 1) - offset;
  const std::int64_t end = std::min(b.rows, a.rows - lead);
  for (std::int64_t r = std::max<std::int64_t>(-lead, 0); r < end; ++r) {
    const unsigned char* const rowA = a.row(r + lead);
    const unsigned char* const rowB = b.row(r);
    const unsigned int inFirst = eightBits(rowA, a.rowBytes, 8 * first - offset) & rowB[first];
    const unsigned int inLast = eightBits(rowA, a.rowBytes, 8 * last - offset) & rowB[last];
    if (((inFirst & firstBits) | (inLast & lastBits)) != 0) return true;
    if (last - first > 1 && bytesMeet(rowA + innerBit / 8, static_cast<int>(innerBit & 7),
                                      rowB + first + 1, last - first - 1)) {
      return true;
    }
  }
  return false;
}

bool rowsMeet(const PlacedRows& a, const PlacedRows& b, std::int64_t canvasWidth) {
  // The leads with which rows can lie above each other, and the next to them.
  const std::int64_t ahead = b.begin - a.begin;
  const std::int64_t end = std::min(a.rows, (ahead + b.pixels) / canvasWidth + 1);
  for (std::int64_t lead = std::max(1 - b.rows, (ahead - a.pixels) / canvasWidth); lead < end;
       ++lead) {
    if (pairsMeet(a, b, canvasWidth, lead)) return true;
  }
  return false;
}

}  // namespace

bool maskMaskOverlap(int canvasWidth, int canvasHeight, unsigned char* packedA, int widthA,
                     int heightA, int xA, int yA, unsigned char* packedB, int widthB, int heightB,
                     int xB, int yB) {
  const auto isPlaced = [=](const unsigned char* packed, int width, int height, int x, int y) {
    return packed != nullptr && width >= 1 && height >= 1 && x >= 0 && x < canvasWidth && y >= 0 &&
           y < canvasHeight;
  };
  if (canvasWidth < 1 || canvasHeight < 1 || !isPlaced(packedA, widthA, heightA, xA, yA) ||
      !isPlaced(packedB, widthB, heightB, xB, yB)) {
    std::puts("Error: invalid input (inside maskMaskOverlap(...))!");
    return false;
  }
  const std::int64_t stride = canvasWidth;
  const auto place = [=](const unsigned char* packed, int width, int height, int x, int y) {
    return PlacedRows{packed, countRowBytes(width), std::min(height, canvasHeight - y),
                      y * stride + x, countRowPixels(width)};
  };
  // A row of mask A is covered by the next one from a canvas row's length on. Only the last row
  // keeps its length, up to the canvas's end; what lies there can meet nothing of mask B.
  PlacedRows upperA = place(packedA, widthA, heightA, xA, yA);
  PlacedRows lastA = upperA;
  --upperA.rows;
  upperA.pixels = std::min(upperA.pixels, stride);
  lastA.bits = upperA.row(upperA.rows);
  lastA.rows = 1;
  lastA.begin += upperA.rows * stride;
  lastA.pixels = std::min(lastA.pixels, stride * canvasHeight - lastA.begin);
  const PlacedRows b = place(packedB, widthB, heightB, xB, yB);
  return rowsMeet(upperA, b, stride) || rowsMeet(lastA, b, stride);
}
