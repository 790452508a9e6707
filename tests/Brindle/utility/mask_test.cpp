#include "Brindle/utility/mask.h"

#include <cstdlib>

#include "support/Call.h"

namespace {

using support::checkTable;
using Bytes = std::vector<unsigned char>;

/// In a block of its own, as the contract asks. Returns the length.
long pack(unsigned char* bytes, int width, int height, Bytes& block) {
  auto* packed = static_cast<unsigned char*>(std::malloc(block.size()));
  std::copy(block.begin(), block.end(), packed);
  unsigned long length = 99;
  byte2BitData(bytes, width, height, packed, length);
  if (packed == nullptr) {
    block.clear();
  } else if (length > 0) {
    block.assign(packed, packed + length);
  }
  std::free(packed);
  return static_cast<long>(length);
}

TEST(MaskPacking, LosesTheLastByteOfRowsOfWholeBytes) {
  checkTable("mask-packing.txt", {{"byte2BitData", support::calls(pack)}});
}

TEST(MaskPacking, StaysInItsBlockWhereTheLengthWrapsAround) {
  Bytes row(1 << 19, 1), packed(1), expected(1 << 16, 0xFF);
  expected.back() = 0;
  pack(row.data(), 1 << 19, (1 << 16) + 1, packed);
  EXPECT_SAME(packed, expected);
}

TEST(MaskUnpacking, ClipsAtTheRightEdgeAndRefusesSilently) {
  checkTable("mask-unpacking.txt", {CALLS(bitData2Byte)});
}

TEST(MaskUnpacking, CountsRowBytesInSinglePrecision) {
  constexpr int kWidth = (1 << 24) + 1;  // 2^24 as a float: rows are 2^21 bytes apart
  Bytes packed(2 << 21), out(2), wide(2 * kWidth, 7);
  packed[1 << 21] = 0x80;
  bitData2Byte(packed.data(), kWidth, 2, out.data(), 1, 2, 0, 0, false);
  bitData2Byte(packed.data(), kWidth, 2, wide.data(), kWidth, 2, 0, 0, false);
  EXPECT_SAME(out, Bytes({0, 255}));
  EXPECT_SAME(Bytes({wide[kWidth - 1], wide.back()}), Bytes({0, 0}));
}

TEST(MaskOverlap, LooksAtSetPixelsOnTheCanvas) {
  checkTable("mask-overlap.txt", {CALLS(maskMaskOverlap)});
}

TEST(MaskErosion, KeepsWhatIsSurroundedByForeground) {
  checkTable("mask-erosion.txt", {CALLS(erosion)});
}

TEST(MaskAndSegment, TouchOrLieAsideAsInTheTable) {
  checkTable("mask-segment.txt", {CALLS(lineSegmentMaskIntersect)});
}

}  // namespace
