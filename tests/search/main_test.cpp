// VorquellSearch as a user runs it: from a shell, in a folder with some files.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/Bitstream.h"
#include "support/Bytes.h"
#include "support/InScratchDir.h"

namespace {

using namespace std::string_literals;

const std::string kZeros(16, '\0'), kOnes(16, '\xFF'), kBit = std::string(15, '\0') + '\x10';

struct Outcome {
  std::string command, out, err;
  int status;
};

/// What the command, in which $S is the program, prints on both streams, and its status.
Outcome run(const std::string& command) {
  const std::string line = "exec >out 2>err; S=$VORQUELL_SEARCH; " + command;
  const int status = std::system(line.c_str());
  return {command, readAll("out"), readAll("err"), WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

/// In `err`, "!" stands for the program's name, and "?" for where the usage is told.
void expectRun(const Outcome& expected) {
  std::string err;
  for (const char c : expected.err) {
    err += c == '!'   ? "VorquellSearch: "
           : c == '?' ? " (see VorquellSearch --help)"
                      : std::string{c};
  }
  const Outcome got = run(expected.command);
  EXPECT_EQ(got.out, expected.out) << expected.command;
  EXPECT_EQ(got.err, err) << expected.command;
  EXPECT_EQ(got.status, expected.status) << expected.command;
}

struct Search : InScratchDir {
  Search() {
    dir.write("t", kZeros);
    dir.write("ones", kOnes);
    dir.write("bit", kBit);
    dir.write("two\nlines", kBit);
    dir.write("-", kZeros);
    dir.write("empty", "");
    dir.write("text", "no bitstream, and longer than 16 bytes");
    dir.write("v7", bitstreamHeader(7, 3) + frame(kOnes) + frame("") + frame(kBit));
    dir.write("v8", bitstreamHeader(8, 1));
    dir.write("cut", bitstreamHeader(7, 2) + frame(kZeros));
    dir.write("long", bitstreamHeader(7, 1) + frame(kBit) + std::string(1 << 20, 'x'));
    dir.write("packed", kOnes + kBit + kZeros + kBit);
    dir.write("rest", kBit + kZeros + "123");
  }
};

const std::string kNoBitstream = ": Neither a feature of the target's length nor a bitstream\n";
const std::string kAllPacked =
    "0.000000\t2\tpacked\n0.007812\t1\tpacked\n0.007812\t3\tpacked\n1.000000\t0\tpacked\n";

#ifndef __SANITIZE_ADDRESS__  // its own memory would be counted

// The first test, as what counts is the largest of all children.
TEST_F(Search, NeedsLittleMemoryForManyFeatures) {
  dir.write("t", "8 bytes.");
  std::filesystem::resize_file(dir / "empty", 64'000'000 * 8);
  const Outcome got = run("$S t -k 10 --packed empty --packed - < empty; wc -l < out");
  EXPECT_EQ(got.out.substr(got.out.size() - 3), "10\n");
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  EXPECT_LT(usage.ru_maxrss, 64 << 10);
}

#endif

TEST_F(Search, PrintsTheClosestFirstAndTellsWhatItCannotCompare) {
  const Outcome runs[] = {
      // clang-format off
      {"$S t ones bit t", "0.000000\t0\tt\n0.007812\t0\tbit\n1.000000\t0\tones\n", "", 0},
      {"$S t v7 bit long ./bit", "0.007812\t2\tv7\n0.007812\t0\tbit\n0.007812\t0\tlong\n0.007812\t0\t./bit\n", "", 0},
      {"$S t -- -", "0.000000\t0\t-\n", "", 0},
      {"$S t empty v8 cut . text none bit",
       "0.007812\t0\tbit\n",
       "!empty" + kNoBitstream + "!v8: The bitstream holds no feature of the target's length\n"
       "!cut: The bitstream is cut short\n!.: Is a directory\n!text" + kNoBitstream +
       "!none: No such file or directory\n", 1},
      {"$S t /dev/zero", "", "!/dev/zero" + kNoBitstream, 1},
      {"cat t | $S /dev/stdin bit", "0.007812\t0\tbit\n", "", 0},
      {"mkfifo pipe; cat v7 > pipe & $S t pipe", "0.007812\t2\tpipe\n", "", 0},
      // a selection
      {"$S t ones bit t -k1", "0.000000\t0\tt\n", "", 0},
      {"$S -k 18446744073709551615 t bit --nearest=02 t ones", "0.000000\t0\tt\n0.007812\t0\tbit\n", "", 0},
      {"$S t ones bit t -d 0.0078125", "0.000000\t0\tt\n0.007812\t0\tbit\n", "", 0},
      {"$S t ones bit t --within 0.0078124", "0.000000\t0\tt\n", "", 0},
      {"$S t ones -d .5", "", "", 0},
      {"$S t ones -d 0. -d 1", "1.000000\t0\tones\n", "", 0},
      // lists
      {"printf 'bit\\0t\\0' | $S t ones --files0-from -", "0.000000\t0\tt\n0.007812\t0\tbit\n1.000000\t0\tones\n", "", 0},
      {"printf 'bit\\0\\0none' > list; $S t --files0-from=list bit",
       "0.007812\t0\tbit\n0.007812\t0\tbit\n",
       "!: No such file or directory\n!none: No such file or directory\n", 1},
      {"printf 'two\\nlines\\0-' | $S t -z --files0-from - 'new\nline'",
       "0.000000\t0\t-\0"s "0.007812\t0\ttwo\nlines\0"s, "!new\nline: No such file or directory\n", 1},
      // packed files
      {"$S t --packed packed", kAllPacked, "", 0},
      {"$S t --packed packed bit -k 3 --packed packed", "0.000000\t2\tpacked\n0.000000\t2\tpacked\n0.007812\t0\tbit\n", "", 0},
      {"$S t --packed rest", "0.000000\t1\trest\n0.007812\t0\trest\n", "!rest: 3 bytes are left over after 2 whole features\n", 1},
      {"$S t --packed empty --packed v8 --packed none --packed . -k1 -d0",
       "", "!empty: No whole feature, 0 bytes are left over\n"
       "!v8: 8 bytes are left over after 11 whole features\n"
       "!none: No such file or directory\n!.: Is a directory\n", 1},
      {"printf 123 | $S t --packed -", "", "!-: No whole feature, 3 bytes are left over\n", 1},
      {"{ dd bs=16 count=1 status=none of=first; $S t --packed - -d 0.5; } < packed",
       "0.000000\t1\t-\n0.007812\t0\t-\n0.007812\t2\t-\n", "", 0},
      {"(cat bit; sleep 0.1; cat t) | $S t --packed -", "0.000000\t1\t-\n0.007812\t0\t-\n", "", 0},
      // a target that is none, no query
      {"$S none t", "", "!none: No such file or directory\n", 2},
      {"$S empty t", "", "!empty: The target is empty\n", 2},
      {"$S . t", "", "!.: Is a directory\n", 2},
      {"$S t", "", "!no query is given\n", 2},
      {"$S t --files0-from=empty", "", "!no query is given\n", 2},
      {"$S t --files0-from=none t", "", "!none: No such file or directory\n", 2},
      // wrong usage
      {"$S", "", "!no target is given?\n", 2},
      {"$S t t -k 10x", "", "!-k wants a whole number from 1 to 2^64 - 1: '10x'?\n", 2},
      {"$S t t -k +1", "", "!-k wants a whole number from 1 to 2^64 - 1: '+1'?\n", 2},
      {"$S t t -k 0", "", "!-k wants a whole number from 1 to 2^64 - 1: '0'?\n", 2},
      {"$S t t -k 18446744073709551616", "", "!-k wants a whole number from 1 to 2^64 - 1: '18446744073709551616'?\n", 2},
      {"$S t t -d nan", "", "!-d wants a decimal number from 0 to 1: 'nan'?\n", 2},
      {"$S t t -d 1.01", "", "!-d wants a decimal number from 0 to 1: '1.01'?\n", 2},
      {"$S t t -d 0x0", "", "!-d wants a decimal number from 0 to 1: '0x0'?\n", 2},
      {"$S t t -d ''", "", "!-d wants a decimal number from 0 to 1: ''?\n", 2},
      {"$S t t -j -1", "", "!-j wants a whole number from 0 to 2^32 - 1: '-1'?\n", 2},
      {"$S t t --progress=maybe", "", "!--progress wants auto, always or never: 'maybe'?\n", 2},
      {"$S t t -zq", "", "!wrong option: '-q'?\n", 2},
      {"$S t t --null=1", "", "!wrong option: '--null=1'?\n", 2},
      {"$S t t --n", "", "!wrong option: '--n'?\n", 2},
      {"$S t t --within", "", "!a value is missing after: '--within'?\n", 2},
      {"$S t --files0-from=a --files0-from=a", "", "!--files0-from is given twice: 'a'?\n", 2},
      {"$S t --files0-from=- --packed -", "", "!standard input is asked for twice?\n", 2},
      {"$S t --packed - --packed -", "", "!standard input is asked for twice?\n", 2},
      // streams that are closed, full, or have lost their reader
      {"$S t bit > /dev/full", "", "!standard output: No space left on device\n", 2},
      {"$S --help > /dev/full", "", "!standard output: No space left on device\n", 2},
      {"$S --version >&-", "", "!standard output: Bad file descriptor\n", 2},
      {"$S t --packed - <&-", "", "!-: Bad file descriptor\n", 1},
      {"$S t bit none 2> /dev/full", "0.007812\t0\tbit\n", "", 1},
      {"$S t bit none 2>&-", "0.007812\t0\tbit\n", "", 1},
      {"exec 3>&1; { sleep 0.1; $S t bit none 2>&1 >&3; echo $? >&3; } | true", "0.007812\t0\tbit\n1\n", "", 0},
      {"head -c 320000 /dev/zero > many; { $S t --packed many; echo $? >&2; } | true", "", "141\n", 0},
      {"trap '' PIPE; { $S t --packed many; echo $? >&2; } | true", "", "!standard output: Broken pipe\n2\n", 0},
      // clang-format on
  };
  for (const Outcome& expected : runs) expectRun(expected);
}

TEST_F(Search, RefusesATargetOf256MiB) {
  std::filesystem::resize_file(dir / "empty", 1 << 28);
  expectRun({"$S empty t", "", "!empty: The target has 2^28 bytes or more\n", 2});
}

TEST_F(Search, ExplainsItself) {
  const Outcome help = run("$S -k 1 --help -q"), version = run("$S --version");
  EXPECT_EQ(help.out.substr(0, 22), "Usage: VorquellSearch ");
  EXPECT_EQ(help.err + version.err, "");
  EXPECT_EQ(version.out, "VorquellSearch 1.0.0\n");
  EXPECT_EQ(help.status + version.status, 0);
}

TEST_F(Search, GivesTheSameAnswerWithEachNumberOfThreads) {
  std::string list, errors, packed = randomBytes(1 << 20, 1);
  for (char& byte : packed) byte &= 1;  // many ties
  dir.write("packed", packed);
  for (std::size_t i = 0; i < 1000; ++i) {
    const std::string name = "file" + std::to_string(i);
    list += name + '\0';
    if (i % 4 != 0) dir.write(name, packed.substr(i, 16));
    if (i % 4 == 0) errors += "VorquellSearch: " + name + ": No such file or directory\n";
  }
  dir.write("list", list);
  const std::string command = "$S t --files0-from list --packed packed --packed packed";
  for (const std::string selection : {"", " -k 1", " -k 100", " -d 0.05"}) {
    const Outcome one = run(command + selection + " -j 1");
    EXPECT_EQ(one.err, errors);
    EXPECT_EQ(one.status, 1);
    if (selection.empty()) {
      EXPECT_EQ(std::count(one.out.begin(), one.out.end(), '\n'), 750 + 2 * 65536);
    }
    for (const std::string threads : {" -j 2", " -j 3", " -j 5", " --threads=0"}) {
      const Outcome other = run(command + selection + threads);
      EXPECT_TRUE(other.out == one.out) << other.command;
      EXPECT_EQ(other.err, errors) << other.command;
    }
  }
}

TEST_F(Search, ShowsProgressWhereItIsWanted) {
  const std::string shown = run("$S t t bit --progress=always").err;
  EXPECT_EQ(shown.substr(0, 38), "[####################] 100 %  2 of 2, ") << shown;
  EXPECT_EQ(run("$S t t --progress=auto").err + run("$S t t --progress=never").err, "");
}

}  // namespace
