#include "Brindle/utility/imageBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "reference/PlainPixels.h"
#include "support/Pixels.h"

namespace {

constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();

struct Copy {
  PlainImage source, destination;
  int bytesPerPixel, width, height;
  unsigned char* mask = nullptr;
  int maskStride = 0;
  bool clears = false;

  bool run() const {
    return copyImageAnywhere(source.bytes, source.width, source.height, source.stride,
                             bytesPerPixel, source.x, source.y, width, height, destination.bytes,
                             destination.width, destination.height, destination.stride,
                             destination.x, destination.y, clears, mask, maskStride);
  }
};

TEST(CopyingAnywhere, AgreesWithThePixelLoopAndWritesNothingElse) {
  Random random;
  for (int i = 0; i < 20000; ++i) {
    const int widest = i % 3 == 0 ? 130 : 12, pixelBytes = random.between(1, 5);
    Copy copy{{}, {}, pixelBytes, random.between(-1, widest + 10), random.between(-1, 6)};
    copy.clears = i % 5 == 0;
    for (PlainImage* image : {&copy.source, &copy.destination}) {
      const int width = random.between(1, widest), stride = width * pixelBytes + i % 6;
      *image = {nullptr, width, i % 4 + 1, stride, random.between(-6, 14), random.between(-3, 4)};
    }
    const int size = copy.destination.stride * copy.destination.height, guard = 40 + i % 8;
    Bytes source = random.bytes(copy.source.stride * copy.source.height);
    Bytes mask = random.bytes(130 * 4, random.between(1, 4));
    Bytes destination = random.bytes(size + 2 * guard), expected = destination;
    if (i % 2 == 0) copy.mask = mask.data(), copy.maskStride = 130;
    copy.source.bytes = source.data();
    copy.destination.bytes = expected.data() + guard;
    if (copy.clears) std::fill_n(copy.destination.bytes, size, 0);
    plainCopy(copy.source, copy.destination, pixelBytes, copy.width, copy.height, copy.mask, 130);
    copy.destination.bytes = destination.data() + guard;
    ASSERT_TRUE(copy.run());
    ASSERT_EQ(destination, expected) << i;
  }
}

TEST(CopyingAnywhere, WithAMaskStopsEarlyByTheFirstColumn) {
  Bytes source = {1, 2, 3, 4, 5, 6, 7, 8}, destination(8), mask(8, 1);
  const PlainImage from{source.data(), 8, 1, 8, 2, 0}, to{destination.data(), 8, 1, 8, 1, 0};
  EXPECT_TRUE((Copy{from, to, 1, 6, 1, mask.data(), 8}.run()));
  EXPECT_EQ(destination, Bytes({0, 3, 4, 5, 6, 0, 0, 0}));
}

TEST(CopyingAnywhere, MayOverlap) {
  const auto shift = [](Bytes& from, Bytes& to, unsigned char* mask) {
    const PlainImage source{from.data(), 40, 1, 40, 0, 0}, target{to.data(), 40, 1, 40, 1, 0};
    return Copy{source, target, 1, 39, 1, mask, 40}.run();
  };
  Bytes ones(40, 1), image = Random().bytes(40), smeared = image, shifted = image;
  shifted.pop_back();
  shifted.insert(shifted.begin(), image[0]);
  EXPECT_TRUE(shift(smeared, smeared, ones.data()) && shift(image, image, nullptr));
  EXPECT_TRUE(smeared == Bytes(40, image[0]) && image == shifted);
  // A destination that is its own mask: what was copied selects what comes next.
  for (std::size_t i = 0; i < 40; ++i)
    image[i] = i % 2 == 0 ? static_cast<unsigned char>(i + 1) : 0;
  EXPECT_TRUE(shift(image, ones, ones.data()));
  for (std::size_t i = 1; i < 40; ++i) EXPECT_EQ(ones[i], i % 2) << i;
}

TEST(CopyingAnywhere, StaysInTheImagesForTheLargestNumbers) {
  const int values[] = {kLeast, kLeast + 1, -1, 0, 1, 2, kMost - 1, kMost};
  for (int i = 0; i < 8 * 8 * 8 * 8; ++i) {
    const int a = values[i % 8], b = values[i / 8 % 8], width = values[i / 64 % 8];
    Bytes source(8, 1), mask(8, 1), destination(16, 0);
    const PlainImage from{source.data(), 4, 2, 4, a, b}, to{destination.data() + 4, 4, 2, 4, b, a};
    EXPECT_TRUE(
        (Copy{from, to, 1, width, values[i / 512], i % 3 ? nullptr : mask.data(), 4}.run()));
    for (const std::size_t at : {0U, 1U, 2U, 3U, 12U, 13U, 14U, 15U}) ASSERT_EQ(destination[at], 0);
  }
}

TEST(CopyingAnywhere, RefusesBeforeClearing) {
  unsigned char pixel = 1, kept = 7;
  const Copy good{{&pixel, 1, 1, 1, 0, 0}, {&kept, 1, 1, 1, 0, 0}, 1, 1, 1, &pixel, 1, true};
  std::vector<Copy> cases(10, good);
  cases[0].source.bytes = cases[1].destination.bytes = nullptr;
  cases[2].source.width = cases[3].source.height = cases[4].source.stride = 0;
  cases[5].destination.width = cases[6].destination.height = cases[7].destination.stride = 0;
  cases[8].bytesPerPixel = cases[9].maskStride = 0;
  for (const Copy& copy : cases) {
    testing::internal::CaptureStdout();
    EXPECT_FALSE(copy.run());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error: invalid input (inside copyImage)!\n");
    EXPECT_EQ(kept, 7) << &copy - cases.data();
  }
}

TEST(Flipping, InPlaceRepeatsTheRowAboveTheMiddle) {
  const std::vector<int> inPlace[] = {{}, {0}, {0, 0}, {0, 1, 0}, {3, 1, 1, 0}, {4, 1, 2, 1, 0}};
  for (int i = 0; i < 6 * 600; ++i) {
    const int rows = i % 6, rowBytes = i / 6;
    Bytes source = Random().bytes(rows * rowBytes + 9), other = source;
    Bytes expected = source, expectedOther = source;
    for (int r = 0; r < rows; ++r) {
      const auto old = source.begin() + inPlace[rows].data()[r] * rowBytes;
      std::copy_n(old, rowBytes, expected.begin() + r * rowBytes);
      const auto mirrored = source.begin() + (rows - 1 - r) * rowBytes;
      std::copy_n(mirrored, rowBytes, expectedOther.begin() + r * rowBytes);
    }
    unsigned char *target = source.data(), *otherTarget = other.data();
    EXPECT_EQ(xImageUpsideDown(target, rows, rowBytes, rows * rowBytes, otherTarget), 0);
    EXPECT_EQ(xImageUpsideDown(target, rows, rowBytes, rows * rowBytes, target), 0);
    ASSERT_TRUE(source == expected && other == expectedOther) << rows << " x " << rowBytes;
  }
}

TEST(SwappingOrder, AgreesWithThePixelLoop) {
  Random random;
  for (int i = 0; i < 2000; ++i) {
    const int width = i % 140 + 1, height = i % 4 + 1, stride = width * 3 + i % 5;
    Bytes source = random.bytes(height * stride + 50), swapped = random.bytes(height * stride + 50);
    // Every third target begins as the source does, and is swapped as it stands.
    if (i % 3 == 0) swapped[0] = source[0];
    Bytes expected = swapped;
    unsigned char* target = swapped.data();
    const unsigned char* from = i % 7 == 0 ? target : source.data();
    plainSwap(i % 7 == 0 ? expected.data() : from, width, height, stride, expected.data());
    ASSERT_EQ(xSwapImageDataOrder(from, width, height, stride, height * stride, target), 0);
    ASSERT_EQ(swapped, expected) << width << " x " << height << ", " << stride;
  }
}

TEST(SwappingOrder, CopiesWhatHoldsNoPixels) {
  Bytes source(6, 1), target(6, 7);
  unsigned char* out = target.data();
  EXPECT_EQ(xSwapImageDataOrder(source.data(), -4, -1, -5, 5, out), 0);
  EXPECT_EQ(target, Bytes({1, 1, 1, 1, 1, 7}));
  out += 6;
  EXPECT_EQ(xSwapImageDataOrder(out, 2, 0, 6, 0, out), 0);  // reads nothing
}

TEST(RemovingPadding, KeepsThePixels) {
  const Bytes bare = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, ones(12, 1), other(12, 99);
  Bytes padded = {1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12};  // the last row is bare
  const auto truncated = [](const Bytes& source, int stride, Bytes target) {
    unsigned char* out = target.data();
    EXPECT_EQ(xTruncateImagePadding(source.data(), 2, 2, stride, 12, out), 0);
    return target;
  };
  EXPECT_TRUE(truncated(padded, 8, other) == bare && truncated(padded, 8, ones) == bare);
  EXPECT_TRUE(truncated(bare, 6, other) == bare && truncated(bare, 6, ones) == ones);
  unsigned char* target = padded.data();
  EXPECT_EQ(xTruncateImagePadding(target, 2, 2, 8, 12, target), 0);
  EXPECT_EQ(Bytes(target, target + 12), bare);
}

TEST(Refusals, LeaveTheTarget) {
  Bytes source(24, 1), out(24, 7);
  unsigned char *from = source.data(), *target = out.data(), *none = nullptr;
  const int cases[][6] = {
      {2, 2, 6, 11, 1, 1}, {2, 3, 5, 18, 1, 1},         {1, 1 << 16, 1 << 16, 0, 1, 1},
      {2, 0, 6, 0, 0, 0},  {0x55555556, 1, 6, 6, 1, 1}, {kMost, kMost, kMost, kMost, 1, 1},
      {-1, 2, 0, 0, 0, 0}, {kLeast, 1, kMost, 0, 1, 0}, {kLeast, kLeast, kMost, kMost, 1, 1}};
  for (const auto& [width, height, stride, length, swap, truncate] : cases) {
    EXPECT_EQ(xSwapImageDataOrder(from, width, height, stride, length, target), swap);
    EXPECT_EQ(xTruncateImagePadding(from, width, height, stride, length, target), truncate);
    EXPECT_EQ(out, Bytes(24, 7)) << width << " x " << height << ", " << stride << ", " << length;
  }
  for (auto* refuses : {xSwapImageDataOrder, xTruncateImagePadding}) {
    EXPECT_TRUE(refuses(nullptr, 2, 2, 6, 12, target) == 1 &&
                refuses(from, 2, 2, 6, 12, none) == 1);
  }
  EXPECT_EQ(xImageUpsideDown(nullptr, 2, 6, 12, target), 1);
  EXPECT_EQ(xImageUpsideDown(from, 2, 6, 12, none), 1);
  const int flips[][5] = {{2, 6, 11, 1, 1},  {1 << 16, 1 << 16, 12, 1, 1},
                          {2, -6, 12, 0, 1}, {-2, 6, 12, 0, 1},
                          {-1, 6, 12, 0, 0}, {2, 0, 0, 0, 0}};
  for (const auto& [rows, rowBytes, length, apart, inPlace] : flips) {
    EXPECT_EQ(xImageUpsideDown(from, rows, rowBytes, length, target), apart);
    EXPECT_EQ(xImageUpsideDown(target, rows, rowBytes, length, target), inPlace) << rows;
  }
  EXPECT_EQ(out, Bytes(24, 7));
}

}  // namespace
