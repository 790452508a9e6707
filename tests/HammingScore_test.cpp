#include "HammingScore.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "Brindle/detail/handles.h"
#include "reference/PlainComparison.h"
#include "support/Bytes.h"

namespace {

using brindle::detail::Block;

TEST(BitTable, HoldsTheNumberOfSetBitsOfEachByte) {
  for (unsigned int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(numOnesInByte[byte], std::popcount(byte)) << byte;
  }
}

TEST(Scoring, AgreesWithTheByteTableAtEveryLengthAndAlignment) {
  const std::string a = randomBytes(5000, 1);
  const std::string b = randomBytes(5000, 2);
  for (int length = 1; length <= 1100; ++length) {
    for (int offset = 0; offset < 8; ++offset) {
      const char* first = a.data() + offset;
      const char* second = b.data() + (offset * 5) % 8;
      ASSERT_EQ(calculateScores(first, second, length), plainScores(first, second, length))
          << "length " << length << ", offset " << offset;
    }
  }
}

TEST(Scoring, ReadsNothingBehindTheFeatures) {
  for (int length = 1; length <= 300; ++length) {
    const auto size = static_cast<std::size_t>(length);
    const std::unique_ptr<char[]> zeros(new char[size]());
    const std::unique_ptr<char[]> ones(new char[size]);
    std::fill_n(ones.get(), size, '\xFF');
    ASSERT_EQ(calculateScores(zeros.get(), ones.get(), length), 1.0) << length;
  }
}

TEST(Scoring, OfNoByteIsNotANumberOrZero) {
  EXPECT_TRUE(std::isnan(calculateScores("a", "b", 0)));
  EXPECT_EQ(calculateScores("a", "b", -1), 0.0);
}

TEST(Scoring, WrapsAroundIn32Bits) {
  constexpr std::size_t kSize = std::size_t{1} << 29;
  const Block<char> zeros(static_cast<char*>(std::calloc(kSize, 1)));
  const Block<char> block(static_cast<char*>(std::calloc(kSize, 1)));
  ASSERT_TRUE(zeros && block);

  const double negativeZero = calculateScores(zeros.get(), block.get(), 1 << 28);
  EXPECT_EQ(negativeZero, 0.0);
  EXPECT_TRUE(std::signbit(negativeZero));
  EXPECT_TRUE(std::isnan(calculateScores(zeros.get(), block.get(), 1 << 29)));
  block.get()[5] = 1;
  EXPECT_EQ(calculateScores(zeros.get(), block.get(), 1 << 28), 1.0 / -2147483648.0);
  EXPECT_TRUE(std::isinf(calculateScores(zeros.get(), block.get(), 1 << 29)));

  // 2^31 differing bits are a negative count, divided by a negative number of bits.
  std::fill_n(block.get(), std::size_t{1} << 28, '\xFF');
  EXPECT_EQ(calculateScores(zeros.get(), block.get(), 1 << 28), 1.0);
  EXPECT_EQ(calculateScores(zeros.get(), block.get(), (1 << 28) + 8),
            -2147483648.0 / (-2147483648.0 + 64.0));
}

}  // namespace
