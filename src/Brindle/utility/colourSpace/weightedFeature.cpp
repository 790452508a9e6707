#include "Brindle/utility/colourSpace.h"

#include "Brindle/detail/hueOnly.h"
#include "Brindle/utility/colourSpace/triple.h"

namespace {

constexpr double kMinSaturation = 0.15;

void BGR2HueWeightedLab(double* in, double* out) {
  double rebuilt[3];
  const bool isDull = brindle::detail::rebuildByHue(in, rebuilt, kMinSaturation);
  BGR2Lab(rebuilt, out);
  if (isDull) out[0] += 1000.0;
}

}  // namespace

void BGR2WeightedFeature(double* in, double* out, int featureType) {
  if (in[0] < 0.0 || in[1] < 0.0 || in[2] < 0.0)
    return brindle::detail::store(out, 1000.0, 1000.0, 1000.0);
  switch (featureType) {
    case 1:
      return BGR2HueWeightedLab(in, out);
    case 2:
      return BGR2CylindricalHSV(in, out);
    case 3:
      return BGR2ConeHSV(in, out);
    default:
      return BGR2Lab(in, out);
  }
}

void weightedFeature2BGR(double* in, double* out, int featureType) {
  switch (featureType) {
    case 0:
      return Lab2BGR(in, out);
    case 1:
      if (in[0] > 700.0) in[0] -= 1000.0;
      return Lab2BGR(in, out);
    case 2:
      return cylindricalHSV2BGR(in, out);
    case 3:
      return coneHSV2BGR(in, out);
    default:
      return BGR2Lab(out, in);
  }
}
