#include "Brindle/utility/polygon.h"

#include <algorithm>

bool boxboxIntersect2DInt(int left1, int left2, int right1, int right2, int top1, int top2,
                          int bottom1, int bottom2) {
  return left1 <= right2 && right1 >= left2 && top1 >= bottom2 && bottom1 <= top2;
}

int boxSphereIntersect(double* boxMin, double* boxMax, double* center, double radiusSq, int dim) {
  bool isInside = true;
  double lastNear = 0.0;
  double farSum = 0.0;      // the squared distance to the farthest corner
  double outsideSum = 0.0;  // the squared distance to the box
  for (int i = 0; i < dim; ++i) {
    const double toMax = (center[i] - boxMax[i]) * (center[i] - boxMax[i]);
    const double toMin = (center[i] - boxMin[i]) * (center[i] - boxMin[i]);
    isInside = isInside && boxMin[i] < center[i] && center[i] < boxMax[i];
    lastNear = std::min(toMax, toMin);
    farSum += std::max(toMax, toMin);
    if (center[i] <= boxMin[i]) {
      outsideSum += toMin;
    } else if (center[i] >= boxMax[i]) {
      outsideSum += toMax;
    }
  }
  if (isInside) {
    if (lastNear >= radiusSq) return 3;
    return radiusSq >= farSum ? 2 : 1;
  }
  if (radiusSq < outsideSum) return 0;
  return farSum >= radiusSq ? 2 : 1;
}
