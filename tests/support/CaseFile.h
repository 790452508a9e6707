// Tables of cases in files. Each line holds a function's name, its arguments, "=" and its results.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/SameBits.h"

/// Takes the arguments and writes the results.
using CaseCall = void (*)(double* in, double* out);

/// Expects every line's results to the bit, unchanged arguments and nothing written after the
/// results; and at least one line for every call.
inline void expectCases(const std::string& path, const std::map<std::string, CaseCall>& calls) {
  std::set<std::string> tried;
  std::ifstream file(path);
  for (std::string line, name, word; std::getline(file, line);) {
    std::istringstream words(line);
    if (!(words >> name) || name == "#") continue;
    ASSERT_TRUE(calls.contains(*tried.insert(name).first)) << line;
    std::vector<double> expected;  // the arguments, then a guard and the results between guards
    constexpr double kGuard = 4321.0;
    while (words >> word)
      expected.push_back(word == "=" ? kGuard : std::strtod(word.c_str(), nullptr));
    expected.push_back(kGuard);
    const auto begin = std::find(expected.begin(), expected.end(), kGuard) + 1;
    std::vector<double> found(expected.begin(), begin);
    found.resize(expected.size(), kGuard);
    calls.at(name)(found.data(), found.data() + (begin - expected.begin()));
    EXPECT_TRUE(std::equal(found.begin(), found.end(), expected.begin(), sameBits))
        << line << '\n'
        << testing::PrintToString(found);
  }
  EXPECT_EQ(tried.size(), calls.size()) << path;
}
