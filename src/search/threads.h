// Sharing work among threads. Private: not installed. Used by the library and the program.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

namespace vorquell::search {

/// `wanted`, or for 0 the number of processors that the process may run on.
unsigned threadCount(unsigned wanted);

/// Calls `work(worker)` on up to `threads` threads (1 or more) at once, with different numbers
/// below `threads`, of which the caller is 0, and returns when all have returned. Threads that
/// cannot be started are done without, so `work` must leave nothing for another worker. What one
/// throws is thrown here after the others have returned.
void runOnThreads(unsigned threads, const std::function<void(unsigned)>& work);

/// Numbers from 0 on, each handed out once, to any thread.
class Counter {
 public:
  explicit Counter(std::uint64_t end) : end_(end) {}

  /// Whether there was another one.
  bool next(std::uint64_t* number) {
    *number = next_.fetch_add(1, std::memory_order_relaxed);
    return *number < end_;
  }

 private:
  std::atomic<std::uint64_t> next_ = 0;
  const std::uint64_t end_;
};

}  // namespace vorquell::search
