#include "Brindle/utility/polyline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <span>

#include "Brindle/detail/formattedError.h"
#include "Brindle/detail/nearZero.h"

namespace {

using brindle::detail::isNearZero;

static_assert(sizeof(Point2Df) == 2 * sizeof(float));

enum class Weighting { kTriangle, kSquaredTriangle };

/// The weights of a smoothing window, and what the first so many of them add up to.
struct Window {
  Window(std::size_t radius, Weighting weighting) : weights(2 * radius + 1), sums(weights.size()) {
    float sum = 0.0F;
    for (std::size_t i = 0; i < weights.size(); ++i) {
      const auto height = static_cast<float>(1 + std::min(i, 2 * radius - i));
      weights[i] = weighting == Weighting::kTriangle ? height : height * height;
      sums[i] = sum += weights[i];
    }
  }

  std::vector<float> weights;
  std::vector<float> sums;  // never near 0: the weights are 1 or more
};

/// Smooths `kCount` neighbours, each over a window of `weights.size()` points; the first window
/// begins at `points`. Points are x, y pairs here, so that x and y sums of all neighbours proceed
/// side by side, every one of them in the points' order.
template <std::size_t kCount>
void smoothNeighbours(const float* points, std::span<const float> weights, float weightSum,
                      float* smoothed) {
  std::array<float, 2 * kCount> sums{};
  for (const float weight : weights) {
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += weight * points[i];
    points += 2;
  }
  for (std::size_t i = 0; i < sums.size(); ++i) smoothed[i] = sums[i] / weightSum;
}

/// Smooths `count` points once, all but those that never move.
void smoothOnce(const float* points, std::size_t count, std::size_t radius, const Window& window,
                float* smoothed) {
  constexpr std::size_t kBlock = 16;
  const std::size_t last = count - 1;
  const std::size_t fullEnd = std::min(last, count - radius);
  std::size_t i = std::max<std::size_t>(radius, 1);
  for (; i + kBlock <= fullEnd; i += kBlock) {
    smoothNeighbours<kBlock>(points + 2 * (i - radius), window.weights, window.sums.back(),
                             smoothed + 2 * i);
  }
  for (; i < last; ++i) {
    const std::size_t length = std::min(2 * radius + 1, count - (i - radius));
    smoothNeighbours<1>(points + 2 * (i - radius), std::span(window.weights).first(length),
                        window.sums[length - 1], smoothed + 2 * i);
  }
}

void smooth(std::vector<Point2Df>& points, int radius, int iterations, Weighting weighting) {
  const auto reach = static_cast<std::size_t>(radius);
  // Only points after `radius` others, and before the last one, move.
  if (iterations == 0 || points.size() < reach + 2) return;
  const Window window(reach, weighting);
  std::vector<float> from(2 * points.size());
  std::memcpy(from.data(), points.data(), from.size() * sizeof(float));
  std::vector<float> to = from;
  for (int i = 0; i < iterations; ++i) {
    smoothOnce(from.data(), points.size(), reach, window, to.data());
    from.swap(to);
  }
  std::memcpy(points.data(), from.data(), from.size() * sizeof(float));
}

Point2Df operator-(Point2Df a, Point2Df b) {
  return {a.x - b.x, a.y - b.y};
}

struct Segment {
  Point2Df direction;  // of length 1, unless the segment's length is near 0
  float length;
};

Segment segmentBetween(Point2Df from, Point2Df to) {
  Point2Df direction = to - from;
  const float length = std::sqrt(direction.x * direction.x + direction.y * direction.y);
  if (!isNearZero(length)) direction = {direction.x / length, direction.y / length};
  return {direction, length};
}

/// The angle between the way back along `before` and the way forward along `after`.
float angleBetween(const Segment& before, const Segment& after) {
  const float cosine =
      -before.direction.x * after.direction.x + -before.direction.y * after.direction.y;
  return std::acos(std::clamp(cosine, -1.0F, 1.0F));
}

bool isRefused(int radius, int iterations, const char* signature, int line) {
  if (radius >= 0 && iterations >= 0) return false;
  brindle::detail::printFormattedError("invalid input parameter!", signature, line);
  return true;
}

}  // namespace

bool polylineAngle(std::vector<Point2Df> points, std::vector<float>& angles, bool normalize,
                   int radius, int iterations) {
  if (isRefused(radius, iterations,
                "bool polylineAngle(std::vector<Point2Df>, std::vector<float>&, bool, int, int)",
                2296)) {
    return false;
  }
  angles.assign(points.size(), 0.0F);
  if (points.size() < 2) return true;
  smooth(points, radius, iterations, Weighting::kSquaredTriangle);

  Segment before = segmentBetween(points[0], points[1]);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const bool isLast = i + 1 == points.size();
    const Segment after = isLast ? before : segmentBetween(points[i], points[i + 1]);
    angles[i] = angleBetween(before, after);
    if (normalize) angles[i] /= before.length * after.length + brindle::detail::kNearZeroF;
    before = after;
  }
  return true;
}

bool polylineToCurvature(std::vector<Point2Df> points, std::vector<float>& curvature, int radius,
                         int iterations) {
  if (isRefused(radius, iterations,
                "bool polylineToCurvature(std::vector<Point2Df>, std::vector<float>&, int, int)",
                2157)) {
    return false;
  }
  curvature.assign(points.size(), 0.0F);
  if (points.size() < 3) return true;
  smooth(points, radius, iterations, Weighting::kTriangle);

  Point2Df before = {0.0F, 0.0F};
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point2Df first = points[i] - points[i - 1];
    const Point2Df second = first - before;
    const float lengthSq = first.x * first.x + first.y * first.y;
    const float denominator = std::sqrt(lengthSq * lengthSq * lengthSq);
    if (!isNearZero(denominator)) {
      curvature[i] = (first.x * second.y - first.y * second.x) / denominator;
    }
    before = first;
  }
  return true;
}
