/// @file
/// Mean and spread of a set of vectors, and two mappings of single values. No state; callable from
/// any thread.
#pragma once

/// Computes the mean of a set of vectors, and how far they spread round it. All sums run in storage
/// order in single precision.
///
/// Prints "Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!\n" when `dim` or
/// `count` is below 1 or `data` is null, and leaves `mean` and `sd` as they were. When there is no
/// memory for the mean, prints nothing and leaves `mean` null and `sd` 0.
/// @param data  the vectors, one behind the other; may be what `mean` points to
/// @param dim  floats in a vector
/// @param count  vectors
/// @param mean  must be null or point to a block from `malloc`, which is released; receives a new
/// block of `dim` floats, which the caller releases with `free`
/// @param sd  receives the root of the mean squared distance of the vectors from their mean:
/// `sqrt(S / count)` with S the sum of the squared differences of all components; 1 for a single
/// vector
/// @return 1, or -1 after the message or without memory
int findMeanAndSD(float* data, int dim, int count, float*& mean, float& sd);

/// Maps a value linearly from one range onto another. Values outside the range are extrapolated.
///
/// The single-precision result goes through the direction (fromSpan, toSpan) / L, L being its
/// length: `toStart + (toSpan / L) * ((value - fromStart) / (fromSpan / L))`. Where the sum of the
/// squared spans exceeds the largest float, it is not a number.
/// @param fromStart  where the value's range starts
/// @param fromEnd  where it ends; may lie below its start, as `toEnd` may
/// @param value  to be mapped
/// @param toStart  where the result's range starts
/// @param toEnd  where it ends
/// @param result  receives the mapped value; `toStart` when either range's span is near zero, in
/// [-1e-6, 1e-6]
/// @return 0, always
int mapValue(float fromStart, float fromEnd, float value, float toStart, float toEnd,
             float& result);

/// Computes a smooth step from 0 to 1 at a = 0.
/// @param a  where on the step
/// @param b  how sharp the step is
/// @return `1 / (1 + exp(-2 * a * b))`
double analyticHeaviside(double a, double b);
