// ORV_MatchQuery: where a query is whole, the same as ORV_CompareFeatures; elsewhere it stays
// inside the query. Input: two bytes for the target's length, then the target, then the query.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "Bitstream.h"
#include "HammingScore.h"
#include "Input.h"
#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"

namespace {

/// A copy in a block of exactly its size, so that a stray read is seen.
std::unique_ptr<char[]> copyOf(const std::uint8_t* data, std::size_t size) {
  std::unique_ptr<char[]> copy(new char[size]);
  if (size != 0) std::memcpy(copy.get(), data, size);
  return copy;
}

/// The number of the first frame whose feature is that far from the target.
std::uint64_t frameAt(double distance, const char* target, unsigned int targetSize,
                      const char* query) {
  std::uint64_t index = 0;
  bool isFound = false;
  vorquell::detail::walkFrames(
      query, vorquell::detail::kUnbounded,
      vorquell::detail::readField(query, vorquell::detail::kFrameCountOffset), targetSize,
      [&](std::uint64_t feature, std::uint32_t length) {
        isFound = isFound || (length == targetSize &&
                              calculateScores(target, query + feature,
                                              static_cast<int>(targetSize)) == distance);
        if (!isFound) ++index;
      });
  return index;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isQuiet = std::freopen("/dev/null", "w", stdout) != nullptr;
  if (!isQuiet || size < 2) return 0;
  const std::size_t rest = size - 2;
  std::size_t targetSize = static_cast<std::size_t>(data[0] | data[1] << 8);
  if (targetSize > rest) targetSize = rest;
  const std::size_t querySize = rest - targetSize;
  const auto target = copyOf(data + 2, targetSize);
  const auto query = copyOf(data + 2 + targetSize, querySize);

  ORV_Match match = {77, -7.0};
  const int status = ORV_MatchQuery(target.get(), targetSize, query.get(), querySize, &match);
  if (status != ORV_FOUND) require(match.index == 77 && match.distance == -7.0);
  if (!vorquell::detail::isQueryWhole(query.get(), querySize, targetSize)) {
    require(status == ORV_CUT_SHORT);
    return 0;
  }
  const auto length = static_cast<unsigned int>(targetSize);
  double distance = -1.0;
  const int result = ORV_CompareFeatures(target.get(), length, query.get(),
                                         static_cast<unsigned int>(querySize), &distance);
  require(status != ORV_CUT_SHORT && (status == ORV_FOUND) == (result == 0));
  if (result != 0) return 0;
  require(match.distance == distance);
  require(match.index ==
          (querySize == targetSize ? 0 : frameAt(distance, target.get(), length, query.get())));
  return 0;
}
