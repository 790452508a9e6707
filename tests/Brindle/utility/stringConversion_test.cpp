#include "Brindle/utility/stringConversion.h"

#include <cwchar>

#include "support/Outcome.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

TEST(BufferConversion, CountsOrReportsWhatCannotBeConverted) {
  const std::string message =
      "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!\n";
  const std::tuple<const char*, int, std::wstring, std::string> cases[] = {
      {"é漢", 2, L"é漢", ""}, {"", 0, L"", ""}, {"a\xFF", -1, L"a", message}};
  for (const auto& [source, count, expected, printed] : cases) {
    wchar_t wide[16] = {};
    EXPECT_EQ(outcome(charStr2wcharStr, source, &wide[0], kUtf8), std::pair(count, printed));
    EXPECT_EQ(wide, expected);
  }
}

TEST(BufferConversion, ToNarrowStaysInItsRoom) {
  const std::string message =
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n";
  const std::tuple<std::wstring, int, std::string, std::string> cases[] = {
      {L"ab", 2, "ab", ""},
      {L"漢字", 3, "漢", ""},
      {L"漢", 3, "漢", ""},
      {L"a\xD800", -1, "a", message}};
  for (const auto& [source, count, expected, printed] : cases) {
    char narrow[16] = {};
    char& guard = narrow[2 * source.size() + 1] = 'G';
    EXPECT_EQ(outcome(wcharStr2charStr, source.c_str(), &narrow[0], kUtf8),
              std::pair(count, printed));
    EXPECT_EQ(std::exchange(guard, '\0'), 'G');
    EXPECT_EQ(narrow, expected);
  }
}

}  // namespace
