/// @file
/// Small dense matrices and vectors of doubles. No state; callable from any thread on distinct
/// data.
///
/// A matrix is an array of row pointers, each to its own row: element (i, j) is M[i][j]. Sizes are
/// passed beside the arrays and are not checked against them. An output must be distinct from the
/// inputs unless the function's comment says otherwise. With a count below 1 an output stays as it
/// was and a sum is 0, but for the products and the determinant, which say so.
///
/// Sums start from 0 and take the elements in their order, matrices row by row; formulas are
/// evaluated as written, from left to right but for parentheses, without fused multiply-add. So
/// results are the same to the last bit on every processor; only a NaN's sign and payload may
/// differ. A value is near zero when -9.999999974752427e-7 <= value <= 9.999999974752427e-7, which
/// is 1e-6 in single precision; NaN is not near zero.
#pragma once

#include <vector>

/// @defgroup matrix Matrices and vectors
/// @{

/// Makes a matrix of zeros, which the caller releases with safeDelete2DDouble() or
/// safeDelete2DInteger(), the one for its elements. A count may be 0. Throws
/// std::bad_array_new_length for negative `rows`, or for negative `cols` with `rows` of at least 1,
/// and std::bad_alloc without memory; nothing stays allocated then.
/// @{
double** allocate2DDouble(int rows, int cols);
int** allocate2DInteger(int rows, int cols);
/// @}

/// Releases a matrix from allocate2DDouble() or allocate2DInteger() and sets `M` to null. Nothing
/// is done for a null `M`, and nothing is released for a null row.
/// @param rows  must be as many as were made; below 1 only the row pointers are released
/// @{
void safeDelete2DDouble(int rows, double**& M);
void safeDelete2DInteger(int rows, int**& M);
/// @}

/// Copies `src`, which comes first, to `dst`: copyMatrix() row by row, no row of which may overlap
/// its copy in part; copyMatrixInt() element by element, column after column, also where the two
/// overlap.
/// @{
void copyMatrix(double** src, double** dst, int rows, int cols);
void copyMatrixInt(int** src, int** dst, int rows, int cols);
/// @}

/// Writes the identity matrix of `n` rows and columns.
void eye(int n, double** M);

/// Writes a matrix of zeros.
void zeroMat(int rows, int cols, double** M);

/// B[j][i] = A[i][j] for matrices of `n` rows and columns. In place, the elements below the
/// diagonal would be lost.
void matTranspose(int n, double** A, double** B);

/// C = A + B or C = A - B, element by element. `C` may be an input.
/// @{
void addMat(int rows, int cols, double** A, double** B, double** C);
void subMat(int rows, int cols, double** A, double** B, double** C);
/// @}

/// B = A * c, element by element. `B` may be `A`.
void matConstMultiply(int rows, int cols, double** A, double c, double** B);

/// C = A * B, where `A` has `m` rows and `n` columns, `B` `n` rows and `p` columns. With `n` below
/// 1 every element of `C` becomes 0.
void multiMat(int m, int n, int p, double** A, double** B, double** C);

/// y = M * x, where `x` has `cols` elements and `y` has `rows`. With `cols` below 1 every element
/// of `y` becomes 0.
void matVecMultiply(int rows, int cols, double** M, double* x, double* y);

/// The outer product M[i][j] = u[i] * v[j], where `u` has `n` elements and `v` has `m`.
void outerProduct(int n, double* u, int m, double* v, double** M);

/// Returns the squared Frobenius distance, the sum of (A[i][j] - B[i][j])^2 without the root.
double matFDist2(int rows, int cols, double** A, double** B);

/// Returns whether every element is near zero; true when a count is below 1.
bool isZeroMat(int rows, int cols, double** M);

/// Returns the determinant of a matrix of `n` rows and columns, expanded along the first row
/// (Laplace) without pivoting or tolerance. Prints "Det matrix size < 1!!!\n" and returns 0.0 when
/// `n` is below 1.
///
/// Meant for small matrices. From 10 columns on it allocates a table of 2^n doubles for as long as
/// it runs; memory doubles with each column, time a little more. Beyond 24 columns (128 MiB) each
/// further column multiplies the time by the number of columns instead, and so does each column
/// beyond 9 when there is no memory for the table. Throws std::bad_alloc when there is none even
/// for the minors, one of each size down to 9 columns; nothing stays allocated then.
double matrixDet(double** A, int n);

/// Inverts a matrix of three rows or of two: the adjugate over the determinant, which is that of
/// det3D() or `A[0][0] * A[1][1] - A[0][1] * A[1][0]`. `Ainv` becomes zeros when the determinant is
/// near zero, which is the only sign of it.
/// @{
void matrixInv3D(double** A, double** Ainv);
void matrixInv2D(double** A, double** Ainv);
/// @}

/// Inverts as matrixInv2D() does, but returns false and leaves `Ainv` as it was when the
/// determinant is near zero. `Ainv` may be `A`.
bool mat2DInverse(double** A, double** Ainv);

/// Returns the dot product of two vectors of `n` elements or of 3.
/// @{
double dotProduct(int n, double* a, double* b);
double dotProduct3D(double* a, double* b);
/// @}

/// out = a x b, the cross product of two vectors of 3 elements. `out` may be an input.
void crossProduct3D(double* a, double* b, double* out);

/// Returns the Euclidean length of a vector of 3 elements: with the root, unlike norm2().
double norm3D(double* v);

/// Returns the squared Euclidean length of a vector of `n` elements.
double norm2(int n, double* v);

/// out = a - b or out = a + b, for vectors of 3 elements. `out` may be an input.
/// @{
void minus3D(double* a, double* b, double* out);
void add3D(double* a, double* b, double* out);
/// @}

/// Returns the determinant of three contiguous rows of three, `m00 * m11 * m22 - m00 * m12 * m21 -
/// m22 * (m01 * m10) + m01 * m12 * m20 + m21 * (m10 * m02) - m20 * (m02 * m11)`. Its last bits may
/// differ from matrixDet()'s.
double det3D(double (*m)[3]);

/// Returns the squared Euclidean distance of two vectors: of `n` elements, or of a.size(), which is
/// not compared with b.size(). vecDist2f() computes in single precision throughout.
/// @{
double vecDist2(int n, double* a, double* b);
float vecDist2f(const std::vector<float>& a, const std::vector<float>& b);
double vecDist2d(const std::vector<double>& a, const std::vector<double>& b);
/// @}

/// Exchanges two numbers.
/// @{
void int_swap(int& x, int& y);
void ulint_swap(unsigned long& x, unsigned long& y);
/// @}

/// @}
