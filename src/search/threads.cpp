#include "search/threads.h"

#include <sched.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace vorquell::search {

namespace {

unsigned processorsOfProcess() {
  cpu_set_t sets[8] = {};  // room for 8,192 processors, the most that Linux runs on
  sched_getaffinity(0, sizeof sets, sets);
  return static_cast<unsigned>(std::max(1, CPU_COUNT_S(sizeof sets, sets)));
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
