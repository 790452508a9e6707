// Environment variables as lists: joined by colons they are the value again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "Brindle/XFileTool/process.h"
#include "Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr char kName[] = "VORQUELL_FUZZ";
  const std::string value = std::string(data, data + size).c_str();  // up to its first zero
  // setenv would keep every value for good; this one is the environment's until the next.
  static std::string variable;
  unsetenv(kName);
  variable = std::string(kName) + '=' + value;
  putenv(variable.data());
  const std::vector<std::string> elements = xGetEnvVariable(kName);
  const auto colons = std::count(value.begin(), value.end(), ':');
  require(elements.size() == static_cast<std::size_t>(colons) + 1);
  std::string joined = elements.front();
  for (std::size_t i = 1; i < elements.size(); ++i) joined += ':' + elements[i];
  require(joined == value);
  return 0;
}
