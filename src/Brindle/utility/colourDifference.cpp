#include "Brindle/utility/colourDifference.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "Brindle/detail/hueOnly.h"
#include "Brindle/utility/colourSpace.h"

namespace {

using std::numbers::pi;

constexpr double kTwoPi = 2.0 * pi;
constexpr double k25To7 = 6103515625.0;
constexpr double kMinVividSaturation = 0.2;

double square(double x) {
  return x * x;
}

LAB labOf(double* bgr) {
  double lab[3];
  BGR2Lab(bgr, lab);
  return {lab[0], lab[1], lab[2]};
}

double chromaOf(double a, double b) {
  return std::sqrt(a * a + b * b);
}

/// Near 0 for greyish colours, near 1 for saturated ones.
double chromaShare(double chroma) {
  const double power = std::pow(chroma, 7.0);
  return std::sqrt(power / (power + k25To7));
}

// The names in the formulas of CIEDE2000 are given where they help to compare: a', C', h', T ...

/// A colour's chroma part, a* being stretched to a'.
struct Adjusted {
  Adjusted(const LAB& colour, double stretch)
      : a(colour.a * stretch), b(colour.b), chroma(chromaOf(a, b)) {}
  double a, b, chroma;
};

struct Hues {
  double difference;  // Δh'
  double mean;        // mean h'
};

/// Hues, and the constant angles of so many degrees, in radians; the mean hue stays within one
/// turn.
struct Radians {
  static constexpr double k6 = 0.10471975511965978;
  static constexpr double k25 = 0.4363323129985824;
  static constexpr double k30 = 0.5235987755982988;
  static constexpr double k63 = 1.0995574287564276;
  static constexpr double k275 = 4.799655442984406;

  static double toRadians(double angle) { return angle; }

  static double hue(const Adjusted& colour) {
    if (colour.b == 0.0 && colour.a == 0.0) return 0.0;
    const double angle = std::atan2(colour.b, colour.a);
    return angle < 0.0 ? angle + kTwoPi : angle;
  }

  static Hues compare(const Adjusted& first, const Adjusted& second) {
    const double h1 = hue(first);
    const double h2 = hue(second);
    if (first.chroma * second.chroma == 0.0) return {0.0, h1 + h2};
    return {difference(h1, h2), mean(h1, h2)};
  }

  static double difference(double h1, double h2) {
    const double plain = h2 - h1;
    if (plain < -pi) return plain + kTwoPi;
    return plain > pi ? plain - kTwoPi : plain;
  }

  static double mean(double h1, double h2) {
    const double sum = h1 + h2;
    if (std::fabs(h1 - h2) <= pi) return sum / 2.0;
    return (sum < kTwoPi ? sum + kTwoPi : sum - kTwoPi) / 2.0;
  }
};

/// The same in degrees; the mean of hues on both sides of 0 is not brought back below 360.
struct Degrees {
  static constexpr double k6 = 6.0;
  static constexpr double k25 = 25.0;
  static constexpr double k30 = 30.0;
  static constexpr double k63 = 63.0;
  static constexpr double k275 = 275.0;

  static double toRadians(double angle) { return angle * pi / 180.0; }

  static double hue(const Adjusted& colour) {
    const double angle = std::atan2(colour.b, colour.a) * 180.0 / pi;
    return angle < 0.0 ? angle + 360.0 : angle;
  }

  static Hues compare(const Adjusted& first, const Adjusted& second) {
    const double h1 = hue(first);
    const double h2 = hue(second);
    const double plain = h2 - h1;
    if (std::fabs(plain) <= 180.0) return {plain, (h1 + h2) / 2.0};
    return {h1 >= h2 ? plain + 360.0 : plain - 360.0, (h1 + h2 + 360.0) / 2.0};
  }
};

/// T: how the weight of a hue difference depends on the mean hue.
template <class Angle>
double hueWeight(double mean) {
  return 1.0 - 0.17 * std::cos(Angle::toRadians(mean - Angle::k30)) +
         0.24 * std::cos(Angle::toRadians(2.0 * mean)) +
         0.32 * std::cos(Angle::toRadians(3.0 * mean + Angle::k6)) -
         0.2 * std::cos(Angle::toRadians(4.0 * mean - Angle::k63));
}

/// RT: how chroma and hue differences interact in the blues.
template <class Angle>
double rotation(double meanHue, double meanChroma) {
  const double turn = Angle::k30 * std::exp(-square((meanHue - Angle::k275) / Angle::k25));
  return -std::sin(Angle::toRadians(2.0 * turn)) * (2.0 * chromaShare(meanChroma));
}

template <class Angle>
double ciede2000(const LAB& first, const LAB& second) {
  const double labChroma = (chromaOf(first.a, first.b) + chromaOf(second.a, second.b)) / 2.0;
  const double stretch = 1.0 + 0.5 * (1.0 - chromaShare(labChroma));
  const Adjusted one(first, stretch);
  const Adjusted two(second, stretch);
  const Hues hues = Angle::compare(one, two);

  const double deltaL = second.l - first.l;
  const double deltaC = two.chroma - one.chroma;
  const double deltaH =
      2.0 * std::sqrt(one.chroma * two.chroma) * std::sin(Angle::toRadians(hues.difference / 2.0));
  const double meanChroma = (one.chroma + two.chroma) / 2.0;
  const double lightnessSq = square((first.l + second.l) / 2.0 - 50.0);

  const double l = deltaL / (1.0 + 0.015 * lightnessSq / std::sqrt(20.0 + lightnessSq));
  const double c = deltaC / (1.0 + 0.045 * meanChroma);
  const double h = deltaH / (1.0 + 0.015 * meanChroma * hueWeight<Angle>(hues.mean));
  return std::sqrt(l * l + c * c + h * h + rotation<Angle>(hues.mean, meanChroma) * c * h);
}

}  // namespace

double CIEDeltaE76(double* first, double* second) {
  const LAB one = labOf(first);
  const LAB two = labOf(second);
  return std::sqrt(square(one.l - two.l) + square(one.a - two.a) + square(one.b - two.b));
}

double CIEDeltaE94(double* first, double* second) {
  const LAB one = labOf(first);
  const LAB two = labOf(second);
  const double chroma = chromaOf(one.a, one.b);
  const double deltaC = chroma - chromaOf(two.a, two.b);
  const double hueSq = square(one.a - two.a) + square(one.b - two.b) - square(deltaC);
  const double deltaH = std::sqrt(std::max(hueSq, 0.0));
  return std::sqrt(square(one.l - two.l) + square(deltaC / (1.0 + 0.045 * chroma)) +
                   square(deltaH / (1.0 + 0.015 * chroma)));
}

double CIEDeltaE2000(double* first, double* second) {
  return ciede2000<Degrees>(labOf(first), labOf(second));
}

double CIEDE2000(const LAB& first, const LAB& second) {
  return ciede2000<Radians>(first, second);
}

double CIEDE2000(double* first, double* second) {
  return CIEDE2000(labOf(first), labOf(second));
}

double myDeltaE(double* first, double* second) {
  double one[3];
  double two[3];
  brindle::detail::rebuildByHue(first, one, kMinVividSaturation);
  brindle::detail::rebuildByHue(second, two, kMinVividSaturation);
  return CIEDeltaE76(one, two);
}

void LabCap(double* lab) {
  static constexpr struct {
    double low, high;
  } kBounds[] = {{0.0, 99.654922}, {-85.928254, 97.961931}, {-107.542807, 94.201418}};
  for (std::size_t i = 0; i < 3; ++i) {
    lab[i] = std::clamp(lab[i], kBounds[i].low, kBounds[i].high);
  }
}
