#include "Brindle/utility/console.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kFrameLength = 9;  // "|" before the cells and "| [100%]" behind them

void printRepeated(char character, int count) {
  for (int i = 0; i < count; ++i) std::putchar(character);
}

/// width * percent / 100, where the product wraps around in 32 bits.
int filledCells(int width, int percent) {
  const unsigned int product =
      static_cast<unsigned int>(width) * static_cast<unsigned int>(percent);
  return static_cast<int>(product) / 100;
}

void printCells(int width, int filled) {
  const bool isFull = filled >= width;
  printRepeated('=', isFull ? filled : filled - 1);
  if (!isFull && filled > 0) std::putchar('>');
  printRepeated(' ', width - filled);
}

}  // namespace

int displayConsoleProgressBar(int percent, char* text, bool overwrite, int width) {
  static int previousStrLen = 0;

  percent = std::clamp(percent, 0, 100);
  if (overwrite) printRepeated('\b', previousStrLen);
  std::putchar('|');
  printCells(width, filledCells(width, percent));
  std::printf("| [%3d%%]", percent);
  if (text != nullptr) std::printf(" %s", text);

  const int textLength = text == nullptr ? 0 : static_cast<int>(std::strlen(text)) + 1;
  const int length = textLength + width + kFrameLength;
  printRepeated(' ', previousStrLen - length);
  printRepeated('\b', previousStrLen - length);
  previousStrLen = length;
  std::fflush(stdout);
  return percent;
}
