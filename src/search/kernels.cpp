#include "search/kernels.h"

#include <algorithm>

#include "detail/differingBits.h"

using namespace vorquell::detail;

namespace vorquell::search {

namespace {

using Kernel = std::uint64_t(const char*, const char*, std::uint64_t, std::uint64_t, std::uint32_t,
                             std::uint32_t*);

[[gnu::always_inline]] inline std::uint64_t countOneByOne(const char* target, const char* features,
                                                          std::uint64_t featureCount,
                                                          std::uint64_t length, std::uint32_t limit,
                                                          std::uint32_t* counts) {
  std::uint64_t counted = 0;
  while (counted < featureCount) {
    std::uint32_t lowest = limit;
    for (std::uint64_t end = counted + kGroup; counted < end; ++counted) {
      counts[counted] =
          static_cast<std::uint32_t>(countBits(target, features + counted * length, length));
      lowest = std::min(lowest, counts[counted]);
    }
    if (lowest < limit) break;
  }
  return counted;
}

__attribute__((target("popcnt"))) std::uint64_t countPopcnt(
    const char* target, const char* features, std::uint64_t featureCount, std::uint64_t length,
    std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne(target, features, featureCount, length, limit, counts);
}

std::uint64_t countPlain(const char* target, const char* features, std::uint64_t featureCount,
                         std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return countOneByOne(target, features, featureCount, length, limit, counts);
}

constexpr Variant<Kernel> kKernels[] = {
    {InstructionSet::kPopcnt, countPopcnt},
    {InstructionSet::kBaseline, countPlain},
};

}  // namespace

std::uint64_t countGroups(const char* target, const char* features, std::uint64_t featureCount,
                          std::uint64_t length, std::uint32_t limit, std::uint32_t* counts) {
  return Dispatch<kKernels>::call(target, features, featureCount, length, limit, counts);
}

}  // namespace vorquell::search
