#include "Brindle/utility/console.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "detail/wrap.h"

using namespace vorquell::detail;

namespace {

constexpr std::int64_t kFrameLength = 9;  // "|" before the cells and "| [100%]" after them

void printRepeated(char character, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) std::putchar(character);
}

void printCells(int width, int filled) {
  const bool isFull = filled >= width;
  printRepeated('=', isFull ? filled : filled - std::int64_t{1});
  if (!isFull && filled > 0) std::putchar('>');
  printRepeated(' ', std::int64_t{width} - filled);
}

}  // namespace

int displayConsoleProgressBar(int percent, char* text, bool overwrite, int width) {
  static int previousStrLen = 0;

  percent = std::clamp(percent, 0, 100);
  if (overwrite) printRepeated('\b', previousStrLen);
  std::putchar('|');
  printCells(width, wrappingMultiply(width, percent) / 100);
  std::printf("| [%3d%%]", percent);
  if (text != nullptr) std::printf(" %s", text);

  const std::int64_t textLength = text == nullptr ? 0 : std::int64_t(std::strlen(text)) + 1;
  const int length = wrapped(textLength + width + kFrameLength);
  if (length < previousStrLen) {
    const int excess = wrappingSubtract(previousStrLen, length);
    printRepeated(' ', excess);
    printRepeated('\b', excess);
  }
  previousStrLen = length;
  std::fflush(stdout);
  return percent;
}
