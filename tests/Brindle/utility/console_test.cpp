#include "Brindle/utility/console.h"

#include <unistd.h>

#include <algorithm>

#include "support/Outcome.h"
#include "support/Table.h"

namespace {

TEST(ProgressBarDeathTest, HasNothingToDrawOverAtFirstAndIsFlushed) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // which runs the statement in a new process
  const auto drawInto = [](int stream) {
    std::fflush(stdout);
    dup2(stream, STDOUT_FILENO);
    _exit(displayConsoleProgressBar(50, nullptr, true, 10));
  };
  EXPECT_EXIT(drawInto(STDERR_FILENO), testing::ExitedWithCode(50),
              "^\\|====>     \\| \\[ 50%\\]$");
}

TEST(ProgressBar, IsDrawnOverTheLastOne) {
  const auto draws = [](const support::Row& row) {
    std::string text = row.arguments.at(1);
    const int percent = std::stoi(row.arguments.at(0)), width = std::stoi(row.arguments.at(3));
    const bool overwrites = row.arguments.at(2) == "over";
    auto drawn = outcome(displayConsoleProgressBar, percent, text == "-" ? nullptr : text.data(),
                         overwrites, width);
    std::replace(drawn.printed.begin(), drawn.printed.end(), '\b', '<');
    EXPECT_SAME(drawn, Outcome(std::stoi(row.results.at(0)), row.results.at(1)));
  };
  support::checkTable("console.txt", {{"displayConsoleProgressBar", draws}});
}

}  // namespace
