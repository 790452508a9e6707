#include "Brindle/XFileTool/walking.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>

#include "support/KnownLocales.h"
#include "support/Outcome.h"

/// Enters a folder as the system does, but for one that vanishes just before.
extern "C" int chdir(const char* path) noexcept {
  if (std::strcmp(path, "vanishing") == 0) rmdir(path);
  return static_cast<int>(syscall(SYS_chdir, path));
}

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using Paths = std::vector<std::string>;
using FileList = InScratchDir;

struct Walking : InScratchDir {
  ~Walking() override {
    for (int i = 0; i < count; ++i) std::free(files[i]);
    std::free(files);
  }
  Paths walked(const char* path, FILE_WALKING_OPTION option, bool recursive) {
    std::error_code removed;
    const fs::path before = fs::current_path(removed);
    xDirWalking(path, files, count, option, recursive);
    EXPECT_EQ(fs::current_path(removed), before);
    return {files, files + count};
  }
  void expectAbort(const char* path, FILE_WALKING_OPTION option, bool recursive) {
    EXPECT_EXIT(walked(path, option, recursive), testing::KilledBySignal(SIGABRT), "^$") << path;
  }
  char** files = nullptr;
  int count = 0;
};

TEST_F(Walking, ListsFoldersFirstByBytesAndDepthFirst) {
  for (const char* folder : {"r/b", "r/a/\n ", "r/a/e", "r/..."}) fs::create_directories(folder);
  const Paths plain = {"r/z",         "r/B",   "r/9",  "r/10", "r/\xE4",
                       "r/a/\n /'\"", "r/b/x", "r/.h", "r/..a"};
  for (const std::string& file : plain) dir.write(file, "");
  fs::create_directory_symlink(".", "r/link");
  ASSERT_EQ(mkfifo("r/p", 0600), 0);
  const Paths all = {"r/...",  "r/a", "r/b", "r/..a",  "r/.h",    "r/10",  "r/9",         "r/B",
                     "r/link", "r/p", "r/z", "r/\xE4", "r/a/\n ", "r/a/e", "r/a/\n /'\"", "r/b/x"};
  for (const int option : {-5, 0, 1, 2, 3}) {
    for (const bool recursive : {false, true}) {
      Paths expected;
      std::copy_if(all.begin(), all.end(), std::back_inserter(expected), [=](const auto& path) {
        const bool isFolder = fs::is_directory(fs::symlink_status(path));
        return (recursive || std::count(path.begin(), path.end(), '/') == 1) && option != (isFolder ? 0 : 1);
      });
      EXPECT_EQ(walked("r", FILE_WALKING_OPTION(option), recursive), expected) << option;
    }
  }
  EXPECT_EQ(walked(files[1], WALK_FILES, true), Paths{"r/a/\n /'\""});  // releases its own path
  EXPECT_TRUE(walked("r/a/e", WALK_ALL, true).empty() && files != nullptr);
}

TEST_F(Walking, AppendsTheWorkingDirectoryUnderAnyPrefix) {
  dir.write("x", "");
  std::list<std::string> paths = {"kept"};
  for (const char* prefix : {"p q", "", "/r/", static_cast<const char*>(nullptr)}) {
    xWalking(prefix, paths, WALK_ALL, true);
  }
  EXPECT_EQ(paths, (std::list<std::string>{"kept", "p q/x", "/x", "/r//x", "/x"}));
}

TEST_F(Walking, GoesOnOneLevelTooHighBehindAFolderThatCannotBeEntered) {
  fs::create_directories("r/vanishing");
  fs::create_directory("r/z");
  const Paths all = {"r/vanishing", "r/z", "r/vanishing/z", "r/z/r", "r/z/r/z"};
  EXPECT_EQ(walked("r", WALK_ALL, true), all);
  fs::create_directory("r/vanishing");
  fs::remove("r/z");
  fs::current_path("r");
  std::list<std::string> paths;
  xWalking("p", paths, WALK_ALL, true);
  EXPECT_EQ(paths, std::list<std::string>{"p/vanishing"});
  EXPECT_TRUE(fs::equivalent(fs::current_path(), dir.path()));
}

TEST_F(Walking, AbortsAtPathsOf255BytesAndAtSockets) {
  std::string longest(252, 'x'), deep = "r";
  for (const char* folder : {"d", "f", "s"}) fs::create_directory(folder);
  fs::create_directory("d/" + longest);
  dir.write("f/" + longest, "");
  EXPECT_EQ(walked("f", WALK_ALL, true), Paths{"f/" + longest});
  EXPECT_EQ(walked("d", WALK_ALL, true), Paths{"d/" + longest});
  EXPECT_TRUE(walked("f/", WALK_FOLDERS, true).empty() && walked("d/", WALK_FILES, false).empty());
  expectAbort("f/", WALK_ALL, false);
  expectAbort("d/", WALK_FILES, true);

  ASSERT_EQ(mknod("s/socket", S_IFSOCK | 0600, 0), 0);
  EXPECT_EQ(walked("s", WALK_FOLDERS, false), Paths{"s/socket"});
  expectAbort("s", WALK_FILES, true);
  for (int level = 0; level < 126; ++level) deep += "/d";
  fs::create_directories(deep);
  EXPECT_EQ(walked("r/", WALK_FOLDERS, true).size(), 126U);
  expectAbort("r//", WALK_FOLDERS, true);
}

TEST_F(Walking, ReportsWhatItCannotEnterOrRead) {
  fs::permissions(dir.path(), fs::perms(0755));
  fs::create_directories("r/shut");
  fs::create_directories("r/z/y");
  const Paths all = {"r/shut", "r/z", "r/z/y"};
  const auto expectPrinted = [&](const char* path, const std::string& printed) {
    EXPECT_EQ(outcome([&] { return walked(path, WALK_ALL, true); }), std::pair(all, printed));
  };
  expectPrinted("r", "");
  expectPrinted("missing", "Error: cannot goto target directory!\n");
  expectPrinted(nullptr, "Error: cannot goto target directory!\n");
  const std::string half(130, 'h');
  fs::create_directories(half + "/" + half);
  fs::current_path(half + "/" + half);
  expectPrinted(".", "Error: cannot get current working directory!\n");
  fs::remove(fs::current_path());
  expectPrinted("/", "Error: cannot get current working directory!\n");
  fs::current_path(dir.path());

  fs::permissions("r/shut", fs::perms(0311));  // may be entered, but not read
  const bool isPlainUser = geteuid() != 0 || seteuid(65534) == 0;
  const std::string below = dir / "r/z/y";
  const bool mayWalk = faccessat(AT_FDCWD, below.c_str(), R_OK | X_OK, AT_EACCESS) == 0;
  if (isPlainUser && mayWalk) expectPrinted("r", "Error: cannot open directory r/shut\n");
  ASSERT_EQ(seteuid(getuid()), 0);
  fs::permissions("r/shut", fs::perms(0700));
  if (!isPlainUser || !mayWalk) GTEST_SKIP() << "root reads everything, and others nothing here";
}

TEST(WalkedEntries, AreCopiedByTheirLengthAndSortedByTheirDirectoryBit) {
  void* pages = mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  char* const end = static_cast<char*>(pages) + 4096;
  ASSERT_EQ(mprotect(end, 4096, PROT_NONE), 0);
  auto* entry = reinterpret_cast<dirent*>(end - 24);
  std::strcpy(entry->d_name, "abc");
  flist list{0, 0, nullptr};
  while (list.count < 32) {
    entry->d_type = static_cast<unsigned char>(list.count);
    entry->d_reclen = list.count % 2 == 0 ? 24 : 0;  // what a program fills in may have none
    xAddFile(&list, entry);
    EXPECT_EQ(list.capacity, list.count <= 16 ? 16 : 32);
  }
  const std::string behind(1 << 16, ' ');  // so that the list moves
  xAddFile(&list, list.entries);
  EXPECT_EQ(list.capacity, 64);
  EXPECT_EQ(std::memcmp(&list.entries[32], &list.entries[0], 24), 0);
  for (int i = 0; i < 16; ++i) {
    const bool isFolder = (i >= 4 && i <= 7) || i >= 12;
    EXPECT_EQ(std::string(list.entries[i].d_name, 256), "abc" + std::string(253, '\0'));
    EXPECT_EQ(xSortFiles(&list.entries[i], &list.entries[DT_REG]), isFolder ? -1 : 0) << i;
    EXPECT_EQ(xSortFiles(&list.entries[i], &list.entries[DT_DIR]), isFolder ? 0 : 1) << i;
  }
  std::free(list.entries);
  flist full{1 << 30, 1 << 30, nullptr};
  EXPECT_EXIT(xAddFile(&full, entry), testing::ExitedWithCode(1), "^Out of memory\n$");
  munmap(pages, 8192);
}

TEST_F(FileList, HoldsAllNamesOfAFolderInTheSystemsOrder) {
  for (const char* name : {"b", "a b \"c\"\n", ".h", "1", "2"}) dir.write(name, "");
  Paths names;
  DIR* folder = opendir(".");
  while (const dirent* entry = readdir(folder)) names.push_back(entry->d_name);
  closedir(folder);
  EXPECT_EQ(names.size(), 7U);
  EXPECT_EQ(xGetFileList(dir.path()), names);
  std::vector<std::wstring> wideNames;
  for (const auto& name : names) wideNames.emplace_back(name.begin(), name.end());
  EXPECT_EQ(xGetFileList(std::wstring(L".")), wideNames);
  EXPECT_TRUE(xGetFileList(std::string("b")).empty() && xGetFileList(std::wstring()).empty());
}

TEST_F(KnownLocales, CutTheWideFolderThatIsListedAndItsNames) {
  fs::create_directories("日日/é日");
  dir.write("日日/a\xff", "");
  for (const std::wstring folder : {L"./日日", L"日日日"}) {
    std::vector<std::wstring> names;
    EXPECT_EQ(localeAfter([&] { names = xGetFileList(folder); }), "chinese");
    EXPECT_EQ(std::set(names.begin(), names.end()), (std::set{L"."s, L".."s, L"a"s, L"é日"s}));
  }
}

TEST_F(FileList, IsNotAskedFromTheUser) {
  std::string text = "t";
  std::wstring wideText = L"t";
  Paths names = {"n"};
  std::vector<std::wstring> wideNames = {L"n"};
  std::vector<Paths> filters = {names};
  const std::pair refusal(false, std::string("Not supported!\n"));
  EXPECT_EQ(outcome([&] { return xGetFileNames(text, text, names); }), refusal);
  EXPECT_EQ(outcome([&] { return xGetFileNames(wideText, wideText, wideNames); }), refusal);
  const auto ask = [&] {
    return xCPFileDialog(&text, text.data(), text.data(), filters, text.data(), 1);
  };
  EXPECT_EQ(outcome(ask), std::pair(0, std::string()));
  EXPECT_TRUE(text == "t" && names == Paths{"n"} && filters == std::vector<Paths>{{"n"}});
  EXPECT_TRUE(wideText == L"t" && wideNames == std::vector<std::wstring>{L"n"});
}

}  // namespace
