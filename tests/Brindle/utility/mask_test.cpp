#include "Brindle/utility/mask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "support/Pixels.h"

namespace {

using support::checkTable;
using support::givesPixels;
using support::PixelRow;

/// The second block is what `packed` is before, and becomes what it is after. Returns the length.
long pack(PixelRow& row) {
  Bytes& block = row.blocks[1];
  auto* packed = static_cast<unsigned char*>(std::malloc(block.size()));
  std::copy(block.begin(), block.end(), packed);
  unsigned long length = 99;
  byte2BitData(row.bytes(0), row[0], row[1], packed, length);
  if (packed == nullptr) {
    block.clear();
  } else if (length > 0) {
    block.assign(packed, packed + length);
  }
  std::free(packed);
  return static_cast<long>(length);
}

TEST(MaskPacking, LosesTheLastByteOfRowsOfWholeBytes) {
  checkTable("mask-packing.txt", {{"byte2BitData", givesPixels(pack)}});
}

TEST(MaskPacking, StaysInItsBlockWhereTheLengthWrapsAround) {
  Bytes row(1 << 19, 1), expected(1 << 16, 0xFF);
  expected.back() = 0;
  unsigned char* packed = nullptr;
  unsigned long length = 0;
  byte2BitData(row.data(), 1 << 19, (1 << 16) + 1, packed, length);
  EXPECT_SAME(Bytes(packed, packed + length), expected);
  std::free(packed);
}

long unpack(PixelRow& row) {
  bitData2Byte(row.bytes(0), row[0], row[1], row.bytes(1), row[2], row[3], row[4], row[5],
               row[6] != 0);
  return 0;
}

TEST(MaskUnpacking, ClipsAtTheRightEdgeAndRefusesSilently) {
  checkTable("mask-unpacking.txt", {{"bitData2Byte", givesPixels(unpack)}});
}

TEST(MaskUnpacking, CountsRowBytesInSinglePrecision) {
  constexpr int kWidth = (1 << 24) + 1;  // 2^24 as a float: rows are 2^21 bytes apart
  Bytes packed(2 << 21), out(2), wide(kWidth, 7);
  packed[1 << 21] = 0x80;
  bitData2Byte(packed.data(), kWidth, 2, out.data(), 1, 2, 0, 0, false);
  bitData2Byte(packed.data(), kWidth, 1, wide.data(), kWidth, 1, 0, 0, false);
  EXPECT_SAME(out, Bytes({0, 255}));
  EXPECT_EQ(wide.back(), 0);
}

long overlap(PixelRow& row) {
  return maskMaskOverlap(row[0], row[1], row.bytes(0), row[2], row[3], row[4], row[5], row.bytes(1),
                         row[6], row[7], row[8], row[9]);
}

TEST(MaskOverlap, LooksAtSetPixelsOnTheCanvas) {
  checkTable("mask-overlap.txt", {{"maskMaskOverlap", givesPixels(overlap)}});
}

long erode(PixelRow& row) {
  return erosion(row.bytes(0), row[0], row[1]);
}

TEST(MaskErosion, KeepsWhatIsSurroundedByForeground) {
  checkTable("mask-erosion.txt", {{"erosion", givesPixels(erode)}});
}

long findSide(PixelRow& row) {
  return lineSegmentMaskIntersect(row.bytes(0), row[0], row[1], row[2], row[3], row[4], row[5],
                                  row[6], row[7]);
}

TEST(MaskAndSegment, TouchOrLieAsideAsInTheTable) {
  checkTable("mask-segment.txt", {{"lineSegmentMaskIntersect", givesPixels(findSide)}});
}

}  // namespace
