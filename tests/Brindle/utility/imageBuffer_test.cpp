#include "Brindle/utility/imageBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "reference/PlainPixels.h"
#include "support/Pixels.h"

namespace {

struct Copy {
  PlainImage from, to;
  int bytesPerPixel, width, height;
  unsigned char* mask = nullptr;
  int maskStride = 0;
  bool clears = false;

  bool run() const {
    return copyImageAnywhere(from.bytes, from.width, from.height, from.stride, bytesPerPixel,
                             from.x, from.y, width, height, to.bytes, to.width, to.height,
                             to.stride, to.x, to.y, clears, mask, maskStride);
  }
};

TEST(CopyingAnywhere, AgreesWithThePixelLoopAndWritesNothingElse) {
  Random random;
  for (int i = 0; i < 20000; ++i) {
    const int widest = i % 3 == 0 ? 130 : 12, pixelBytes = random.between(1, 5);
    Copy copy{{}, {}, pixelBytes, random.between(-1, widest + 10), random.between(-1, 6)};
    copy.clears = i % 5 == 0;
    for (PlainImage* image : {&copy.from, &copy.to}) {
      const int width = random.between(1, widest), stride = width * pixelBytes + i % 6;
      *image = {nullptr, width, i % 4 + 1, stride, random.between(-6, 14), random.between(-3, 4)};
    }
    const int size = copy.to.stride * copy.to.height, guard = 40 + i % 8;
    Bytes source = random.bytes(copy.from.stride * copy.from.height);
    Bytes mask = random.bytes(130 * 4, random.between(1, 4));
    Bytes destination = random.bytes(size + 2 * guard), expected = destination;
    if (i % 2 == 0) copy.mask = mask.data(), copy.maskStride = 130;
    copy.from.bytes = source.data();
    copy.to.bytes = expected.data() + guard;
    if (copy.clears) std::fill_n(copy.to.bytes, size, 0);
    plainCopy(copy.from, copy.to, pixelBytes, copy.width, copy.height, copy.mask, 130);
    copy.to.bytes = destination.data() + guard;
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
  std::copy_n(image.begin(), 39, shifted.begin() + 1);
  EXPECT_TRUE(shift(smeared, smeared, ones.data()) && shift(image, image, nullptr));
  EXPECT_TRUE(smeared == Bytes(40, image[0]) && image == shifted);
  // A destination that is its own mask: what was copied selects what comes next.
  for (int i = 0; i < 40; ++i) image.data()[i] = static_cast<unsigned char>(i % 2 ? 0 : i + 1);
  EXPECT_TRUE(shift(image, ones, ones.data()));
  for (std::size_t i = 1; i < 40; ++i) EXPECT_EQ(ones[i], i % 2) << i;
}

TEST(CopyingAnywhere, StaysInTheImagesForTheLargestNumbers) {
  const int values[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 2, INT_MAX - 1, INT_MAX};
  for (int i = 0; i < 8 * 8 * 8 * 8; ++i) {
    const int a = values[i % 8], b = values[i / 8 % 8], width = values[i / 64 % 8];
    Bytes source(8, 1), mask(8, 1), out(16, 0);
    const PlainImage from{source.data(), 4, 2, 4, a, b}, to{out.data() + 4, 4, 2, 4, b, a};
    Copy copy{from, to, 1, width, values[i / 512], i % 3 ? nullptr : mask.data(), 4};
    EXPECT_TRUE(copy.run());
    std::fill_n(out.begin() + 4, 8, 0);
    ASSERT_EQ(out, Bytes(16, 0)) << i;
  }
}

TEST(CopyingAnywhere, RefusesBeforeClearing) {
  unsigned char pixel = 1, kept = 7;
  const Copy good{{&pixel, 1, 1, 1, 0, 0}, {&kept, 1, 1, 1, 0, 0}, 1, 1, 1, &pixel, 1, true};
  std::vector<Copy> cases(10, good);
  cases[0].from.bytes = cases[1].to.bytes = nullptr;
  cases[2].from.width = cases[3].from.height = cases[4].from.stride = 0;
  cases[5].to.width = cases[6].to.height = cases[7].to.stride = 0;
  cases[8].bytesPerPixel = cases[9].maskStride = 0;
  for (const Copy& copy : cases) {
    testing::internal::CaptureStdout();
    EXPECT_TRUE(!copy.run() && kept == 7) << &copy - cases.data();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error: invalid input (inside copyImage)!\n");
  }
}

TEST(Flipping, InPlaceRepeatsTheRowAboveTheMiddle) {
  const std::vector<int> inPlace[] = {{}, {0}, {0, 0}, {0, 1, 0}, {3, 1, 1, 0}, {4, 1, 2, 1, 0}};
  for (int i = 0; i < 6 * 600; ++i) {
    const int rows = i % 6, rowBytes = i / 6, size = rows * rowBytes;
    Bytes source = Random().bytes(size + 9), other = source, here = source, there = source;
    for (int r = 0; r < rows; ++r) {
      const auto copyTo = [&](Bytes& expected, int from) {
        std::copy_n(source.begin() + from * rowBytes, rowBytes, expected.begin() + r * rowBytes);
      };
      copyTo(here, inPlace[rows].data()[r]);
      copyTo(there, rows - 1 - r);
    }
    unsigned char *target = source.data(), *otherTarget = other.data();
    EXPECT_EQ(xImageUpsideDown(target, rows, rowBytes, size, otherTarget), 0);
    EXPECT_EQ(xImageUpsideDown(target, rows, rowBytes, size, target), 0);
    ASSERT_TRUE(source == here && other == there) << rows << " x " << rowBytes;
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
  constexpr int kMost = INT_MAX, kLeast = INT_MIN;
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
    EXPECT_EQ(refuses(nullptr, 2, 2, 6, 12, target), 1);
    EXPECT_EQ(refuses(from, 2, 2, 6, 12, none), 1);
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
