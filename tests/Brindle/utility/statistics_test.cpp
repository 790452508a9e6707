#include "Brindle/utility/statistics.h"

#include <cstdlib>
#include <memory>

#include "support/Outcome.h"
#include "support/Table.h"

namespace {

using Numbers = std::vector<double>;

/// What is returned, the spread, then the mean of data that lies in the block which `mean` points
/// to at first.
Numbers meanAndSD(const Numbers& in) {
  const int dim = static_cast<int>(in[0]), count = static_cast<int>(in[1]);
  float *mean = static_cast<float*>(std::malloc(in.size() * sizeof(float))), sd = 99;
  std::copy(in.begin() + 2, in.end(), mean);
  Numbers out{1.0 * findMeanAndSD(mean, dim, count, mean, sd)};
  out.push_back(sd);
  out.insert(out.end(), mean, mean + dim);
  std::free(mean);
  return out;
}

/// What is returned, then the result.
Numbers mapped(const Numbers& in) {
  const std::vector<float> x(in.begin(), in.end());
  float result = 99;
  const double returned = mapValue(x[0], x[1], x[2], x[3], x[4], result);
  return {returned, result};
}

Numbers heaviside(const Numbers& in) {
  return {analyticHeaviside(in[0], in[1])};
}

TEST(Statistics, GiveTheBitsOfTheTable) {
  support::checkTable("statistics.txt",
                      {{"findMeanAndSD", support::returnsNumbers(meanAndSD)},
                       {"mapValue", support::returnsNumbers(mapped)},
                       {"analyticHeaviside", support::returnsNumbers(heaviside)}});
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
