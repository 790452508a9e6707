// Checks of tables (Table.h) whose rows hold a function's arguments and what it does with them:
//
//     FUNCTION ARGUMENT... = RETURNED OUTPUT... PRINTED
//
// An argument is a text, a number, an array (1,2,3, or 7*300 for 300 times 7), a matrix (1,2;3,4),
// an empty one () or null. Nothing may change it but where it is written >1,2,3, which is changed
// in place, or ?, which is only written to: what it holds afterwards stands among the results,
// after what is returned, if anything is. An array for ? has the size of its result and is filled
// with 4321, bytes with 77. The array that is changed in place is passed for same as well. What is
// printed is left out where it is nothing.
#pragma once

#include <charconv>
#include <list>
#include <tuple>
#include <type_traits>

#include "support/Outcome.h"
#include "support/Table.h"

/// What checkTable() wants of a function; an overloaded one comes with its result's and its
/// parameters' types.
#define CALLS(function, ...) std::pair(#function, support::calls<__VA_ARGS__>(function))

namespace support {

template <class T>
T parsed(const std::string& word) {
  if constexpr (std::is_same_v<T, std::string>) {
    return word;
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<T>(number(word));
  } else if constexpr (std::is_same_v<T, bool>) {
    if (word != "0" && word != "1") throw std::invalid_argument("neither 0 nor 1: " + word);
    return word == "1";
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(parsed<int>(word));
  } else {
    T value{};
    const bool isHex = word.starts_with("0x");
    const char* const end = word.data() + word.size();
    const auto [rest, error] =
        std::from_chars(word.data() + (isHex ? 2 : 0), end, value, isHex ? 16 : 10);
    if (error != std::errc() || rest != end) throw std::invalid_argument("no number: " + word);
    return value;
  }
}

/// Of what a parameter of type P is made: texts or numbers.
template <class P>
auto elementOf() {
  using Pointee = std::remove_cvref_t<std::remove_pointer_t<std::remove_reference_t<P>>>;
  using Number = std::remove_all_extents_t<std::remove_pointer_t<Pointee>>;
  if constexpr (std::is_same_v<Number, bool>) {
    return int{};  // of which a vector is an array
  } else if constexpr (std::is_same_v<Number, char> || std::is_same_v<Number, std::string>) {
    return std::string();
  } else if constexpr (std::is_class_v<Number>) {
    return typename Number::value_type{};
  } else {
    return Number{};
  }
}

template <class T>
const T kGuard = static_cast<T>(sizeof(T) > 1 ? 4321 : 77);
template <>
inline const std::string kGuard<std::string> = "guard";

/// How far the words of a row are read.
struct Reading {
  const Row& row;
  std::size_t argument, result;
  void* inPlace = nullptr;
};

/// What is passed for a parameter of type P. A guard lies before arrays and after those that are
/// written to; what only is read ends with its memory, so that a sanitizer sees a look past it.
template <class P>
class Argument {
  using T = decltype(elementOf<P>());
  using Value = std::remove_reference_t<P>;
  using Pointee = std::remove_cv_t<std::remove_pointer_t<Value>>;
  static constexpr bool kIsContainer = std::is_class_v<Pointee> && !std::is_same_v<Pointee, T>;
  using Held = std::conditional_t<kIsContainer, Pointee, std::vector<T>>;

 public:
  explicit Argument(Reading& reading)
      : reading_(reading), word_(reading.row.arguments.at(reading.argument++)) {
    const bool isOutput = word_[0] == '?' || word_[0] == '>';
    const std::string& after = isOutput ? reading.row.results.at(reading.result++) : word_;
    expected_ = held(after, isOutput);
    held_ = word_[0] == '>' ? held(word_.substr(1), isOutput) : expected_;
    if (word_ == "?") std::fill(held_.begin(), held_.end(), kGuard<T>);
    if constexpr (kIsContainer) {
      if (word_ == "?") held_.clear();
    } else {
      if (word_ != "null") data_ = held_.data() + 1;
      if (word_[0] == '>') reading.inPlace = data_;
      rows_.resize(2 + static_cast<std::size_t>(std::count(after.begin(), after.end(), ';')));
    }
  }

  P passed() {
    if (word_ == "same") data_ = static_cast<T*>(reading_.inPlace);
    if constexpr (std::is_pointer_v<P> && kIsContainer) {
      return word_ == "null" ? nullptr : &held_;
    } else if constexpr (kIsContainer) {
      return held_;
    } else if constexpr (std::is_same_v<P, T**>) {
      const std::size_t rows = rows_.size() - 1, columns = (held_.size() - 1) / rows;
      for (std::size_t i = 0; i < rows; ++i) rows_[i] = data_ + i * columns;
      return data_ == nullptr ? nullptr : rows_.data();
    } else if constexpr (std::is_same_v<Pointee, char>) {
      return data_ == nullptr ? nullptr : data_->data();
    } else if constexpr (std::is_pointer_v<Value>) {
      return reinterpret_cast<P>(data_);
    } else {
      return held_.at(1);
    }
  }

  void check() const {
    const Held& afterwards = held_;
    EXPECT_SAME(afterwards, expected_) << "in argument " << word_;
  }

 private:
  static Held held(const std::string& word, bool isOutput) {
    Held values(kIsContainer ? 0 : 1, kGuard<T>);
    if constexpr (std::is_same_v<T, std::string>) {
      values.push_back(word);
      return values;
    }
    for (std::size_t at = 0;
         at < word.size() && word != "()" && word != "null" && word != "same";) {
      const std::size_t end = std::min(word.find_first_of(",;", at), word.size());
      const std::string element = word.substr(at, end - at);
      const std::size_t times = std::min(element.find('*'), element.size());
      values.insert(values.end(),
                    times == element.size() ? 1 : parsed<std::size_t>(element.substr(times + 1)),
                    parsed<T>(element.substr(0, times)));
      at = end + 1;
    }
    if (!kIsContainer && isOutput) values.push_back(kGuard<T>);
    return values;
  }

  const Reading& reading_;
  std::string word_;
  Held held_;
  Held expected_;
  T* data_ = nullptr;
  std::vector<T*> rows_;  // and null after them
};

/// A check that calls the function with a row's arguments.
template <class Result, class... Parameters>
std::function<void(const Row&)> calls(Result (*function)(Parameters...)) {
  return [function](const Row& row) {
    constexpr bool kReturns = !std::is_void_v<Result>;
    using Returned = std::conditional_t<kReturns, Result, int>;
    Reading reading{row, 0, kReturns};
    std::tuple<Argument<Parameters>...> arguments{Argument<Parameters>(reading)...};
    Outcome<Returned> expected(parsed<Returned>(kReturns ? row.results.at(0) : "0"), "");
    if (reading.result < row.results.size()) expected.printed = row.results[reading.result++];
    if (reading.argument != row.arguments.size() || reading.result != row.results.size()) {
      throw std::invalid_argument("too many words");
    }
    const auto call = [function](auto&... each) { return function(each.passed()...); };
    const auto called = outcome([&] {
      if constexpr (kReturns) return std::apply(call, arguments);
      return std::apply(call, arguments), Returned{};
    });
    EXPECT_SAME(called, expected);
    std::apply([](const auto&... each) { (each.check(), ...); }, arguments);
  };
}

}  // namespace support
