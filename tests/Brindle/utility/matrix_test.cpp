#include "Brindle/utility/matrix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <new>
#include <random>
#include <utility>
#include <vector>

#include "reference/PlainNumerics.h"
#include "support/SameBits.h"

static bool isOutOfMemory = false;

/// Lets a test have no memory for a table.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return isOutOfMemory ? nullptr : ::operator new[](size);
}

namespace {

using Numbers = std::vector<double>;

struct Matrix {
  operator double**() {
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = elements.data() + i * cols;
    return rows.data();
  }
  std::size_t cols;
  Numbers elements;
  std::vector<double*> rows = std::vector<double*>(elements.size() / cols);
};

TEST(Allocation, GivesZerosAndTakesThemBack) {
  const auto check = [](auto allocate, auto release) {
    for (const auto& [rows, cols] : {std::pair(2, 3), {0, -1}, {1, 0}}) {
      auto** M = allocate(rows, cols);
      EXPECT_NE(M, nullptr);
      for (int k = 0; k < rows * cols; ++k) EXPECT_EQ(M[k / cols][k % cols], 0);
      for (int twice = 0; twice < 2; ++twice) release(rows == 0 ? -1 : rows, M);
      EXPECT_EQ(M, nullptr);
    }
    EXPECT_THROW(allocate(INT_MIN, 3), std::bad_array_new_length);
    EXPECT_THROW(allocate(2, -1), std::bad_array_new_length);
  };
  check(allocate2DDouble, safeDelete2DDouble);
  check(allocate2DInteger, safeDelete2DInteger);
}

// clang-format off
#define RUN(call) [](int r, int c, double** A, double** B, double** C) { (void)A, (void)B, call; }
const struct {
  const char* name;
  void (*run)(int rows, int cols, double** A, double** B, double** C);
  Numbers block;  // the first 2 rows and 3 columns of C afterwards
} kOperations[] = {
    {"copyMatrix", RUN(copyMatrix(A, C, r, c)), {1, 2, 3, 4, 5, 6}},
    {"eye", RUN(eye(std::min(r, c), C)), {1, 0, 77, 0, 1, 77}},
    {"zeroMat", RUN(zeroMat(r, c, C)), {0, 0, 0, 0, 0, 0}},
    {"matTranspose", RUN(matTranspose(std::min(r, c), A, C)), {1, 4, 77, 2, 5, 77}},
    {"addMat", addMat, {8, 10, 12, 14, 16, 18}},
    {"subMat", subMat, {-6, -6, -6, -6, -6, -6}},
    {"matConstMultiply", RUN(matConstMultiply(r, c, A, -2.0, C)), {-2, -4, -6, -8, -10, -12}},
    {"multiMat", RUN(multiMat(r, 2, c, A, B, C)), {27, 30, 33, 78, 87, 96}},
    {"outerProduct", RUN(outerProduct(r, A ? A[1] : nullptr, c, B ? B[0] : nullptr, C)), {28, 32, 36, 35, 40, 45}},
};
// clang-format on

TEST(Operations, WriteTheirBlockAndNothingElse) {
  Matrix A{4, {1, 2, 3, 90, 4, 5, 6, 91, 92, 93, 94, 95}};
  Matrix B{4, {7, 8, 9, 80, 10, 11, 12, 81, 82, 83, 84, 85}};
  for (const auto& [name, run, block] : kOperations) {
    Matrix C{4, Numbers(12, 77.0)};
    Numbers expected = C.elements;
    for (const auto& [r, c] : {std::pair(0, 2), {2, 0}, {-1, 2}, {2, -1}, {2, INT_MIN}}) {
      run(r, c, nullptr, nullptr, nullptr);
    }
    run(2, 3, A, B, C);
    std::copy_n(block.begin(), 3, expected.begin());
    std::copy_n(block.begin() + 3, 3, expected.begin() + 4);
    EXPECT_EQ(C.elements, expected) << name;
  }
  int cells[] = {1, 2, 3, 4, 5, 6};
  int *from[] = {cells, cells + 2}, *to[] = {cells + 4, cells + 1};  // the order of copying shows
  for (const int cols : {-1, 0, 2}) copyMatrixInt(from, to, 2, cols);
  EXPECT_EQ(std::vector<int>(cells, cells + 6), (std::vector<int>{1, 3, 4, 4, 1, 3}));
}

#define EXPECT_BITS(computed, expected) EXPECT_TRUE(sameBits(computed, expected))

TEST(Sums, WithoutTermsAreZero) {
  for (const int n : {0, -1}) {
    Matrix A{2, {1, 2, 3, 4}}, C{2, {5, 6, 7, 8}};
    matVecMultiply(n, 2, A, A[0], C[0]);
    EXPECT_EQ(C.elements[0], 5.0);
    matVecMultiply(2, n, A, A[0], C[0]);
    EXPECT_EQ(C.elements, (Numbers{0, 0, 7, 8}));
    multiMat(2, n, 2, A, A, C);
    EXPECT_EQ(C.elements, Numbers(4, 0.0));
    EXPECT_EQ(matFDist2(n, 2, A, C) + matFDist2(2, n, A, C) + dotProduct(n, A[0], A[0]), 0.0);
    EXPECT_EQ(norm2(n, A[0]) + vecDist2(n, A[0], A[1]) + vecDist2d({}, {1}) + vecDist2f({}, {}), 0);
    EXPECT_TRUE(isZeroMat(n, 2, A) && isZeroMat(2, n, A));
  }
}

TEST(Sums, OfMinusZerosAreZero) {
  Numbers minusZeros(3, -0.0), sum(1, 9.0), ones(3, 1.0);
  Matrix row{3, minusZeros}, column{1, ones}, product{1, sum};
  multiMat(1, 3, 1, row, column, product);
  matVecMultiply(1, 3, row, ones.data(), sum.data());
  for (const double computed : {product[0][0], sum[0], dotProduct(3, row[0], ones.data()),
                                dotProduct3D(row[0], ones.data())}) {
    EXPECT_BITS(computed, 0.0);
  }
}

// The expected numbers were computed with another language. Another order of the sums, fused
// operations, or a single precision sum in double precision give other bits.
TEST(Results, AreTheSameBitsInEveryBuild) {
  Numbers p{-2.97, -2.09, -1.69, -1.23, 1.87}, b{-1.08, 2.46, -0.82, -0.52, -0.34}, cross = b;
  crossProduct3D(p.data(), cross.data(), cross.data());  // the output may be an input
  for (const auto& [k, bits] : {std::pair(0U, 0x1.77c1bda5119cep+2),
                                {1, -0x1.386c226809d48p-1},
                                {2, -0x1.32075f6fd2200p+3}}) {
    EXPECT_BITS(cross[k], bits);
  }
  EXPECT_BITS(dotProduct(5, p.data(), b.data()), -0x1.16a161e4f765ep-1);
  EXPECT_BITS(dotProduct3D(p.data(), b.data()), -0x1.189374bc6a7eep-1);
  EXPECT_BITS(norm2(5, p.data()), 0x1.50e0ded288ce6p+4);
  EXPECT_BITS(norm3D(p.data()), 0x1.005c4cbfe7ecfp+2);
  EXPECT_BITS(vecDist2(5, p.data(), b.data()), 0x1.e6b71758e2196p+4);
  EXPECT_BITS(vecDist2d(p, b), 0x1.e6b71758e2196p+4);
  EXPECT_BITS(vecDist2f({p.begin(), p.end()}, {b.begin(), b.end()}), 0x1.e6b71ap+4);

  minus3D(p.data(), b.data(), cross.data());
  for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(cross[k], p[k] - b[k]);
  add3D(p.data(), cross.data(), cross.data());
  for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(cross[k], p[k] + (p[k] - b[k]));
  int i = 1, j = 2;
  unsigned long u = 3, v = ULONG_MAX;
  int_swap(i, j);
  ulint_swap(u, v);
  EXPECT_TRUE(i == 2 && j == 1 && u == ULONG_MAX && v == 3);

  Matrix row{5, p}, column{1, b}, product{1, {9.0, 9.0}};
  multiMat(1, 5, 1, row, column, product);
  EXPECT_BITS(product[0][0], -0x1.16a161e4f765ep-1);
  matVecMultiply(1, 5, row, b.data(), product[1]);
  EXPECT_BITS(product[1][0], -0x1.16a161e4f765ep-1);

  Matrix A{4, {2.59, 1.81, 1.34, -2.76, -0.67, 0.98, -2.73, -2.96}};
  Matrix zeros{4, Numbers(8)}, inverse2 = zeros;
  matrixInv2D(A, inverse2);
  EXPECT_BITS(matFDist2(2, 4, A, zeros), 0x1.282b6ae7d566dp+5);
  EXPECT_BITS(inverse2[0][1], -0x1.ee21cfaa47138p-2);
  EXPECT_TRUE(mat2DInverse(A, A));  // in place
  EXPECT_BITS(A[0][1], -0x1.ee21cfaa47138p-2);
}

TEST(Inverses, TakeADeterminantNearZeroForZero) {
  constexpr double kTolerance = 0x1.0c6f7ap-20;
  const auto check = [](double value, bool isZero) {
    Matrix A2{2, {value, 0, 0, 1}}, A3{3, {1, 0, 0, 0, value, 0, 0, 0, 1}};  // of that determinant
    Matrix zeroed2{3, Numbers(9, 7.0)}, kept = zeroed2, zeroed3 = zeroed2;
    matrixInv2D(A2, zeroed2);
    matrixInv3D(A3, zeroed3);
    EXPECT_EQ(mat2DInverse(A2, kept), !isZero) << value;
    EXPECT_EQ(zeroed2.elements == (Numbers{0, 0, 7, 0, 0, 7, 7, 7, 7}), isZero) << value;
    EXPECT_EQ(zeroed3.elements == Numbers(9, 0.0), isZero) << value;
    EXPECT_EQ(kept.elements == Numbers(9, 7.0), isZero) << value;
    EXPECT_EQ(isZeroMat(1, 2, A2), isZero) << value;
  };
  for (const double x : {0.0, 5e-7, -9e-7, kTolerance, -kTolerance}) check(x, true);
  for (const double x : {1e-6, -1e-6, std::nextafter(kTolerance, 1.0), NAN * 1.0}) check(x, false);
}

TEST(Inverses, AreTheAdjugateOverTheDeterminant) {
  Matrix A2{2, {4, 7, 2, 6}}, A3{3, {2, 3, 1, 4, 7, 5, 1, 6, 3}}, inverse3 = A3;
  EXPECT_TRUE(mat2DInverse(A2, A2));
  EXPECT_EQ(A2.elements, (Numbers{0.6, -0.7, -0.2, 0.4}));
  matrixInv3D(A3, inverse3);
  Numbers expected{-9, -3, 8, -7, 5, -6, 17, -9, 2};
  for (double& element : expected) element /= -22.0;
  EXPECT_EQ(inverse3.elements, expected);
}

/// Zeros of both signs and special numbers with the given odds out of 100, ordinary ones else.
Matrix randomMatrix(int n, unsigned int seed, unsigned int zeros, unsigned int specials) {
  std::mt19937 engine(seed);
  Matrix A{static_cast<std::size_t>(n), Numbers(static_cast<std::size_t>(n * n))};
  for (double& element : A.elements) {
    const auto kind = engine() % 100;
    const double special[] = {INFINITY, -INFINITY, NAN, 1e300, 5e-324};
    element = static_cast<int>(engine() % 20001) / 3e3 - 3.0;
    if (kind < zeros) element = std::copysign(0.0, element);
    if (kind >= 100 - specials) element = special[engine() % 5];
  }
  return A;
}

TEST(Determinant, HasTheBitsOfThePlainExpansion) {
  for (const auto& [zeros, specials] : {std::pair(0U, 0U), {40, 0}, {85, 0}, {10, 3}, {70, 5}}) {
    for (int n = 1; n <= 9; ++n) {
      for (unsigned int seed = n < 6 ? 100 : n < 8 ? 3 : 1; seed > 0; --seed) {
        Matrix A = randomMatrix(n, seed, zeros, specials);
        EXPECT_TRUE(sameBits(matrixDet(A, n), plainDeterminant(A, n)))
            << n << " columns, seed " << seed << ", odds " << zeros << " and " << specials;
      }
    }
  }
}

TEST(Determinant, AndInverseOfThreeRowsAreEvaluatedAsWritten) {
  for (const auto& [zeros, specials] : {std::pair(0U, 0U), {20, 0}, {10, 5}}) {
    for (unsigned int seed = 1; seed <= 200; ++seed) {
      Matrix A = randomMatrix(3, seed, zeros, specials), inverse = A, expected = A;
      double rows[3][3];
      std::copy(A.elements.begin(), A.elements.end(), rows[0]);
      const double determinant = plainDeterminant3(A);
      EXPECT_TRUE(sameBits(det3D(rows), determinant)) << seed;
      matrixInv3D(A, inverse);
      plainInverse3(A, expected);
      if (std::fabs(determinant) < 1e-3) continue;
      for (std::size_t k = 0; k < 9; ++k) {
        EXPECT_TRUE(sameBits(inverse.elements[k], expected.elements[k])) << k << " of " << seed;
      }
    }
  }
}

TEST(Determinant, IsTheSameWithoutMemoryForItsTable) {
  for (const int n : {10, 11}) {
    Matrix A = randomMatrix(n, 1, 20, 0);
    const double determinant = matrixDet(A, n);
    isOutOfMemory = true;
    EXPECT_TRUE(sameBits(matrixDet(A, n), determinant)) << n;
    isOutOfMemory = false;
  }
}

TEST(Determinant, OfNoMatrixIsZeroWithAMessage) {
  testing::internal::CaptureStdout();
  for (const int n : {0, INT_MIN}) EXPECT_TRUE(sameBits(matrixDet(nullptr, n), 0.0));
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Det matrix size < 1!!!\nDet matrix size < 1!!!\n");
}

}  // namespace
