// Running a built program as a user does.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "support/Bytes.h"
#include "support/ScratchDir.h"

/// What a program leaves behind, compared at once.
struct Run {
  std::string out;
  std::string err;
  int status = 0;  // the exit status, or minus the signal that ended it

  bool operator==(const Run&) const = default;
  friend void PrintTo(const Run& run, std::ostream* stream) {
    *stream << "status " << run.status << "\n  out " << testing::PrintToString(run.out)
            << "\n  err " << testing::PrintToString(run.err);
  }
};

/// Runs `body` in a child process, which ends with it.
inline Run runChild(const std::function<void()>& body) {
  const ScratchDir dir;
  const std::string outPath = dir / "out", errPath = dir / "err";
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(open(outPath.c_str(), O_CREAT | O_WRONLY, 0600), STDOUT_FILENO);
    dup2(open(errPath.c_str(), O_CREAT | O_WRONLY, 0600), STDERR_FILENO);
    body();
    std::fflush(nullptr);
    _exit(0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return {readAll(outPath), readAll(errPath),
          WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status)};
}

/// Runs words[0] with the other words, within so many bytes of address space.
inline Run runProgram(const std::vector<std::string>& words, rlim_t addressSpace = RLIM_INFINITY) {
  std::vector<char*> argv;
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  return runChild([&] {
    const rlimit limit{addressSpace, addressSpace};
    setrlimit(RLIMIT_AS, &limit);
    execv(argv[0], argv.data());
    _exit(127);
  });
}
