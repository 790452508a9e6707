// Scoring, and the comparison with a bitstream of 1500 frames, against a look-up for each byte.
// Also against the best kernels known, where the processor has their instructions: one population
// count for each word, and for whole registers Muła, Kurz and Lemire's of 2018.
#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

#include "HammingScore.h"
#include "ORV_CompareFeatures.h"
#include "detail/dispatch.h"
#include "detail/load.h"
#include "ratio.h"
#include "reference/PlainComparison.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"

using namespace vorquell::detail;

namespace {

#define KERNEL __attribute__((target("avx2,popcnt"), noinline))
#define KERNEL_PART __attribute__((target("avx2,popcnt"), always_inline)) inline

KERNEL_PART std::uint64_t wordBits(const char* a, const char* b, std::size_t length) {
  std::uint64_t count = 0;
  std::size_t at = 0;
  for (; at + 8 <= length; at += 8) {
    count += static_cast<std::uint64_t>(
        _mm_popcnt_u64(load<std::uint64_t>(a + at) ^ load<std::uint64_t>(b + at)));
  }
  for (; at < length; ++at) {
    count += static_cast<std::uint64_t>(_mm_popcnt_u32(static_cast<unsigned char>(a[at] ^ b[at])));
  }
  return count;
}

KERNEL double popcountScores(const char* a, const char* b, int length) {
  return static_cast<double>(wordBits(a, b, static_cast<std::size_t>(length))) /
         static_cast<double>(length * 8);
}

/// The `index`th vector of differing bits.
KERNEL_PART __m256i difference(const char* a, const char* b, std::size_t index) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a) + index) ^
         _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b) + index);
}

KERNEL_PART __m256i byteBits(__m256i bytes) {
  const __m256i table = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4,  //
                                         0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
  const __m256i half = _mm256_set1_epi8(15);
  return _mm256_add_epi8(_mm256_shuffle_epi8(table, bytes & half),
                         _mm256_shuffle_epi8(table, _mm256_srli_epi16(bytes, 4) & half));
}

KERNEL_PART __m256i vectorBits(__m256i vector) {
  return _mm256_sad_epu8(byteBits(vector), _mm256_setzero_si256());
}

/// A carry-save adder: `low` becomes the sum of three vectors; returns its carry.
KERNEL_PART __m256i add(__m256i& low, __m256i b, __m256i c) {
  const __m256i either = low ^ b;
  const __m256i carry = (low & b) | (either & c);
  low = either ^ c;
  return carry;
}

/// Harley and Seal's count of `blocks` times 16 vectors.
KERNEL_PART __m256i harleySeal(const char* a, const char* b, std::size_t blocks) {
  __m256i total = _mm256_setzero_si256();
  __m256i ones = total, twos = total, fours = total, eights = total;
  for (; blocks > 0; --blocks, a += 512, b += 512) {
    __m256i eightsCarry[2];
    for (std::size_t i = 0; i < 2; ++i) {
      __m256i foursCarry[2];
      for (std::size_t j = 0; j < 2; ++j) {
        const std::size_t at = 8 * i + 4 * j;
        const __m256i first = add(ones, difference(a, b, at), difference(a, b, at + 1));
        const __m256i second = add(ones, difference(a, b, at + 2), difference(a, b, at + 3));
        foursCarry[j] = add(twos, first, second);
      }
      eightsCarry[i] = add(fours, foursCarry[0], foursCarry[1]);
    }
    total += vectorBits(add(eights, eightsCarry[0], eightsCarry[1]));
  }
  return _mm256_slli_epi64(total, 4) + _mm256_slli_epi64(vectorBits(eights), 3) +
         _mm256_slli_epi64(vectorBits(fours), 2) + _mm256_slli_epi64(vectorBits(twos), 1) +
         vectorBits(ones);
}

KERNEL double avx2Scores(const char* a, const char* b, int length) {
  const auto size = static_cast<std::size_t>(length);
  __m256i total = _mm256_setzero_si256();
  std::size_t at = 0;
  if (size >= 1024) {
    at = size / 512 * 512;
    total = harleySeal(a, b, at / 512);
  }
  for (; at + 128 <= size; at += 128) {
    __m256i bits = byteBits(difference(a + at, b + at, 0));
    for (std::size_t i = 1; i < 4; ++i) {
      bits = _mm256_add_epi8(bits, byteBits(difference(a + at, b + at, i)));
    }
    total += _mm256_sad_epu8(bits, _mm256_setzero_si256());
  }
  for (; at + 32 <= size; at += 32) total += vectorBits(difference(a + at, b + at, 0));
  const auto count =
      static_cast<std::uint64_t>(_mm256_extract_epi64(total, 0) + _mm256_extract_epi64(total, 1) +
                                 _mm256_extract_epi64(total, 2) + _mm256_extract_epi64(total, 3));
  return static_cast<double>(count + wordBits(a + at, b + at, size - at)) /
         static_cast<double>(length * 8);
}

using Scores = double(const char*, const char*, int);

/// The smallest score over the frames of a valid bitstream.
template <Scores* kScores>
double bitstreamDistance(const char* target, unsigned int length, const char* query) {
  const char* frame = query + 184;
  double distance = 1.0;
  for (auto left = load<std::uint32_t>(query + 64); left > 0; --left) {
    const bool matches = load<std::uint32_t>(frame + 24) == length;
    frame += 32;
    if (!matches) continue;
    distance = std::min(distance, kScores(target, frame, static_cast<int>(length)));
    frame += length;
  }
  return distance;
}

void scoring(const std::string& name, int length, Scores* plainVersion = plainScores) {
  const auto size = static_cast<std::size_t>(length);
  const auto fast = [length, a = randomBytes(size, 1), b = randomBytes(size, 2)] {
    double score = calculateScores(a.data(), b.data(), length);
    benchmark::DoNotOptimize(score);
    return score;
  };
  const auto plain = [=, a = randomBytes(size, 1), b = randomBytes(size, 2)] {
    double score = plainVersion(a.data(), b.data(), length);
    benchmark::DoNotOptimize(score);
    return score;
  };
  bench::pair("calculateScores" + name, fast, plain, [=] { return fast() == plain(); });
}

using Distance = double(const char*, unsigned int, const char*);

void comparison(const std::string& name, unsigned int length,
                Distance* plainVersion = bitstreamDistance<plainScores>) {
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
    double distance = plainVersion(target.data(), length, query.data());
    benchmark::DoNotOptimize(distance);
    return distance;
  };
  bench::pair("ORV_CompareFeatures" + name, fast, plain, [=] { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const std::pair<const char*, int> lengths[] = {
      {"15B", 15},       {"16B", 16},       {"31B", 31},         {"63B", 63},
      {"64B", 64},       {"128B", 128},     {"256B", 256},       {"512B", 512},
      {"1KiB", 1 << 10}, {"4KiB", 4 << 10}, {"64KiB", 64 << 10}, {"16MiB", 16 << 20}};
  for (const auto& [name, length] : lengths) scoring(std::string("/") + name, length);
  comparison("/1500x256B", 256);
  comparison("/1500x2KiB", 2048);
  if (processorHas(InstructionSet::kAvx2)) {
    for (const auto& [name, length] : lengths) {
      if (length < 64) scoring(std::string(" over popcount/") + name, length, popcountScores);
      if (length >= 64) scoring(std::string(" over look-ups/") + name, length, avx2Scores);
    }
    comparison(" over look-ups/1500x256B", 256, bitstreamDistance<avx2Scores>);
  }
  benchmark::RunSpecifiedBenchmarks();
}
