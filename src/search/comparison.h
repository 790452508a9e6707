// The comparison of a target with all queries, on several threads. Used by VorquellSearch.
#pragma once

#include <cstdint>
#include <vector>

#include "search/files.h"
#include "search/options.h"
#include "search/queries.h"

namespace vorquell::search {

/// A feature of a query; the closer one is the smaller, then the one that was given first.
struct Result {
  std::uint32_t bits;
  std::uint64_t query;
  std::uint64_t index;
  auto operator<=>(const Result&) const = default;
};

/// Why a query was not compared, or not all of it.
struct Failure {
  std::uint64_t query;
  int code;                // the system's error, above 0; a status, below 0; 0 for a packed file
                           // with left-over bytes
  std::uint64_t features;  // of a packed file: whole ones, and the bytes after them
  std::uint64_t leftOver;
};

struct Outcome {
  std::vector<Result> results;    // sorted
  std::vector<Failure> failures;  // in the order of the queries
};

/// Compares everything that can be, showing the progress on standard error. Throws std::bad_alloc
/// where there is no memory.
Outcome compareAll(const Buffer& target, const Queries& queries, const Options& options);

}  // namespace vorquell::search
