// Small dense matrices and vectors of doubles.
//
// A matrix is an array of row pointers, each to its own row: element (i, j) is M[i][j]. A vector is
// an array. Sizes are passed beside them and nothing checks that an array has the size it is said
// to have. Unless its comment says otherwise a function does nothing when a count is below 1.
//
// Sums are formed in the order of the elements, products from left to right, and nothing is fused,
// so that results are the same to the last bit on every processor (only the sign and the payload of
// a NaN are left open). A value is near zero when -9.999999974752427e-7 <= value <=
// 9.999999974752427e-7, which is 1e-6 in single precision; a NaN never is.
//
// No state; callable from any thread on distinct data.
#pragma once

#include <vector>

/// Return a new matrix of `rows` times `cols` zeros, which the caller releases with the matching
/// `safeDelete2DDouble` or `safeDelete2DInteger`. A count of 0 gives no rows or rows without
/// elements.
///
/// Throw std::bad_array_new_length for negative `rows`, or for negative `cols` with `rows` of at
/// least 1, and std::bad_alloc without memory; nothing stays allocated then.
double** allocate2DDouble(int rows, int cols);
int** allocate2DInteger(int rows, int cols);

/// Release a matrix and its first `rows` rows, those that are not null, and set `M` to null. With
/// `rows` below 1 only the row pointers are released. A null `M` is left as it is.
///
/// @warning Only for matrices from `allocate2DDouble` and `allocate2DInteger`, with their `rows`.
void safeDelete2DDouble(int rows, double**& M);
void safeDelete2DInteger(int rows, int**& M);

/// Copy the `rows` times `cols` elements of `src`, which comes first, to `dst`. `copyMatrixInt`
/// goes column by column.
void copyMatrix(double** src, double** dst, int rows, int cols);
void copyMatrixInt(int** src, int** dst, int rows, int cols);

/// Makes the first `n` rows and columns of `M` the identity.
void eye(int n, double** M);

/// Sets the first `cols` elements of the first `rows` rows to zero.
void zeroMat(int rows, int cols, double** M);

/// Writes the transpose of the `n` times `n` matrix `A` to `B`.
///
/// @warning `A` and `B` must be distinct: transposing in place loses the elements below the
/// diagonal.
void matTranspose(int n, double** A, double** B);

/// Write A + B, A - B and A * c, element by element. The output may be an input.
void addMat(int rows, int cols, double** A, double** B, double** C);
void subMat(int rows, int cols, double** A, double** B, double** C);
void matConstMultiply(int rows, int cols, double** A, double c, double** B);

/// Writes the product of `A`, `m` times `n`, and `B`, `n` times `p`, to `C`, `m` times `p`. With
/// `n` below 1 every element of `C` becomes 0.
///
/// @warning `C` must be distinct from `A` and `B`.
void multiMat(int m, int n, int p, double** A, double** B, double** C);

/// Writes the product of `M`, `rows` times `cols`, and the vector `x` to `y`, which has `rows`
/// elements. With `cols` below 1 all of them become 0.
///
/// @warning `x` and `y` must be distinct.
void matVecMultiply(int rows, int cols, double** M, double* x, double* y);

/// Writes u[i] * v[j] to M[i][j], for the `n` elements of `u` and the `m` elements of `v`.
void outerProduct(int n, double* u, int m, double* v, double** M);

/// Returns the sum of (A[i][j] - B[i][j])^2, row by row: the square of the Frobenius distance,
/// without the root. 0 when a count is below 1.
double matFDist2(int rows, int cols, double** A, double** B);

/// Returns whether every element is near zero; true when a count is below 1.
bool isZeroMat(int rows, int cols, double** M);

/// Returns the determinant of the `n` times `n` matrix `A`, expanded along the first row (Laplace)
/// without pivoting or tolerance. Prints "Det matrix size < 1!!!\n" and returns 0.0 when `n` is
/// below 1.
///
/// Meant for small matrices. From 10 columns on it allocates 2^n doubles for as long as it runs;
/// time and memory double with every column. Beyond 24 columns and 128 MiB, or where memory runs
/// out, each further column multiplies the time by the number of columns instead.
double matrixDet(double** A, int n);

/// Writes the inverse of the 3 times 3 matrix `A`, the adjugate over the determinant, to `Ainv`.
/// When the determinant is near zero all of `Ainv` is 0, which is the only sign of it.
///
/// @warning `A` and `Ainv` must be distinct: `Ainv` is set to zero first.
void matrixInv3D(double** A, double** Ainv);

/// Writes the inverse of the 2 times 2 matrix `A` to `Ainv`. When the determinant is near zero all
/// of `Ainv` is 0, which is the only sign of it.
///
/// @warning `A` and `Ainv` must be distinct: `Ainv` is set to zero first.
void matrixInv2D(double** A, double** Ainv);

/// Writes the inverse of the 2 times 2 matrix `A` to `Ainv` and returns true. When the determinant
/// is near zero, returns false and leaves `Ainv` as it was. `Ainv` may be `A`.
bool mat2DInverse(double** A, double** Ainv);

/// Return the sum of a[i] * b[i]; 0 when `n` is below 1.
double dotProduct(int n, double* a, double* b);
double dotProduct3D(double* a, double* b);

/// Writes the cross product of two vectors of 3 elements to `out`, which may be an input.
void crossProduct3D(double* a, double* b, double* out);

/// Returns the Euclidean length of a vector of 3 elements, unlike `norm2` with the square root.
double norm3D(double* v);

/// Returns the squared Euclidean length, without the square root; 0 when `n` is below 1.
double norm2(int n, double* v);

/// Write a - b and a + b for vectors of 3 elements. `out` may be an input.
void minus3D(double* a, double* b, double* out);
void add3D(double* a, double* b, double* out);

/// Returns the determinant of three contiguous rows of three.
double det3D(double (*m)[3]);

/// Return the sum of (a[i] - b[i])^2, the squared distance: of `n` elements, or of as many as `a`
/// has. `vecDist2f` computes in single precision throughout. 0 when there are no elements.
///
/// @warning `b` must have as many elements as `a`; its length is not looked at.
double vecDist2(int n, double* a, double* b);
float vecDist2f(const std::vector<float>& a, const std::vector<float>& b);
double vecDist2d(const std::vector<double>& a, const std::vector<double>& b);

/// Exchange two numbers.
void int_swap(int& x, int& y);
void ulint_swap(unsigned long& x, unsigned long& y);
