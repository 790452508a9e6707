#include "reference/PlainNumerics.h"

#include <cmath>
#include <vector>

double plainDeterminant(double** A, int n) {
  if (n == 1) return A[0][0];
  if (n == 2) return A[0][0] * A[1][1] - A[1][0] * A[0][1];
  return plainExpansion(A, n, plainDeterminant);
}

double plainExpansion(double** A, int n, double (*ofMinor)(double**, int)) {
  const auto size = static_cast<std::size_t>(n - 1);
  double determinant = 0.0;
  for (int j = 0; j < n; ++j) {
    std::vector<std::vector<double>> minor;
    for (int i = 1; i < n; ++i) {
      minor.emplace_back(A[i], A[i] + n);
      minor.back().erase(minor.back().begin() + j);
    }
    std::vector<double*> rows(size);
    for (std::size_t i = 0; i < size; ++i) rows[i] = minor[i].data();
    const double sign = std::pow(-1.0, j + 1.0 + 1.0);
    determinant += ofMinor(rows.data(), n - 1) * (sign * A[0][j]);
  }
  return determinant;
}

void plainQuickSort(double* values, int* index, int left, int right) {
  if (left >= right) return;
  const double pivot = values[left];
  const int pivotIndex = index[left];
  int l = left, r = right;
  while (l < r) {
    while (values[r] >= pivot && l < r) --r;
    if (l != r) values[l] = values[r], index[l] = index[r], ++l;
    while (values[l] <= pivot && l < r) ++l;
    if (l != r) values[r] = values[l], index[r] = index[l], --r;
  }
  values[l] = pivot;
  index[l] = pivotIndex;
  if (left < l) plainQuickSort(values, index, left, l - 1);
  if (right > l) plainQuickSort(values, index, l + 1, right);
}
