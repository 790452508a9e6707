/// @file
/// Mean and spread of a set of vectors, and two mappings of single values. No state; callable from
/// any thread.
#pragma once

/// @defgroup statistics Statistics
/// @{

/// Computes the mean of a set of vectors, and how far they spread round it. All sums run in storage
/// order in single precision.
///
/// Prints "Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!\n" and returns
/// -1 when `dim` or `count` is below 1 or `data` is null; `mean` and `sd` are then as they were.
/// Returns -1, too, without memory; `mean` is then released and null, and `sd` is 0. Otherwise
/// returns 1.
/// @param data  `count` vectors of `dim` floats, one after the other; may be what `mean` points to
/// @param mean  null or a block from `malloc`, which is released; receives a new block of `dim`
/// floats, which the caller releases with `free`
/// @param sd  receives the root of the mean squared distance of the vectors from their mean,
/// `sqrt(S / count)` with S the sum of the squared differences of all components; 1 for a single
/// vector
int findMeanAndSD(float* data, int dim, int count, float*& mean, float& sd);

/// Maps a value linearly from one range onto another; either range may run downwards. Values
/// outside the range are extrapolated. The result is `toStart` when either span, end minus start,
/// is near zero, in [-1e-6, 1e-6]. Returns 0, always.
///
/// The single-precision result goes through the direction (fromSpan, toSpan) / L, L being its
/// length: `toStart + (toSpan / L) * ((value - fromStart) / (fromSpan / L))`. Where the sum of the
/// squared spans exceeds the largest float, it is NaN.
int mapValue(float fromStart, float fromEnd, float value, float toStart, float toEnd,
             float& result);

/// Returns `1 / (1 + exp(-2 * a * b))`, a smooth step from 0 to 1 at `a` = 0, the sharper the
/// larger `b`.
double analyticHeaviside(double a, double b);

/// @}
