#include "Brindle/utility/matrix.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>
#include <utility>

#include "Brindle/detail/nearZero.h"

namespace {

using brindle::detail::isNearZero;

template <class T>
void release(int rows, T**& matrix) {
  if (matrix == nullptr) return;
  for (int i = 0; i < rows; ++i) delete[] matrix[i];
  delete[] matrix;
  matrix = nullptr;
}

/// What `new[]` of a negative count throws with one compiler, but not with the other.
std::size_t checkedCount(int count) {
  if (count < 0) throw std::bad_array_new_length();
  return static_cast<std::size_t>(count);
}

template <class T>
T** allocate(int rows, int cols) {
  T** matrix = new T*[checkedCount(rows)]();
  try {
    for (int i = 0; i < rows; ++i) matrix[i] = new T[checkedCount(cols)]();
  } catch (...) {
    release(rows, matrix);
    throw;
  }
  return matrix;
}

template <class Visit>
void forEachElement(int rows, int cols, Visit visit) {
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) visit(i, j);
  }
}

template <class T>
T squaredDistance(std::size_t count, const T* a, const T* b) {
  T sum = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const T difference = a[i] - b[i];
    sum += difference * difference;
  }
  return sum;
}

double determinant2(const double* row0, const double* row1, int left, int right) {
  return row0[left] * row1[right] - row1[left] * row0[right];
}

double determinant3(const double* m0, const double* m1, const double* m2) {
  return m0[0] * m1[1] * m2[2] - m0[0] * m1[2] * m2[1] - m2[2] * (m0[1] * m1[0]) +
         m0[1] * m1[2] * m2[0] + m2[1] * (m1[0] * m0[2]) - m2[0] * (m0[2] * m1[1]);
}

void writeInverse2(double** A, double determinant, double** Ainv) {
  const double a00 = A[0][0], a01 = A[0][1], a10 = A[1][0], a11 = A[1][1];
  Ainv[0][0] = a11 / determinant;
  Ainv[0][1] = -a01 / determinant;
  Ainv[1][0] = -a10 / determinant;
  Ainv[1][1] = a00 / determinant;
}

// A set of columns, one bit for each. The expansion meets the same minor, the last rows in some set
// of columns, along many ways; the table has one place for each set.
using ColumnSet = std::uint32_t;

constexpr int kMostColumnsOnStack = 9;  // 4 KiB
constexpr int kMostTabledColumns = 24;  // 128 MiB

constexpr std::size_t tableSize(int columns) {
  return std::size_t{1} << columns;
}

/// The next larger set with as many columns.
ColumnSet nextSet(ColumnSet set) {
  const ColumnSet carried = set + (set & -set);
  return carried | (((set ^ carried) >> 2) >> std::countr_zero(set));
}

double expandAlong(const double* row, ColumnSet columns, const double* minors) {
  double determinant = 0.0;
  double sign = 1.0;
  for (ColumnSet rest = columns; rest != 0; rest &= rest - 1) {
    const ColumnSet column = rest & -rest;
    determinant += minors[columns ^ column] * (sign * row[std::countr_zero(rest)]);
    sign = -sign;
  }
  return determinant;
}

/// Computes every minor of the last rows once, from the 2 times 2 ones up. `n` is at least 2 and
/// `minors` has tableSize(n) places.
double determinantByTable(double** A, int n, double* minors) {
  const ColumnSet all = static_cast<ColumnSet>(tableSize(n) - 1);
  for (ColumnSet pair = 3; pair <= all; pair = nextSet(pair)) {
    const int left = std::countr_zero(pair);
    const int right = static_cast<int>(std::bit_width(pair)) - 1;
    minors[pair] = determinant2(A[n - 2], A[n - 1], left, right);
  }
  for (int size = 3; size <= n; ++size) {
    const ColumnSet first = all >> (n - size);
    for (ColumnSet columns = first; columns <= all; columns = nextSet(columns)) {
      minors[columns] = expandAlong(A[n - size], columns, minors);
    }
  }
  return minors[all];
}

/// Expands into minors, one after the other, down to those of `tabled` columns, for which `table`
/// has room.
double determinantOf(double** A, int n, double* table, int tabled) {
  if (n <= tabled) return determinantByTable(A, n, table);
  const int size = n - 1;
  const auto free = [size](double** matrix) { safeDelete2DDouble(size, matrix); };
  const std::unique_ptr<double*, decltype(free)> owner(allocate2DDouble(size, size), free);
  double** const minor = owner.get();
  double determinant = 0.0;
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < size; ++i) {
      const double* const row = A[i + 1];
      std::copy(row + j + 1, row + n, std::copy(row, row + j, minor[i]));
    }
    const double sign = j % 2 == 0 ? 1.0 : -1.0;
    determinant += determinantOf(minor, size, table, tabled) * (sign * A[0][j]);
  }
  return determinant;
}

}  // namespace

double** allocate2DDouble(int rows, int cols) {
  return allocate<double>(rows, cols);
}

int** allocate2DInteger(int rows, int cols) {
  return allocate<int>(rows, cols);
}

void safeDelete2DDouble(int rows, double**& M) {
  release(rows, M);
}

void safeDelete2DInteger(int rows, int**& M) {
  release(rows, M);
}

void copyMatrix(double** src, double** dst, int rows, int cols) {
  if (cols < 1) return;
  for (int i = 0; i < rows; ++i) std::copy_n(src[i], cols, dst[i]);
}

void copyMatrixInt(int** src, int** dst, int rows, int cols) {
  forEachElement(cols, rows, [=](int j, int i) { dst[i][j] = src[i][j]; });
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

double matrixDet(double** A, int n) {
  if (n < 1) {
    std::puts("Det matrix size < 1!!!");
    return 0.0;
  }
  if (n == 1) return A[0][0];
  std::array<double, tableSize(kMostColumnsOnStack)> onStack;
  if (n <= kMostColumnsOnStack) return determinantByTable(A, n, onStack.data());
  int tabled = std::min(n, kMostTabledColumns);
  std::unique_ptr<double[]> table;
  for (; tabled > kMostColumnsOnStack; --tabled) {
    table.reset(new (std::nothrow) double[tableSize(tabled)]);
    if (table) break;
  }
  return determinantOf(A, n, table ? table.get() : onStack.data(), tabled);
}

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

double dotProduct(int n, double* a, double* b) {
  double sum = 0.0;
  for (int i = 0; i < n; ++i) sum += a[i] * b[i];
  return sum;
}

double dotProduct3D(double* a, double* b) {
  return dotProduct(3, a, b);
}

void crossProduct3D(double* a, double* b, double* out) {
  const double x = a[1] * b[2] - a[2] * b[1];
  const double y = a[2] * b[0] - a[0] * b[2];
  const double z = a[0] * b[1] - a[1] * b[0];
  out[0] = x;
  out[1] = y;
  out[2] = z;
}

double norm3D(double* v) {
  return std::sqrt(norm2(3, v));
}

double norm2(int n, double* v) {
  return dotProduct(n, v, v);
}

void minus3D(double* a, double* b, double* out) {
  for (int k = 0; k < 3; ++k) out[k] = a[k] - b[k];
}

void add3D(double* a, double* b, double* out) {
  for (int k = 0; k < 3; ++k) out[k] = a[k] + b[k];
}

double det3D(double (*m)[3]) {
  return determinant3(m[0], m[1], m[2]);
}

double vecDist2(int n, double* a, double* b) {
  return squaredDistance(static_cast<std::size_t>(std::max(n, 0)), a, b);
}

float vecDist2f(const std::vector<float>& a, const std::vector<float>& b) {
  return squaredDistance(a.size(), a.data(), b.data());
}

double vecDist2d(const std::vector<double>& a, const std::vector<double>& b) {
  return squaredDistance(a.size(), a.data(), b.data());
}

void int_swap(int& x, int& y) {
  std::swap(x, y);
}

void ulint_swap(unsigned long& x, unsigned long& y) {
  std::swap(x, y);
}
