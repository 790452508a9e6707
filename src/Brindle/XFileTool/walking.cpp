#include "Brindle/XFileTool/walking.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <span>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/detail/handles.h"
#include "Brindle/detail/locales.h"
#include "Brindle/detail/path.h"

using namespace brindle::detail;

namespace {

constexpr std::size_t kPathSize = 255;  // bytes of a path with its terminator
constexpr std::int32_t kFirstCapacity = 16;
constexpr unsigned int kDirectoryBit = 4;

bool countsAsDirectory(const dirent& entry) {
  return (entry.d_type & kDirectoryBit) != 0;
}

[[noreturn]] void endOutOfMemory() {
  std::fputs("Out of memory\n", stderr);
  std::exit(EXIT_FAILURE);
}

/// Calls `visit` with each entry, in the system's order. False when the folder cannot be opened.
template <class Visit>
bool visitEntries(const char* path, Visit visit) {
  const FolderHandle folder(opendir(path));
  if (!folder) return false;
  while (dirent* entry = readdir(folder.get())) visit(*entry);
  return true;
}

/// A list that releases its entries.
struct EntryList : flist {
  EntryList() : flist{0, 0, nullptr} {}
  ~EntryList() { std::free(entries); }
  EntryList(const EntryList&) = delete;
  EntryList& operator=(const EntryList&) = delete;

  std::span<const dirent> view() const { return {entries, static_cast<std::size_t>(count)}; }
};

/// Keeps the first `count` entries, at least one, and gives the memory of the others back.
void keepFirst(EntryList& list, std::int32_t count) {
  void* fewer = std::realloc(list.entries, static_cast<std::size_t>(count) * sizeof(dirent));
  if (fewer != nullptr) list.entries = static_cast<dirent*>(fewer);
  list.count = list.capacity = count;
}

bool isSelfOrParent(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

std::string pathIn(const char* folder, const char* name) {
  std::string path(folder);
  path.append(1, '/').append(name);
  if (path.size() >= kPathSize) std::abort();
  return path;
}

bool isListed(const dirent& entry, FILE_WALKING_OPTION option) {
  if (option == WALK_FILES) return !countsAsDirectory(entry);
  return option != WALK_FOLDERS || countsAsDirectory(entry);
}

/// Changes the working directory; what cannot be entered is passed over on purpose.
void enter(const char* folder) {
  [[maybe_unused]] const int ignored = chdir(folder);
}

void walkBelow(const char* path, EntryList& list, std::list<std::string>& files,
               FILE_WALKING_OPTION option) {
  const auto entries = list.view();
  const auto directories = std::count_if(entries.begin(), entries.end(), countsAsDirectory);
  if (directories == 0) return;
  keepFirst(list, static_cast<std::int32_t>(directories));
  for (const dirent& entry : list.view()) {
    const std::string below = pathIn(path, entry.d_name);
    enter(entry.d_name);
    xWalking(below.c_str(), files, option, true);
    enter("..");
  }
}

/// Returns to `home` at the end of its life, also when the walk throws.
struct WorkingDirectoryGuard {
  explicit WorkingDirectoryGuard(const char* folder) : home(folder) {}
  ~WorkingDirectoryGuard() { enter(home); }
  WorkingDirectoryGuard(const WorkingDirectoryGuard&) = delete;
  WorkingDirectoryGuard& operator=(const WorkingDirectoryGuard&) = delete;

  const char* const home;
};

/// A zero-filled array that `free` releases.
template <class Element>
Element* allocate(std::size_t count) {
  void* block = std::calloc(std::max<std::size_t>(count, 1), sizeof(Element));
  if (block == nullptr) endOutOfMemory();
  return static_cast<Element*>(block);
}

void release(char** strings, int count) {
  if (strings == nullptr) return;
  for (int i = 0; i < count; ++i) std::free(strings[i]);
  std::free(strings);
}

char** copyOf(const std::list<std::string>& texts) {
  char** const strings = allocate<char*>(texts.size());
  char** next = strings;
  for (const std::string& text : texts) {
    *next = allocate<char>(text.size() + 1);
    std::memcpy(*next++, text.c_str(), text.size() + 1);
  }
  return strings;
}

bool refuse() {
  std::puts("Not supported!");
  return false;
}

}  // namespace

int xSortFiles(const void* a, const void* b) {
  const auto& first = *static_cast<const dirent*>(a);
  const auto& second = *static_cast<const dirent*>(b);
  if (countsAsDirectory(first) == countsAsDirectory(second)) {
    return std::strcmp(first.d_name, second.d_name);
  }
  return countsAsDirectory(first) ? -1 : 1;
}

void xAddFile(flist* list, dirent* entry) {
  // The system's records end after the name; a whole `dirent` may reach past its buffer.
  constexpr std::size_t kLongestName = sizeof entry->d_name - 1;
  const std::size_t toNameEnd = offsetof(dirent, d_name) + strnlen(entry->d_name, kLongestName) + 1;
  const std::size_t length = std::max<std::size_t>(entry->d_reclen, toNameEnd);
  dirent copy{};  // taken first: `entry` may lie in the block that grows
  std::memcpy(&copy, entry, std::min(length, sizeof copy));
  copy.d_name[kLongestName] = '\0';

  if (list->count == list->capacity) {
    if (list->capacity > std::numeric_limits<std::int32_t>::max() / 2) endOutOfMemory();
    const std::int32_t capacity = list->capacity == 0 ? kFirstCapacity : 2 * list->capacity;
    void* larger = std::realloc(list->entries, static_cast<std::size_t>(capacity) * sizeof(dirent));
    if (larger == nullptr) endOutOfMemory();
    list->entries = static_cast<dirent*>(larger);
    list->capacity = capacity;
  }
  list->entries[list->count++] = copy;
}

void xWalking(const char* path, std::list<std::string>& files, FILE_WALKING_OPTION option,
              bool recursive) {
  path = orEmpty(path);
  EntryList list;
  const bool isOpen = visitEntries(".", [&list](dirent& entry) {
    if (!isSelfOrParent(entry.d_name)) xAddFile(&list, &entry);
  });
  if (!isOpen) {
    std::printf("Error: cannot open directory %s\n", path);
    return;
  }
  if (list.count == 0) return;
  std::qsort(list.entries, list.view().size(), sizeof(dirent), xSortFiles);

  for (const dirent& entry : list.view()) {
    if (isListed(entry, option)) files.push_back(pathIn(path, entry.d_name));
  }
  if (recursive) walkBelow(path, list, files, option);
}

void xDirWalking(const char* path, char**& files, int& count, FILE_WALKING_OPTION option,
                 bool recursive) {
  path = orEmpty(path);
  std::array<char, kPathSize> home;
  if (getcwd(home.data(), home.size()) == nullptr) {
    std::puts("Error: cannot get current working directory!");
    return;
  }
  if (chdir(path) != 0) {
    std::puts("Error: cannot goto target directory!");
    return;
  }
  std::list<std::string> walked;
  {
    const WorkingDirectoryGuard guard(home.data());
    xWalking(path, walked, option, recursive);
  }
  char** const copied = copyOf(walked);
  release(files, count);
  files = copied;
  count = static_cast<int>(walked.size());
}

std::vector<std::string> xGetFileList(const std::string& folder) {
  std::vector<std::string> names;
  visitEntries(folder.c_str(), [&names](const dirent& entry) { names.emplace_back(entry.d_name); });
  return names;
}

std::vector<std::wstring> xGetFileList(const std::wstring& folder) {
  const std::vector<std::string> names = xGetFileList(wstr2str(folder, kChineseLocale));
  std::vector<std::wstring> wideNames;
  wideNames.reserve(names.size());
  for (const std::string& name : names) wideNames.push_back(str2wstr(name, kChineseLocale));
  return wideNames;
}

bool xGetFileNames(std::string&, std::string&, std::vector<std::string>&) {
  return refuse();
}

bool xGetFileNames(std::wstring&, std::wstring&, std::vector<std::wstring>&) {
  return refuse();
}

int xCPFileDialog(void*, char*, char*, std::vector<std::vector<std::string>>&, char*, int) {
  return 0;
}
