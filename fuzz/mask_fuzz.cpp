// Packing, unpacking, overlap and erosion against their plain twins, in blocks of exactly the sizes
// that the contracts ask for. Input: sizes and places, then pixels.
#include "Brindle/utility/mask.h"

#include <algorithm>
#include <cstring>

#include "Input.h"
#include "reference/PlainPixels.h"

namespace {

void checkPacking(Block pixels, int width, int height) {
  unsigned char* packed = nullptr;
  unsigned long length = 0;
  byte2BitData(pixels.data(), width, height, packed, length);
  std::vector<unsigned char> expected(static_cast<std::size_t>((width + 7) / 8 * height));
  plainPack(pixels.data(), width, height, expected.data());
  check(length == expected.size() && std::memcmp(packed, expected.data(), length) == 0,
        "byte2BitData", width, height);
  std::free(packed);
}

void checkErosion(Block pixels, int width, int height) {
  Block expected = pixels;
  const int count = plainErosion(expected.data(), width, height);
  check(erosion(pixels.data(), width, height) == count && pixels == expected, "erosion", width,
        height);
}

void checkUnpacking(const PlainMask& mask, Block out, int outWidth, int outHeight, bool clears) {
  Block expected = out;
  if (clears) std::fill_n(expected.data(), outWidth * outHeight, 0);
  plainUnpack(mask, expected.data(), outWidth);
  bitData2Byte(const_cast<unsigned char*>(mask.packed), mask.width, mask.height, out.data(),
               outWidth, outHeight, mask.x, mask.y, clears);
  check(out == expected, "bitData2Byte", mask.width, mask.height);
}

void checkOverlap(int canvasWidth, int canvasHeight, const PlainMask& a, const PlainMask& b) {
  const bool meet = maskMaskOverlap(
      canvasWidth, canvasHeight, const_cast<unsigned char*>(a.packed), a.width, a.height, a.x, a.y,
      const_cast<unsigned char*>(b.packed), b.width, b.height, b.x, b.y);
  check(meet == plainOverlap(canvasWidth, canvasHeight, a, b), "maskMaskOverlap", a.width,
        a.height);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 16) return 0;
  Input input(data, size);
  const int widest = input.between(0, 1) == 0 ? 40 : 700;
  const int width = input.between(1, widest);
  const int height = input.between(1, 6);
  checkPacking(input.block(width * height, input.between(1, 3)), width, height);
  checkErosion(input.block(width * height), width, height);

  const int canvasWidth = input.between(1, widest);
  const int canvasHeight = height + input.between(0, 5);
  const int otherWidth = input.between(1, widest);
  const int otherHeight = input.between(1, 6);
  const int oneIn = 1 << input.between(0, 6);
  Block packed = input.block((width + 7) / 8 * height, oneIn);
  Block otherPacked = input.block((otherWidth + 7) / 8 * otherHeight, oneIn);
  const PlainMask mask{packed.data(), width, height, input.between(0, canvasWidth - 1),
                       input.between(0, canvasHeight - height)};
  const PlainMask other{otherPacked.data(), otherWidth, otherHeight,
                        input.between(0, canvasWidth - 1), input.between(0, canvasHeight - 1)};
  const bool clears = input.between(0, 1) == 1;
  checkUnpacking(mask, input.block(canvasWidth * canvasHeight), canvasWidth, canvasHeight, clears);
  checkOverlap(canvasWidth, canvasHeight, mask, other);
  checkOverlap(canvasWidth, canvasHeight, other, mask);
  return 0;
}
