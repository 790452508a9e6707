// Wraps features of one length into a version 7 bitstream, or writes the bundled samples.
//
//   make_bitstream wrap OUTPUT FEATURE...   one frame for each feature file, in the order given
//   make_bitstream samples FOLDER           target.bin, query.bin and query_v7.bin
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kHeaderSize = 184;
constexpr std::size_t kVersionOffset = 4;
constexpr std::size_t kFrameCountOffset = 64;
constexpr std::size_t kFrameHeaderSize = 32;
constexpr std::size_t kFeatureLengthOffset = 24;
constexpr std::size_t kMaxFrames = 1500;
constexpr std::size_t kMaxLength = (std::size_t{1} << 28) - 1;  // of a feature

void putField(std::string& bytes, std::size_t offset, std::size_t value) {
  for (std::size_t i = 0; i < 4; ++i) bytes[offset + i] = static_cast<char>(value >> (8 * i));
}

/// Whether all features that are not empty have the same length. A comparison finds its way through
/// a bitstream only then.
bool haveOneLength(const std::vector<std::string>& features) {
  std::set<std::size_t> lengths;
  for (const std::string& feature : features) {
    if (!feature.empty()) lengths.insert(feature.size());
  }
  return lengths.size() <= 1;
}

std::string wrapFeatures(const std::vector<std::string>& features) {
  if (features.empty() || features.size() > kMaxFrames) {
    throw std::runtime_error("a bitstream holds 1 to 1500 features");
  }
  if (!haveOneLength(features)) {
    throw std::runtime_error("all features must have the same length, or none");
  }
  for (const std::string& feature : features) {
    if (feature.size() > kMaxLength) throw std::runtime_error("a feature has less than 2^28 bytes");
  }
  std::string bitstream(kHeaderSize, '\0');
  putField(bitstream, kVersionOffset, 7);
  putField(bitstream, kFrameCountOffset, features.size());
  for (const std::string& feature : features) {
    std::string header(kFrameHeaderSize, '\0');
    putField(header, kFeatureLengthOffset, feature.size());
    bitstream += header + feature;
  }
  return bitstream;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

/// 256 bytes that look random and are the same everywhere.
std::string sampleFeature() {
  std::string feature(256, '\0');
  std::uint32_t state = 20180102;
  for (char& byte : feature) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24);
  }
  return feature;
}

/// Flips one bit in every byte of the feature's first `count`.
std::string withBytesTouched(std::string feature, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) feature[i] = static_cast<char>(feature[i] ^ 1);
  return feature;
}

/// The query differs from the target in one bit of eight; of the bitstream's five frames the
/// fourth is the closest: it differs in 64 of 2048 bits, a distance of 0.03125.
void writeSamples(const std::string& folder) {
  const std::string target = sampleFeature();
  std::vector<std::string> frames;
  for (const std::size_t touched : {256U, 128U, 192U, 64U, 96U}) {
    frames.push_back(withBytesTouched(target, touched));
  }
  writeFile(folder + "/target.bin", target);
  writeFile(folder + "/query.bin", withBytesTouched(target, 256));
  writeFile(folder + "/query_v7.bin", wrapFeatures(frames));
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  try {
    if (words.size() == 2 && words[0] == "samples") {
      writeSamples(words[1]);
    } else if (words.size() >= 3 && words[0] == "wrap") {
      std::vector<std::string> features;
      for (std::size_t i = 2; i < words.size(); ++i) features.push_back(readFile(words[i]));
      writeFile(words[1], wrapFeatures(features));
    } else {
      std::fprintf(stderr,
                   "usage: make_bitstream wrap OUTPUT FEATURE...\n"
                   "       make_bitstream samples FOLDER\n");
      return 2;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_bitstream: %s\n", error.what());
    return 1;
  }
  return 0;
}
