#include "Brindle/utility/stringConversion.h"

#include <clocale>

#include "support/Outcome.h"

namespace {

constexpr char kUtf8[] = "C.UTF-8";

struct BufferConversion : testing::Test {
  BufferConversion() { std::setlocale(LC_ALL, "C"); }
  ~BufferConversion() override { EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), kUtf8); }
};

/// Of a buffer of 12, a conversion writes the start; it is full of G before.
template <class From, class To>
void expectConversion(int (*convert)(const From*, To*, const char*),
                      std::type_identity_t<const From*> source, int count,
                      const std::type_identity_t<std::basic_string<To>>& start,
                      const std::string& printed) {
  std::basic_string<To> buffer(12, To{'G'}), expected = buffer;
  expected.replace(0, start.size(), start);
  EXPECT_SAME(outcome(convert, source, buffer.data(), kUtf8), Outcome(count, printed))
      << testing::PrintToString(source);
  EXPECT_SAME(buffer, expected);
}

TEST_F(BufferConversion, ToWideCountsOrReportsWhatCannotBeConverted) {
  const std::string message =
      "Error: some characters cannot be converted into wchat_t (inside charStr2wcharStr(...))!\n";
  expectConversion(charStr2wcharStr, "é漢", 2, {L"é漢", 3}, "");
  expectConversion(charStr2wcharStr, "", 0, {L"", 1}, "");
  expectConversion(charStr2wcharStr, "a\xFF", -1, L"a", message);
  expectConversion(charStr2wcharStr, nullptr, -1, L"", message);
}

TEST_F(BufferConversion, ToNarrowStaysInItsRoomWhichAFullResultLeavesUnterminated) {
  const std::string message =
      "Error: some characters cannot be converted into char (inside wcharStr2charStr(...))!\n";
  expectConversion(wcharStr2charStr, L"ab", 2, {"ab", 3}, "");
  expectConversion(wcharStr2charStr, L"漢", 3, "漢", "");
  expectConversion(wcharStr2charStr, L"漢字", 3, "漢", "");
  expectConversion(wcharStr2charStr, L"漢ab", 5, {"漢ab", 6}, "");
  expectConversion(wcharStr2charStr, L"漢a漢", 7, "漢a漢", "");
  expectConversion(wcharStr2charStr, L"a\xD800", -1, "a", message);
  expectConversion(wcharStr2charStr, nullptr, -1, "", message);
}

}  // namespace
