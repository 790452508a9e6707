#include "HammingScore.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>

#include "Brindle/detail/handles.h"
#include "reference/PlainComparison.h"
#include "support/Bytes.h"
#include "support/GuardedBytes.h"
#include "support/Same.h"

namespace {

using brindle::detail::Block;

TEST(BitTable, HoldsTheNumberOfSetBitsOfEachByte) {
  for (unsigned int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(numOnesInByte[byte], std::popcount(byte)) << byte;
  }
}

TEST(Scoring, AgreesWithTheByteTableAtEveryLengthAndAlignmentAndReadsNothingElse) {
  const std::string a = randomBytes(70'000, 1), b = randomBytes(70'000, 2);
  GuardedBytes roomA(a.size()), roomB(b.size());
  for (const std::size_t size : lengthsAroundSteps()) {
    if (size == 0) continue;
    const int length = static_cast<int>(size);
    const auto agree = [&](const char* first, const char* second) {
      EXPECT_SAME(calculateScores(first, second, length), plainScores(first, second, length))
          << "length " << length << ", from " << reinterpret_cast<std::uintptr_t>(first) % 64
          << " past a multiple of 64";
    };
    for (std::size_t offset = 0; offset < 32; ++offset) {
      agree(a.data() + offset, b.data() + (offset * 5 + size) % 32);
    }
    const char* atStart = roomA.first(a.data(), size);
    const char* atEnd = roomB.last(b.data(), size);
    agree(atStart, atEnd);
    agree(atEnd, atStart);
    if (HasFailure()) return;
  }
}

TEST(Scoring, OfNoByteIsNaNOrZero) {
  EXPECT_SAME(calculateScores("a", "b", 0), double{NAN});
  EXPECT_SAME(calculateScores("a", "b", -1), -0.0);
}

TEST(ScoringSlow, WrapsAroundIn32Bits) {
  constexpr std::size_t kSize = std::size_t{1} << 29;
  const Block<char> zeros(static_cast<char*>(std::calloc(kSize, 1)));
  const Block<char> block(static_cast<char*>(std::calloc(kSize, 1)));
  ASSERT_TRUE(zeros && block);

  const auto score = [&](int length) { return calculateScores(zeros.get(), block.get(), length); };
  EXPECT_SAME(score(1 << 28), -0.0);
  EXPECT_SAME(score(1 << 29), double{NAN});
  block.get()[5] = 1;
  EXPECT_SAME(score(1 << 28), 1.0 / -2147483648.0);
  EXPECT_SAME(score(1 << 29), double{INFINITY});

  // 2^31 differing bits are a negative count, divided by a negative number of bits.
  std::fill_n(block.get(), std::size_t{1} << 28, '\xFF');
  EXPECT_SAME(score(1 << 28), 1.0);
  EXPECT_SAME(score((1 << 28) + 8), -2147483648.0 / (-2147483648.0 + 64.0));
}

}  // namespace
