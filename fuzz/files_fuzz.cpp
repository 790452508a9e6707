// Files that are written, read, copied, joined and written over hold what plain strings hold.
// Input: what the files hold and what is done with them. All of them lie in a scratch folder.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include "Brindle/XFileTool/loading.h"
#include "Brindle/XFileTool/operations.h"
#include "Input.h"
#include "support/ScratchDir.h"

namespace {

const ScratchDir& scratch() {
  static const ScratchDir folder;
  return folder;
}

bool isJoining = false;

void checkReading(const std::string& path, const std::string& bytes, std::string before) {
  unsigned char* block = nullptr;
  std::uint64_t length = 0;
  xLoadBinFile(path.c_str(), block, length);
  require(std::string(block, block + length) == bytes);
  std::free(block);
  require(xReadWholeFile2(path.c_str(), before) == 0 && before == bytes);
  require(xReadWholeFile(path.c_str()) == bytes);
}

void checkCopying(const std::string& source, const std::string& bytes, bool isThere,
                  bool overwrite) {
  const std::string target = scratch() / "copy";
  if (isThere) scratch().write("copy", "before");
  const bool isAllowed = !isThere || overwrite, isCopied = isAllowed && !bytes.empty();
  require(xFileCopy(source.c_str(), target.c_str(), overwrite) == (isCopied ? 0 : -1));
  require(xIsFileExist(target.c_str()) == (isCopied || !isAllowed));
  require(readAll(target) == (isCopied ? bytes : isAllowed ? "" : "before"));
  require(xDeleteFile(target, -1, 0) == (isCopied || !isAllowed));
}

void checkWritingOver(const std::string& path, std::string bytes, const std::string& patch,
                      std::size_t at) {
  const auto size = static_cast<unsigned int>(patch.size());
  require(xWriteFileThroughCache(path.c_str(), patch.data(), size, static_cast<int>(at)) == 0);
  if (!patch.empty() && bytes.size() < at + patch.size()) bytes.resize(at + patch.size());
  if (!patch.empty()) bytes.replace(at, patch.size(), patch);
  require(readAll(path) == bytes && xFileSync(path.c_str()) == 0);
}

/// Joins some of the files, with blanks after their names, and a missing one.
void checkJoining(Input& input, const std::vector<std::string>& contents) {
  const std::string output = scratch() / "joined file";
  std::list<std::string> names;
  std::string expected;
  for (int i = input.between(0, 5); i > 0; --i) {
    const auto which =
        static_cast<std::size_t>(input.between(-1, static_cast<int>(contents.size())));
    names.push_back(which > contents.size() ? "" : scratch() / std::to_string(which));
    names.back().append(static_cast<std::size_t>(input.between(0, 2)), ' ');
    if (which < contents.size()) expected += contents[which];
  }
  isJoining = true;
  require(xConcatBinaryFiles(names, output) == 0);
  isJoining = false;
  require(xIsFileExist(output.c_str()) == !names.empty());
  require(readAll(output) == expected);
  xDeleteFile(output, -1, 0);
}

}  // namespace

/// Stands in for the shell, which no input may reach: joins what stands between double quotes. A
/// fuzzer starts others of its kind through the shell, too.
extern "C" int __real_system(const char* command);
extern "C" int __wrap_system(const char* command) {
  if (!isJoining) return __real_system(command);
  std::vector<std::string> pieces(1);
  for (; *command != '\0'; ++command) {
    if (*command == '"') pieces.emplace_back();
    if (*command != '"') pieces.back() += *command;
  }
  const std::size_t last = pieces.size() - 2;
  require(pieces.front().starts_with("cat ") && pieces.at(last - 1).ends_with(" > "));
  std::string joined;
  for (std::size_t i = 1; i < last; i += 2) joined += readAll(pieces[i]);
  std::ofstream(pieces[last], std::ios::binary) << joined;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Input input(data, size);
  std::vector<std::string> contents(3);
  for (std::size_t i = 0; i < contents.size(); ++i) {
    contents[i] = input.text(0, 300);
    checkReading(scratch().write(std::to_string(i), contents[i]), contents[i], input.text(0, 300));
  }
  const bool isThere = input.flag();
  checkCopying(scratch() / "0", contents[0], isThere, input.flag());
  checkJoining(input, contents);
  const auto at = static_cast<std::size_t>(input.between(0, 400));
  checkWritingOver(scratch() / "0", contents[0], input.text(0, 300), at);
  return 0;
}
