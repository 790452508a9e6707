#include "Brindle/XFileTool/walking.h"

#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <optional>

#include "support/KnownLocales.h"

/// Enters a folder as the system does, but for one that vanishes just before and for one in which
/// no file can be opened.
extern "C" int chdir(const char* path) noexcept {
  static std::optional<Limit> descriptors;
  descriptors.reset();
  if (std::strcmp(path, "vanishing") == 0) rmdir(path);
  if (std::strcmp(path, "shut") == 0) descriptors.emplace(RLIMIT_NOFILE, 0);
  return static_cast<int>(syscall(SYS_chdir, path));
}

namespace {

using FileList = InScratchDir;

using Walking = InScratchDir;

static_assert(WALK_ALL == 2);  // the table holds the other values

/// An array of paths and what a walk makes of it.
struct Walk {
  ~Walk() {
    for (int i = 0; i < count; ++i) std::free(files[i]);
    std::free(files);
  }
  std::string operator()(const char* path, int option = WALK_ALL, bool recursive = true) {
    xDirWalking(path, files, count, FILE_WALKING_OPTION(option), recursive);
    return files == nullptr ? "null" : joined(Words(files, files + count));
  }
  char** files = nullptr;
  int count = 0;
};

void expectAbort(const char* path, int option, bool recursive) {
  EXPECT_EXIT(Walk()(path, option, recursive), testing::KilledBySignal(SIGABRT), "^$") << path;
}

std::string walking(const char* prefix, int option, bool recursive) {
  std::list<std::string> paths = {"kept"};
  xWalking(prefix, paths, FILE_WALKING_OPTION(option), recursive);
  return joined(paths);
}

TEST_F(Walking, ListsWhatTheTableSays) {
  const auto walked = [](auto& words) {
    return Walk()(pathOf(words.at(0)), std::stoi(words.at(1)), flag(words.at(2)));
  };
  const auto walkedHere = [](auto& words) {
    return walking(pathOf(words.at(0)), std::stoi(words.at(1)), flag(words.at(2)));
  };
  checkEffects(
      "walking.txt",
      {{"xDirWalking", walked},
       {"xWalking", walkedHere},
       {"xGetFileList", [](auto& words) { return xGetFileList(words.at(0)); }},
       {"xGetFileList(wide)", [](auto& words) { return xGetFileList(widened(words.at(0))); }}});
}

TEST_F(Walking, ReplacesTheArrayUnlessItFails) {
  tree("r/a/b, r/c");
  Walk walk;
  EXPECT_EQ(walk("r"), "r/a, r/c, r/a/b");
  EXPECT_EQ(effect([&] { return walk("missing"); }),
            Effect("r/a, r/c, r/a/b", "Error: cannot goto target directory!\n"));
  EXPECT_EQ(walk(walk.files[0]), "r/a/b");  // releases its own path
}

TEST_F(Walking, EndsInTheParentOfAFolderThatVanishes) {
  tree("r/vanishing/");
  fs::current_path("r");
  EXPECT_EQ(effect([] { return walking("p", WALK_ALL, true); }),
            Effect("kept, p/vanishing", "", "r/"));
}

TEST_F(Walking, NeedsAWorkingDirectoryThatHasAPathBelow255Bytes) {
  const std::string half(130, 'h'), home = half + "/" + half;
  tree(home + "/");
  fs::current_path(home);
  Effect expected("null", "Error: cannot get current working directory!\n");
  expected.workingDirectory = home;
  EXPECT_EQ(effect([] { return Walk()("."); }), expected);
  fs::remove(dir / home);
  expected.workingDirectory = "removed";
  EXPECT_EQ(effect([] { return Walk()("/"); }), expected);
}

TEST_F(Walking, AbortsAtPathsOf255Bytes) {
  const std::string longest(252, 'x');
  tree("d/" + longest + "/, f/" + longest);
  EXPECT_EQ(Walk()("f"), "f/" + longest);
  EXPECT_EQ(Walk()("d"), "d/" + longest);
  EXPECT_EQ(Walk()("f/", WALK_FOLDERS), "");
  EXPECT_EQ(Walk()("d/", WALK_FILES, false), "");
  expectAbort("f/", WALK_ALL, false);
  expectAbort("d/", WALK_FILES, true);
}

TEST_F(Walking, TakesASocketForAFolderAndAbortsThere) {
  fs::create_directory("s");
  ASSERT_EQ(mknod("s/socket", S_IFSOCK | 0600, 0), 0);
  EXPECT_EQ(Walk()("s", WALK_FOLDERS, false), "s/socket");
  EXPECT_EQ(Walk()("s", WALK_FILES, false), "");
  expectAbort("s", WALK_FILES, true);
}

TEST(WalkedEntries, AreCopiedByTheirLengthAndSortedByTheirDirectoryBit) {
  void* const pages =
      mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  char* const end = static_cast<char*>(pages) + 4096;
  ASSERT_EQ(mprotect(end, 4096, PROT_NONE), 0);
  auto* const entry = reinterpret_cast<dirent*>(end - 24);
  std::strcpy(entry->d_name, "abcd");  // ends where the page does
  flist list{0, 0, nullptr};
  while (list.count < 32) {
    entry->d_type = static_cast<unsigned char>(list.count);
    entry->d_reclen = list.count % 2 == 0 ? 24 : 0;  // what a program fills in may have none
    xAddFile(&list, entry);
    EXPECT_EQ(list.capacity, list.count <= 16 ? 16 : 32) << list.count;
  }
  munmap(pages, 8192);
  const std::string after(1 << 16, ' ');  // so that the list moves
  xAddFile(&list, list.entries);
  EXPECT_EQ(list.capacity, 64);
  EXPECT_EQ(list.entries[32].d_ino, 0U);  // which a released block would not keep
  for (int i = 0; i < 16; ++i) {
    const bool isFolder = (i & 4) != 0;
    EXPECT_EQ(std::string(list.entries[i].d_name, 256), "abcd" + std::string(252, '\0')) << i;
    EXPECT_EQ(xSortFiles(&list.entries[i], &list.entries[DT_REG]), isFolder ? -1 : 0) << i;
    EXPECT_EQ(xSortFiles(&list.entries[i], &list.entries[DT_DIR]), isFolder ? 0 : 1) << i;
  }
  std::free(list.entries);
}

TEST(WalkedEntries, HaveNamesOfAtMost255Bytes) {
  flist list{0, 0, nullptr};
  dirent entry{};
  std::memset(entry.d_name, 'n', sizeof entry.d_name);
  xAddFile(&list, &entry);
  EXPECT_EQ(list.entries[0].d_name, std::string(255, 'n'));
  std::free(list.entries);
}

TEST(WalkedEntries, EndTheProcessWhereTheyAreTooMany) {
  flist full{1 << 30, 1 << 30, nullptr};
  dirent entry{};
  EXPECT_EXIT(xAddFile(&full, &entry), testing::ExitedWithCode(1), "^Out of memory\n$");
}

TEST_F(FileList, HoldsAllNamesOfAFolderInTheSystemsOrder) {
  tree("b, a 'b' \"c\"\n, .h/, 1, 2");
  Words names;
  std::vector<std::wstring> wideNames;
  DIR* const folder = opendir(".");
  while (const dirent* entry = readdir(folder)) {
    names.push_back(entry->d_name);
    wideNames.push_back(widened(entry->d_name));
  }
  closedir(folder);
  EXPECT_EQ(names.size(), 7U);
  EXPECT_EQ(effect([this] { return xGetFileList(dir.path()); }), Effect(names));
  EXPECT_EQ(effect([] { return xGetFileList(std::wstring(L".")); }), Effect(wideNames));
}

TEST_F(FileList, IsNotAskedFromTheUser) {
  std::string text;
  std::wstring wide;
  Words names;
  std::vector<std::wstring> wideNames;
  std::vector<Words> filters;
  const Effect refused(false, "Not supported!\n");
  EXPECT_EQ(effect([&] { return xGetFileNames(text, text, names); }), refused);
  EXPECT_EQ(effect([&] { return xGetFileNames(wide, wide, wideNames); }), refused);
  EXPECT_EQ(xCPFileDialog(&text, text.data(), text.data(), filters, text.data(), 1), 0);
}

using FileListLocale = KnownLocales;

TEST_F(FileListLocale, TruncatesTheWideFolderAndItsNames) {
  tree("日日/é日/, 日日/a\xff");
  for (const std::wstring folder : {L"./日日", L"日日日"}) {
    std::vector<std::wstring> names;
    EXPECT_EQ(localeAfter([&] { names = xGetFileList(folder); }), "chinese");
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::wstring>{L".", L"..", L"a", L"é日"}));
  }
}

}  // namespace
