#include "Brindle/utility/sorting.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace {

/// The two arrays of a quicksort, which move as one. Positions are `long`, so that no step past an
/// `int` overflows.
struct Pairs {
  double* values;
  int* index;

  void move(long from, long to) const {
    values[to] = values[from];
    index[to] = index[from];
  }
};

constexpr long kLongRun = 16;  // shorter ones are rarely worth a look at all later elements

/// Settles a strictly descending range, where partitioning would end in the reverse, or the
/// ascending start of any other range as far as no later element is below it, where partitioning
/// would change nothing. Returns where the rest starts and takes the steps off `credit`.
long settleRun(Pairs pairs, long left, long right, long& credit) {
  const double* const values = pairs.values;
  long i = left + 1;
  while (i <= right && values[i - 1] <= values[i]) ++i;
  if (i - left >= kLongRun || i > right) {
    long settled = i;
    for (; i <= right && settled > left; ++i) {
      while (settled > left && !(values[i] >= values[settled - 1])) --settled;
    }
    credit -= i - left;
    return settled;
  }
  for (i = left + 1; i <= right && values[i - 1] > values[i];) ++i;
  credit -= i - left;
  if (i <= right) return left;
  std::reverse(pairs.values + left, pairs.values + i);
  std::reverse(pairs.index + left, pairs.index + i);
  return i;
}

constexpr long kSmallRange = 16;

/// Settles a range of 2 to kSmallRange elements by counting, for each, the smaller ones. Returns
/// false, and changes nothing, where two of them share a place: then some are equal, and their
/// order is that of the partitions, or not a number.
bool settleSmall(Pairs pairs, long left, long right) {
  const long count = right - left + 1;
  const double* const values = pairs.values + left;
  const int* const index = pairs.index + left;
  std::array<double, kSmallRange> sortedValues;
  std::array<int, kSmallRange> sortedIndex;
  unsigned int taken = 0;
  for (long i = 0; i < count; ++i) {
    std::size_t place = 0;
    for (long j = 0; j < count; ++j) place += values[j] < values[i];
    sortedValues[place] = values[i];
    sortedIndex[place] = index[i];
    taken |= 1U << place;
  }
  if (taken != (1U << count) - 1) return false;
  std::copy_n(sortedValues.begin(), count, pairs.values + left);
  std::copy_n(sortedIndex.begin(), count, pairs.index + left);
  return true;
}

/// The places in one block at which a scan would stop, as distances from the block's start.
struct Stops {
  static constexpr int kBlock = 64;

  /// Gathers them without a branch on the comparison.
  template <class IsStop>
  void gather(long blockStart, IsStop isStop) {
    start = blockStart;
    next = 0;
    count = 0;
    for (int i = 0; i < kBlock; ++i) {
      distances[static_cast<std::size_t>(count)] = static_cast<std::uint8_t>(i);
      count += isStop(i);
    }
  }
  int left() const { return count - next; }
  long distance(int i) const { return distances[static_cast<std::size_t>(next + i)]; }

  long start = 0;
  int next = 0;
  int count = 0;
  std::array<std::uint8_t, kBlock> distances;
};

/// Where a partition stands: the pivot's hole, the first element behind it that may be above the
/// pivot and the last one that may be below.
struct Scan {
  long hole;
  long left;
  long right;
};

/// The moves of a partition's plain loop, as far as whole blocks remain between the two scans.
Scan partitionBlocks(Pairs pairs, double pivot, long left, long right) {
  const double* const values = pairs.values;
  long hole = left++;
  Stops below;  // counted from its block's right end
  Stops above;
  while (right - left >= 2L * Stops::kBlock) {
    if (below.left() == 0) {
      below.gather(right, [=](int i) { return !(values[right - i] >= pivot); });
      right -= Stops::kBlock;
      if (below.count == 0) {  // as at an extreme pivot, where many more pass
        while (right - left >= 2L * Stops::kBlock && values[right] >= pivot) --right;
      }
    }
    if (above.left() == 0) {
      above.gather(left, [=](int i) { return !(values[left + i] <= pivot); });
      left += Stops::kBlock;
      if (above.count == 0) {
        while (right - left >= 2L * Stops::kBlock && values[left] <= pivot) ++left;
      }
    }
    const int count = std::min(below.left(), above.left());
    for (int i = 0; i < count; ++i) {
      const long from = below.start - below.distance(i);
      pairs.move(from, hole);
      hole = above.start + above.distance(i);
      pairs.move(hole, from);
    }
    below.next += count;
    above.next += count;
  }
  if (below.left() > 0) right = below.start - below.distance(0);
  if (above.left() > 0) left = above.start + above.distance(0);
  return {hole, left, right};
}

/// Partitions around the first element and returns where it ends up. Both scans pass over what is
/// equal to it.
long partition(Pairs pairs, long left, long right) {
  const double* const values = pairs.values;
  const double pivot = values[left];
  const int pivotIndex = pairs.index[left];
  auto [l, passed, r] = partitionBlocks(pairs, pivot, left, right);
  while (l < r) {
    while (l < r && values[r] >= pivot) --r;
    if (l != r) pairs.move(r, l++);
    if (l < passed) l = std::min(passed, r);
    while (l < r && values[l] <= pivot) ++l;
    if (l != r) pairs.move(l, r--);
  }
  pairs.values[l] = pivot;
  pairs.index[l] = pivotIndex;
  return l;
}

void sortRange(Pairs pairs, long left, long right) {
  // Looking for runs costs a fraction of what partitioning costs, and no more.
  constexpr long kPartitionsForALook = 16;
  long credit = right - left;
  long small = kSmallRange;
  while (left < right) {
    if (right - left < small) {
      if (settleSmall(pairs, left, right)) return;
      small = (right - left) / 2;
    }
    if (credit >= right - left) {
      const long start = settleRun(pairs, left, right, credit);
      if (start > left) {
        left = start;
        continue;
      }
    }
    credit += (right - left) / kPartitionsForALook;
    const long middle = partition(pairs, left, right);
    // The smaller side is the one to recurse into, which keeps the stack short.
    if (middle - left < right - middle) {
      sortRange(pairs, left, middle - 1);
      left = middle + 1;
    } else {
      sortRange(pairs, middle + 1, right);
      right = middle - 1;
    }
  }
}

}  // namespace

void quickSort(double* values, int* index, int n) {
  sortRange({values, index}, 0, long{n} - 1);
}

void q_sort(double* values, int* index, int left, int right) {
  sortRange({values, index}, left, right);
}
