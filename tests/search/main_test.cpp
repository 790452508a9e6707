#include "support/Bitstream.h"
#include "support/InScratchDir.h"
#include "support/Program.h"

namespace {

struct SearchTool : InScratchDir {
  SearchTool() {
    const std::string zeros(16, '\0'), ones(16, '\xFF'), bit = std::string(15, '\0') + '\x10';
    dir.write("t", zeros);
    dir.write("ones", ones);
    dir.write("bit", bit);
    dir.write("two\nlines", bit);
    dir.write("-", zeros);
    dir.write("empty", "");
    dir.write("text", "no bitstream, and longer than 16 bytes");
    dir.write("v7", bitstreamHeader(7, 3) + frame(ones) + frame("") + frame(bit));
    dir.write("v8", bitstreamHeader(8, 1));
    dir.write("cut", bitstreamHeader(7, 2) + frame(zeros));
    dir.write("long", bitstreamHeader(7, 1) + frame(bit) + std::string(1 << 20, 'x'));
    dir.write("packed", ones + bit + zeros + bit);
    dir.write("rest", bit + zeros + "123");
  }
};

TEST_F(SearchTool, PrintsTheClosestFirstAndTellsWhatItCannotCompare) {
  checkLines("search-tool.txt");
}

TEST_F(SearchTool, KnowsATerminal) {
  EXPECT_EQ(runLine("script -qec 'VorquellSearch t bit --progress=always' /dev/null < /dev/null"
                    " | sed 's/, [0-9].*//'"),
            (Words{"\r\x1B[K[####################] 100 %  1 of 1\n0.007812\t0\tbit\r\n", "", "0"}));
}

#ifndef __SANITIZE_ADDRESS__  // its own memory would be counted

TEST_F(SearchTool, NeedsLittleMemoryForManyFeatures) {
  dir.write("t", "8 bytes.");
  fs::resize_file("empty", 128 << 20);
  EXPECT_EQ(
      runLine("ulimit -d 65536; VorquellSearch t -j 2 -k 9 --packed empty --packed - < empty >some"
              " && wc -l < some"),
      (Words{"9\n", "", "0"}));
}

#endif

TEST_F(SearchTool, SelectsTheSameFromManyWithEachNumberOfThreads) {
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
  dir.write("errors", errors);
  const std::string search =
      "VorquellSearch t --files0-from list --packed packed --packed packed 2> told ";
  // 750 files, and 65,536 features twice.
  EXPECT_EQ(runLine(search + "-j 1 > all; wc -l < all"), (Words{"131822\n", "", "0"}));
  const std::pair<std::string, std::string> selections[] = {{"", "cat all"},
                                                            {"-k 1", "head -n 1 all"},
                                                            {"-k 100", "head -n 100 all"},
                                                            {"-d 0.05", "awk '$1 <= 0.05' all"}};
  for (const auto& [option, selection] : selections) {
    EXPECT_EQ(runLine("for j in 1 2 3 5 0; do " + search + option + " -j $j > some; " + selection +
                      " | cmp - some && cmp told errors || echo with $j threads; done"),
              (Words{"", "", "0"}))
        << "with " << option;
  }
}

using SearchToolSlow = SearchTool;

TEST_F(SearchToolSlow, RefusesATargetOf256MiB) {
  EXPECT_EQ(runLine("truncate -s 256M large; VorquellSearch large t"),
            (Words{"", "VorquellSearch: large: The target has 2^28 bytes or more\n", "2"}));
}

}  // namespace
