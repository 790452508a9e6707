#include "Brindle/utility/colourSpace.h"

#include <cmath>
#include <numbers>

#include "Brindle/detail/nearZero.h"
#include "Brindle/utility/colourSpace/triple.h"

namespace {

using brindle::detail::isNearZero;
using brindle::detail::kNoHue;
using brindle::detail::store;
using std::numbers::pi;

/// The point of the plane of hues at `radius`, and the value above it.
void storePolar(double* out, double radius, double hue, double value) {
  const double angle = pi * hue / 180.0;
  store(out, radius * std::cos(angle), radius * std::sin(angle), value);
}

/// In degrees, 0 to 360.
double hueOf(double x, double y, double radius) {
  const double angle = std::atan2(y / radius, x / radius);
  return (angle < 0.0 ? angle + 2.0 * pi : angle) * 180.0 / pi;
}

}  // namespace

void BGR2CylindricalHSV(double* in, double* out) {
  double hsv[3];
  BGR2HSV(in, hsv);
  storePolar(out, hsv[1], hsv[0], hsv[2]);
}

void cylindricalHSV2BGR(double* in, double* out) {
  const double x = in[0];
  const double y = in[1];
  const double value = in[2];
  const double saturation = std::sqrt(x * x + y * y);
  const bool hasHue = !isNearZero(saturation) && !isNearZero(value);
  double hsv[3] = {hasHue ? hueOf(x, y, saturation) : kNoHue, saturation, value};
  HSV2BGR(hsv, out);
}

void BGR2ConeHSV(double* in, double* out) {
  double hsv[3];
  BGR2HSV(in, hsv);
  storePolar(out, hsv[1] * hsv[2], hsv[0], hsv[2]);
}

void coneHSV2BGR(double* in, double* out) {
  const double x = in[0];
  const double y = in[1];
  const double value = in[2];
  if (isNearZero(value)) return store(out, 0.0, 0.0, 0.0);
  const double saturation = std::sqrt(x * x + y * y) / value;
  const double hue = isNearZero(saturation) ? kNoHue : hueOf(x, y, value * saturation);
  double hsv[3] = {hue, saturation, value};
  HSV2BGR(hsv, out);
}
