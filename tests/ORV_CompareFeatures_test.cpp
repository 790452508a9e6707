#include "ORV_CompareFeatures.h"

#include <gtest/gtest.h>

#include <string>

#include "reference/PlainComparison.h"
#include "support/Bitstream.h"
#include "support/ScratchDir.h"

namespace {

struct Comparison {
  int result;
  double distance;
  std::string printed;
};

Comparison compare(const std::string& target, const std::string& query, unsigned int queryLength) {
  Comparison comparison{0, -7.0, ""};
  testing::internal::CaptureStdout();
  comparison.result = ORV_CompareFeatures(target.data(), static_cast<unsigned int>(target.size()),
                                          query.data(), queryLength, &comparison.distance);
  comparison.printed = testing::internal::GetCapturedStdout();
  return comparison;
}

Comparison compare(const std::string& target, const std::string& query) {
  return compare(target, query, static_cast<unsigned int>(query.size()));
}

std::string withBitsFlipped(std::string bytes, int bits) {
  for (int i = 0; i < bits; ++i) {
    bytes[static_cast<std::size_t>(i / 8)] ^= static_cast<char>(1 << (i % 8));
  }
  return bytes;
}

TEST(CompareFeatures, HasAVersion) {
  EXPECT_STREQ(ORV_GetCompareFeaturesVersion(), "1.0.0.0:20180102");
}

TEST(CompareFeatures, RefusesNullAndEmptyInput) {
  double distance = -7.0;
  const struct {
    const char* target;
    unsigned int targetLength;
    const char* query;
    unsigned int queryLength;
    double* distance;
  } cases[] = {{nullptr, 1, "q", 1, &distance},
               {"t", 0, "q", 1, &distance},
               {"t", 1, nullptr, 1, &distance},
               {"t", 1, "q", 0, &distance},
               {"t", 1, "q", 1, nullptr}};
  for (const auto& c : cases) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(ORV_CompareFeatures(c.target, c.targetLength, c.query, c.queryLength, c.distance),
              -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ORV_CompareFeatures: Invalid input\n");
    EXPECT_EQ(distance, -7.0);
  }
}

TEST(CompareFeatures, TakesAQueryOfEqualLengthAsOneFeature) {
  const std::string zeros(16, '\0');
  const std::string bitstream = bitstreamHeader(7, 1) + frame("feature");
  const struct {
    std::string target, query;
    double distance;
  } cases[] = {
      {zeros, zeros, 0.0},
      {zeros, std::string(16, '\xFF'), 1.0},
      {zeros, withBitsFlipped(zeros, 1), 0.0078125},
      {bitstream, bitstream, 0.0},
  };
  for (const auto& c : cases) {
    const Comparison comparison = compare(c.target, c.query);
    EXPECT_EQ(comparison.result, 0);
    EXPECT_EQ(comparison.distance, c.distance);
    EXPECT_EQ(comparison.printed, "");
  }
}

TEST(CompareFeatures, FindsTheClosestFeatureOfABitstream) {
  const std::string target = randomBytes(64, 1);
  const std::string bitstream = bitstreamHeader(7, 5) + frame(withBitsFlipped(target, 9)) +
                                frameHeader(0) + frame(withBitsFlipped(target, 4)) +
                                frameHeader(77) + frame(withBitsFlipped(target, 5));
  const Comparison comparison = compare(target, bitstream);
  EXPECT_EQ(comparison.result, 0);
  EXPECT_EQ(comparison.distance, 4.0 / 512.0);
  EXPECT_EQ(comparison.distance, plainBitstreamDistance(target.data(), 64, bitstream.data()));
  EXPECT_EQ(comparison.printed, "read: Invalid feature length (77)\n");

  // Only the announced frames bound the search, not the length that is passed.
  EXPECT_EQ(compare(target, bitstream, 8).distance, 4.0 / 512.0);
}

TEST(CompareFeatures, FailsWhereNoFeatureHasTheTargetsLength) {
  const std::string target = "12345678";
  const std::string last = "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 8).\n";
  const struct {
    std::string query, readerMessage;
  } cases[] = {
      {bitstreamHeader(7, 1) + frame("1234567"), "read: Invalid feature length (7)\n"},
      {bitstreamHeader(7, 1) + frame(""), ""},
      {bitstreamHeader(7, 0), "read: Invalid number of frame (0)\n"},
      {bitstreamHeader(8, 1) + frame(target), ""},
      {bitstreamHeader(6, 1) + frame(target), "read: Invalid bitstream version (6)\n"},
      {"1234567", "read: Bitstream too short\n"},
  };
  for (const auto& c : cases) {
    const Comparison comparison = compare(target, c.query);
    EXPECT_EQ(comparison.result, -1);
    EXPECT_EQ(comparison.distance, 1.0);
    EXPECT_EQ(comparison.printed, c.readerMessage + last);
  }
}

}  // namespace
