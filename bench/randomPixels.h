// Random masks and images, the same in every run.
#pragma once

#include <random>
#include <vector>

using Bytes = std::vector<unsigned char>;

/// The same numbers in every run.
class Random {
 public:
  int between(int first, int last) {
    return first + static_cast<int>(engine_() % static_cast<unsigned int>(last - first + 1));
  }

  /// `size` bytes, of which about one in `oneIn` is not 0.
  Bytes bytes(int size, int oneIn = 1) {
    Bytes bytes(static_cast<std::size_t>(size));
    for (auto& byte : bytes) {
      byte = static_cast<unsigned char>(between(1, oneIn) == 1 ? between(1, 255) : 0);
    }
    return bytes;
  }

 private:
  std::mt19937 engine_{1};
};
