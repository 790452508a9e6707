#include "Brindle/utility/colourSpace.h"

#include <cmath>

#include "Brindle/utility/colourSpace/triple.h"

namespace {

using brindle::detail::store;

// D65, 2 degree observer.
constexpr double kWhiteX = 95.047;
constexpr double kWhiteY = 100.0;
constexpr double kWhiteZ = 108.883;

constexpr double kLabThreshold = 0.008856;
constexpr double kLabSlope = 7.787;
constexpr double kLabOffset = 0.13793103448275862;  // 16/116

double labCurve(double ratio) {
  return ratio > kLabThreshold ? std::pow(ratio, 0.3333333333333333)
                               : kLabSlope * ratio + kLabOffset;
}

double inverseLabCurve(double f) {
  const double cube = f * f * f;
  return cube > kLabThreshold ? cube : (f - kLabOffset) / kLabSlope;
}

}  // namespace

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
