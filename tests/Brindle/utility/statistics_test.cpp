#include "Brindle/utility/statistics.h"

#include <cstdlib>

#include "support/Call.h"

namespace {

/// Of numbers in the block that the mean replaces; null where there are none.
int meanAndSD(std::vector<float>& numbers, int dim, int count, float& sd) {
  float* block = static_cast<float*>(std::malloc(numbers.size() * sizeof(float) + 1));
  std::copy(numbers.begin(), numbers.end(), block);
  const int result = findMeanAndSD(numbers.empty() ? nullptr : block, dim, count, block, sd);
  const auto left = result == 1 ? static_cast<std::size_t>(dim) : numbers.size();
  numbers.assign(block, block + left);
  std::free(block);
  return result;
}

TEST(Statistics, GiveTheBitsOfTheTable) {
  support::checkTable(
      "statistics.txt",
      {{"findMeanAndSD", support::calls(meanAndSD)}, CALLS(mapValue), CALLS(analyticHeaviside)});
}

}  // namespace
