/// @file
/// The shape of an open polyline, point by point: angles and curvature.
///
/// Both functions first smooth their copy of the points, which stand in drawing order: `iterations`
/// times, every point becomes the weighted mean of the points from `radius` before it to `radius`
/// after it. A neighbour k steps away has the weight radius + 1 - k for the curvature, and the
/// square of that for the angles.
/// - The first and the last point never move.
/// - Points with fewer than `radius` points before them do not move either.
/// - Points with fewer than `radius` points after them are averaged over those that there are.
///
/// All arithmetic is in single precision, sums run in the points' order. A value is near zero when
/// it lies in [-1e-6, 1e-6]. Repeated points are no error.
///
/// The output is replaced by one value for each point. When `radius` or `iterations` is negative, a
/// message is printed and the function returns false, with the output as it was; otherwise it
/// returns true. After std::bad_alloc nothing has leaked, and the output is as it was or holds
/// zeros only. No state; callable from any thread.
#pragma once

#include <vector>

/// @defgroup polyline Polylines
/// @{

/// A point of a polyline.
struct Point2Df {
  float x;  ///< to the right
  float y;  ///< up
};

/// Measures the angle in radians at each point of the smoothed polyline, between the way back and
/// the way forward: pi but for rounding (down to about 3.1407) where it runs straight, smaller the
/// sharper it turns. `normalize` divides each angle by the product of its two segments' lengths
/// plus 1e-6.
///
/// A segment whose length is near zero keeps its direction as it is, (0, 0) or nearly so, which
/// makes the angle pi / 2 or nearly so. The first and the last point take their only segment twice:
/// they count as straight unless its length is near zero (then pi / 2). Fewer than 2 points have
/// angles 0. The squared length of each segment must fit a float.
///
/// Message: "Error: invalid input parameter! (inside {bool polylineAngle(std::vector<Point2Df>,
/// std::vector<float>&, bool, int, int)}; file: utility.cpp; line: 2296)\n".
bool polylineAngle(std::vector<Point2Df> points, std::vector<float>& angles, bool normalize,
                   int radius, int iterations);

/// Measures the signed curvature at each point of the smoothed polyline, positive where it turns
/// left: d1[i] x d2[i] / |d1[i]|^3, where d1[i] is the step from point i - 1 to point i, and
/// d2[i] = d1[i] - d1[i-1].
///
/// This is about the inverse of the radius where the points are evenly and closely spaced, not for
/// unequal steps. The first and the second point have curvature 0, and so has a point whose |d1|^3
/// is near zero, after a step of up to about 0.01. Fewer than 3 points have curvature 0. Steps
/// below about 2.6e6 are safe; beyond, the cube overflows and the curvature is 0 or NaN.
///
/// Message: "Error: invalid input parameter! (inside {bool
/// polylineToCurvature(std::vector<Point2Df>, std::vector<float>&, int, int)}; file: utility.cpp;
/// line: 2157)\n".
bool polylineToCurvature(std::vector<Point2Df> points, std::vector<float>& curvature, int radius,
                         int iterations);

/// @}
