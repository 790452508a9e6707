#include "Brindle/utility/console.h"

#include "support/Outcome.h"

namespace {

// One test: the length of the last line lives as long as the process.
TEST(ProgressBar, IsDrawnOverTheLastOne) {
  const auto back = [](std::size_t count) { return std::string(count, '\b'); };
  const std::tuple<int, const char*, bool, int, int, std::string> lines[] = {
      // clang-format off
      { 50, "abc",   true,  10,  50, "|====>     | [ 50%] abc"},
      { -5, nullptr, true,  10,   0, back(23) + "|          | [  0%]    " + back(4)},
      {150, nullptr, true,  10, 100, back(19) + "|==========| [100%]"},
      {  9, "",      false, 10,   9, "|          | [  9%] "},
      { 10, nullptr, false, 10,  10, "|>         | [ 10%] \b"},
      {100, nullptr, true,   0, 100, back(19) + "|| [100%]          " + back(10)},
      { 50, nullptr, true,  -4,  50, back(9) + "|| [ 50%]    " + back(4)},
      {  1, nullptr, true,   1,   1, back(5) + "| | [  1%]"},
      {  0, nullptr, false, -2147483647, 0, "|| [  0%]"},  // its length is below any later one's
      {  0, nullptr, false, 20,   0, "|                    | [  0%]"},
      // clang-format on
  };
  for (const auto& [percent, text, overwrite, width, drawn, printed] : lines) {
    EXPECT_EQ(
        outcome(displayConsoleProgressBar, percent, const_cast<char*>(text), overwrite, width),
        std::pair(drawn, printed));
  }
}

}  // namespace
