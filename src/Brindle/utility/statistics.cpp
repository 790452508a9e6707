#include "Brindle/utility/statistics.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "Brindle/detail/handles.h"
#include "Brindle/detail/nearZero.h"

namespace {

void findMean(const float* data, std::size_t dim, std::size_t count, float* mean) {
  for (std::size_t r = 0; r < count; ++r) {
    for (std::size_t k = 0; k < dim; ++k) mean[k] += data[r * dim + k];
  }
  for (std::size_t k = 0; k < dim; ++k) mean[k] /= static_cast<float>(count);
}

float spreadAround(const float* mean, const float* data, std::size_t dim, std::size_t count) {
  float sum = 0.0F;
  for (std::size_t r = 0; r < count; ++r) {
    for (std::size_t k = 0; k < dim; ++k) {
      const float difference = mean[k] - data[r * dim + k];
      sum += difference * difference;
    }
  }
  return std::sqrt(sum / static_cast<float>(count));
}

}  // namespace

int findMeanAndSD(float* data, int dim, int count, float*& mean, float& sd) {
  if (dim <= 0 || count <= 0 || data == nullptr) {
    std::puts("Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!");
    return -1;
  }
  const auto components = static_cast<std::size_t>(dim);
  const auto vectors = static_cast<std::size_t>(count);
  const brindle::detail::Block<float> old(mean);  // `data` may lie in it
  sd = 0.0F;
  mean = static_cast<float*>(std::calloc(components, sizeof(float)));
  if (mean == nullptr) return -1;

  findMean(data, components, vectors, mean);
  sd = count == 1 ? 1.0F : spreadAround(mean, data, components, vectors);
  return 1;
}

int mapValue(float fromStart, float fromEnd, float value, float toStart, float toEnd,
             float& result) {
  const float toSpan = toEnd - toStart;
  const float fromSpan = fromEnd - fromStart;
  if (brindle::detail::isNearZero(toSpan) || brindle::detail::isNearZero(fromSpan)) {
    result = toStart;
    return 0;
  }
  // Longer than either span, so not near 0.
  const float length = std::sqrt(toSpan * toSpan + fromSpan * fromSpan);
  result = toStart + (toSpan / length) * ((value - fromStart) / (fromSpan / length));
  return 0;
}

double analyticHeaviside(double a, double b) {
  const double exponent = a * (b * -2.0);
  return 1.0 / (std::exp(exponent) + 1.0);
}
