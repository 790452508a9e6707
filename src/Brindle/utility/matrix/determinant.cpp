#include "Brindle/utility/matrix.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>

#include "Brindle/utility/matrix/small.h"

namespace {

using brindle::detail::determinant2;
using brindle::detail::determinant3;

// A set of columns, one bit for each. A minor consists of the last rows in some set of columns. The
// expansion meets each minor many times, so it is computed once, into a table with one place for
// each set. That takes n * 2^n steps instead of n!.
using ColumnSet = std::uint32_t;

constexpr int kMostColumnsOnStack = 9;  // 4 KiB
constexpr int kMostTabledColumns = 24;  // 128 MiB

constexpr std::size_t tableSize(int columns) {
  return std::size_t{1} << columns;
}

/// The next larger set with as many columns (Gosper's hack). For 0b0110 the addition carries the
/// lowest run of ones, 0b11, into 0b1000; the ones of that run but one return at the low end, which
/// gives 0b1001.
ColumnSet nextSet(ColumnSet set) {
  const ColumnSet carried = set + (set & -set);
  return carried | (((set ^ carried) >> 2) >> std::countr_zero(set));
}

/// The expansion along `row`. Zeros in it are not skipped, as a minor may be infinite or NaN.
double expandAlong(const double* row, ColumnSet columns, const double* minors) {
  double determinant = 0.0;
  double sign = 1.0;
  for (ColumnSet rest = columns; rest != 0; rest &= rest - 1) {
    const ColumnSet column = rest & -rest;
    determinant += minors[columns ^ column] * (sign * row[std::countr_zero(rest)]);
    sign = -sign;
  }
  return determinant;
}

/// Computes every minor once, from those of two rows up. `n` is at least 2 and `minors` has
/// tableSize(n) places.
double determinantByTable(double** A, int n, double* minors) {
  const ColumnSet all = static_cast<ColumnSet>(tableSize(n) - 1);
  for (ColumnSet pair = 3; pair <= all; pair = nextSet(pair)) {
    const int left = std::countr_zero(pair);
    const int right = static_cast<int>(std::bit_width(pair)) - 1;
    minors[pair] = determinant2(A[n - 2], A[n - 1], left, right);
  }
  for (int size = 3; size <= n; ++size) {
    const ColumnSet first = all >> (n - size);
    for (ColumnSet columns = first; columns <= all; columns = nextSet(columns)) {
      minors[columns] = expandAlong(A[n - size], columns, minors);
    }
  }
  return minors[all];
}

/// Copies the minors and expands them, one after the other, down to those of `tabled` columns, for
/// which `table` has room.
double determinantOf(double** A, int n, double* table, int tabled) {
  if (n <= tabled) return determinantByTable(A, n, table);
  const int size = n - 1;
  const auto free = [size](double** matrix) { safeDelete2DDouble(size, matrix); };
  const std::unique_ptr<double*, decltype(free)> owner(allocate2DDouble(size, size), free);
  double** const minor = owner.get();
  double determinant = 0.0;
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < size; ++i) {
      const double* const row = A[i + 1];
      std::copy(row + j + 1, row + n, std::copy(row, row + j, minor[i]));
    }
    const double sign = j % 2 == 0 ? 1.0 : -1.0;
    determinant += determinantOf(minor, size, table, tabled) * (sign * A[0][j]);
  }
  return determinant;
}

}  // namespace

double matrixDet(double** A, int n) {
  if (n < 1) {
    std::puts("Det matrix size < 1!!!");
    return 0.0;
  }
  if (n == 1) return A[0][0];
  const int tabled = std::min(n, kMostTabledColumns);
  std::unique_ptr<double[]> table;
  if (n > kMostColumnsOnStack) table.reset(new (std::nothrow) double[tableSize(tabled)]);
  if (table) return determinantOf(A, n, table.get(), tabled);
  std::array<double, tableSize(kMostColumnsOnStack)> onStack;
  return determinantOf(A, n, onStack.data(), kMostColumnsOnStack);
}

double det3D(double (*m)[3]) {
  return determinant3(m[0], m[1], m[2]);
}
