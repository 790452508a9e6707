// Tables of cases in tests/data. A row is a line
//
//     FUNCTION ARGUMENT... = RESULT...
//
// of words between blanks; a word in double quotes may hold blanks and the escapes \b, \n, \t, \\,
// \" and \xHH. Lines that begin with # are comments. What a row lacks, a function that no test
// knows and a table without a row for each function fail.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
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
  std::string function;
  Words arguments;
  Words results;
};

/// Takes the character at `at` off the line, or what its escape stands for.
inline char takeCharacter(const std::string& line, std::size_t& at) {
  if (line[at] != '\\') return line[at++];
  const char escape = line.at(at + 1);
  at += 2;
  if (escape != 'x') return std::string("\b\n\t\\\"").at(std::string("bnt\\\"").find(escape));
  at += 2;
  return static_cast<char>(std::stoi(line.substr(at - 2, 2), nullptr, 16));
}

/// Takes the word at `at`, and the blanks after it, off the line.
inline std::string takeWord(const std::string& line, std::size_t& at) {
  std::string word;
  const char end = line[at] == '"' ? '"' : ' ';
  for (at += end == '"'; at < line.size() && line[at] != end;) word += takeCharacter(line, at);
  if (end == '"' && at++ == line.size()) throw std::invalid_argument("no closing quote");
  if (at < line.size() && line[at] != ' ') throw std::invalid_argument("no blank after a word");
  at = std::min(line.find_first_not_of(' ', at), line.size());
  return word;
}

inline Row parseRow(const std::string& line) {
  Words words;
  for (std::size_t at = 0; at < line.size();) words.push_back(takeWord(line, at));
  const auto equalSign = std::find(words.begin() + 1, words.end(), "=");
  if (equalSign == words.end()) throw std::invalid_argument("no = in it");
  return {words[0], {words.begin() + 1, equalSign}, {equalSign + 1, words.end()}};
}

/// A number as C writes it, nan and inf included; the whole word.
inline double number(const std::string& word) {
  char* end = nullptr;
  const double value = std::strtod(word.c_str(), &end);
  if (word.empty() || *end != '\0') throw std::invalid_argument("no number: " + word);
  return value;
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
    SCOPED_TRACE(file + ":" + std::to_string(lineNumber) + ": " + line);
    try {
      const Row row = parseRow(line);
      const auto check = checks.find(row.function);
      if (check == checks.end()) throw std::invalid_argument("unknown function");
      ++rows[row.function];
      check->second(row);
    } catch (const std::exception& error) {
      ADD_FAILURE() << "the row is malformed, or the call throws: " << error.what();
    }
  }
  for (const auto& [function, check] : checks) {
    EXPECT_GT(rows[function], 0) << file << " has no row for " << function;
  }
}

}  // namespace support
