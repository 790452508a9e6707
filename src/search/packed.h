// A packed file, which several threads read block by block. Used by VorquellSearch.
#pragma once

#include <cerrno>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>

#include "search/files.h"

namespace vorquell::search {

class PackedFile {
 public:
  PackedFile(const char* name, std::uint64_t blockBytes) : name_(name), blockBytes_(blockBytes) {}

  /// Reads the next block and where in the file it begins; false where there is none for this
  /// thread. A regular file is read by all threads at once; standard input and what else there is,
  /// pipes above all, which take longer to read than to compare, by the first one that comes.
  bool readBlock(Buffer& buffer, std::uint64_t* begin);

  /// After the last block: where the last bytes that were read end, and what ended that, 0 for the
  /// file's end. A file that grew or shrank meanwhile, so that bytes between blocks are missing,
  /// ended with EIO.
  std::uint64_t size() const { return size_; }
  int error() const { return error_ == 0 && size_ > end_ ? EIO : error_; }

 private:
  void open();
  void note(std::uint64_t begin, std::uint64_t size, int error);

  const char* const name_;
  const std::uint64_t blockBytes_;
  std::mutex mutex_;                  // guards what follows
  std::shared_ptr<const File> file_;  // for as long as there is something to read
  enum class Access { kNotOpened, kByOneThread, kByAll } access_ = Access::kNotOpened;
  std::thread::id reader_;  // the one thread
  std::uint64_t next_ = 0;
  std::uint64_t size_ = 0;
  std::uint64_t end_ = std::numeric_limits<std::uint64_t>::max();  // of the first short block
  int error_ = 0;
};

}  // namespace vorquell::search
