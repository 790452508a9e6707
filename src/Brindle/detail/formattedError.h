// The error line of the image and polyline functions. Private: not installed.
#pragma once

#include <cstdio>

namespace brindle::detail {

/// Prints "Error: TEXT (inside {SIGNATURE}; file: utility.cpp; line: LINE)\n". The file name and
/// the line numbers are fixed: programs that read the output know these errors by them.
inline void printFormattedError(const char* text, const char* signature, int line) {
  std::printf("Error: %s (inside {%s}; file: %s; line: %d)\n", text, signature, "utility.cpp",
              line);
}

}  // namespace brindle::detail
