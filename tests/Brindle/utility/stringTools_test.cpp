#include "Brindle/utility/stringTools.h"

#include "support/Table.h"

namespace {

using support::Row;

TEST(StringTools, GiveTheStringsOfTheTable) {
  const auto replaces = [](const Row& row) {
    std::string text = row.arguments.at(0);
    replaceSubString(text, row.arguments.at(1), row.arguments.at(2));
    EXPECT_SAME(text, row.results.at(0));
  };
  const auto splits = [](const Row& row) {
    const std::string& delimiters = row.arguments.at(1);
    EXPECT_SAME(
        stringTokenizer(row.arguments.at(0), delimiters == "null" ? nullptr : delimiters.c_str()),
        row.results);
  };
  const auto takesLast = [](const Row& row) {
    EXPECT_SAME(getPathLastName(row.arguments.at(0)), row.results.at(0));
  };
  support::checkTable("string-tools.txt", {{"replaceSubString", replaces},
                                           {"stringTokenizer", splits},

                                           {"getPathLastName", takesLast}});
}

}  // namespace
