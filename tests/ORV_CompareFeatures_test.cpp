#include "ORV_CompareFeatures.h"

#include <gtest/gtest.h>

#include "support/Bitstream.h"
#include "support/Bytes.h"
#include "support/Outcome.h"

namespace {

/// What a comparison returns, its distance, which is -7 before, and what it prints.
struct Comparison {
  int result;
  double distance;
  std::string printed;

  bool operator==(const Comparison& other) const {
    return result == other.result && support::isSame(distance, other.distance) &&
           printed == other.printed;
  }
  friend void PrintTo(const Comparison& comparison, std::ostream* out) {
    *out << comparison.result << " with distance " << support::digits(comparison.distance)
         << ", printing " << testing::PrintToString(comparison.printed);
  }
};

Comparison compare(const char* target, std::size_t targetLength, const char* query,
                   std::size_t queryLength) {
  double distance = -7.0;
  const auto [result, printed] =
      outcome(ORV_CompareFeatures, target, static_cast<unsigned int>(targetLength), query,
              static_cast<unsigned int>(queryLength), &distance);
  return {result, distance, printed};
}

std::string withBitsFlipped(std::string bytes, std::size_t bits) {
  for (std::size_t i = 0; i < bits; ++i) bytes[i / 8] ^= static_cast<char>(1 << (i % 8));
  return bytes;
}

TEST(CompareFeatures, HasAVersion) {
  EXPECT_STREQ(ORV_GetCompareFeaturesVersion(), "1.0.0.0:20180102");
}

TEST(CompareFeatures, RefusesNullAndEmptyInput) {
  const Comparison refused = {-1, -7.0, "ORV_CompareFeatures: Invalid input\n"};
  EXPECT_EQ(compare(nullptr, 1, "q", 1), refused);
  EXPECT_EQ(compare("t", 0, "q", 1), refused);
  EXPECT_EQ(compare("t", 1, nullptr, 1), refused);
  EXPECT_EQ(compare("t", 1, "q", 0), refused);
  EXPECT_EQ(outcome(ORV_CompareFeatures, "t", 1U, "q", 1U, nullptr), Outcome(-1, refused.printed));
}

TEST(CompareFeatures, TakesAQueryOfEqualLengthAsOneFeatureAndOthersAsBitstreams) {
  const std::string zeros(16, '\0'), ones(16, '\xFF'), v7 = bitstreamHeader(7, 1);
  const std::string none =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 16).\n";
  const std::tuple<std::string, std::string, Comparison> cases[] = {
      {zeros, zeros, {0, 0.0, ""}},
      {zeros, ones, {0, 1.0, ""}},
      {zeros, withBitsFlipped(zeros, 1), {0, 0.0078125, ""}},
      {v7 + frame("feature"), v7 + frame("feature"), {0, 0.0, ""}},
      {zeros, v7 + frame("1234567"), {-1, 1.0, "read: Invalid feature length (7)\n" + none}},
      {zeros, v7 + frame(""), {-1, 1.0, none}},
      {zeros, bitstreamHeader(8, 1) + frame(zeros), {-1, 1.0, none}},
      {zeros, "1234567", {-1, 1.0, "read: Bitstream too short\n" + none}},
  };
  for (const auto& [target, query, expected] : cases) {
    EXPECT_EQ(compare(target.data(), target.size(), query.data(), query.size()), expected)
        << testing::PrintToString(query);
  }
}

TEST(CompareFeatures, FindsTheClosestFeatureOfABitstream) {
  const std::string target = randomBytes(64, 1);
  const std::string bitstream = bitstreamHeader(7, 5) + frame(withBitsFlipped(target, 9)) +
                                frameHeader(0) + frame(withBitsFlipped(target, 4)) +
                                frameHeader(77) + frame(withBitsFlipped(target, 5));
  const Comparison closest = {0, 4.0 / 512.0, "read: Invalid feature length (77)\n"};
  // Only the announced frames bound the search, not the length that is passed.
  for (const std::size_t length : {std::size_t{8}, bitstream.size()}) {
    EXPECT_EQ(compare(target.data(), 64, bitstream.data(), length), closest) << length;
  }
}

}  // namespace
