// Walking a tree against `find` piped to `sort`, and copying a file against `cp`.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "Brindle/XFileTool/operations.h"
#include "Brindle/XFileTool/walking.h"
#include "ratio.h"
#include "support/Bytes.h"
#include "support/ScratchDir.h"

namespace {

void shell(const std::string& command) {
  if (std::system(command.c_str()) != 0) std::exit(EXIT_FAILURE);
}

/// What a walk lists, a line each.
std::string walkedLines(const std::string& root) {
  char** files = nullptr;
  int count = 0;
  xDirWalking(root.c_str(), files, count, WALK_FILES, true);
  std::string lines;
  for (int i = 0; i < count; ++i) {
    lines.append(files[i]).append("\n");
    std::free(files[i]);
  }
  std::free(files);
  return lines;
}

void walking(const ScratchDir& dir, int folders, int filesEach) {
  const std::string root = dir / ("tree" + std::to_string(folders));
  for (int folder = 0; folder < folders; ++folder) {
    const std::string path = root + "/folder" + std::to_string(1000 + folder);
    std::filesystem::create_directories(path);
    for (int file = 0; file < filesEach; ++file) {
      std::ofstream(path + "/file" + std::to_string(10000 + file));
    }
  }
  const std::string listing = dir / "listing";
  const auto walk = [root] { walkedLines(root); };
  const auto find = [root, listing] {
    shell("find " + root + " -type f | LC_ALL=C sort > " + listing);
  };
  // All names are of one length, so the walk's order is the order of the whole paths.
  const auto agree = [=] {
    find();
    std::ifstream file(listing);
    return walkedLines(root) == std::string(std::istreambuf_iterator<char>(file), {});
  };
  bench::pair("xDirWalking/" + std::to_string(folders) + "x" + std::to_string(filesEach), walk,
              find, agree);
}

void copying(const ScratchDir& dir, std::size_t mebibytes) {
  const std::string source = dir.write("source", randomBytes(mebibytes << 20, 1));
  const std::string copied = dir / "copied";
  const std::string plain = dir / "plain";
  const auto copy = [=] { xFileCopy(source.c_str(), copied.c_str(), true); };
  const auto cp = [=] { shell("cp " + source + " " + plain); };
  const auto agree = [=] {
    copy();
    cp();
    shell("cmp " + source + " " + copied);
    shell("cmp " + source + " " + plain);
    return true;
  };
  bench::pair("xFileCopy/" + std::to_string(mebibytes) + "MiB", copy, cp, agree);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  static const ScratchDir dir;  // std::exit() removes it, too
  walking(dir, 1000, 100);
  walking(dir, 1, 10'000);
  copying(dir, 256);
  benchmark::RunSpecifiedBenchmarks();
}
