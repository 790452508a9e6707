// fuzz/paths_fuzz.cpp compares most functions with plain twins; here is what they do not show.
#include "Brindle/XFileTool/paths.h"

#include <cstdlib>

#include "Brindle/BrindleErrcode.h"
#include "support/KnownLocales.h"

namespace {

using support::Row;

template <class Char>
using Texts = std::vector<std::basic_string<Char>>;

template <class Char>
Texts<Char> allAs(const Words& words) {
  Texts<Char> texts;
  for (const std::string& word : words) texts.emplace_back(word.begin(), word.end());
  return texts;
}

/// Expects the row's results of the narrow member and of the wide one.
template <class Call>
auto both(const Call& call) {
  return [call](const Row& row) {
    const auto wideArguments = allAs<wchar_t>(row.arguments);
    EXPECT_EQ(Texts<char>{call(row.arguments)}, row.results);
    EXPECT_EQ(Texts<wchar_t>{call(wideArguments)}, allAs<wchar_t>(row.results));
  };
}

TEST(Paths, AreTakenApartAndPutTogetherAsTheTableSays) {
  const auto extensions = [](auto& in) {
    return std::vector{xGetFileExtension(in.at(0), true), xGetFileExtension(in[0], false)};
  };
  const auto parts = [](auto& in) {
    const auto isSet = [&in](std::size_t i) { return flag({in.at(i).begin(), in.at(i).end()}); };
    return xGetFileNameFolderPath(in.at(0), isSet(1), isSet(2), isSet(3));
  };
  support::checkTable(
      "paths.txt",
      {{"xGetFileExtension(string)", both(extensions)},
       {"xGetFileNameFolderPath(string)", both(parts)},
       {"xDeleteExtension", both([](auto& in) { return xDeleteExtension(in.at(0)); })},
       {"forwardSlashToBackward", both([](auto& in) { return forwardSlashToBackward(in.at(0)); })},
       {"xUniformFilePath", both([](auto& in) { return xUniformFilePath(in.at(0)); })},
       {"xFixFolderPath", both([](auto& in) { return xFixFolderPath(in.at(0)); })}});
}

TEST(Paths, WithoutTheirNameHaveAtMost259Characters) {
  EXPECT_EQ(xGetFileNameFolderPath("/" + std::string(258, 'n'), false, false, true), "/");
  EXPECT_EQ(xGetFileNameFolderPath("/" + std::string(259, 'n'), false, false, true), "");
}

TEST(Paths, AreRefusedWithCodesThatMove) {
  const std::string longest(1023, 'n');
  const char* const null = nullptr;
  char out[1025] = "untouched";
  xErrSetOffsetBrindle(300);
  EXPECT_EQ(xGetFileNameFolderPath(null, out, out), 300 - 51);
  EXPECT_EQ(xGetFileNameFolderPath((longest + "n/x").c_str(), out, out), 300 - 57);
  EXPECT_STREQ(out, "untouched");
  EXPECT_EQ(xGetFileNameFolderPath((longest + "/x").c_str(), nullptr, out), 0);
  EXPECT_EQ(out, longest + "/");
  EXPECT_EQ(xGetFileNameFolderPath("a/b", nullptr, nullptr), 0);
  EXPECT_EQ(xGetFileExtension(null), nullptr);
  EXPECT_EQ(xGetFileNameExtension(null), nullptr);
  EXPECT_FALSE(xCheckFileExtension(null, ""));
  EXPECT_FALSE(xCheckFileExtension("", null));
  EXPECT_FALSE(xCheckFileExtension((longest + "n.x").c_str(), "x"));
}

using PathLocale = KnownLocales;

TEST_F(PathLocale, IsSetWhereANarrowPathIsConverted) {
  EXPECT_EQ(localeAfter([] { xIsPathAbsolute(std::string()); }), "chinese");
  EXPECT_EQ(localeAfter([] { xFixFolderPath(std::string()); }), "en_US.UTF-8");
  EXPECT_EQ(localeAfter([] { xUniformFilePath(std::string()); }), "en_US.UTF-8");
}

TEST_F(PathLocale, TruncatesNarrowPathsAsTheTableSays) {
  const auto uniform = [](auto& row) {
    EXPECT_EQ(xUniformFilePath(row.arguments.at(0)), row.results.at(0));
  };
  const auto fixed = [](auto& row) {
    EXPECT_EQ(xFixFolderPath(row.arguments.at(0)), row.results.at(0));
  };
  support::checkTable("paths-utf8.txt", {{"xUniformFilePath", uniform}, {"xFixFolderPath", fixed}});
}

}  // namespace
