// Unaligned loads and stores. Private: not installed. Used by the scoring, the bitstream, the masks
// and the image buffers, which all read several bytes at once from wherever a caller's data begin.
#pragma once

#include <cstring>

namespace vorquell::detail {

template <class T>
[[gnu::always_inline]] inline T load(const void* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

template <class T>
[[gnu::always_inline]] inline void store(void* bytes, T value) {
  std::memcpy(bytes, &value, sizeof value);
}

}  // namespace vorquell::detail
