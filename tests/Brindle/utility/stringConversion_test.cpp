#include "Brindle/utility/stringConversion.h"

#include <cwchar>

#include "support/Outcome.h"

namespace {

using namespace std::string_literals;

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

TEST(BufferConversion, ToNarrowStaysInItsRoomAndTerminatesWhatIsShort) {
  const std::string message =
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n";
  const std::tuple<std::wstring, int, std::string, std::string> cases[] = {
      {L"ab", 2, "ab\0GGGGG"s, ""},
      {L"漢字", 3, "漢GGGGG", ""},
      {L"é漢", 5, "é漢GGG", ""},
      {L"漢", 3, "漢GGGGG", ""},
      {L"a\xD800", -1, "aGGGGGGG", message}};
  for (const auto& [source, count, expected, printed] : cases) {
    std::string narrow(8, 'G');
    EXPECT_EQ(outcome(wcharStr2charStr, source.c_str(), narrow.data(), kUtf8),
              std::pair(count, printed));
    EXPECT_EQ(narrow, expected);
  }
}

}  // namespace
