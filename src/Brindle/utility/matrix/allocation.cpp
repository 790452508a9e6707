#include "Brindle/utility/matrix.h"

#include <cstddef>
#include <new>

namespace {

template <class T>
void release(int rows, T**& matrix) {
  if (matrix == nullptr) return;
  for (int i = 0; i < rows; ++i) delete[] matrix[i];
  delete[] matrix;
  matrix = nullptr;
}

/// Throws for a negative count what `new[]` should throw; not every compiler's does.
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
