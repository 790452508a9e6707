// Expects the process to have as many files open at the object's end as at its beginning.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

class OpenFiles {
 public:
  ~OpenFiles() { EXPECT_EQ(count(), before_) << "files were left open"; }

 private:
  static std::ptrdiff_t count() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  }
  const std::ptrdiff_t before_ = count();
};
