#include "Brindle/utility/console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Drawn {
  int percent;
  std::string printed;
};

Drawn draw(int percent, const char* text, bool overwrite, int width) {
  testing::internal::CaptureStdout();
  const int result = displayConsoleProgressBar(percent, const_cast<char*>(text), overwrite, width);
  return {result, testing::internal::GetCapturedStdout()};
}

// One test: the length of the last line lives as long as the process.
TEST(ProgressBar, IsDrawnOverTheLastOne) {
  const auto repeat = [](std::size_t count, char c) { return std::string(count, c); };
  const struct {
    int percent;
    const char* text;
    bool overwrite;
    int width, result;
    std::string printed;
  } lines[] = {
      {50, "abc", true, 10, 50, "|====>     | [ 50%] abc"},
      {-5, nullptr, true, 10, 0, repeat(23, '\b') + "|          | [  0%]" + "    \b\b\b\b"},
      {150, nullptr, true, 10, 100, repeat(19, '\b') + "|==========| [100%]"},
      {9, "", false, 10, 9, "|          | [  9%] "},
      {10, nullptr, false, 10, 10, "|>         | [ 10%] \b"},
      {100, nullptr, true, 0, 100,
       repeat(19, '\b') + "|| [100%]" + repeat(10, ' ') + repeat(10, '\b')},
      {50, nullptr, true, -4, 50, repeat(9, '\b') + "|| [ 50%]" + "    \b\b\b\b"},
      {1, nullptr, true, 1, 1, repeat(5, '\b') + "| | [  1%]"},
      {0, nullptr, false, -2147483647, 0, "|| [  0%]"},  // its length is below any later one's
      {0, nullptr, false, 20, 0, "|" + repeat(20, ' ') + "| [  0%]"},
  };
  for (const auto& line : lines) {
    const Drawn drawn = draw(line.percent, line.text, line.overwrite, line.width);
    EXPECT_EQ(drawn.percent, line.result);
    EXPECT_EQ(drawn.printed, line.printed);
  }
}

}  // namespace
