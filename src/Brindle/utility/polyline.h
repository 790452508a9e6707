// The shape of an open polyline, point by point: angles and curvature.
//
// Both functions first smooth their copy of the points: `iterations` times, every point becomes the
// weighted mean of the points from `radius` before it to `radius` behind it. A neighbour k steps
// away has the weight radius + 1 - k for the curvature, and the square of that for the angles.
// - The first and the last point never move.
// - Points with fewer than `radius` points before them do not move either.
// - Points with fewer than `radius` points behind them are averaged over those that there are.
//
// All arithmetic is in single precision, sums run in the points' order. A length or a denominator
// counts as 0 when it lies in [-1e-6, 1e-6]. Repeated points are no error. No state; callable from
// any thread. When memory runs out, std::bad_alloc passes to the caller and nothing leaks.
#pragma once

#include <vector>

struct Point2Df {
  float x;
  float y;
};

/// Replaces `angles` by one angle in radians for each point of the smoothed polyline: between the
/// way back and the way forward, pi where the polyline runs straight, smaller the sharper it turns.
/// The first and the last point count as straight. A segment of length 0 keeps its direction as it
/// is, (0, 0) or nearly so, which makes the angle pi / 2 or nearly so. Fewer than 2 points have
/// angles 0. With `normalize`, each angle is divided by the product of the two segments' lengths
/// plus 1e-6; the first and the last point take their only segment twice.
///
/// Returns true. For a negative `radius` or `iterations`, prints "Error: invalid input parameter!
/// (inside {bool polylineAngle(std::vector<Point2Df>, std::vector<float>&, bool, int, int)}; file:
/// utility.cpp; line: 2296)\n", returns false and leaves `angles` as it was.
bool polylineAngle(std::vector<Point2Df> points, std::vector<float>& angles, bool normalize,
                   int radius, int iterations);

/// Replaces `curvature` by the signed curvature at each point of the smoothed polyline, the inverse
/// of the radius, from the differences to the two points before: positive where it turns left (y
/// up). The first and the second point have curvature 0, and so has a point whose distance from the
/// point before is so small that its cube counts as 0. Fewer than 3 points have curvature 0.
///
/// Returns true. For a negative `radius` or `iterations`, prints "Error: invalid input parameter!
/// (inside {bool polylineToCurvature(std::vector<Point2Df>, std::vector<float>&, int, int)}; file:
/// utility.cpp; line: 2157)\n", returns false and leaves `curvature` as it was.
bool polylineToCurvature(std::vector<Point2Df> points, std::vector<float>& curvature, int radius,
                         int iterations);
