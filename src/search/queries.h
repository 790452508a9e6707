// What VorquellSearch compares: the names of all queries, in the order in which they are given.
#pragma once

#include <cstdint>
#include <vector>

#include "search/files.h"
#include "search/options.h"

namespace vorquell::search {

/// A query is numbered over all: those in files of their own, then the packed files.
class Queries {
 public:
  /// Reads the list; throws Fatal where it cannot be read or nothing is left to compare.
  explicit Queries(const Options& options);

  std::uint64_t fileCount() const { return names_.size() - packedCount_; }
  std::uint64_t count() const { return names_.size(); }
  const char* name(std::uint64_t query) const { return names_[query]; }

 private:
  void readList(const char* file);

  Buffer list_;
  std::vector<const char*> names_;
  const std::uint64_t packedCount_;
};

}  // namespace vorquell::search
