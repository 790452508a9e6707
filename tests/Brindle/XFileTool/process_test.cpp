#include "Brindle/XFileTool/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Brindle/XFileTool/paths.h"
#include "support/Outcome.h"

std::string executable;  // what the system tells instead of the truth, if not empty

/// Reads links as the system does, but for the executable's.
extern "C" ssize_t readlink(const char* path, char* buffer, std::size_t size) noexcept {
  if (executable.empty() || strcmp(path, "/proc/self/exe") != 0) {
    return readlinkat(AT_FDCWD, path, buffer, size);
  }
  errno = EACCES;
  return executable == "refused" ? -1 : static_cast<ssize_t>(executable.copy(buffer, size));
}

namespace {

TEST(Process, KnowsWhereItsExecutableIs) {
  const std::filesystem::path self = std::filesystem::canonical("/proc/self/exe");
  EXPECT_EQ(xGetCurrentAppPath(), self);
  EXPECT_EQ(xGetCurrentAppDir(), xFixFolderPath(self.parent_path().string()));

  const std::string p1020(1020, 'p'), p4093(4093, 'p');
  const std::string message = std::string("Fail to readlink: ") + strerror(EACCES) + "\n";
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"/prog", "/prog", "", ""},
      {"refused", "", "", message},
      {"/a\\b  c//d", "/a\\b  c//d", "/a/b  c/", ""},
      {"/d/" + p1020, "/d/" + p1020, "/d/", ""},
      {"/d/" + p1020 + "/x", "/d/" + p1020, "/d/" + p1020 + "/", ""},
      {"/" + p4093 + "/x", "/" + p1020 + "pp", "/" + p4093 + "/", ""},
      {"/p" + p4093 + "/x", "/" + p1020 + "pp", "", ""},
  };
  for (const auto& [told, path, folder, printed] : cases) {
    executable = told;
    EXPECT_EQ(outcome(xGetCurrentAppPath), std::pair(path, printed)) << told;
    EXPECT_EQ(outcome(xGetCurrentAppDir), std::pair(folder, std::string())) << told;
  }
  executable.clear();
}

TEST(Process, SplitsEnvironmentVariables) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {""}}, {":", {"", ""}}, {"/bin", {"/bin"}}, {"a::b :", {"a", "", "b ", ""}}};
  for (const auto& [value, elements] : cases) {
    setenv("BRINDLE_TEST", value, 1);
    EXPECT_EQ(xGetEnvVariable("BRINDLE_TEST"), elements) << value;
  }
  EXPECT_TRUE(xGetEnvVariable("BRINDLE_TEST=").empty() && xGetEnvVariable(nullptr).empty());
}

}  // namespace
