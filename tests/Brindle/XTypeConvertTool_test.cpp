#include "Brindle/XTypeConvertTool.h"

#include <gtest/gtest.h>

#include <clocale>
#include <map>

#include "support/GuardedBytes.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

TEST(StringConversion, StopsAtWhatTheLocaleRefusesAndKeepsTwoBytesForEachCharacter) {
  const std::pair<std::string, std::wstring> toWide[] = {
      {"", L""},           {"é ñ", L"é ñ"}, {std::string("ab\0cd", 5), L"ab"},
      {"ab\xFF-d", L"ab"}, {"漢", L"漢"},
  };
  for (const auto& [narrow, wide] : toWide) EXPECT_EQ(str2wstr(narrow, kUtf8), wide) << narrow;
  const std::pair<std::wstring, std::string> toNarrow[] = {
      {L"", ""},
      {L"é ñ", "é ñ"},
      {L"漢字", "漢"},      // 5 bytes of room for 6
      {L"漢", "漢"},        // 3 of room for 3: full, without a terminator
      {L"\U0001F600", ""},  // 3 for 4
      {std::wstring(L"a\0b", 3), "a"},
  };
  for (const auto& [wide, narrow] : toNarrow) EXPECT_EQ(wstr2str(wide, kUtf8), narrow);
}

TEST(StringConversion, LeavesTheProcessInTheLocale) {
  str2wstr("a", "C");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  wstr2str(L"a", kUtf8);
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8);
  EXPECT_EQ(str2wstr("é", "no such locale"), L"é");  // in the one before
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8);
}

TEST(TrimTailSpaces, DropsSpacesOnly) {
  const std::pair<const char*, const char*> cases[] = {
      {"ab  ", "ab"}, {"   ", ""}, {"", ""}, {"ab\t ", "ab\t"}, {" a b", " a b"}};
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(trimTailSpacesInString(text), trimmed);
}

TEST(IsUtf8, KnowsTextAtEveryLengthUpToAnUnreadablePage) {
  const std::map<bool, std::vector<std::string>> texts = {
      {true, {"", "\t\r\n~", "é", "漢", "😀", "\xF4\x8F\xBF\xBF"}},
      {false,
       {"\x01", "\x1F", "\x7F", "\x80", "é\x80", "\xC0", "\xC0\x80", "\xC3", "\xE0\x9F\x80",
        "\xE6\xBC", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5",
        "\xFF\x80"}}};
  constexpr std::size_t kBeginning = 64;  // is checked apart, the steps begin after it
  GuardedBytes room(70'000);
  for (const std::size_t length : lengthsAroundSteps()) {
    const std::string start(length > 300 ? kBeginning + length : length, 'a');
    for (const char* rest :
         {"", "a", "the rest of the text is ASCII, more than one register of it"}) {
      for (const auto& [isText, sequences] : texts) {
        for (const std::string& sequence : sequences) {
          const std::string text = start + sequence + rest;
          ASSERT_EQ(IsUtf8(room.last(text.c_str(), text.size() + 1)), isText)
              << start.size() << " bytes and " << testing::PrintToString(sequence) << rest;
        }
      }
    }
  }
  EXPECT_FALSE(IsUtf8(nullptr));
}

}  // namespace
