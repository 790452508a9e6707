#include "PlainColour.h"

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double k2Pi = 6.283185307179586;

constexpr auto length = [](double x, double y) { return std::sqrt(x * x + y * y); };

double chromaTerm(double c) {
  return std::sqrt(std::pow(c, 7.0) / (std::pow(c, 7.0) + 6103515625.0));
}

double hue(double b, double a) {
  const double h = b == 0 && a == 0 ? 0 : std::atan2(b, a);
  return h < 0 ? h + k2Pi : h;
}

}  // namespace

LAB plainBGR2Lab(const double* in) {
  const auto linear = [](double c) {
    return (c > 0.04045 ? std::pow((c + 0.055) / 1.055, 2.4) : c / 12.92) * 100;
  };
  const auto f = [](double t) {
    return t > 0.008856 ? std::pow(t, 0.3333333333333333) : 7.787 * t + 0.13793103448275862;
  };
  const double b = linear(in[0]), g = linear(in[1]), r = linear(in[2]);
  const double x = f((0.4124 * r + 0.3576 * g + 0.1805 * b) / 95.047);
  const double y = f((0.2126 * r + 0.7152 * g + 0.0722 * b) / 100);
  const double z = f((0.0193 * r + 0.1192 * g + 0.9505 * b) / 108.883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double plainCIEDE2000(const LAB& x, const LAB& y) {
  const double g = 0.5 * (1 - chromaTerm((length(x.a, x.b) + length(y.a, y.b)) / 2));
  const double a1 = x.a * (1 + g), a2 = y.a * (1 + g);
  const double c1 = length(a1, x.b), c2 = length(a2, y.b);
  const double h1 = hue(x.b, a1), h2 = hue(y.b, a2);
  const double dL = y.l - x.l, dC = c2 - c1, l = (x.l + y.l) / 2, c = (c1 + c2) / 2;
  double dH = 0, h = h1 + h2;
  if (c1 * c2 != 0) {
    const double dh = h2 - h1 < -kPi ? h2 - h1 + k2Pi : h2 - h1 > kPi ? h2 - h1 - k2Pi : h2 - h1;
    dH = 2 * std::sqrt(c1 * c2) * std::sin(dh / 2);
    h = (std::fabs(h1 - h2) <= kPi ? h : h < k2Pi ? h + k2Pi : h - k2Pi) / 2;
  }
  const double t = 1 - 0.17 * std::cos(h - 0.5235987755982988) + 0.24 * std::cos(2 * h) +
                   0.32 * std::cos(3 * h + 0.10471975511965978) -
                   0.2 * std::cos(4 * h - 1.0995574287564276);
  const double e = (h - 4.799655442984406) / 0.4363323129985824;
  const double theta = 0.5235987755982988 * std::exp(-(e * e));
  const double rt = -std::sin(2 * theta) * (2 * chromaTerm(c));
  const double sl = 1 + 0.015 * ((l - 50) * (l - 50)) / std::sqrt(20 + (l - 50) * (l - 50));
  const double sc = 1 + 0.045 * c;
  const double sh = 1 + 0.015 * c * t;
  return std::sqrt((dL / sl) * (dL / sl) + (dC / sc) * (dC / sc) + (dH / sh) * (dH / sh) +
                   rt * (dC / sc) * (dH / sh));
}
