// Sorting with an index, on random input against std::sort of pairs and on other input against the
// plain partitioning; sorting bytes against ten lists. Every time includes copying the input.
#include <algorithm>
#include <array>
#include <cstring>
#include <list>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "Brindle/utility/sorting.h"
#include "ratio.h"
#include "reference/PlainNumerics.h"
#include "support/Bytes.h"

namespace {

struct Pairs {
  std::vector<double> values;
  std::vector<int> index;
  bool operator==(const Pairs&) const = default;
};

Pairs pairsOf(std::vector<double> values) {
  Pairs pairs{std::move(values), {}};
  pairs.index.resize(pairs.values.size());
  std::iota(pairs.index.begin(), pairs.index.end(), 0);
  return pairs;
}

Pairs quickSorted(Pairs pairs) {
  const int n = static_cast<int>(pairs.values.size());
  quickSort(pairs.values.data(), pairs.index.data(), n);
  benchmark::DoNotOptimize(pairs.values.data());
  return pairs;
}

/// Many short arrays in turn: a single one would be learnt by the processor's branch prediction.
void randomInput(const std::string& name, std::size_t n) {
  std::mt19937_64 engine(1);
  std::vector<Pairs> inputs(std::max<std::size_t>(1, 200'000 / n));
  std::vector<std::vector<std::pair<double, int>>> zipped;
  for (Pairs& input : inputs) {
    std::vector<double> values(n);
    for (double& value : values) value = static_cast<double>(engine()) * 1e-9;
    input = pairsOf(values);
    zipped.emplace_back();
    for (std::size_t i = 0; i < n; ++i) zipped.back().emplace_back(values[i], input.index[i]);
  }
  const auto fast = [=] {
    for (const Pairs& input : inputs) quickSorted(input);
  };
  const auto stdSorted = [](std::vector<std::pair<double, int>> pairs) {
    // Comparing the values alone is quicker than comparing the pairs.
    std::sort(pairs.begin(), pairs.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    benchmark::DoNotOptimize(pairs.data());
    return pairs;
  };
  const auto plain = [=] {
    for (const auto& pairs : zipped) stdSorted(pairs);
  };
  const auto agree = [=] {
    for (std::size_t k = 0; k < inputs.size(); ++k) {
      const Pairs sorted = quickSorted(inputs[k]);
      const auto expected = stdSorted(zipped[k]);
      for (std::size_t i = 0; i < n; ++i) {
        if (expected[i] != std::pair(sorted.values[i], sorted.index[i])) return false;
      }
    }
    return true;
  };
  bench::pair("quickSort/random_vs_std_sort/" + name, fast, plain, agree);
}

void otherInput(const std::string& name, double (*element)(int)) {
  std::vector<double> values;
  for (int i = 0; i < 10'000; ++i) values.push_back(element(i));
  const Pairs input = pairsOf(values);
  const auto fast = [=] { return quickSorted(input); };
  const auto plain = [=] {
    Pairs pairs = input;
    plainQuickSort(pairs.values.data(), pairs.index.data(), 0, 9'999);
    benchmark::DoNotOptimize(pairs.values.data());
    return pairs;
  };
  bench::pair("quickSort/" + name + "/10000", fast, plain, [=] { return fast() == plain(); });
}

/// At most `passes` passes by decimal digit over ten lists. The values must not be negative.
template <class T>
void plainRadixSort(std::vector<T>& values, int passes) {
  bool isFinished = false;
  for (long divisor = 1; passes > 0 && !isFinished; --passes, divisor *= 10) {
    std::array<std::list<T>, 10> buckets;
    for (const T x : values) buckets[static_cast<std::size_t>(x / divisor % 10)].push_back(x);
    auto place = values.begin();
    for (const std::list<T>& bucket : buckets) {
      isFinished |= bucket.size() == values.size();
      for (const T x : bucket) *place++ = x;
    }
  }
}

void bytes(const std::string& name, std::size_t n) {
  const std::string random = randomBytes(n, 1);
  const std::vector<unsigned char> input(random.begin(), random.end());
  const auto fast = [=] {
    auto values = input;
    radixSortUChar(values.data(), static_cast<int>(values.size()));
    benchmark::DoNotOptimize(values.data());
    return values;
  };
  const auto plain = [=] {
    auto values = input;
    plainRadixSort(values, 3);
    benchmark::DoNotOptimize(values.data());
    return values;
  };
  bench::pair("radixSortUChar/" + name, fast, plain, [=] { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  randomInput("100", 100);
  randomInput("1000", 1000);
  randomInput("100000", 100'000);
  randomInput("1000000", 1'000'000);
  otherInput("ascending", [](int i) { return 1.0 * i; });
  otherInput("descending", [](int i) { return -1.0 * i; });
  otherInput("equal", [](int) { return 5.0; });
  otherInput("descending_pairs", [](int i) { return -1.0 * (i / 2); });
  otherInput("last_two_swapped", [](int i) { return i == 9'999 ? 9997.5 : i; });
  otherInput("smallest_last", [](int i) { return i == 9'999 ? -1.0 : i; });
  otherInput("one_appended", [](int i) { return i == 9'999 ? 5000.5 : i; });
  otherInput("few", [](int i) {
    return static_cast<double>((static_cast<unsigned int>(i) * 2654435761U) >> 27);
  });
  otherInput("largest_first", [](int i) { return i == 0 ? 10'000.0 : i; });
  bytes("1000", 1000);
  bytes("100000", 100'000);
  benchmark::RunSpecifiedBenchmarks();
}
