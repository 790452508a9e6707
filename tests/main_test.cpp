#include "support/Bitstream.h"
#include "support/InScratchDir.h"
#include "support/Program.h"

namespace {

const std::string kBit = std::string(15, '\0') + '\x10';

struct Tool : InScratchDir {
  Tool() {
    dir.write("zeros", std::string(16, '\0'));
    dir.write("ones", std::string(16, '\xFF'));
    dir.write("one bit", kBit);
    dir.write("v7", bitstreamHeader(7, 3) + frame(kBit) + frameHeader(0) + frame(kBit));
    dir.write("empty", "");
    dir.write("short", "1234567");
  }
};

TEST_F(Tool, PrintsItsUsageOrOneOutcome) {
  checkLines("tool.txt");
}

#ifndef __SANITIZE_ADDRESS__  // its own memory would not fit

TEST_F(Tool, SaysWhichFileDoesNotFitInMemory) {
  EXPECT_EQ(runLine("truncate -s 1G large; ulimit -v 524288; Vorquell zeros large"),
            (Words{"ORV_CompareFeatures: Invalid input\nFail to compare features.\n", "", "0"}));
  EXPECT_EQ(runLine("ulimit -v 524288; Vorquell large zeros"),
            (Words{"Fail to read object large\n", "", "0"}));
}

#endif

using ToolSlow = Tool;

TEST_F(ToolSlow, WrapsAroundFrom256MiBOn) {
  EXPECT_EQ(runLine("for size in 256M 512M; do truncate -s $size f; Vorquell f f; done"),
            (Words{"main: Return distance = -0.000000\nmain: Return distance = -nan\n", "", "0"}));
}

}  // namespace
