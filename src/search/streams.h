// Standard output and standard error of VorquellSearch.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vorquell::search {

/// Why the program ends with status 2: the line that is then printed, without the program's name.
struct Fatal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What the system says to an error number.
std::string reasonOf(int error);

/// Sees to it that a file that is opened later is not taken for a standard stream that the caller
/// closed, and that no line for a closed standard error ends the program.
void prepareStandardStreams();

/// Prints "VorquellSearch: " and `text` as one line on standard error, where that can be written.
void printMessage(std::string_view text);

/// Standard output, in large writes; the last one is finish()'s. Where it cannot be written, throws
/// Fatal; after prepareStandardStreams() a reader that closed the pipe ends the program by SIGPIPE,
/// unless the caller has that signal ignored.
class Output {
 public:
  void append(std::string_view text);
  void append(char c) { append(std::string_view(&c, 1)); }
  void finish();

 private:
  void flush();
  std::string pending_;
};

}  // namespace vorquell::search
