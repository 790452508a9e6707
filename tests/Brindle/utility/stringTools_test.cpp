#include "Brindle/utility/stringTools.h"

#include <gtest/gtest.h>

namespace {

TEST(ReplaceSubString, GoesFromLeftToRightOnce) {
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"aXbXc", "X", "XX", "aXXbXXc"},
      {"aaaa", "aa", "a", "aa"},
      {"aaa", "aa", "b", "ba"},
      {"abc", "", "x", "abc"},
      {"", "a", "b", ""},
      {"abc", "abc", "", ""},
      {"abc", "abcd", "x", "abc"},
      {"aXbb", "Xb", "Xbb", "aXbbb"},
  };
  for (const auto& [source, pattern, replacement, result] : cases) {
    std::string text = source;
    replaceSubString(text, pattern, replacement);
    EXPECT_EQ(text, result) << source << ", " << pattern;
  }
}

TEST(StringTokenizer, KeepsNoEmptyPieces) {
  const std::tuple<std::string, const char*, std::vector<std::string>> cases[] = {
      {"a,,b,", ",", {"a", "b"}}, {",;a;b", ",;", {"a", "b"}},
      {"a", ",", {"a"}},          {"", ",", {""}},
      {",,,", ",", {}},           {"/", "/", {}},
      {"", nullptr, {""}},        {"a,b", nullptr, {"a,b"}},
      {"a,b", "", {"a,b"}},       {",a", ",", {"a"}},
      {"ab,c", ",", {"ab", "c"}},
  };
  for (const auto& [text, delimiters, tokens] : cases) {
    EXPECT_EQ(stringTokenizer(text, delimiters), tokens) << text;
  }
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
