// Durations as numbers and as text, byte counts in larger units: what is split adds up again.
// Input: eight bytes that are taken as an integer and as a floating-point number.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "Brindle/utility/timing.h"
#include "Input.h"

namespace {

constexpr int kMax = std::numeric_limits<int>::max(), kMin = std::numeric_limits<int>::min();

void checkMilliseconds(std::uint64_t ms) {
  std::uint64_t hours, minutes, seconds, rest;
  msec2HMS(ms, hours, minutes, seconds, rest);
  require(minutes < 60 && seconds < 60 && rest < 1000);
  require(((hours * 60 + minutes) * 60 + seconds) * 1000 + rest == ms);
  std::uint64_t sameHours, sameMinutes, sameSeconds;
  msec2HMS(ms, sameHours, sameMinutes, sameSeconds);
  require(sameHours == hours && sameMinutes == minutes && sameSeconds == seconds);
}

/// Days, hours ... of a duration as text, each of so many digits, read back.
void checkText(std::uint64_t ms) {
  const std::string text = msec2FormatedString(ms);
  std::size_t at = text.find(':');
  require(at >= 3 && (at == 3 || text[0] != '0'));
  std::uint64_t sum = std::stoull(text.substr(0, at));  // days
  const struct {
    std::size_t digits;
    std::uint64_t below;
  } parts[] = {{2, 24}, {2, 60}, {2, 60}, {3, 1000}};
  for (const auto& [digits, below] : parts) {
    const std::string part = text.substr(at + 1, digits);
    require(text[at] == ':' && part.find_first_not_of("0123456789") == part.npos);
    require(part.size() == digits && std::stoull(part) < below);
    sum = sum * below + std::stoull(part);
    at += 1 + digits;
  }
  require(at == text.size() && sum == ms);
}

/// The parts have the sign of the whole.
void checkParts(int whole, int hours, int minutes, int seconds) {
  require(std::int64_t{hours} * 3600 + minutes * 60 + seconds == whole);
  require(std::abs(minutes) < 60 && std::abs(seconds) < 60);
  for (const int part : {hours, minutes, seconds}) require(whole < 0 ? part <= 0 : part >= 0);
}

void checkTicks(std::int64_t ticks) {
  int hours, minutes, seconds, hundredths;
  clocktickTohhmmss(ticks, hours, minutes, seconds, hundredths);
  checkParts(static_cast<int>(ticks / 1'000'000), hours, minutes, seconds);
  const double exact = (static_cast<double>(ticks) - 1e6 * seconds) / 1e4;
  const bool fits = exact > double{kMin} - 1 && exact < double{kMax} + 1;
  require(fits ? std::abs(exact - hundredths) < 1.001 : hundredths == kMin);
}

void checkSeconds(double duration) {
  int hours, minutes, seconds;
  secondTohhmmss(duration, hours, minutes, seconds);
  const double whole = std::trunc(duration);
  const bool fits = whole >= kMin && whole <= kMax;
  checkParts(fits ? static_cast<int>(whole) : kMin, hours, minutes, seconds);
}

void checkUnits(std::uint64_t bytes) {
  const auto exact = static_cast<double>(bytes);
  require(byte2KB(bytes) * 1024 == exact && byte2MB(bytes) * 1024 == byte2KB(bytes));
  require(byte2GB(bytes) * 1024 == byte2MB(bytes) && byte2TB(bytes) * 1024 == byte2GB(bytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::uint64_t number;
  double duration;
  if (size < sizeof number) return 0;
  std::memcpy(&number, data, sizeof number);
  std::memcpy(&duration, data, sizeof duration);
  checkMilliseconds(number);
  checkText(number);
  checkTicks(static_cast<std::int64_t>(number));
  checkSeconds(duration);
  checkUnits(number);
  return 0;
}
