// Packing, unpacking, overlap and erosion of masks of 1000 x 1001 pixels, against pixel loops and,
// as far as one is known, against the best kernel.
#include "Brindle/utility/mask.h"

#include <cstdlib>
#include <string>

#include "mask_kernels.h"
#include "randomPixels.h"
#include "ratio.h"
#include "reference/PlainPixels.h"

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

/// Both allocate, as packing does.
void packingOverKernel(int width) {
  const Bytes pixels = Random().bytes(width * kHeight + bench::kPadding, 2);
  const auto length = static_cast<std::size_t>((width + 7) / 8 * kHeight);
  const auto take = [=](unsigned char* packed, Bytes* kept) {
    benchmark::DoNotOptimize(packed);
    if (kept != nullptr) kept->assign(packed, packed + length);
    std::free(packed);
  };
  auto fast = [=, pixels = pixels](Bytes* kept = nullptr) mutable {
    unsigned char* packed = nullptr;
    unsigned long bytes = 0;
    byte2BitData(pixels.data(), width, kHeight, packed, bytes);
    take(packed, kept);
  };
  const auto kernel = [=](Bytes* kept = nullptr) {
    auto* const packed = static_cast<unsigned char*>(std::calloc(length + bench::kPadding, 1));
    bench::packByMovemask(pixels.data(), width, kHeight, packed);
    take(packed, kept);
  };
  bench::pair("byte2BitData over movemask/" + std::to_string(width), fast, kernel, [=]() mutable {
    Bytes ours, theirs;
    fast(&ours);
    kernel(&theirs);
    return ours == theirs;
  });
}

void unpackingOverKernel(int width) {
  const Bytes bits = Random().bytes((width + 7) / 8 * kHeight + bench::kPadding);
  Bytes image(static_cast<std::size_t>(width * kHeight + bench::kPadding));
  auto fast = [=, packed = bits, out = image]() mutable -> Bytes& {
    bitData2Byte(packed.data(), width, kHeight, out.data(), width, kHeight, 0, 0, false);
    return out;
  };
  auto kernel = [=, out = image]() mutable -> Bytes& {
    bench::unpackByShuffle(bits.data(), width, kHeight, out.data());
    return out;
  };
  const auto without = [](Bytes bytes) {
    bytes.resize(bytes.size() - bench::kPadding);
    return bytes;
  };
  bench::pair("bitData2Byte over shuffle/" + std::to_string(width), fast, kernel,
              [=]() mutable { return without(fast()) == without(kernel()); });
}

/// Masks without a pixel in common, of which the product's second lies `shift` columns to the
/// right.
void overlapOverKernel(int shift) {
  constexpr int kWords = (kWidth + 63) / 64;
  const std::vector<std::uint64_t> a(kWords * kHeight, 0xAAAAAAAAAAAAAAAA);
  const std::vector<std::uint64_t> b(kWords * kHeight, 0x5555555555555555);
  const unsigned char bits = shift % 2 == 0 ? 0x55 : 0xAA;
  auto fast = [=, a = Bytes(kRowBytes * kHeight, 0xAA),
               b = Bytes(kRowBytes * kHeight, bits)]() mutable {
    return maskMaskOverlap(2 * kWidth, kHeight, a.data(), kWidth, kHeight, 0, 0, b.data(), kWidth,
                           kHeight, shift, 0);
  };
  const auto kernel = [=] {
    int words = kWords;
    benchmark::DoNotOptimize(words);  // unrolling so short a row completely takes longer
    const bool meets = bench::alignedRowsMeet(a.data(), b.data(), words, kHeight);
    benchmark::DoNotOptimize(meets);
    return meets;
  };
  bench::pair("maskMaskOverlap over AND of aligned rows/" + std::to_string(shift), fast, kernel,
              [=]() mutable { return !fast() && !kernel(); });
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
  for (const int shift : {0, 1, 105}) overlapOverKernel(shift);
  if (__builtin_cpu_supports("avx2")) {
    for (const int width : {1000, 1001}) packingOverKernel(width);
    for (const int width : {1000, 1001}) unpackingOverKernel(width);
  }
  auto fast = eroder(erosion);
  auto plain = eroder(plainErosion);
  bench::pair("erosion (with a copy of the image)", fast, plain,
              [=]() mutable { return fast() == plain(); });
  benchmark::RunSpecifiedBenchmarks();
}
