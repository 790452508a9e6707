/// @file
/// Sorting in place and searching. The caller owns the arrays. No state; callable from any thread
/// on distinct arrays.
#pragma once

/// @defgroup sorting Sorting and searching
/// @{

/// Sorts `values` ascending and moves the entries of `index` in step: filled with 0 to n - 1 before
/// the call, they are where each value came from. q_sort() does the same for the elements from
/// `left` to `right`, both included. With fewer than two elements nothing is read. Nothing is
/// allocated, and at most log2(n) + 1 calls are nested.
///
/// Each range is partitioned around its first element. The result is deterministic, but the sort is
/// not stable: the index entries of equal values come out in the order that the partitions leave.
/// With NaN the result need not be ascending; no element is lost.
///
/// The time grows with n log n for random input, and with `n` for ascending input, strictly
/// descending input, and ascending input followed by a few values not below its end.
///
/// @warning The time grows with the square of `n`, to minutes for a million values, where
/// - a small value or NaN comes after ascending values, or a large value before them;
/// - the values ascend or descend on the whole but are a little out of order all along;
/// - they descend and some are equal (one pair in the middle suffices);
/// - low and high values alternate, the low ones ascending, the high ones descending;
/// - a few different values fill the array, neither ascending nor descending.
///
/// Shuffling both arrays together first helps with all but the last, and changes no result where
/// all values differ and none is NaN. See docs/hazards.md.
/// @{
void quickSort(double* values, int* index, int n);
void q_sort(double* values, int* index, int left, int right);
/// @}

/// Sorts numbers ascending by their decimal digits, the lowest first; negative numbers have
/// negative digits. Prints the whole array after each pass: every number followed by a blank, then
/// a line end. Prints "Radix sort: input array size <= 0!\n" when `n` is below 1. Throws
/// std::bad_alloc without memory for a second array, with nothing changed or printed.
///
/// @warning The sort ends after ten passes, or with the first pass in which all numbers have the
/// same digit, whichever digit that is. So 25 and 15, which share the 5, stay unsorted, as do 10
/// and -20, which share the 0. See docs/hazards.md.
void radixSort(int* values, int n);

/// Sorts bytes as radixSort() does, and ends as early, but makes at most three passes and prints
/// only the line for `n` below 1. Without memory for a second array, which it needs only where all
/// bytes share the tens digit but not the ones digit, it throws std::bad_alloc with nothing
/// changed.
void radixSortUChar(unsigned char* values, int n);

/// Looks for a value in an ascending array by bisection, starting at index `firstProbe`, or n / 2
/// when that is not below `n`. The element in the middle is compared with the value, exactly also
/// for float and double, and a bound moves onto the middle, never past it, until the bounds meet.
/// For `T` of int, unsigned int, long, unsigned long, float and double.
///
/// Returns true, with the index in `foundIndex`, when the value is met. Returns false, with
/// `foundIndex` as it was, when the value is below the first element, when it is above the last one
/// and the search starts there, and when `n` is 0, or 1 and the element differs.
///
/// @warning For any other missing value, NaN among them, and for one that only the last element has
/// unless the search starts there, it never returns and keeps a processor busy; in an array that is
/// not ascending or holds NaN it may do so for any value. Call it only for values that are known to
/// stand in the array, and with `firstProbe` n - 1 for its last one. See docs/hazards.md.
template <class T>
bool findNumberFromArray(T* values, unsigned long n, T value, unsigned long& foundIndex,
                         unsigned long firstProbe);

/// @}
