// Checks of tables (Table.h) whose rows hold a function's arguments and what it does with them:
//
//     FUNCTION ARGUMENT... = RETURNED OUTPUT...
//
// An argument is a number, an array (1,2,3), a matrix (1,2;3,4), an empty one () or null. Nothing
// may change it but where it is written >1,2,3, which is changed in place, or ?, which is only
// written to: what it holds afterwards stands among the results, after what is returned, if
// anything is. An array for ? has the size of its result and is filled with 4321.
#pragma once

#include <charconv>
#include <list>
#include <tuple>
#include <type_traits>

#include "support/Table.h"

namespace support {

template <class T>
T parsed(const std::string& word) {
  if constexpr (std::is_same_v<T, std::string>) {
    return word;
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<T>(number(word));
  } else if constexpr (std::is_same_v<T, bool> || std::is_enum_v<T>) {
    return static_cast<T>(parsed<int>(word));
  } else {
    T value{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size()) {
      throw std::invalid_argument("no such number: " + word);
    }
    return value;
  }
}

/// The numbers that a parameter's type is made of.
template <class P>
struct ElementOf {
  using type = P;
};
template <class P>
struct ElementOf<P&> : ElementOf<std::remove_const_t<P>> {};
template <class P>
struct ElementOf<P*> : ElementOf<P> {};
template <class P, std::size_t kSize>
struct ElementOf<P[kSize]> : ElementOf<P> {};
template <class P>
struct ElementOf<std::list<P>> : ElementOf<P> {};
template <class P>
struct ElementOf<std::vector<P>> : ElementOf<P> {};

/// What is passed for a parameter of type P. Arrays lie between two guards.
template <class P>
class Argument {
  using T = typename ElementOf<P>::type;
  using Pointee = std::remove_cvref_t<std::remove_pointer_t<P>>;
  static constexpr bool kIsContainer = std::is_class_v<Pointee>;
  using Held = std::conditional_t<kIsContainer, Pointee, std::vector<T>>;
  static constexpr T kGuard = static_cast<T>(sizeof(T) > 1 ? 4321 : 77);

 public:
  Argument(const Row& row, std::size_t& argument, std::size_t& result) {
    const std::string& word = row.arguments.at(argument++);
    const bool isOutput = word[0] == '?' || word[0] == '>';
    const std::string& after = isOutput ? row.results.at(result++) : word;
    expected_ = held(after);
    held_ = held(word == "?" ? (kIsContainer ? "()" : after) : word.substr(word[0] == '>'));
    if (word == "?" && !kIsContainer) std::fill(held_.begin(), held_.end(), kGuard);
    isNull_ = word == "null";
    rows_.resize(2 + static_cast<std::size_t>(std::count(after.begin(), after.end(), ';')));
    place_ = argument;
  }

  P passed() {
    if constexpr (std::is_pointer_v<P> && kIsContainer) {
      return isNull_ ? nullptr : &held_;
    } else if constexpr (kIsContainer) {
      return held_;
    } else if constexpr (std::is_same_v<P, T**>) {
      const std::size_t rows = rows_.size() - 1, columns = (held_.size() - 2) / rows;
      for (std::size_t i = 0; i < rows; ++i) rows_[i] = held_.data() + 1 + i * columns;
      return rows_.data();
    } else if constexpr (std::is_pointer_v<P>) {
      return isNull_ ? nullptr : reinterpret_cast<P>(held_.data() + 1);
    } else {
      return held_[1];
    }
  }

  void check() const {
    const Held& afterwards = held_;
    EXPECT_SAME(afterwards, expected_) << "in argument " << place_;
  }

 private:
  static Held held(const std::string& word) {
    Held values(kIsContainer ? 0 : 1, kGuard);
    for (std::size_t at = 0; at < word.size() && word != "()" && word != "null";) {
      const std::size_t end = std::min(word.find_first_of(",;", at), word.size());
      values.push_back(parsed<T>(word.substr(at, end - at)));
      at = end + 1;
    }
    if (!kIsContainer) values.push_back(kGuard);
    return values;
  }

  Held held_;
  Held expected_;
  bool isNull_ = false;
  std::size_t place_ = 0;
  std::vector<T*> rows_;  // and null after them
};

/// A check that calls the function with a row's arguments.
template <class Result, class... Parameters>
std::function<void(const Row&)> calls(Result (*function)(Parameters...)) {
  return [function](const Row& row) {
    constexpr bool kReturns = !std::is_void_v<Result>;
    std::size_t argument = 0, result = kReturns;
    std::tuple<Argument<Parameters>...> arguments{Argument<Parameters>(row, argument, result)...};
    if (argument != row.arguments.size() || result != row.results.size()) {
      throw std::invalid_argument("too many words");
    }
    const auto call = [function](auto&... each) { return function(each.passed()...); };
    if constexpr (kReturns) {
      const Result returned = std::apply(call, arguments);
      EXPECT_SAME(returned, parsed<Result>(row.results[0]));
    } else {
      std::apply(call, arguments);
    }
    std::apply([](const auto&... each) { (each.check(), ...); }, arguments);
  };
}

}  // namespace support
