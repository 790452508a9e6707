// ORV_Distances and ORV_Nearest against the plain comparison of each pair. Input: sizes, then the
// bytes of the targets and the features.
#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "Input.h"
#include "ORV_Search.h"
#include "reference/PlainComparison.h"

namespace {

using Row = std::vector<std::pair<double, std::uint64_t>>;

const char* feature(Block& block, std::size_t number, int length) {
  return reinterpret_cast<const char*>(block.data()) + number * static_cast<std::size_t>(length);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Input input(data, size);
  const int length = input.between(1, 200);
  const int targets = input.between(0, 5), features = input.between(0, 80);
  const auto k = static_cast<std::size_t>(input.between(1, 90));
  const auto threads = static_cast<unsigned>(input.between(1, 2));
  Block targetBytes = input.block(targets * length), bytes = input.block(features * length);
  std::vector<Row> rows(static_cast<std::size_t>(targets), Row(static_cast<std::size_t>(features)));
  for (std::size_t t = 0; t < rows.size(); ++t) {
    for (std::size_t f = 0; f < rows[t].size(); ++f) {
      rows[t][f] = {plainScores(feature(targetBytes, t, length), feature(bytes, f, length), length),
                    f};
    }
  }
  const auto targetCount = static_cast<std::uint64_t>(targets);
  const auto featureCount = static_cast<std::uint64_t>(features);
  const auto bytesEach = static_cast<std::uint64_t>(length);

  std::vector<double> distances(targetCount * featureCount);
  require(ORV_Distances(feature(targetBytes, 0, length), targetCount, feature(bytes, 0, length),
                        featureCount, bytesEach, threads, distances.data()) == ORV_FOUND);
  const std::uint64_t found = std::min<std::uint64_t>(k, featureCount);
  std::vector<ORV_Match> matches(targetCount * found);
  require(ORV_Nearest(feature(targetBytes, 0, length), targetCount, feature(bytes, 0, length),
                      featureCount, bytesEach, k, threads, matches.data()) == ORV_FOUND);
  for (std::size_t t = 0; t < rows.size(); ++t) {
    for (const auto& [distance, f] : rows[t]) require(distances[t * featureCount + f] == distance);
    std::sort(rows[t].begin(), rows[t].end());
    for (std::uint64_t i = 0; i < found; ++i) {
      const ORV_Match& match = matches[t * found + i];
      require(std::pair(match.distance, match.index) == rows[t][i]);
    }
  }
  return 0;
}
