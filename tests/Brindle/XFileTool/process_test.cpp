#include "Brindle/XFileTool/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Brindle/XFileTool/paths.h"
#include "support/InScratchDir.h"

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

using Process = InScratchDir;

TEST_F(Process, KnowsWhereItsExecutableIs) {
  const fs::path self = fs::canonical("/proc/self/exe");
  EXPECT_EQ(effect(xGetCurrentAppPath), Effect(self.string()));
  EXPECT_EQ(effect(xGetCurrentAppDir), Effect(xFixFolderPath(self.parent_path().string())));
}

TEST_F(Process, TruncatesThePathOfItsExecutable) {
  const std::string p1020(1020, 'p'), p4093(4093, 'p');
  const struct {
    std::string told;
    Effect path;
    Effect folder;
  } cases[] = {
      {"/prog", "/prog", ""},
      {"refused", {"", "Fail to readlink: Permission denied\n"}, ""},
      {"/a\\b  c//d", "/a\\b  c//d", "/a/b  c/"},
      {"/d/" + p1020, "/d/" + p1020, "/d/"},
      {"/d/" + p1020 + "/x", "/d/" + p1020, "/d/" + p1020 + "/"},
      {"/" + p4093 + "/x", "/" + p1020 + "pp", "/" + p4093 + "/"},
      {"/p" + p4093 + "/x", "/" + p1020 + "pp", ""},
  };
  for (const auto& [told, path, folder] : cases) {
    executable = told;
    EXPECT_EQ(effect(xGetCurrentAppPath), path) << told;
    EXPECT_EQ(effect(xGetCurrentAppDir), folder) << told;
  }
  executable.clear();
}

// How values are split is what fuzz/environment_fuzz.cpp shows.
TEST_F(Process, HasNoElementsOfAVariableThatIsMissing) {
  setenv("BRINDLE_TEST", "value", 1);
  EXPECT_EQ(xGetEnvVariable("BRINDLE_TEST="), Words());
  EXPECT_EQ(xGetEnvVariable(nullptr), Words());
}

}  // namespace
