#include "Brindle/utility/colourSpace.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "Brindle/detail/nearZero.h"
#include "Brindle/detail/truncate.h"
#include "Brindle/utility/colourSpace/triple.h"

namespace {

using brindle::detail::isNearZero;
using brindle::detail::kNoHue;
using brindle::detail::store;

// What the blue, green and red component is in each sector of 60 degrees: the value, the lowest
// component, or on the way down (kQ) or up (kT) between the two.
enum Level { kV, kP, kQ, kT };
constexpr std::array<std::array<Level, 3>, 6> kSectorLevels = {{
    {kP, kT, kV},
    {kP, kV, kQ},
    {kT, kV, kP},
    {kV, kQ, kP},
    {kV, kP, kT},
    {kQ, kP, kV},
}};

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
  const int sector = brindle::detail::truncateToInt(sixths);
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
