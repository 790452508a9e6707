// A folder of a test's own, removed with the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class ScratchDir {
 public:
  ScratchDir() {
    std::string name = (std::filesystem::temp_directory_path() / "vorquell-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~ScratchDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  /// Writes a file and returns its path.
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
    return *this / name;
  }

 private:
  std::string path_;
};

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
