// Runs a program as a user would and gathers what it leaves behind.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/ScratchDir.h"

struct ProgramResult {
  int status = -1;  // as waitpid gives it: 0 for exit status 0
  std::string out, err;
  long peakKiB = 0;
};

inline std::string readAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// `addressSpace` limits the program's memory, in bytes; 0 for no limit.
inline ProgramResult runProgram(const std::vector<std::string>& words, rlim_t addressSpace = 0) {
  const ScratchDir dir;
  const std::string outPath = dir / "out";
  const std::string errPath = dir / "err";
  std::vector<char*> argv;
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);

  const pid_t child = fork();
  if (child == 0) {
    dup2(open(outPath.c_str(), O_CREAT | O_WRONLY, 0600), STDOUT_FILENO);
    dup2(open(errPath.c_str(), O_CREAT | O_WRONLY, 0600), STDERR_FILENO);
    if (addressSpace != 0) {
      const rlimit limit{addressSpace, addressSpace};
      setrlimit(RLIMIT_AS, &limit);
    }
    execv(argv[0], argv.data());
    _exit(127);
  }
  ProgramResult result;
  rusage usage{};
  wait4(child, &result.status, 0, &usage);
  result.out = readAll(outPath);
  result.err = readAll(errPath);
  result.peakKiB = usage.ru_maxrss;
  return result;
}
