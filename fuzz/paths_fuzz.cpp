// Every path function, held against the library's tokenizer, against replacing pair by pair, and
// against plain searches. Input: a path.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Brindle/XFileTool/paths.h"
#include "Input.h"

namespace {

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

/// Checks the parts that the flags keep.
template <class Char>
void checkParts(const std::basic_string<Char>& path) {
  std::size_t name = path.size();
  while (name > 0 && path[name - 1] != Char{'/'} && path[name - 1] != Char{'\\'}) --name;
  for (const bool keepFolder : {false, true}) {
    const auto kept = keepFolder ? path : path.substr(name);
    require(xGetFileNameFolderPath(path, keepFolder, true, false) == kept);
    require(xGetFileNameFolderPath(path, keepFolder, false, false) == xDeleteExtension(kept));
  }
}

/// Checks `path` against extensions, and releases `token`, what it is to end in; null for a path
/// that is refused.
template <class Char>
void checkMatch(const std::basic_string<Char>& path, Char* token) {
  const bool isWhole = token != nullptr && path == token;
  const bool isEmpty = token != nullptr && *token == Char{};
  const auto matches = [&](const std::basic_string<Char>& ext) {
    return xCheckFileExtension(path.c_str(), ext.c_str());
  };
  require(matches({}) == (isWhole || isEmpty));
  require(matches(path) == isWhole);
  require(!matches(path + Char{'x'}));
  require(token == nullptr || matches(token));
  std::free(token);
}

void checkBackward(const std::string& path) {
  std::string plain = path;
  std::replace(plain.begin(), plain.end(), '/', '\\');
  require(forwardSlashToBackward(path) == plain);
  require(forwardSlashToBackward(widened(path)) == widened(plain));
}

/// ASCII needs no conversion, and no room but its own.
void checkNarrowUniform(const std::string& path) {
  const std::wstring wide = widened(path.c_str());
  require(xIsPathAbsolute(path) == (wide[0] == L'/'));
  require(xIsPathAbsolute(wide) == (wide[0] == L'/'));
  if (std::any_of(wide.begin(), wide.end(), [](wchar_t c) { return c < 0 || c > 0x7F; })) return;
  require(widened(xUniformFilePath(path)) == xUniformFilePath(wide));
  require(widened(xFixFolderPath(path)) == xFixFolderPath(wide));
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
  checkParts(bytes);
  checkParts(widened(bytes));
  checkMatch(path, xGetFileExtension(path.c_str()));
  checkMatch(wide, xGetFileNameExtension(wide.c_str()));
  checkBackward(bytes);
  checkNarrowUniform(bytes);
  checkUniform(widened(bytes));
  require(xDeleteExtension(bytes) + xGetFileExtension(bytes, true) == bytes);
  require(xUniformFilePath(bytes).size() <= bytes.size());
  return 0;
}
