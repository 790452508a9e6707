#include "Brindle/XFileTool/directories.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <clocale>
#include <cstring>
#include <stdexcept>

#include "Brindle/BrindleErrcode.h"
#include "support/KnownLocales.h"
#include "support/ScratchDir.h"

namespace {

namespace fs = std::filesystem;
constexpr int kNotReady = 300 - 65, kCreated = 300 - 67, kExisted = 300 - 68;
const std::string kNoCreate = "WCHAR for create directory is not supported!\n";
const std::string kNoDelete = "WCHAR for delete directory is not supported!\n";
const std::string kUnconverted =
    "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n"
    "Error: problem occurs when converting wchar_t string to char string (inside "
    "isDirectoryExist_wchar(...))!\n";

/// What `call` returns and prints.
template <class Call>
std::pair<int, std::string> outcome(const Call& call) {
  testing::internal::CaptureStdout();
  const int result = call();
  return {result, testing::internal::GetCapturedStdout()};
}

std::string failure(const std::string& path, int error) {
  return "xCreateDir: Fail to create directory '" + path + "'. (Err: " + strerror(error) + ")\n";
}

/// Works in a folder of its own that holds a file, in the C locale, with codes that have moved.
struct Directories : testing::Test {
  Directories() {
    std::setlocale(LC_ALL, "C");
    xErrSetOffsetBrindle(300);
    fs::current_path(dir.path());
    dir.write("file", "x");
  }
  ~Directories() override { fs::current_path("/"); }
  const ScratchDir dir;
};

TEST_F(Directories, Exist) {
  fs::create_directory("a \"b\"\n'c'");
  fs::create_directory_symlink("a \"b\"\n'c'", "link");
  fs::create_symlink("missing", "dangling");
  const auto expectAnswer = [](const std::string& path, bool answer) {
    const std::wstring wide(path.begin(), path.end());
    EXPECT_EQ(xIsDirExist(path.c_str()) + xIsDirExist(wide.c_str()), 2 * answer) << path;
    EXPECT_EQ(xIsDirExist(path) + xIsDirExist(wide), 2 * answer) << path;
  };
  for (const char* path : {"/", "a \"b\"\n'c'", "link", "link/"}) expectAnswer(path, true);
  expectAnswer(std::string("link\0x", 6), true);
  for (const char* path : {"", "dangling", "missing", "file", "file/"}) expectAnswer(path, false);
  EXPECT_FALSE(xIsDirExist(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(xIsDirExist(static_cast<const wchar_t*>(nullptr)));
  EXPECT_EQ(outcome([] { return xIsDirExist(L"/\xdc00"); }), std::pair(0, kUnconverted));
}

TEST_F(Directories, OfPathsThatAreConvertedSetTheLocale) {
  const KnownLocales known;
  if (!known.areUsable()) GTEST_SKIP() << "needs /usr/lib/locale/C.utf8";
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
    const auto create = [&] { return xCreateNestedDir(path, 0700); };
    EXPECT_EQ(outcome(create), std::pair(int{result}, printed));
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
  const auto expectThrow = [](const auto& empty) {
    try {
      xCreateNestedDir(empty, 0);
      ADD_FAILURE();
    } catch (const std::out_of_range& error) {
      EXPECT_STREQ(error.what(),
                   "basic_string::at: __n (which is 18446744073709551615) >= this->size() (which "
                   "is 0)");
    }
  };
  expectThrow(std::string());
  expectThrow(std::wstring());
}

TEST_F(Directories, OfWidePathsAreNeitherCreatedNorDeleted) {
  const auto nested = [](const std::wstring& path) {
    return outcome([&] { return xCreateNestedDir(path, 0); });
  };
  EXPECT_EQ(nested(L"./a/b"), std::pair(1, std::string()));
  EXPECT_EQ(nested(L"a\\"), std::pair(1, kNoCreate));
  EXPECT_EQ(nested(L"a/b/c"), std::pair(1, kNoCreate));
  EXPECT_EQ(nested(L"\xdc00/a"), std::pair(1, kUnconverted + kUnconverted + kNoCreate));
  EXPECT_EQ(outcome([] { return xCreateDir(L"a", 0); }), std::pair(kNotReady, kNoCreate));
  EXPECT_FALSE(fs::exists("a"));

  fs::create_directory("kept");
  const std::pair refusal(kNotReady, kNoDelete);
  EXPECT_EQ(outcome([] { return xDeleteDir(L"kept"); }), refusal);
  EXPECT_EQ(outcome([] { return xDeleteDir(std::wstring(L"kept")); }), refusal);
  EXPECT_EQ(outcome([] { return xDeleteDir(std::string("kept")), kNotReady; }), refusal);
  EXPECT_TRUE(fs::exists("kept"));
  xErrSetOffsetBrindle(65);
  EXPECT_EQ(nested(L"a"), std::pair(0, kNoCreate));
}

TEST_F(Directories, AreDeletedUpToTheFirstFailure) {
  const auto openDescriptors = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = openDescriptors();
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
  const auto expectFailure = [](const char* path, int error) {
    EXPECT_EQ(xDeleteDir(path), -1);
    EXPECT_EQ(errno, error) << (path == nullptr ? "null" : path);
  };
  expectFailure(nullptr, ENOENT);
  expectFailure("file", ENOTDIR);
  expectFailure("linked", ENOTDIR);
  expectFailure("dangling", ENOENT);
  EXPECT_TRUE(fs::exists("file") && fs::exists("linked/sub/link") && fs::is_empty("outside"));
  EXPECT_TRUE(fs::is_symlink("dangling/link"));
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
