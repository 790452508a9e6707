#include "Brindle/XFileTool/directories.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string_view>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/detail/condition.h"
#include "Brindle/utility/stringConversion.h"

namespace {

using brindle::detail::conditionCode;

constexpr int kNotReady = 65;
constexpr int kCreated = 67;
constexpr int kAlreadyExisted = 68;

constexpr mode_t kPermissions = 0775;
constexpr const char* kLocale = "chinese";

struct BlockRelease {
  void operator()(char* block) const { std::free(block); }
};
using Block = std::unique_ptr<char, BlockRelease>;

/// Closing leaves `errno` to the caller, as the call that failed before has set it.
struct FolderCloser {
  void operator()(DIR* folder) const {
    const int kept = errno;
    closedir(folder);
    errno = kept;
  }
};
using FolderHandle = std::unique_ptr<DIR, FolderCloser>;

/// Returns the length of the parent of `path`, its separator included; 0 when there is none.
/// Throws for an empty path.
template <class Char>
std::size_t parentLength(const std::basic_string<Char>& path) {
  constexpr Char kSeparators[] = {'/', '\\', 0};
  const Char last = path.at(path.size() - 1);
  const bool isTrailing = last == kSeparators[0] || last == kSeparators[1];
  const std::basic_string_view<Char> name(path.data(), path.size() - (isTrailing ? 1 : 0));
  return name.find_last_of(kSeparators) + 1;
}

/// Returns null, with `errno` set, when there is no memory.
Block childPath(const char* parent, const char* name) {
  const std::size_t size = std::strlen(parent) + std::strlen(name) + 2;
  Block path(static_cast<char*>(std::malloc(size)));
  if (path) std::snprintf(path.get(), size, "%s/%s", parent, name);
  return path;
}

int deleteEntry(const char* parent, const char* name) {
  const Block path = childPath(parent, name);
  if (!path) return -1;
  struct stat status;
  if (stat(path.get(), &status) != 0) return -1;
  return S_ISDIR(status.st_mode) ? xDeleteDir(path.get()) : unlink(path.get());
}

/// The folder itself is closed on return.
int deleteEntriesOf(const char* path) {
  const FolderHandle folder(opendir(path));
  if (!folder) return -1;
  while (const dirent* entry = readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (const int result = deleteEntry(path, entry->d_name); result != 0) return result;
  }
  return 0;
}

}  // namespace

bool xIsDirExist(const char* path) {
  struct stat status;
  return path != nullptr && stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

bool xIsDirExist(const std::string& path) {
  return xIsDirExist(path.c_str());
}

bool xIsDirExist(const wchar_t* path) {
  if (path == nullptr) path = L"";
  // Zeroed, as the conversion leaves out the terminator of a text that fills its two bytes each.
  const Block narrow(static_cast<char*>(std::calloc(2 * std::wcslen(path) + 2, 1)));
  if (!narrow) {
    std::puts(
        "Error: cannot create temporary storage for char string (inside "
        "isDirectoryExist_wchar(...))!");
    return false;
  }
  if (wcharStr2charStr(path, narrow.get(), kLocale) < 0) {
    std::puts(
        "Error: problem occurs when converting wchar_t string to char string (inside "
        "isDirectoryExist_wchar(...))!");
    return false;
  }
  return xIsDirExist(narrow.get());
}

bool xIsDirExist(const std::wstring& path) {
  return xIsDirExist(path.c_str());
}

int xCreateDir(const char* path, int /*mode*/) {
  if (path == nullptr) path = "";
  if (mkdir(path, kPermissions) == 0) return conditionCode(kCreated);
  if (errno == EEXIST) return conditionCode(kAlreadyExisted);
  std::printf("%s: Fail to create directory '%s'. (Err: %s)\n", "xCreateDir", path,
              std::strerror(errno));
  return conditionCode(kNotReady);
}

int xCreateDir(const wchar_t* /*path*/, int /*mode*/) {
  std::puts("WCHAR for create directory is not supported!");
  return conditionCode(kNotReady);
}

bool xCreateNestedDir(const std::string& path, int mode) {
  std::vector<std::size_t> missing;  // lengths of the paths to create, the longest first
  std::string level = path;
  while (!xIsDirExist(level)) {
    const std::size_t parent = parentLength(level);
    if (parent == 0) break;
    missing.push_back(level.size());
    level.resize(parent);
  }
  bool isReady = true;
  for (; !missing.empty(); missing.pop_back()) {
    level.assign(path, 0, missing.back());
    isReady = !isReady || xCreateDir(level.c_str(), mode) != conditionCode(kNotReady);
  }
  return isReady;
}

bool xCreateNestedDir(const std::wstring& path, int mode) {
  std::wstring level = path;
  while (!xIsDirExist(level)) {
    const std::size_t parent = parentLength(level);
    if (parent == 0) return xCreateDir(level.c_str(), mode) != 0;
    level.resize(parent);
  }
  return true;
}

int xDeleteDir(const char* path) {
  if (path == nullptr) path = "";
  const int result = deleteEntriesOf(path);
  return result != 0 ? result : rmdir(path);
}

int xDeleteDir(const wchar_t* /*path*/) {
  std::puts("WCHAR for delete directory is not supported!");
  return conditionCode(kNotReady);
}

int xDeleteDir(const std::wstring& path) {
  return xDeleteDir(path.c_str());
}

void xDeleteDir(const std::string& path) {
  xDeleteDir(str2wstr(path, kLocale));
}
