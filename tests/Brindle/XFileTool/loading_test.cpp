#include "Brindle/XFileTool/loading.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cstdlib>
#include <new>

#include "support/Bytes.h"
#include "support/InScratchDir.h"

namespace {

struct Loaded {
  explicit Loaded(const std::string& path) { xLoadBinFile(path.c_str(), buffer, length); }
  ~Loaded() { std::free(buffer); }
  std::string bytes() const { return {reinterpret_cast<const char*>(buffer), length}; }

  unsigned char* buffer = nullptr;
  std::uint64_t length = 99;
};

struct Loading : InScratchDir {
  int read(const char* path) { return xReadWholeFile2(path, contents); }
  std::string contents = "previous";
};

TEST_F(Loading, KeepsEveryByte) {
  for (const std::size_t size : {1UL, 4095UL, 4096UL, (2UL << 20) - 1, 2UL << 20, 5'000'001UL}) {
    const std::string bytes = randomBytes(size, 3);
    EXPECT_TRUE(Loaded(dir.write("file", bytes)).bytes() == bytes) << size;
    contents = "previous";
    EXPECT_EQ(read("file"), 0);
    EXPECT_TRUE(contents == bytes && xReadWholeFile("file") == bytes) << size;
  }
  EXPECT_EQ(Loaded(dir.write("zeros", std::string(3, '\0'))).bytes(), std::string(3, '\0'));
  EXPECT_EQ(Loaded(dir.write("empty", "")).length, 0U);
  EXPECT_EQ(read("empty"), 0);
  EXPECT_EQ(contents, "");
}

TEST_F(Loading, OfAMissingFileLeavesTheBuffer) {
  for (const char* path : {"/nonexistent/file", "", static_cast<const char*>(nullptr)}) {
    unsigned char byte = 0;
    unsigned char* buffer = &byte;
    std::uint64_t length = 99;
    xLoadBinFile(path, buffer, length);
    EXPECT_TRUE(buffer == &byte && length == 0);
    EXPECT_EQ(read(path), -20050);
    EXPECT_EQ(contents + xReadWholeFile(path), "previous");
  }
}

TEST_F(Loading, OfWhatHasNoSizeGivesNoBytes) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  std::FILE* bothEnds = std::fopen("pipe", "r+");  // opening it for reading need not wait
  ASSERT_NE(bothEnds, nullptr);
  for (const char* path : {"pipe", "."}) {
    EXPECT_EQ(read(path), -20050) << path;
    EXPECT_EQ(contents + xReadWholeFile(path), "previous") << path;
    const Loaded loaded(path);
    EXPECT_TRUE(loaded.buffer == nullptr && loaded.length == UINT64_MAX) << path;
  }
  std::fclose(bothEnds);
}

TEST_F(Loading, FillsWhatCannotBeReadWithZeros) {
  // The kernel gives sysfs files a size of one page, whatever they hold.
  const char* path = "/sys/kernel/mm/transparent_hugepage/enabled";
  struct stat status;
  if (stat(path, &status) != 0) GTEST_SKIP() << "no sysfs here";
  const std::string bytes = Loaded(path).bytes();
  ASSERT_EQ(bytes.size(), static_cast<std::size_t>(status.st_size));
  const std::size_t end = bytes.find('\0');
  ASSERT_NE(end, std::string::npos);
  EXPECT_EQ(bytes.substr(end), std::string(bytes.size() - end, '\0'));
  EXPECT_EQ(xReadWholeFile(path), bytes);
  contents.assign(end + 1, 'x');
  EXPECT_EQ(read(path), 0);
  EXPECT_EQ(contents, bytes.substr(0, end) + 'x' + bytes.substr(end + 1));
}

#ifndef __SANITIZE_ADDRESS__  // its allocator ends the program instead

TEST_F(Loading, WithoutMemoryKeepsTheLengthOrThrows) {
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_DATA, &before), 0);
  const rlimit tight{std::uint64_t{4} << 30, before.rlim_max};
  const int sparse = memfd_create("sparse", 0);
  const std::string path = "/proc/self/fd/" + std::to_string(sparse);
  for (const int bits : {43, 48}) {
    ASSERT_EQ(ftruncate(sparse, off_t{1} << bits), 0);
    setrlimit(RLIMIT_DATA, &tight);
    const Loaded loaded(path);
    EXPECT_THROW(read(path.c_str()), std::bad_alloc) << bits;
    setrlimit(RLIMIT_DATA, &before);
    EXPECT_TRUE(loaded.buffer == nullptr && loaded.length == std::uint64_t{1} << bits) << bits;
    EXPECT_EQ(contents, "previous");
  }
  close(sparse);
}

#endif

}  // namespace
