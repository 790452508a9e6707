// Reduces a colour to its hue for hue-weighted comparisons. Private: not installed.
#pragma once

#include "Brindle/utility/colourSpace.h"

namespace brindle::detail {

/// Rebuilds `bgr` from its hue alone, at full saturation and value. A dull colour, of a value below
/// 0.13 or a saturation below `minSaturation`, is rebuilt from the other two instead, with the hue
/// 0; greys thus become black. Returns whether the colour is dull.
inline bool rebuildByHue(double* bgr, double* rebuilt, double minSaturation) {
  double hsv[3];
  BGR2HSV(bgr, hsv);
  const bool isDull = hsv[2] < 0.13 || hsv[1] < minSaturation;
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
