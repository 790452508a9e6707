#include "Brindle/utility/stringTools.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ReplaceSubString, GoesFromLeftToRightOnce) {
  const struct {
    std::string text, pattern, replacement, result;
  } cases[] = {
      {"aXbXc", "X", "XX", "aXXbXXc"},
      {"aaaa", "aa", "a", "aa"},
      {"aaa", "aa", "b", "ba"},
      {"abc", "", "x", "abc"},
      {"", "a", "b", ""},
      {"abc", "abc", "", ""},
      {"abc", "abcd", "x", "abc"},
      {"aXbb", "Xb", "Xbb", "aXbbb"},
  };
  for (const auto& c : cases) {
    std::string text = c.text;
    replaceSubString(text, c.pattern, c.replacement);
    EXPECT_EQ(text, c.result) << c.text << ", " << c.pattern;
  }
}

TEST(StringTokenizer, KeepsNoEmptyPieces) {
  const struct {
    std::string text;
    const char* delimiters;
    std::vector<std::string> tokens;
  } cases[] = {
      {"a,,b,", ",", {"a", "b"}},
      {",;a;b", ",;", {"a", "b"}},
      {"a", ",", {"a"}},
      {"", ",", {""}},
      {"/", "/", {}},
      {",,,", ",", {}},
      {"a,b", nullptr, {"a,b"}},
      {"a,b", "", {"a,b"}},
      {"", nullptr, {""}},
      {",a", ",", {"a"}},
      {"ab,c", ",", {"ab", "c"}},
  };
  for (const auto& c : cases) EXPECT_EQ(stringTokenizer(c.text, c.delimiters), c.tokens) << c.text;
}

TEST(GetPathLastName, TakesBothKindsOfSlash) {
  const std::pair<const char*, const char*> cases[] = {{"dir/sub/file.txt", "file.txt"},
                                                       {"dir\\sub\\file.txt", "file.txt"},
                                                       {"dir/sub/", "sub"},
                                                       {"/", ""},
                                                       {"", ""},
                                                       {"file", "file"}};
  for (const auto& [path, name] : cases) EXPECT_EQ(getPathLastName(path), name) << path;
}

}  // namespace
