#include "Brindle/XFileTool/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Brindle/XFileTool/paths.h"

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
  using Row = std::tuple<std::string, std::string, std::string, std::string>;
  for (const auto& [told, path, folder, printed] :
       {Row("/prog", "/prog", "", ""), Row("/a\\b  c//d", "/a\\b  c//d", "/a/b  c/", ""),
        Row("/d/" + p1020, "/d/" + p1020, "/d/", ""),
        Row("/d/" + p1020 + "/x", "/d/" + p1020, "/d/" + p1020 + "/", ""),
        Row("/" + p4093 + "/x", "/" + p1020 + "pp", "/" + p4093 + "/", ""),
        Row("/p" + p4093 + "/x", "/" + p1020 + "pp", "", ""), Row("refused", "", "", message)}) {
    executable = told;
    testing::internal::CaptureStdout();
    EXPECT_EQ(xGetCurrentAppPath(), path);
    EXPECT_EQ(xGetCurrentAppDir(), folder) << told;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
  }
  executable.clear();
}

TEST(Process, SplitsEnvironmentVariables) {
  using Row = std::pair<const char*, std::vector<std::string>>;
  for (const auto& [value, elements] : {Row("", {""}), Row(":", {"", ""}), Row("/bin", {"/bin"}),
                                        Row("a::b :", {"a", "", "b ", ""})}) {
    setenv("BRINDLE_TEST", value, 1);
    EXPECT_EQ(xGetEnvVariable("BRINDLE_TEST"), elements) << value;
  }
  EXPECT_TRUE(xGetEnvVariable("BRINDLE_TEST=").empty() && xGetEnvVariable(nullptr).empty());
}

}  // namespace
