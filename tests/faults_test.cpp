// Every allocation of every function that allocates fails once, in a process of its own. A row of
// data/faults.txt is a call and what then becomes of it; nothing may leak.
//
// The linker routes the libraries' calls of malloc and its kin to the wrappers below (--wrap);
// those of operator new end there too.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
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
#include "support/InScratchDir.h"
#include "support/Program.h"

namespace {

long failAt = -1;  // the allocation that fails, counted from 0; -1 for none
long allocations = 0;
long live = 0;

bool mayAllocate() {
  if (allocations++ != failAt) return true;
  errno = ENOMEM;
  return false;
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
void* operator new[](std::size_t size) {
  return operator new(size);
}
void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
  return __wrap_malloc(n);
}
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept {
  return __wrap_malloc(n);
}
void operator delete(void* block) noexcept {
  __wrap_free(block);
}
void operator delete[](void* block) noexcept {
  __wrap_free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  __wrap_free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  __wrap_free(block);
}

namespace {

using testing::PrintToString;

const std::string kBitstream = bitstreamHeader(7, 2) + frame("feature1") + frame("feature2");
const std::string kLongText(500, 'a');
const std::string kTree =
    "small, a name that is allocated, folder/first, folder/sub/second, chain/of/one";

/// What calls write to.
struct State {
  ~State() {
    std::free(block);
    std::free(mean);
    for (int i = 0; i < count; ++i) std::free(files[i]);
    std::free(files);
  }

  std::map<std::string, std::string> values() const {
    const auto isNull = [](const void* pointer) { return pointer == nullptr ? "null" : "a block"; };
    return {{"block", isNull(block)},
            {"length", PrintToString(length)},
            {"mean", isNull(mean)},
            {"sd", PrintToString(sd)},
            {"text", text},
            {"bytes", PrintToString(bytes)},
            {"numbers", PrintToString(numbers)},
            {"floats", PrintToString(floats)},
            {"xs", PrintToString(xs)},
            {"ys", PrintToString(ys)},
            {"indices", PrintToString(indices)},
            {"paths", PrintToString(paths)},
            {"files", isNull(files)},
            {"count", PrintToString(count)}};
  }

  unsigned char* block = static_cast<unsigned char*>(std::malloc(1));
  std::uint64_t length = 7;
  float* mean = static_cast<float*>(std::malloc(1));
  float sd = 7;
  std::string text = "before";
  std::vector<unsigned char> bytes = {215, 212, 218, 212, 215, 212, 218, 212, 215};
  std::vector<int> numbers = {512, 7, 33, 4096};
  std::vector<float> floats = {7};
  std::list<double> xs, ys;
  std::list<int> indices = {7};
  std::list<std::string> paths;
  char** files = nullptr;
  int count = 0;
};

using Call = std::function<std::string(State&)>;

long failing = 0;    // the allocation that a call is to miss
bool wasHit = true;  // whether it makes that many

void arm() {
  allocations = 0;
  failAt = failing;
}

void disarm() {
  wasHit = allocations > failing;
  failAt = -1;
}

template <class Function>
Call call(const Function& function) {
  return [function](State& state) -> std::string {
    arm();
    if constexpr (std::is_void_v<decltype(function(state))>) {
      function(state);
      disarm();
      return "returns";
    } else {
      const auto result = function(state);
      disarm();
      return "returns " + PrintToString(result);
    }
  };
}

double determinant(State&) {
  std::array<std::array<double, 10>, 10> matrix{};
  std::array<double*, 10> rows;
  for (std::size_t i = 0; i < 10; ++i) {
    matrix[i][i] = 2.0;
    rows[i] = matrix[i].data();
  }
  return matrixDet(rows.data(), 10);
}

bool cross(State& state) {
  double square[] = {0, 0, 4, 0, 4, 4, 0, 4}, other[] = {1, 1, 6, 1, 6, 2, 1, 2};
  return polygonIntersect2D(square, 4, other, 4, &state.xs, &state.ys);
}

void findBigAngles(State& state) {
  double arrow[] = {0, 0, 2, 1, 4, 0, 3, 2, 4, 4, 2, 3, 0, 4};
  getBigAngleIndices2DPolygon(state.indices, arrow, 7, false);
}

void walk(State& state) {
  fs::current_path("folder");
  xWalking(".", state.paths, WALK_ALL, true);
}

void load(State& state) {
  std::free(std::exchange(state.block, nullptr));  // which would not be released
  xLoadBinFile("small", state.block, state.length);
}

/// Of huge pages.
void loadLarge(State& state) {
  fs::resize_file("small", 3 << 20);
  load(state);
  fs::resize_file("small", 5);
}

std::pair<int, int> deleteFolder(State&) {
  const int status = xDeleteDir("chain");
  return {status, errno};
}

void compare(State&) {
  double distance = 0;
  ORV_CompareFeatures("feature2", 8, kBitstream.data(), 264, &distance);
}

int nearest(State&) {
  ORV_Match found[4];
  return ORV_Nearest("target", 1, kLongText.data(), 83, 6, 4, 1, found);
}

const std::vector<Point2Df> kLine(4, {1, 2});

const std::map<std::string, Call> kCalls = {
    {"FeatureReader::read",
     call([](auto&) { return FeatureReader().read(kBitstream.data(), 264, 8).size(); })},
    {"ORV_CompareFeatures", call(compare)},
    {"ORV_Nearest", call(nearest)},
    {"xLoadBinFile", call(load)},
    {"xLoadBinFile(large)", call(loadLarge)},
    {"xExplainErrorFromBrindle", call([](auto&) { return xExplainErrorFromBrindle(-12345); })},
    {"str2wstr", call([](auto&) { return str2wstr(kLongText, "C"); })},
    {"wstr2str", call([](auto&) { return wstr2str(std::wstring(500, L'a'), "C"); })},
    {"trimTailSpacesInString", call([](auto&) { return trimTailSpacesInString(kLongText); })},
    {"replaceSubString", call([](auto& s) { replaceSubString(s.text, "before", kLongText); })},
    {"stringTokenizer", call([](auto&) { return stringTokenizer(kLongText + ";b", ";"); })},
    {"getPathLastName", call([](auto&) { return getPathLastName("a/" + kLongText); })},
    {"msec2FormatedString", call([](auto&) { return msec2FormatedString(UINT64_MAX); })},
    {"xGetFileExtension", call([](auto&) { return xGetFileExtension("a.txt"); })},
    {"xGetFileNameExtension", call([](auto&) { return xGetFileNameExtension(L"b/a.txt"); })},
    {"xGetFileNameFolderPath",
     call([](auto&) { return xGetFileNameFolderPath(kLongText, true, false, false); })},
    {"xUniformFilePath", call([](auto&) { return xUniformFilePath(kLongText); })},
    {"xFixFolderPath", call([](auto&) { return xFixFolderPath(kLongText); })},
    {"xIsPathAbsolute", call([](auto&) { return xIsPathAbsolute(kLongText); })},
    {"xReadWholeFile", call([](auto&) { return xReadWholeFile("a name that is allocated"); })},
    {"xReadWholeFile2",
     call([](auto& s) { return xReadWholeFile2("a name that is allocated", s.text); })},
    {"xIsDirExist", call([](auto&) { return xIsDirExist(L"folder"); })},
    {"xCreateNestedDir",
     call([](auto&) { return xCreateNestedDir("new folder/with another", 0); })},
    {"xDeleteDir", call(deleteFolder)},
    {"xDeleteFile", call([](auto&) { return xDeleteFile(L"small", -1, 0); })},
    {"xConcatBinaryFiles", call([](auto&) {
       return xConcatBinaryFiles({"small", "folder/sub/second"}, "joined");
     })},
    {"xFileCopy", call([](auto&) { return xFileCopy("small", "a name that is allocated", true); })},
    {"xGetFileList", call([](auto&) { return xGetFileList("folder"); })},
    {"xGetCurrentAppDir", call([](auto&) { return xGetCurrentAppDir(); })},
    {"xGetEnvVariable", call([](auto&) { return xGetEnvVariable("PATH"); })},
    {"xWalking", call(walk)},
    {"xDirWalking", call([](auto& s) { xDirWalking("folder", s.files, s.count, WALK_ALL, true); })},
    {"allocate2DDouble", call([](auto&) { return allocate2DDouble(5, 5); })},
    {"matrixDet", call(determinant)},
    {"polylineAngle", call([](auto& s) { return polylineAngle(kLine, s.floats, true, 2, 2); })},
    {"polylineToCurvature",
     call([](auto& s) { return polylineToCurvature(kLine, s.floats, 2, 2); })},
    {"findMeanAndSD",
     call([](auto& s) { return findMeanAndSD(s.floats.data(), 1, 1, s.mean, s.sd); })},
    {"byte2BitData", call([](auto& s) { byte2BitData(s.bytes.data(), 3, 3, s.block, s.length); })},
    {"erosion", call([](auto& s) { return erosion(s.bytes.data(), 3, 3); })},
    {"polygonIntersect2D", call(cross)},
    {"getBigAngleIndices2DPolygon", call(findBigAngles)},
    {"radixSort", call([](auto& s) { radixSort(s.numbers.data(), 4); })},
    {"radixSortUChar", call([](auto& s) { radixSortUChar(s.bytes.data(), 3); })},
};

struct FailingAllocation : InScratchDir {
  /// What the call returns or throws and prints, and all that has changed; empty when it does not
  /// make such an allocation.
  std::string outcome(const Call& call, long which) const {
    tree(kTree);
    const ::Run run = runChild([&] {
      failing = which;
      const long before = live;
      {
        State state;
        const std::map<std::string, std::string> old = state.values();
        Effect found = effect([&] { return Effect(call(state)); });
        if (!wasHit) _exit(0);
        for (const auto& [name, value] : state.values()) {
          if (value != old.at(name)) found.result += "; " + name + " is " + value;
        }
        if (found.folder != kUnchanged) found.result += "; holds " + found.folder;
        if (found.workingDirectory != ".") found.result += "; in " + found.workingDirectory;
        if (found.openFiles != kUnchanged) found.result += "; open files " + found.openFiles;
        if (!found.printed.empty()) found.result += "; prints " + found.printed;
        std::fputs(found.result.c_str(), stdout);
      }
      if (live != before) std::printf("; leaks %ld blocks", live - before);
    });
    return run.out + run.err + (run.status == 0 ? "" : "exit " + std::to_string(run.status));
  }

  /// The last of the row's results is for all further allocations, too.
  void check(const Call& call, const support::Row& row) const {
    for (std::size_t which = 0;; ++which) {
      const std::string found = outcome(call, static_cast<long>(which));
      if (found.empty()) {
        EXPECT_GE(which, row.results.size()) << row.function << " makes fewer allocations";
        return;
      }
      EXPECT_SAME(found, row.results.at(std::min(which, row.results.size() - 1)))
          << row.function << " when allocation " << which << " fails";
    }
  }
};

TEST_F(FailingAllocation, HasTheOutcomeOfTheTable) {
  std::map<std::string, std::function<void(const support::Row&)>> checks;
  for (const auto& [name, call] : kCalls) {
    checks[name] = [this, call = call](const support::Row& row) { check(call, row); };
  }
  support::checkTable("faults.txt", checks);
}

TEST_F(FailingAllocation, ElsewhereLeavesNothingOverWhenACallIsRepeated) {
  tree("folder/file");
  State state;
  xDirWalking("folder", state.files, state.count, WALK_ALL, true);
  const long before = live;
  xDirWalking("folder", state.files, state.count, WALK_ALL, true);
  EXPECT_EQ(live, before) << "after xDirWalking";
  findMeanAndSD(state.floats.data(), 1, 1, state.mean, state.sd);
  EXPECT_EQ(live, before) << "after findMeanAndSD";
}

}  // namespace
