/// @file
/// The normalised Hamming distance of two runs of bytes. No state; callable from any thread.
#pragma once

/// Entry i is the number of set bits in the byte value i.
extern const int numOnesInByte[256];

/// Compares two runs of bytes bit by bit.
///
/// The count of differing bits and the divisor, `length * 8`, are signed 32-bit numbers that wrap
/// around: from 2^28 bytes on the result is no longer a share (2^28 equal bytes give -0.0, 2^29
/// bytes divide by zero).
/// @param a  at least `length` bytes
/// @param b  at least `length` bytes
/// @param length  bytes; with 0 the result is not a number, with a negative one no byte is read and
/// the count is 0
/// @return the share of bits that differ, 0 to 1
double calculateScores(const char* a, const char* b, int length);
