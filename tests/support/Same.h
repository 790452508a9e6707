// Comparing to the bit, with failures that speak: EXPECT_SAME(computed, expected) prints what was
// computed and both values with all their digits; of arrays the first place that differs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstdio>
#include <limits>
#include <ranges>
#include <string>

namespace support {

/// All digits (17 of a double, 9 of a float) and the bits of a number; anything else as GoogleTest
/// prints it.
template <class T>
std::string digits(const T& value) {
  char text[80];
  if constexpr (std::floating_point<T>) {
    constexpr int kDigits = std::numeric_limits<T>::max_digits10;
    std::snprintf(text, sizeof text, "%.*g (%a)", kDigits, double{value}, double{value});
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
  if constexpr (std::floating_point<T>) {
    return a == b ? std::signbit(a) == std::signbit(b) : a != a && b != b;
  } else {
    return a == b;
  }
}

template <class T>
testing::AssertionResult same(const char* computedText, const char*, const T& computed,
                              const T& expected) {
  if constexpr (std::ranges::range<T> && !std::convertible_to<T, std::string>) {
    using Element = std::ranges::range_value_t<T>;
    const auto [at, wanted] = std::ranges::mismatch(computed, expected, isSame<Element>);
    if (at == computed.end() && wanted == expected.end()) return testing::AssertionSuccess();
    const auto shown = [](auto place, auto end) {
      return place == end ? "its end" : digits(*place);
    };
    return testing::AssertionFailure()
           << computedText << "\n  at [" << std::distance(computed.begin(), at) << "] is "
           << shown(at, computed.end()) << "\n  and not " << shown(wanted, expected.end())
           << "\n  whole: " << testing::PrintToString(computed);
  } else {
    if (isSame(computed, expected)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << computedText << "\n  is " << digits(computed) << "\n  and not " << digits(expected);
  }
}

}  // namespace support

/// Both of one type.
#define EXPECT_SAME(computed, expected) EXPECT_PRED_FORMAT2(support::same, computed, expected)
