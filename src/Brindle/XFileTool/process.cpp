#include "Brindle/XFileTool/process.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Brindle/XFileTool/paths.h"

namespace {

/// Returns at most `longest` bytes of the executable's path; empty, with `errno` set, on failure.
std::string executablePath(std::size_t longest) {
  std::string path(longest, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), longest);
  path.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return path;
}

}  // namespace

std::string xGetCurrentAppPath() {
  std::string path = executablePath(1023);
  if (path.empty()) std::printf("Fail to readlink: %s\n", std::strerror(errno));
  return path;
}

std::string xGetCurrentAppDir() {
  std::string path = executablePath(4095);
  path.resize(std::min(path.size(), path.rfind('/')));
  return xFixFolderPath(path);
}

std::vector<std::string> xGetEnvVariable(const char* name) {
  const char* value = name == nullptr ? nullptr : std::getenv(name);
  std::vector<std::string> elements;
  if (value == nullptr) return elements;
  while (const char* colon = std::strchr(value, ':')) {
    elements.emplace_back(value, colon);
    value = colon + 1;
  }
  elements.emplace_back(value);
  return elements;
}
