#include "Brindle/utility/matrix.h"

#include <climits>
#include <new>
#include <random>

#include "reference/PlainNumerics.h"
#include "support/Call.h"

static bool isOutOfMemory = false;

/// Lets a test have no memory for a table.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return isOutOfMemory ? nullptr : ::operator new[](size);
}

namespace {

bool mat2DInverseInPlace(double** A) {
  return mat2DInverse(A, A);
}

TEST(MatrixOperations, WriteTheBitsOfTheTableAndNothingElse) {
  support::checkTable(
      "matrix.txt",
      {CALLS(copyMatrix), CALLS(eye), CALLS(zeroMat), CALLS(matTranspose), CALLS(addMat),
       CALLS(subMat), CALLS(matConstMultiply), CALLS(multiMat), CALLS(matVecMultiply),
       CALLS(outerProduct), CALLS(matFDist2), CALLS(isZeroMat), CALLS(matrixDet), CALLS(det3D),
       CALLS(matrixInv3D), CALLS(matrixInv2D), CALLS(mat2DInverse), CALLS(mat2DInverseInPlace)});
}

TEST(MatrixVectors, HaveTheBitsOfTheTable) {
  support::checkTable("matrix-vectors.txt",
                      {CALLS(dotProduct), CALLS(dotProduct3D), CALLS(crossProduct3D), CALLS(norm3D),
                       CALLS(norm2), CALLS(minus3D), CALLS(add3D), CALLS(vecDist2),
                       CALLS(vecDist2f), CALLS(vecDist2d), CALLS(int_swap), CALLS(ulint_swap)});
}

TEST(MatrixCopyOfIntegers, GoesColumnAfterColumn) {
  int cells[] = {1, 2, 3, 4, 5, 6};  // in which the two overlap
  int *from[] = {cells, cells + 2, nullptr}, *to[] = {cells + 4, cells + 1, nullptr};
  for (const int cols : {-1, 0, 2}) copyMatrixInt(from, to, 2, cols);
  EXPECT_SAME(std::vector<int>(cells, cells + 6), (std::vector<int>{1, 3, 4, 4, 1, 3}));
}

template <class T>
void checkAllocation(T** (*allocate)(int, int), void (*release)(int, T**&)) {
  for (const auto& [rows, cols] : {std::pair(2, 3), {0, -1}, {1, 0}}) {
    T** M = allocate(rows, cols);
    ASSERT_NE(M, nullptr) << rows << " rows";
    for (int k = 0; k < rows * cols; ++k) EXPECT_SAME(M[k / cols][k % cols], T{0}) << k;
    for (int twice = 0; twice < 2; ++twice) release(rows == 0 ? -1 : rows, M);
    EXPECT_EQ(M, nullptr) << rows << " rows";
  }
  EXPECT_THROW(allocate(INT_MIN, 3), std::bad_array_new_length);
  EXPECT_THROW(allocate(2, -1), std::bad_array_new_length);
}

TEST(MatrixAllocation, GivesZerosAndTakesThemBack) {
  checkAllocation(allocate2DDouble, safeDelete2DDouble);
  checkAllocation(allocate2DInteger, safeDelete2DInteger);
}

struct Matrix {
  operator double**() {
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = elements.data() + i * rows.size();
    return rows.data();
  }
  std::vector<double*> rows;
  std::vector<double> elements;
};

/// Zeros of both signs and special numbers with the given odds out of 100, ordinary ones else.
Matrix randomMatrix(std::size_t n, unsigned int seed, unsigned int zeros, unsigned int specials) {
  std::mt19937 engine(seed);
  Matrix A{std::vector<double*>(n), std::vector<double>(n * n)};
  for (double& element : A.elements) {
    const auto kind = engine() % 100;
    const double special[] = {INFINITY, -INFINITY, NAN, 1e300, 5e-324};
    element = static_cast<int>(engine() % 20001) / 3e3 - 3.0;
    if (kind < zeros) element = std::copysign(0.0, element);
    if (kind >= 100 - specials) element = special[engine() % 5];
  }
  return A;
}

TEST(MatrixDeterminant, HasTheBitsOfThePlainExpansion) {
  for (const auto& [zeros, specials] : {std::pair(0U, 0U), {40, 0}, {85, 0}, {10, 3}, {70, 5}}) {
    for (int n = 1; n <= 9; ++n) {
      for (unsigned int seed = n < 6 ? 100 : n < 8 ? 3 : 1; seed > 0; --seed) {
        Matrix A = randomMatrix(static_cast<std::size_t>(n), seed, zeros, specials);
        EXPECT_SAME(matrixDet(A, n), plainDeterminant(A, n))
            << n << " columns, seed " << seed << ", odds " << zeros << " and " << specials;
      }
    }
  }
}

TEST(MatrixDeterminant, IsTheSameWithoutMemoryForItsTable) {
  for (const int n : {10, 11}) {
    Matrix A = randomMatrix(static_cast<std::size_t>(n), 1, 20, 0);
    const double determinant = matrixDet(A, n);
    isOutOfMemory = true;
    const double withoutTable = matrixDet(A, n);
    isOutOfMemory = false;
    EXPECT_SAME(withoutTable, determinant) << n << " columns";
  }
}

}  // namespace
