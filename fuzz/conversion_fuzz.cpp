// The four conversions between narrow and wide strings, in a multibyte locale.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility/stringConversion.h"
#include "Input.h"

namespace {

constexpr char kLocale[] = "C.UTF-8";

/// The characters of a text in the locale that is set; -1 where some bytes are none.
int plainCount(const std::string& text) {
  std::mbstate_t state{};
  int count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    const std::size_t length = std::mbrtowc(nullptr, &text[at], text.size() - at, &state);
    if (length > text.size() - at) return -1;
    at += length;
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isQuiet = std::freopen("/dev/null", "w", stdout) != nullptr;
  if (!isQuiet) return 0;
  const std::string text(data, data + size);
  const std::wstring wide = str2wstr(text, kLocale);
  const std::string narrow = wstr2str(wide, kLocale);
  require(narrow.size() <= 2 * wide.size() + 1);
  require(text.compare(0, narrow.size(), narrow) == 0);

  // The buffers have just the room that the contracts ask for.
  const std::string upToZero = text.c_str();
  std::vector<wchar_t> wideRoom(upToZero.size() + 1);
  const int wideCount = charStr2wcharStr(upToZero.c_str(), wideRoom.data(), kLocale);
  require(wideCount == plainCount(upToZero) && wide == wideRoom.data());

  std::vector<char> narrowRoom(2 * wide.size() + 1);
  const int narrowCount = wcharStr2charStr(wide.c_str(), narrowRoom.data(), kLocale);
  require(narrowCount >= 0 && static_cast<std::size_t>(narrowCount) == narrow.size());
  require(narrow.compare(0, narrow.npos, narrowRoom.data(), narrow.size()) == 0);
  return 0;
}
