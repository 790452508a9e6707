// Determinants, an inverse and sorts in their plainest form, against which the product's are held.
#pragma once

#include <array>
#include <list>
#include <vector>

/// Expands along the first row, with a new matrix for each minor. `n` is at least 1.
double plainDeterminant(double** A, int n);
/// The expansion along the first row, with `ofMinor` for what follows.
double plainExpansion(double** A, int n, double (*ofMinor)(double**, int));

/// The formulas for 3 times 3, term by term. `inverse` must be distinct from `A`.
double plainDeterminant3(double** A);
void plainInverse3(double** A, double** inverse);

/// Partitions around the first element, one comparison after the other.
void plainQuickSort(double* values, int* index, int left, int right);

/// At most `passes` passes by decimal digit over ten lists; calls `onPass` after each. The
/// values must not be negative.
template <class T, class OnPass>
void plainRadixSort(std::vector<T>& values, int passes, OnPass onPass) {
  bool isFinished = false;
  for (long divisor = 1; passes > 0 && !isFinished; --passes, divisor *= 10) {
    std::array<std::list<T>, 10> buckets;
    for (const T x : values) buckets[static_cast<std::size_t>(x / divisor % 10)].push_back(x);
    auto place = values.begin();
    for (const std::list<T>& bucket : buckets) {
      isFinished |= bucket.size() == values.size();
      for (const T x : bucket) *place++ = x;
    }
    onPass();
  }
}
