// Packing, unpacking, overlap and erosion against their plain twins, in blocks of exactly the sizes
// that the contracts ask for. Input: twelve bytes of sizes and places, then pixels.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "Brindle/utility/mask.h"
#include "reference/PlainPixels.h"

namespace {

using Bytes = std::vector<unsigned char>;

void check(bool holds) {
  if (!holds) std::abort();
}

/// `size` bytes of the input, which begins again where it ends.
Bytes take(const std::uint8_t* data, std::size_t size, std::size_t wanted) {
  Bytes bytes(wanted);
  for (std::size_t i = 0; i < wanted; ++i) bytes[i] = data[i % size];
  return bytes;
}

std::size_t area(int a, int b) {
  return static_cast<std::size_t>(a) * static_cast<std::size_t>(b);
}

void checkPacking(Bytes pixels, int width, int height) {
  unsigned char* packed = nullptr;
  unsigned long length = 0;
  byte2BitData(pixels.data(), width, height, packed, length);
  Bytes expected(area((width + 7) / 8, height));
  plainPack(pixels.data(), width, height, expected.data());
  check(length == expected.size() && std::memcmp(packed, expected.data(), length) == 0);
  std::free(packed);
}

void checkErosion(Bytes pixels, int width, int height) {
  Bytes expected = pixels;
  const int count = plainErosion(expected.data(), width, height);
  check(erosion(pixels.data(), width, height) == count && pixels == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 16) return 0;
  const int width = data[0] % 140 + 1;
  const int height = data[1] % 12 + 1;
  const int canvasWidth = data[2] % 160 + 1;
  const int canvasHeight = height + data[3] % 8;
  const int otherWidth = data[4] % 140 + 1;
  const int otherHeight = data[5] % 12 + 1;
  const int x = data[6] % canvasWidth;
  const int y = data[7] % (canvasHeight - height + 1);
  const int otherX = data[8] % canvasWidth;
  const int otherY = data[9] % canvasHeight;
  data += 12;
  size -= 12;

  checkPacking(take(data, size, area(width, height)), width, height);
  checkErosion(take(data, size, area(width, height)), width, height);

  Bytes packed = take(data, size, area((width + 7) / 8, height));
  const PlainMask mask{packed.data(), width, height, x, y};
  Bytes out(area(canvasWidth, canvasHeight), 7);
  Bytes expected = out;
  bitData2Byte(packed.data(), width, height, out.data(), canvasWidth, canvasHeight, x, y, false);
  plainUnpack(mask, expected.data(), canvasWidth);
  check(out == expected);

  Bytes otherPacked =
      take(data + size / 2, size - size / 2, area((otherWidth + 7) / 8, otherHeight));
  const PlainMask other{otherPacked.data(), otherWidth, otherHeight, otherX, otherY};
  check(maskMaskOverlap(canvasWidth, canvasHeight, packed.data(), width, height, x, y,
                        otherPacked.data(), otherWidth, otherHeight, otherX,
                        otherY) == plainOverlap(canvasWidth, canvasHeight, mask, other));
  return 0;
}
