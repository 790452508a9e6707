/// @file
/// The clock, durations in hours, minutes and seconds, and byte counts in larger units. No state;
/// callable from any thread.
#pragma once

#include <cstdint>
#include <string>

/// Reads the wall clock.
/// @return milliseconds since 1970-01-01 00:00 UTC
uint64_t getTimeMs64();

/// Splits a duration.
/// @param ms  milliseconds
/// @param hours  receives the whole hours, which do not stop at 24
/// @param minutes,seconds  receive what is left, each below 60
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds);

/// Splits a duration to the millisecond.
/// @param ms  milliseconds
/// @param hours  receives the whole hours, which do not stop at 24
/// @param minutes,seconds  receive what is left, each below 60
/// @param milliseconds  receives the milliseconds that are left, below 1000
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds,
              uint64_t& milliseconds);

/// Formats a duration: 90061001 gives "001:01:01:01:001".
/// @param ms  milliseconds
/// @return days, hours, minutes, seconds and milliseconds, at least "DDD:HH:MM:SS:mmm"
std::string msec2FormatedString(uint64_t ms);

/// Splits a duration. 61.5 s give 0, 1, 1 and 6050.
/// @param ticks  microseconds; of the whole seconds in them the low 32 bits count
/// @param hours,minutes,seconds  receive the whole seconds, each after the first below 60
/// @param hundredths  receives all that exceeds `seconds`, the minutes and hours included, in
/// hundredths of a second, truncated; INT_MIN where that does not fit into an int
void clocktickTohhmmss(int64_t ticks, int& hours, int& minutes, int& seconds, int& hundredths);

/// Splits a duration; a negative one gives three numbers that are negative or 0.
/// @param seconds  truncated to an int; INT_MIN where they do not fit or are not a number
/// @param hours,minutes,wholeSeconds  receive the whole seconds, each after the first below 60
void secondTohhmmss(double seconds, int& hours, int& minutes, int& wholeSeconds);

/// Converts a count of bytes to larger units.
/// @param bytes  any count
/// @return the count, fractions included, in units of 2^40 (TB), 2^30 (GB), 2^20 (MB) or 2^10 bytes
/// (KB)
/// @{
double byte2TB(uint64_t bytes);
double byte2GB(uint64_t bytes);
double byte2MB(uint64_t bytes);
double byte2KB(uint64_t bytes);
/// @}
