#include "search/packed.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "search/options.h"

namespace vorquell::search {

void PackedFile::open() {
  access_ = Access::kByOneThread;
  reader_ = std::this_thread::get_id();
  const bool isStandard = isStandardInput(name_);
  file_.reset(isStandard ? new File(File::standardInput()) : new File(name_));
  error_ = file_->error();
  if (error_ != 0) {
    file_.reset();
    return;
  }
  struct stat status;
  if (!isStandard && fstat(file_->descriptor(), &status) == 0 && S_ISREG(status.st_mode)) {
    access_ = Access::kByAll;
  } else {
    // With a pipe of the largest size that everyone may have, reader and writer wait less often.
    fcntl(file_->descriptor(), F_SETPIPE_SZ, 1 << 20);
  }
}

void PackedFile::note(std::uint64_t begin, std::uint64_t size, int error) {
  if (size > 0) size_ = std::max(size_, begin + size);
  if (error != 0) error_ = error;
  if (size == blockBytes_) return;
  end_ = std::min(end_, begin + size);
  file_.reset();
}

bool PackedFile::readBlock(Buffer& buffer, std::uint64_t* begin) {
  std::unique_lock lock(mutex_);
  if (access_ == Access::kNotOpened) open();
  const std::shared_ptr<const File> file = file_;
  const bool isByAll = access_ == Access::kByAll;
  if (!file || (!isByAll && reader_ != std::this_thread::get_id())) return false;
  *begin = next_;
  next_ += blockBytes_;
  lock.unlock();
  const int error =
      isByAll ? buffer.readAt(*file, blockBytes_, *begin) : buffer.read(*file, blockBytes_);
  lock.lock();
  note(*begin, buffer.size(), error);
  return buffer.size() > 0;
}

}  // namespace vorquell::search
