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
#include <string_view>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/detail/condition.h"
#include "Brindle/detail/conversion.h"
#include "Brindle/detail/handles.h"
#include "Brindle/detail/locales.h"
#include "Brindle/detail/path.h"

using namespace brindle::detail;

namespace {

constexpr mode_t kPermissions = 0775;

/// Returns the length of the parent of `path`, its separator included; 0 when there is none.
/// Throws for an empty path.
template <class Char>
std::size_t parentLength(const std::basic_string<Char>& path) {
  const Char last = path.at(path.size() - 1);
  const bool isTrailing = std::basic_string_view(kSeparators<Char>).find(last) != path.npos;
  const std::basic_string_view<Char> name(path.data(), path.size() - (isTrailing ? 1 : 0));
  return name.find_last_of(kSeparators<Char>) + 1;
}

/// Returns null, with `errno` set, when there is no memory.
Block<char> childPath(const char* parent, const char* name) {
  const std::size_t size = std::strlen(parent) + std::strlen(name) + 2;
  Block<char> path(static_cast<char*>(std::malloc(size)));
  if (path) std::snprintf(path.get(), size, "%s/%s", parent, name);
  return path;
}

int deleteEntry(const char* parent, const char* name) {
  const Block<char> path = childPath(parent, name);
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
  return stat(orEmpty(path), &status) == 0 && S_ISDIR(status.st_mode);
}

bool xIsDirExist(const std::string& path) {
  return xIsDirExist(path.c_str());
}

bool xIsDirExist(const wchar_t* path) {
  path = orEmpty(path);
  // Zeroed and one byte larger, as the conversion leaves out the terminator of a long text.
  const std::size_t size = narrowRoom(std::wcslen(path)) + 1;
  const Block<char> narrowPath(static_cast<char*>(std::calloc(size, 1)));
  if (!narrowPath) {
    std::puts(
        "Error: cannot create temporary storage for char string (inside "
        "isDirectoryExist_wchar(...))!");
    return false;
  }
  if (narrowOrReport(path, narrowPath.get(), kChineseLocale) < 0) {
    std::puts(
        "Error: problem occurs when converting wchar_t string to char string (inside "
        "isDirectoryExist_wchar(...))!");
    return false;
  }
  return xIsDirExist(narrowPath.get());
}

bool xIsDirExist(const std::wstring& path) {
  return xIsDirExist(path.c_str());
}

int xCreateDir(const char* path, int /*mode*/) {
  path = orEmpty(path);
  if (mkdir(path, kPermissions) == 0) return conditionCode(Condition::kDirectoryCreated);
  if (errno == EEXIST) return conditionCode(Condition::kDirectoryExisted);
  std::printf("%s: Fail to create directory '%s'. (Err: %s)\n", "xCreateDir", path,
              std::strerror(errno));
  return conditionCode(Condition::kDirectoryNotReady);
}

int xCreateDir(const wchar_t* /*path*/, int /*mode*/) {
  std::puts("WCHAR for create directory is not supported!");
  return conditionCode(Condition::kDirectoryNotReady);
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
    isReady =
        !isReady || xCreateDir(level.c_str(), mode) != conditionCode(Condition::kDirectoryNotReady);
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
  path = orEmpty(path);
  const int result = deleteEntriesOf(path);
  return result != 0 ? result : rmdir(path);
}

int xDeleteDir(const wchar_t* /*path*/) {
  std::puts("WCHAR for delete directory is not supported!");
  return conditionCode(Condition::kDirectoryNotReady);
}

int xDeleteDir(const std::wstring& path) {
  return xDeleteDir(path.c_str());
}

void xDeleteDir(const std::string& path) {
  xDeleteDir(str2wstr(path, kChineseLocale));
}
