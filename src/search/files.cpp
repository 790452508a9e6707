#include "search/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <new>

namespace vorquell::search {

namespace {

/// Most queries fit in it.
constexpr std::uint64_t kFirstCapacity = 64 << 10;

}  // namespace

File File::standardInput() {
  return {};
}

File::File(const char* path) : descriptor_(open(path, O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ < 0) error_ = errno;
}

File::~File() {
  if (descriptor_ > STDIN_FILENO) close(descriptor_);
}

Buffer::~Buffer() {
  std::free(bytes_);
}

void Buffer::grow(std::uint64_t most) {
  const std::uint64_t capacity = std::min(most, std::max(kFirstCapacity, 2 * capacity_));
  void* const bytes = std::realloc(bytes_, capacity);
  if (bytes == nullptr) throw std::bad_alloc();
  bytes_ = static_cast<char*>(bytes);
  capacity_ = capacity;
}

void Buffer::endWithNul() {
  if (size_ == capacity_) grow(std::numeric_limits<std::uint64_t>::max());
  bytes_[size_] = '\0';
}

template <class ReadSome>
int Buffer::fill(const File& file, std::uint64_t most, ReadSome readSome) {
  size_ = 0;
  if (file.error() != 0) return file.error();
  while (size_ < most) {
    if (size_ == capacity_) grow(most);
    const std::uint64_t wanted = std::min(capacity_, most) - size_;
    const ssize_t got = readSome(bytes_ + size_, wanted);
    if (got == 0) break;
    if (got > 0) size_ += static_cast<std::uint64_t>(got);
    if (got < 0 && errno != EINTR) return errno;
  }
  return 0;
}

int Buffer::read(const File& file, std::uint64_t most) {
  return fill(file, most, [&](char* bytes, std::uint64_t size) {
    return ::read(file.descriptor(), bytes, size);
  });
}

int Buffer::readAt(const File& file, std::uint64_t most, std::uint64_t offset) {
  return fill(file, most, [&](char* bytes, std::uint64_t size) {
    return pread(file.descriptor(), bytes, size, static_cast<off_t>(offset + size_));
  });
}

int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    if (written < 0 && errno != EINTR) return errno;
  }
  return 0;
}

}  // namespace vorquell::search
