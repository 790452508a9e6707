#include "Brindle/utility/imageBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "support/Pixels.h"

namespace {

using support::checkTable;
using support::givesPixels;
using support::PixelRow;

long copy(PixelRow& row) {
  return copyImageAnywhere(row.bytes(0), row[0], row[1], row[2], row[3], row[4], row[5], row[6],
                           row[7], row.bytes(2), row[8], row[9], row[10], row[11], row[12],
                           row[13] != 0, row.bytes(1), row[14]);
}

TEST(ImageCopy, ClipsAndMasksAsInTheTable) {
  checkTable("image-copy.txt", {{"copyImageAnywhere", givesPixels(copy)}});
}

TEST(ImageCopy, StaysInTheImagesForTheLargestNumbers) {
  const int values[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 2, INT_MAX - 1, INT_MAX};
  for (int i = 0; i < 8 * 8 * 8 * 8; ++i) {
    const int a = values[i % 8], b = values[i / 8 % 8];
    const int width = values[i / 64 % 8], height = values[i / 512];
    Bytes source(8, 1), mask(8, 1), out(16, 0);
    EXPECT_TRUE(copyImageAnywhere(source.data(), 4, 2, 4, 1, a, b, width, height, out.data() + 4, 4,
                                  2, 4, b, a, false, i % 3 == 0 ? mask.data() : nullptr, 4));
    std::fill_n(out.begin() + 4, 8, 0);
    ASSERT_SAME(out, Bytes(16, 0)) << a << ", " << b << ": " << width << " x " << height;
  }
}

long flip(PixelRow& row) {
  unsigned char* target = row.bytes(1);
  return xImageUpsideDown(row.bytes(0), row[0], row[1], row[2], target);
}

TEST(ImageFlip, ReversesRowsButForOneInPlace) {
  checkTable("image-flip.txt", {{"xImageUpsideDown", givesPixels(flip)}});
}

template <int (*call)(const unsigned char*, int, int, int, int, unsigned char*&)>
long rewrite(PixelRow& row) {
  unsigned char* target = row.bytes(1);
  return call(row.bytes(0), row[0], row[1], row[2], row[3], target);
}

TEST(ImageSwap, CopiesWhereTheFirstByteDiffers) {
  checkTable("image-swap.txt",
             {{"xSwapImageDataOrder", givesPixels(rewrite<xSwapImageDataOrder>)}});
}

TEST(ImageTruncation, KeepsThePixelsOfEachRow) {
  checkTable("image-truncation.txt",
             {{"xTruncateImagePadding", givesPixels(rewrite<xTruncateImagePadding>)}});
}

}  // namespace
