// Reading files and writing streams by system calls. What fails returns the system's error number.
// Used by VorquellSearch.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <string_view>

namespace vorquell::search {

/// An open file, closed at the end but for standard input.
class File {
 public:
  static File standardInput();
  /// Opens for reading; error() tells what went wrong.
  explicit File(const char* path);
  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  int error() const { return error_; }
  int descriptor() const { return descriptor_; }

 private:
  File() = default;

  int descriptor_ = STDIN_FILENO;
  int error_ = 0;
};

/// Bytes that were read. The memory grows and is used again.
class Buffer {
 public:
  Buffer() = default;
  ~Buffer();
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;

  const char* bytes() const { return bytes_; }
  std::uint64_t size() const { return size_; }

  /// Reads until the end or until there are `most` bytes, from where the file stands or, without
  /// moving it, from `offset`. Returns 0 or the error, that of opening included; std::bad_alloc
  /// where there is no memory.
  int read(const File& file, std::uint64_t most);
  int readAt(const File& file, std::uint64_t most, std::uint64_t offset);

  /// Puts a NUL after the bytes, not counted in size().
  void endWithNul();

 private:
  template <class ReadSome>
  int fill(const File& file, std::uint64_t most, ReadSome readSome);
  void grow(std::uint64_t most);

  char* bytes_ = nullptr;
  std::uint64_t size_ = 0;
  std::uint64_t capacity_ = 0;
};

/// Writes everything. Returns 0 or the error.
int writeAll(int descriptor, std::string_view bytes);

}  // namespace vorquell::search
