// The command-line tool: two paths in, one distance out. Its exit status is always 0; what went
// wrong is printed on standard output.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "Bitstream.h"
#include "Brindle/XFileTool/loading.h"
#include "ORV_CompareFeatures.h"

namespace {

/// A file's bytes in memory.
class Object {
 public:
  explicit Object(const char* path) { xLoadBinFile(path, buffer_, length_); }
  ~Object() { release(); }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void release() {
    std::free(buffer_);
    buffer_ = nullptr;
  }
  const char* bytes() const { return reinterpret_cast<const char*>(buffer_); }
  std::uint64_t length() const { return length_; }
  /// The comparison takes 32-bit lengths: those of 4 GiB and more are truncated.
  unsigned int truncatedLength() const { return static_cast<unsigned int>(length_); }

 private:
  unsigned char* buffer_ = nullptr;
  std::uint64_t length_ = 0;
};

void printUsage() {
  std::printf("Version: %s\n", ORV_GetCompareFeaturesVersion());
  std::printf("Usage: Vorquell.exe <Target Obj BinFile path> <Query Obj BinFile path>");
}

void printUnreadable(const char* path) {
  std::printf("Fail to read object %s\n", path);
}

void compareFiles(const char* targetPath, const char* queryPath) {
  Object target(targetPath);
  if (target.bytes() == nullptr || target.length() == 0) {
    printUnreadable(targetPath);
    return;
  }
  Object query(queryPath);
  // A query that has a length but no buffer goes on: the comparison refuses it.
  if (query.length() == 0) {
    printUnreadable(queryPath);
    return;
  }

  double distance = 0.0;
  const bool isWhole =
      vorquell::detail::isQueryWhole(query.bytes(), query.length(), target.length());
  const bool isCompared =
      isWhole && ORV_CompareFeatures(target.bytes(), target.truncatedLength(), query.bytes(),
                                     query.truncatedLength(), &distance) == 0;
  target.release();
  query.release();

  if (!isWhole) std::printf("%s: Bitstream too short\n", "main");
  if (isCompared) {
    std::printf("%s: Return distance = %f\n", "main", distance);
  } else {
    std::puts("Fail to compare features.");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc <= 2) {
    printUsage();
  } else {
    compareFiles(argv[1], argv[2]);
  }
  return 0;
}
