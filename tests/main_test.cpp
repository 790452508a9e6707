#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Bitstream.h"
#include "support/Program.h"
#include "support/ScratchDir.h"

namespace {

const std::string kFailed = "Fail to compare features.\n";

/// Whatever happens goes to standard output, and the status is 0.
void expectOutput(std::vector<std::string> arguments, const std::string& out,
                  rlim_t addressSpace = RLIM_INFINITY) {
  const std::string shown = testing::PrintToString(arguments);
  arguments.insert(arguments.begin(), std::getenv("VORQUELL"));
  EXPECT_EQ(runProgram(arguments, addressSpace), (Run{out, "", 0})) << "Vorquell " << shown;
}

TEST(Tool, PrintsItsUsageOrOneOutcome) {
  const ScratchDir dir;
  const std::string zeros = dir.write("zeros", std::string(16, '\0'));
  const std::string ones = dir.write("ones", std::string(16, '\xFF'));
  const std::string oneBit = dir.write("one bit", std::string(15, '\0') + '\x10');
  const std::string empty = dir.write("empty", ""), missing = dir / "missing";
  const std::string tooShort = dir.write("short", "1234567");
  const std::string usage =
      "Version: 1.0.0.0:20180102\n"
      "Usage: Vorquell.exe <Target Obj BinFile path> <Query Obj BinFile path>";
  const std::string none =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 16).\n";
  const auto unread = [](const std::string& path) { return "Fail to read object " + path + "\n"; };
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, usage},
      {{"/nonexistent"}, usage},
      {{zeros, zeros}, "main: Return distance = 0.000000\n"},
      {{zeros, oneBit}, "main: Return distance = 0.007812\n"},
      {{zeros, ones, empty}, "main: Return distance = 1.000000\n"},
      {{SAMPLES "/target.bin", SAMPLES "/query.bin"}, "main: Return distance = 0.125000\n"},
      {{SAMPLES "/target.bin", SAMPLES "/query_v7.bin"}, "main: Return distance = 0.031250\n"},
      {{missing, missing + "2"}, unread(missing)},
      {{empty, missing}, unread(empty)},
      {{zeros, missing}, unread(missing)},
      {{zeros, empty}, unread(empty)},
      {{dir.path(), zeros}, unread(dir.path())},
      {{zeros, dir.path()}, "ORV_CompareFeatures: Invalid input\n" + kFailed},
      {{zeros, tooShort}, "read: Bitstream too short\n" + none + kFailed},
  };
  for (const auto& [arguments, out] : cases) expectOutput(arguments, out);
}

TEST(Tool, RefusesABitstreamThatIsTruncatedAnywhere) {
  const ScratchDir dir;
  const std::string target = dir.write("target", "0123456789");
  const std::string whole =
      bitstreamHeader(7, 3) + frame("0123456788") + frameHeader(0) + frame("0123456789");
  for (const std::size_t size : {8U, 67U, 68U, 183U, 184U, 211U, 225U, 226U, 253U, 299U}) {
    expectOutput({target, dir.write("query", whole.substr(0, size))},
                 "main: Bitstream too short\n" + kFailed);
  }
  expectOutput({target, dir.write("query", whole)}, "main: Return distance = 0.000000\n");
}

#ifndef __SANITIZE_ADDRESS__  // its own memory would not fit

TEST(Tool, SaysWhichFileDoesNotFitInMemory) {
  const ScratchDir dir;
  const std::string small = dir.write("small", "0123456789"), large = dir.write("large", "");
  std::filesystem::resize_file(large, 1 << 30);
  constexpr rlim_t kTight = 512 << 20;
  expectOutput({small, large}, "ORV_CompareFeatures: Invalid input\n" + kFailed, kTight);
  expectOutput({large, small}, "Fail to read object " + large + "\n", kTight);
}

#endif

TEST(ToolSlow, WrapsAroundFrom256MiBOn) {
  const ScratchDir dir;
  const std::string file = dir.write("sparse", "");
  std::filesystem::resize_file(file, 256 << 20);
  expectOutput({file, file}, "main: Return distance = -0.000000\n");
  std::filesystem::resize_file(file, 512 << 20);
  expectOutput({file, file}, "main: Return distance = -nan\n");
}

}  // namespace
