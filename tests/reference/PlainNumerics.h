// Determinants and a sort in their plainest form, with which the product's are compared.
#pragma once

/// Expands along the first row, with a new matrix for each minor. `n` is at least 1.
double plainDeterminant(double** A, int n);
/// The expansion along the first row, with `ofMinor` for what follows.
double plainExpansion(double** A, int n, double (*ofMinor)(double**, int));

/// Partitions around the first element, one comparison after the other.
void plainQuickSort(double* values, int* index, int left, int right);
