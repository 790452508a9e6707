// Integer arithmetic that wraps around in 32 bits, by way of unsigned numbers, as signed ones must
// not overflow. Private: not installed. Used by the scoring, the status codes, the masks, the
// polygons, the sorting and the progress bar, whose results are defined to wrap.
#pragma once

#include <cstdint>

namespace vorquell::detail {

/// The low 32 bits of `value`.
constexpr std::int32_t wrapped(std::uint64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}
constexpr std::int32_t wrapped(std::int64_t value) {
  return wrapped(static_cast<std::uint64_t>(value));
}

constexpr std::int32_t wrappingAdd(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappingSubtract(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappingMultiply(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

}  // namespace vorquell::detail
