#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Bitstream.h"
#include "support/RunProgram.h"
#include "support/ScratchDir.h"

namespace {

const std::string kUsage =
    "Version: 1.0.0.0:20180102\n"
    "Usage: Vorquell.exe <Target Obj BinFile path> <Query Obj BinFile path>";
const std::string kFailed = "Fail to compare features.\n";

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

ProgramResult runTool(std::vector<std::string> arguments, rlim_t addressSpace = 0) {
  arguments.insert(arguments.begin(), environment("VORQUELL"));
  return runProgram(arguments, addressSpace);
}

void expectOutput(const ProgramResult& result, const std::string& out, const std::string& name) {
  EXPECT_EQ(result.out, out) << name;
  EXPECT_EQ(result.err, "") << name;
  EXPECT_EQ(result.status, 0) << name;
}

std::string sparseFile(const ScratchDir& dir, const std::string& name, std::uint64_t size) {
  const std::string path = dir.write(name, "");
  std::filesystem::resize_file(path, size);
  return path;
}

TEST(Tool, WithoutTwoPathsPrintsItsUsage) {
  expectOutput(runTool({}), kUsage, "no path");
  expectOutput(runTool({"/nonexistent"}), kUsage, "one path");
}

TEST(Tool, PrintsOneLineForEachOutcome) {
  const ScratchDir dir;
  const std::string zeros = dir.write("zeros", std::string(16, '\0'));
  const std::string ones = dir.write("ones", std::string(16, '\xFF'));
  const std::string oneBit = dir.write("one bit", std::string(15, '\0') + '\x10');
  const std::string empty = dir.write("empty", "");
  const std::string shortQuery = dir.write("short", "1234567");
  const std::string missing = dir / "missing";
  const std::string unread = "Fail to read object ";
  const std::string invalid =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 16).\n";
  const struct {
    std::vector<std::string> arguments;
    std::string out;
  } cases[] = {
      {{zeros, zeros}, "main: Return distance = 0.000000\n"},
      {{zeros, ones}, "main: Return distance = 1.000000\n"},
      {{zeros, oneBit}, "main: Return distance = 0.007812\n"},
      {{zeros, ones, missing}, "main: Return distance = 1.000000\n"},
      {{missing, missing + "2"}, unread + missing + "\n"},
      {{empty, missing}, unread + empty + "\n"},
      {{zeros, missing}, unread + missing + "\n"},
      {{zeros, empty}, unread + empty + "\n"},
      {{zeros, shortQuery}, "read: Bitstream too short\n" + invalid + kFailed},
      {{dir.path(), zeros}, unread + dir.path() + "\n"},
      {{zeros, dir.path()}, "ORV_CompareFeatures: Invalid input\n" + kFailed},
  };
  for (const auto& c : cases) expectOutput(runTool(c.arguments), c.out, c.arguments[1]);
}

TEST(Tool, ComparesTheBundledSamples) {
  const std::string samples = environment("SAMPLES");
  expectOutput(runTool({samples + "/target.bin", samples + "/query.bin"}),
               "main: Return distance = 0.125000\n", "query.bin");
  expectOutput(runTool({samples + "/target.bin", samples + "/query_v7.bin"}),
               "main: Return distance = 0.031250\n", "query_v7.bin");
}

TEST(Tool, AgreesWithTheBytesThatCmpLists) {
  const ScratchDir dir;
  const std::string a = dir.write("a", randomBytes(100'003, 1));
  const std::string b = dir.write("b", randomBytes(100'003, 2));
  std::FILE* listing = popen(("cmp -l '" + a + "' '" + b + "'").c_str(), "r");
  ASSERT_NE(listing, nullptr);
  long offset;
  unsigned int first, second;
  int bits = 0;
  while (std::fscanf(listing, "%ld %o %o", &offset, &first, &second) == 3) {
    for (unsigned int difference = first ^ second; difference != 0; difference >>= 1) {
      bits += static_cast<int>(difference & 1);
    }
  }
  pclose(listing);
  char line[64];
  std::snprintf(line, sizeof line, "main: Return distance = %f\n", bits / (100'003 * 8.0));
  expectOutput(runTool({a, b}), line, "random files");
}

TEST(Tool, RefusesABitstreamThatIsCutAnywhere) {
  const ScratchDir dir;
  const std::string target = dir.write("target", "0123456789");
  const std::string bitstream =
      bitstreamHeader(7, 3) + frame("0123456788") + frameHeader(0) + frame("0123456789");
  for (std::size_t size = 8; size <= bitstream.size(); ++size) {
    if (size == 10) continue;  // one raw feature
    const std::string query = dir.write("query", bitstream.substr(0, size));
    expectOutput(runTool({target, query}),
                 size == bitstream.size() ? "main: Return distance = 0.000000\n"
                                          : "main: Bitstream too short\n" + kFailed,
                 "size " + std::to_string(size));
  }
}

TEST(Tool, RefusesABitstreamThatAnnouncesTooMuch) {
  const ScratchDir dir;
  const std::string target = dir.write("target", "0123456789");
  const std::string noFeature =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 10).\n" + kFailed;
  const std::string oneFrame = frame("0123456789");
  const struct {
    std::string query, out;
  } cases[] = {
      {bitstreamHeader(7, 2) + oneFrame, "main: Bitstream too short\n" + kFailed},
      {bitstreamHeader(7, 1500) + oneFrame, "main: Bitstream too short\n" + kFailed},
      {bitstreamHeader(7, 1501) + oneFrame, "read: Invalid number of frame (1501)\n" + noFeature},
      {bitstreamHeader(7, 1) + frameHeader(0xFFFFFFF0),
       "read: Invalid feature length (-16)\n" + noFeature},
      {bitstreamHeader(8, 2) + oneFrame, noFeature},
  };
  for (const auto& c : cases) {
    expectOutput(runTool({target, dir.write("query", c.query)}), c.out, c.out);
  }
}

#ifndef __SANITIZE_ADDRESS__  // its own memory would be counted

TEST(Tool, HandsAQueryThatDoesNotFitIntoMemoryToTheComparison) {
  const ScratchDir dir;
  const std::string target = dir.write("target", "0123456789");
  const std::string query = sparseFile(dir, "query", std::uint64_t{1} << 30);
  expectOutput(runTool({target, query}, rlim_t{512} << 20),
               "ORV_CompareFeatures: Invalid input\n" + kFailed, "query");
  expectOutput(runTool({query, target}, rlim_t{512} << 20), "Fail to read object " + query + "\n",
               "target");
}

TEST(Tool, NeedsNoMoreMemoryThanTheTwoFiles) {
  const ScratchDir dir;
  const std::string file = sparseFile(dir, "file", std::uint64_t{64} << 20);
  const ProgramResult result = runTool({file, file});
  EXPECT_EQ(result.out, "main: Return distance = 0.000000\n");
  EXPECT_LT(result.peakKiB, (2 * 64 + 8) * 1024);
}

#endif

TEST(Tool, WrapsAroundFrom256MiBOn) {
  const ScratchDir dir;
  const std::string file = sparseFile(dir, "file", std::uint64_t{256} << 20);
  expectOutput(runTool({file, file}), "main: Return distance = -0.000000\n", "256 MiB");

  std::filesystem::resize_file(file, std::uint64_t{512} << 20);
  const volatile double zero = 0.0;
  char line[64];
  std::snprintf(line, sizeof line, "main: Return distance = %f\n", zero / zero);
  expectOutput(runTool({file, file}), line, "512 MiB");
}

}  // namespace
