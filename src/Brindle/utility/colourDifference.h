/// @file
/// How different two colours look: the CIE differences of 1976, 1994 and 2000, and one by hue.
///
/// Colours are given as BGR, arrays of three doubles in the order blue, green, red, sRGB-encoded, 0
/// to 1, or as Lab in a record; see colourSpace.h for both, for the white point (D65, 2 degree
/// observer) and for how BGR becomes Lab. Values outside these ranges are not clamped. The
/// arguments are not modified, except by LabCap(), and may be one and the same array.
///
/// Every function but LabCap() returns the difference, 0 for identical colours and never negative
/// as long as no step overflows. A NaN component gives NaN (myDeltaE(): unspecified). Every step is
/// evaluated in a fixed order in double precision: results have the same bits wherever the C
/// library's `pow`, `exp`, `sin`, `cos` and `atan2` have. No state; callable from any thread.
#pragma once

/// @defgroup colourDifference Colour differences
/// @{

/// A colour in Lab.
struct LAB {
  double l;  ///< L*, 0 to 100
  double a;  ///< a*
  double b;  ///< b*
};

/// Measures the CIE 1976 difference (CIE 15), the distance in Lab.
double CIEDeltaE76(double* first, double* second);

/// Measures the CIE 1994 difference (CIE 116-1995) with the weights for graphic arts: kL = kC = kH
/// = 1, K1 = 0.045, K2 = 0.015.
///
/// @warning The weights of chroma and hue rest on the chroma of `first`, the reference: exchanging
/// the colours changes the result where their chromas differ.
double CIEDeltaE94(double* first, double* second);

/// Measures the CIEDE2000 difference (Sharma, Wu and Dalal, 2005), kL = kC = kH = 1, with hue
/// angles in degrees.
///
/// Apart from rounding it differs from CIEDE2000() for one kind of pair: where the hues are more
/// than 180 degrees apart and sum to 360 or more, the mean hue is 360 higher, at 360 or above,
/// which alters the rotation term. For hues exactly opposite each other, rounding may make the two
/// functions take different sides.
double CIEDeltaE2000(double* first, double* second);

/// @{
/// Measures the CIEDE2000 difference, kL = kC = kH = 1, with hue angles in radians. The mean hue of
/// a pair with a neutral colour (no chroma) is the sum of both hues.
double CIEDE2000(const LAB& first, const LAB& second);
double CIEDE2000(double* first, double* second);
/// @}

/// Measures the CIE 1976 difference of two colours that are rebuilt from their hues first.
///
/// A vivid colour keeps only its hue, at full HSV saturation and value. A dull one, of a value
/// below 0.13 or a saturation below 0.2 (BGR2WeightedFeature() has 0.15), keeps these two and gets
/// the hue 0. Two vivid colours thus differ by hue alone, and all greys are equal, being rebuilt as
/// black.
double myDeltaE(double* first, double* second);

/// Clamps `lab`, an array L*, a*, b*, in place: L* to 0 and 99.654922, a* to -85.928254 and
/// 97.961931, b* to -107.542807 and 94.201418. NaN stays.
void LabCap(double* lab);

/// @}
