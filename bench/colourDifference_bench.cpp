// CIEDE2000 of records and of BGR colours against the plain steps.
#include "Brindle/utility/colourDifference.h"

#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "PlainColour.h"
#include "ratio.h"

namespace {

using Colour = std::array<double, 3>;
using Pair = std::array<Colour, 2>;

std::vector<Pair> randomPairs(Colour low, Colour high) {
  std::mt19937 engine(1);
  std::vector<Pair> pairs(256);
  for (Pair& pair : pairs) {
    for (Colour& colour : pair) {
      for (std::size_t i = 0; i < 3; ++i) {
        colour[i] = std::uniform_real_distribution(low[i], high[i])(engine);
      }
    }
  }
  return pairs;
}

/// Makes a call that returns `difference` of every pair.
template <class Difference>
auto all(std::vector<Pair> pairs, Difference difference) {
  return [pairs = std::move(pairs), difference]() mutable {
    std::vector<double> results;
    results.reserve(pairs.size());
    for (Pair& pair : pairs) results.push_back(difference(pair[0], pair[1]));
    benchmark::DoNotOptimize(results.data());
    return results;
  };
}

template <class Fast, class Plain>
void compare(const std::string& name, const std::vector<Pair>& pairs, Fast fast, Plain plain) {
  auto allFast = all(pairs, fast);
  auto allPlain = all(pairs, plain);
  bench::pair(name, allFast, allPlain, [=]() mutable { return allFast() == allPlain(); });
}

LAB record(const Colour& lab) {
  return {lab[0], lab[1], lab[2]};
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  compare(
      "CIEDE2000/LAB/256", randomPairs({0, -100, -100}, {100, 100, 100}),
      [](Colour& x, Colour& y) { return CIEDE2000(record(x), record(y)); },
      [](Colour& x, Colour& y) { return plainCIEDE2000(record(x), record(y)); });
  compare(
      "CIEDE2000/BGR/256", randomPairs({0, 0, 0}, {1, 1, 1}),
      [](Colour& x, Colour& y) { return CIEDE2000(x.data(), y.data()); },
      [](Colour& x, Colour& y) {
        return plainCIEDE2000(plainBGR2Lab(x.data()), plainBGR2Lab(y.data()));
      });
  benchmark::RunSpecifiedBenchmarks();
}
