// What promises to be callable from any thread, called from many at once on the same data. Where a
// function has variants for the processor, that is the first call, the one that chooses. The preset
// thread builds this with ThreadSanitizer, which reports every race.
#include <gtest/gtest.h>

#include <latch>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "Brindle/XTypeConvertTool.h"
#include "Brindle/utility.h"
#include "FeatureReader.h"
#include "HammingScore.h"
#include "ORV_CompareFeatures.h"
#include "support/Bitstream.h"
#include "support/Bytes.h"

namespace {

constexpr int kWidth = 60;
constexpr int kHeight = 40;
constexpr int kPixels = kWidth * kHeight;

/// Read by all threads; the functions promise not to write to what they only take.
struct Shared {
  std::string feature = randomBytes(4096, 1);
  std::string other = randomBytes(4096, 2);
  std::string query = bitstreamHeader(7, 2) + frame(other) + frame(feature);
  std::string image = randomBytes(3 * kPixels, 3);
  std::string packed = randomBytes(kHeight * ((kWidth + 7) / 8), 4);
  std::string text = std::string(1000, 'a') + "\xC3\xA4" + std::string(1000, 'b');
  std::vector<double> numbers = std::vector<double>(64);
  std::vector<double*> rows;

  Shared() {
    for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<double>(i * i % 23);
    for (std::size_t i = 0; i < 8; ++i) rows.push_back(numbers.data() + 8 * i);
  }
};

Shared shared;

template <class T>
std::string arrayBytes(const T* values, std::size_t count) {
  return {reinterpret_cast<const char*>(values), count * sizeof(T)};
}
template <class... T>
std::string bytesOf(T... values) {
  std::string bytes;
  (bytes.append(arrayBytes(&values, 1)), ...);
  return bytes;
}

unsigned char* raw(std::string& bytes) {
  return reinterpret_cast<unsigned char*>(bytes.data());
}

struct Job {
  const char* name;
  std::string (*call)();
};

const Job kJobs[] = {
    {"calculateScores",
     [] { return bytesOf(calculateScores(shared.feature.data(), shared.other.data(), 4096)); }},
    {"ORV_CompareFeatures",
     [] {
       double distance = 0.5;
       const int result =
           ORV_CompareFeatures(shared.feature.data(), 4096, shared.query.data(),
                               static_cast<unsigned int>(shared.query.size()), &distance);
       return bytesOf(result, distance) + ORV_GetCompareFeaturesVersion();
     }},
    {"FeatureReader",
     [] {
       const auto size = static_cast<unsigned int>(shared.query.size());
       return bytesOf(FeatureReader().read(shared.query.data(), size, 4096).size(),
                      queryFramesFit(shared.query.data(), size, 4096));
     }},
    {"IsUtf8", [] { return bytesOf(IsUtf8(shared.text.c_str())); }},
    {"trimTailSpacesInString", [] { return trimTailSpacesInString(shared.text + "  "); }},
    {"xSwapImageDataOrder",
     [] {
       std::string copy(shared.image.size(), '\0');
       unsigned char* target = raw(copy);
       xSwapImageDataOrder(raw(shared.image), kWidth, kHeight, 3 * kWidth, 3 * kPixels, target);
       return copy;
     }},
    {"copyImageAnywhere",
     [] {
       std::string copy(shared.image.size(), '\0');
       copyImageAnywhere(raw(shared.image), kWidth, kHeight, 3 * kWidth, 3, 0, 2, kWidth, kHeight,
                         raw(copy), kWidth, kHeight, 3 * kWidth, 1, 0, true, raw(shared.image),
                         kWidth);
       return copy;
     }},
    {"bitData2Byte",
     [] {
       std::string pixels(kPixels, '\0');
       bitData2Byte(raw(shared.packed), kWidth, kHeight, raw(pixels), kWidth, kHeight, 0, 0, true);
       return pixels;
     }},
    {"byte2BitData",
     [] {
       unsigned char* packed = nullptr;
       unsigned long length = 0;
       byte2BitData(raw(shared.image), kWidth, kHeight, packed, length);
       std::string copy = arrayBytes(packed, length);
       free(packed);
       return copy;
     }},
    {"maskMaskOverlap",
     [] {
       return bytesOf(maskMaskOverlap(100, 100, raw(shared.packed), kWidth, kHeight, 0, 0,
                                      raw(shared.packed), kWidth, kHeight, 30, 30));
     }},
    {"erosion",
     [] {
       std::string image(kPixels, '\xFF');
       image[kPixels / 2] = '\0';
       return bytesOf(erosion(raw(image), kWidth, kHeight)) + image;
     }},
    {"lineSegmentMaskIntersect",
     [] {
       return bytesOf(
           lineSegmentMaskIntersect(raw(shared.image), 0, 0, kWidth, kHeight, -5, 90, -5, -90));
     }},
    {"matrixDet", [] { return bytesOf(matrixDet(shared.rows.data(), 8)); }},
    {"quickSort",
     [] {
       std::vector<double> values = shared.numbers;
       std::vector<int> index(values.size());
       std::iota(index.begin(), index.end(), 0);
       quickSort(values.data(), index.data(), static_cast<int>(values.size()));
       return arrayBytes(values.data(), values.size())
           .append(arrayBytes(index.data(), index.size()));
     }},
    {"radixSortUChar",
     [] {
       std::string bytes = shared.feature;
       radixSortUChar(raw(bytes), static_cast<int>(bytes.size()));
       return bytes;
     }},
    {"pointInPolygon2D",
     [] {
       double point[] = {7.0, 7.0};
       return bytesOf(pointInPolygon2DWindingNumber(shared.numbers.data(), 32, point),
                      pointInPolygon2DCrossingNumber(shared.numbers.data(), 32, point));
     }},
    {"CIEDE2000",
     [] {
       double lab[3];
       BGR2Lab(shared.numbers.data(), lab);
       return bytesOf(lab[0], lab[1], lab[2], CIEDE2000(lab, shared.numbers.data() + 3));
     }},
};

/// What each of many threads gets that call at the same time.
std::vector<std::string> fromManyThreads(const Job& job) {
  constexpr int kThreads = 16;
  std::vector<std::string> answers(kThreads);
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (std::string& answer : answers) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      answer = job.call();
    });
  }
  for (std::thread& thread : threads) thread.join();
  return answers;
}

TEST(Threads, GetWhatOneThreadGetsFromTheFirstCallOn) {
  for (const Job& job : kJobs) {
    const std::vector<std::string> answers = fromManyThreads(job);
    const std::string expected = job.call();
    for (const std::string& answer : answers) EXPECT_EQ(answer, expected) << job.name;
  }
}

}  // namespace
