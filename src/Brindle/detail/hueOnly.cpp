#include "Brindle/detail/hueOnly.h"

#include "Brindle/utility/colourSpace.h"

namespace brindle::detail {

namespace {

constexpr double kMinValue = 0.13;

}  // namespace

bool rebuildByHue(double* bgr, double* rebuilt, double minSaturation) {
  double hsv[3];
  BGR2HSV(bgr, hsv);
  const bool isDull = hsv[2] < kMinValue || hsv[1] < minSaturation;
  if (isDull) {
    hsv[0] = 0.0;
  } else {
    hsv[1] = 1.0;
    hsv[2] = 1.0;
  }
  HSV2BGR(hsv, rebuilt);
  return isDull;
}

}  // namespace brindle::detail
