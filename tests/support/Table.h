// Tables of cases in tests/data. A row is a line
//
//     FUNCTION ARGUMENT... = RESULT...
//
// of words between blanks; a word in double quotes may hold blanks and the escapes \n, \t, \\, \"
// and \xHH. Lines that begin with # are comments. What a row lacks, a function that no test knows
// and a table without a row for each function fail.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/Same.h"

namespace support {

using Words = std::vector<std::string>;

struct Row {
  std::string text;  // as it stands in the file, with its place
  std::string function;
  Words arguments;
  Words results;
};

/// Takes the word at `at`, and the blanks after it, off the line.
inline std::string takeWord(const std::string& line, std::size_t& at) {
  std::string word;
  const bool isQuoted = line[at] == '"';
  for (at += isQuoted; at < line.size() && (isQuoted ? line[at] != '"' : line[at] != ' '); ++at) {
    if (line[at] != '\\') {
      word += line[at];
      continue;
    }
    const std::string escapes = "nt\\\"", meanings = "\n\t\\\"";
    const char escape = line.at(++at);
    if (const auto which = escapes.find(escape); which != std::string::npos) {
      word += meanings[which];
    } else if (escape == 'x') {
      word += static_cast<char>(std::stoi(line.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      throw std::invalid_argument("no such escape");
    }
  }
  if (isQuoted && at++ == line.size()) throw std::invalid_argument("no closing quote");
  if (at < line.size() && line[at] != ' ') throw std::invalid_argument("no blank after a word");
  at = std::min(line.find_first_not_of(' ', at), line.size());
  return word;
}

inline Row parseRow(const std::string& line) {
  Row row;
  bool isResult = false;
  for (std::size_t at = 0; at < line.size();) {
    const bool isEqualSign = line.compare(at, 2, "= ") == 0 || line.substr(at) == "=";
    const std::string word = takeWord(line, at);
    if (row.function.empty()) {
      row.function = word;
    } else if (isEqualSign && !isResult) {
      isResult = true;
    } else {
      (isResult ? row.results : row.arguments).push_back(word);
    }
  }
  if (!isResult) throw std::invalid_argument("no = in it");
  return row;
}

/// A number as C writes it, nan and inf included; the whole word.
inline double number(const std::string& word) {
  char* end = nullptr;
  const double value = std::strtod(word.c_str(), &end);
  if (word.empty() || *end != '\0') throw std::invalid_argument("no number: " + word);
  return value;
}

inline std::vector<double> numbers(const Words& words) {
  std::vector<double> values;
  for (const std::string& word : words) values.push_back(number(word));
  return values;
}

/// Runs the check of its function on each row of a file in tests/data.
inline void checkTable(const std::string& file,
                       const std::map<std::string, std::function<void(const Row&)>>& checks) {
  std::ifstream table(std::string(TEST_DATA "/") + file);
  std::map<std::string, int> rows;
  int lineNumber = 0;
  for (std::string line; std::getline(table, line);) {
    ++lineNumber;
    if (line.empty() || line[0] == '#') continue;
    const std::string place = file + ":" + std::to_string(lineNumber) + ": " + line;
    SCOPED_TRACE(place);
    try {
      Row row = parseRow(line);
      row.text = place;
      const auto check = checks.find(row.function);
      if (check == checks.end()) throw std::invalid_argument("unknown function");
      ++rows[row.function];
      check->second(row);
    } catch (const std::exception& error) {
      ADD_FAILURE() << "a malformed row: " << error.what();
    }
  }
  for (const auto& [function, check] : checks) {
    EXPECT_GT(rows[function], 0) << file << " has no row for " << function;
  }
}

/// Takes the arguments and writes the results.
using NumberCall = std::function<void(double* in, double* out)>;

/// A check that expects the row's results to the bit, unchanged arguments and nothing written
/// outside of the results.
inline std::function<void(const Row&)> givesNumbers(const NumberCall& call) {
  return [call](const Row& row) {
    constexpr double kGuard = 4321.0;
    const std::vector<double> arguments = numbers(row.arguments);
    std::vector<double> in = arguments, expected = numbers(row.results);
    expected.insert(expected.begin(), kGuard);
    expected.push_back(kGuard);
    std::vector<double> out(expected.size(), kGuard);
    call(in.data(), out.data() + 1);
    EXPECT_SAME(out, expected);
    EXPECT_SAME(in, arguments);
  };
}

}  // namespace support
