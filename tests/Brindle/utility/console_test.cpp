#include "Brindle/utility/console.h"

#include <unistd.h>

#include "support/Call.h"

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
  support::checkTable("console.txt", {CALLS(displayConsoleProgressBar)});
}

}  // namespace
