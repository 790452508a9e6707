#include "reference/PlainGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

template <class Number, class Result = Number>
Result turn(const Number* a, const Number* b, const Number* c) {
  return (Result(c[1]) - Result(a[1])) * (Result(b[0]) - Result(a[0])) -
         (Result(b[1]) - Result(a[1])) * (Result(c[0]) - Result(a[0]));
}

bool isZero(double value) {
  return -9.999999974752427e-7 <= value && value <= 9.999999974752427e-7;
}

void smooth(std::vector<Point2Df>& points, int radius, int iterations) {
  const int n = static_cast<int>(points.size());
  for (int pass = 0; pass < iterations; ++pass) {
    const std::vector<Point2Df> from = points;
    for (int i = 1; i < n - 1; ++i) {
      float sum = 0.0F, sumX = 0.0F, sumY = 0.0F;
      for (int j = i - radius; j <= i + radius && j >= 0 && j < n; ++j) {
        const float height = static_cast<float>(radius + 1 - std::abs(j - i));
        const float weight = height * height;
        sum += weight;
        sumX += weight * from.data()[j].x;
        sumY += weight * from.data()[j].y;
      }
      if (!isZero(sum)) points.data()[i] = {sumX / sum, sumY / sum};
    }
  }
}

}  // namespace

bool plainPointInPolygon(double* poly, int n, double* p, bool byWinding) {
  int winding = 0;
  bool isInside = false;
  for (int i = 0; i < n; ++i) {
    const double* a = poly + 2 * i;
    const double* b = poly + 2 * (i == 0 ? n - 1 : i - 1);
    const bool rises = a[1] < p[1] && p[1] <= b[1], falls = b[1] < p[1] && p[1] <= a[1];
    if (!rises && !falls) continue;
    const double side = turn(a, b, p);
    winding += int(rises && side < 0.0) - int(falls && side > 0.0);
    isInside ^= p[0] > a[0] + (b[0] - a[0]) * ((p[1] - a[1]) / (b[1] - a[1]));
  }
  return byWinding ? winding != 0 : isInside;
}

bool plainCrossings(double* polyA, int nA, double* polyB, int nB, int edgesB, std::list<double>* xs,
                    std::list<double>* ys) {
  for (int i = 0; i < nA; ++i) {
    const double *a = polyA + 2 * i, *aEnd = polyA + 2 * ((i + 1) % nA);
    const double dA[] = {aEnd[0] - a[0], aEnd[1] - a[1]};
    for (int j = 0; j < edgesB; ++j) {
      const double *b = polyB + 2 * j, *bEnd = polyB + 2 * ((j + 1) % nB);
      const double dB[] = {bEnd[0] - b[0], bEnd[1] - b[1]};
      const double d = dA[1] * dB[0] - dA[0] * dB[1];
      const double t = (dB[0] * (b[1] - a[1]) - dB[1] * (b[0] - a[0])) / d;
      const double u = (dA[0] * (b[1] - a[1]) - dA[1] * (b[0] - a[0])) / d;
      if (isZero(d) || !(0.0 <= t && t < 1.0 && 0.0 <= u && u < 1.0)) continue;
      xs->push_back(a[0] + dA[0] * t);
      ys->push_back(a[1] + dA[1] * t);
    }
  }
  return !xs->empty();
}

int plainHull(int* points, int n, int* hull, bool& wasCut) {
  const auto at = [&](int i) { return points + 2 * i; };
  const auto turnOf = [](int* a, int* b, int* c) { return int(turn<int, unsigned int>(a, b, c)); };
  int top = -1;
  wasCut = false;
  const auto add = [&](int* point, int bottom) {
    if (wasCut) return;
    while (top > bottom && turnOf(hull + 2 * (top - 1), hull + 2 * top, point) <= 0) --top;
    wasCut = top == n;
    if (!wasCut) std::copy_n(point, 2, hull + 2 * ++top);
  };
  int minmax = 0;
  while (at(minmax + 1)[0] == at(0)[0]) ++minmax;
  add(at(0), n);
  int maxmin = n - 1;
  while (at(maxmin - 1)[0] == at(n - 1)[0]) --maxmin;
  for (int i = minmax + 1; i <= maxmin; ++i) {
    if (i == maxmin || turnOf(at(0), at(maxmin), at(i)) < 0) add(at(i), 0);
  }
  if (n - 1 != maxmin) add(at(n - 1), n);
  const int bottom = top;
  for (int i = maxmin - 1; i >= minmax; --i) {
    if (i == minmax || turnOf(at(n - 1), at(minmax), at(i)) < 0) add(at(i), bottom);
  }
  if (minmax != 0) add(at(0), n);
  return top + 1;
}

std::vector<float> plainPolylineAngle(const std::vector<Point2Df>& points, bool normalize,
                                      int radius, int iterations) {
  std::vector<float> angles(points.size(), 0.0F);
  if (points.size() < 2) return angles;
  std::vector<Point2Df> at = points, d(points.size());
  std::vector<float> length(points.size());
  smooth(at, radius, iterations);
  for (std::size_t i = 0; i < d.size(); ++i) {
    const std::size_t from = std::min(i, d.size() - 2), p = i == 0 ? 0 : i - 1;
    d[i] = {at[from + 1].x - at[from].x, at[from + 1].y - at[from].y};
    length[i] = std::sqrt(d[i].x * d[i].x + d[i].y * d[i].y);
    const float lengthA = isZero(length[p]) ? 1.0F : length[p];
    const float lengthB = isZero(length[i]) ? 1.0F : length[i];
    const float c = -d[p].x / lengthA * (d[i].x / lengthB) + -d[p].y / lengthA * (d[i].y / lengthB);
    angles[i] = acosf(std::clamp(c, -1.0F, 1.0F));
    if (normalize) angles[i] = angles[i] / (length[p] * length[i] + 1e-6F);
  }
  return angles;
}
