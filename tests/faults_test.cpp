// Each allocation and each system call that a call makes fails once, in a process of its own. A row
// of data/faults.txt is a call, how something in it fails and what then becomes of it, in the order
// of the failures; nothing may leak, and no file may stay open.
//
// The linker routes the libraries' calls to the wrappers below (--wrap); operator new uses them.
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "Brindle/XFileTool.h"
#include "Brindle/utility.h"
#include "FeatureReader.h"
#include "ORV_Search.h"
#include "search/comparison.h"
#include "search/packed.h"
#include "search/streams.h"
#include "support/Bitstream.h"
#include "support/InScratchDir.h"
#include "support/Program.h"

namespace {

constexpr int kShort = 0;  // an error number for calls that do a part of their work

int error = 0;            // how something fails: allocations with ENOMEM, system calls with others
std::size_t which = 0;    // of what can fail so, counted from 0
bool isArmed = false;     // whether something may fail now
std::size_t calls = 0;    // that could have failed so
std::string_view failed;  // the function that did
long live = 0;            // blocks of memory
std::function<void()> beforeReading;  // runs once, in the next pread()

bool works(std::string_view function, bool canFail) {
  if (!isArmed || !canFail || calls++ != which) return true;
  failed = function;
  errno = error;
  return false;
}

bool mayAllocate() {
  return works("malloc", error == ENOMEM);
}

bool mayCall(std::string_view function) {
  const bool canBeShort = function.ends_with("read") || function == "write";
  return works(function, error == kShort ? canBeShort : error != ENOMEM);
}

void* counted(void* block) {
  live += block != nullptr;
  return block;
}

}  // namespace

// A function that has `result` where it is to fail.
#define WRAPPED(Result, name, parameters, arguments, result)  \
  Result __real_##name parameters;                            \
  Result __wrap_##name parameters {                           \
    return mayCall(#name) ? __real_##name arguments : result; \
  }

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

WRAPPED(int, access, (const char* path, int mode), (path, mode), -1)
WRAPPED(int, chdir, (const char* path), (path), -1)
WRAPPED(int, close, (int file), (file), (__real_close(file), -1))
WRAPPED(int, fclose, (FILE * file), (file), (__real_fclose(file), EOF))
WRAPPED(FILE*, fopen, (const char* path, const char* mode), (path, mode), nullptr)
WRAPPED(size_t, fread, (void* to, size_t size, size_t count, FILE* file), (to, size, count, file),
        error == kShort ? __real_fread(to, size, count / 2, file) : 0)
WRAPPED(int, fseek, (FILE * file, long offset, int from), (file, offset, from), -1)
WRAPPED(int, fstat, (int file, struct stat* status), (file, status), -1)
WRAPPED(int, fsync, (int file), (file), -1)
WRAPPED(long, ftell, (FILE * file), (file), -1)
WRAPPED(size_t, fwrite, (const void* from, size_t size, size_t count, FILE* file),
        (from, size, count, file), __real_fwrite(from, 1, size* count / 2, file) / size)
WRAPPED(char*, getcwd, (char* path, size_t size), (path, size), nullptr)
WRAPPED(off_t, lseek, (int file, off_t offset, int from), (file, offset, from), -1)
WRAPPED(int, madvise, (void* block, size_t size, int advice), (block, size, advice), -1)
WRAPPED(int, mkdir, (const char* path, mode_t mode), (path, mode), -1)
int __real_open(const char* path, int flags, mode_t mode);
int __wrap_open(const char* path, int flags, mode_t mode) {
  const bool waitsForTheDisk = (flags & O_DSYNC) == O_DSYNC;
  return mayCall(waitsForTheDisk ? "open(O_DSYNC)" : "open") ? __real_open(path, flags, mode) : -1;
}
WRAPPED(DIR*, opendir, (const char* path), (path), nullptr)
ssize_t __real_pread(int file, void* to, size_t size, off_t at);
ssize_t __wrap_pread(int file, void* to, size_t size, off_t at) {
  if (const auto now = std::exchange(beforeReading, nullptr)) now();
  if (mayCall("pread")) return __real_pread(file, to, size, at);
  return error == kShort ? __real_pread(file, to, 1, at) : -1;
}
WRAPPED(ssize_t, read, (int file, void* to, size_t size), (file, to, size),
        error == kShort ? __real_read(file, to, 1) : -1)
WRAPPED(ssize_t, readlink, (const char* path, char* to, size_t size), (path, to, size), -1)
WRAPPED(int, remove, (const char* path), (path), -1)
WRAPPED(int, rmdir, (const char* path), (path), -1)
WRAPPED(int, stat, (const char* path, struct stat* status), (path, status), -1)
WRAPPED(int, system, (const char* command), (command), -1)
WRAPPED(int, unlink, (const char* path), (path), -1)
WRAPPED(ssize_t, write, (int file, const void* from, size_t size), (file, from, size),
        error == kShort ? __real_write(file, from, 1) : -1)

/// What the folder itself and its parent are called comes first or last.
dirent* __real_readdir(DIR* folder);
dirent* __wrap_readdir(DIR* folder) {
  dirent* const entry = __real_readdir(folder);
  const bool isCounted = entry != nullptr && entry->d_name[0] != '.';
  return isCounted && !mayCall("readdir") ? nullptr : entry;
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
namespace search = vorquell::search;

const std::string kTree = "small, folder/sub/second, names=small, packed=smallsmilesm";

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
            {"paths", PrintToString(paths)},
            {"files", isNull(files)},
            {"count", PrintToString(count)},
            {"xs", PrintToString(xs)},
            {"ys", PrintToString(ys)},
            {"indices", PrintToString(indices)},
            {"floats", PrintToString(floats)}};
  }

  unsigned char* block = static_cast<unsigned char*>(std::malloc(1));
  std::uint64_t length = 7;
  float* mean = static_cast<float*>(std::malloc(1));
  float one = 1, sd = 7;
  std::string text = "before";
  std::vector<unsigned char> bytes = {215, 212, 218, 212, 215, 212, 218, 212, 215};
  std::vector<int> numbers = {512, 7, 33, 4096};
  std::vector<float> floats = {7};
  std::list<double> xs, ys;
  std::list<int> indices = {7};
  ORV_Match matches[2];
  std::list<std::string> paths;
  char** files = nullptr;
  int count = 0;
};

using Call = std::function<std::string(State&)>;

template <class Function>
Call call(const Function& function) {
  return [function](State& state) -> std::string {
    isArmed = true;
    if constexpr (std::is_void_v<decltype(function(state))>) {
      function(state);
      isArmed = false;
      return "returns";
    } else {
      const auto result = function(state);
      isArmed = false;
      return "returns " + PrintToString(result);
    }
  };
}

/// Large enough for huge pages.
void load(State& state) {
  std::free(std::exchange(state.block, nullptr));  // which would not be released
  fs::resize_file("small", 3 << 20);
  xLoadBinFile("small", state.block, state.length);
  fs::resize_file("small", 5);
}

/// How many features are found; of what was not compared, query, error, features, bytes left over.
std::string searchFiles(State&) {
  search::Buffer target;
  const search::File file("packed");
  if (file.error() != 0 || target.read(file, 5) != 0) return "no target";
  search::Options options;
  options.threads = 1;
  options.progress = search::ProgressWhen::kNever;
  options.list = "names";
  options.packed = {"packed"};
  const search::Outcome outcome = compareAll(target, search::Queries(options), options);
  std::string text = std::to_string(outcome.results.size());
  for (const auto& [query, code, features, leftOver] : outcome.failures) {
    text += ", " + PrintToString(std::tuple(query, code, features, leftOver));
  }
  return text;
}

void print(State&) {
  search::Output output;
  output.append("line\n");
  output.finish();
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

const std::vector<Point2Df> kLine(4, {1, 2});

const std::map<std::string, Call> kCalls = {
    {"FeatureReader::read", call([](auto&) {
       const std::string query = bitstreamHeader(7, 1) + frame("feature");
       return FeatureReader().read(query.data(), static_cast<unsigned int>(query.size()), 7).size();
     })},
    {"ORV_Nearest",
     call([](auto& s) { return ORV_Nearest("a", 1, "abc", 3, 1, 2, 1, s.matches); })},
    {"VorquellSearch", call(searchFiles)},
    {"VorquellSearch(output)", call(print)},
    {"xLoadBinFile", call(load)},
    {"xReadWholeFile2", call([](auto& s) { return xReadWholeFile2("small", s.text); })},
    {"xGetFileExtension", call([](auto&) {
       const std::unique_ptr<char, decltype(&std::free)> text(xGetFileExtension("a.txt"),
                                                              std::free);
       return std::string(text == nullptr ? "null" : text.get());
     })},
    {"xIsDirExist(wide)", call([](auto&) { return xIsDirExist(L"folder"); })},
    {"xCreateNestedDir", call([](auto&) { return xCreateNestedDir("folder/new/b", 0); })},
    {"xDeleteDir", call([](auto&) { return xDeleteDir("folder") == 0 ? 0 : errno; })},
    {"xDeleteFile", call([](auto&) { return xDeleteFile(L"small", 0, 1); })},
    {"xConcatBinaryFiles", call([](auto&) { return xConcatBinaryFiles({"packed"}, "names"); })},
    {"xFileCopy", call([](auto&) { return xFileCopy("packed", "names", true); })},
    {"xWriteFileThroughCache",
     call([](auto&) { return xWriteFileThroughCache("small", "new", 3, 1); })},
    {"xFileSync", call([](auto&) { return xFileSync("small"); })},
    {"xGetFileList", call([](auto&) { return xGetFileList("folder").size() > 2; })},
    {"xGetCurrentAppPath", call([](auto&) { return xGetCurrentAppPath(); })},
    {"xWalking", call([](auto& s) {
       fs::current_path("folder");
       xWalking(".", s.paths, WALK_ALL, true);
     })},
    {"xDirWalking", call([](auto& s) { xDirWalking("folder", s.files, s.count, WALK_ALL, true); })},
    {"findMeanAndSD", call([](auto& s) { return findMeanAndSD(&s.one, 1, 1, s.mean, s.sd); })},
    {"byte2BitData", call([](auto& s) { byte2BitData(s.bytes.data(), 3, 3, s.block, s.length); })},
    {"erosion", call([](auto& s) { return erosion(s.bytes.data(), 3, 3); })},
    {"allocate2DDouble", call([](auto&) {
       double** matrix = allocate2DDouble(2, 3);
       safeDelete2DDouble(2, matrix);
     })},
    {"replaceSubString",
     call([](auto& s) { replaceSubString(s.text, "e", std::string(50, 'x')); })},
    {"matrixDet", call(determinant)},
    {"polygonIntersect2D", call(cross)},
    {"getBigAngleIndices2DPolygon", call(findBigAngles)},
    {"polylineAngle", call([](auto& s) { return polylineAngle(kLine, s.floats, true, 2, 2); })},
    {"polylineToCurvature",
     call([](auto& s) { return polylineToCurvature(kLine, s.floats, 2, 2); })},
    {"radixSort", call([](auto& s) { radixSort(s.numbers.data(), 4); })},
    {"radixSortUChar", call([](auto& s) { radixSortUChar(s.bytes.data(), 3); })},
};

const std::map<std::string, int> kErrors = {{"ENOMEM", ENOMEM}, {"EINTR", EINTR},
                                            {"EIO", EIO},       {"EMFILE", EMFILE},
                                            {"ENOSPC", ENOSPC}, {"short", kShort}};

struct Faults : InScratchDir {
  /// What the call does, and all that it changes; empty when nothing failed.
  std::string outcome(const Call& call) const {
    tree(kTree);
    const ::Run run = runChild([&] {
      const long before = live;
      {
        State state;
        const std::map<std::string, std::string> old = state.values();
        Effect found = effect([&] { return Effect(call(state)); });
        if (failed.empty()) _exit(0);
        for (const auto& [name, value] : state.values()) {
          if (value != old.at(name)) found.result += "; " + name + " is " + value;
        }
        if (found.folder != kUnchanged) found.result += "; holds " + found.folder;
        if (found.workingDirectory != ".") found.result += "; in " + found.workingDirectory;
        if (found.openFiles != kUnchanged) found.result += "; open " + found.openFiles;
        if (!found.printed.empty()) found.result += "; prints " + found.printed;
        std::cout << failed << ": " << found.result;
      }
      if (live != before) std::cout << "; leaks " << live - before << " blocks";
    });
    return run.out + run.err + (run.status == 0 ? "" : "exit " + std::to_string(run.status));
  }

  /// The last of the row's results is for all further failures, too.
  void check(const Call& call, const support::Row& row) const {
    error = kErrors.at(row.arguments.at(0));
    const std::size_t last = row.results.size() - 1;
    for (which = 0;; ++which) {
      const std::string found = outcome(call);
      if (found.empty()) break;
      EXPECT_SAME(found, row.results.at(std::min(which, last))) << "failure " << which;
    }
    EXPECT_GT(which, last) << "there are fewer failures";
  }
};

TEST_F(Faults, HaveTheOutcomeOfTheTable) {
  std::map<std::string, std::function<void(const support::Row&)>> checks;
  for (const auto& [name, call] : kCalls) {
    checks[name] = [this, call = call](const support::Row& row) { check(call, row); };
  }
  support::checkTable("faults.txt", checks);
}

TEST_F(Faults, OfAPackedFileThatShrinksWhileThreadsReadItAreReported) {
  tree("packed=smallsmilesmallsmile");
  search::PackedFile file("packed", 10);
  search::Buffer first, second;
  std::uint64_t begin = 0;
  beforeReading = [&] {
    EXPECT_EQ(file.readBlock(second, &begin), true);
    fs::resize_file("packed", 5);
  };
  EXPECT_EQ(file.readBlock(first, &begin), true);
  EXPECT_EQ(file.error(), EIO);
}

TEST_F(Faults, ElsewhereLeaveNothingOverWhenACallIsRepeated) {
  tree(kTree);
  State state;
  xDirWalking("folder", state.files, state.count, WALK_ALL, true);
  const long before = live;
  xDirWalking("folder", state.files, state.count, WALK_ALL, true);
  EXPECT_EQ(live, before) << "after xDirWalking";
  findMeanAndSD(&state.one, 1, 1, state.mean, state.sd);
  EXPECT_EQ(live, before) << "after findMeanAndSD";
}

}  // namespace
