#include "Brindle/utility/mask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string>

#include "reference/PlainPixels.h"
#include "support/Pixels.h"

namespace {

struct Packed {
  Packed(unsigned char* pixels, int width, int height) {
    testing::internal::CaptureStdout();
    byte2BitData(pixels, width, height, data, length);
    printed = testing::internal::GetCapturedStdout();
    if (data != nullptr && data != old) bytes.assign(data, data + length);
  }
  ~Packed() { std::free(data); }

  unsigned char *const old = static_cast<unsigned char*>(std::malloc(1)), *data = old;
  unsigned long length = 99;
  std::string printed;
  Bytes bytes;
};

TEST(MaskPacking, AgreesWithTheBitLoopAndLosesTheLastByteOfWholeOnes) {
  Bytes ones(16, 1);
  EXPECT_EQ(Packed(ones.data(), 8, 2).bytes, Bytes({0, 0}));
  Random random;
  for (int width = 1; width <= 260; ++width) {
    const int height = random.between(1, 4), offset = width % 31;
    Bytes mask = random.bytes(offset + width * height, 2);
    Bytes expected(static_cast<std::size_t>((width + 7) / 8 * height));
    plainPack(mask.data() + offset, width, height, expected.data());
    ASSERT_EQ(Packed(mask.data() + offset, width, height).bytes, expected) << width;
  }
}

TEST(MaskPacking, RefusesWithAMessage) {
  const std::string invalid = "invalid input", noMemory = "cannot allocate output memory";
  const std::string empty = "unknown error occurs where packed data length is invalid";
  unsigned char pixel = 1;
  // clang-format off
  const struct { unsigned char* pixels; int width, height; std::string text; unsigned long length; }
  cases[] = {{&pixel,  0,       1,       invalid,  0},
             {&pixel,  1,       0,       invalid,  0},
             {nullptr, 1,       1,       invalid,  0},
             {&pixel,  -14,     1,       empty,    0},
             {&pixel,  1 << 19, 1 << 16, empty,    0},  // 2^32 bytes
             {&pixel,  -15,     3,       noMemory, ~0UL - 2},
             {&pixel,  INT_MAX, 1,       noMemory, ~0UL - (1UL << 28) + 2}};  // wraps around
  // clang-format on
  for (const auto& [pixels, width, height, text, length] : cases) {
    const Packed packed(pixels, width, height);
    EXPECT_EQ(packed.printed, "Error: " + text + " (inside byte2BitData(...))!\n");
    EXPECT_EQ(packed.length, length) << width << " x " << height;
    EXPECT_TRUE(packed.data == (text == invalid ? packed.old : nullptr)) << width;
  }
}

TEST(MaskPacking, StaysInItsBlockWhereTheLengthWrapsAround) {
  Bytes row(1 << 19, 1), expected(1 << 16, 0xFF);
  expected.back() = 0;
  EXPECT_TRUE(Packed(row.data(), 1 << 19, (1 << 16) + 1).bytes == expected);
  EXPECT_EQ(Packed(row.data(), -20, -3).bytes, Bytes(3, 0));
}

TEST(MaskUnpacking, AgreesWithTheBitLoopAndWritesNothingElse) {
  Random random;
  for (int i = 0; i < 4000; ++i) {
    const int width = i % 200 + 1, height = random.between(1, 4), guard = random.between(64, 95);
    const int outWidth = random.between(1, 220), outHeight = height + random.between(0, 2);
    const int x0 = random.between(0, outWidth - 1), y0 = random.between(0, outHeight - height);
    Bytes packed = random.bytes((width + 7) / 8 * height);
    Bytes out(static_cast<std::size_t>(outWidth * outHeight + 2 * guard), 7), expected = out;
    if (i % 2 == 0) std::fill_n(expected.begin() + guard, outWidth * outHeight, 0);
    plainUnpack({packed.data(), width, height, x0, y0}, expected.data() + guard, outWidth);
    bitData2Byte(packed.data(), width, height, out.data() + guard, outWidth, outHeight, x0, y0,
                 i % 2 == 0);
    ASSERT_EQ(out, expected) << width << " x " << height << " in " << outWidth << " at " << x0;
  }
}

TEST(MaskUnpacking, RefusesSilentlyBeforeClearing) {
  const int cases[][6] = {{0, 2, 4, 2, 0, 0},  {4, 0, 4, 2, 0, 0},      {4, 2, 0, 2, 0, 0},
                          {4, 2, 4, 0, 0, 0},  {4, 1, 4, 2, 0, 2},      {4, 2, 4, 2, 4, 0},
                          {4, 2, 4, 2, 0, -1}, {4, 2, 4, 2, 0, 1},      {4, 2, 4, 2, -1, 0},
                          {4, 3, 4, 2, 0, 0},  {4, INT_MAX, 4, 2, 0, 1}};
  Bytes out(8, 7), packed(2, 0xFF);
  for (const auto& [width, height, outWidth, outHeight, x0, y0] : cases) {
    bitData2Byte(packed.data(), width, height, out.data(), outWidth, outHeight, x0, y0, true);
    EXPECT_EQ(out, Bytes(8, 7)) << width << " x " << height << " at " << x0 << ", " << y0;
  }
  bitData2Byte(packed.data(), 4, 2, nullptr, 4, 2, 0, 0, true);
  bitData2Byte(nullptr, 4, 2, out.data(), 4, 2, 0, 0, true);
  EXPECT_EQ(out, Bytes(8, 7));
}

TEST(MaskUnpacking, CountsRowBytesInSinglePrecision) {
  constexpr int kWidth = (1 << 24) + 1;  // 2^24 as a float: rows are 2^21 bytes apart
  Bytes packed(2 << 21), out(2), wide(kWidth, 7);
  packed[1 << 21] = 0x80;
  bitData2Byte(packed.data(), kWidth, 2, out.data(), 1, 2, 0, 0, false);
  bitData2Byte(packed.data(), kWidth, 1, wide.data(), kWidth, 1, 0, 0, false);
  EXPECT_EQ(out, Bytes({0, 255}));
  EXPECT_EQ(wide.back(), 0);
}

bool overlap(int canvasWidth, int canvasHeight, const PlainMask& a, const PlainMask& b) {
  const auto bits = [](const PlainMask& mask) { return const_cast<unsigned char*>(mask.packed); };
  return maskMaskOverlap(canvasWidth, canvasHeight, bits(a), a.width, a.height, a.x, a.y, bits(b),
                         b.width, b.height, b.x, b.y);
}

TEST(MaskOverlap, AgreesWithUnpackedMasksAlsoPastTheRightEdge) {
  Random random;
  int overlaps = 0;
  for (int i = 0; i < 12000; ++i) {
    const int width = random.between(1, i % 2 == 0 ? 20 : 700), height = random.between(1, 6);
    Bytes bits[2];  // those behind a row's last pixel are set as well
    PlainMask masks[2];
    for (int k = 0; k < 2; ++k) {
      const int size[] = {random.between(1, 600), random.between(1, 6)};
      bits[k] = random.bytes((size[0] + 7) / 8 * size[1], 1 << random.between(0, 5));
      masks[k] = {bits[k].data(), size[0], size[1], random.between(0, width - 1),
                  random.between(0, height - 1)};
    }
    const bool expected = plainOverlap(width, height, masks[0], masks[1]);
    overlaps += expected;
    ASSERT_EQ(overlap(width, height, masks[0], masks[1]), expected) << i;
  }
  EXPECT_TRUE(overlaps > 1200 && overlaps < 10800) << overlaps;
}

TEST(MaskOverlap, RefusesWithAMessage) {
  const unsigned char bit = 0x80;
  const PlainMask good{&bit, 3, 1, 1, 1};
  const PlainMask bad[] = {{nullptr, 3, 1, 1, 1}, {&bit, 0, 1, 1, 1},  {&bit, 3, 0, 1, 1},
                           {&bit, 3, 1, 4, 1},    {&bit, 3, 1, -1, 1}, {&bit, 3, 1, 1, 2},
                           {&bit, 3, 1, 1, -1}};
  EXPECT_TRUE(overlap(4, 2, good, good));
  std::string expected;
  for (int i = 0; i < 16; ++i) expected += "Error: invalid input (inside maskMaskOverlap(...))!\n";
  testing::internal::CaptureStdout();
  for (const auto& c : bad) EXPECT_FALSE(overlap(4, 2, c, good) || overlap(4, 2, good, c));
  EXPECT_FALSE(overlap(0, 2, good, good) || overlap(4, 0, good, good));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), expected);
}

TEST(Erosion, AgreesWithThePixelLoop) {
  Random random;
  const Bytes values = {126, 127, 128, 200, 255, 0};
  for (int i = 0; i < 3000; ++i) {
    const int width = i % 2 == 0 ? random.between(0, 130) : random.between(250, 530);
    const int height = random.between(0, 6);
    Bytes image = random.bytes(width * height + 40, random.between(1, 60));
    for (auto& pixel : image) pixel = values[pixel != 0 ? pixel % 6U : 3U];
    Bytes expected = image;
    const int count = plainErosion(expected.data() + 20, width, height);
    ASSERT_EQ(erosion(image.data() + 20, width, height), count) << width << " x " << height;
    ASSERT_EQ(image, expected) << width << " x " << height;
  }
  EXPECT_EQ(erosion(nullptr, 3, 3), 0);
}

TEST(SegmentAndMask, HasAnOutcomeForEachPosition) {
  using Pixels = std::vector<std::size_t>;  // row * width + column of the set ones
  // clang-format off
  const struct {
    const char* name; int x, y, width, height; Pixels set; int x1, y1, x2, y2, side;
  } cases[] = {
      {"touches", 10, 20, 3, 3, {4}, 12, 21, 10, 21, 0},
      {"touches from less than a row above", 0, 0, 4, 3, {1}, 4, 1, 0, -1, 0},
      {"touches with its end", 0, 0, 3, 3, {1, 3}, 0, 1, -5, 1, 0},
      {"touches in single precision alone", 0, 0, 2, 2, {1, 2}, 6, 3, 0, 1, 0},
      {"touches by the order of rounding", 0, 0, 3, 3, {7}, 1, 3, 14, 10, 0},
      {"passes right behind the last column", 0, 0, 3, 2, {3}, 3, 0, 3, 1, -1},
      {"the extension touches, most is left", 0, 0, 3, 4, {3}, -2, 1, -5, 1, 1},
      {"... right, though the set pixels are left", 0, 0, 3, 4, {9, 10, 6}, -2, 2, -5, 2, -1},
      {"... as much on both sides", 0, 0, 3, 3, {3}, 5, 1, 1, 1, 1},
      {"... in y, most is left", 0, 0, 4, 3, {3}, 3, -2, 3, -5, 1},
      {"the line passes below, first pixel left", 5, 5, 3, 3, {4}, 9, 4, 0, 4, 1},
      {"first pixel on the line that the walk misses", 0, 0, 23, 14, {321}, -22, -13, 0, 0, 0},
      {"no length, at the set pixel", 0, 0, 3, 3, {4}, 1, 1, 1, 1, 0},
      {"no length, nothing set", 0, 0, 3, 3, {}, 1, 1, 1, 1, -1},
      {"nothing set, centre left", 7, 7, 3, 3, {}, 7, 7, 7, 9, 1},
      {"nothing set, centre on the line", 7, 7, 3, 3, {}, 9, 8, 7, 8, -1},
      {"nothing set, centre of even sizes on the line", 0, 0, 4, 4, {}, 0, 4, 4, 0, -1},
      {"no columns, centre left", 7, 7, -3, 3, {}, 9, 7, 7, 7, 1},
      {"far away", 0, 0, 2, 2, {3}, INT_MAX, 9, -INT_MAX, 9, -1},
      {"a mask behind the largest number", INT_MAX, 0, 3, 3, {1}, INT_MIN, 2, INT_MIN, 0, -1}};
  // clang-format on
  for (const auto& [name, x, y, width, height, set, x1, y1, x2, y2, side] : cases) {
    Bytes mask(400);
    for (const std::size_t at : set) mask[at] = 1;
    EXPECT_EQ(lineSegmentMaskIntersect(mask.data(), x, y, width, height, x1, y1, x2, y2), side)
        << name;
  }
  testing::internal::CaptureStdout();
  EXPECT_EQ(lineSegmentMaskIntersect(nullptr, 0, 0, 3, 3, 0, 0, 1, 1), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Error: invalid input (inside lineSegmentMaskIntersect(...))!\n");
}

}  // namespace
