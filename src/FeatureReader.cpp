#include "FeatureReader.h"

#include "FrameWalk.h"

using namespace vorquell::detail;

int vorquell::detail::supportedVersion(const char* bitstream, unsigned int length) {
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

FeatureReader::~FeatureReader() = default;

FeatureList FeatureReader::read(const char* bitstream, unsigned int length,
                                unsigned int featureLength) {
  switch (supportedVersion(bitstream, length)) {
    case 7:
      return FeatureReaderV7().read(bitstream, length, featureLength);
    case 8:
      return FeatureReaderV8().read(bitstream, length, featureLength);
    default:
      return {};
  }
}

FeatureList FeatureReaderV7::read(const char* bitstream, unsigned int /*length*/,
                                  unsigned int featureLength) {
  FeatureList features;
  if (bitstream == nullptr) return features;
  forEachFeature(bitstream, featureLength,
                 [&](const char* feature) { features.push_back(feature); });
  return features;
}

FeatureList FeatureReaderV8::read(const char* /*bitstream*/, unsigned int /*length*/,
                                  unsigned int /*featureLength*/) {
  return {};
}

bool queryFramesFit(const char* query, std::uint64_t querySize, std::uint64_t targetSize) {
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
