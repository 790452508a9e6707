// Eight bytes to eight bits, of which one is set for each byte that is not 0. Private: not
// installed. Used by the packing of masks and by the image buffers' masked copies, which want them
// in opposite orders.
#pragma once

#include <cstdint>

namespace brindle::detail {

/// Bit 0 of each of eight bytes: whether the byte is not 0. Adding 0x7F carries whichever of the
/// low seven bits is set into the highest one and never into the next byte.
constexpr std::uint64_t nonZeroBytes(std::uint64_t bytes) {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
  return ((((bytes & kLowBits) + kLowBits) | bytes) & ~kLowBits) >> 7;
}

/// The first byte in memory gets the highest bit, the eighth the lowest: the bytes 5 0 0 1 0 0 0 0
/// give 1001 0000. The product is the sum of eight shifted copies, which share no bit; its top byte
/// takes bit 7 - i from byte i, by way of the copy that is shifted by 9 * (7 - i).
constexpr unsigned char firstByteHighest(std::uint64_t bytes) {
  return static_cast<unsigned char>(nonZeroBytes(bytes) * 0x8040201008040201 >> 56);
}

/// The mirror: the same bytes give 0000 1001. Here the copies are shifted by 7 * (8 - i).
constexpr unsigned char firstByteLowest(std::uint64_t bytes) {
  return static_cast<unsigned char>(nonZeroBytes(bytes) * 0x0102040810204080 >> 56);
}

}  // namespace brindle::detail
