#include "Brindle/utility/matrix.h"

#include "Brindle/detail/nearZero.h"
#include "Brindle/utility/matrix/small.h"

namespace {

using brindle::detail::determinant2;
using brindle::detail::determinant3;
using brindle::detail::isNearZero;

void writeInverse2(double** A, double determinant, double** Ainv) {
  const double a00 = A[0][0], a01 = A[0][1], a10 = A[1][0], a11 = A[1][1];
  Ainv[0][0] = a11 / determinant;
  Ainv[0][1] = -a01 / determinant;
  Ainv[1][0] = -a10 / determinant;
  Ainv[1][1] = a00 / determinant;
}

}  // namespace

void matrixInv3D(double** A, double** Ainv) {
  zeroMat(3, 3, Ainv);
  const double* const a0 = A[0];
  const double* const a1 = A[1];
  const double* const a2 = A[2];
  const double det = determinant3(a0, a1, a2);
  if (isNearZero(det)) return;
  Ainv[0][0] = (a2[2] * a1[1] - a2[1] * a1[2]) / det;
  Ainv[0][1] = (a0[2] * a2[1] - a2[2] * a0[1]) / det;
  Ainv[0][2] = (a0[1] * a1[2] - a1[1] * a0[2]) / det;
  Ainv[1][0] = (a1[2] * a2[0] - a2[2] * a1[0]) / det;
  Ainv[1][1] = (a0[0] * a2[2] - a2[0] * a0[2]) / det;
  Ainv[1][2] = (a0[2] * a1[0] - a1[2] * a0[0]) / det;
  Ainv[2][0] = (a1[0] * a2[1] - a2[0] * a1[1]) / det;
  Ainv[2][1] = (a0[1] * a2[0] - a2[1] * a0[0]) / det;
  Ainv[2][2] = (a0[0] * a1[1] - a1[0] * a0[1]) / det;
}

void matrixInv2D(double** A, double** Ainv) {
  zeroMat(2, 2, Ainv);
  const double det = determinant2(A[0], A[1], 0, 1);
  if (!isNearZero(det)) writeInverse2(A, det, Ainv);
}

bool mat2DInverse(double** A, double** Ainv) {
  const double det = determinant2(A[0], A[1], 0, 1);
  if (isNearZero(det)) return false;
  writeInverse2(A, det, Ainv);
  return true;
}
