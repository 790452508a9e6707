// One target with one query. Private: not installed. Used by the library and the program.
#pragma once

#include <compare>
#include <cstdint>

namespace vorquell::search {

/// Features and targets are shorter than 2^28 bytes, so that their bits fit in 32.
inline constexpr std::uint64_t kMaxLength = (1U << 28) - 1;

/// A feature and in how many bits it differs from the target; the closer one is the smaller.
struct Kept {
  std::uint32_t bits;
  std::uint64_t index;
  auto operator<=>(const Kept&) const = default;
};

inline double distanceOf(std::uint32_t bits, std::uint64_t length) {
  // Both are below 2^31; signed numbers are faster to convert.
  return static_cast<double>(static_cast<std::int32_t>(bits)) /
         static_cast<double>(static_cast<std::int32_t>(8 * length));
}

/// ORV_MatchQuery() of valid input, or of an empty query. On failure `closest` may be overwritten.
int matchQuery(const char* target, std::uint64_t targetLength, const char* query,
               std::uint64_t queryLength, Kept* closest);

}  // namespace vorquell::search
