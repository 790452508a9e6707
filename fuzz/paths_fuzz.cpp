// The path functions, held against the library's tokenizer and against replacing pair by pair.
// Input: a path.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Brindle/XFileTool/paths.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

std::wstring widened(const std::string& bytes) {
  return {bytes.begin(), bytes.end()};
}

/// Checks the last token of `path`, narrow and wide, and releases both.
void checkToken(const std::string& path, const char* delimiters, char* result, wchar_t* wide) {
  std::string copy = path;
  std::string last;
  bool isTooLong = false;
  for (char* t = std::strtok(copy.data(), delimiters); t; t = std::strtok(nullptr, delimiters)) {
    last = t;
    isTooLong = isTooLong || last.size() > 1023;
  }
  require(isTooLong == (result == nullptr));
  require(isTooLong == (wide == nullptr));
  require(isTooLong || (last == result && widened(last) == wide));
  std::free(result);
  std::free(wide);
}

/// The folder and the last component are `path` without as much as the other one is long.
template <class Char>
void checkSplit(const std::basic_string<Char>& path) {
  std::basic_string<Char> name(1024, Char{1});
  std::basic_string<Char> folder(path.size() + 1, Char{1});
  const int result = xGetFileNameFolderPath(path.c_str(), name.data(), folder.data());
  Char* component = xGetFileNameExtension(path.c_str());
  require((result == 0) == (component != nullptr));
  if (component == nullptr) {
    require(name[0] == Char{1} && folder[0] == Char{1});
    return;
  }
  name = name.c_str();
  folder = folder.c_str();
  require(name == component);
  require(folder == path.substr(0, path.size() - name.size()));
  if (path.size() > 259) folder.clear();
  require(xGetFileNameFolderPath(path, false, false, true) == folder);
  std::free(component);
}

void checkUniform(const std::wstring& path) {
  std::wstring plain = path;
  for (wchar_t& c : plain) c = c == L'\\' ? L'/' : c;
  const std::size_t start = xIsPathAbsolute(path) ? 2 : 0;
  for (std::size_t at; (at = plain.find(L"//", start)) != plain.npos;) plain.replace(at, 2, L"/");
  require(xUniformFilePath(path) == plain);
  if (!plain.empty() && plain.back() != L'/') plain += L'/';
  require(xFixFolderPath(path) == plain);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  const std::string path = bytes.c_str();
  const std::wstring wide = widened(path);
  checkToken(path, ". ", xGetFileExtension(path.c_str()), xGetFileExtension(wide.c_str()));
  checkToken(path, "/\\", xGetFileNameExtension(path.c_str()), xGetFileNameExtension(wide.c_str()));
  checkSplit(path);
  checkSplit(wide);
  checkUniform(widened(bytes));
  require(xDeleteExtension(bytes) + xGetFileExtension(bytes, true) == bytes);
  require(xUniformFilePath(bytes).size() <= bytes.size());
  return 0;
}
