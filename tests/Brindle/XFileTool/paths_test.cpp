// fuzz/paths_fuzz.cpp holds the same functions against plain twins.
#include "Brindle/XFileTool/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "Brindle/BrindleErrcode.h"
#include "support/KnownLocales.h"

namespace {

/// ASCII only.
template <class Char>
std::basic_string<Char> as(const std::string& text) {
  return {text.begin(), text.end()};
}

constexpr struct Row {
  const char *path, *extension, *name, *folder, *dotExtension, *base, *uniform, *fixed;
} kRows[] = {
    {"", "", "", "", "", "", "", ""},
    {"my file", "file", "my file", "", "", "my file", "my file", "my file/"},
    {"... ", "", "... ", "", ". ", "..", "... ", "... /"},
    {"d.d/f", "d/f", "f", "d.d/", ".d/f", "d", "d.d/f", "d.d/f/"},
    {"C:\\x\\y.", "C:\\x\\y", "y.", "C:\\x\\", ".", "C:\\x\\y", "C:/x/y.", "C:/x/y./"},
    {"s/n'\"\n//", "s/n'\"\n//", "n'\"\n", "s/n'", "", "s/n'\"\n//", "s/n'\"\n/", "s/n'\"\n/"},
    {"//s//h", "//s//h", "h", "//s//", "", "//s//h", "//s/h", "//s/h/"},
    {"\\\\s\\h", "\\\\s\\h", "h", "\\\\s\\", "", "\\\\s\\h", "/s/h", "/s/h/"},
    {"/", "/", "", "/", "", "/", "/", "/"},
    {"////", "////", "", "////", "", "////", "///", "///"},
};

template <class Char>
void expectRow(const Row& row) {
  const auto path = as<Char>(row.path), name = as<Char>(row.name), folder = as<Char>(row.folder);
  const auto dotExtension = as<Char>(row.dotExtension);
  using Block = std::unique_ptr<Char[], void (*)(void*)>;
  const Block extension(xGetFileExtension(path.c_str()), std::free);
  const Block component(xGetFileNameExtension(path.c_str()), std::free);
  extension[1023] = component[1023] = Char{};
  EXPECT_TRUE(extension.get() == as<Char>(row.extension) && component.get() == name);
  EXPECT_EQ(xGetFileExtension(path, true), dotExtension);
  EXPECT_EQ(xGetFileExtension(path, false), dotExtension.substr(dotExtension.empty() ? 0 : 1));
  EXPECT_EQ(xDeleteExtension(path), as<Char>(row.base));
  EXPECT_EQ(xUniformFilePath(path), as<Char>(row.uniform));
  EXPECT_EQ(xFixFolderPath(path), as<Char>(row.fixed));
  EXPECT_EQ(xIsPathAbsolute(path), row.path[0] == '/');
  EXPECT_EQ(forwardSlashToBackward(as<Char>("/\\a/")), as<Char>("\\\\a\\"));
  // Outputs of the exact size, on the heap, so that a sanitizer sees a write past the end.
  std::vector<Char> nameOut(name.size() + 1), folderOut(folder.size() + 1);
  EXPECT_EQ(xGetFileNameFolderPath(path.c_str(), nameOut.data(), folderOut.data()), 0);
  EXPECT_TRUE(nameOut.data() == name && folderOut.data() == folder);
}

TEST(Paths, AreTakenApartAndPutTogether) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.path);
    expectRow<char>(row);
    expectRow<wchar_t>(row);
  }
}

TEST(Paths, AreSplitIntoThePartsAskedFor) {
  const auto expectParts = [](const std::string& path, int flags, const std::string& parts) {
    const bool folder = flags & 4, extension = flags & 2, only = flags & 1;
    EXPECT_EQ(xGetFileNameFolderPath(path, folder, extension, only), parts) << flags << path;
    EXPECT_EQ(xGetFileNameFolderPath(as<wchar_t>(path), folder, extension, only),
              as<wchar_t>(parts));
  };
  const std::string path = "/d/e.f/n.tar.gz", folder = "/d/e.f/";
  const std::string parts[] = {"n.tar",        folder, "n.tar.gz", folder,
                               "/d/e.f/n.tar", folder, path,       folder};
  for (int flags = 0; flags < 8; ++flags) expectParts(path, flags, parts[flags]);
  expectParts("r1.2/file", 4, "r1");
  expectParts("a.b\\c\\", 0, "");
  expectParts(std::string("a/b\0c/d", 7), 1, "a/");
  expectParts("/" + std::string(258, 'n'), 1, "/");
  expectParts("/" + std::string(259, 'n'), 1, "");
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
  EXPECT_FALSE(xGetFileExtension(null) || xGetFileNameExtension(null));
  EXPECT_FALSE(xCheckFileExtension(null, "") || xCheckFileExtension("", null));
  EXPECT_FALSE(xCheckFileExtension((longest + "n.x").c_str(), "x"));
  xErrSetOffsetBrindle(-20000);
}

TEST(ExtensionCheck, IsOfTheExtensionWhenNarrowAndOfTheNameWhenWide) {
  const auto expectMatch = [](const std::string& path, const char* ext, bool narrow, bool wide) {
    EXPECT_EQ(xCheckFileExtension(path.c_str(), ext), narrow) << path << " " << ext;
    EXPECT_EQ(xCheckFileExtension(as<wchar_t>(path).c_str(), as<wchar_t>(ext).c_str()), wide)
        << path << " " << ext;
  };
  expectMatch("a.txt", ".txt", false, false);
  expectMatch("/d/a.txt", "txt", true, false);
  expectMatch("/d/a.txt", "a.txt", false, true);
  expectMatch("README", "README", true, true);
  expectMatch("a.txt", "", false, true);
  expectMatch("/d/README", "", true, false);
  expectMatch("", "x", false, false);
}

TEST_F(KnownLocales, StayWhereNarrowPathsAreConvertedAndCut) {
  EXPECT_EQ(localeAfter([] { xIsPathAbsolute(std::string()); }), "chinese");
  EXPECT_EQ(localeAfter([] { xFixFolderPath(std::string()); }), "en_US.UTF-8");
  EXPECT_EQ(localeAfter([] { xUniformFilePath(std::string()); }), "en_US.UTF-8");
  const std::tuple<std::string, std::string, std::string> cuts[] = {
      {"\u4e2d\u6587", "\u4e2d", "\u4e2d\u6587/"},  // room for 5 bytes, for 7 with the slash
      {"\u4e2d\u6587\u4e2d", "\u4e2d\u6587", "\u4e2d\u6587\u4e2d"},  // for 7, for 9
      {"\u00e4\xff/b", "\u00e4", "\u00e4/"},
      {"\xff/tmp", "", ""},
      {std::string("a\0b", 3), "a", "a/"},
  };
  for (const auto& [path, uniform, fixed] : cuts) {
    EXPECT_EQ(xUniformFilePath(path), uniform) << path;
    EXPECT_EQ(xFixFolderPath(path), fixed) << path;
  }
}

TEST(WidePaths, KeepZeros) {
  EXPECT_EQ(xUniformFilePath(std::wstring(L"a\0\\", 3)), std::wstring(L"a\0/", 3));
  EXPECT_EQ(xFixFolderPath(std::wstring(L"a\0", 2)), std::wstring(L"a\0/", 3));
}

}  // namespace
