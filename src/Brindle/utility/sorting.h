// Sorting in place and searching. The caller owns the arrays. No state; callable from any thread on
// distinct arrays.
#pragma once

/// Sorts `n` values ascending and moves `index`, which has as many entries, in step: filled with 0
/// to n - 1 before the call, it then tells where each value came from. With `n` below 2 nothing
/// changes.
///
/// The sort is not stable: the index entries of equal values come out in the order that
/// partitioning around each range's first element leaves, the same one on every run. An array
/// that holds NaN does not come out sorted, but nothing in it is lost.
///
/// Ascending input, and strictly descending input, takes time in proportion to `n`, random input to
/// n log n; at worst, as for a descending array with equal values, the time is quadratic. The stack
/// holds at most log2(n) calls.
void quickSort(double* values, int* index, int n);

/// The same for the part from `left` to `right`, both included. With `left` >= `right` nothing
/// changes.
void q_sort(double* values, int* index, int left, int right);

/// Sorts `n` numbers by their decimal digits, the lowest first, and prints the whole array after
/// each pass: every number followed by a blank, then a line end. Prints
/// "Radix sort: input array size <= 0!\n" when `n` is below 1. Negative numbers are sorted before
/// the others. Throws std::bad_alloc without memory for a second array, with nothing changed or
/// printed.
///
/// @warning The sort ends after ten passes, or with the first pass in which all numbers have the
/// same digit, whichever digit that is. So 25 and 15, which share the 5, stay unsorted.
void radixSort(int* values, int n);

/// Sorts `n` bytes as `radixSort` does, in at most three passes, but prints no array. Prints
/// "Radix sort: input array size <= 0!\n" when `n` is below 1. Throws std::bad_alloc, with nothing
/// changed, where all bytes share the tens digit and there is no memory for a second array.
///
/// @warning It ends as early as `radixSort`: 25 and 15 stay unsorted.
void radixSortUChar(unsigned char* values, int n);

/// Looks for `value` in the `n` elements of an ascending array. Starts at index `firstProbe`, or in
/// the middle, at n / 2, when `firstProbe` is not below `n`; choose it at or near the value.
/// Returns true and sets `foundIndex` when an element equal to `value` (exactly equal, also for
/// `float` and `double`) is met; returns false and leaves `foundIndex` as it was when `value` is
/// below the first element, when it is above the last element and the search starts there, or when
/// there is no more than one element.
///
/// For `T` of int, unsigned int, long, unsigned long, float and double.
///
/// @warning The search never returns, and keeps a processor busy, for an array of two or more
/// elements when
/// - `value` is missing but lies between two elements;
/// - `value` is above the last element, and the search does not start at index n - 1;
/// - `value` is the last element and no other, and the search does not start at index n - 1;
/// - `value` is NaN.
/// In an array that is not ascending or that holds NaN any value may do the same. Call it only for
/// values that are known to stand in the array, and with `firstProbe` n - 1 for its last one.
template <class T>
bool findNumberFromArray(T* values, unsigned long n, T value, unsigned long& foundIndex,
                         unsigned long firstProbe);
