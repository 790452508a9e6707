#include "Brindle/utility/sorting.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <numeric>
#include <span>
#include <vector>

#include "detail/wrap.h"

namespace {

using vorquell::detail::wrappingMultiply;

constexpr const char* kNothingToSort = "Radix sort: input array size <= 0!";
constexpr int kPasses = 10;  // digits of the largest `int`

// Division truncates towards zero, so the digits of a negative number run from -9 to 0 (-123 has
// -3, -2, -1). With a bucket for each of -9 to 9, negative numbers come first and in ascending
// order.
constexpr int kLowestDigit = -9;
constexpr std::size_t kDigits = 19;

std::size_t bucketOf(int value, int divisor) {
  return static_cast<std::size_t>(value / divisor % 10 - kLowestDigit);
}

/// One stable pass (counting sort) by the digit that `divisor` selects. Returns whether all values
/// share it; then there is nothing to move.
template <class T>
bool passByDigit(std::span<T> values, std::span<T> scratch, int divisor) {
  std::array<std::size_t, kDigits + 1> ends{};
  for (const T value : values) ++ends[bucketOf(value, divisor) + 1];
  if (std::count(ends.begin(), ends.end(), values.size()) > 0) return true;
  std::partial_sum(ends.begin(), ends.end(), ends.begin());
  for (const T value : values) scratch[ends[bucketOf(value, divisor)]++] = value;
  std::copy(scratch.begin(), scratch.end(), values.begin());
  return false;
}

void printLine(std::span<const int> values) {
  for (const int value : values) std::printf("%d ", value);
  std::printf("\n");
}

using ByteCounts = std::array<std::size_t, 256>;

ByteCounts countBytes(std::span<const unsigned char> bytes) {
  ByteCounts counts{};
  for (const unsigned char byte : bytes) ++counts[byte];
  return counts;
}

bool shareDigit(const ByteCounts& counts, std::size_t total, int divisor) {
  std::array<std::size_t, kDigits> buckets{};
  for (int byte = 0; byte < 256; ++byte) {
    buckets[bucketOf(byte, divisor)] += counts[static_cast<std::size_t>(byte)];
  }
  return std::count(buckets.begin(), buckets.end(), total) > 0;
}

void writeRuns(const ByteCounts& counts, unsigned char* bytes) {
  for (std::size_t byte = 0; byte < counts.size(); ++byte) {
    bytes = std::fill_n(bytes, counts[byte], static_cast<unsigned char>(byte));
  }
}

}  // namespace

void radixSort(int* values, int n) {
  if (n < 1) {
    std::puts(kNothingToSort);
    return;
  }
  const std::span<int> all(values, static_cast<std::size_t>(n));
  std::vector<int> scratch(all.size());
  int divisor = 1;
  for (int pass = 0; pass < kPasses; ++pass) {
    const bool isFinished = passByDigit(all, std::span<int>(scratch), divisor);
    printLine(all);
    if (isFinished) return;
    divisor = wrappingMultiply(divisor, 10);  // wraps after the last pass
  }
}

void radixSortUChar(unsigned char* values, int n) {
  if (n < 1) {
    std::puts(kNothingToSort);
    return;
  }
  const std::span<unsigned char> all(values, static_cast<std::size_t>(n));
  const ByteCounts counts = countBytes(all);
  if (shareDigit(counts, all.size(), 1)) return;
  if (shareDigit(counts, all.size(), 10)) {
    std::vector<unsigned char> scratch(all.size());
    passByDigit(all, std::span<unsigned char>(scratch), 1);
    return;
  }
  // All three passes take place, which leaves the bytes in order.
  writeRuns(counts, values);
}
