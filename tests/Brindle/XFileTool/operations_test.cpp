#include "Brindle/XFileTool/operations.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "Brindle/BrindleErrcode.h"
#include "support/Bytes.h"
#include "support/KnownLocales.h"

/// Prints the pause instead of sleeping. In the third one another program empties a folder.
extern "C" int usleep(useconds_t microseconds) {
  static int pausesBesideFile = 0;
  std::printf("(%u)", microseconds);
  if (fs::exists("late/file") && ++pausesBesideFile % 3 == 0) fs::remove("late/file");
  return 0;
}

namespace {

/// Works with codes that have moved.
struct Operations : InScratchDir {
  Operations() { xErrSetOffsetBrindle(300); }
};

Effect exists(const Words& words) {
  return asEachType([](auto path) { return xIsFileExist(path); }, words.at(0));
}

template <class Path>
Effect deleteFile(const Path& path, const Words& words) {
  return xDeleteFile(path, std::stoi(words.at(1)), std::stoi(words.at(2)));
}

Effect deleteFiles(const Words& words) {
  std::list<std::string> files(words.begin(), words.end());
  xDeleteFiles(std::as_const(files));
  std::printf("/");
  xDeleteFiles(files);
  return "nothing";
}

Effect copyFile(const Words& words) {
  return xFileCopy(pathOf(words.at(0)), pathOf(words.at(1)), flag(words.at(2)));
}

Effect copyFolder(const Words& words) {
  return xDirCopy(pathOf(words.at(0)), pathOf(words.at(1)), flag(words.at(2)));
}

Effect joinFiles(const Words& words) {
  return xConcatBinaryFiles({words.begin() + 1, words.end()}, words.at(0));
}

Effect writeFile(const Words& words) {
  const auto size = static_cast<unsigned int>(std::stoul(words.at(2)));
  return xWriteFileThroughCache(pathOf(words[0]), words[1].c_str(), size, std::stoi(words.at(3)));
}

TEST_F(Operations, DoWhatTheTableSays) {
  ASSERT_NE(std::freopen("/dev/null", "r", stdin), nullptr);  // what `cat` without names reads
  checkEffects(
      "operations.txt",
      {{"xIsFileExist", exists},
       {"xDeleteFile", [](auto& words) { return deleteFile(words.at(0), words); }},
       {"xDeleteFile(wide)", [](auto& words) { return deleteFile(widened(words.at(0)), words); }},
       {"xDeleteFiles", deleteFiles},
       {"xFileCopy", copyFile},
       {"xDirCopy", copyFolder},
       {"xConcatBinaryFiles", joinFiles},
       {"xWriteFileThroughCache", writeFile},
       {"xFileSync", [](auto& words) { return xFileSync(pathOf(words.at(0))); }},
       {"xFileSync(fd)", [](auto& words) { return xFileSync(std::stoi(words.at(0))); }}});
}

/// In a process whose files have at most four bytes.
template <class Call>
auto withinFourBytes(const Call& call) {
  return [call] {
    const Limit fourBytes(RLIMIT_FSIZE, 4);
    return call();
  };
}

TEST_F(Operations, LeaveThePartThatFits) {
  tree("five5, file=");
  EXPECT_EQ(effect(withinFourBytes([] { return xFileCopy("five5", "copy", true); })),
            Effect(-1, "", "copy=five, file=, five5"));
  EXPECT_EQ(effect(withinFourBytes([] { return xWriteFileThroughCache("file", "abcdef", 6, 0); })),
            Effect(0, "", "copy=five, file=abcd, five5"));
  EXPECT_EQ(effect(withinFourBytes([] { return xWriteFileThroughCache("file", "ab", 2, 4); })),
            Effect(246, "Error in writing 2 byte data to file: File too large (errno 27)\n"));
}

TEST_F(Operations, TakeDescriptorZeroAsAnyOther) {
  tree("file");
  close(0);
  EXPECT_EQ(xWriteFileThroughCache("file", "FILE", 4, 0), 0);
  EXPECT_EQ(xFileSync("file"), 0);
  EXPECT_EQ(open("/dev/null", O_RDONLY), 0) << "another file was left open";
}

using OperationLocale = KnownLocales;

TEST_F(OperationLocale, TruncatesTheWidePathThatIsDeleted) {
  tree("日=, 日日=");
  const auto remove = [] { return xDeleteFile(std::wstring(L"日日日"), -1, 0); };
  EXPECT_EQ(effect([&] { return localeAfter(remove); }), Effect("chinese", "", "日="));
}

}  // namespace
