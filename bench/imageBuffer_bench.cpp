// Copying, flipping and swapping images of 3 bytes a pixel: against pixel loops where the work is
// in the pixels, against memcpy, of each row or of the whole image, where it is in moving bytes.
#include "Brindle/utility/imageBuffer.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "randomPixels.h"
#include "ratio.h"
#include "reference/PlainPixels.h"

namespace {

struct Size {
  const char* name;
  int width, height;
};

/// A call that writes an image from another one and returns the image that it wrote.
template <class Write>
auto writer(Size size, Write write) {
  const Bytes source = Random().bytes(size.width * size.height * 3);
  return
      [write, source = source, target = Bytes(source.rbegin(), source.rend())]() mutable -> Bytes& {
        write(source.data(), target.data());
        return target;
      };
}

template <class Fast, class Plain>
void compare(const char* job, Size size, Fast fast, Plain plain) {
  bench::pair(std::string(job) + "/" + size.name, fast, plain,
              [=]() mutable { return fast() == plain(); });
}

void copyingByMask(Size size, const char* job, Bytes mask) {
  const int stride = size.width * 3;
  const auto fast = writer(size, [=](unsigned char* from, unsigned char* to) mutable {
    copyImageAnywhere(from, size.width, size.height, stride, 3, 0, 0, size.width, size.height, to,
                      size.width, size.height, stride, 0, 0, false, mask.data(), size.width);
  });
  const auto plain = writer(size, [=](unsigned char* from, unsigned char* to) {
    for (std::size_t i = 0; i < mask.size(); ++i) {
      if (mask[i] != 0) std::memcpy(to + 3 * i, from + 3 * i, 3);
    }
  });
  compare(job, size, fast, plain);
}

/// Both calls write the same target, so that neither has the better pages.
void copyingOverRows(Size size) {
  const int stride = size.width * 3;
  const auto rowBytes = static_cast<std::size_t>(stride);
  const auto from = std::make_shared<Bytes>(Random().bytes(stride * size.height));
  const auto to = std::make_shared<Bytes>(from->size());
  const auto fast = [=] {
    copyImageAnywhere(from->data(), size.width, size.height, stride, 3, 0, 0, size.width,
                      size.height, to->data(), size.width, size.height, stride, 0, 0, false,
                      nullptr, 0);
  };
  const auto rows = [=] {
    for (std::size_t at = 0; at < from->size(); at += rowBytes) {
      std::memcpy(to->data() + at, from->data() + at, rowBytes);
    }
  };
  const auto copies = [=](auto copy) {
    std::fill(to->begin(), to->end(), 0);
    copy();
    return *to == *from;
  };
  bench::pair(std::string("copyImageAnywhere over memcpy of rows/") + size.name, fast, rows,
              [=] { return copies(fast) && copies(rows); });
}

void flipping(Size size) {
  const int rowBytes = size.width * 3;
  const int length = rowBytes * size.height;
  const auto flip = [=](unsigned char* from, unsigned char* to) {
    xImageUpsideDown(from, size.height, rowBytes, length, to);
  };
  const auto flipInPlace = [=](unsigned char*, unsigned char* image) { flip(image, image); };
  const auto copy = [=](unsigned char* from, unsigned char* to) {
    std::memcpy(to, from, static_cast<std::size_t>(length));
  };
  // `kept` is the row that keeps its place, or -1.
  const auto isFlipped = [=](const Bytes& from, const Bytes& to, int kept) {
    bool isEqual = true;
    for (int row = 0; row < size.height; ++row) {
      const auto old = from.begin() + (row == kept ? kept : size.height - 1 - row) * rowBytes;
      isEqual &= std::equal(old, old + rowBytes, to.begin() + row * rowBytes);
    }
    return isEqual;
  };
  const auto fast = writer(size, flip);
  const auto inPlace = writer(size, flipInPlace);
  const auto plain = writer(size, copy);
  const std::string name = std::string("/") + size.name;
  bench::pair("xImageUpsideDown over memcpy" + name, fast, plain, [=] {
    auto flipped = fast;
    auto source = plain;
    return isFlipped(source(), flipped(), -1);
  });
  bench::pair("xImageUpsideDown in place over memcpy" + name, inPlace, plain, [=] {
    auto flipped = inPlace;
    auto source = writer(size, [](unsigned char*, unsigned char*) {});
    return isFlipped(source(), flipped(), size.height / 2 - 1);
  });
}

void swapping(Size size) {
  const int stride = size.width * 3;
  const auto fast = [=](unsigned char* from, unsigned char* to) {
    xSwapImageDataOrder(from, size.width, size.height, stride, stride * size.height, to);
  };
  const auto plain = [=](unsigned char* from, unsigned char* to) {
    plainSwap(from, size.width, size.height, stride, to);
  };
  const auto inPlace = [](auto swap) {
    return [=](unsigned char*, unsigned char* image) { swap(image, image); };
  };
  compare("xSwapImageDataOrder", size, writer(size, fast), writer(size, plain));
  compare("xSwapImageDataOrder in place", size, writer(size, inPlace(fast)),
          writer(size, inPlace(plain)));
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  for (const Size size : {Size{"1024x1024", 1024, 1024}, Size{"1920x1080", 1920, 1080}}) {
    const int pixels = size.width * size.height;
    Bytes blocks(static_cast<std::size_t>(pixels));
    for (int i = 0; i < pixels; ++i) {
      blocks[static_cast<std::size_t>(i)] = (i % size.width / 200 + i / size.width / 200) % 2 != 0;
    }
    copyingOverRows(size);
    copyingByMask(size, "copyImageAnywhere, random mask", Random().bytes(pixels, 2));
    copyingByMask(size, "copyImageAnywhere, mask of blocks", blocks);
    flipping(size);
    swapping(size);
  }
  benchmark::RunSpecifiedBenchmarks();
}
