/// @file
/// Conversions between colour spaces, one colour at a time.
///
/// A colour is an array of three doubles that the caller owns. Every function reads the colour `in`
/// and writes the three elements of `out`; the two arrays must not overlap.
/// - BGR: blue, green, red; sRGB-encoded intensities (IEC 61966-2-1), 0 to 1.
/// - HSV: hue in degrees, [0, 360), or -1 where there is none (grey and black); saturation, 0 to 1;
///   value, the largest component of the BGR colour.
/// - YUV: luma, 0 to 1; U, within 0.436 of 0; V, within 0.615 of 0.
/// - XYZ: CIE 1931, 2 degree observer; white has Y = 100.
/// - Lab: L*, 0 to 100; a*; b*; relative to D65, 2 degree observer.
/// - Cylindrical HSV: S cos H, S sin H, V.
/// - Cone HSV: S V cos H, S V sin H, V.
///
/// Nothing is clamped: the same formulas convert values outside these ranges, and the outcome may
/// lie outside as well. What is not a number goes in without harm, but nothing is promised of what
/// comes out. A value is near zero when -9.999999974752427e-7 <= value <= 9.999999974752427e-7,
/// which is 1e-6 in single precision; what is not a number never is.
///
/// Every step is evaluated in a fixed order in double precision, so results have the same bits
/// with every compiler, optimisation and processor for which the C library's `pow`, `sin`, `cos`
/// and `atan2` have. No state; callable from any thread.
#pragma once

/// Converts BGR to HSV by the hexcone model (Smith, Color Gamut Transform Pairs, 1978).
///
/// A V near zero gives (-1, 0, V). A difference between the largest and the smallest component near
/// zero gives the hue -1; S is that difference over V all the same. A hue less than a rounding
/// error below 0 becomes 360.
/// @param in  BGR, on any scale from 0 up
/// @param out  HSV; V keeps the scale
void BGR2HSV(double* in, double* out);

/// Converts HSV to BGR.
///
/// With a saturation of 0 or less only a negative hue, such as -1, gives the grey (V, V, V); any
/// other hue gives black. A hue from 360 on counts as 360, red. Negative hues do not wrap around:
/// down to -60 they extend the sector from 0 to 60 degrees; -60 and below count in the sector from
/// 300 to 360, at the fraction that hue / 60 has, 0 or negative.
/// @param in  HSV; nothing is promised of a hue that is not a number or below -60 * 2^31
/// @param out  BGR, on the scale of V
void HSV2BGR(double* in, double* out);

/// Converts BGR to analogue YUV with the luma weights of ITU-R BT.601. There is no way back.
/// @param in  BGR; the encoded intensities are weighted
/// @param out  YUV
void BGR2YUV(double* in, double* out);

/// Converts BGR to XYZ: sRGB decoding and matrix of IEC 61966-2-1, white point D65. The matrix has
/// four decimals; white (1, 1, 1) gives (95.05, 100, 108.9).
/// @param in  BGR; intensities up to 0.04045, negative ones too, are decoded linearly
/// @param out  XYZ
void BGR2XYZ(double* in, double* out);

/// Converts XYZ to BGR: the inverse matrix with ten decimals, then the sRGB encoding of
/// IEC 61966-2-1. Linear intensities up to 0.0031308, negative ones too, are encoded linearly.
/// There and back, BGR2XYZ() and XYZ2BGR(), comes close to the first colour and not exactly at it.
/// @param in  XYZ
/// @param out  BGR
void XYZ2BGR(double* in, double* out);

/// Converts XYZ to Lab as in CIE 15, with the rounded constants 0.008856 and 7.787 and the white
/// (95.047, 100, 108.883), D65 for the 2 degree observer.
/// @param in  XYZ
/// @param out  Lab
void XYZ2Lab(double* in, double* out);

/// Converts Lab to XYZ, with the constants of XYZ2Lab(). The cube of f, and not f, is held against
/// 0.008856.
/// @param in  Lab
/// @param out  XYZ
void Lab2XYZ(double* in, double* out);

/// Converts BGR to Lab by way of XYZ. The two conversions' whites differ: white (1, 1, 1) gives
/// L* = 100, a* = 0.00526 and b* = -0.01041, about. Black gives (0, 0, 0).
/// @param in  BGR
/// @param out  Lab
void BGR2Lab(double* in, double* out);

/// Converts Lab to BGR by way of XYZ.
/// @param in  Lab
/// @param out  BGR, with components below 0 or above 1 for a colour outside the sRGB gamut
void Lab2BGR(double* in, double* out);

/// Converts BGR to cylindrical HSV. The hue -1 is taken for an angle of -1 degree.
/// @param in  BGR
/// @param out  cylindrical HSV
void BGR2CylindricalHSV(double* in, double* out);

/// Converts cylindrical HSV to BGR. A radius or V near zero means the hue -1. A radius above 1 is a
/// saturation above 1 and gives, for a positive V, negative components.
/// @param in  cylindrical HSV
/// @param out  BGR
void cylindricalHSV2BGR(double* in, double* out);

/// Converts BGR to cone HSV. The hue -1 is taken for an angle of -1 degree.
/// @param in  BGR
/// @param out  cone HSV
void BGR2ConeHSV(double* in, double* out);

/// Converts cone HSV to BGR. A V near zero gives black, whatever the radius; a saturation, radius
/// over V, near zero means the hue -1. For a positive V, a radius above it gives negative
/// components; a negative V with a radius gives black.
/// @param in  cone HSV
/// @param out  BGR
void coneHSV2BGR(double* in, double* out);

/// Converts BGR to a feature space. A colour with a negative component gives (1000, 1000, 1000) in
/// each of them.
///
/// Hue-weighted Lab keeps only the hue of a vivid colour, which becomes the Lab of that hue at full
/// saturation and value. A dull colour, of a V below 0.13 or an S below 0.15, keeps S and V and
/// gets the hue 0, and 1000 is added to its L*. Every grey gives (1000, 0, 0).
/// @param in  BGR
/// @param out  a colour of the feature space
/// @param featureType  1 for hue-weighted Lab, 2 for cylindrical HSV, 3 for cone HSV, any other for
/// Lab
void BGR2WeightedFeature(double* in, double* out, int featureType);

/// Converts a feature space to BGR. The saturation and value that hue-weighted Lab took away stay
/// lost.
///
/// @warning With a `featureType` not named below the arrays change roles: `out` is read as a BGR
/// colour, and its Lab is written to `in`.
/// @param in  a colour of the feature space; of hue-weighted Lab, an L* above 700 is first lowered
/// by 1000, in the caller's array
/// @param out  BGR
/// @param featureType  0 for Lab, 1 for hue-weighted Lab, 2 for cylindrical HSV, 3 for cone HSV
void weightedFeature2BGR(double* in, double* out, int featureType);
