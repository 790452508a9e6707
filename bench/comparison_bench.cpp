// Scoring, and the comparison with a bitstream of 1500 frames, against a look-up for each byte.
#include <cstdio>
#include <string>

#include "HammingScore.h"
#include "ORV_CompareFeatures.h"
#include "ratio.h"
#include "reference/PlainComparison.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"

namespace {

void scoring(const std::string& name, int length) {
  const auto size = static_cast<std::size_t>(length);
  const auto fast = [length, a = randomBytes(size, 1), b = randomBytes(size, 2)] {
    double score = calculateScores(a.data(), b.data(), length);
    benchmark::DoNotOptimize(score);
    return score;
  };
  const auto plain = [length, a = randomBytes(size, 1), b = randomBytes(size, 2)] {
    double score = plainScores(a.data(), b.data(), length);
    benchmark::DoNotOptimize(score);
    return score;
  };
  bench::pair("calculateScores/" + name, fast, plain, [=] { return fast() == plain(); });
}

void comparison(const std::string& name, unsigned int length) {
  const std::string target = randomBytes(length, 0);
  std::string query = bitstreamHeader(7, 1500);
  for (unsigned int i = 1; i <= 1500; ++i) query += frame(randomBytes(length, i));
  const auto fast = [=] {
    double distance = 0.0;
    ORV_CompareFeatures(target.data(), length, query.data(),
                        static_cast<unsigned int>(query.size()), &distance);
    benchmark::DoNotOptimize(distance);
    return distance;
  };
  const auto plain = [=] {
    double distance = plainBitstreamDistance(target.data(), length, query.data());
    benchmark::DoNotOptimize(distance);
    return distance;
  };
  bench::pair("ORV_CompareFeatures/1500x" + name, fast, plain, [=] { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  scoring("15B", 15);
  scoring("16B", 16);
  scoring("31B", 31);
  scoring("63B", 63);
  scoring("64B", 64);
  scoring("128B", 128);
  scoring("512B", 512);
  scoring("4KiB", 4 << 10);
  scoring("64KiB", 64 << 10);
  scoring("16MiB", 16 << 20);
  comparison("256B", 256);
  comparison("2KiB", 2048);
  benchmark::RunSpecifiedBenchmarks();
}
