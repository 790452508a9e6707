#include "Brindle/utility/sorting.h"

#include <pthread.h>
#include <setjmp.h>
#include <sys/time.h>

#include <climits>
#include <csignal>
#include <numeric>
#include <random>

#include "reference/PlainNumerics.h"
#include "support/Call.h"

namespace {

using support::Row;

enum Kind { kAscending, kAscendingPairs, kDescending, kDescendingPairs, kRaisedEnd, kKinds = 14 };

struct Pairs {
  Pairs(int kind, int n) : index(static_cast<std::size_t>(n)) {
    std::mt19937 engine(7);
    std::iota(index.begin(), index.end(), 0);
    for (int i = 0; i < n; ++i) {
      const double random = static_cast<double>(engine()), few = std::fmod(random, 20.0);
      const double ofKind[kKinds] = {1.0 * i,
                                     1.0 * (i / 2),
                                     -1.0 * i,
                                     -1.0 * (i / 2),
                                     i < n - 9 ? i / 3 : n / 3 - 2 + few,
                                     random,
                                     few,
                                     1.0 * (i == 0 ? n : i),
                                     i == n - 2 ? NAN : 1.0 * i,
                                     i == n - 1 ? 0.5 : i,
                                     few < 9.0 ? -0.0 : 0.0,
                                     few < 2.0 ? NAN : few,
                                     i > n / 2 && few < 1.0 ? NAN : 0.5 * (i / 2),
                                     1.0 * std::min(i, n - i)};
      values.push_back(ofKind[kind]);
    }
  }
  std::vector<double> values;
  std::vector<int> index;
};

TEST(QuickSort, LeavesWhatPlainPartitioningLeaves) {
  for (int kind = 0; kind < kKinds; ++kind) {
    for (const int n : {1, 2, 3, 7, 15, 16, 17, 18, 33, 129, 130, 131, 200, 257, 500, 3000}) {
      for (const int left : {0, 1}) {
        Pairs sorted(kind, n), expected = sorted;
        q_sort(sorted.values.data(), sorted.index.data(), left, n - 1 - left);
        plainQuickSort(expected.values.data(), expected.index.data(), left, n - 1 - left);
        EXPECT_SAME(sorted.values, expected.values) << "kind " << kind << " from " << left;
        EXPECT_SAME(sorted.index, expected.index) << "kind " << kind << " from " << left;
      }
    }
  }
  for (const int n : {0, -1, INT_MIN}) quickSort(nullptr, nullptr, n);
}

TEST(QuickSort, NeedsLittleTimeForSortedInputAndLittleStackForAny) {
  pthread_attr_t smallStack;
  pthread_attr_init(&smallStack);
  pthread_attr_setstacksize(&smallStack, 128 << 10);  // too little for thousands of calls
  const auto sort = [](void* pairs) -> void* {
    auto& [values, index] = *static_cast<Pairs*>(pairs);
    quickSort(values.data(), index.data(), static_cast<int>(values.size()));
    return nullptr;
  };
  for (const int kind : {kAscending, kAscendingPairs, kDescending, kDescendingPairs, kRaisedEnd}) {
    Pairs pairs(kind, kind == kDescendingPairs ? 8000 : 1'000'000);  // quadratic: minutes
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &smallStack, sort, &pairs), 0);
    pthread_join(thread, nullptr);
    const auto unsorted = std::is_sorted_until(pairs.values.begin(), pairs.values.end());
    EXPECT_EQ(unsorted - pairs.values.begin(), std::ssize(pairs.values)) << "kind " << kind;
  }
  pthread_attr_destroy(&smallStack);
}

TEST(RadixSort, PrintsEachPassAndStopsWhenADigitIsShared) {
  support::checkTable("radix-sort.txt", {CALLS(radixSort), CALLS(radixSortUChar)});
}

sigjmp_buf afterEndless;

void interruptAfter(int microseconds) {
  const itimerval limit{{0, 0}, {0, microseconds}};
  setitimer(ITIMER_PROF, &limit, nullptr);
}

/// Where a value is found, "none", or "endless" after 10 ms of processor time.
template <class T>
std::string placeOf(T value, unsigned long firstProbe, std::vector<T> values) {
  const std::size_t n = values.size();
  values.push_back(value);  // for a search that goes too far
  unsigned long found = 99;
  std::signal(SIGPROF, [](int) { siglongjmp(afterEndless, 1); });
  if (sigsetjmp(afterEndless, 1) != 0) return "endless";
  interruptAfter(10'000);
  const bool isFound = findNumberFromArray(values.data(), n, value, found, firstProbe);
  interruptAfter(0);  // never
  if (isFound) return std::to_string(found);
  return found == 99 ? "none" : "none, with an index";
}

template <class... T>
void searchesFor(const Row& row) {
  for (const auto& check : {support::calls(placeOf<T>)...}) check(row);
}

TEST(Search, ReturnsOrNotAsItsBoundsAllow) {
  support::checkTable(
      "search.txt",
      {{"findNumberFromArray", searchesFor<int, unsigned int, long, unsigned long, float, double>},
       {"findNumberFromArray(double)", searchesFor<double>}});
}

}  // namespace
