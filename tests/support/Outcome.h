// What a call returns and what it prints, compared at once.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/Same.h"

template <class Result>
struct Outcome {
  Outcome(Result returned, std::string text)
      : result(std::move(returned)), printed(std::move(text)) {}

  Result result;
  std::string printed;

  bool operator==(const Outcome& other) const {
    return support::isSame(result, other.result) && printed == other.printed;
  }
  friend void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << support::digits(outcome.result) << ", printing "
         << testing::PrintToString(outcome.printed);
  }
};

template <class Call, class... Arguments>
auto outcome(const Call& call, const Arguments&... arguments) {
  testing::internal::CaptureStdout();
  try {
    auto result = call(arguments...);
    return Outcome<decltype(result)>{std::move(result), testing::internal::GetCapturedStdout()};
  } catch (...) {
    testing::internal::GetCapturedStdout();  // while it lasts, nothing else can be captured
    throw;
  }
}
