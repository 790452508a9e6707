#include "Brindle/XFileTool/directories.h"

#include <malloc.h>

#include <cerrno>
#include <cstring>

#include "Brindle/BrindleErrcode.h"
#include "support/KnownLocales.h"

/// The sanitizer checks that a path which is given to the system ends within its block.
extern "C" [[gnu::used, gnu::visibility("default")]] const char* __asan_default_options() {
  return "strict_string_checks=1";
}

namespace {

/// Works in the C locale, with codes that have moved.
struct Directories : InScratchDir {
  Directories() {
    std::setlocale(LC_ALL, "C");
    xErrSetOffsetBrindle(300);
  }
};

Effect deleted(const char* path) {
  const int result = xDeleteDir(path);
  return result == 0 ? "0" : std::to_string(result) + ", " + std::strerror(errno);
}

Effect exists(const Words& words) {
  return asEachType([](auto path) { return xIsDirExist(path); }, words.at(0));
}

TEST_F(Directories, AreFoundCreatedAndDeletedAsTheTableSays) {
  checkEffects(
      "directories.txt",
      {{"xIsDirExist", exists},
       {"xCreateDir", [](auto& words) { return xCreateDir(pathOf(words.at(0)), 0700); }},
       {"xCreateDir(wide)",
        [](auto& words) { return xCreateDir(widened(words.at(0)).c_str(), 0); }},
       {"xCreateNestedDir", [](auto& words) { return xCreateNestedDir(words.at(0), 0700); }},
       {"xCreateNestedDir(absolute)",
        [this](auto& words) { return xCreateNestedDir(dir / words.at(0), 0); }},
       {"xCreateNestedDir(wide)",
        [](auto& words) { return xCreateNestedDir(widened(words.at(0)), 0); }},
       {"xDeleteDir", [](auto& words) { return deleted(pathOf(words.at(0))); }},
       {"xDeleteDir(string)", [](auto& words) { return xDeleteDir(words.at(0)), "nothing"; }},
       {"xDeleteDir(wide)", [](auto& words) { return xDeleteDir(widened(words.at(0)).c_str()); }},
       {"xDeleteDir(wstring)", [](auto& words) { return xDeleteDir(widened(words.at(0))); }}});
}

TEST_F(Directories, HaveThePermissionsThatTheMaskLeaves) {
  const mode_t before = umask(020);
  xCreateDir("new", 0700);
  umask(before);
  EXPECT_EQ(fs::status("new").permissions(), fs::perms(0755));
}

TEST_F(Directories, AreDeletedAtAnyDepthUnlessDescriptorsAreUsedUp) {
  std::string deep = "tree";
  for (int level = 0; level < 200; ++level) deep += "/level";
  tree(deep + "/");
  const auto withoutDescriptors = [] {
    const Limit none(RLIMIT_NOFILE, 0);
    return deleted("tree");
  };
  EXPECT_EQ(effect(withoutDescriptors), Effect("-1, Too many open files"));
  EXPECT_EQ(effect([] { return deleted("tree"); }), Effect(0, "", ""));
}

TEST_F(Directories, OfWidePathsAreNotReadyWhereThatCodeIsZero) {
  xErrSetOffsetBrindle(65);
  EXPECT_EQ(effect([] { return xCreateNestedDir(std::wstring(L"a"), 0); }),
            Effect(false, "WCHAR for create directory is not supported!\n"));
}

using DirectoryLocale = KnownLocales;

TEST_F(DirectoryLocale, IsSetWhereAPathIsConverted) {
  EXPECT_EQ(localeAfter([] { xIsDirExist(L""); }), "chinese");
  EXPECT_EQ(localeAfter([] { xCreateNestedDir(std::wstring(L"/"), 0); }), "chinese");
  EXPECT_EQ(effect([] { return localeAfter([] { xDeleteDir(std::string()); }); }),
            Effect("chinese", "WCHAR for delete directory is not supported!\n"));
}

TEST_F(DirectoryLocale, TruncatesWidePathsToTwoBytesACharacterAndOne) {
  mallopt(M_PERTURB, 'x');  // fresh blocks hold no terminator by chance
  tree("\u4e2d/");
  EXPECT_EQ(effect([] { return xIsDirExist(L"\u4e2d"); }), Effect(true));  // all the room there is
  EXPECT_EQ(effect([] { return xIsDirExist(L"\u4e2d\u6587"); }), Effect(true));
  mallopt(M_PERTURB, 0);
}

}  // namespace
