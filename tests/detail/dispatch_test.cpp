#include "detail/dispatch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace vorquell::detail;

namespace {

/// Whether the environment tells the C library that the processor lacks a feature.
bool isMasked(const std::string& feature) {
  const char* const tunables = std::getenv("GLIBC_TUNABLES");
  return tunables != nullptr && std::string(tunables).find('-' + feature) != std::string::npos;
}

TEST(InstructionSets, AreThoseOfWhichTheProcessorHasAllParts) {
  const bool ssse3 = __builtin_cpu_supports("ssse3") && !isMasked("SSSE3");
  const bool popcnt = __builtin_cpu_supports("popcnt") && !isMasked("POPCNT");
  const bool avx2 = __builtin_cpu_supports("avx2") && !isMasked("AVX2");
  const bool avx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                      __builtin_cpu_supports("avx512vl") &&
                      __builtin_cpu_supports("avx512vpopcntdq") && !isMasked("AVX512VL");
  EXPECT_EQ(processorHas(InstructionSet::kBaseline), true);
  EXPECT_EQ(processorHas(InstructionSet::kSsse3), ssse3);
  EXPECT_EQ(processorHas(InstructionSet::kPopcnt), popcnt);
  EXPECT_EQ(processorHas(InstructionSet::kAvx2), avx2 && popcnt);
  EXPECT_EQ(processorHas(InstructionSet::kAvx512), avx512 && popcnt);
}

}  // namespace
