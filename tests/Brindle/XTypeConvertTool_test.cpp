#include "Brindle/XTypeConvertTool.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <random>
#include <string>

#include "reference/PlainUtf8.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

TEST(Conversion, GoesBothWaysAndStopsAtWhatTheLocaleRefuses) {
  const struct {
    const char* name;
    std::string narrow;
    std::wstring wide;
    bool isReversible;
  } cases[] = {
      {"empty", "", L"", true},
      {"two bytes each", "é ñ", L"é ñ", true},
      {"zero byte ends the text", std::string("ab\0cd", 5), L"ab", false},
      {"invalid sequence ends the text",
       "ab\xFF"
       "cd",
       L"ab", false},
      {"three bytes", "漢", L"漢", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(str2wstr(c.narrow, kUtf8), c.wide) << c.name;
    if (c.isReversible) {
      EXPECT_EQ(wstr2str(c.wide, kUtf8), c.narrow) << c.name;
    }
  }
}

TEST(Conversion, ToNarrowKeepsTwoBytesForEachCharacter) {
  const struct {
    std::wstring wide;
    std::string narrow;
  } cases[] = {
      {L"漢字", "漢"},        // 5 bytes of room for 6
      {L"漢", "漢"},          // 3 of room for 3: full, without a terminator
      {L"漢a字", "漢a字"},    // 7 for 7
      {L"a漢字漢", "a漢字"},  // 9 for 10
      {L"\U0001F600", ""},    // 3 for 4
      {std::wstring(L"a\0b", 3), "a"},
  };
  for (const auto& c : cases) EXPECT_EQ(wstr2str(c.wide, kUtf8), c.narrow);
}

TEST(Conversion, LeavesTheProcessInTheLocale) {
  str2wstr("a", "C");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  wstr2str(L"a", kUtf8);
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8);
  str2wstr("a", "no such locale");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8);
}

TEST(Trim, DropsSpacesOnly) {
  const std::pair<const char*, const char*> cases[] = {
      {"ab  ", "ab"}, {"   ", ""}, {"", ""}, {"ab\t", "ab\t"}, {"ab\t ", "ab\t"}, {" a b", " a b"}};
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(trimTailSpacesInString(text), trimmed);
}

TEST(Utf8, IsToldFromOtherBytes) {
  const struct {
    const char* text;
    bool isValid;
  } cases[] = {
      {"", true},
      {"a\t\r\n~", true},
      {"é漢😀", true},
      {nullptr, false},
      {"\x7F", false},
      {"\x01", false},
      {"\xC0\x80", false},
      {"\xED\xA0\x80", false},
      {"\xF4\x90\x80\x80", false},
      {"\x80", false},
      {"a\xC3", false},
      {"\xE6\xBC", false},
      {"\xF0\x9F\x98", false},
      {"\xF4\x8F\xBF\xBF", true},
      {"\xE0\x9F\x80", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsUtf8(c.text), c.isValid) << testing::PrintToString(c.text);
    EXPECT_EQ(plainIsUtf8(c.text), c.isValid) << testing::PrintToString(c.text);
  }
}

TEST(Utf8, AgreesWithThePlainTest) {
  // The bytes at which the rules change, three times as often inside long valid runs.
  const char edges[] =
      "\x09\x0A\x0D\x1F\x20\x7E\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF"
      "\xF0\xF1\xF3\xF4\xF5\xFF";
  const char* runs[] = {"", "plain text ", "é漢😀", "\xF0\x9F\x98\x80\xED\x9F\xBF"};
  std::mt19937 random(7);
  for (int round = 0; round < 300'000; ++round) {
    const std::string run = runs[random() % 4];
    const std::size_t repeats = round % 100 == 0 ? random() % 600 : random() % 4;
    std::string text;
    for (std::size_t i = 0; i < repeats; ++i) text += run;
    for (std::size_t i = random() % 5; i > 0; --i) text += edges[random() % std::strlen(edges)];
    if (random() % 2 == 0) text += run;
    ASSERT_EQ(IsUtf8(text.c_str()), plainIsUtf8(text.c_str())) << testing::PrintToString(text);
  }
}

}  // namespace
