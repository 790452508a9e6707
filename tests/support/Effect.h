// What a call returns, prints and leaves behind, as one value that is compared at once.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>
#include <utility>

#include "support/Same.h"

inline const std::string kUnchanged = "unchanged";

/// Any result makes one; a text is taken as it stands.
struct Effect {
  template <class Result>
  Effect(const Result& returned, std::string text = "", std::string holds = kUnchanged)
      : printed(std::move(text)), folder(std::move(holds)) {
    if constexpr (std::convertible_to<Result, std::string>) {
      result = returned;
    } else {
      result = support::digits(returned);
    }
  }
  std::string result;
  std::string printed;
  std::string folder;  // what it holds, as InScratchDir.h says, or kUnchanged
  std::string workingDirectory = ".";
  std::string openFiles = kUnchanged;

  bool operator==(const Effect&) const = default;
  friend void PrintTo(const Effect& effect, std::ostream* out) {
    using testing::PrintToString;
    *out << PrintToString(effect.result) << "\n    printed " << PrintToString(effect.printed)
         << "\n    folder " << PrintToString(effect.folder) << "\n    working directory "
         << effect.workingDirectory << "\n    open files " << effect.openFiles;
  }
};

/// Keeps the process within a limit of the system's (RLIMIT_...) while the object lives.
struct Limit {
  Limit(decltype(RLIMIT_FSIZE) limited, rlim_t most) : resource(limited) {
    std::signal(SIGXFSZ, SIG_IGN);  // writing past the limit fails instead
    getrlimit(resource, &before);
    const rlimit limit{most, before.rlim_max};
    setrlimit(resource, &limit);
  }
  ~Limit() { setrlimit(resource, &before); }
  const decltype(RLIMIT_FSIZE) resource;
  rlimit before;
};
