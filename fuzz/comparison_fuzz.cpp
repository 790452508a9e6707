// The tool's check and the comparison behind it. Input: two bytes for the target's length, then the
// target, then the query.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "FeatureReader.h"
#include "Input.h"
#include "ORV_CompareFeatures.h"

namespace {

/// A copy in a block of exactly its size, so that a stray read is seen.
std::unique_ptr<char[]> copyOf(const std::uint8_t* data, std::size_t size) {
  std::unique_ptr<char[]> copy(new char[size]);
  if (size != 0) std::memcpy(copy.get(), data, size);
  return copy;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isQuiet = std::freopen("/dev/null", "w", stdout) != nullptr;
  if (!isQuiet || size < 2) return 0;
  const std::size_t rest = size - 2;
  std::size_t targetSize = static_cast<std::size_t>(data[0]) | static_cast<std::size_t>(data[1])
                                                                   << 8;
  if (targetSize > rest) targetSize = rest;
  const std::size_t querySize = rest - targetSize;
  const auto target = copyOf(data + 2, targetSize);
  const auto query = copyOf(data + 2 + targetSize, querySize);

  if (!queryFramesFit(query.get(), querySize, targetSize)) return 0;
  double distance = -1.0;
  const int result =
      ORV_CompareFeatures(target.get(), static_cast<unsigned int>(targetSize), query.get(),
                          static_cast<unsigned int>(querySize), &distance);
  require(result != 0 || (distance >= 0.0 && distance <= 1.0));
  return 0;
}
