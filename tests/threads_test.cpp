// What has variants for the processor, called first from many threads at once: each of them may be
// the one that chooses. The preset thread builds this with ThreadSanitizer, which reports races.
#include <gtest/gtest.h>
#include <sched.h>

#include <array>
#include <functional>
#include <future>
#include <latch>
#include <stdexcept>
#include <string>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility.h"
#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"
#include "search/threads.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"

namespace {

constexpr int kWidth = 60;
constexpr int kHeight = 40;
constexpr int kPixels = kWidth * kHeight;

unsigned char* raw(const std::string& bytes) {
  return reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
}

/// Expects of 16 threads that call at the same time what another call returns.
void expectSameFromAllThreads(const char* function, const std::function<std::string()>& call) {
  std::latch start(16);
  const auto callWithAll = [&] {
    start.arrive_and_wait();
    return call();
  };
  std::vector<std::future<std::string>> answers;
  for (int i = 0; i < 16; ++i) answers.push_back(std::async(std::launch::async, callWithAll));
  for (auto& answer : answers) EXPECT_EQ(answer.get(), call()) << function;
}

TEST(Threads, GetWhatOneThreadGetsFromTheFirstCallOn) {
  const std::string feature = randomBytes(4096, 1), image = randomBytes(3 * kPixels, 2);
  const std::string query = bitstreamHeader(7, 2) + frame(randomBytes(4096, 3)) + frame(feature);
  const std::string text = std::string(1000, 'a') + "\xC3\xA4" + std::string(1000, 'b');

  expectSameFromAllThreads("ORV_CompareFeatures", [&] {
    double distance = 0.5;
    ORV_CompareFeatures(feature.data(), 4096, query.data(), static_cast<unsigned>(query.size()),
                        &distance);
    return std::to_string(distance);
  });
  expectSameFromAllThreads("ORV_Nearest", [&] {
    ORV_Match match;
    ORV_Nearest(feature.data(), 1, image.data(), 24, 64, 1, 2, &match);
    return std::to_string(match.distance) + " at " + std::to_string(match.index);
  });
  expectSameFromAllThreads("IsUtf8", [&] { return std::to_string(IsUtf8(text.c_str())); });
  expectSameFromAllThreads("xSwapImageDataOrder", [&] {
    std::string copy(image.size(), '\0');
    unsigned char* target = raw(copy);
    xSwapImageDataOrder(raw(image), kWidth, kHeight, 3 * kWidth, 3 * kPixels, target);
    return copy;
  });
  expectSameFromAllThreads("byte2BitData", [&] {
    unsigned char* packed = nullptr;
    unsigned long length = 0;
    byte2BitData(raw(image), kWidth, kHeight, packed, length);
    const std::string copy(reinterpret_cast<char*>(packed), length);
    std::free(packed);
    return copy;
  });
  expectSameFromAllThreads("bitData2Byte", [&] {
    std::string pixels(kPixels, '\0');
    bitData2Byte(raw(feature), kWidth, kHeight, raw(pixels), kWidth, kHeight, 0, 0, true);
    return pixels;
  });
}

TEST(Threads, OfTheSearchRunAtOnceAndPassOnWhatTheyThrow) {
  using namespace vorquell::search;
  std::latch together(3);
  std::array<int, 3> calls = {};
  runOnThreads(3, [&](unsigned worker) {
    ++calls[worker];
    together.arrive_and_wait();
  });
  EXPECT_EQ(calls, (std::array{1, 1, 1}));
  const auto fail = [](unsigned worker) {
    if (worker == 1) throw std::runtime_error("worker 1");
  };
  EXPECT_THROW(runOnThreads(2, fail), std::runtime_error);
  cpu_set_t processors;
  ASSERT_EQ(sched_getaffinity(0, sizeof processors, &processors), 0);
  EXPECT_EQ(static_cast<int>(threadCount(0)), CPU_COUNT(&processors));
  EXPECT_EQ(threadCount(5), 5U);
}

}  // namespace
