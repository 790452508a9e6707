#include "Brindle/utility/imageBuffer.h"

#include <climits>

#include "support/Call.h"

namespace {

using Bytes = std::vector<unsigned char>;

TEST(ImageCopy, ClipsAndMasksAsInTheTable) {
  support::checkTable("image-copy.txt", {CALLS(copyImageAnywhere)});
}

TEST(ImageCopy, StaysInTheImagesForTheLargestNumbers) {
  const int values[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 2, INT_MAX - 1, INT_MAX};
  for (int i = 0; i < 8 * 8 * 8 * 8; ++i) {
    const int a = values[i % 8], b = values[i / 8 % 8];
    const int width = values[i / 64 % 8], height = values[i / 512];
    SCOPED_TRACE(testing::Message() << a << ", " << b << ": " << width << " x " << height);
    Bytes source(8, 1), mask(8, 1), out(16, 0);
    EXPECT_TRUE(copyImageAnywhere(source.data(), 4, 2, 4, 1, a, b, width, height, out.data() + 4, 4,
                                  2, 4, b, a, false, i % 3 == 0 ? mask.data() : nullptr, 4));
    std::fill_n(out.begin() + 4, 8, 0);
    EXPECT_SAME(out, Bytes(16, 0));
  }
}

TEST(ImageFlip, ReversesRowsButForOneInPlace) {
  support::checkTable("image-flip.txt", {CALLS(xImageUpsideDown)});
}

TEST(ImageSwap, CopiesWhereTheFirstByteDiffers) {
  support::checkTable("image-swap.txt", {CALLS(xSwapImageDataOrder)});
}

TEST(ImageTruncation, KeepsThePixelsOfEachRow) {
  support::checkTable("image-truncation.txt", {CALLS(xTruncateImagePadding)});
}

}  // namespace
