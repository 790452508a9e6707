// Benchmarks that stand beside their plain versions. Each pair is measured turn by turn in one
// process, so that whatever else the machine does meets both, and its ratio becomes a counter.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using Seconds = std::chrono::duration<double>;

/// The time of one call in a run that lasts about a millisecond or one call.
template <class Call>
double timeOf(Call& call, long repetitions) {
  const auto begin = std::chrono::steady_clock::now();
  for (long i = 0; i < repetitions; ++i) {
    call();
    benchmark::ClobberMemory();
  }
  return Seconds(std::chrono::steady_clock::now() - begin).count() /
         static_cast<double>(repetitions);
}

template <class Call>
long repetitionsFor(Call& call) {
  long repetitions = 1;
  while (timeOf(call, repetitions) * static_cast<double>(repetitions) < 1e-3) repetitions *= 2;
  return repetitions;
}

/// Registers the benchmark `name`, whose time is that of `fast`. Its counters are the time of
/// `plain` in nanoseconds and `ratio`, plain over fast, both medians. `agree` is asked first;
/// where the two answers differ, the program ends.
template <class Fast, class Plain, class Agree>
void pair(const std::string& name, Fast fast, Plain plain, Agree agree) {
  benchmark::RegisterBenchmark(
      name.c_str(),
      [=](benchmark::State& state) mutable {
        if (!agree()) {
          state.SkipWithError("the fast and the plain version disagree");
          std::exit(EXIT_FAILURE);
        }
        const long fastRepetitions = repetitionsFor(fast);
        const long plainRepetitions = repetitionsFor(plain);
        std::vector<double> fastTimes;
        std::vector<double> plainTimes;
        for (auto _ : state) {
          fastTimes.push_back(timeOf(fast, fastRepetitions));
          plainTimes.push_back(timeOf(plain, plainRepetitions));
          state.SetIterationTime(fastTimes.back());
        }
        const auto median = [](std::vector<double>& times) {
          std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2),
                           times.end());
          return times[times.size() / 2];
        };
        const double fastTime = median(fastTimes);
        const double plainTime = median(plainTimes);
        state.counters["fast_ns"] = fastTime * 1e9;
        state.counters["plain_ns"] = plainTime * 1e9;
        state.counters["ratio"] = plainTime / fastTime;
      })
      ->UseManualTime()
      ->Iterations(31);
}

}  // namespace bench
