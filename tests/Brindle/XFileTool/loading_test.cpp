#include "Brindle/XFileTool/loading.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "support/Bytes.h"
#include "support/InScratchDir.h"

namespace {

using Loading = InScratchDir;
using Bytes = std::vector<unsigned char>;

Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

/// The bytes in the buffer of xLoadBinFile, or its state and the length.
std::string loaded(const std::string& path) {
  unsigned char byte = 0;
  unsigned char* buffer = &byte;
  std::uint64_t length = 99;
  xLoadBinFile(pathOf(path), buffer, length);
  if (buffer == &byte) return "untouched, " + std::to_string(length);
  if (buffer == nullptr) return "null, " + std::to_string(length);
  const std::string bytes(buffer, buffer + length);
  std::free(buffer);
  return bytes;
}

/// What xReadWholeFile2 makes of a string, after its code unless that is 0.
std::string read(const std::string& path, std::string contents = "previous") {
  const int code = xReadWholeFile2(pathOf(path), contents);
  return code == 0 ? contents : std::to_string(code) + ", " + contents;
}

TEST_F(Loading, GivesWhatTheTableSays) {
  checkEffects("loading.txt", {{"xLoadBinFile", [](auto& words) { return loaded(words.at(0)); }},
                               {"xReadWholeFile2", [](auto& words) { return read(words.at(0)); }},
                               {"xReadWholeFile",
                                [](auto& words) { return xReadWholeFile(pathOf(words.at(0))); }}});
}

TEST_F(Loading, KeepsEveryByteOfAnySize) {
  for (const std::size_t size : {1UL, 4095UL, 4096UL, (2UL << 20) - 1, 2UL << 20, 5'000'001UL}) {
    const std::string bytes = randomBytes(size, 3);
    dir.write("file", bytes);
    EXPECT_SAME(bytesOf(loaded("file")), bytesOf(bytes)) << size;
    EXPECT_SAME(bytesOf(read("file")), bytesOf(bytes)) << size;
  }
}

TEST_F(Loading, OfAFifoGivesNoBytes) {
  tree("f|");
  const int bothEnds = open("f", O_RDWR);  // opening it for reading need not wait
  EXPECT_EQ(effect([] { return loaded("f"); }), Effect("null, 18446744073709551615"));
  EXPECT_EQ(effect([] { return read("f"); }), Effect("-20050, previous"));
  close(bothEnds);
}

TEST_F(Loading, FillsWhatCannotBeReadWithZeros) {
  // The kernel gives sysfs files a size of one page, whatever they hold.
  const std::string path = "/sys/kernel/mm/transparent_hugepage/enabled";
  if (!fs::exists(path)) GTEST_SKIP() << "no sysfs here";
  const std::string bytes = loaded(path), text = bytes.c_str();
  const std::string zeros(fs::file_size(path) - text.size(), '\0');
  ASSERT_FALSE(zeros.empty());
  EXPECT_EQ(bytes, text + zeros);
  EXPECT_EQ(xReadWholeFile(path.c_str()), text + zeros);
  EXPECT_EQ(read(path, std::string(text.size() + 1, 'x')), text + 'x' + zeros.substr(1));
}

}  // namespace
