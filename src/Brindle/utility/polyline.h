/// @file
/// The shape of an open polyline, point by point: angles and curvature.
///
/// Both functions first smooth their copy of the points: `iterations` times, every point becomes
/// the weighted mean of the points from `radius` before it to `radius` behind it. A neighbour k
/// steps away has the weight radius + 1 - k for the curvature, and the square of that for the
/// angles.
/// - The first and the last point never move.
/// - Points with fewer than `radius` points before them do not move either.
/// - Points with fewer than `radius` points behind them are averaged over those that there are.
///
/// All arithmetic is in single precision, sums run in the points' order. A value is near zero when
/// it lies in [-1e-6, 1e-6]. Repeated points are no error. When memory runs out, std::bad_alloc
/// passes to the caller and nothing leaks. No state; callable from any thread.
#pragma once

#include <vector>

/// A point of a polyline.
struct Point2Df {
  float x;  ///< to the right
  float y;  ///< up
};

/// Measures the angle at each point of the smoothed polyline, between the way back and the way
/// forward: pi but for rounding (down to about 3.1407) where it runs straight, smaller the sharper
/// it turns.
///
/// A segment whose length is near zero keeps its direction as it is, (0, 0) or nearly so, which
/// makes the angle pi / 2 or nearly so. The first and the last point take their only segment twice:
/// they count as straight unless its length is near zero (then pi / 2). Fewer than 2 points have
/// angles 0. The squared length of each segment must fit a float.
///
/// Prints "Error: invalid input parameter! (inside {bool polylineAngle(std::vector<Point2Df>,
/// std::vector<float>&, bool, int, int)}; file: utility.cpp; line: 2296)\n" when `radius` or
/// `iterations` is negative, and leaves `angles` as it was.
/// @param points  in drawing order
/// @param angles  replaced by one angle in radians for each point
/// @param normalize  whether to divide each angle by the product of its two segments' lengths plus
/// 1e-6
/// @param radius  points on either side that smoothing takes in
/// @param iterations  smoothing passes
/// @return false after the message, otherwise true
bool polylineAngle(std::vector<Point2Df> points, std::vector<float>& angles, bool normalize,
                   int radius, int iterations);

/// Measures the signed curvature at each point of the smoothed polyline from the steps to it and to
/// the point before it: d1 x d2 / |d1|^3, with d1 the step to the point and d2 what that step has
/// more than the one before.
///
/// This is about the inverse of the radius where the points are evenly and closely spaced, not for
/// unequal steps. The first and the second point have curvature 0, and so has a point whose |d1|^3
/// is near zero. Fewer than 3 points have curvature 0. Steps below about 2.6e6 are safe; beyond,
/// the cube overflows and the curvature is 0 or not a number.
///
/// Prints "Error: invalid input parameter! (inside {bool polylineToCurvature(std::vector<Point2Df>,
/// std::vector<float>&, int, int)}; file: utility.cpp; line: 2157)\n" when `radius` or `iterations`
/// is negative, and leaves `curvature` as it was.
/// @param points  in drawing order
/// @param curvature  replaced by one value for each point, positive where the polyline turns left
/// @param radius  points on either side that smoothing takes in
/// @param iterations  smoothing passes
/// @return false after the message, otherwise true
bool polylineToCurvature(std::vector<Point2Df> points, std::vector<float>& curvature, int radius,
                         int iterations);
