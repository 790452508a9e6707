// The normalised Hamming distance of two runs of bytes. No state; callable from any thread.
#pragma once

/// Entry i is the number of set bits in the byte value i.
extern const int numOnesInByte[256];

/// Returns the share of bits in which the first `length` bytes of `a` and `b` differ: the count of
/// differing bits divided by `length * 8`.
///
/// Count and divisor are signed 32-bit numbers that wrap around: from 2^28 bytes on the result is
/// no longer a share (2^28 equal bytes give -0.0, 2^29 bytes divide by zero). With a `length` of 0
/// the result is not a number; with a negative one no byte is read and the count is 0.
double calculateScores(const char* a, const char* b, int length);
