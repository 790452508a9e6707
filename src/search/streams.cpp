#include "search/streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "search/files.h"

namespace vorquell::search {

namespace {

constexpr std::size_t kWriteSize = 64 << 10;

auto inheritedSigpipe = SIG_DFL;

[[noreturn]] void failToWrite(int error) {
  if (error == EPIPE) {  // ends the process, unless whoever started it ignores the signal
    std::signal(SIGPIPE, inheritedSigpipe);
    std::raise(SIGPIPE);
  }
  throw Fatal("standard output: " + reasonOf(error));
}

}  // namespace

std::string reasonOf(int error) {
  return std::strerror(error);
}

void prepareStandardStreams() {
  // What takes the place of a closed stream can be used only the wrong way round. The lowest free
  // number is the one that open() returns.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) == -1) {
      open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
  inheritedSigpipe = std::signal(SIGPIPE, SIG_IGN);
}

void printMessage(std::string_view text) {
  std::string line = "VorquellSearch: ";
  line += text;
  line += '\n';
  writeAll(STDERR_FILENO, line);
}

void Output::append(std::string_view text) {
  pending_ += text;
  if (pending_.size() >= kWriteSize) flush();
}

void Output::flush() {
  if (const int error = writeAll(STDOUT_FILENO, pending_); error != 0) failToWrite(error);
  pending_.clear();
}

void Output::finish() {
  flush();
  // Some file systems report only now that there was no room.
  if (close(STDOUT_FILENO) != 0) failToWrite(errno);
}

}  // namespace vorquell::search
