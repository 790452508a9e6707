#include "search/progress.h"

#include <gtest/gtest.h>

#include <string>

namespace vorquell::search {

namespace {

TEST(Progress, SaysHowMuchIsDoneAndHowLongTheRestTakes) {
  EXPECT_EQ(progressText(0, 1, 2), "[....................]   0 %  0 of 1, 0/s, ? left");
  EXPECT_EQ(progressText(1, 8, 2), "[##..................]  12 %  1 of 8, 0.5/s, 0:00:14 left");
  EXPECT_EQ(progressText(8, 8, 2), "[####################] 100 %  8 of 8, 4/s, 0:00:00 left");
  EXPECT_EQ(progressText(9, 8, 2), "[####################] 100 %  9 of 8, 4.5/s, 0:00:00 left");
  EXPECT_EQ(progressText(0, 0, 0), "[####################] 100 %  0 of 0, 0/s, 0:00:00 left");
  EXPECT_EQ(progressText(1, 9000, 1), "[....................]   0 %  1 of 9000, 1/s, 2:29:59 left");
  EXPECT_EQ(progressText(1, 20'000'000'000, 1),
            "[....................]   0 %  1 of 20000000000, 1/s, 277777:46:40 left");
  EXPECT_EQ(progressText(30'000'000, std::nullopt, 2),
            "30000000 compared, 1.5e+07/s, time left unknown");
}

/// What is printed about a comparison that ends before its first line is due, or takes long;
/// without the times.
std::string printed(ProgressWhen when, bool isTerminal, bool isLong = false) {
  testing::internal::CaptureStderr();
  {
    Progress progress(when, isTerminal, std::chrono::milliseconds(isLong ? 50 : 3'600'000));
    progress.expect(1);
    progress.begin();
    progress.add(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(isLong ? 300 : 20));
  }
  std::string text = testing::internal::GetCapturedStderr();
  for (std::size_t at; (at = text.find(", ")) != text.npos;) {
    text.erase(at, text.find("left", at) + 4 - at);
  }
  return text;
}

TEST(Progress, PrintsALineInTimeAndErasesItOnATerminalOrEndsIt) {
  const std::string erase = "\r\033[K", line = "[####################] 100 %  1 of 1";
  EXPECT_EQ(printed(ProgressWhen::kAlways, false), line + '\n');
  EXPECT_EQ(printed(ProgressWhen::kAlways, true), erase + line + '\n');
  EXPECT_EQ(printed(ProgressWhen::kNever, true), "");
  EXPECT_EQ(printed(ProgressWhen::kAuto, false), "");
  EXPECT_EQ(printed(ProgressWhen::kAuto, true), "");
  std::string lines = printed(ProgressWhen::kAuto, true, true);
  while (lines.starts_with(erase + line + erase + line)) lines.erase(0, (erase + line).size());
  EXPECT_EQ(lines, erase + line + erase);
}

}  // namespace

}  // namespace vorquell::search
