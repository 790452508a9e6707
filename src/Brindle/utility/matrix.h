/// @file
/// Small dense matrices and vectors of doubles.
///
/// A matrix is an array of row pointers, each to its own row: element (i, j) is M[i][j]. A vector
/// is an array. Sizes are passed beside them and nothing checks that an array has the size it is
/// said to have. Unless its comment says otherwise a function does nothing when a count is below 1.
///
/// Sums start from 0 and take the elements in their order; formulas are evaluated as written, from
/// left to right but for parentheses; nothing is fused. So results are the same to the last bit on
/// every processor; only the sign and the payload of what is not a number are left open. A value is
/// near zero when -9.999999974752427e-7 <= value <= 9.999999974752427e-7, which is 1e-6 in single
/// precision; what is not a number never is.
///
/// No state; callable from any thread on distinct data.
#pragma once

#include <vector>

/// Makes a matrix of zeros. Throws std::bad_array_new_length for negative `rows`, or for negative
/// `cols` with `rows` of at least 1, and std::bad_alloc without memory; nothing stays allocated
/// then.
/// @param rows  rows; 0 for none
/// @param cols  elements of each row; 0 for none
/// @return the matrix, which the caller releases with safeDelete2DDouble() or
/// safeDelete2DInteger(), the one for its elements
/// @{
double** allocate2DDouble(int rows, int cols);
int** allocate2DInteger(int rows, int cols);
/// @}

/// Releases a matrix from allocate2DDouble() or allocate2DInteger(), which it must come from.
/// @param rows  must be as many as were made; below 1 only the row pointers are released
/// @param M  becomes null; rows that are null are passed over, as is a null `M`
/// @{
void safeDelete2DDouble(int rows, double**& M);
void safeDelete2DInteger(int rows, int**& M);
/// @}

/// Copies a matrix: copyMatrix() row by row, copyMatrixInt() element by element, column after
/// column.
/// @param src  the matrix; comes first
/// @param dst  receives the copy
/// @param rows  rows
/// @param cols  columns
/// @{
void copyMatrix(double** src, double** dst, int rows, int cols);
void copyMatrixInt(int** src, int** dst, int rows, int cols);
/// @}

/// Writes an identity matrix.
/// @param n  rows and columns
/// @param M  receives it
void eye(int n, double** M);

/// Writes a matrix of zeros.
/// @param rows  rows
/// @param cols  columns
/// @param M  receives it
void zeroMat(int rows, int cols, double** M);

/// Transposes a square matrix.
/// @param n  rows and columns
/// @param A  the matrix
/// @param B  receives B[j][i] = A[i][j]; must be distinct from `A`, which in place would lose the
/// elements below its diagonal
void matTranspose(int n, double** A, double** B);

/// Adds two matrices, or subtracts the second from the first, element by element.
/// @param rows  rows
/// @param cols  columns
/// @param A  the first matrix
/// @param B  the second matrix
/// @param C  receives the sum or the difference; may be an input
/// @{
void addMat(int rows, int cols, double** A, double** B, double** C);
void subMat(int rows, int cols, double** A, double** B, double** C);
/// @}

/// Multiplies each element of a matrix.
/// @param rows  rows
/// @param cols  columns
/// @param A  the matrix
/// @param c  the factor
/// @param B  receives the product; may be `A`
void matConstMultiply(int rows, int cols, double** A, double c, double** B);

/// Multiplies two matrices.
/// @param m  rows of `A`
/// @param n  columns of `A`; below 1 every element of `C` becomes 0
/// @param p  columns of `B`
/// @param A  the first matrix, `m` times `n`
/// @param B  the second matrix, `n` times `p`
/// @param C  receives the product, `m` times `p`; must be distinct from `A` and `B`
void multiMat(int m, int n, int p, double** A, double** B, double** C);

/// Multiplies a matrix and a vector.
/// @param rows  rows
/// @param cols  columns; below 1 every element of `y` becomes 0
/// @param M  the matrix
/// @param x  the vector, of `cols` elements
/// @param y  receives the product, of `rows` elements; must be distinct from `x` and `M`
void matVecMultiply(int rows, int cols, double** M, double* x, double* y);

/// Computes the outer product of two vectors.
/// @param n  elements of `u`
/// @param u  the first vector
/// @param m  elements of `v`
/// @param v  the second vector
/// @param M  receives M[i][j] = u[i] * v[j]; must be distinct from `u` and `v`
void outerProduct(int n, double* u, int m, double* v, double** M);

/// Computes the square of the Frobenius distance, without the root.
/// @param rows  rows
/// @param cols  columns
/// @param A  a matrix
/// @param B  another matrix
/// @return the sum of (A[i][j] - B[i][j])^2, row by row; 0 when a count is below 1
double matFDist2(int rows, int cols, double** A, double** B);

/// Tells whether every element is near zero.
/// @param rows  rows
/// @param cols  columns
/// @param M  the matrix
/// @return whether they are; true when a count is below 1
bool isZeroMat(int rows, int cols, double** M);

/// Computes a determinant, expanded along the first row (Laplace) without pivoting or tolerance.
/// Prints "Det matrix size < 1!!!\n" when `n` is below 1.
///
/// Meant for small matrices. From 10 columns on it allocates 2^n doubles for as long as it runs;
/// time and memory double with every column. Beyond 24 columns and 128 MiB, or where memory runs
/// out, each further column multiplies the time by the number of columns instead. Throws
/// std::bad_alloc when there is no memory even for one minor.
/// @param A  the matrix
/// @param n  rows and columns
/// @return the determinant; 0.0 after the message
double matrixDet(double** A, int n);

/// Inverts a 3 times 3 matrix: the adjugate over the determinant, which is that of det3D().
/// @param A  the matrix
/// @param Ainv  receives the inverse, or zeros when the determinant is near zero, which is the only
/// sign of it; must be distinct from `A`, since it is set to zero first
void matrixInv3D(double** A, double** Ainv);

/// Inverts a 2 times 2 matrix. The determinant is `A[0][0] * A[1][1] - A[0][1] * A[1][0]`.
/// @param A  the matrix
/// @param Ainv  receives the inverse, or zeros when the determinant is near zero, which is the only
/// sign of it; must be distinct from `A`, since it is set to zero first
void matrixInv2D(double** A, double** Ainv);

/// Inverts a 2 times 2 matrix as matrixInv2D() does, but tells of a determinant near zero.
/// @param A  the matrix
/// @param Ainv  receives the inverse, or stays as it was; may be `A`
/// @return false when the determinant is near zero
bool mat2DInverse(double** A, double** Ainv);

/// Computes the dot product of two vectors.
/// @param n  elements
/// @param a  a vector
/// @param b  another vector
/// @return the sum of a[i] * b[i]; 0 when `n` is below 1
double dotProduct(int n, double* a, double* b);

/// Computes the dot product of two vectors of 3 elements.
/// @param a  a vector
/// @param b  another vector
/// @return the sum of a[i] * b[i]
double dotProduct3D(double* a, double* b);

/// Computes the cross product of two vectors of 3 elements.
/// @param a  the first vector
/// @param b  the second vector
/// @param out  receives the product; may be an input
void crossProduct3D(double* a, double* b, double* out);

/// Computes the Euclidean length of a vector of 3 elements.
/// @param v  the vector
/// @return the length, unlike that of norm2() with the square root
double norm3D(double* v);

/// Computes the squared Euclidean length of a vector.
/// @param n  elements
/// @param v  the vector
/// @return the sum of v[i]^2, without the square root; 0 when `n` is below 1
double norm2(int n, double* v);

/// Subtracts the second vector of 3 elements from the first, or adds them.
/// @param a  the first vector
/// @param b  the second vector
/// @param out  receives the difference or the sum; may be an input
/// @{
void minus3D(double* a, double* b, double* out);
void add3D(double* a, double* b, double* out);
/// @}

/// Computes the determinant of a 3 times 3 matrix. Its last bits may differ from matrixDet()'s.
/// @param m  three contiguous rows of three
/// @return `m00 * m11 * m22 - m00 * m12 * m21 - m22 * (m01 * m10) + m01 * m12 * m20 +
/// m21 * (m10 * m02) - m20 * (m02 * m11)`
double det3D(double (*m)[3]);

/// Computes the squared Euclidean distance of two vectors, without the square root.
/// @param n  elements
/// @param a  a vector
/// @param b  another vector
/// @return the sum of (a[i] - b[i])^2; 0 when `n` is below 1
double vecDist2(int n, double* a, double* b);

/// Computes the squared Euclidean distance of two vectors, without the square root; vecDist2f() in
/// single precision throughout.
/// @param a  a vector
/// @param b  another vector; must have as many elements as `a`, and is not asked how many it has
/// @return the sum of (a[i] - b[i])^2; 0 when there are no elements
/// @{
float vecDist2f(const std::vector<float>& a, const std::vector<float>& b);
double vecDist2d(const std::vector<double>& a, const std::vector<double>& b);
/// @}

/// Exchanges two numbers.
/// @param x  receives the value of `y`
/// @param y  receives the value of `x`
/// @{
void int_swap(int& x, int& y);
void ulint_swap(unsigned long& x, unsigned long& y);
/// @}
