// Running code and programs in processes of their own.
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string>

#include "support/Bytes.h"
#include "support/ScratchDir.h"
#include "support/Table.h"

/// What a process leaves behind.
struct Run {
  std::string out;
  std::string err;
  int status = 0;  // the exit status, or minus the signal that ended it
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

/// What a line of a shell, which finds $PROGRAM by its name, prints on both streams; its status.
inline support::Words runLine(const std::string& line) {
  const std::string script = "PATH=${PROGRAM%/*}:$PATH; " + line;
  const Run run = runChild([&] {
    execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    _exit(127);
  });
  return {run.out, run.err, std::to_string(run.status)};
}

/// Checks rows sh LINE = OUT ERR STATUS.
inline void checkLines(const std::string& file) {
  support::checkTable(file, {{"sh", [](const support::Row& row) {
                                EXPECT_EQ(runLine(row.arguments.at(0)), row.results);
                              }}});
}
