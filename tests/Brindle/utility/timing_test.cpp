#include "Brindle/utility/timing.h"

#include <chrono>

#include "support/Table.h"

namespace {

using support::givesNumbers;

/// The fields of both overloads.
void ofMilliseconds(double* in, double* out) {
  uint64_t fields[7];
  msec2HMS(static_cast<uint64_t>(*in), fields[0], fields[1], fields[2], fields[3]);
  msec2HMS(static_cast<uint64_t>(*in), fields[4], fields[5], fields[6]);
  std::copy(std::begin(fields), std::end(fields), out);
}

void ofMicroseconds(double* in, double* out) {
  int fields[4];
  clocktickTohhmmss(static_cast<int64_t>(*in), fields[0], fields[1], fields[2], fields[3]);
  std::copy(std::begin(fields), std::end(fields), out);
}

void ofSeconds(double* in, double* out) {
  int fields[3];
  secondTohhmmss(*in, fields[0], fields[1], fields[2]);
  std::copy(std::begin(fields), std::end(fields), out);
}

template <double (*unit)(uint64_t)>
void ofBytes(double* in, double* out) {
  *out = unit(static_cast<uint64_t>(*in));
}

TEST(Timing, SplitsDurationsAndConvertsBytesAsTheTableSays) {
  const auto formats = [](const support::Row& row) {
    EXPECT_SAME(msec2FormatedString(std::stoull(row.arguments.at(0))), row.results.at(0));
  };
  support::checkTable("timing.txt", {{"msec2HMS", givesNumbers(ofMilliseconds)},
                                     {"msec2FormatedString", formats},
                                     {"clocktickTohhmmss", givesNumbers(ofMicroseconds)},
                                     {"secondTohhmmss", givesNumbers(ofSeconds)},
                                     {"byte2KB", givesNumbers(ofBytes<byte2KB>)},
                                     {"byte2MB", givesNumbers(ofBytes<byte2MB>)},
                                     {"byte2GB", givesNumbers(ofBytes<byte2GB>)},
                                     {"byte2TB", givesNumbers(ofBytes<byte2TB>)}});
}

TEST(Timing, ReadsTheWallClock) {
  using namespace std::chrono;
  const auto before = floor<milliseconds>(system_clock::now());
  const sys_time<milliseconds> time{milliseconds{getTimeMs64()}};
  EXPECT_LE(before.time_since_epoch().count(), time.time_since_epoch().count());
  EXPECT_LE(time.time_since_epoch().count(), system_clock::now().time_since_epoch() / 1ms);
}

}  // namespace
