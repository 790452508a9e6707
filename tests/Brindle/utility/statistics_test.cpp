#include "Brindle/utility/statistics.h"

#include <cstdlib>

#include "support/Call.h"
#include "support/Outcome.h"

namespace {

using support::calls;

/// Of data that lies in the block which `mean` points to at first.
int meanAndSD(const std::vector<float>& data, int dim, int count, float* mean, float& sd) {
  float* block = static_cast<float*>(std::malloc(data.size() * sizeof(float)));
  std::copy(data.begin(), data.end(), block);
  const int result = findMeanAndSD(block, dim, count, block, sd);
  std::copy_n(block, dim, mean);
  std::free(block);
  return result;
}

TEST(Statistics, GiveTheBitsOfTheTable) {
  support::checkTable("statistics.txt", {{"findMeanAndSD", calls(meanAndSD)},
                                         {"mapValue", calls(mapValue)},
                                         {"analyticHeaviside", calls(analyticHeaviside)}});
}

TEST(MeanAndSD, RefusesBeforeAnythingIsTouched) {
  const std::string message =
      "Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!\n";
  float value = 3, sd = 4, *mean = &value;  // not from malloc: must not be released
  const auto refuses = [&](float* data, int dim, int count) {
    const auto call = [&] { return findMeanAndSD(data, dim, count, mean, sd); };
    EXPECT_SAME(outcome(call), Outcome(-1, message)) << dim << " numbers, " << count << " vectors";
    EXPECT_SAME(mean, &value);
    EXPECT_SAME(value, 3.0F);
    EXPECT_SAME(sd, 4.0F);
  };
  refuses(nullptr, 1, 1);
  refuses(&value, 0, 1);
  refuses(&value, 1, 0);
}

}  // namespace
