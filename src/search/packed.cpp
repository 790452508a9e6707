#include "search/packed.h"

#include <sys/stat.h>

#include <algorithm>

#include "search/options.h"

namespace vorquell::search {

void PackedFile::open() {
  isOpened_ = true;
  const bool isStream = isStandardInput(name_);
  file_.reset(isStream ? new File(File::standardInput()) : new File(name_));
  error_ = file_->error();
  if (error_ != 0) file_.reset();
  struct stat status;
  isSeekable_ = error_ == 0 && !isStream && fstat(file_->descriptor(), &status) == 0 &&
                (S_ISREG(status.st_mode) || S_ISBLK(status.st_mode));
}

void PackedFile::note(std::uint64_t begin, std::uint64_t size, int error) {
  if (size > 0) size_ = std::max(size_, begin + size);
  if (error != 0) error_ = error;
  if (error != 0 || size < blockBytes_) file_.reset();
}

bool PackedFile::readBlock(Buffer& buffer, std::uint64_t* begin) {
  std::unique_lock lock(mutex_);
  if (!isOpened_) open();
  const std::shared_ptr<const File> file = file_;
  if (!file) return false;
  *begin = next_;
  next_ += blockBytes_;
  int error;
  if (isSeekable_) {
    lock.unlock();
    error = buffer.readAt(*file, blockBytes_, *begin);
    lock.lock();
  } else {
    error = buffer.read(*file, blockBytes_);
  }
  note(*begin, buffer.size(), error);
  return buffer.size() > 0;
}

}  // namespace vorquell::search
