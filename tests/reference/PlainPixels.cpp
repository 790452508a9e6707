#include "reference/PlainPixels.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

static bool isSet(const PlainMask& mask, int r, int c) {
  return (mask.packed[r * ((mask.width + 7) / 8) + c / 8] & 0x80 >> c % 8) != 0;
}

void plainUnpack(const PlainMask& mask, unsigned char* out, int outWidth) {
  for (int r = 0; r < mask.height; ++r) {
    for (int c = 0; c < mask.width && mask.x + c < outWidth; ++c) {
      out[(mask.y + r) * outWidth + mask.x + c] = isSet(mask, r, c) ? 255 : 0;
    }
  }
}

void plainPack(const unsigned char* bytes, int width, int height, unsigned char* zeros) {
  const int kept = width % 8 == 0 ? width - 8 : width;
  for (int r = 0; r < height; ++r) {
    for (int c = 0; c < kept; ++c) {
      unsigned char& byte = zeros[r * ((width + 7) / 8) + c / 8];
      if (bytes[r * width + c] != 0) byte = static_cast<unsigned char>(byte | 0x80 >> c % 8);
    }
  }
}

bool plainOverlap(int canvasWidth, int canvasHeight, const PlainMask& a, const PlainMask& b) {
  std::vector<bool> canvas(static_cast<std::size_t>(canvasWidth * canvasHeight));
  for (const PlainMask* mask : {&a, &b}) {
    for (int i = 0; i < mask->width * mask->height; ++i) {
      const int r = i / mask->width, c = i % mask->width;
      const auto at = static_cast<std::size_t>((mask->y + r) * canvasWidth + mask->x + c);
      if (at >= canvas.size()) continue;
      if (mask == &b && canvas[at] && isSet(b, r, c)) return true;
      if (mask == &a) canvas[at] = isSet(a, r, c);
    }
  }
  return false;
}

int plainErosion(unsigned char* image, int width, int height) {
  std::vector<unsigned char> result(static_cast<std::size_t>(width * height));
  int count = 0;
  for (int r = 1; r + 1 < height; ++r) {
    for (int c = 1; c + 1 < width; ++c) {
      int i = 0;
      while (i < 9 && image[(r + i / 3 - 1) * width + c + i % 3 - 1] >= 127) ++i;
      if (i == 9) result.data()[r * width + c] = image[r * width + c];
      count += i == 9;
    }
  }
  std::copy(result.begin(), result.end(), image);
  return count;
}

void plainCopy(const PlainImage& source, const PlainImage& destination, int bytesPerPixel,
               int regionWidth, int regionHeight, const unsigned char* mask, int maskStride) {
  for (int i = 0; i < regionHeight; ++i) {
    const auto isVisible = [&](int k) {
      const auto isInside = [=](const PlainImage& image) {
        const int x = image.x + k, y = image.y + i;
        return x >= 0 && x < image.width && y >= 0 && y < image.height;
      };
      return isInside(source) && isInside(destination);
    };
    int visible = 0;
    for (int k = 0; k < regionWidth; ++k) visible += isVisible(k);
    for (int k = 0; k < regionWidth; ++k) {
      const int x = source.x + k, y = source.y + i;
      if (!isVisible(k)) continue;
      if (mask != nullptr && (x >= visible || mask[y * maskStride + x] == 0)) continue;
      std::copy_n(source.bytes + y * source.stride + x * bytesPerPixel, bytesPerPixel,
                  destination.bytes + (destination.y + i) * destination.stride +
                      (destination.x + k) * bytesPerPixel);
    }
  }
}

void plainSwap(const unsigned char* source, int width, int height, int stride,
               unsigned char* target) {
  if (*target != *source) std::memcpy(target, source, static_cast<std::size_t>(height * stride));
  for (int r = 0; r < height; ++r) {
    unsigned char* const row = target + r * stride;
    for (int p = 0; p < width; ++p) std::swap(row[3 * p], row[3 * p + 2]);
  }
}
