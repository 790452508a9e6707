// Comparing to the bit, with failures that speak: EXPECT_SAME(computed, expected) prints what was
// computed and both values with all their digits; of arrays the first place that differs.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <ranges>
#include <string>

namespace support {

/// 17 digits and the bits of a double, 9 of a float; anything else as GoogleTest prints it.
template <class T>
std::string digits(const T& value) {
  char text[80];
  if constexpr (std::same_as<T, double>) {
    std::snprintf(text, sizeof text, "%.17g (%a)", value, value);
  } else if constexpr (std::same_as<T, float>) {
    std::snprintf(text, sizeof text, "%.9g (%a)", double{value}, double{value});
  } else if constexpr (std::same_as<T, unsigned char>) {
    std::snprintf(text, sizeof text, "%d (0x%02x)", value, value);
  } else {
    return testing::PrintToString(value);
  }
  return text;
}

/// Floating-point numbers have the same bits, or are both NaN; anything else is equal.
template <class T>
bool isSame(const T& a, const T& b) {
  if constexpr (std::same_as<T, double>) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a != a && b != b);
  } else if constexpr (std::same_as<T, float>) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) || (a != a && b != b);
  } else {
    return a == b;
  }
}

template <class T>
testing::AssertionResult same(const char* computedText, const char*, const T& computed,
                              const T& expected) {
  if constexpr (std::ranges::range<T> && !std::convertible_to<T, std::string>) {
    auto at = computed.begin();
    auto wanted = expected.begin();
    std::size_t place = 0;
    for (; at != computed.end() && wanted != expected.end(); ++at, ++wanted, ++place) {
      if (isSame(*at, *wanted)) continue;
      return testing::AssertionFailure()
             << computedText << "\n  at [" << place << "] is " << digits(*at) << "\n  and not "
             << digits(*wanted) << "\n  whole: " << testing::PrintToString(computed);
    }
    if (at == computed.end() && wanted == expected.end()) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << computedText << "\n  has " << std::ranges::distance(computed) << " elements and not "
           << std::ranges::distance(expected) << ": " << testing::PrintToString(computed);
  } else {
    if (isSame(computed, expected)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << computedText << "\n  is " << digits(computed) << "\n  and not " << digits(expected);
  }
}

}  // namespace support

/// Both of one type.
#define EXPECT_SAME(computed, expected) EXPECT_PRED_FORMAT2(support::same, computed, expected)
#define ASSERT_SAME(computed, expected) ASSERT_PRED_FORMAT2(support::same, computed, expected)
