#include "ORV_Search.h"

#include <algorithm>
#include <exception>

#include "search/match.h"
#include "search/scan.h"
#include "search/threads.h"

using namespace vorquell::search;

namespace {

struct StatusText {
  int status;
  const char* text;
};
constexpr StatusText kStatusTexts[] = {
    {ORV_FOUND, "Found"},
    {ORV_INVALID_INPUT, "Invalid input"},
    {ORV_NO_BITSTREAM, "Neither a feature of the target's length nor a bitstream"},
    {ORV_CUT_SHORT, "The bitstream is cut short"},
    {ORV_NO_FEATURE, "The bitstream holds no feature of the target's length"},
    {ORV_OUT_OF_MEMORY, "Out of memory"},
};

bool isLength(std::uint64_t length) {
  return length >= 1 && length <= kMaxLength;
}

bool fitsIn64Bits(std::uint64_t a, std::uint64_t b, std::uint64_t c = 1) {
  std::uint64_t product;
  return !__builtin_mul_overflow(a, b, &product) && !__builtin_mul_overflow(product, c, &product);
}

/// The judgement of pointers and sizes, of which `resultsPerTarget` results of `resultSize` bytes.
bool isValid(const Features& targets, const Features& features, const void* results,
             std::uint64_t resultsPerTarget, std::uint64_t resultSize) {
  return targets.bytes != nullptr && features.bytes != nullptr && results != nullptr &&
         fitsIn64Bits(targets.count, targets.length) &&
         fitsIn64Bits(features.count, features.length) &&
         fitsIn64Bits(targets.count, resultsPerTarget, resultSize);
}

/// Anything that is thrown on the way is a container's failure to get memory.
template <class Work>
int statusOf(Work work) {
  try {
    work();
    return ORV_FOUND;
  } catch (const std::exception&) {
    return ORV_OUT_OF_MEMORY;
  }
}

}  // namespace

const char* ORV_SearchText(int status) {
  for (const StatusText& entry : kStatusTexts) {
    if (entry.status == status) return entry.text;
  }
  return "Unknown status";
}

int ORV_MatchQuery(const char* target, uint64_t targetLength, const char* query,
                   uint64_t queryLength, ORV_Match* match) {
  if (!isLength(targetLength) || queryLength == 0 || target == nullptr || query == nullptr ||
      match == nullptr) {
    return ORV_INVALID_INPUT;
  }
  Kept closest;
  const int status = matchQuery(target, targetLength, query, queryLength, &closest);
  if (status == ORV_FOUND) *match = {closest.index, distanceOf(closest.bits, targetLength)};
  return status;
}

int ORV_Distances(const char* targets, uint64_t targetCount, const char* features,
                  uint64_t featureCount, uint64_t length, unsigned threads, double* distances) {
  if (!isLength(length)) return ORV_INVALID_INPUT;
  if (targetCount == 0 || featureCount == 0) return ORV_FOUND;
  const Features rows{targets, targetCount, length};
  const Features columns{features, featureCount, length};
  if (!isValid(rows, columns, distances, featureCount, sizeof *distances)) return ORV_INVALID_INPUT;
  return statusOf([&] { writeDistances(rows, columns, threadCount(threads), distances); });
}

int ORV_Nearest(const char* targets, uint64_t targetCount, const char* features,
                uint64_t featureCount, uint64_t length, uint64_t k, unsigned threads,
                ORV_Match* matches) {
  if (!isLength(length) || k == 0) return ORV_INVALID_INPUT;
  if (targetCount == 0 || featureCount == 0) return ORV_FOUND;
  const std::uint64_t found = std::min(k, featureCount);
  const Features rows{targets, targetCount, length};
  const Features columns{features, featureCount, length};
  if (!isValid(rows, columns, matches, found, sizeof *matches)) return ORV_INVALID_INPUT;
  return statusOf([&] { writeNearest(rows, columns, found, threadCount(threads), matches); });
}
