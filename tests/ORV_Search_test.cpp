#include "ORV_Search.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <vector>

#include "ORV_CompareFeatures.h"
#include "reference/PlainComparison.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"
#include "support/ScratchDir.h"

bool operator==(const ORV_Match& a, const ORV_Match& b) {
  return a.index == b.index && a.distance == b.distance;
}
void PrintTo(const ORV_Match& match, std::ostream* out) {
  char text[64];
  std::snprintf(text, sizeof text, "feature %llu at %.17g",
                static_cast<unsigned long long>(match.index), match.distance);
  *out << text;
}

namespace {

constexpr ORV_Match kUntouched = {77, -7.0};
constexpr std::uint64_t kTooLong = 1 << 28;
constexpr std::uint64_t kHuge = std::uint64_t{1} << 63;

TEST(SearchText, HasWordsOfItsOwnForEachStatusAndForEachOtherNumber) {
  std::set<std::string> texts;
  for (int status = ORV_OUT_OF_MEMORY - 1; status <= ORV_FOUND; ++status) {
    texts.insert(ORV_SearchText(status));
  }
  EXPECT_EQ(texts.size(), 7U) << testing::PrintToString(texts);
  EXPECT_STREQ(ORV_SearchText(1), ORV_SearchText(-1000));
}

using Matched = std::pair<int, ORV_Match>;

/// The result for copies in blocks of exactly their sizes, so that a stray read is seen.
Matched match(const std::string& target, const std::string& query) {
  const std::unique_ptr<char[]> targetCopy(new char[target.size()]);
  const std::unique_ptr<char[]> queryCopy(new char[query.size()]);
  std::copy(target.begin(), target.end(), targetCopy.get());
  std::copy(query.begin(), query.end(), queryCopy.get());
  ORV_Match found = kUntouched;
  const int status =
      ORV_MatchQuery(targetCopy.get(), target.size(), queryCopy.get(), query.size(), &found);
  return {status, found};
}

TEST(MatchQuery, FindsTheFirstOfTheClosestFramesOrSaysWhatTheQueryIs) {
  const std::string zeros(16, '\0'), ones(16, '\xFF'), bit = std::string(15, '\0') + '\x10';
  const std::string v7 = bitstreamHeader(7, 1) + frame(zeros);
  const std::string five =
      bitstreamHeader(7, 5) + frame(ones) + frameHeader(0) + frame(bit) + frame(bit) + frame(ones);
  const Matched none = {ORV_NO_BITSTREAM, kUntouched}, cut = {ORV_CUT_SHORT, kUntouched};
  const Matched noFeature = {ORV_NO_FEATURE, kUntouched};
  const std::tuple<std::string, std::string, Matched> cases[] = {
      // clang-format off
      {zeros, zeros, {ORV_FOUND, {0, 0.0}}},
      {zeros, ones,  {ORV_FOUND, {0, 1.0}}},
      {v7, v7,       {ORV_FOUND, {0, 0.0}}},
      {zeros, five,  {ORV_FOUND, {2, 0.0078125}}},
      {zeros, bitstreamHeader(7, 2) + frame("") + frame(ones), {ORV_FOUND, {1, 1.0}}},
      {zeros, "1234567", none},
      {zeros, bitstreamHeader(9, 1) + frame(zeros), none},
      {zeros, bitstreamHeader(7, 0) + frame(zeros), none},
      {zeros, bitstreamHeader(7, 1501) + frame(zeros), none},
      {zeros, bitstreamHeader(7, 1500) + frame(zeros), cut},
      {zeros, bitstreamHeader(8, 1) + frame(zeros), noFeature},
      {zeros, bitstreamHeader(8, 1).substr(0, 8), noFeature},
      {zeros, bitstreamHeader(7, 1) + frame("1234567"), noFeature},
      {zeros, bitstreamHeader(7, 1) + frameHeader(7).substr(0, 28), noFeature},
      {zeros, bitstreamHeader(7, 1) + frameHeader(7).substr(0, 27), cut},
      // clang-format on
  };
  for (const auto& [target, query, expected] : cases) {
    EXPECT_EQ(match(target, query), expected) << testing::PrintToString(query);
  }
  for (std::size_t size = 8; size < five.size(); ++size) {
    if (size == 16) continue;  // one raw feature
    EXPECT_EQ(match(zeros, five.substr(0, size)), cut) << size;
  }
  double distance;
  ASSERT_EQ(ORV_CompareFeatures(zeros.data(), 16, five.data(),
                                static_cast<unsigned int>(five.size()), &distance),
            0);
  EXPECT_EQ(match(zeros, five).second.distance, distance);
}

TEST(MatchQuery, TakesLengthsInFull) {
  const std::uint64_t size = (std::uint64_t{1} << 32) + 16;
  void* const query =
      mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(query, MAP_FAILED);
  ORV_Match found = kUntouched;
  EXPECT_EQ(ORV_MatchQuery("0123456789ABCDEF", 16, static_cast<char*>(query), size, &found),
            ORV_NO_BITSTREAM);
  munmap(query, size);
}

TEST(MatchQuery, RefusesNullAndLengthsOutOfRange) {
  ORV_Match found = kUntouched;
  EXPECT_EQ(ORV_MatchQuery(nullptr, 1, "q", 1, &found), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_MatchQuery("t", 1, nullptr, 1, &found), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_MatchQuery("t", 1, "q", 1, nullptr), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_MatchQuery("t", 0, "q", 1, &found), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_MatchQuery("t", 1, "q", 0, &found), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_MatchQuery("t", kTooLong, "q", 1, &found), ORV_INVALID_INPUT);
  EXPECT_EQ(found, kUntouched);
}

TEST(DistancesAndNearest, JudgeLengthThenCountsThenPointersThenSizes) {
  struct Case {
    const char* targets;
    std::uint64_t targetCount;
    const char* features;
    std::uint64_t featureCount, length, k;
    bool hasResults;
    int status;
  };
  const Case cases[] = {
      // clang-format off
      {nullptr, 0, nullptr, 0, 0, 1, false, ORV_INVALID_INPUT},
      {nullptr, 0, nullptr, 0, kTooLong, 1, false, ORV_INVALID_INPUT},
      {nullptr, 0, nullptr, kHuge, kTooLong - 1, 1, false, ORV_FOUND},
      {nullptr, kHuge, nullptr, 0, 8, 1, false, ORV_FOUND},
      {nullptr, 1, "features", 1, 8, 1, true, ORV_INVALID_INPUT},
      {"a target", 1, nullptr, 1, 8, 1, true, ORV_INVALID_INPUT},
      {"a target", 1, "features", 1, 8, 1, false, ORV_INVALID_INPUT},
      {"a target", kHuge, "features", 1, 2, 1, true, ORV_INVALID_INPUT},
      {"a target", 1, "features", kHuge, 2, 1, true, ORV_INVALID_INPUT},
      {"a target", kHuge / 8, "features", kHuge / 8, 1, kHuge, true, ORV_INVALID_INPUT},
      // clang-format on
  };
  for (const Case& c : cases) {
    const long row = &c - cases;
    double distance = -7.0;
    ORV_Match found = kUntouched;
    EXPECT_EQ(ORV_Distances(c.targets, c.targetCount, c.features, c.featureCount, c.length, 1,
                            c.hasResults ? &distance : nullptr),
              c.status)
        << row;
    EXPECT_EQ(ORV_Nearest(c.targets, c.targetCount, c.features, c.featureCount, c.length, c.k, 1,
                          c.hasResults ? &found : nullptr),
              c.status)
        << row;
    EXPECT_EQ(distance, -7.0) << row;
    EXPECT_EQ(found, kUntouched) << row;
  }
  EXPECT_EQ(ORV_Nearest(nullptr, 0, nullptr, 0, 8, 0, 1, nullptr), ORV_INVALID_INPUT);
}

/// Targets and features that begin at odd addresses. Few different bytes make many ties.
struct Data {
  Data(std::size_t targetCount_, std::size_t featureCount_, std::size_t length_)
      : targetCount(targetCount_), featureCount(featureCount_), length(length_) {
    for (char& byte : bytes) byte &= 3;
  }
  const char* target(std::size_t i) const { return bytes.data() + 1 + i * length; }
  const char* feature(std::size_t i) const { return target(targetCount) + 2 + i * length; }

  std::size_t targetCount, featureCount, length;
  std::string bytes =
      randomBytes(3 + (targetCount + featureCount) * length, static_cast<unsigned int>(length));
};

std::vector<double> allDistances(const Data& data, unsigned threads) {
  std::vector<double> distances(data.targetCount * data.featureCount + 1, -7.0);
  EXPECT_EQ(ORV_Distances(data.target(0), data.targetCount, data.feature(0), data.featureCount,
                          data.length, threads, distances.data()),
            ORV_FOUND);
  EXPECT_EQ(distances.back(), -7.0) << "written past the end";
  distances.pop_back();
  return distances;
}

std::vector<ORV_Match> nearest(const Data& data, std::size_t k, unsigned threads) {
  std::vector<ORV_Match> matches(data.targetCount * std::min(k, data.featureCount) + 1, kUntouched);
  EXPECT_EQ(ORV_Nearest(data.target(0), data.targetCount, data.feature(0), data.featureCount,
                        data.length, k, threads, matches.data()),
            ORV_FOUND);
  EXPECT_EQ(matches.back(), kUntouched) << "written past the end";
  matches.pop_back();
  return matches;
}

/// The first `k` of each sorted row of distances.
std::vector<ORV_Match> nearestBySorting(const Data& data, const std::vector<double>& distances,
                                        std::size_t k) {
  std::vector<ORV_Match> all;
  for (std::size_t t = 0; t < data.targetCount; ++t) {
    std::vector<ORV_Match> row;
    for (std::size_t f = 0; f < data.featureCount; ++f) {
      row.push_back({f, distances[t * data.featureCount + f]});
    }
    std::stable_sort(row.begin(), row.end(), [](const ORV_Match& a, const ORV_Match& b) {
      return a.distance < b.distance;
    });
    row.resize(std::min(k, row.size()));
    all.insert(all.end(), row.begin(), row.end());
  }
  return all;
}

template <class Result>
testing::AssertionResult areEqual(const std::vector<Result>& got,
                                  const std::vector<Result>& wanted) {
  const auto [a, b] = std::mismatch(got.begin(), got.end(), wanted.begin(), wanted.end());
  if (a == got.end() && b == wanted.end()) return testing::AssertionSuccess();
  if (got.size() != wanted.size()) return testing::AssertionFailure() << got.size() << " results";
  return testing::AssertionFailure()
         << "result " << a - got.begin() << " is " << testing::PrintToString(*a) << ", wanted "
         << testing::PrintToString(*b);
}

TEST(DistancesAndNearest, AgreeWithSortingThePlainScores) {
  std::vector<std::size_t> lengths = {511, 512, 1000, 2048, 2049, 8200, 40'000};
  for (std::size_t length = 1; length <= 300; ++length) lengths.push_back(length);
  for (const std::size_t length : lengths) {
    const Data data(1 + length % 3, length > 300 ? 9 : 5 + length % 60, length);
    std::vector<double> plain;
    for (std::size_t t = 0; t < data.targetCount; ++t) {
      for (std::size_t f = 0; f < data.featureCount; ++f) {
        plain.push_back(plainScores(data.target(t), data.feature(f), static_cast<int>(length)));
      }
    }
    EXPECT_TRUE(areEqual(allDistances(data, 1), plain)) << "length " << length;
    for (const std::size_t k : {1U, 2U, 10U, 1000U}) {
      EXPECT_TRUE(areEqual(nearest(data, k, 1), nearestBySorting(data, plain, k)))
          << "length " << length << ", k " << k;
    }
  }
}

TEST(DistancesAndNearest, DoNotDependOnTheNumberOfThreads) {
  const std::tuple<std::size_t, std::size_t, std::size_t> sizes[] = {
      {1, 400'000, 64},   // threads share the features
      {130, 5001, 32},    // a full block of targets and another one
      {4200, 600, 16},    // threads share the targets
      {3, 150, 100'000},  // features longer than a block
  };
  for (const auto& [targets, features, length] : sizes) {
    const Data data(targets, features, length);
    const std::vector<double> distances = allDistances(data, 1);
    for (const unsigned threads : {2U, 3U, 5U, 0U}) {
      EXPECT_TRUE(areEqual(allDistances(data, threads), distances))
          << "length " << length << ", threads " << threads;
    }
    for (const std::size_t k : {std::size_t{1}, std::size_t{10}, features}) {
      if (k == features && targets > 3) continue;
      const std::vector<ORV_Match> sorted = nearestBySorting(data, distances, k);
      for (const unsigned threads : {1U, 2U, 3U, 5U, 0U}) {
        EXPECT_TRUE(areEqual(nearest(data, k, threads), sorted))
            << "length " << length << ", k " << k << ", threads " << threads;
      }
    }
  }
}

}  // namespace
