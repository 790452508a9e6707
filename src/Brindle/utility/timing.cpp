#include "Brindle/utility/timing.h"

#include <sys/time.h>

#include <cstdio>

#include "Brindle/detail/truncate.h"

using brindle::detail::truncateToInt;

namespace {

void splitSeconds(int total, int& hours, int& minutes, int& seconds) {
  hours = total / 3600;
  minutes = total % 3600 / 60;
  seconds = total % 60;
}

}  // namespace

uint64_t getTimeMs64() {
  timeval now;
  gettimeofday(&now, nullptr);
  return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_usec) / 1000;
}

void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds) {
  hours = ms / 3600000;
  minutes = ms / 60000 % 60;
  seconds = ms / 1000 % 60;
}

void msec2HMS(uint64_t ms, uint64_t& hours, uint64_t& minutes, uint64_t& seconds,
              uint64_t& milliseconds) {
  milliseconds = ms % 1000;
  msec2HMS(ms, hours, minutes, seconds);
}

std::string msec2FormatedString(uint64_t ms) {
  uint64_t hours, minutes, seconds, milliseconds;
  msec2HMS(ms, hours, minutes, seconds, milliseconds);
  using Printed = unsigned long long;
  char text[64];
  std::snprintf(text, sizeof text, "%03llu:%02llu:%02llu:%02llu:%03llu", Printed{hours / 24},
                Printed{hours % 24}, Printed{minutes}, Printed{seconds}, Printed{milliseconds});
  return text;
}

void clocktickTohhmmss(int64_t ticks, int& hours, int& minutes, int& seconds, int& hundredths) {
  splitSeconds(static_cast<int>(ticks / 1000000), hours, minutes, seconds);
  hundredths = truncateToInt(100.0 * (static_cast<double>(ticks) / 1000000.0 - seconds));
}

void secondTohhmmss(double seconds, int& hours, int& minutes, int& wholeSeconds) {
  splitSeconds(truncateToInt(seconds), hours, minutes, wholeSeconds);
}

double byte2TB(uint64_t bytes) {
  return static_cast<double>(bytes) * 0x1p-40;
}
double byte2GB(uint64_t bytes) {
  return static_cast<double>(bytes) * 0x1p-30;
}
double byte2MB(uint64_t bytes) {
  return static_cast<double>(bytes) * 0x1p-20;
}
double byte2KB(uint64_t bytes) {
  return static_cast<double>(bytes) * 0x1p-10;
}
