// Owners of what C functions hand out. Private: not installed. Used by the file tools and the
// statistics, so that nothing is left open or allocated on any way out.
#pragma once

#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace brindle::detail {

struct Freeing {
  void operator()(void* block) const { std::free(block); }
};
/// A block from `malloc` or `calloc`.
template <class T>
using Block = std::unique_ptr<T, Freeing>;

struct FileClosing {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileClosing>;

/// Closing leaves `errno` to the caller, as the call that failed before has set it.
struct FolderClosing {
  void operator()(DIR* folder) const {
    const int kept = errno;
    closedir(folder);
    errno = kept;
  }
};
using FolderHandle = std::unique_ptr<DIR, FolderClosing>;

/// An open file; below zero when it could not be opened.
struct Descriptor {
  explicit Descriptor(int opened) : fd(opened) {}
  ~Descriptor() {
    if (fd >= 0) close(fd);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  const int fd;
};

}  // namespace brindle::detail
