#include "Brindle/utility/mask.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace {

constexpr unsigned char kForeground = 127;

// The least of nine pixels is the least of three columns' leasts (the separable minimum), which
// takes four comparisons a pixel instead of eight, in loops along rows that the compiler
// vectorises.

/// Writes the surviving pixels of `row` to `out` where the least value of three rows in each of
/// three columns is foreground, and returns their number. Leaves the border columns alone.
int erodeRow(const unsigned char* row, const unsigned char* least, int width, unsigned char* out) {
  // As many as one byte can count: a wider counter would make the vectorised loop unpack its bytes.
  constexpr int kStrip = 255;
  int count = 0;
  for (int begin = 1; begin < width - 1; begin += kStrip) {
    const int end = std::min(begin + kStrip, width - 1);
    unsigned char inStrip = 0;
    for (int c = begin; c < end; ++c) {
      const unsigned char around = std::min(std::min(least[c - 1], least[c]), least[c + 1]);
      const unsigned char kept = around >= kForeground ? 255 : 0;
      out[c] = row[c] & kept;
      inStrip = static_cast<unsigned char>(inStrip + (kept & 1));
    }
    count += inStrip;
  }
  return count;
}

}  // namespace

int erosion(unsigned char* image, int width, int height) {
  if (image == nullptr || width < 1 || height < 1) return 0;
  const auto rowBytes = static_cast<std::size_t>(width);
  const std::unique_ptr<unsigned char[]> rows(new (std::nothrow) unsigned char[3 * rowBytes]);
  if (!rows) return 0;
  // The rows above and at the current one as they were; the image holds what became of them.
  unsigned char* above = rows.get();
  unsigned char* row = above + rowBytes;
  unsigned char* const least = row + rowBytes;

  int count = 0;
  std::memcpy(row, image, rowBytes);
  std::memset(image, 0, rowBytes);
  for (int r = 1; r < height; ++r) {
    unsigned char* const target = image + static_cast<std::size_t>(r) * rowBytes;
    std::swap(above, row);
    std::memcpy(row, target, rowBytes);
    std::memset(target, 0, rowBytes);
    if (r + 1 == height) break;
    const unsigned char* const below = target + rowBytes;
    for (int c = 0; c < width; ++c) least[c] = std::min(std::min(above[c], row[c]), below[c]);
    count += erodeRow(row, least, width, target);
  }
  return count;
}
