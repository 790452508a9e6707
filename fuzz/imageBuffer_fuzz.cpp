// Copying regions and swapping channels against their plain twins, in blocks of exactly the sizes
// that the contracts ask for. Input: fourteen bytes of sizes and places, then pixels.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "Brindle/utility/imageBuffer.h"
#include "reference/PlainPixels.h"

namespace {

using Bytes = std::vector<unsigned char>;

void check(bool holds) {
  if (!holds) std::abort();
}

Bytes take(const std::uint8_t* data, std::size_t size, int wanted) {
  Bytes bytes(static_cast<std::size_t>(wanted));
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = data[i % size];
  return bytes;
}

struct Size {
  int width, height, stride;
};

/// Three bytes of the input: up to 70 x 10 pixels and up to 7 bytes of padding.
Size sizeFrom(const std::uint8_t* data, int bytesPerPixel) {
  const int width = data[0] % 70 + 1;
  return {width, data[1] % 10 + 1, width * bytesPerPixel + data[2] % 8};
}

int placeFrom(std::uint8_t byte) {
  return byte % 100 - 20;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 16) return 0;
  const int bytesPerPixel = data[0] % 5 + 1;
  const Size from = sizeFrom(data + 1, bytesPerPixel);
  const Size to = sizeFrom(data + 4, bytesPerPixel);
  const int x = placeFrom(data[7]);
  const int y = placeFrom(data[8]) / 4;
  const int toX = placeFrom(data[9]);
  const int toY = placeFrom(data[10]) / 4;
  const int regionWidth = data[11] % 90;
  const int regionHeight = data[12] % 14;
  const bool isMasked = data[13] % 2 != 0;
  const int maskStride = from.width + data[13] % 5;
  data += 14;
  size -= 14;

  Bytes source = take(data, size, from.stride * from.height);
  Bytes mask = take(data, size, maskStride * from.height);
  Bytes copied(static_cast<std::size_t>(to.stride * to.height), 7);
  Bytes expected = copied;
  check(copyImageAnywhere(source.data(), from.width, from.height, from.stride, bytesPerPixel, x, y,
                          regionWidth, regionHeight, copied.data(), to.width, to.height, to.stride,
                          toX, toY, false, isMasked ? mask.data() : nullptr, maskStride));
  plainCopy({source.data(), from.width, from.height, from.stride, x, y},
            {expected.data(), to.width, to.height, to.stride, toX, toY}, bytesPerPixel, regionWidth,
            regionHeight, isMasked ? mask.data() : nullptr, maskStride);
  check(copied == expected);

  const Size colours{from.width, from.height, from.width * 3 + from.stride % 8};
  const Bytes image = take(data, size, colours.stride * colours.height);
  Bytes swapped(image.size(), static_cast<unsigned char>(image[0] + 1));
  Bytes expectedSwap(image.size(), static_cast<unsigned char>(image[0] + 1));
  unsigned char* target = swapped.data();
  check(xSwapImageDataOrder(image.data(), colours.width, colours.height, colours.stride,
                            static_cast<int>(image.size()), target) == 0);
  plainSwap(image.data(), colours.width, colours.height, colours.stride, expectedSwap.data());
  check(swapped == expectedSwap);
  return 0;
}
