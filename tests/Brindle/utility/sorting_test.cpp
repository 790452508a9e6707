#include "Brindle/utility/sorting.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <csignal>
#include <cstring>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "reference/PlainNumerics.h"

namespace {

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
        const std::size_t bytes = sorted.values.size() * sizeof(double);
        EXPECT_EQ(std::memcmp(sorted.values.data(), expected.values.data(), bytes), 0) << kind;
        EXPECT_TRUE(sorted.index == expected.index)
            << "kind " << kind << ", " << n << " from " << left;
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
    EXPECT_TRUE(std::is_sorted(pairs.values.begin(), pairs.values.end())) << kind;
  }
  pthread_attr_destroy(&smallStack);
}

template <class Sort, class T>
std::string printedBy(Sort sort, std::vector<T>& values) {
  testing::internal::CaptureStdout();
  sort(values.data(), static_cast<int>(values.size()));
  return testing::internal::GetCapturedStdout();
}

TEST(RadixSort, PrintsEachPassAndStopsWhenADigitIsShared) {
  const std::pair<std::vector<int>, const char*> cases[] = {
      {{170, 45, 802, 24}, "170 802 24 45 \n802 24 45 170 \n24 45 170 802 \n24 45 170 802 \n"},
      {{25, 15}, "25 15 \n"},
      {{11, 5, -3, -20}, "-3 -20 11 5 \n-20 -3 5 11 \n-20 -3 5 11 \n"},
      {{10, -20}, "10 -20 \n"},
      {{}, "Radix sort: input array size <= 0!\n"},
  };
  for (auto [values, printed] : cases) EXPECT_EQ(printedBy(radixSort, values), printed);
  std::vector<int> extremes{INT_MAX, -9, INT_MIN, 9, -99};
  printedBy(radixSort, extremes);
  EXPECT_EQ(extremes, (std::vector<int>{INT_MIN, -99, -9, 9, INT_MAX}));
  std::vector<unsigned char> noBytes;
  EXPECT_EQ(printedBy(radixSortUChar, noBytes), cases[4].second);
}

TEST(RadixSort, LeavesWhatListsLeave) {
  std::mt19937 engine(5);
  for (int round = 0; round < 400; ++round) {
    std::vector<int> values(1 + engine() % 20);
    std::vector<unsigned char> bytes(1 + engine() % (round % 2 == 0 ? 4 : 300));
    // In some rounds all of them share their ones or their tens.
    const int range = round % 3 == 0 ? INT_MAX : 3 + round, unit = round % 4 == 0 ? 10 : 1;
    for (int& x : values) x = static_cast<int>(engine() >> 1) % range / unit * unit;
    for (auto& x : bytes) {
      const auto random = engine();
      const auto byRound = {random, random % 26 * 10, random / 9 % 3 * 100 + 40 + random % 10};
      x = static_cast<unsigned char>(byRound.begin()[round % 3]);
    }
    std::vector<int> expected = values;
    std::vector<unsigned char> expectedBytes = bytes;
    std::string trace;
    plainRadixSort(expected, 10, [&] {
      for (const int x : expected) trace += std::to_string(x) + " ";
      trace += "\n";
    });
    plainRadixSort(expectedBytes, 3, [] {});
    EXPECT_EQ(printedBy(radixSort, values) + printedBy(radixSortUChar, bytes), trace);
    EXPECT_TRUE(values == expected && bytes == expectedBytes) << round;
  }
}

/// Whether a search that finds nothing is still at it after 10 ms of processor time.
template <class Search>
bool isEndless(Search search) {
  const pid_t child = fork();
  if (child == 0) {
    const itimerval limit{{0, 0}, {0, 10'000}};
    std::signal(SIGPROF, SIG_DFL);
    setitimer(ITIMER_PROF, &limit, nullptr);
    search();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGPROF;
}

/// Searches in 2, 4, 6 ... 2n for everything from 1 to 2n + 1.
template <class T>
void searchEverywhere() {
  std::vector<T> values;
  for (unsigned long n = 1, found = 99; n <= 9; ++n) {
    values.push_back(static_cast<T>(2 * n));
    for (unsigned long probe = 0; probe <= n + 1; ++probe) {
      const bool startsAtLast = (probe < n ? probe : n / 2) == n - 1;
      for (unsigned long number = 1; number <= 2 * n + 1; ++number, found = 99) {
        const T value = static_cast<T>(number);
        const auto find = [&] {
          return findNumberFromArray(values.data(), n, value, found, probe);
        };
        const bool isPresent = number % 2 == 0;
        if (number < 2 * n ? isPresent || number == 1 : startsAtLast) {
          EXPECT_EQ(find(), isPresent) << number << " of " << n << " from " << probe;
          EXPECT_EQ(found, isPresent ? number / 2 - 1 : 99);
        } else if (n == 4 && probe % 3 == 0) {
          EXPECT_TRUE(isEndless(find)) << number << " of " << n << " from " << probe;
        }
      }
    }
  }
}

TEST(Search, ReturnsOrNotAsItsBoundsAllow) {
  []<class... T>(T...) { (searchEverywhere<T>(), ...); }(1, 1U, 1L, 1UL, 1.0F, 1.0);
  unsigned long found = 99;
  int order[] = {-1, 1, 2};
  double almost[] = {0.3, 0.4};
  EXPECT_TRUE(findNumberFromArray(order, 3, -1, found, 1));
  EXPECT_FALSE(findNumberFromArray(almost, 1, 0.30000000000000004, found, 0));
  EXPECT_FALSE(findNumberFromArray(almost, 0, 0.3, found, 0));
  EXPECT_FALSE(findNumberFromArray<double>(almost, 1, NAN, found, 0));
  EXPECT_FALSE(isEndless([] {}));
  EXPECT_TRUE(isEndless([&] { findNumberFromArray<double>(almost, 2, NAN, found, 0); }));
}

}  // namespace
