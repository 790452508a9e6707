// Reduces a colour to its hue. Private: not installed. Used by the hue-weighted Lab of colourSpace
// and by the hue-weighted difference of colourDifference, which differ in what they take for dull.
#pragma once

namespace brindle::detail {

/// Rebuilds `bgr` from its hue alone, at full saturation and value. A dull colour, of a value below
/// 0.13 or a saturation below `minSaturation`, is rebuilt from the other two instead, with the hue
/// 0; greys thus become black. Returns whether the colour is dull.
bool rebuildByHue(double* bgr, double* rebuilt, double minSaturation);

}  // namespace brindle::detail
