#include "FeatureReader.h"

#include "Bitstream.h"

using namespace vorquell::detail;

FeatureReader::~FeatureReader() = default;

FeatureList FeatureReader::read(const char* bitstream, unsigned int length,
                                unsigned int featureLength) {
  switch (readVersion(bitstream, length)) {
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
  return isQueryWhole(query, querySize, targetSize);
}
