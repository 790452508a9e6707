#include "Brindle/utility/matrix.h"

#include <algorithm>

#include "Brindle/detail/nearZero.h"

namespace {

using brindle::detail::isNearZero;

template <class Visit>
void forEachElement(int rows, int cols, Visit visit) {
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) visit(i, j);
  }
}

}  // namespace

void copyMatrix(double** src, double** dst, int rows, int cols) {
  if (cols < 1) return;
  for (int i = 0; i < rows; ++i) std::copy_n(src[i], cols, dst[i]);
}

void copyMatrixInt(int** src, int** dst, int rows, int cols) {
  for (int j = 0; j < cols; ++j) {  // column after column, which shows where the two overlap
    for (int i = 0; i < rows; ++i) dst[i][j] = src[i][j];
  }
}

void eye(int n, double** M) {
  zeroMat(n, n, M);
  for (int i = 0; i < n; ++i) M[i][i] = 1.0;
}

void zeroMat(int rows, int cols, double** M) {
  if (cols < 1) return;
  for (int i = 0; i < rows; ++i) std::fill_n(M[i], cols, 0.0);
}

void matTranspose(int n, double** A, double** B) {
  forEachElement(n, n, [=](int i, int j) { B[j][i] = A[i][j]; });
}

void addMat(int rows, int cols, double** A, double** B, double** C) {
  forEachElement(rows, cols, [=](int i, int j) { C[i][j] = A[i][j] + B[i][j]; });
}

void subMat(int rows, int cols, double** A, double** B, double** C) {
  forEachElement(rows, cols, [=](int i, int j) { C[i][j] = A[i][j] - B[i][j]; });
}

void matConstMultiply(int rows, int cols, double** A, double c, double** B) {
  forEachElement(rows, cols, [=](int i, int j) { B[i][j] = A[i][j] * c; });
}

void multiMat(int m, int n, int p, double** A, double** B, double** C) {
  forEachElement(m, p, [=](int i, int j) {
    C[i][j] = 0.0;
    for (int k = 0; k < n; ++k) C[i][j] += A[i][k] * B[k][j];
  });
}

void matVecMultiply(int rows, int cols, double** M, double* x, double* y) {
  std::fill_n(y, rows, 0.0);
  forEachElement(rows, cols, [=](int i, int k) { y[i] += M[i][k] * x[k]; });
}

void outerProduct(int n, double* u, int m, double* v, double** M) {
  forEachElement(n, m, [=](int i, int j) { M[i][j] = u[i] * v[j]; });
}

double matFDist2(int rows, int cols, double** A, double** B) {
  double sum = 0.0;
  forEachElement(rows, cols, [&](int i, int j) {
    const double difference = A[i][j] - B[i][j];
    sum += difference * difference;
  });
  return sum;
}

bool isZeroMat(int rows, int cols, double** M) {
  bool isZero = true;
  forEachElement(rows, cols, [&](int i, int j) { isZero &= isNearZero(M[i][j]); });
  return isZero;
}
