// Unaligned loads and stores. Private: not installed. Used by the scoring, the bitstream, the masks
// and the image buffers, which all read several bytes at once from wherever a caller's data begin.
// The built-in, as in hardened builds std::memcpy turns into a load too late for the best code.
#pragma once

namespace vorquell::detail {

template <class T>
[[gnu::always_inline]] inline T load(const void* bytes) {
  T value;
  __builtin_memcpy(&value, bytes, sizeof value);
  return value;
}

template <class T>
[[gnu::always_inline]] inline void store(void* bytes, T value) {
  __builtin_memcpy(bytes, &value, sizeof value);
}

}  // namespace vorquell::detail
