#include "Brindle/XFileTool/paths.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/detail/condition.h"
#include "Brindle/detail/locales.h"
#include "Brindle/detail/path.h"

using namespace brindle::detail;

namespace {

constexpr std::size_t kResultSize = 1024;       // characters in a block that is handed out
constexpr std::size_t kLongestForFolder = 259;  // characters of a path that only loses its name

template <class Char>
constexpr Char kExtensionDelimiters[] = {'.', ' ', 0};

template <class Char>
using View = std::basic_string_view<Char>;
template <class Char>
using String = std::basic_string<Char>;

/// Returns the last token of `text`, empty where there is none; nothing for null, or when any of
/// the tokens is too long for a block that is handed out.
template <class Char>
std::optional<View<Char>> lastToken(const Char* text, const Char* delimiters) {
  if (text == nullptr) return std::nullopt;
  View<Char> rest(text);
  View<Char> token;
  for (;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(delimiters), rest.size()));
    if (rest.empty()) return token;
    token = rest.substr(0, rest.find_first_of(delimiters));
    if (token.size() >= kResultSize) return std::nullopt;
    rest.remove_prefix(token.size());
  }
}

template <class Char>
Char* newCString(std::optional<View<Char>> text) {
  if (!text) return nullptr;
  auto* const result = static_cast<Char*>(std::malloc(kResultSize * sizeof(Char)));
  if (result != nullptr) result[text->copy(result, text->size())] = Char{};
  return result;
}

template <class Char>
String<Char> extensionOf(const String<Char>& path, bool withDot) {
  const std::size_t dot = path.rfind(Char{'.'});
  if (dot == path.npos) return {};
  return path.substr(withDot ? dot : dot + 1);
}

template <class Char>
String<Char> withoutExtension(const String<Char>& path) {
  return path.substr(0, path.rfind(Char{'.'}));
}

/// `target` may overlap `text`; null takes nothing.
template <class Char>
void copyOut(View<Char> text, Char* target) {
  if (target == nullptr) return;
  View<Char>::traits_type::move(target, text.data(), text.size());
  target[text.size()] = Char{};
}

template <class Char>
int split(const Char* path, Char* name, Char* folder) {
  if (path == nullptr) return conditionCode(Condition::kFailToLocateFile);
  const auto component = lastToken(path, kSeparators<Char>);
  if (!component) return conditionCode(Condition::kPathTooLong);
  const View<Char> whole(path);
  const View<Char> rest = whole.substr(0, whole.size() - component->size());
  copyOut(*component, name);
  copyOut(rest, folder);
  return 0;
}

template <class Char>
String<Char> folderOf(const String<Char>& path) {
  const View<Char> text(path.c_str());
  if (text.size() > kLongestForFolder) return {};
  const auto component = lastToken(text.data(), kSeparators<Char>);
  return String<Char>(text.substr(0, text.size() - component->size()));
}

template <class Char>
String<Char> partsOf(const String<Char>& path, bool keepFolder, bool keepExtension,
                     bool folderOnly) {
  if (folderOnly) return folderOf(path);
  const std::size_t name = keepFolder ? 0 : path.find_last_of(kSeparators<Char>) + 1;
  const String<Char> kept = path.substr(name);
  return keepExtension ? kept : withoutExtension(kept);
}

/// Whether the last token of `path` is `ext`; a path that is one whole token needs none.
template <class Char>
bool endsInToken(const Char* path, const Char* delimiters, const Char* ext) {
  if (ext == nullptr) return false;
  const auto token = lastToken(path, delimiters);
  if (!token) return false;
  const View<Char> asked(ext);
  return *token == asked || (asked.empty() && *token == View<Char>(path));
}

template <class Char>
String<Char> withReplaced(String<Char> path, Char from, Char to) {
  std::replace(path.begin(), path.end(), from, to);
  return path;
}

}  // namespace

char* xGetFileExtension(const char* path) {
  return newCString(lastToken(path, kExtensionDelimiters<char>));
}

wchar_t* xGetFileExtension(const wchar_t* path) {
  return newCString(lastToken(path, kExtensionDelimiters<wchar_t>));
}

std::string xGetFileExtension(const std::string& path, bool withDot) {
  return extensionOf(path, withDot);
}

std::wstring xGetFileExtension(const std::wstring& path, bool withDot) {
  return extensionOf(path, withDot);
}

char* xGetFileNameExtension(const char* path) {
  return newCString(lastToken(path, kSeparators<char>));
}

wchar_t* xGetFileNameExtension(const wchar_t* path) {
  return newCString(lastToken(path, kSeparators<wchar_t>));
}

int xGetFileNameFolderPath(const char* path, char* name, char* folder) {
  return split(path, name, folder);
}

int xGetFileNameFolderPath(const wchar_t* path, wchar_t* name, wchar_t* folder) {
  return split(path, name, folder);
}

std::string xGetFileNameFolderPath(const std::string& path, bool keepFolder, bool keepExtension,
                                   bool folderOnly) {
  return partsOf(path, keepFolder, keepExtension, folderOnly);
}

std::wstring xGetFileNameFolderPath(const std::wstring& path, bool keepFolder, bool keepExtension,
                                    bool folderOnly) {
  return partsOf(path, keepFolder, keepExtension, folderOnly);
}

bool xCheckFileExtension(const char* path, const char* ext) {
  return endsInToken(path, kExtensionDelimiters<char>, ext);
}

bool xCheckFileExtension(const wchar_t* path, const wchar_t* ext) {
  return endsInToken(path, kSeparators<wchar_t>, ext);
}

std::string xDeleteExtension(const std::string& path) {
  return withoutExtension(path);
}

std::wstring xDeleteExtension(const std::wstring& path) {
  return withoutExtension(path);
}

std::string forwardSlashToBackward(std::string path) {
  return withReplaced(std::move(path), '/', '\\');
}

std::wstring forwardSlashToBackward(std::wstring path) {
  return withReplaced(std::move(path), L'/', L'\\');
}

std::string xUniformFilePath(std::string path) {
  return wstr2str(xUniformFilePath(str2wstr(std::move(path), kUniformPathLocale)),
                  kUniformPathLocale);
}

std::wstring xUniformFilePath(std::wstring path) {
  const std::size_t untouched = xIsPathAbsolute(path) ? 2 : 0;
  std::wstring uniform = withReplaced(std::move(path), L'\\', L'/');
  if (uniform.size() <= untouched) return uniform;
  const auto isPair = [](wchar_t a, wchar_t b) { return a == L'/' && b == L'/'; };
  const auto begin = uniform.begin() + static_cast<std::ptrdiff_t>(untouched);
  uniform.erase(std::unique(begin, uniform.end(), isPair), uniform.end());
  return uniform;
}

std::string xFixFolderPath(std::string path) {
  return wstr2str(xFixFolderPath(str2wstr(std::move(path), kUniformPathLocale)),
                  kUniformPathLocale);
}

std::wstring xFixFolderPath(std::wstring path) {
  std::wstring folder = xUniformFilePath(std::move(path));
  if (!folder.empty() && folder.back() != L'/') folder += L'/';
  return folder;
}

bool xIsPathAbsolute(const std::string& path) {
  return xIsPathAbsolute(str2wstr(path, kChineseLocale));
}

bool xIsPathAbsolute(const std::wstring& path) {
  return !path.empty() && path.front() == L'/';
}
