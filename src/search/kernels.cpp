#include "search/kernels.h"

#include <algorithm>

#include "detail/differingBits.h"
#include "search/kernelParts.h"

using namespace vorquell::detail;

namespace vorquell::search {

namespace {

/// Each feature alone, as the compiler counts bits with what the set has.
template <bool kWordByWord>
VORQUELL_INLINE std::uint64_t countOneByOne(const char* target, const char* features,
                                            std::uint64_t featureCount, std::uint64_t length,
                                            std::uint32_t limit, std::uint32_t* counts) {
  std::uint64_t counted = 0;
  while (counted < featureCount) {
    std::uint32_t lowest = limit;
    for (const std::uint64_t end = counted + kGroup; counted < end; ++counted) {
      counts[counted] = static_cast<std::uint32_t>(
          countBits<kWordByWord>(target, features + counted * length, length));
      lowest = std::min(lowest, counts[counted]);
    }
    if (lowest < limit) break;
  }
  return counted;
}

__attribute__((target("popcnt"))) std::uint64_t countGroupsPopcnt(
    const char* target, const char* features, std::uint64_t featureCount, std::uint64_t length,
    std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne<true>(target, features, featureCount, length, limit, counts);
}

std::uint64_t countGroupsPlain(const char* target, const char* features, std::uint64_t featureCount,
                               std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne<false>(target, features, featureCount, length, limit, counts);
}

constexpr Variant<GroupCounter> kGroupCounters[] = {
    {InstructionSet::kAvx512, countGroupsAvx512},
    {InstructionSet::kAvx2, countGroupsAvx2},
    {InstructionSet::kPopcnt, countGroupsPopcnt},
    {InstructionSet::kBaseline, countGroupsPlain},
};

VORQUELL_AVX512 std::uint64_t differingBitsAvx512(const char* a, const char* b,
                                                  std::uint64_t length) {
  return countBits<false>(a, b, length);
}

__attribute__((target("popcnt"))) std::uint64_t differingBitsPopcnt(const char* a, const char* b,
                                                                    std::uint64_t length) {
  return countBits<true>(a, b, length);
}

std::uint64_t differingBitsPlain(const char* a, const char* b, std::uint64_t length) {
  return countBits<false>(a, b, length);
}

constexpr Variant<PairCounter> kPairCounters[] = {
    {InstructionSet::kAvx512, differingBitsAvx512},
    {InstructionSet::kAvx2, differingBitsAvx2},
    {InstructionSet::kPopcnt, differingBitsPopcnt},
    {InstructionSet::kBaseline, differingBitsPlain},
};

}  // namespace

std::uint64_t differingBits(const char* a, const char* b, std::uint64_t length) {
  return Dispatch<kPairCounters>::call(a, b, length);
}

std::uint64_t countGroups(const char* target, const char* features, std::uint64_t featureCount,
                          std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return Dispatch<kGroupCounters>::call(target, features, featureCount, length, limit, counts);
}

}  // namespace vorquell::search
