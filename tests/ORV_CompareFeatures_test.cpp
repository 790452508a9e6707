#include "ORV_CompareFeatures.h"

#include "support/Bitstream.h"
#include "support/Call.h"

namespace {

TEST(CompareFeatures, HasAVersion) {
  EXPECT_STREQ(ORV_GetCompareFeaturesVersion(), "1.0.0.0:20180102");
}

TEST(CompareFeatures, TakesAQueryOfTheTargetsLengthAsOneFeature) {
  support::checkTable("comparison.txt", {CALLS(ORV_CompareFeatures)});
}

TEST(CompareFeatures, FindsTheClosestFeatureOfABitstream) {
  const std::string target(16, '\0'), rest(15, '\0'), v7 = bitstreamHeader(7, 1);
  const std::string several = bitstreamHeader(7, 5) + frame("\x7F" + rest) + frameHeader(0) +
                              frame("\x0F" + rest) + frameHeader(77) + frame("\x1F" + rest);
  const std::string none =
      "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: 16).\n";
  const std::tuple<std::string, int, double, std::string> cases[] = {
      {several, 0, 4.0 / 128.0, "read: Invalid feature length (77)\n"},
      {v7 + frame("1234567"), -1, 1.0, "read: Invalid feature length (7)\n" + none},
      {v7 + frame(""), -1, 1.0, none},
      {bitstreamHeader(8, 1) + frame(target), -1, 1.0, none},
  };
  for (const auto& [query, result, distance, printed] : cases) {
    // Only the announced frames bound the search, not the length that is passed.
    for (const unsigned int length : {8U, static_cast<unsigned int>(query.size())}) {
      double found = -7.0;
      EXPECT_EQ(outcome(ORV_CompareFeatures, target.data(), 16U, query.data(), length, &found),
                Outcome(result, printed))
          << testing::PrintToString(query) << " of length " << length;
      EXPECT_SAME(found, distance) << testing::PrintToString(query) << " of length " << length;
    }
  }
}

}  // namespace
