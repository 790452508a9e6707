// Where reads outside of a buffer are found: between unreadable pages, at the lengths where code
// that works in large steps changes its step.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

/// Room for `capacity` bytes whose neighbours on both sides cannot be read.
class GuardedBytes {
 public:
  explicit GuardedBytes(std::size_t capacity)
      : capacity_((capacity + kPage - 1) / kPage * kPage),
        pages_(static_cast<char*>(
            mmap(nullptr, capacity_ + 2 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
    mprotect(pages_ + kPage, capacity_, PROT_READ | PROT_WRITE);
  }
  ~GuardedBytes() { munmap(pages_, capacity_ + 2 * kPage); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  /// Copies the bytes to the first ones that can be read.
  char* first(const char* bytes, std::size_t size) { return put(pages_ + kPage, bytes, size); }
  /// Copies the bytes to the last ones that can be read.
  char* last(const char* bytes, std::size_t size) {
    return put(pages_ + kPage + capacity_ - size, bytes, size);
  }

 private:
  static constexpr std::size_t kPage = 4096;

  static char* put(char* at, const char* bytes, std::size_t size) {
    std::memcpy(at, bytes, size);
    return at;
  }

  std::size_t capacity_;
  char* pages_;
};

inline std::vector<std::size_t> lengthsAroundSteps() {
  std::vector<std::size_t> lengths;
  for (std::size_t length = 0; length <= 300; ++length) lengths.push_back(length);
  for (const std::size_t step : {1u << 10, 1u << 12, 1u << 14, 1u << 16}) {
    lengths.insert(lengths.end(), {step - 1, step, step + 1});
  }
  return lengths;
}
