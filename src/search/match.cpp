#include "search/match.h"

#include "Bitstream.h"
#include "ORV_Search.h"
#include "search/kernels.h"

using namespace vorquell::detail;

namespace vorquell::search {

namespace {

std::uint32_t bitsBetween(const char* a, const char* b, std::uint64_t length) {
  return static_cast<std::uint32_t>(differingBits(a, b, length));
}

int matchFrames(const char* target, std::uint64_t targetLength, const char* query,
                std::uint64_t queryLength, Kept* closest) {
  if (queryLength < kFrameCountOffset + kFieldSize) return ORV_CUT_SHORT;
  const std::uint32_t frameCount = readField(query, kFrameCountOffset);
  if (!isValidFrameCount(frameCount)) return ORV_NO_BITSTREAM;
  const auto featureLength = static_cast<std::uint32_t>(targetLength);
  bool isAnyFound = false;
  std::uint64_t index = 0;
  const bool isWhole = walkFrames(
      query, queryLength, frameCount, featureLength,
      [&](std::uint64_t featureOffset, std::uint32_t frameLength) {
        if (frameLength == featureLength) {
          const Kept found{bitsBetween(target, query + featureOffset, targetLength), index};
          if (!isAnyFound || found < *closest) *closest = found;
          isAnyFound = true;
        }
        ++index;
      });
  if (!isWhole) return ORV_CUT_SHORT;
  return isAnyFound ? ORV_FOUND : ORV_NO_FEATURE;
}

}  // namespace

int matchQuery(const char* target, std::uint64_t targetLength, const char* query,
               std::uint64_t queryLength, Kept* closest) {
  if (queryLength == targetLength) {
    *closest = {bitsBetween(target, query, targetLength), 0};
    return ORV_FOUND;
  }
  if (queryLength < kMinLength) return ORV_NO_BITSTREAM;
  switch (readField(query, kVersionOffset)) {
    case 7:
      return matchFrames(target, targetLength, query, queryLength, closest);
    case 8:
      return ORV_NO_FEATURE;
    default:
      return ORV_NO_BITSTREAM;
  }
}

}  // namespace vorquell::search
