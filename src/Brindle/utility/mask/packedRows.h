// What the sources of the masks know of packed rows. Private: not installed.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace brindle::detail {

/// The bit that each of eight pixels in memory has in its packed byte.
constexpr std::uint64_t kPixelBits = 0x0102040810204080;
/// Times a byte: eight copies of it.
constexpr std::uint64_t kEveryByte = 0x0101010101010101;

/// The bytes of a packed row, in single precision as the contract has it.
inline std::int64_t countRowBytes(int width) {
  return static_cast<std::int64_t>(std::ceil(static_cast<float>(width) * 0.125F));
}

/// The pixels of a packed row that have a bit.
inline std::int64_t countRowPixels(int width) {
  return std::min(std::int64_t{width}, 8 * countRowBytes(width));
}

}  // namespace brindle::detail
