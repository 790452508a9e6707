#include "reference/PlainComparison.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <list>

namespace {

constexpr std::array<int, 256> makeBitCounts() {
  std::array<int, 256> counts{};
  for (std::size_t i = 1; i < counts.size(); ++i) {
    counts[i] = counts[i / 2] + static_cast<int>(i % 2);
  }
  return counts;
}
constexpr std::array<int, 256> kBitCounts = makeBitCounts();

std::uint32_t fieldAt(const char* bytes) {
  std::uint32_t value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

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

double plainBitstreamDistance(const char* target, unsigned int targetLength, const char* query) {
  std::list<const char*> features;
  const char* cursor = query + 184;
  for (std::uint32_t left = fieldAt(query + 64); left > 0; --left) {
    const bool matches = fieldAt(cursor + 24) == targetLength;
    cursor += 32;
    if (!matches) continue;
    features.push_back(cursor);
    cursor += targetLength;
  }
  double distance = 1.0;
  for (const char* feature : features) {
    const double score = plainScores(target, feature, static_cast<int>(targetLength));
    if (!(distance < score)) distance = score;
  }
  return distance;
}
