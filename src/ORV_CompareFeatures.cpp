#include "ORV_CompareFeatures.h"

#include <cstdio>

#include "Bitstream.h"
#include "HammingScore.h"

using namespace vorquell::detail;

namespace {

constexpr char kFunctionName[] = "ORV_CompareFeatures";

/// Lowers `*distance` to the smallest score among the query's features. A score replaces an equal
/// one; a NaN score replaces any distance and is replaced by any. Returns whether there was a
/// feature to score.
bool scoreBitstream(const char* target, unsigned int targetLength, const char* query,
                    unsigned int queryLength, double* distance) {
  if (readVersion(query, queryLength) != 7) return false;
  bool anyScored = false;
  forEachFeature(query, targetLength, [&](const char* feature) {
    const double score = calculateScores(target, feature, static_cast<int>(targetLength));
    if (!(*distance < score)) *distance = score;
    anyScored = true;
  });
  return anyScored;
}

}  // namespace

const char* ORV_GetCompareFeaturesVersion(void) {
  return "1.0.0.0:20180102";
}

int ORV_CompareFeatures(const char* target, unsigned int targetLength, const char* query,
                        unsigned int queryLength, double* distance) {
  if (target == nullptr || targetLength == 0 || query == nullptr || queryLength == 0 ||
      distance == nullptr) {
    std::printf("%s: Invalid input\n", kFunctionName);
    return -1;
  }
  *distance = 1.0;
  if (queryLength == targetLength) {
    *distance = calculateScores(target, query, static_cast<int>(targetLength));
    return 0;
  }
  if (!scoreBitstream(target, targetLength, query, queryLength, distance)) {
    std::printf("%s: Invalid bitstream (Target Bitstream length: %d).\n", kFunctionName,
                static_cast<int>(targetLength));
    return -1;
  }
  return 0;
}
