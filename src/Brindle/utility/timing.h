// The clock, durations in hours, minutes and seconds, and byte counts in larger units. No state;
// callable from any thread.
#pragma once

#include <cstdint>
#include <string>

/// Returns the wall clock's time, in milliseconds since 1970-01-01 00:00 UTC.
uint64_t getTimeMs64();

/// Splits a duration in milliseconds into `hours` (which do not stop at 24), `minutes` and
/// `seconds` below 60, and in the second form the `milliseconds` below 1000 that are left.
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds);
void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds,
              uint64_t& milliseconds);

/// Returns a duration in milliseconds as days, hours, minutes, seconds and milliseconds, at least
/// "DDD:HH:MM:SS:mmm": 90061001 gives "001:01:01:01:001".
std::string msec2FormatedString(uint64_t ms);

/// Splits a duration in microseconds into `hours`, `minutes` and `seconds`. Of the whole seconds
/// the low 32 bits count. `hundredths` is all that exceeds `seconds`, the minutes and hours
/// included, in hundredths of a second, truncated: 61.5 s give 0, 1, 1 and 6050. Where `hundredths`
/// does not fit into an int it is INT_MIN.
void clocktickTohhmmss(int64_t ticks, int& hours, int& minutes, int& seconds, int& hundredths);

/// Splits a duration in seconds, truncated to an int, into `hours`, `minutes` and `seconds`; all
/// three are negative or 0 for a negative one. Seconds that do not fit into an int, or are not a
/// number, count as INT_MIN.
void secondTohhmmss(double seconds, int& hours, int& minutes, int& wholeSeconds);

/// Return `bytes` in units of 2^40, 2^30, 2^20 and 2^10 bytes.
double byte2TB(uint64_t bytes);
double byte2GB(uint64_t bytes);
double byte2MB(uint64_t bytes);
double byte2KB(uint64_t bytes);
