#include "Brindle/XFileTool/loading.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Brindle/detail/condition.h"
#include "Brindle/detail/handles.h"
#include "Brindle/detail/path.h"

using namespace brindle::detail;

namespace {

// Page faults cost more than reading a cached file; from this size on, huge pages pay.
constexpr std::uint64_t kHugePageSize = std::uint64_t{2} << 20;
constexpr std::uint64_t kLargestBlock = std::uint64_t{1} << 47;  // no address space holds more
constexpr std::uint64_t kNoSize = ~std::uint64_t{0};

FileHandle openFile(const char* path) {
  return FileHandle(std::fopen(orEmpty(path), "rbe"));
}

/// File systems differ in the size that they give a folder; here it has none, like a FIFO.
std::uint64_t sizeOf(std::FILE* file) {
  struct stat status;
  if (fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode)) return kNoSize;
  if (std::fseek(file, 0, SEEK_END) != 0) return kNoSize;
  return static_cast<std::uint64_t>(std::ftell(file));
}

/// Returns a block that `free` releases, or null.
void* allocateBlock(std::uint64_t length) {
  if (length > kLargestBlock) return nullptr;
  if (length < kHugePageSize) return std::malloc(length);
  void* block = nullptr;
  if (posix_memalign(&block, kHugePageSize, length) != 0) return nullptr;
  madvise(block, length, MADV_HUGEPAGE);  // only advice: without huge pages loading is slower
  return block;
}

}  // namespace

void xLoadBinFile(const char* path, unsigned char*& buffer, std::uint64_t& length) {
  const FileHandle file = openFile(path);
  if (!file) {
    length = 0;
    return;
  }
  length = sizeOf(file.get());
  buffer = static_cast<unsigned char*>(allocateBlock(length));
  if (buffer == nullptr) return;

  std::rewind(file.get());
  const std::size_t delivered = std::fread(buffer, 1, length, file.get());
  std::memset(buffer + delivered, 0, length - delivered);
}

int xReadWholeFile2(const char* path, std::string& contents) {
  const FileHandle file = openFile(path);
  const std::uint64_t size = file ? sizeOf(file.get()) : kNoSize;
  if (size == kNoSize) return conditionCode(Condition::kFailToOpenFile);
  contents.resize(size);
  std::rewind(file.get());
  // A short read is not an error: it leaves the rest of `contents` as it is.
  [[maybe_unused]] const std::size_t delivered = std::fread(contents.data(), 1, size, file.get());
  return 0;
}

std::string xReadWholeFile(const char* path) {
  std::string contents;
  xReadWholeFile2(path, contents);
  return contents;
}
