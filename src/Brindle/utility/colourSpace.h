/// @file
/// Conversions between colour spaces, one colour at a time.
///
/// A colour is an array of three doubles that the caller owns. Every function reads the colour `in`
/// and writes the three elements of `out`, in the spaces that its name says; the two arrays must
/// not overlap.
/// - BGR: blue, green, red; sRGB-encoded intensities (IEC 61966-2-1), 0 to 1.
/// - HSV: hue in degrees, 0 to 360 (360 only by rounding), or -1 where there is none (grey and
///   black); saturation, 0 to 1; value, the largest component of the BGR colour.
/// - YUV: luma, 0 to 1; U, within 0.436 of 0; V, within 0.615 of 0.
/// - XYZ: CIE 1931, 2 degree observer; white has Y = 100.
/// - Lab: L*, 0 to 100; a*; b*; relative to D65, 2 degree observer.
/// - Cylindrical HSV: S cos H, S sin H, V, with an angle of -1 degree for the hue -1.
/// - Cone HSV: S V cos H, S V sin H, V, likewise.
///
/// Nothing is clamped: the same formulas convert values outside these ranges, and the outcome may
/// lie outside as well. NaN input is safe, its output unspecified. A value is near zero when
/// -9.999999974752427e-7 <= value <= 9.999999974752427e-7, which is 1e-6 in single precision; NaN
/// is not near zero.
///
/// Every step is evaluated in a fixed order in double precision: results have the same bits
/// wherever the C library's `pow`, `sin`, `cos` and `atan2` have. No state; callable from any
/// thread.
#pragma once

/// @defgroup colourSpace Colour spaces
/// @{

/// By the hexcone model (Smith, Color Gamut Transform Pairs, 1978). BGR may be on any scale from 0
/// up; V keeps it.
///
/// A V near zero gives (-1, 0, V). A difference between the largest and the smallest component near
/// zero gives the hue -1; S is still that difference over V. A hue less than a rounding error below
/// 0 becomes 360.
void BGR2HSV(double* in, double* out);

/// Returns to BGR on the scale of V.
///
/// With a saturation of 0 or less only a negative hue, such as -1, gives the grey (V, V, V); any
/// other hue gives black. A hue from 360 on counts as 360, red. Negative hues do not wrap around:
/// above -60 they extend the sector from 0 to 60 degrees; -60 and below count in the sector from
/// 300 to 360, at the fraction that hue / 60 has, 0 or negative; below -60 * 2^31 BGR is
/// unspecified.
void HSV2BGR(double* in, double* out);

/// Analogue YUV with the luma weights of ITU-R BT.601, of the encoded intensities. There is no way
/// back.
void BGR2YUV(double* in, double* out);

/// sRGB decoding and matrix of IEC 61966-2-1, white point D65. The matrix has four decimals; white
/// (1, 1, 1) gives (95.05, 100, 108.9). Intensities up to 0.04045, negative ones too, are decoded
/// linearly.
void BGR2XYZ(double* in, double* out);

/// The inverse matrix with ten decimals, then the sRGB encoding of IEC 61966-2-1. Linear
/// intensities up to 0.0031308, negative ones too, are encoded linearly. A round trip from BGR in
/// [0, 1] is within 1.4e-9, but for intensities just below 0.04045: within 3.1e-8.
void XYZ2BGR(double* in, double* out);

/// As in CIE 15, with the rounded constants 0.008856 and 7.787 and the white (95.047, 100,
/// 108.883).
void XYZ2Lab(double* in, double* out);

/// With the constants of XYZ2Lab(). f^3, not f, is compared with 0.008856.
void Lab2XYZ(double* in, double* out);

/// By way of XYZ. The two conversions' whites differ: white (1, 1, 1) gives L* = 100, a* = 0.00526
/// and b* = -0.01041, about. Black gives (0, 0, 0).
void BGR2Lab(double* in, double* out);

/// By way of XYZ. Components are below 0 or above 1 for a colour outside the sRGB gamut.
void Lab2BGR(double* in, double* out);

/// By way of BGR2HSV().
void BGR2CylindricalHSV(double* in, double* out);

/// By way of HSV2BGR(). A radius or V near zero means the hue -1. A radius above 1 is a saturation
/// above 1 and gives, for a positive V, negative components.
void cylindricalHSV2BGR(double* in, double* out);

/// By way of BGR2HSV().
void BGR2ConeHSV(double* in, double* out);

/// By way of HSV2BGR(). A V near zero gives black, whatever the radius. A saturation, radius over
/// V, near zero means the hue -1, and for a negative V the grey (V, V, V); any other radius gives
/// black for a negative V, and negative components for a positive V below it.
void coneHSV2BGR(double* in, double* out);

/// Converts BGR to the feature space `featureType`: 1 for hue-weighted Lab, 2 for cylindrical HSV,
/// 3 for cone HSV, any other for Lab. A colour with a negative component gives (1000, 1000, 1000)
/// in each of them.
///
/// Hue-weighted Lab keeps only the hue of a vivid colour, which becomes the Lab of that hue at full
/// saturation and value. A dull colour, of a V below 0.13 or an S below 0.15, keeps S and V and
/// gets the hue 0, and 1000 is added to its L*. Every grey gives (1000, 0, 0).
void BGR2WeightedFeature(double* in, double* out, int featureType);

/// Converts a colour of the feature space `featureType` to BGR: 0 for Lab, 1 for hue-weighted Lab,
/// 2 for cylindrical HSV, 3 for cone HSV. Of hue-weighted Lab, an L* above 700 is first lowered by
/// 1000, in the caller's array; the saturation and value that were taken away stay lost.
///
/// @warning With any other `featureType` the arrays change roles: `out` is read as a BGR colour,
/// and its Lab is written to `in`. See docs/hazards.md.
void weightedFeature2BGR(double* in, double* out, int featureType);

/// @}
