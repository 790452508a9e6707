// Trees of folders that are made, listed and deleted, compared with what was asked for. Input: a
// tree, which is made in a scratch folder.
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Brindle/BrindleErrcode.h"
#include "Brindle/XFileTool/directories.h"
#include "Brindle/XFileTool/walking.h"
#include "Input.h"
#include "support/ScratchDir.h"

namespace {

struct Folder {
  std::map<std::string, Folder> folders;
  std::set<std::string> files;
};

/// Stays below the folder that it is taken in: not empty, neither "." nor "..", without separators.
std::string safeName(std::string name) {
  for (char& c : name) c = c == '\0' || c == '/' || c == '\\' ? 'x' : c;
  return name.find_first_not_of('.') == name.npos ? "dots" : name;
}

void makeTree(Input& input, Folder& root, const std::string& rootPath) {
  require(xCreateDir(rootPath.c_str(), 0) == gErrOffsetBrindle - 67);
  std::vector<std::pair<Folder*, std::string>> folders = {{&root, rootPath}};
  for (int i = input.between(0, 9); i > 0; --i) {
    const auto& [folder, path] =
        folders[static_cast<std::size_t>(input.between(0, 99)) % folders.size()];
    const std::string name = safeName(input.text(1, 30)), inside = path + '/' + name;
    if (folder->folders.contains(name) || folder->files.contains(name)) continue;
    if (inside.size() > 254) continue;  // ends the process
    const int kind = input.between(0, 3);
    if (kind < 2) folder->files.insert(name);
    if (kind == 0) mkfifo(inside.c_str(), 0600);
    if (kind == 1) std::ofstream(inside.c_str()) << name;
    if (kind < 2) continue;
    require(xCreateDir(inside.c_str(), 0) == gErrOffsetBrindle - 67 && xIsDirExist(inside));
    folders.emplace_back(&folder->folders[name], inside);
  }
}

void plainWalk(const Folder& folder, const std::string& path, int option, bool recursive,
               std::list<std::string>& found) {
  if (option != WALK_FILES) {
    for (const auto& [name, below] : folder.folders) found.push_back(path + '/' + name);
  }
  if (option != WALK_FOLDERS) {
    for (const std::string& name : folder.files) found.push_back(path + '/' + name);
  }
  if (!recursive) return;
  for (const auto& [name, below] : folder.folders) {
    plainWalk(below, path + '/' + name, option, recursive, found);
  }
}

/// Twice, as the second walk replaces the paths of the first.
void checkWalks(Input& input, const Folder& root, const std::string& path) {
  char** files = nullptr;
  int count = 0;
  for (int i = 0; i < 2; ++i) {
    const auto option = static_cast<FILE_WALKING_OPTION>(input.between(WALK_FILES, WALK_ALL));
    const bool recursive = input.flag();
    std::list<std::string> expected;
    plainWalk(root, path, option, recursive, expected);
    xDirWalking(path.c_str(), files, count, option, recursive);
    require(std::equal(expected.begin(), expected.end(), files, files + count));
  }
  for (int i = 0; i < count; ++i) std::free(files[i]);
  std::free(files);
}

void checkList(const Folder& root, const std::string& path) {
  std::multiset<std::string> expected(root.files.begin(), root.files.end());
  expected.insert({".", ".."});
  for (const auto& [name, below] : root.folders) expected.insert(name);
  const std::vector<std::string> names = xGetFileList(path);
  require(std::multiset<std::string>(names.begin(), names.end()) == expected);
}

/// Makes a chain of folders: of the text, one byte in four separates.
void checkChain(const std::string& path, std::string text) {
  for (char& c : text) c = "ab/\\"[static_cast<unsigned char>(c) % 4];
  const std::string chain = path + '/' + text;
  require(xCreateNestedDir(chain, 0) && std::filesystem::is_directory(chain));
  require(xDeleteDir(path.c_str()) == 0 && !xIsDirExist(path));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchDir scratch;
  static const std::filesystem::path workingDirectory = std::filesystem::current_path();
  if (size == 0) return 0;
  const std::string path = scratch / "tree";
  Input input(data, size);
  Folder root;
  makeTree(input, root, path);
  checkWalks(input, root, path);
  require(std::filesystem::current_path() == workingDirectory);
  checkList(root, path);
  checkChain(scratch / "chain", input.text(0, 15));
  require(xDeleteDir(path.c_str()) == 0 && !xIsDirExist(path));
  return 0;
}
