// Mean and spread of a set of vectors, and two mappings of single values. No state; callable from
// any thread.
#pragma once

/// Computes the mean of `count` vectors of `dim` floats, stored one behind the other at `data`, and
/// how far they spread round it. All sums run in storage order in single precision.
///
/// Returns 1. `mean` is then a new block of `dim` floats, which the caller releases with `free`;
/// what it pointed to before is released, so set it to null first or let it point to such a block
/// (it may be `data`). `sd` is the root of the mean squared distance of the vectors from `mean`:
/// `sqrt(S / count)` with S the sum of the squared differences of all components. For a single
/// vector `sd` is 1.
///
/// Prints "Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!\n" when `dim` or
/// `count` is below 1 or `data` is null, returns -1 and leaves `mean` and `sd` as they were. When
/// there is no memory for the block, prints nothing and returns -1 with `mean` null and `sd` 0.
int findMeanAndSD(float* data, int dim, int count, float*& mean, float& sd);

/// Maps `value` linearly from the range [fromStart, fromEnd] onto [toStart, toEnd] and returns 0,
/// always. Values outside the range are extrapolated. When either range's span lies in
/// [-1e-6, 1e-6], `result` is `toStart`.
///
/// The single-precision result goes through the direction (fromSpan, toSpan) / L, L being its
/// length: `toStart + (toSpan / L) * ((value - fromStart) / (fromSpan / L))`. Where the sum of the
/// squared spans exceeds the largest float, it is not a number.
int mapValue(float fromStart, float fromEnd, float value, float toStart, float toEnd,
             float& result);

/// Returns `1 / (1 + exp(-2 * a * b))`, a smooth step from 0 to 1 at a = 0 with the sharpness `b`.
double analyticHeaviside(double a, double b);
