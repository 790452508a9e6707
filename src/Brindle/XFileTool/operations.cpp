#include "Brindle/XFileTool/operations.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "Brindle/XFileTool/directories.h"
#include "Brindle/XFileTool/loading.h"
#include "Brindle/XTypeConvertTool.h"
#include "Brindle/detail/condition.h"
#include "Brindle/detail/handles.h"
#include "Brindle/detail/locales.h"
#include "Brindle/detail/path.h"

using namespace brindle::detail;

namespace {

constexpr int kTargetRetries = 5;
constexpr int kWaitMs = 100;

void waitFor(int waitMs) {
  constexpr std::int64_t kLongest = std::numeric_limits<useconds_t>::max();
  const std::int64_t microseconds = std::int64_t{waitMs} * 1000;
  usleep(static_cast<useconds_t>(std::clamp<std::int64_t>(microseconds, 0, kLongest)));
}

/// Writes a new file and returns whether all bytes were written.
bool writeFile(const char* path, const unsigned char* bytes, std::uint64_t size) {
  const FileHandle file(std::fopen(orEmpty(path), "wbe"));
  if (!file) return false;
  std::setbuf(file.get(), nullptr);  // so that fwrite() learns the fate of every byte
  return std::fwrite(bytes, size, 1, file.get()) == 1;
}

std::string quoted(const std::string& name) {
  return '"' + name + '"';
}

std::string concatCommand(const std::list<std::string>& files, const std::string& output) {
  std::string command = "cat ";
  for (const std::string& file : files) {
    const std::string name = trimTailSpacesInString(file);
    if (name.empty()) continue;
    if (&file != &files.front()) command += ' ';
    command += quoted(name);
  }
  return command + " > " + quoted(output);
}

}  // namespace

bool xIsFileExist(const char* path) {
  return access(orEmpty(path), F_OK) == 0;
}

bool xIsFileExist(std::string& path) {
  return xIsFileExist(path.c_str());
}

bool xIsFileExist(const wchar_t*) {
  return false;
}

bool xIsFileExist(std::wstring& path) {
  return xIsFileExist(path.c_str());
}

bool xDeleteFile(const std::string& path, int retries, int waitMs) {
  for (std::int64_t attempts = 0; std::remove(path.c_str()) != 0; ++attempts) {
    if (attempts > retries) return false;
    waitFor(waitMs);
  }
  return true;
}

bool xDeleteFile(const std::wstring& path, int retries, int waitMs) {
  return xDeleteFile(wstr2str(path, kChineseLocale), retries, waitMs);
}

void xDeleteFiles(std::list<std::string>& files) {
  xDeleteFiles(std::as_const(files));
}

void xDeleteFiles(const std::list<std::string>& files) {
  for (const std::string& file : files) xDeleteFile(file, 0, kWaitMs);
}

int xFileCopy(const char* source, const char* target, bool overwrite) {
  if (!xIsFileExist(source)) return -1;
  if (xIsFileExist(target)) {
    if (!overwrite || !xDeleteFile(target, kTargetRetries, kWaitMs)) return -1;
  }
  unsigned char* loaded = nullptr;
  std::uint64_t size = 0;
  xLoadBinFile(source, loaded, size);
  const Block<unsigned char> bytes(loaded);
  if (size == 0 || !bytes) return -1;
  return writeFile(target, bytes.get(), size) ? 0 : -1;
}

int xDirCopy(const char* source, const char* target, bool overwrite) {
  if (xIsDirExist(source) && xIsDirExist(target) && overwrite) xDeleteDir(target);
  return -1;
}

int xConcatBinaryFiles(const std::list<std::string>& files, std::string output) {
  if (files.empty()) return 0;
  if (xIsFileExist(output)) xDeleteFile(output, kTargetRetries, kWaitMs);
  [[maybe_unused]] const int ignored = std::system(concatCommand(files, output).c_str());
  return 0;
}

int xWriteFileThroughCache(const char* path, const char* data, unsigned int size, int offset) {
  path = orEmpty(path);
  const Descriptor file(open(path, O_WRONLY | O_SYNC | O_CLOEXEC));
  if (file.fd < 0) {
    std::printf("Error in opening %s: %s (errno %d)\n", path, std::strerror(errno), errno);
    return conditionCode(Condition::kFailToOpenFile);
  }
  if (lseek(file.fd, offset, SEEK_SET) < 0) {
    std::printf("Error in setting position to %d in %s: %s (errno %d)\n", offset, path,
                std::strerror(errno), errno);
    return conditionCode(Condition::kFailToOpenFile);
  }
  if (write(file.fd, data, size) < 0) {
    std::printf("Error in writing %d byte data to %s: %s (errno %d)\n", static_cast<int>(size),
                path, std::strerror(errno), errno);
    return conditionCode(Condition::kFailToWriteFile);
  }
  fsync(file.fd);
  return 0;
}

int xFileSync(const char* path) {
  const Descriptor file(open(orEmpty(path), O_WRONLY | O_DSYNC | O_CLOEXEC));
  return file.fd < 0 ? conditionCode(Condition::kFailToOpenFile) : fsync(file.fd);
}

int xFileSync(int fd) {
  return fsync(fd);
}
