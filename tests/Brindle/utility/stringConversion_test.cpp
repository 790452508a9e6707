#include "Brindle/utility/stringConversion.h"

#include <clocale>

#include "support/Outcome.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

struct BufferConversion : testing::Test {
  BufferConversion() { std::setlocale(LC_ALL, "C"); }
  ~BufferConversion() override { EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8); }
};

/// What a buffer of 12 holds after a conversion wrote to its start: G where it did not.
template <class Character>
std::basic_string<Character> afterwards(std::basic_string<Character> start) {
  start.resize(12, Character{'G'});
  return start;
}

TEST_F(BufferConversion, ToWideCountsOrReportsWhatCannotBeConverted) {
  const std::string message =
      "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!\n";
  const std::tuple<const char*, int, std::wstring, std::string> cases[] = {
      {"é漢", 2, {L"é漢", 3}, ""},
      {"", 0, {L"", 1}, ""},
      {"a\xFF", -1, L"a", message},
      {nullptr, -1, L"", message}};
  for (const auto& [source, count, expected, printed] : cases) {
    std::wstring wide = afterwards<wchar_t>(L"");
    EXPECT_SAME(outcome(charStr2wcharStr, source, wide.data(), kUtf8), Outcome(count, printed));
    EXPECT_SAME(wide, afterwards(expected));
  }
}

TEST_F(BufferConversion, ToNarrowStaysInItsRoomWhichAFullResultLeavesUnterminated) {
  const std::string message =
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n";
  const std::tuple<const wchar_t*, int, std::string, std::string> cases[] = {
      {L"ab", 2, {"ab", 3}, ""},     {L"漢", 3, "漢", ""},       {L"漢字", 3, "漢", ""},
      {L"漢ab", 5, {"漢ab", 6}, ""}, {L"漢a漢", 7, "漢a漢", ""}, {L"a\xD800", -1, "a", message},
      {nullptr, -1, "", message}};
  for (const auto& [source, count, expected, printed] : cases) {
    std::string narrow = afterwards<char>("");
    EXPECT_SAME(outcome(wcharStr2charStr, source, narrow.data(), kUtf8), Outcome(count, printed));
    EXPECT_SAME(narrow, afterwards(expected));
  }
}

}  // namespace
