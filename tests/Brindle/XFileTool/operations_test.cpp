#include "Brindle/XFileTool/operations.h"

#include <sys/resource.h>

#include <climits>
#include <csignal>
#include <cstring>

#include "Brindle/BrindleErrcode.h"
#include "support/Bytes.h"
#include "support/KnownLocales.h"
#include "support/Outcome.h"

std::vector<unsigned int> pauses;  // in microseconds

/// Notes the pause instead of sleeping. In the third one another program empties a folder.
extern "C" int usleep(useconds_t microseconds) {
  pauses.push_back(microseconds);
  return pauses.size() == 3 && std::filesystem::remove("late/file") ? 0 : -1;
}

namespace {

namespace fs = std::filesystem;
using Pauses = std::vector<unsigned int>;
using Text = const char*;
constexpr int kOpenCode = 300 - 50, kWriteCode = 300 - 54;

/// Allows the process files of four bytes while the object lives.
struct FourByteFiles {
  FourByteFiles() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit tight{4, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
  }
  ~FourByteFiles() { setrlimit(RLIMIT_FSIZE, &before); }
  rlimit before;
};

/// Works with codes that have moved.
struct Operations : InScratchDir {
  Operations() {
    xErrSetOffsetBrindle(300);
    renew();
  }
  void renew() const {
    for (const auto& entry : fs::directory_iterator(".")) fs::remove_all(entry.path());
    for (Text folder : {"dir/sub", "hollow", "late"}) fs::create_directories(folder);
    for (Text file : {"b c", "five5", "late/file", "n\n'l'"}) dir.write(file, file);
    dir.write("empty", "");
    pauses.clear();
  }
  /// The bytes of a file, or "none".
  static std::string left(const std::string& path) {
    return fs::is_regular_file(path) ? readAll(path) : "none";
  }
};

TEST_F(Operations, TellWhatExistsToNarrowPathsOnly) {
  fs::create_symlink("missing", "dangling");
  for (std::string path : {"/", "dir", "empty", "", "missing", "dangling", "empty/"}) {
    std::wstring wide(path.begin(), path.end());
    EXPECT_EQ(xIsFileExist(path) + xIsFileExist(path.c_str()), 2 * fs::exists(path)) << path;
    EXPECT_FALSE(xIsFileExist(wide) || xIsFileExist(wide.c_str())) << path;
  }
}

TEST_F(Operations, DeleteWithRetries) {
  const std::tuple<int, int, Pauses> cases[] = {
      {2, 10, Pauses(3, 10'000)},      {0, 1, {1000}},          {-1, 9, {}}, {0, -7, {0}},
      {0, 4'294'967, {4'294'967'000}}, {0, INT_MAX, {UINT_MAX}}};
  for (const auto& [retries, waitMs, expected] : cases) {
    EXPECT_FALSE(xDeleteFile(std::wstring(L"dir"), retries, waitMs));
    EXPECT_EQ(std::exchange(pauses, {}), expected) << retries << ' ' << waitMs;
  }
  renew();
  EXPECT_TRUE(xDeleteFile(std::string("late"), INT_MAX, 2) && !fs::exists("late"));
  EXPECT_EQ(std::exchange(pauses, {}), Pauses(3, 2000));
  std::list<std::string> files = {"five5", "", "n\n'l'", "missing", "hollow"};
  xDeleteFiles(std::as_const(files));
  xDeleteFiles(files);
  EXPECT_EQ(pauses, Pauses(2 + 5, 100'000));
  EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 3);
}

TEST_F(KnownLocales, CutTheWidePathThatIsDeleted) {
  for (Text file : {"日", "日日"}) dir.write(file, "");
  EXPECT_EQ(localeAfter([] { EXPECT_TRUE(xDeleteFile(std::wstring(L"日日日"), -1, 0)); }),
            "chinese");
  EXPECT_TRUE(fs::exists("日") && !fs::exists("日日"));
}

TEST_F(Operations, CopyAFile) {
  using Row = std::tuple<Text, Text, bool, int, std::string, std::size_t>;
  for (const auto& [source, target, overwrite, result, expected, waited] :
       {Row("five5", "'n'\n\"", 0, 0, "five5", 0), Row("five5", "b c", 1, 0, "five5", 0),
        Row("five5", "b c", 0, -1, "b c", 0), Row("five5", "hollow", 1, 0, "five5", 0),
        Row("five5", "dir", 1, -1, "none", 6), Row("five5", "no/new", 1, -1, "none", 0),
        Row("five5", "five5", 1, -1, "none", 0), Row("five5", nullptr, 1, -1, "none", 0),
        Row("missing", "b c", 1, -1, "b c", 0), Row(nullptr, "b c", 1, -1, "b c", 0),
        Row("empty", "b c", 1, -1, "none", 0), Row("dir", "b c", 1, -1, "none", 0)}) {
    renew();
    EXPECT_EQ(xFileCopy(source, target, overwrite), result) << expected;
    EXPECT_EQ(left(target == nullptr ? "null" : target), expected);
    EXPECT_EQ(pauses, Pauses(waited, 100'000));
  }
  fs::create_symlink("made", "dangling");
  EXPECT_EQ(xFileCopy("five5", "dangling", false), 0);
  EXPECT_EQ(left("made"), "five5");
  const FourByteFiles limit;
  EXPECT_EQ(xFileCopy("five5", "copy", true), -1);
  EXPECT_EQ(left("copy"), "five");
}

TEST_F(Operations, CopyOfAFolderOnlyClearsTheTarget) {
  EXPECT_EQ(xDirCopy("hollow", "dir", false) + xDirCopy("missing", "dir", true), -2);
  EXPECT_EQ(xDirCopy(nullptr, "dir", true) + xDirCopy("dir", "empty", true), -2);
  EXPECT_TRUE(fs::exists("dir/sub") && fs::exists("empty"));
  EXPECT_EQ(xDirCopy("hollow", "dir", true) + xDirCopy("late", "late", true), -2);
  EXPECT_FALSE(fs::exists("dir") || fs::exists("late"));
}

TEST_F(Operations, JoinFilesThroughTheShell) {
  using Row = std::tuple<std::list<std::string>, Text, Text>;
  const int input = dup(0), errors = dup(2);
  for (const auto& [files, output, expected] :
       {Row({"five5", "b c ", "b c"}, "a \n'b'", "five5b cb c"), Row({}, "b c", "b c"),
        Row({" ", "b c", "", "b c"}, "b ", "b cb c"), Row({"b c", "no"}, "five5", "b c"),
        Row({"n\n'l'", "b c\t"}, "a", "n\n'l'"), Row({"five5", "b$(echo ' ')c"}, "a", "five5b c"),
        Row({" ", ""}, "a", "n\n'l'"), Row({"b c"}, "dir", "none")}) {
    renew();
    ASSERT_TRUE(std::freopen("n\n'l'", "r", stdin) && std::freopen("messages", "w", stderr));
    EXPECT_EQ(xConcatBinaryFiles(files, output), 0);
    dup2(input, 0), dup2(errors, 2);
    EXPECT_EQ(left(output), expected) << output;
  }
  close(input), close(errors);
  EXPECT_EQ(pauses, Pauses(6, 100'000));  // for the folder
}

TEST_F(Operations, WriteIntoAnExistingFileAndSynchronise) {
  const auto message = [](const std::string& text, int error) {
    return "Error in " + text + ": " + strerror(error) + " (errno " + std::to_string(error) + ")\n";
  };
  using Row = std::tuple<Text, Text, unsigned int, int, int, std::string, std::string>;
  for (const auto& [path, data, size, offset, code, expected, printed] :
       {Row("ten", "abcd", 4, 2, 0, "01abcd6789", ""), Row("ten", "ab", 2, 9, 0, "012345678ab", ""),
        Row("ten", "a", 1, 12, 0, std::string("0123456789\0\0a", 13), ""),
        Row("ten", "a", 1, -1, kOpenCode, "0123456789",
            message("setting position to -1 in ten", 22)),
        Row("no", "a", 1, 0, kOpenCode, "0123456789", message("opening no", ENOENT)),
        Row(nullptr, "a", 1, 0, kOpenCode, "0123456789", message("opening ", ENOENT)),
        Row("/dev/full", "a", UINT_MAX, 0, kWriteCode, "0123456789",
            message("writing -1 byte data to /dev/full", ENOSPC))}) {
    dir.write("ten", "0123456789");
    EXPECT_EQ(outcome(xWriteFileThroughCache, path, data, size, offset), std::pair(code, printed));
    EXPECT_EQ(left("ten"), expected) << printed;
  }
  dir.write("ten", "");
  const FourByteFiles limit;
  EXPECT_EQ(xWriteFileThroughCache("ten", "abcdef", 6, 0), 0);
  EXPECT_EQ(left("ten"), "abcd");
  for (Text path : {"missing", "dir", Text()}) EXPECT_EQ(xFileSync(path), kOpenCode);
  EXPECT_TRUE(xFileSync("five5") == 0 && xFileSync("/dev/null") == -1 && xFileSync(-1) == -1);
}

}  // namespace
