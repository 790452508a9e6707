#include "reference/PlainComparison.h"

#include <array>
#include <bit>

namespace {

constexpr std::array kBitCounts = [] {
  std::array<int, 256> counts{};
  for (unsigned int i = 0; i < counts.size(); ++i) counts[i] = std::popcount(i);
  return counts;
}();

}  // namespace

#ifdef __clang__
#define NOT_VECTORISED
#else
// g++ would turn the look-ups into gathers, at half the speed.
#define NOT_VECTORISED __attribute__((optimize("no-tree-vectorize")))
#endif

NOT_VECTORISED double plainScores(const char* a, const char* b, int length) {
  int total = 0;
  for (int i = 0; i < length; ++i) total += kBitCounts[static_cast<unsigned char>(a[i] ^ b[i])];
  return static_cast<double>(total) / static_cast<double>(length * 8);
}
