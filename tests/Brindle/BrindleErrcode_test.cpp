#include "Brindle/BrindleErrcode.h"

#include "support/Table.h"

namespace {

TEST(StatusCodes, ExplainThemselvesUnderTheOffsetOfTheMoment) {
  const int offsetBefore = xErrGetOffsetBrindle();
  EXPECT_SAME(offsetBefore, -20000);
  const auto explains = [](const support::Row& row) {
    const std::vector<double> arguments = support::numbers(row.arguments);
    const int offset = static_cast<int>(arguments.at(0)), code = static_cast<int>(arguments.at(1));
    xErrSetOffsetBrindle(offset);
    EXPECT_SAME(xErrGetOffsetBrindle(), offset);
    EXPECT_SAME(xExplainErrorFromBrindle(code), row.results.at(0));
  };
  support::checkTable("status-codes.txt", {{"xExplainErrorFromBrindle", explains}});
  xErrSetOffsetBrindle(offsetBefore);
}

}  // namespace
