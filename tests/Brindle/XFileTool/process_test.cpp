#include "Brindle/XFileTool/process.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/RunProgram.h"

namespace {

void printPlaceAndExit() {
  const std::string path = xGetCurrentAppPath();
  std::printf("%s\n%s\n", path.c_str(), xGetCurrentAppDir().c_str());
  std::fflush(stdout);
  _exit(0);
}

/// Asked by the environment, this program prints its place and does not test.
const bool isAsked = [] { return std::getenv("PRINT_PLACE") && (printPlaceAndExit(), true); }();

TEST(Process, KnowsWhereItsExecutableIs) {
  const ScratchDir dir;
  const std::string base = std::filesystem::canonical(dir.path());
  std::string deep = base + "/" + std::string(240, 'd');
  for (int doubling = 0; doubling < 2; ++doubling) deep += deep.substr(base.size());
  for (const auto& [folder, printed] :
       {std::pair(base + "/a\\b c", base + "/a\\b c/prog\n" + base + "/a/b c/\n"),
        std::pair(deep + "/d", (deep + "/d/prog").substr(0, 1023) + "\n" + deep + "/d/\n")}) {
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(std::filesystem::read_symlink("/proc/self/exe"), folder + "/prog");
    setenv("PRINT_PLACE", "1", 1);
    EXPECT_EQ(runProgram({folder + "/prog"}).out, printed);
    unsetenv("PRINT_PLACE");
  }
  if (geteuid() != 0) GTEST_SKIP() << "only root can do without /proc";
  const auto printWithoutProc = [&dir] {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    if (chroot(dir.path().c_str()) == 0) printPlaceAndExit();
  };
  EXPECT_EXIT(printWithoutProc(), testing::ExitedWithCode(0),
              "^Fail to readlink: " + std::string(strerror(ENOENT)) + "\n\n\n$");
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
