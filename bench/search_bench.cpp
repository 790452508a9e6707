// The search against sorting all plain scores, against summing the same bytes, and with two threads
// against one.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ORV_Search.h"
#include "detail/load.h"
#include "ratio.h"
#include "reference/PlainComparison.h"
#include "support/Bytes.h"

namespace {

constexpr std::uint64_t kNearest = 10;

struct Data {
  std::uint64_t targetCount, featureCount, length;
  std::string targets = randomBytes(targetCount * length, 1);
  std::string features = randomBytes(featureCount * length, 2);
};
using SharedData = std::shared_ptr<const Data>;

std::vector<ORV_Match> nearest(const Data& data, unsigned threads) {
  std::vector<ORV_Match> matches(data.targetCount * kNearest);
  ORV_Nearest(data.targets.data(), data.targetCount, data.features.data(), data.featureCount,
              data.length, kNearest, threads, matches.data());
  benchmark::DoNotOptimize(matches.data());
  return matches;
}

std::vector<ORV_Match> nearestBySorting(const Data& data) {
  std::vector<ORV_Match> matches;
  std::vector<ORV_Match> row(data.featureCount);
  for (std::uint64_t t = 0; t < data.targetCount; ++t) {
    for (std::uint64_t f = 0; f < data.featureCount; ++f) {
      row[f] = {f, plainScores(&data.targets[t * data.length], &data.features[f * data.length],
                               static_cast<int>(data.length))};
    }
    const auto end = row.begin() + kNearest;
    std::partial_sort(row.begin(), end, row.end(), [](const ORV_Match& a, const ORV_Match& b) {
      return a.distance < b.distance || (a.distance == b.distance && a.index < b.index);
    });
    matches.insert(matches.end(), row.begin(), end);
  }
  return matches;
}

bool areEqual(const std::vector<ORV_Match>& a, const std::vector<ORV_Match>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const ORV_Match& x, const ORV_Match& y) {
                      return x.index == y.index && x.distance == y.distance;
                    });
}

std::uint64_t sumOfWords(const std::string& bytes) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i + 8 <= bytes.size(); i += 8) {
    sum += vorquell::detail::load<std::uint64_t>(&bytes[i]);
  }
  return sum;
}

void againstSorting(const std::string& name, std::uint64_t length) {
  const SharedData data(new Data{64, 8192, length});
  const auto fast = [data] { return nearest(*data, 1); };
  const auto plain = [data] { return nearestBySorting(*data); };
  bench::pair("ORV_Nearest/64x8192/" + name, fast, plain,
              [=] { return areEqual(fast(), plain()); });
}

void againstSumming(const std::string& name, std::uint64_t length) {
  const SharedData data(new Data{1, (512 << 20) / length, length});
  const auto search = [data] { nearest(*data, 1); };
  const auto sum = [data] { benchmark::DoNotOptimize(sumOfWords(data->features)); };
  bench::pair("ORV_Nearest/512MiB-or-sum/" + name, search, sum, [] { return true; });
}

void twoThreads(const std::string& name, const SharedData& data) {
  const auto two = [data] { return nearest(*data, 2); };
  const auto one = [data] { return nearest(*data, 1); };
  bench::pair("ORV_Nearest/2-or-1-threads/" + name, two, one,
              [=] { return areEqual(two(), one()); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  againstSorting("32B", 32);
  againstSorting("64B", 64);
  againstSorting("256B", 256);
  againstSorting("2KiB", 2048);
  againstSumming("64B", 64);
  againstSumming("256B", 256);
  againstSumming("2KiB", 2048);
  twoThreads("512x10000x64B", SharedData(new Data{512, 10'000, 64}));
  twoThreads("8x1000000x64B", SharedData(new Data{8, 1'000'000, 64}));
  benchmark::RunSpecifiedBenchmarks();
}
