#include "Brindle/utility/colourSpace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "Brindle/detail/hueOnly.h"
#include "Brindle/detail/nearZero.h"

namespace {

using brindle::detail::isNearZero;
using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kNoHue = -1.0;
constexpr double kMinFeatureSaturation = 0.15;

// Rows of weights for red, green and blue.
constexpr Matrix kRgbToYuv = {{
    {0.299, 0.587, 0.114},
    {-0.14713, -0.28886, 0.436},
    {0.615, -0.51499, -0.10001},
}};
constexpr Matrix kRgbToXyz = {{
    {0.4124, 0.3576, 0.1805},
    {0.2126, 0.7152, 0.0722},
    {0.0193, 0.1192, 0.9505},
}};
// Rows for red, green and blue.
constexpr Matrix kXyzToRgb = {{
    {3.2406254773, -1.5372079722, -0.4986285986},
    {-0.9689307147, 1.8757560608, 0.0415175238},
    {0.0557101204, -0.2040210505, 1.0569959422},
}};

// D65, 2 degree observer.
constexpr double kWhiteX = 95.047;
constexpr double kWhiteY = 100.0;
constexpr double kWhiteZ = 108.883;

constexpr double kLabThreshold = 0.008856;
constexpr double kLabSlope = 7.787;
constexpr double kLabOffset = 0.13793103448275862;  // 16/116

double sumOf(const Triple& weights, double first, double second, double third) {
  return weights[0] * first + weights[1] * second + weights[2] * third;
}

/// Linear intensity in percent.
double decoded(double intensity) {
  const double linear =
      intensity > 0.04045 ? std::pow((intensity + 0.055) / 1.055, 2.4) : intensity / 12.92;
  return linear * 100.0;
}

double encoded(double linear) {
  return linear > 0.0031308 ? 1.055 * std::pow(linear, 0.4166666666666667) - 0.055 : 12.92 * linear;
}

double labCurve(double ratio) {
  return ratio > kLabThreshold ? std::pow(ratio, 0.3333333333333333)
                               : kLabSlope * ratio + kLabOffset;
}

double inverseLabCurve(double f) {
  const double cube = f * f * f;
  return cube > kLabThreshold ? cube : (f - kLabOffset) / kLabSlope;
}

/// The sector of 60 degrees, cut towards zero. What an int cannot hold, or is not a number, has the
/// number that x86 gives it.
int sectorOf(double sixths) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  return sixths > kLowest ? static_cast<int>(sixths) : kLowest;
}

// What the blue, green and red component is in each sector.
enum Level { kV, kP, kQ, kT };
constexpr std::array<std::array<Level, 3>, 6> kSectorLevels = {{
    {kP, kT, kV},
    {kP, kV, kQ},
    {kT, kV, kP},
    {kV, kQ, kP},
    {kV, kP, kT},
    {kQ, kP, kV},
}};

void store(double* out, double first, double second, double third) {
  out[0] = first;
  out[1] = second;
  out[2] = third;
}

/// The point of the plane of hues at `radius`, and the value above it.
void storePolar(double* out, double radius, double hue, double value) {
  const double angle = kPi * hue / 180.0;
  store(out, radius * std::cos(angle), radius * std::sin(angle), value);
}

double hueOf(double x, double y, double radius) {
  const double angle = std::atan2(y / radius, x / radius);
  return (angle < 0.0 ? angle + kTwoPi : angle) * 180.0 / kPi;
}

void BGR2HueWeightedLab(double* in, double* out) {
  double rebuilt[3];
  const bool isDull = brindle::detail::rebuildByHue(in, rebuilt, kMinFeatureSaturation);
  BGR2Lab(rebuilt, out);
  if (isDull) out[0] += 1000.0;
}

}  // namespace

void BGR2HSV(double* in, double* out) {
  const double blue = in[0];
  const double green = in[1];
  const double red = in[2];
  // Ties go from red to green and from both to blue.
  const bool redBeatsGreen = red > green;
  const double larger = redBeatsGreen ? red : green;
  const bool blueWins = !(larger > blue);
  const double value = blueWins ? blue : larger;
  const double range = value - std::min(std::min(red, green), blue);

  store(out, kNoHue, 0.0, value);
  if (isNearZero(value)) return;
  out[1] = range / value;
  if (isNearZero(range)) return;

  const double sixths = blueWins        ? (red - green) / range + 4.0
                        : redBeatsGreen ? (green - blue) / range
                                        : (blue - red) / range + 2.0;
  const double hue = 60.0 * sixths;
  out[0] = hue < 0.0 ? hue + 360.0 : hue;
}

void HSV2BGR(double* in, double* out) {
  const double hue = in[0];
  const double saturation = in[1];
  const double value = in[2];
  if (saturation <= 0.0) {
    const double grey = hue < 0.0 ? value : 0.0;
    return store(out, grey, grey, grey);
  }
  const double low = (1.0 - saturation) * value;
  if (hue >= 360.0) return store(out, low, low, value);

  const double sixths = hue / 60.0;
  const int sector = sectorOf(sixths);
  const double part = sixths - sector;
  std::array<double, 4> levels;
  levels[kV] = value;
  levels[kP] = low;
  levels[kQ] = (1.0 - saturation * part) * value;
  levels[kT] = (1.0 - saturation * (1.0 - part)) * value;
  const bool isLast = sector < 0 || sector > 4;
  const auto& [b, g, r] = kSectorLevels[isLast ? 5 : static_cast<std::size_t>(sector)];
  store(out, levels[b], levels[g], levels[r]);
}

void BGR2YUV(double* in, double* out) {
  const double blue = in[0];
  const double green = in[1];
  const double red = in[2];
  for (std::size_t i = 0; i < 3; ++i) out[i] = sumOf(kRgbToYuv[i], red, green, blue);
}

void BGR2XYZ(double* in, double* out) {
  const double blue = decoded(in[0]);
  const double green = decoded(in[1]);
  const double red = decoded(in[2]);
  for (std::size_t i = 0; i < 3; ++i) out[i] = sumOf(kRgbToXyz[i], red, green, blue);
}

void XYZ2BGR(double* in, double* out) {
  const double x = in[0] / 100.0;
  const double y = in[1] / 100.0;
  const double z = in[2] / 100.0;
  for (std::size_t i = 0; i < 3; ++i) out[i] = encoded(sumOf(kXyzToRgb[2 - i], x, y, z));
}

void XYZ2Lab(double* in, double* out) {
  const double fx = labCurve(in[0] / kWhiteX);
  const double fy = labCurve(in[1] / kWhiteY);
  const double fz = labCurve(in[2] / kWhiteZ);
  store(out, 116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz));
}

void Lab2XYZ(double* in, double* out) {
  const double fy = (in[0] + 16.0) / 116.0;
  const double fx = in[1] / 500.0 + fy;
  const double fz = fy - in[2] / 200.0;
  store(out, kWhiteX * inverseLabCurve(fx), kWhiteY * inverseLabCurve(fy),
        kWhiteZ * inverseLabCurve(fz));
}

void BGR2Lab(double* in, double* out) {
  double xyz[3];
  BGR2XYZ(in, xyz);
  XYZ2Lab(xyz, out);
}

void Lab2BGR(double* in, double* out) {
  double xyz[3];
  Lab2XYZ(in, xyz);
  XYZ2BGR(xyz, out);
}

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

void BGR2WeightedFeature(double* in, double* out, int featureType) {
  if (in[0] < 0.0 || in[1] < 0.0 || in[2] < 0.0) return store(out, 1000.0, 1000.0, 1000.0);
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
