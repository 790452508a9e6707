#include "Brindle/utility/stringConversion.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

namespace {

TEST(BufferConversion, CountsOrReportsWhatCannotBeConverted) {
  const struct {
    const char* locale;
    std::string source;
    int count;
    std::wstring wide;
    std::string printed;
  } cases[] = {
      {"C.UTF-8", "é漢", 2, L"é漢", ""},
      {"C.UTF-8", "", 0, L"", ""},
      {"C.UTF-8", "a\xFF", -1, L"a",
       "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!\n"},
  };
  for (const auto& c : cases) {
    wchar_t wide[16] = {};
    testing::internal::CaptureStdout();
    EXPECT_EQ(charStr2wcharStr(c.source.c_str(), wide, c.locale), c.count);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), c.printed);
    EXPECT_EQ(std::wstring(wide), c.wide);
  }
}

TEST(BufferConversion, ToNarrowStaysInItsRoom) {
  const struct {
    const char* locale;
    std::wstring source;
    int count;
    std::string narrow;
    std::string printed;
  } cases[] = {
      {"C.UTF-8", L"ab", 2, "ab", ""},
      {"C.UTF-8", L"漢字", 3, "漢", ""},
      {"C.UTF-8", L"漢", 3, "漢", ""},
      {"C.UTF-8", L"a\xD800", -1, "a",
       "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n"},
  };
  for (const auto& c : cases) {
    char narrow[16] = {};
    narrow[2 * c.source.size() + 1] = 'G';
    testing::internal::CaptureStdout();
    EXPECT_EQ(wcharStr2charStr(c.source.c_str(), narrow, c.locale), c.count);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), c.printed);
    EXPECT_EQ(narrow[2 * c.source.size() + 1], 'G');
    narrow[2 * c.source.size() + 1] = '\0';
    EXPECT_EQ(std::string(narrow), c.narrow);
  }
}

}  // namespace
