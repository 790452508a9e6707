// ORV_MatchQuery, and where the query is whole ORV_CompareFeatures, compared with a plain reading
// of the bitstream. Input: two bytes for the target's length, then the target, then the query.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "FeatureReader.h"
#include "Input.h"
#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"
#include "reference/PlainComparison.h"

namespace {

using Bytes = std::vector<char>;

constexpr ORV_Match kUntouched = {77, -7.0};

struct Plain {
  int status;
  ORV_Match match = kUntouched;
};

std::uint32_t numberAt(const Bytes& bytes, std::size_t offset) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i > 0; --i) {
    number = number << 8 | static_cast<unsigned char>(bytes[offset + i - 1]);
  }
  return number;
}

double scoreAt(const Bytes& target, const Bytes& query, std::size_t offset) {
  return plainScores(target.data(), query.data() + offset, static_cast<int>(target.size()));
}

Plain plainMatchOfFrames(const Bytes& target, const Bytes& query) {
  if (query.size() < 68) return {ORV_CUT_SHORT};
  const std::uint32_t frames = numberAt(query, 64);
  if (frames < 1 || frames > 1500) return {ORV_NO_BITSTREAM};
  Plain plain = {ORV_NO_FEATURE};
  std::size_t at = 184;
  for (std::uint32_t frame = 0; frame < frames; ++frame) {
    if (query.size() < at + 28) return {ORV_CUT_SHORT};
    const std::uint32_t length = numberAt(query, at + 24);
    at += 32;
    if (length != target.size()) continue;
    if (query.size() < at + length) return {ORV_CUT_SHORT};
    const double score = scoreAt(target, query, at);
    at += length;
    if (plain.status == ORV_FOUND && plain.match.distance <= score) continue;
    plain = {ORV_FOUND, {frame, score}};
  }
  return plain;
}

Plain plainMatch(const Bytes& target, const Bytes& query) {
  if (target.empty() || query.empty()) return {ORV_INVALID_INPUT};
  if (query.size() == target.size()) return {ORV_FOUND, {0, scoreAt(target, query, 0)}};
  const std::uint32_t version = query.size() < 8 ? 0 : numberAt(query, 4);
  if (version == 7) return plainMatchOfFrames(target, query);
  return {version == 8 ? ORV_NO_FEATURE : ORV_NO_BITSTREAM};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isQuiet = std::freopen("/dev/null", "w", stdout) != nullptr;
  if (!isQuiet || size < 2) return 0;
  const std::uint8_t* const end = data + size;
  const std::size_t wanted = data[0] + 256U * data[1];
  const std::uint8_t* const middle = data + 2 + std::min(wanted, size - 2);
  const Bytes target(data + 2, middle), query(middle, end);  // a sanitizer sees a read past them
  const Plain plain = plainMatch(target, query);

  ORV_Match match = kUntouched;
  require(ORV_MatchQuery(target.data(), target.size(), query.data(), query.size(), &match) ==
          plain.status);
  require(match.index == plain.match.index && match.distance == plain.match.distance);

  const bool isWhole = plain.status != ORV_CUT_SHORT;
  require(queryFramesFit(query.data(), query.size(), target.size()) == isWhole);
  if (!isWhole) return 0;
  double distance = kUntouched.distance;
  const int result =
      ORV_CompareFeatures(target.data(), static_cast<unsigned int>(target.size()), query.data(),
                          static_cast<unsigned int>(query.size()), &distance);
  require(result == (plain.status == ORV_FOUND ? 0 : -1));
  const bool isSearchedInVain = plain.status == ORV_NO_BITSTREAM || plain.status == ORV_NO_FEATURE;
  require(distance == (isSearchedInVain ? 1.0 : plain.match.distance));
  return 0;
}
