#include "Brindle/utility/mask.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "Brindle/detail/turn.h"

using namespace brindle::detail;

namespace {

int signOf(double value) {
  return (value > 0.0) - (value < 0.0);
}

struct ByteMask {
  Point position(int column, int row) const {
    return {static_cast<double>(originX) + column, static_cast<double>(originY) + row};
  }

  const unsigned char* bytes;
  int originX, originY, width, height;
};

struct DirectedLine {
  int sideOf(Point point) const { return signOf(turn(from, to, point)); }

  Point from, to;
};

/// An end point relative to the mask, along the axis that is walked and across it.
struct WalkPoint {
  std::int64_t along, across;
};

/// The rasterised line. Its steps are the mask's columns when it is longer in x, else its rows.
class LineWalk {
 public:
  LineWalk(const ByteMask& mask, int x1, int y1, int x2, int y2) : bytes_(mask.bytes) {
    const WalkPoint ends[2] = {{std::int64_t{x1} - mask.originX, std::int64_t{y1} - mask.originY},
                               {std::int64_t{x2} - mask.originX, std::int64_t{y2} - mask.originY}};
    const bool alongX =
        std::abs(ends[0].along - ends[1].along) > std::abs(ends[0].across - ends[1].across);
    if (alongX) {
      setAxes(mask.width, 1, mask.height, mask.width);
      setEnds(ends[0], ends[1]);
    } else {
      setAxes(mask.height, mask.width, mask.width, 1);
      setEnds({ends[0].across, ends[0].along}, {ends[1].across, ends[1].along});
    }
  }

  bool segmentTouches() const { return touches(begin_, end_ + 1); }
  bool extensionTouches() const { return touches(0, begin_) || touches(end_ + 1, steps_); }

 private:
  void setAxes(int steps, int stepBytes, int breadth, int breadthBytes) {
    steps_ = steps;
    stepBytes_ = stepBytes;
    breadth_ = breadth;
    breadthBytes_ = breadthBytes;
  }

  void setEnds(WalkPoint first, WalkPoint last) {
    if (first.along > last.along) std::swap(first, last);
    begin_ = first.along;
    end_ = last.along;
    endAlong_ = static_cast<float>(last.along);
    endAcross_ = static_cast<float>(last.across);
    slope_ = (endAcross_ - static_cast<float>(first.across)) /
             (endAlong_ - static_cast<float>(first.along));
  }

  bool touches(std::int64_t from, std::int64_t to) const {
    to = std::min(to, steps_);
    for (std::int64_t step = std::max<std::int64_t>(from, 0); step < to; ++step) {
      if (touchesAt(step)) return true;
    }
    return false;
  }

  /// Reckons from the end with the larger coordinate: in single precision the other end gives other
  /// pixels.
  bool touchesAt(std::int64_t step) const {
    const float across = endAcross_ - (endAlong_ - static_cast<float>(step)) * slope_;
    // What truncates to a row or column of the mask. The slope of a segment without length is NaN,
    // which fails both comparisons.
    if (!(across > -1.0F && across < 2147483648.0F)) return false;
    const auto place = static_cast<std::int64_t>(across);
    return place < breadth_ && bytes_[step * stepBytes_ + place * breadthBytes_] != 0;
  }

  const unsigned char* bytes_;
  std::int64_t steps_ = 0, stepBytes_ = 0, breadth_ = 0, breadthBytes_ = 0;
  std::int64_t begin_ = 0, end_ = 0;
  float endAlong_ = 0.0F, endAcross_ = 0.0F, slope_ = 0.0F;
};

/// The side of the larger part of the mask's rectangle, whatever its pixels are.
int sideOfRectangle(const ByteMask& mask, const DirectedLine& line) {
  std::int64_t balance = 0;
  for (int row = 0; row < mask.height; ++row) {
    for (int column = 0; column < mask.width; ++column) {
      balance += line.sideOf(mask.position(column, row));
    }
  }
  return balance < 0 ? -1 : 1;
}

/// The side of the first set pixel, or of the centre when there is none.
int sideOfPixels(const ByteMask& mask, const DirectedLine& line) {
  for (int row = 0; row < mask.height; ++row) {
    for (int column = 0; column < mask.width; ++column) {
      if (mask.bytes[std::int64_t{row} * mask.width + column] != 0) {
        return line.sideOf(mask.position(column, row));
      }
    }
  }
  return line.sideOf(mask.position(mask.width / 2, mask.height / 2)) > 0 ? 1 : -1;
}

}  // namespace

int lineSegmentMaskIntersect(unsigned char* mask, int originX, int originY, int width, int height,
                             int x1, int y1, int x2, int y2) {
  if (mask == nullptr) {
    std::puts("Error: invalid input (inside lineSegmentMaskIntersect(...))!");
    return 0;
  }
  const ByteMask placed{mask, originX, originY, width, height};
  const DirectedLine line{{static_cast<double>(x2), static_cast<double>(y2)},
                          {static_cast<double>(x1), static_cast<double>(y1)}};
  const LineWalk walk(placed, x1, y1, x2, y2);
  if (walk.segmentTouches()) return 0;
  if (walk.extensionTouches()) return sideOfRectangle(placed, line);
  return sideOfPixels(placed, line);
}
