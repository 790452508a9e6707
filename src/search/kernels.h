// Counts of differing bits: of two features, and of one target with many. Private: not installed.
// Used by the scan and by the match of one query.
#pragma once

#include <cstdint>

namespace vorquell::search {

/// Counts the bits in which two features of `length` bytes, at most kMaxLength here and below,
/// differ.
std::uint64_t differingBits(const char* a, const char* b, std::uint64_t length);

/// Features are counted in groups of so many.
inline constexpr std::uint64_t kGroup = 8;

/// Counts the bits in which `target` and each of `featureCount` features differ, a multiple of
/// kGroup that lie one after the other, `length` bytes each. Stops after the first group in which a
/// count is below `limit`. Returns how many features were counted.
std::uint64_t countGroups(const char* target, const char* features, std::uint64_t featureCount,
                          std::uint64_t length, std::uint32_t limit, std::uint32_t* counts);

}  // namespace vorquell::search
