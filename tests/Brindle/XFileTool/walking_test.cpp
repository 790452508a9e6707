#include "Brindle/XFileTool/walking.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "support/ScratchDir.h"

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

/// Works in a folder of its own.
struct Walking : testing::Test {
  Walking() { fs::current_path(dir.path()); }
  ~Walking() override {
    for (int i = 0; i < count; ++i) std::free(files[i]);
    std::free(files);
    fs::current_path("/");
  }
  Paths walked(const char* path, FILE_WALKING_OPTION option, bool recursive) {
    const fs::path before = fs::current_path();
    xDirWalking(path, files, count, option, recursive);
    EXPECT_EQ(fs::current_path(), before);
    return {files, files + count};
  }
  void expectAbort(const char* path, FILE_WALKING_OPTION option, bool recursive) {
    EXPECT_EXIT(walked(path, option, recursive), testing::KilledBySignal(SIGABRT), "^$") << path;
  }
  const ScratchDir dir;
  char** files = nullptr;
  int count = 0;
};

TEST_F(Walking, ListsFoldersFirstByBytesAndDepthFirst) {
  for (const char* folder : {"r/b", "r/a/\n ", "r/a/e"}) fs::create_directories(folder);
  for (const char* file : {"r/z", "r/B", "r/9", "r/10", "r/\xE4", "r/a/\n /'\"", "r/b/x"}) {
    dir.write(file, "");
  }
  fs::create_directory_symlink(".", "r/link");
  ASSERT_EQ(mkfifo("r/p", 0600), 0);
  const Paths all = {"r/a", "r/b",    "r/10",    "r/9",   "r/B",         "r/link", "r/p",
                     "r/z", "r/\xE4", "r/a/\n ", "r/a/e", "r/a/\n /'\"", "r/b/x"};
  for (const int option : {-5, 0, 1, 2, 3}) {
    for (const bool recursive : {false, true}) {
      Paths expected;
      std::copy_if(all.begin(), all.end(), std::back_inserter(expected), [=](const auto& path) {
        const bool isFolder = fs::is_directory(fs::symlink_status(path));
        return (recursive || std::ranges::count(path, '/') == 1) && option != (isFolder ? 0 : 1);
      });
      EXPECT_EQ(walked("r", FILE_WALKING_OPTION(option), recursive), expected) << option;
    }
  }
  EXPECT_EQ(walked(files[0], WALK_FILES, true), Paths{"r/a/\n /'\""});  // releases its own path
  EXPECT_TRUE(walked("r/a/e", WALK_ALL, true).empty() && files != nullptr);
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
  const auto expectPrinted = [this](const char* path, const std::string& printed) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(walked(path, WALK_ALL, true), (Paths{"r/shut", "r/z", "r/z/y"}));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
  };
  expectPrinted("r", "");
  expectPrinted("missing", "Error: cannot goto target directory!\n");
  expectPrinted(nullptr, "Error: cannot goto target directory!\n");
  const std::string half(130, 'h');
  fs::create_directories(half + "/" + half);
  fs::current_path(half + "/" + half);
  expectPrinted(".", "Error: cannot get current working directory!\n");
  fs::current_path(dir.path());

  fs::permissions("r/shut", fs::perms(0311));  // may be entered, but not read
  if (geteuid() == 0 && seteuid(65534) != 0) GTEST_SKIP() << "there is only root here";
  expectPrinted("r", "Error: cannot open directory r/shut\n");
  ASSERT_EQ(seteuid(getuid()), 0);
  fs::permissions("r/shut", fs::perms(0700));
}

TEST(WalkedEntries, AreCopiedByTheirLengthAndSortedByTheirDirectoryBit) {
  void* pages = mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  char* const end = static_cast<char*>(pages) + 4096;
  ASSERT_EQ(mprotect(end, 4096, PROT_NONE), 0);
  auto* entry = reinterpret_cast<dirent*>(end - 24);
  std::strcpy(entry->d_name, "abc");
  flist list{0, 0, nullptr};
  while (list.count < 33) {
    entry->d_type = static_cast<unsigned char>(list.count);
    entry->d_reclen = list.count % 2 == 0 ? 24 : 0;  // what a program fills in may have none
    xAddFile(&list, entry);
    EXPECT_EQ(list.capacity, list.count <= 16 ? 16 : list.count <= 32 ? 32 : 64);
  }
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

TEST(FileList, HoldsAllNamesOfAFolder) {
  const ScratchDir dir;
  for (const char* name : {"b", "a b \"c\"\n", ".h"}) dir.write(name, "");
  Paths names;
  const std::wstring wide(dir.path().begin(), dir.path().end());
  for (const auto& name : xGetFileList(wide)) names.emplace_back(name.begin(), name.end());
  EXPECT_EQ(xGetFileList(dir.path()), names);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Paths{".", "..", ".h", "a b \"c\"\n", "b"}));
  EXPECT_TRUE(xGetFileList(dir / "b").empty() && xGetFileList(std::wstring()).empty());
}

TEST(FileList, IsNotAskedFromTheUser) {
  std::string text;
  Paths names;
  testing::internal::CaptureStdout();
  EXPECT_FALSE(xGetFileNames(text, text, names));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Not supported!\n");
}

}  // namespace
