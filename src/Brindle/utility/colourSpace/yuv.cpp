#include "Brindle/utility/colourSpace.h"

#include <cstddef>

#include "Brindle/utility/colourSpace/triple.h"

namespace {

// Rows of weights for red, green and blue.
constexpr brindle::detail::Matrix kRgbToYuv = {{
    {0.299, 0.587, 0.114},
    {-0.14713, -0.28886, 0.436},
    {0.615, -0.51499, -0.10001},
}};

}  // namespace

void BGR2YUV(double* in, double* out) {
  const double blue = in[0];
  const double green = in[1];
  const double red = in[2];
  for (std::size_t i = 0; i < 3; ++i)
    out[i] = brindle::detail::sumOf(kRgbToYuv[i], red, green, blue);
}
