#include "Brindle/utility/stringTools.h"

#include "support/Call.h"

namespace {

/// Each piece in brackets.
std::string pieces(std::string text, const char* delimiters) {
  std::string all;
  for (const std::string& piece : stringTokenizer(text, delimiters)) all += '[' + piece + ']';
  return all;
}

TEST(StringTools, GiveTheStringsOfTheTable) {
  support::checkTable("string-tools.txt", {CALLS(replaceSubString),
                                           {"stringTokenizer", support::calls(pieces)},
                                           CALLS(getPathLastName)});
}

}  // namespace
