// What targets require, and what they take from their input: numbers, texts, and blocks of memory
// at any alignment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

/// Ends the process where something does not hold, with its place.
inline void require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d does not hold\n", file, line);
  std::abort();
}

inline void check(bool holds, const char* function, int width, int height) {
  if (holds) return;
  std::fprintf(stderr, "%s differs from its plain twin for %d x %d pixels\n", function, width,
               height);
  std::abort();
}

/// Bytes that end where their memory ends, so that a sanitizer sees what passes them, and up to 31
/// bytes before.
struct Block {
  unsigned char* data() { return bytes.data() + before; }
  bool operator==(const Block&) const = default;

  std::size_t before;
  std::vector<unsigned char> bytes;
};

/// The fuzzer's bytes, which begin again where they end. There must be some.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  int between(int first, int last) {
    const int twoBytes = next() << 8 | next();
    return first + twoBytes % (last - first + 1);
  }

  bool flag() { return next() % 2 == 1; }

  std::string text(int shortest, int longest) {
    std::string text(static_cast<std::size_t>(between(shortest, longest)), '\0');
    for (char& character : text) character = static_cast<char>(next());
    return text;
  }

  /// Of the bytes about one in `oneIn` may differ from 0.
  Block block(int size, int oneIn = 1) {
    const auto before = static_cast<std::size_t>(between(0, 31));
    Block block{before, std::vector<unsigned char>(before + static_cast<std::size_t>(size))};
    for (int i = 0; i < size; ++i) {
      if (oneIn == 1 || next() % oneIn == 0) block.data()[i] = next();
    }
    return block;
  }

 private:
  std::uint8_t next() { return data_[at_++ % size_]; }

  const std::uint8_t* data_;
  std::size_t size_, at_ = 0;
};
