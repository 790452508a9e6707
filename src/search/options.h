// The command line of VorquellSearch.
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace vorquell::search {

enum class Request { kSearch, kHelp, kVersion };
enum class ProgressWhen { kAuto, kAlways, kNever };

struct Options {
  Request request = Request::kSearch;
  std::uint64_t nearest = std::numeric_limits<std::uint64_t>::max();
  double within = std::numeric_limits<double>::infinity();
  unsigned threads = 0;
  char lineEnd = '\n';
  ProgressWhen progress = ProgressWhen::kAuto;
  const char* target = nullptr;
  std::vector<const char*> queries;
  const char* list = nullptr;
  std::vector<const char*> packed;
};

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

extern const char kHelp[];

/// "-", which for lists and packed files is standard input.
bool isStandardInput(const char* name);

/// Throws UsageError. The texts are those of `argv`, which is put in another order.
Options parseOptions(int argc, char** argv);

}  // namespace vorquell::search
