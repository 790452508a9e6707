// Every allocation of every function that allocates fails once: nothing may crash or leak.
//
// The linker routes the libraries' calls of malloc and its kin to the wrappers below (--wrap);
// those of operator new end there too.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <list>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "Brindle/BrindleErrcode.h"
#include "Brindle/XFileTool.h"
#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility.h"
#include "FeatureReader.h"
#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"
#include "support/Bitstream.h"
#include "support/ScratchDir.h"

namespace {

long failAt = -1;  // the allocation that fails, counted from 0; -1 for none
long allocations = 0;
long live = 0;

bool mayAllocate() {
  return allocations++ != failAt;
}

void* counted(void* block) {
  live += block != nullptr;
  return block;
}

}  // namespace

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
int __real_posix_memalign(void** block, std::size_t alignment, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
  return mayAllocate() ? counted(__real_malloc(size)) : nullptr;
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
  return mayAllocate() ? counted(__real_calloc(count, size)) : nullptr;
}
void* __wrap_realloc(void* block, std::size_t size) {
  void* const result = mayAllocate() ? __real_realloc(block, size) : nullptr;
  return block == nullptr ? counted(result) : result;
}
int __wrap_posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  const int result = mayAllocate() ? __real_posix_memalign(block, alignment, size) : ENOMEM;
  live += result == 0;
  return result;
}
void __wrap_free(void* block) {
  live -= block != nullptr;
  __real_free(block);
}
}

void* operator new(std::size_t size) {
  if (void* const block = __wrap_malloc(size)) return block;
  throw std::bad_alloc();
}
// clang-format off
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return __wrap_malloc(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return __wrap_malloc(n); }
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete[](void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __wrap_free(block); }
// clang-format on

namespace {

const std::string kBitstream = bitstreamHeader(7, 2) + frame("feature1") + frame("feature2");

/// Runs `call` once for each of its allocations, which then fails, and once without a failure.
/// Returns how many there were.
long runWithFailures(const std::function<void()>& call, const char* name) {
  for (long failing = 0;; ++failing) {
    const long liveBefore = live;
    allocations = 0;
    failAt = failing;
    try {
      call();
    } catch (const std::bad_alloc&) {
    }
    failAt = -1;
    EXPECT_EQ(live, liveBefore) << name << " leaks when allocation " << failing << " fails";
    if (allocations <= failing) return allocations;
  }
}

TEST(Faults, OfAllocationsLeakNothing) {
  const ScratchDir dir;
  const std::string small = dir.write("small", "contents"), longText(500, 'a');
  const std::string large = dir.write("large", std::string(5 << 20, 'x'));
  const std::wstring wideText(500, L'a');
  const std::string copy = dir / "copy", nested = dir / "a/b/c";
  std::vector<double> values(144, 1.5);
  std::vector<double*> rows;
  for (std::size_t i = 0; i < 12; ++i) rows.push_back(&values[12 * i]);
  std::vector<unsigned char> bytes(64 * 64, 200);
  using Floats = std::vector<float>;
  Floats data(30, 2.0F);
  const std::vector<Point2Df> line(40, {1, 2});
  unsigned char *buffer = nullptr, *packed = nullptr;
  std::uint64_t length = 0;
  unsigned long bits = 0;
  float *mean = nullptr, sd = 0;
  const auto release = [](auto*& block) { std::free(std::exchange(block, nullptr)); };
  const auto load = [&](const std::string& path, std::uint64_t expected) {
    xLoadBinFile(path.c_str(), buffer, length);
    EXPECT_EQ(length, expected);
    release(buffer);
  };

  // clang-format off
  const struct { const char* name; std::function<void()> call; } cases[] = {
      {"FeatureReader", [] { FeatureReader().read(kBitstream.data(), 264, 8); }},
      {"xLoadBinFile", [&] { load(small, 8); load(large, 5 << 20); }},
      {"xReadWholeFile", [&] { xReadWholeFile(large.c_str()); }},
      {"xReadWholeFile2", [&] { std::string contents; xReadWholeFile2(large.c_str(), contents); }},
      {"xExplainErrorFromBrindle", [] { xExplainErrorFromBrindle(-12345); }},
      {"str2wstr", [&] { str2wstr(longText, "C"); }},
      {"wstr2str", [&] { wstr2str(wideText, "C"); }},
      {"trimTailSpacesInString", [&] { trimTailSpacesInString(longText); }},
      {"replaceSubString", [&] { std::string text = longText; replaceSubString(text, "a", "bb"); }},
      {"stringTokenizer", [&] { stringTokenizer(longText + ";" + longText, ";"); }},
      {"getPathLastName", [&] { getPathLastName("/" + longText + "/" + longText); }},
      {"msec2FormatedString", [] { msec2FormatedString(UINT64_MAX); }},
      {"xGetFileExtension", [] { std::free(xGetFileExtension("a.txt")); }},
      {"xGetFileNameExtension", [] { std::free(xGetFileNameExtension(L"b/a.txt")); }},
      {"xGetFileNameFolderPath", [&] { xGetFileNameFolderPath(longText, true, false, false); }},
      {"xUniformFilePath", [&] { xUniformFilePath(longText); }},
      {"xFixFolderPath", [&] { xFixFolderPath(longText); }},
      {"xIsPathAbsolute", [&] { xIsPathAbsolute(longText); }},
      {"xIsDirExist", [] { xIsDirExist(L"/tmp"); }},
      {"xCreateNestedDir", [&] { xCreateNestedDir(nested, 0); }},
      {"xDeleteDir", [&] { xDeleteDir((dir / "a").c_str()); }},
      {"xDeleteFile", [&] { xDeleteFile(wideText, -1, 0); }},
      {"xConcatBinaryFiles", [&] { xConcatBinaryFiles({longText}, copy); }},
      {"xFileCopy", [&] { xFileCopy(large.c_str(), copy.c_str(), true); }},
      {"xGetFileList", [&] { xGetFileList(dir.path()); }},
      {"xGetCurrentAppDir", [] { xGetCurrentAppDir(); }},
      {"xGetEnvVariable", [] { xGetEnvVariable("PATH"); }},
      {"allocate2DDouble", [] { double** m = allocate2DDouble(5, 5); safeDelete2DDouble(5, m); }},
      {"matrixDet", [&] { matrixDet(rows.data(), 11); }},
      {"polylineAngle", [&] { Floats angles; polylineAngle(line, angles, true, 2, 2); }},
      {"polylineToCurvature", [&] { Floats found; polylineToCurvature(line, found, 2, 2); }},
      {"findMeanAndSD", [&] { findMeanAndSD(data.data(), 3, 10, mean, sd); release(mean); }},
      {"byte2BitData", [&] { byte2BitData(bytes.data(), 60, 60, packed, bits); release(packed); }},
      {"ORV_Nearest", [&] {
        ORV_Match found[4];
        const int status = ORV_Nearest("target", 1, longText.data(), 83, 6, 4, 1, found);
        EXPECT_EQ(status, failAt >= 0 && failAt < allocations ? ORV_OUT_OF_MEMORY : ORV_FOUND);
      }},
      {"erosion", [&] { erosion(bytes.data(), 64, 64); }},
  };
  // clang-format on
  testing::internal::CaptureStdout();
  std::vector<std::string> without;
  for (const auto& c : cases) {
    if (runWithFailures(c.call, c.name) == 0) without.push_back(c.name);
  }
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(without, std::vector<std::string>()) << "these allocate nothing and prove nothing";
}

TEST(Faults, OfSortsLeaveTheArrayAsItWasAndPrintNothing) {
  const auto check = [](auto sort, auto values) {
    const auto before = values;
    testing::internal::CaptureStdout();
    const long liveBefore = live;
    allocations = failAt = 0;
    EXPECT_THROW(sort(values.data(), static_cast<int>(values.size())), std::bad_alloc);
    failAt = -1;
    EXPECT_EQ(live, liveBefore);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(values, before);
  };
  check(radixSort, std::vector<int>{512, 7, 33, 4096});
  check(radixSortUChar, std::vector<unsigned char>{15, 12, 18});
}

TEST(Faults, NeverReachTheComparison) {
  double distance = 0;
  allocations = 0;
  ORV_CompareFeatures("feature2", 8, kBitstream.data(), 264, &distance);
  EXPECT_EQ(distance, 0.0);
  EXPECT_EQ(allocations, 0);
}

TEST(Faults, OfTheLastPathOfAWalkKeepWhatWasListedBefore) {
  const ScratchDir dir;
  ASSERT_EQ(xCreateDir((dir / "folder").c_str(), 0), -20067);
  dir.write("folder/file", "");
  std::filesystem::current_path(dir.path());
  std::list<std::string> paths;
  allocations = 0;
  xWalking(".", paths, WALK_ALL, true);
  const long last = allocations - 1;

  paths.clear();
  allocations = 0, failAt = last;
  EXPECT_THROW(xWalking(".", paths, WALK_ALL, true), std::bad_alloc);
  EXPECT_EQ(paths, std::list<std::string>{"./folder"});
  EXPECT_EQ(std::filesystem::current_path(), dir / "folder");

  std::filesystem::current_path(dir.path());
  char** files = nullptr;
  int count = 7;
  allocations = 0;
  EXPECT_THROW(xDirWalking(".", files, count, WALK_ALL, true), std::bad_alloc);
  failAt = -1;
  EXPECT_EQ(std::filesystem::current_path(), dir.path());
  EXPECT_TRUE(files == nullptr && count == 7);
  std::filesystem::current_path("/");
}

TEST(Faults, OfTheWalkersMemoryEndTheProcess) {
  const ScratchDir dir;
  dir.write("file", "");
  char** files = nullptr;
  int count = 0;
  // The walk's own strings may throw first; its records may not be allocated at all.
  const auto walk = [&] { xDirWalking(dir.path().c_str(), files, count, WALK_ALL, true); };
  EXPECT_EXIT(runWithFailures(walk, "xDirWalking"), testing::ExitedWithCode(1),
              "^Out of memory\n$");
}

TEST(Faults, OfDisksAreReported) {
  const ScratchDir dir;
  const std::string source = dir.write("source", std::string(100'000, 'x')), copy = dir / "copy";
  const std::string file = dir.write("file", "");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit tight{50'000, before.rlim_max};
  testing::internal::CaptureStdout();
  setrlimit(RLIMIT_FSIZE, &tight);
  const int copied = xFileCopy(source.c_str(), copy.c_str(), true);
  const int writtenBehind = xWriteFileThroughCache(file.c_str(), "data", 4, 60'000);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(xWriteFileThroughCache("/dev/full", "data", 4, 0), -20054);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Error in writing 4 byte data to " + file +
                ": File too large (errno 27)\nError in writing 4 byte data to /dev/full: No space "
                "left on device (errno 28)\n");
  EXPECT_EQ(copied, -1);
  EXPECT_EQ(writtenBehind, -20054);
}

}  // namespace
