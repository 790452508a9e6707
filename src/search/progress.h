// How far VorquellSearch is, on standard error.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "search/options.h"

namespace vorquell::search {

/// What a line says after so many seconds of comparing; none are expected where nobody knows how
/// many there are.
std::string progressText(std::uint64_t done, std::optional<std::uint64_t> expected, double seconds);

/// Prints a line on standard error at each interval: on a terminal in place, elsewhere one after
/// the other. What is only for a terminal is erased at the end.
class Progress {
 public:
  Progress(ProgressWhen when, bool isTerminal,
           std::chrono::milliseconds interval = std::chrono::seconds(1));
  ~Progress();

  /// So many features more will be compared; or nobody knows how many.
  void expect(std::uint64_t features) {
    if (expected_) *expected_ += features;
  }
  void expectUnknown() { expected_.reset(); }

  void begin();
  void add(std::uint64_t features) { done_.fetch_add(features, std::memory_order_relaxed); }
  void end();

 private:
  void printRegularly();
  void print();

  const bool isInPlace_;
  const bool isAlways_;
  const bool isShown_;
  const std::chrono::milliseconds interval_;
  std::optional<std::uint64_t> expected_ = 0;
  std::atomic<std::uint64_t> done_ = 0;
  std::chrono::steady_clock::time_point begin_;

  std::thread printer_;
  std::mutex mutex_;
  std::condition_variable ended_;
  bool hasEnded_ = false;
  bool isLineShown_ = false;
};

}  // namespace vorquell::search
