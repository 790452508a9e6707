#include "Brindle/utility/colourSpace.h"

#include <cmath>
#include <cstddef>

#include "Brindle/utility/colourSpace/triple.h"

namespace {

using brindle::detail::Matrix;
using brindle::detail::sumOf;

// Rows of weights for red, green and blue.
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

/// Linear intensity in percent.
double decoded(double intensity) {
  const double linear =
      intensity > 0.04045 ? std::pow((intensity + 0.055) / 1.055, 2.4) : intensity / 12.92;
  return linear * 100.0;
}

double encoded(double linear) {
  return linear > 0.0031308 ? 1.055 * std::pow(linear, 0.4166666666666667) - 0.055 : 12.92 * linear;
}

}  // namespace

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
