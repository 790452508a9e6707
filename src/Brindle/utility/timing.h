/// @file
/// The clock, durations in hours, minutes and seconds, and byte counts in larger units. No state;
/// callable from any thread.
///
/// Splitting a duration gives whole hours, which do not stop at 24, and minutes and seconds below
/// 60.
#pragma once

#include <cstdint>
#include <string>

/// @defgroup timing Time and units
/// @{

/// Returns the wall clock: milliseconds since 1970-01-01 00:00 UTC.
uint64_t getTimeMs64();

/// Splits milliseconds; `milliseconds` receives those that are left, below 1000.
/// @{
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds);
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds,
              uint64_t& milliseconds);
/// @}

/// Formats milliseconds as days, hours, minutes, seconds and milliseconds, at least
/// "DDD:HH:MM:SS:mmm": 90061001 gives "001:01:01:01:001".
std::string msec2FormatedString(uint64_t ms);

/// Splits microseconds; of the whole seconds in them the low 32 bits count. `hundredths` receives
/// the whole duration minus `seconds`, in hundredths of a second, truncated, or INT_MIN where that
/// does not fit: 61.5 s give 0, 1, 1 and 6050.
void clocktickTohhmmss(int64_t ticks, int& hours, int& minutes, int& seconds, int& hundredths);

/// Splits seconds, truncated to an int: INT_MIN where they do not fit or are NaN. A negative
/// duration gives three numbers that are negative or 0.
void secondTohhmmss(double seconds, int& hours, int& minutes, int& wholeSeconds);

/// A count of bytes, fractions included, in units of 2^40, 2^30, 2^20 or 2^10 bytes.
/// @{
double byte2TB(uint64_t bytes);
double byte2GB(uint64_t bytes);
double byte2MB(uint64_t bytes);
double byte2KB(uint64_t bytes);
/// @}

/// @}
