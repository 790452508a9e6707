// Rows of tables whose arguments are blocks of bytes and whole numbers, the blocks first. A block
// is null, the same as the last one, or an x and runs of hexadecimal digits, with dots between
// them: x0102.00*300 are 302 bytes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/Outcome.h"
#include "support/Table.h"

using Bytes = std::vector<unsigned char>;

namespace support {

inline bool isBlock(const std::string& word) {
  return word == "null" || word == "same" || word.starts_with('x');
}

/// Null and the same give an empty block.
inline Bytes block(const std::string& word) {
  Bytes bytes;
  for (std::size_t at = 1; word[0] == 'x' && at < word.size();) {
    const auto byte = static_cast<unsigned char>(std::stoi(word.substr(at, 2), nullptr, 16));
    at += 2;
    std::size_t digits = 0;
    const bool isRun = at < word.size() && word[at] == '*';
    bytes.insert(bytes.end(), isRun ? std::stoul(word.substr(at + 1), &digits) : 1, byte);
    if (isRun) at += 1 + digits;
    if (at < word.size() && word[at] == '.') ++at;
  }
  return bytes;
}

struct PixelRow {
  explicit PixelRow(const Words& words) : words_(words) {
    for (const std::string& word : words) {
      if (isBlock(word)) {
        blocks.push_back(block(word));
      } else {
        numbers.push_back(std::stoi(word));
      }
    }
  }

  unsigned char* bytes(std::size_t i) {
    if (words_.at(i) == "null") return nullptr;
    return (words_[i] == "same" ? blocks.back() : blocks.at(i)).data();
  }
  int operator[](std::size_t i) const { return numbers.at(i); }

  std::vector<Bytes> blocks;
  std::vector<int> numbers;

 private:
  Words words_;
};

/// A check that expects what the row has as its results: what is returned, what is printed unless
/// it is nothing, and what the last block holds then unless it is unchanged.
inline std::function<void(const Row&)> givesPixels(const std::function<long(PixelRow&)>& call) {
  return [call](const Row& row) {
    PixelRow pixels(row.arguments);
    std::vector<Bytes> expectedBlocks = pixels.blocks;
    Outcome<long> expected(std::stol(row.results.at(0)), "");
    for (std::size_t i = 1; i < row.results.size(); ++i) {
      if (isBlock(row.results[i])) {
        expectedBlocks.back() = block(row.results[i]);
      } else {
        expected.printed = row.results[i];
      }
    }
    EXPECT_EQ(outcome([&] { return call(pixels); }), expected);
    for (std::size_t i = 0; i < expectedBlocks.size(); ++i) {
      EXPECT_SAME(pixels.blocks[i], expectedBlocks[i]) << "block " << i;
    }
  };
}

}  // namespace support
