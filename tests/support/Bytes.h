// Random bytes, and those of a file.
#pragma once

#include <fstream>
#include <iterator>
#include <random>
#include <string>

/// `length` random bytes, the same for the same seed.
inline std::string randomBytes(std::size_t length, unsigned int seed) {
  std::mt19937 engine(seed);
  std::string bytes(length, '\0');
  for (char& byte : bytes) byte = static_cast<char>(engine());
  return bytes;
}

inline std::string readAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
