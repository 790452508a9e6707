/// @file
/// Sorting in place and searching. The caller owns the arrays. No state; callable from any thread
/// on distinct arrays.
#pragma once

/// Sorts numbers ascending and moves a second array in step: filled with 0 to n - 1 before the
/// call, it then tells where each value came from.
///
/// Each range is partitioned around its first element. What this leaves binds, the same on every
/// run: the sort is not stable, and the index entries of equal values come out in the order of the
/// partitions. An array that holds what is not a number comes out exactly as they leave it, which
/// need not be ascending; nothing in it is lost.
///
/// The time grows with n log n for random input, and with `n` for ascending input, strictly
/// descending input, and a few values behind ascending ones that they are not below. The stack
/// holds at most log2(n) calls; nothing is allocated.
///
/// @warning The time grows with the square of `n`, to minutes for a million values,
/// - where a small value stands behind ascending ones or a large one before them;
/// - where the values ascend or descend on the whole but are a little out of order all along;
/// - where they descend and many are repeated;
/// - where only a few different values fill the array, neither ascending nor descending.
///
/// Shuffling both arrays together first helps with the first two, and changes no result where all
/// values differ.
/// @param values  the numbers; not looked at for `n` below 2
/// @param index  an entry for each number; not looked at for `n` below 2
/// @param n  numbers
void quickSort(double* values, int* index, int n);

/// Sorts a part of an array as quickSort() does.
/// @param values  the numbers
/// @param index  an entry for each number
/// @param left  where the part starts
/// @param right  its last element; with `left` >= `right` nothing is looked at
void q_sort(double* values, int* index, int left, int right);

/// Sorts numbers ascending by their decimal digits, the lowest first. Negative numbers have
/// negative digits and come before the others. Prints the whole array after each pass: every number
/// followed by a blank, then a line end. Prints "Radix sort: input array size <= 0!\n" when `n` is
/// below 1. Throws std::bad_alloc without memory for a second array, with nothing changed or
/// printed.
///
/// @warning The sort ends after ten passes, or with the first pass in which all numbers have the
/// same digit, whichever digit that is. So 25 and 15, which share the 5, stay unsorted, and so do
/// 10 and -20, which share the 0.
/// @param values  the numbers
/// @param n  numbers
void radixSort(int* values, int n);

/// Sorts bytes as radixSort() does, in at most three passes, but prints no array. Prints
/// "Radix sort: input array size <= 0!\n" when `n` is below 1. Throws std::bad_alloc, with nothing
/// changed, where all bytes share the tens digit but not the ones digit and there is no memory for
/// a second array.
///
/// @warning It ends as early as radixSort(): 25 and 15 stay unsorted.
/// @param values  the bytes
/// @param n  bytes
void radixSortUChar(unsigned char* values, int n);

/// Looks for a value in an ascending array by bisection: the element in the middle is held against
/// the value, a bound moves onto the middle (never past it), and so on until the bounds meet.
/// For `T` of int, unsigned int, long, unsigned long, float and double.
///
/// @warning The search never returns, and keeps a processor busy, for an array of two or more
/// elements when
/// - `value` is missing but lies between two elements;
/// - `value` is above the last element, and the search does not start at index n - 1;
/// - `value` is the last element and no other, and the search does not start at index n - 1;
/// - `value` is not a number.
///
/// In an array that is not ascending, or that holds what is not a number, any value may do the
/// same. Call it only for values that are known to stand in the array, and with `firstProbe` n - 1
/// for its last one.
/// @param values  the array
/// @param n  elements
/// @param value  to look for; found where an element is exactly equal, also for float and double
/// @param foundIndex  receives where the value was met; left as it was when the search fails
/// @param firstProbe  the first middle, best at or near the value; n / 2 when not below `n`
/// @return true when the value was met; false when it is below the first element, when it is above
/// the last one and the search starts there, and when `n` is 0, or 1 and the element differs
template <class T>
bool findNumberFromArray(T* values, unsigned long n, T value, unsigned long& foundIndex,
                         unsigned long firstProbe);
