#include "Brindle/BrindleErrcode.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

namespace {

class StatusCodes : public testing::Test {
 protected:
  void TearDown() override { xErrSetOffsetBrindle(-20000); }
};

TEST_F(StatusCodes, ExplainThemselvesUnderTheOffsetOfTheMoment) {
  const std::string unknown = "No idea on error ";
  const struct {
    int offset, code;
    std::string text;
  } cases[] = {
      {-20000, 0, "Everything works fine :)"},
      {-20000, 1, "Time of waiting the thread"},
      {-20000, -20000, "Fail to allocate memory"},
      {-20000, -20053, "Fail to crete file"},
      {-20000, -20068, "File directory already existed"},
      {-20000, -20306, "Fail to get phyical memory info"},
      {-20000, -20412, "Buffer is nolonger active"},
      {-20000, -20503, "Fail to operate log file"},
      {-20000, -19990, unknown + "-19990"},
      {500, 450, "Fail to open file"},
      {500, 0, "Everything works fine :)"},
      {51, 1, "Fail to open file"},            // conditions up to 68 win over the fixed 1
      {101, 1, "Time of waiting the thread"},  // those from 100 on do not
      {50, 0, "Everything works fine :)"},     // nothing wins over 0
      {INT_MIN, INT_MAX, "Process abort"},     // codes wrap around
      {INT_MIN, INT_MIN, "Fail to allocate memory"},
      {0, INT_MIN, unknown + "-2147483648"},
  };
  for (const auto& c : cases) {
    xErrSetOffsetBrindle(c.offset);
    EXPECT_EQ(xErrGetOffsetBrindle(), c.offset);
    EXPECT_EQ(xExplainErrorFromBrindle(c.code), c.text) << c.offset << ", " << c.code;
  }
}

TEST_F(StatusCodes, KeepEveryLetterOfTheirTexts) {
  std::uint64_t checksum = 0xCBF29CE484222325;  // FNV-1a
  for (int number = 0; number < 504; ++number) {
    for (const char letter : xExplainErrorFromBrindle(-20000 - number)) {
      checksum = (checksum ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    }
  }
  EXPECT_EQ(checksum, 0xE9A4257ADAD5E3C1);
}

TEST_F(StatusCodes, HaveTextsInTheirBlocksOnly) {
  const struct {
    int first, last;
  } blocks[] = {{0, 5},     {50, 68},   {100, 120}, {200, 204},
                {300, 306}, {400, 401}, {410, 414}, {500, 503}};
  for (int number = -5; number < 600; ++number) {
    bool isKnown = false;
    for (const auto& block : blocks) isKnown |= block.first <= number && number <= block.last;
    const std::string text = xExplainErrorFromBrindle(-20000 - number);
    EXPECT_EQ(text.starts_with("No idea on error "), !isKnown) << number << ": " << text;
  }
}

}  // namespace
