/// @file
/// The normalised Hamming distance of two runs of bytes. No state but the chosen instruction set;
/// callable from any thread. Part of the static library only.
#pragma once

/// @defgroup hammingScore The distance of two features
/// @{

/// Entry i is the number of set bits in the byte value i.
extern const int numOnesInByte[256];

/// Returns the share of bits in which `length` bytes at `a` and at `b` differ, 0 to 1.
///
/// A `length` of 0 gives NaN; with a negative one no byte is read and the count is 0. The count of
/// differing bits and the divisor, `length * 8`, are signed 32-bit numbers that wrap around: from
/// 2^28 bytes on the result is no longer a share (2^28 equal bytes give -0.0, 2^29 bytes divide by
/// zero).
double calculateScores(const char* a, const char* b, int length);

/// @}
