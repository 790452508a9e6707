#include "ORV_Search.h"

#include <algorithm>
#include <cstdio>

#include "reference/PlainComparison.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"
#include "support/Table.h"

bool operator==(const ORV_Match& a, const ORV_Match& b) {
  return a.index == b.index && a.distance == b.distance;
}
void PrintTo(const ORV_Match& match, std::ostream* out) {
  *out << "feature " << match.index << " at " << support::digits(match.distance);
}

namespace {

using support::number;
using support::Row;

constexpr ORV_Match kUntouched = {77, -7.0};

const char* bytes(const Row& row, std::size_t argument) {
  const std::string& word = row.arguments.at(argument);
  return word == "null" ? nullptr : word.data();
}

std::uint64_t count(const Row& row, std::size_t argument) {
  return std::stoull(row.arguments.at(argument));
}

using Matched = std::pair<int, ORV_Match>;

Matched match(const std::string& target, const std::string& query) {
  ORV_Match found = kUntouched;
  const int status =
      ORV_MatchQuery(target.data(), target.size(), query.data(), query.size(), &found);
  return {status, found};
}

void expectMatch(const Row& row) {
  std::string query = bitstreamHeader(static_cast<std::uint32_t>(count(row, 1)),
                                      static_cast<std::uint32_t>(count(row, 2)));
  for (std::size_t i = 3; i < row.arguments.size(); ++i) query += frame(row.arguments[i]);
  EXPECT_EQ(match(row.arguments[0], query),
            Matched(std::stoi(row.results.at(0)),
                    {std::stoull(row.results.at(1)), number(row.results.at(2))}));
}

void expectNoMatch(const Row& row) {
  ORV_Match found = kUntouched;
  EXPECT_EQ(ORV_MatchQuery(bytes(row, 0), count(row, 1), bytes(row, 2), count(row, 3), &found),
            std::stoi(row.results.at(0)));
  EXPECT_EQ(found, kUntouched);
}

void expectStatusOfBoth(const Row& row) {
  const bool hasResults = row.arguments.at(6) == "true";
  const int status = std::stoi(row.results.at(0));
  double distance = -7.0;
  ORV_Match found = kUntouched;
  EXPECT_EQ(ORV_Distances(bytes(row, 0), count(row, 1), bytes(row, 2), count(row, 3), count(row, 4),
                          1, hasResults ? &distance : nullptr),
            status);
  EXPECT_EQ(ORV_Nearest(bytes(row, 0), count(row, 1), bytes(row, 2), count(row, 3), count(row, 4),
                        count(row, 5), 1, hasResults ? &found : nullptr),
            status);
  EXPECT_EQ(distance, -7.0);
  EXPECT_EQ(found, kUntouched);
}

TEST(SearchLibrary, AnswersAsTheTableSays) {
  const auto text = [](const Row& row) {
    EXPECT_EQ(ORV_SearchText(std::stoi(row.arguments.at(0))), row.results.at(0));
  };
  support::checkTable("search-library.txt", {{"ORV_SearchText", text},
                                             {"ORV_MatchQuery", expectNoMatch},
                                             {"ORV_MatchQuery(bitstream)", expectMatch},
                                             {"ORV_Distances,ORV_Nearest", expectStatusOfBoth}});
  EXPECT_EQ(ORV_MatchQuery("t", 1, "q", 1, nullptr), ORV_INVALID_INPUT);
  EXPECT_EQ(ORV_Nearest(nullptr, 0, nullptr, 0, 8, 0, 1, nullptr), ORV_INVALID_INPUT);
}

TEST(MatchQuery, WantsAllThatTheBitstreamAnnounces) {
  const std::string two = bitstreamHeader(7, 2) + frame("feature0") + frame("feature1");
  for (std::size_t size = 9; size < two.size(); ++size) {
    EXPECT_EQ(match("feature1", two.substr(0, size)), Matched(ORV_CUT_SHORT, kUntouched)) << size;
  }
  // Of a last feature that has another length only the length, and of version 8 nothing.
  const Matched noFeature = {ORV_NO_FEATURE, kUntouched};
  const std::string ofAnotherLength = bitstreamHeader(7, 1) + frameHeader(7);
  EXPECT_EQ(match("feature1", ofAnotherLength.substr(0, 212)), noFeature);
  EXPECT_EQ(match("feature1", ofAnotherLength.substr(0, 211)).first, ORV_CUT_SHORT);
  EXPECT_EQ(match("feature", bitstreamHeader(8, 1).substr(0, 8)), noFeature);
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

/// Expects of each number of threads the plain scores and, for each k, the first of the sorted
/// ones.
void expectPlainAnswers(const Data& data, const std::vector<std::size_t>& ks,
                        const std::vector<unsigned>& threadCounts) {
  std::vector<double> plain;
  for (std::size_t t = 0; t < data.targetCount; ++t) {
    for (std::size_t f = 0; f < data.featureCount; ++f) {
      plain.push_back(plainScores(data.target(t), data.feature(f), static_cast<int>(data.length)));
    }
  }
  for (const unsigned threads : threadCounts) {
    EXPECT_SAME(allDistances(data, threads), plain) << data.length << ", threads " << threads;
  }
  for (const std::size_t k : ks) {
    const std::vector<ORV_Match> sorted = nearestBySorting(data, plain, k);
    for (const unsigned threads : threadCounts) {
      EXPECT_SAME(nearest(data, k, threads), sorted)
          << data.length << ", k " << k << ", threads " << threads;
    }
  }
}

TEST(DistancesAndNearest, AgreeWithSortingThePlainScores) {
  std::vector<std::size_t> lengths = {511, 512, 1000, 2048, 2049, 8200, 40'000};
  for (std::size_t length = 1; length <= 300; ++length) lengths.push_back(length);
  for (const std::size_t length : lengths) {
    expectPlainAnswers({1 + length % 3, length > 300 ? 9 : 5 + length % 60, length},
                       {1, 2, 10, 1000}, {0});
  }
}

// As many bytes to compare as are worth three threads.
TEST(DistancesAndNearest, DoNotDependOnTheNumberOfThreads) {
  const Data shared[] = {
      {20, 2700, 256},   // threads share the features
      {130, 380, 256},   // a full block of targets and another one
      {3100, 35, 128},   // threads share the targets
      {10, 30, 44'000},  // features of which a chunk holds few
  };
  for (const Data& data : shared) expectPlainAnswers(data, {10, data.featureCount}, {1, 3});
}

}  // namespace
