// Determinants and sorts in their plainest form, with which the product's are compared.
#pragma once

#include <array>
#include <list>
#include <vector>

/// Expands along the first row, with a new matrix for each minor. `n` is at least 1.
double plainDeterminant(double** A, int n);
/// The expansion along the first row, with `ofMinor` for what follows.
double plainExpansion(double** A, int n, double (*ofMinor)(double**, int));

/// Partitions around the first element, one comparison after the other.
void plainQuickSort(double* values, int* index, int left, int right);

/// At most `passes` passes by decimal digit over ten lists. The values must not be negative.
template <class T>
void plainRadixSort(std::vector<T>& values, int passes) {
  bool isFinished = false;
  for (long divisor = 1; passes > 0 && !isFinished; --passes, divisor *= 10) {
    std::array<std::list<T>, 10> buckets;
    for (const T x : values) buckets[static_cast<std::size_t>(x / divisor % 10)].push_back(x);
    auto place = values.begin();
    for (const std::list<T>& bucket : buckets) {
      isFinished |= bucket.size() == values.size();
      for (const T x : bucket) *place++ = x;
    }
  }
}
