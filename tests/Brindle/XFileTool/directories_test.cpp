#include "Brindle/XFileTool/directories.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "Brindle/BrindleErrcode.h"
#include "support/KnownLocales.h"
#include "support/Outcome.h"

namespace {

namespace fs = std::filesystem;
constexpr int kNotReady = 300 - 65, kCreated = 300 - 67, kExisted = 300 - 68;
const std::string kNoCreate = "WCHAR for create directory is not supported!\n";
const std::string kUnconverted =
    "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n"
    "Error: problem occurs when converting wchar_t string to char string (inside "
    "isDirectoryExist_wchar(...))!\n";

std::string failure(const std::string& path, int error) {
  return "xCreateDir: Fail to create directory '" + path + "'. (Err: " + strerror(error) + ")\n";
}

/// Works in a folder that holds a file, in the C locale, with codes that have moved.
struct Directories : InScratchDir {
  Directories() {
    std::setlocale(LC_ALL, "C");
    xErrSetOffsetBrindle(300);
    dir.write("file", "x");
  }
};

TEST_F(Directories, Exist) {
  fs::create_directory("a \"b\"\n'c'");
  fs::create_directory_symlink("a \"b\"\n'c'", "link");
  fs::create_symlink("missing", "dangling");
  const std::pair<std::string, bool> cases[] = {
      {"/", true},         {"a \"b\"\n'c'", true}, {"link", true},
      {"link/", true},     {{"link\0x", 6}, true}, {"", false},
      {"dangling", false}, {"missing", false},     {"file", false},
      {"file/", false},    {"/dev/null", false},
  };
  for (const auto& [path, answer] : cases) {
    const std::wstring wide(path.begin(), path.end());
    EXPECT_EQ(xIsDirExist(path) + xIsDirExist(wide), 2 * answer) << path;
    EXPECT_EQ(xIsDirExist(path.c_str()) + xIsDirExist(wide.c_str()), 2 * answer) << path;
  }
  EXPECT_FALSE(xIsDirExist(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(xIsDirExist(static_cast<const wchar_t*>(nullptr)));
  EXPECT_EQ(outcome([] { return xIsDirExist(L"/\xdc00"); }), std::pair(false, kUnconverted));
}

TEST_F(KnownLocales, AreSetByFoldersThatAreConverted) {
  const auto remove = [] { return xDeleteDir(std::string()), 0; };
  EXPECT_EQ(localeAfter([] { xIsDirExist(L""); }), "chinese");
  EXPECT_EQ(localeAfter([] { xCreateNestedDir(std::wstring(L"/"), 0); }), "chinese");
  EXPECT_EQ(localeAfter([&] { outcome(remove); }), "chinese");
  fs::create_directory("\u4e2d");
  EXPECT_TRUE(xIsDirExist(L"\u4e2d"));        // three bytes, which is all the room there is
  EXPECT_TRUE(xIsDirExist(L"\u4e2d\u6587"));  // cut after the first character
}

TEST_F(Directories, AreCreatedOneAtATime) {
  const mode_t mask = umask(0);
  const auto expectCode = [](const char* path, int code, const std::string& printed = "") {
    EXPECT_EQ(outcome([&] { return xCreateDir(path, 0700); }), std::pair(code, printed));
  };
  expectCode("new", kCreated);
  expectCode("new/", kExisted);
  expectCode("a 'b'\n\"c\"/", kCreated);
  expectCode("file", kExisted);
  expectCode("file/y", kNotReady, failure("file/y", ENOTDIR));
  expectCode("x/y", kNotReady, failure("x/y", ENOENT));
  expectCode(nullptr, kNotReady, failure("", ENOENT));
  umask(027);
  expectCode("masked", kCreated);
  EXPECT_EQ(fs::status("new").permissions(), fs::perms{0775});
  EXPECT_EQ(fs::status("masked").permissions(), fs::perms{0750});
  EXPECT_TRUE(fs::is_directory("a 'b'\n\"c\""));
  umask(mask);
}

TEST_F(Directories, AreCreatedWithTheirParents) {
  const auto expectFolder = [](const std::string& path, bool result, const std::string& printed,
                               const char* created, const char* missing) {
    EXPECT_EQ(outcome([&] { return xCreateNestedDir(path, 0700); }), std::pair(result, printed));
    EXPECT_TRUE(xIsDirExist(created) && !xIsDirExist(missing)) << path;
  };
  expectFolder("solo/", true, "", ".", "solo");
  expectFolder("twice//", true, "", "twice", "solo");
  expectFolder("r/a", false, failure("r/a", ENOENT), ".", "r");
  expectFolder("r/a/b", true, failure("r/a/", ENOENT), ".", "r");
  expectFolder("r/a/b/c", false, failure("r/a/", ENOENT) + failure("r/a/b/c", ENOENT), ".", "r");
  for (int i = 0; i < 2; ++i) expectFolder(dir / "a/b 'c'\n/d/", true, "", "a/b 'c'\n/d", "solo");
  expectFolder("./w/x\\y", true, "", "w/x\\y", "w/x");
  expectFolder("./file/a", false, failure("./file/a", ENOTDIR), "w/x\\", "solo");
  const auto thrown = [](const auto& empty) {
    try {
      return std::to_string(xCreateNestedDir(empty, 0));
    } catch (const std::out_of_range& error) {
      return std::string(error.what());
    }
  };
  const std::string range =
      "basic_string::at: __n (which is 18446744073709551615) >= this->size() (which is 0)";
  EXPECT_EQ(thrown(std::string()), range);
  EXPECT_EQ(thrown(std::wstring()), range);
}

TEST_F(Directories, OfWidePathsAreNeitherCreatedNorDeleted) {
  const auto nested = [](const std::wstring& path) {
    return outcome([&] { return xCreateNestedDir(path, 0); });
  };
  EXPECT_EQ(nested(L"./a/b"), std::pair(true, std::string()));
  EXPECT_EQ(nested(L"a\\"), std::pair(true, kNoCreate));
  EXPECT_EQ(nested(L"a/b/c"), std::pair(true, kNoCreate));
  EXPECT_EQ(nested(L"\xdc00/a"), std::pair(true, kUnconverted + kUnconverted + kNoCreate));
  EXPECT_EQ(outcome([] { return xCreateDir(L"a", 0); }), std::pair(kNotReady, kNoCreate));
  fs::create_directory("kept");
  const std::pair refusal(kNotReady, std::string("WCHAR for delete directory is not supported!\n"));
  EXPECT_EQ(outcome([] { return xDeleteDir(L"kept"); }), refusal);
  EXPECT_EQ(outcome([] { return xDeleteDir(std::wstring(L"kept")); }), refusal);
  EXPECT_EQ(outcome([] { return xDeleteDir(std::string("kept")), kNotReady; }), refusal);
  EXPECT_TRUE(fs::exists("kept") && !fs::exists("a"));
  xErrSetOffsetBrindle(65);
  EXPECT_EQ(nested(L"a"), std::pair(false, kNoCreate));
}

TEST_F(Directories, AreDeletedUpToTheFirstFailure) {
  fs::create_directories("tree/a b/'c'\n");
  for (const char* name : {"tree/f", "tree/...", "tree/a b/\"\n'"}) dir.write(name, "x");
  fs::create_symlink(dir / "file", "tree/link");
  std::string deep = dir / "tree/";
  for (int level = 0; level < 200; ++level) deep += "level/";
  ASSERT_TRUE(xCreateNestedDir(deep, 0) && fs::exists(deep));
  EXPECT_EQ(xDeleteDir("tree/"), 0);
  EXPECT_TRUE(!fs::exists("tree") && fs::exists("file"));

  fs::create_directories("outside/emptied");
  fs::create_directories("linked/sub");
  fs::create_directory_symlink(dir / "outside", "linked/sub/link");
  fs::create_directory("dangling");
  fs::create_symlink("missing", "dangling/link");
  using Row = std::pair<const char*, int>;
  for (const auto& [path, error] : {Row(nullptr, ENOENT), Row("file", ENOTDIR),
                                    Row("linked", ENOTDIR), Row("dangling", ENOENT)}) {
    EXPECT_EQ(xDeleteDir(path), -1);
    EXPECT_EQ(errno, error) << testing::PrintToString(path);
  }
  EXPECT_TRUE(fs::exists("file") && fs::exists("linked/sub/link") && fs::is_empty("outside"));
  EXPECT_TRUE(fs::is_symlink("dangling/link"));
}

}  // namespace
