// Copying regions and swapping channels against their plain twins, in blocks of exactly the sizes
// that the contracts ask for. Input: sizes and places, then pixels.
#include "Brindle/utility/imageBuffer.h"

#include <algorithm>

#include "Input.h"
#include "reference/PlainPixels.h"

namespace {

/// An image of up to 9 rows with up to 7 bytes of padding, and a place in it or near.
PlainImage imageFrom(Input& input, int widest, int bytesPerPixel) {
  const int width = input.between(1, widest);
  const int stride = width * bytesPerPixel + input.between(0, 7);
  return {nullptr,
          width,
          input.between(1, 9),
          stride,
          input.between(-9, width / 2 + 2),
          input.between(-3, 5)};
}

void checkCopy(Input& input, int widest) {
  const int bytesPerPixel = input.between(1, 5);
  PlainImage from = imageFrom(input, widest, bytesPerPixel);
  PlainImage to = imageFrom(input, widest, bytesPerPixel);
  const int width = input.between(-1, widest + 10);
  const int height = input.between(-1, 9);
  const bool clears = input.between(0, 3) == 0;
  const int maskStride = from.width + input.between(0, 4);
  Block mask = input.block(maskStride * from.height, input.between(1, 4));
  unsigned char* const maskBytes = input.between(0, 1) == 0 ? nullptr : mask.data();
  Block source = input.block(from.stride * from.height);
  Block copied = input.block(to.stride * to.height);
  Block expected = copied;
  from.bytes = source.data();
  to.bytes = expected.data();
  if (clears) std::fill_n(to.bytes, to.stride * to.height, 0);
  plainCopy(from, to, bytesPerPixel, width, height, maskBytes, maskStride);
  const bool isDone =
      copyImageAnywhere(from.bytes, from.width, from.height, from.stride, bytesPerPixel, from.x,
                        from.y, width, height, copied.data(), to.width, to.height, to.stride, to.x,
                        to.y, clears, maskBytes, maskStride);
  check(isDone && copied == expected, "copyImageAnywhere", width, height);
}

/// Into another image, which may begin with the same byte, or in place.
void checkSwap(Input& input, int widest) {
  const PlainImage size = imageFrom(input, widest, 3);
  const int length = size.stride * size.height;
  Block source = input.block(length);
  Block swapped = input.block(length);
  if (input.between(0, 3) == 0) swapped.data()[0] = source.data()[0];
  Block expected = swapped;
  const bool inPlace = input.between(0, 3) == 0;
  plainSwap(inPlace ? expected.data() : source.data(), size.width, size.height, size.stride,
            expected.data());
  unsigned char* target = swapped.data();
  const int status = xSwapImageDataOrder(inPlace ? target : source.data(), size.width, size.height,
                                         size.stride, length, target);
  check(status == 0 && swapped == expected, "xSwapImageDataOrder", size.width, size.height);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 16) return 0;
  Input input(data, size);
  const int widest = input.between(0, 1) == 0 ? 20 : 300;
  checkCopy(input, widest);
  checkSwap(input, widest);
  return 0;
}
