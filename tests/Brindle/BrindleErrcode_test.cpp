#include "Brindle/BrindleErrcode.h"

#include "support/Call.h"

namespace {

std::string explanation(int offset, int code) {
  xErrSetOffsetBrindle(offset);
  EXPECT_SAME(xErrGetOffsetBrindle(), offset);
  return xExplainErrorFromBrindle(code);
}

TEST(StatusCodes, ExplainThemselvesUnderTheOffsetOfTheMoment) {
  const int offsetBefore = xErrGetOffsetBrindle();
  EXPECT_SAME(offsetBefore, -20000);
  support::checkTable("status-codes.txt",
                      {{"xExplainErrorFromBrindle", support::calls(explanation)}});
  xErrSetOffsetBrindle(offsetBefore);
}

}  // namespace
