// Packing, unpacking, overlap and erosion of masks of 1000 x 1001 pixels, against pixel loops.
#include "Brindle/utility/mask.h"

#include <cstdlib>

#include "ratio.h"
#include "reference/PlainPixels.h"
#include "support/Pixels.h"

namespace {

constexpr int kWidth = 1000, kHeight = 1001, kRowBytes = kWidth / 8;

void packing() {
  auto fast = [pixels = Random().bytes(kWidth * kHeight, 2)]() mutable {
    unsigned char* packed = nullptr;
    unsigned long length = 0;
    byte2BitData(pixels.data(), kWidth, kHeight, packed, length);
    Bytes result(packed, packed + length);
    std::free(packed);
    return result;
  };
  const auto plain = [pixels = Random().bytes(kWidth * kHeight, 2)] {
    Bytes result(kRowBytes * kHeight);
    plainPack(pixels.data(), kWidth, kHeight, result.data());
    return result;
  };
  bench::pair("byte2BitData", fast, plain, [=]() mutable { return fast() == plain(); });
}

void unpacking() {
  auto fast = [packed = Random().bytes(kRowBytes * kHeight),
               out = Bytes(kWidth * kHeight)]() mutable -> Bytes& {
    bitData2Byte(packed.data(), kWidth, kHeight, out.data(), kWidth, kHeight, 0, 0, false);
    return out;
  };
  auto plain = [packed = Random().bytes(kRowBytes * kHeight),
                out = Bytes(kWidth * kHeight)]() mutable -> Bytes& {
    plainUnpack({packed.data(), kWidth, kHeight, 0, 0}, out.data(), kWidth);
    return out;
  };
  bench::pair("bitData2Byte", fast, plain, [=]() mutable { return fast() == plain(); });
}

/// Two masks of alternating columns, the second `shift` columns to the right.
void overlap(const char* name, int shift, bool isExpected) {
  constexpr int kCanvas = 2 * kWidth;
  auto fast = [=, bits = Bytes(kRowBytes * kHeight, 0xAA)]() mutable {
    return maskMaskOverlap(kCanvas, kHeight, bits.data(), kWidth, kHeight, 0, 0, bits.data(),
                           kWidth, kHeight, shift, 0);
  };
  const auto plain = [=, bits = Bytes(kRowBytes * kHeight, 0xAA)] {
    return plainOverlap(kCanvas, kHeight, {bits.data(), kWidth, kHeight, 0, 0},
                        {bits.data(), kWidth, kHeight, shift, 0});
  };
  bench::pair(name, fast, plain,
              [=]() mutable { return fast() == isExpected && plain() == isExpected; });
}

template <class Erode>
auto eroder(Erode erode) {
  Bytes image = Random().bytes(kWidth * kHeight, 1);
  for (unsigned char& pixel : image)
    pixel = static_cast<unsigned char>(pixel < 12 ? 0 : pixel | 128);
  return [=, image = image, copy = image]() mutable {
    copy = image;
    return erode(copy.data(), kWidth, kHeight);
  };
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  packing();
  unpacking();
  overlap("maskMaskOverlap/nothingInCommon", 1, false);
  overlap("maskMaskOverlap/nothingInCommonFarther", 105, false);
  overlap("maskMaskOverlap/firstPixel", 0, true);
  auto fast = eroder(erosion);
  auto plain = eroder(plainErosion);
  bench::pair("erosion (with a copy of the image)", fast, plain,
              [=]() mutable { return fast() == plain(); });
  benchmark::RunSpecifiedBenchmarks();
}
