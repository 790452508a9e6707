#include "Brindle/XTypeConvertTool.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <random>

#include "reference/PlainUtf8.h"
#include "support/GuardedBytes.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

TEST(Conversion, StopsAtWhatTheLocaleRefusesAndKeepsTwoBytesForEachCharacter) {
  const std::pair<std::string, std::wstring> toWide[] = {
      {"", L""},           {"é ñ", L"é ñ"}, {std::string("ab\0cd", 5), L"ab"},
      {"ab\xFF-d", L"ab"}, {"漢", L"漢"},
  };
  for (const auto& [narrow, wide] : toWide) EXPECT_EQ(str2wstr(narrow, kUtf8), wide) << narrow;
  const std::pair<std::wstring, std::string> toNarrow[] = {
      {L"", ""},
      {L"é ñ", "é ñ"},
      {L"漢字", "漢"},        // 5 bytes of room for 6
      {L"漢", "漢"},          // 3 of room for 3: full, without a terminator
      {L"漢a字", "漢a字"},    // 7 for 7
      {L"a漢字漢", "a漢字"},  // 9 for 10
      {L"\U0001F600", ""},    // 3 for 4
      {std::wstring(L"a\0b", 3), "a"},
  };
  for (const auto& [wide, narrow] : toNarrow) EXPECT_EQ(wstr2str(wide, kUtf8), narrow);
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
      {"ab  ", "ab"}, {"   ", ""}, {"", ""}, {"ab\t ", "ab\t"}, {" a b", " a b"}};
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(trimTailSpacesInString(text), trimmed);
}

TEST(Utf8, IsToldFromOtherBytes) {
  for (const char* text : {"", "a\t\r\n~", "é漢😀", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(IsUtf8(text) && plainIsUtf8(text)) << text;
  }
  const char* none = nullptr;
  for (const char* text : {none, "\x7F", "\x01", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                           "\x80", "a\xC3", "\xE6\xBC", "\xF0\x9F\x98", "\xE0\x9F\x80"}) {
    EXPECT_FALSE(IsUtf8(text) || plainIsUtf8(text)) << testing::PrintToString(text);
  }
}

TEST(Utf8, AgreesWithThePlainTestAtEveryLengthUpToAnUnreadablePage) {
  const char* sequences[] = {"",
                             "é",
                             "漢",
                             "😀",
                             "\x80",
                             "\xC3",
                             "\xE6\xBC",
                             "\xF0\x9F\x98",
                             "\xC0\x80",
                             "\xED\xA0\x80",
                             "\xF0\x8F\xBF\xBF",
                             "\xF4\x90\x80\x80",
                             "\xF5",
                             "é\x80",
                             "\x1F",
                             "\x7F"};
  const char* rests[] = {"", "the rest of the text is ASCII, more than one register of it"};
  constexpr std::size_t kBeginning = 64;  // is checked apart, the steps begin after it
  GuardedBytes room(70'000);
  for (const std::size_t length : lengthsAroundSteps()) {
    for (const char* sequence : sequences) {
      for (const char* rest : rests) {
        const std::size_t size = length > 300 ? kBeginning + length : length;
        const std::string text = std::string(size, 'a') + sequence + rest;
        ASSERT_EQ(IsUtf8(room.last(text.c_str(), text.size() + 1)), plainIsUtf8(text.c_str()))
            << size << " bytes and " << testing::PrintToString(sequence) << rest;
      }
    }
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
    std::string text;
    for (auto i = random() % (round % 100 == 0 ? 600 : 4); i > 0; --i) text += run;
    for (auto i = random() % 5; i > 0; --i) text += edges[random() % std::strlen(edges)];
    if (random() % 2 == 0) text += run;
    ASSERT_EQ(IsUtf8(text.c_str()), plainIsUtf8(text.c_str())) << testing::PrintToString(text);
  }
}

}  // namespace
