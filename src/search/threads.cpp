#include "search/threads.h"

#include <sched.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

namespace vorquell::search {

namespace {

/// The kernel refuses a set that is smaller than its own, so it is doubled until it fits.
unsigned processorsOfProcess() {
  constexpr std::size_t kMaxProcessors = std::size_t{1} << 20;
  for (std::size_t size = CPU_SETSIZE; size <= kMaxProcessors; size *= 2) {
    std::vector<unsigned long> set(CPU_ALLOC_SIZE(size) / sizeof(unsigned long));
    const std::size_t bytes = set.size() * sizeof set[0];
    auto* const cpus = reinterpret_cast<cpu_set_t*>(set.data());
    if (sched_getaffinity(0, bytes, cpus) == 0) {
      return static_cast<unsigned>(std::max(1, CPU_COUNT_S(bytes, cpus)));
    }
    if (errno != EINVAL) break;
  }
  return 1;
}

/// Starts up to `count` threads; stops at the first that cannot be had.
std::vector<std::thread> startThreads(unsigned count, const std::function<void(unsigned)>& work) {
  std::vector<std::thread> threads;
  try {
    for (unsigned worker = 1; worker <= count; ++worker)
      threads.emplace_back(std::cref(work), worker);
  } catch (const std::exception&) {
  }
  return threads;
}

}  // namespace

unsigned threadCount(unsigned wanted) {
  return wanted != 0 ? wanted : processorsOfProcess();
}

void runOnThreads(unsigned threads, const std::function<void(unsigned)>& work) {
  std::exception_ptr failure;
  std::mutex failureMutex;
  const std::function<void(unsigned)> guarded = [&](unsigned worker) {
    try {
      work(worker);
    } catch (...) {
      const std::lock_guard lock(failureMutex);
      failure = std::current_exception();
    }
  };
  std::vector<std::thread> others = startThreads(threads - 1, guarded);
  guarded(0);
  for (std::thread& other : others) other.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace vorquell::search
