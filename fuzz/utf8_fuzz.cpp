// IsUtf8 against the plain walk over sequences.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Brindle/XTypeConvertTool.h"
#include "Input.h"
#include "reference/PlainUtf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The string ends with the block that holds it.
  char* text = static_cast<char*>(std::malloc(size + 1));
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(data[i]);
  text[size] = '\0';
  require(IsUtf8(text) == plainIsUtf8(text));
  std::free(text);
  return 0;
}
