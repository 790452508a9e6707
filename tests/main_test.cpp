#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <bit>
#include <cstdio>

#include "support/Bitstream.h"
#include "support/Bytes.h"
#include "support/ScratchDir.h"

namespace {

const std::string kFailed = "Fail to compare features.\n";

/// Runs the tool as a user would, with an address space of so many bytes, expects `out` on its
/// standard output and nothing else, and returns the memory that it used, in KiB.
long expectOutput(std::vector<std::string> words, const std::string& out,
                  rlim_t addressSpace = RLIM_INFINITY) {
  words.insert(words.begin(), std::getenv("VORQUELL"));
  const ScratchDir dir;
  const std::string outPath = dir / "out", errPath = dir / "err";
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(open(outPath.c_str(), O_CREAT | O_WRONLY, 0600), STDOUT_FILENO);
    dup2(open(errPath.c_str(), O_CREAT | O_WRONLY, 0600), STDERR_FILENO);
    const rlimit limit{addressSpace, addressSpace};
    setrlimit(RLIMIT_AS, &limit);
    execv(argv[0], argv.data());
    _exit(127);
  }
  int status = -1;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  EXPECT_EQ(readAll(outPath), out) << testing::PrintToString(words);
  EXPECT_EQ(readAll(errPath), "") << testing::PrintToString(words);
  EXPECT_EQ(status, 0) << testing::PrintToString(words);
  return usage.ru_maxrss;
}

std::string distanceLine(double distance) {
  char line[64];
  std::snprintf(line, sizeof line, "main: Return distance = %f\n", distance);
  return line;
}

std::string sparseFile(const ScratchDir& dir, std::uint64_t mebibytes) {
  const std::string path = dir.write("sparse", "");
  std::filesystem::resize_file(path, mebibytes << 20);
  return path;
}

TEST(Tool, PrintsItsUsageOrOneOutcome) {
  const ScratchDir dir;
  const std::string zeros = dir.write("zeros", std::string(16, '\0'));
  const std::string ones = dir.write("ones", std::string(16, '\xFF'));
  const std::string oneBit = dir.write("one bit", std::string(15, '\0') + '\x10');
  const std::string empty = dir.write("empty", ""), missing = dir / "missing";
  const std::string digits = dir.write("digits", "0123456789");
  const std::string tooShort = dir.write("short", "1234567");
  const std::string samples = std::getenv("SAMPLES"), target = samples + "/target.bin";
  const std::string unread = "Fail to read object ";
  const std::string usage =
      "Version: 1.0.0.0:20180102\n"
      "Usage: Vorquell.exe <Target Obj BinFile path> <Query Obj BinFile path>";
  const std::string none =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 10).\n";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      // clang-format off
      {{}, usage},
      {{"/nonexistent"}, usage},
      {{zeros, zeros},       "main: Return distance = 0.000000\n"},
      {{zeros, ones},        "main: Return distance = 1.000000\n"},
      {{zeros, oneBit},      "main: Return distance = 0.007812\n"},
      {{zeros, ones, empty}, "main: Return distance = 1.000000\n"},
      {{target, samples + "/query.bin"},    "main: Return distance = 0.125000\n"},
      {{target, samples + "/query_v7.bin"}, "main: Return distance = 0.031250\n"},
      {{missing, missing + "2"}, unread + missing + "\n"},
      {{empty, missing}, unread + empty + "\n"},
      {{zeros, missing}, unread + missing + "\n"},
      {{zeros, empty}, unread + empty + "\n"},
      {{dir.path(), zeros}, unread + dir.path() + "\n"},
      {{zeros, dir.path()}, "ORV_CompareFeatures: Invalid input\n" + kFailed},
      {{digits, tooShort}, "read: Bitstream too short\n" + none + kFailed},
      // clang-format on
  };
  for (const auto& [arguments, out] : cases) expectOutput(arguments, out);
}

TEST(Tool, AgreesWithTheBytesThatCmpLists) {
  const ScratchDir dir;
  const std::string a = dir.write("a", randomBytes(100'003, 1));
  const std::string b = dir.write("b", randomBytes(100'003, 2));
  std::FILE* listing = popen(("cmp -l '" + a + "' '" + b + "'").c_str(), "r");
  ASSERT_NE(listing, nullptr);
  unsigned int first, second;
  int bits = 0;
  while (std::fscanf(listing, "%*d %o %o", &first, &second) == 2) {
    bits += std::popcount(first ^ second);
  }
  pclose(listing);
  expectOutput({a, b}, distanceLine(bits / (100'003 * 8.0)));
}

TEST(Tool, RefusesABitstreamThatIsCutAnywhere) {
  const ScratchDir dir;
  const std::string target = dir.write("target", "0123456789");
  const std::string bitstream =
      bitstreamHeader(7, 3) + frame("0123456788") + frameHeader(0) + frame("0123456789");
  for (std::size_t size = 8; size <= bitstream.size(); ++size) {
    if (size == 10) continue;  // one raw feature
    SCOPED_TRACE(size);
    expectOutput(
        {target, dir.write("query", bitstream.substr(0, size))},
        size == bitstream.size() ? distanceLine(0) : "main: Bitstream too short\n" + kFailed);
  }
}

#ifndef __SANITIZE_ADDRESS__  // its own memory would be counted

TEST(Tool, NeedsMemoryForTheTwoFilesAndTellsWhichDoesNotFit) {
  const ScratchDir dir;
  const std::string small = dir.write("small", "0123456789"), file = sparseFile(dir, 64);
  EXPECT_LT(expectOutput({file, file}, distanceLine(0)), (2 * 64 + 8) * 1024);
  constexpr rlim_t kTight = 512 << 20;
  sparseFile(dir, 1024);
  expectOutput({small, file}, "ORV_CompareFeatures: Invalid input\n" + kFailed, kTight);
  expectOutput({file, small}, "Fail to read object " + file + "\n", kTight);
}

#endif

TEST(Tool, WrapsAroundFrom256MiBOn) {
  const ScratchDir dir;
  const std::string file = sparseFile(dir, 256);
  expectOutput({file, file}, distanceLine(-0.0));
  sparseFile(dir, 512);
  const volatile double zero = 0.0;
  expectOutput({file, file}, distanceLine(zero / zero));
}

}  // namespace
