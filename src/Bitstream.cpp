#include "Bitstream.h"

#include <cstdio>

namespace vorquell::detail {

void printReaderMessage(const char* format, std::uint32_t value) {
  std::printf(format, "read", static_cast<int>(value));
}

int readVersion(const char* bitstream, unsigned int length) {
  if (bitstream == nullptr || length == 0) {
    std::printf("%s: Empty bitstream\n", "read");
    return 0;
  }
  if (length < kMinLength) {
    std::printf("%s: Bitstream too short\n", "read");
    return 0;
  }
  const std::uint32_t version = readField(bitstream, kVersionOffset);
  if (version == 7 || version == 8) return static_cast<int>(version);
  printReaderMessage("%s: Invalid bitstream version (%d)\n", version);
  return 0;
}

bool isQueryWhole(const char* query, std::uint64_t querySize, std::uint64_t targetSize) {
  const auto queryLength = static_cast<std::uint32_t>(querySize);
  const auto targetLength = static_cast<std::uint32_t>(targetSize);
  const bool isParsed = query != nullptr && targetLength != 0 && queryLength != targetLength &&
                        queryLength >= kMinLength;
  if (!isParsed || readField(query, kVersionOffset) != 7) return true;

  if (querySize < kFrameCountOffset + kFieldSize) return false;
  const std::uint32_t frameCount = readField(query, kFrameCountOffset);
  return !isValidFrameCount(frameCount) || walkFrames(query, querySize, frameCount, targetLength,
                                                      [](std::uint64_t, std::uint32_t) {});
}

}  // namespace vorquell::detail
