#include "Brindle/utility/imageBuffer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

int xTruncateImagePadding(const unsigned char* source, int width, int height, int stride,
                          int length, unsigned char*& target) {
  constexpr std::int64_t kMany = std::int64_t{1} << 40;  // more pixels than any length has room for
  const std::int64_t pixels = std::clamp(std::int64_t{width} * height, -kMany, kMany);
  const std::int64_t rowBytes = std::int64_t{width} * 3;
  if (source == nullptr || target == nullptr || pixels * 3 > length || rowBytes > stride) return 1;
  if (pixels < 1) return 0;
  if (rowBytes == stride) {
    if (target[0] != source[0]) {
      std::memcpy(target, source, static_cast<std::size_t>(pixels * 3));
    }
    return 0;
  }
  for (std::int64_t r = 0; r < height; ++r) {
    std::memmove(target + r * rowBytes, source + r * stride, static_cast<std::size_t>(rowBytes));
  }
  return 0;
}
