#include "Brindle/utility/polygon.h"

#include <algorithm>
#include <cstddef>

#include "Brindle/detail/turn.h"

namespace {

using brindle::detail::wrappedTurn;

using Index = std::ptrdiff_t;

/// Point `i` of interleaved x, y pairs.
const int* pointAt(const int* points, Index i) {
  return points + 2 * i;
}

/// A hull under construction in the caller's buffer, by Andrew's monotone chain: the sorted points
/// are walked from left to right for the lower half and back for the upper half. Before a point is
/// appended, those at the end that do not turn left towards it are dropped. A walk takes linear
/// time, as it appends and drops each point at most once.
class HullChain {
 public:
  HullChain(int* points, Index capacity) : points_(points), capacity_(capacity) {}

  Index size() const { return size_; }

  /// Returns false, and adds nothing, when the chain is full.
  bool append(const int* point) {
    if (size_ == capacity_) return false;
    std::copy_n(point, 2, points_ + 2 * size_);
    ++size_;
    return true;
  }

  /// Walks from points[first] to points[last], in either direction, and keeps the chain turning
  /// left. Points on the line from the chain's end to points[last], or to its left, are skipped:
  /// they lie inside or in the other half. What was in the chain before stays. Returns false when
  /// the chain became full on the way, which happens only where turns wrap around or points are not
  /// sorted.
  bool extend(const int* points, Index first, Index last) {
    const Index fixed = size_;
    const int* const baseStart = pointAt(points_, fixed - 1);
    const int* const baseEnd = pointAt(points, last);
    const Index step = first <= last ? 1 : -1;
    for (Index i = first; i != last; i += step) {
      const int* const point = pointAt(points, i);
      if (wrappedTurn(baseStart, baseEnd, point) >= 0) continue;
      if (!appendTurningLeft(point, fixed)) return false;
    }
    return appendTurningLeft(baseEnd, fixed);
  }

 private:
  bool appendTurningLeft(const int* point, Index fixed) {
    while (size_ > fixed &&
           wrappedTurn(pointAt(points_, size_ - 2), pointAt(points_, size_ - 1), point) <= 0) {
      --size_;
    }
    return append(point);
  }

  int* points_;
  Index capacity_;
  Index size_ = 0;
};

/// The hull of points that all have the same x.
int uprightHull(const int* points, Index last, int* hull) {
  HullChain chain(hull, 3);
  chain.append(points);
  chain.append(pointAt(points, last));
  if (pointAt(points, last)[1] != points[1]) chain.append(pointAt(points, last));
  return static_cast<int>(chain.size());
}

}  // namespace

int chainHull_2D(int* points, int n, int* hull) {
  if (n < 1) return 0;
  const Index last = static_cast<Index>(n) - 1;
  Index leftEnd = 0;  // the last one of the leftmost points
  while (leftEnd < last && pointAt(points, leftEnd + 1)[0] == points[0]) ++leftEnd;
  if (leftEnd == last) return uprightHull(points, last, hull);
  Index rightBegin = last;  // the first one of the rightmost points
  while (pointAt(points, rightBegin - 1)[0] == pointAt(points, last)[0]) --rightBegin;

  HullChain chain(hull, last + 2);
  chain.append(points);
  chain.extend(points, leftEnd + 1, rightBegin);
  if (rightBegin != last) chain.append(pointAt(points, last));
  if (chain.extend(points, rightBegin - 1, leftEnd) && leftEnd != 0) chain.append(points);
  return static_cast<int>(chain.size());
}
