#include "Brindle/XFileTool/loading.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <new>
#include <string>

#include "support/OpenFiles.h"
#include "support/ScratchDir.h"

namespace {

struct Loaded {
  explicit Loaded(const std::string& path) { xLoadBinFile(path.c_str(), buffer, length); }
  ~Loaded() { std::free(buffer); }
  std::string bytes() const { return {reinterpret_cast<const char*>(buffer), length}; }

  unsigned char* buffer = nullptr;
  std::uint64_t length = 99;
};

TEST(Loading, KeepsEveryByte) {
  const ScratchDir dir;
  const OpenFiles remain;
  for (const std::size_t size : {1UL, 4095UL, 4096UL, (2UL << 20) - 1, 2UL << 20, 5'000'001UL}) {
    const std::string bytes = randomBytes(size, 3);
    EXPECT_TRUE(Loaded(dir.write("file", bytes)).bytes() == bytes) << size;
    std::string contents = "previous";
    EXPECT_EQ(xReadWholeFile2((dir / "file").c_str(), contents), 0);
    EXPECT_TRUE(contents == bytes && xReadWholeFile((dir / "file").c_str()) == bytes) << size;
  }
  EXPECT_EQ(Loaded(dir.write("zeros", std::string(3, '\0'))).bytes(), std::string(3, '\0'));
}

TEST(Loading, OfAMissingFileLeavesTheBuffer) {
  for (const char* path : {"/nonexistent/file", "", static_cast<const char*>(nullptr)}) {
    unsigned char byte = 0;
    unsigned char* buffer = &byte;
    std::uint64_t length = 99;
    xLoadBinFile(path, buffer, length);
    EXPECT_EQ(buffer, &byte);
    EXPECT_EQ(length, 0U);
    std::string contents = "previous";
    EXPECT_EQ(xReadWholeFile2(path, contents), -20050);
    EXPECT_EQ(contents + xReadWholeFile(path), "previous");
  }
}

TEST(Loading, OfAnEmptyFileGivesLengthZero) {
  const ScratchDir dir;
  EXPECT_EQ(Loaded(dir.write("empty", "")).length, 0U);
  std::string contents = "previous";
  EXPECT_EQ(xReadWholeFile2((dir / "empty").c_str(), contents), 0);
  EXPECT_EQ(contents, "");
}

TEST(Loading, OfWhatHasNoSizeGivesNoBytes) {
  const ScratchDir dir;
  const std::string pipe = dir / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::FILE* bothEnds = std::fopen(pipe.c_str(), "r+");  // opening it for reading need not wait
  ASSERT_NE(bothEnds, nullptr);
  for (const std::string& path : {pipe, dir.path()}) {
    std::string contents = "previous";
    EXPECT_EQ(xReadWholeFile2(path.c_str(), contents), -20050) << path;
    EXPECT_EQ(contents + xReadWholeFile(path.c_str()), "previous") << path;
    const Loaded loaded(path);
    EXPECT_EQ(loaded.buffer, nullptr) << path;
    EXPECT_EQ(loaded.length, UINT64_MAX) << path;
  }
  std::fclose(bothEnds);
}

TEST(Loading, FillsWhatCannotBeReadWithZeros) {
  // The kernel gives sysfs files a size of one page, whatever they hold.
  const std::string path = "/sys/kernel/mm/transparent_hugepage/enabled";
  struct stat status;
  if (stat(path.c_str(), &status) != 0) GTEST_SKIP() << "no sysfs here";
  const Loaded loaded(path);
  ASSERT_EQ(loaded.length, static_cast<std::uint64_t>(status.st_size));
  const std::string bytes = loaded.bytes();
  const std::size_t end = bytes.find('\0');
  ASSERT_NE(end, std::string::npos);
  EXPECT_EQ(bytes.substr(end), std::string(bytes.size() - end, '\0'));

  EXPECT_EQ(xReadWholeFile(path.c_str()), bytes);
  std::string contents(end + 1, 'x');
  EXPECT_EQ(xReadWholeFile2(path.c_str(), contents), 0);
  EXPECT_EQ(contents, bytes.substr(0, end) + 'x' + bytes.substr(end + 1));
}

#ifndef __SANITIZE_ADDRESS__  // its allocator ends the program instead

TEST(Loading, WithoutMemoryKeepsTheLengthOrThrows) {
  const OpenFiles remain;
  const int sparse = memfd_create("sparse", 0);
  const std::string path = "/proc/self/fd/" + std::to_string(sparse);
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_DATA, &before), 0);
  const rlimit tight{std::uint64_t{4} << 30, before.rlim_max};
  for (const int bits : {43, 48}) {
    ASSERT_EQ(ftruncate(sparse, off_t{1} << bits), 0);
    std::string contents = "previous";
    setrlimit(RLIMIT_DATA, &tight);
    const Loaded loaded(path);
    EXPECT_THROW(xReadWholeFile2(path.c_str(), contents), std::bad_alloc) << bits;
    setrlimit(RLIMIT_DATA, &before);
    EXPECT_EQ(loaded.buffer, nullptr);
    EXPECT_EQ(loaded.length, std::uint64_t{1} << bits);
    EXPECT_EQ(contents, "previous");
  }
  close(sparse);
}

#endif

}  // namespace
