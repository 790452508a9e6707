// What a function returns and what it prints.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

template <class Call, class... Arguments>
auto outcome(const Call& call, const Arguments&... arguments) {
  testing::internal::CaptureStdout();
  const auto result = call(arguments...);
  return std::pair(result, testing::internal::GetCapturedStdout());
}
