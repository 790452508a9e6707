#include "FeatureReader.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "support/Bitstream.h"

namespace {

static_assert(std::has_virtual_destructor_v<FeatureReader>);

constexpr std::size_t kFirst = 184;
const std::string kFeature = "0123456789";

struct ReadResult {
  std::vector<std::ptrdiff_t> offsets;
  std::string printed;
};

/// Reads with the shortest length that the reader accepts: only the announced frames bound it.
ReadResult readWith(FeatureReader&& reader, const std::string& bytes, unsigned int length = 8,
                    unsigned int featureLength = 10) {
  testing::internal::CaptureStdout();
  ReadResult result;
  for (const char* feature : reader.read(bytes.data(), length, featureLength)) {
    result.offsets.push_back(feature - bytes.data());
  }
  result.printed = testing::internal::GetCapturedStdout();
  return result;
}

TEST(Dispatch, RefusesWithAMessage) {
  const std::string v7 = bitstreamHeader(7, 1) + frame(kFeature);
  const struct {
    const char* name;
    std::string bytes;
    unsigned int length;
    const char* printed;
  } cases[] = {
      {"no length", v7, 0, "read: Empty bitstream\n"},
      {"length 1", v7, 1, "read: Bitstream too short\n"},
      {"length 7", v7, 7, "read: Bitstream too short\n"},
      {"version 9 in 8 bytes", bitstreamHeader(9, 1).substr(0, 8), 8,
       "read: Invalid bitstream version (9)\n"},
      {"version -2", bitstreamHeader(0xFFFFFFFE, 1), 184, "read: Invalid bitstream version (-2)\n"},
      {"version 6", bitstreamHeader(6, 1), 184, "read: Invalid bitstream version (6)\n"},
      {"version 8", bitstreamHeader(8, 1).substr(0, 8), 8, ""},
  };
  for (const auto& c : cases) {
    const ReadResult result = readWith(FeatureReader(), c.bytes, c.length);
    EXPECT_TRUE(result.offsets.empty()) << c.name;
    EXPECT_EQ(result.printed, c.printed) << c.name;
  }
  testing::internal::CaptureStdout();
  EXPECT_TRUE(FeatureReader().read(nullptr, 100, 10).empty());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "read: Empty bitstream\n");
}

TEST(Walk, FindsTheFramesOfTheRightLength) {
  const std::string other =
      "other feature, longer than a frame's header, so that it is read as one";
  std::string headerInFeature(40, 'x');
  putField(headerInFeature, 24, 10);
  const struct {
    const char* name;
    std::string bytes;
    std::vector<std::ptrdiff_t> offsets;
    const char* printed;
  } cases[] = {
      {"one frame", bitstreamHeader(7, 1) + frame(kFeature), {kFirst + 32}, ""},
      {"frames behind the count are not read",
       bitstreamHeader(7, 1) + frame(kFeature) + frame(kFeature),
       {kFirst + 32},
       ""},
      {"an empty feature is passed over silently",
       bitstreamHeader(7, 3) + frame(kFeature) + frameHeader(0) + frame(kFeature),
       {kFirst + 32, kFirst + 32 + 10 + 32 + 32},
       ""},
      {"after another length the next header is read from the feature",
       bitstreamHeader(7, 2) + frameHeader(40) + headerInFeature + kFeature,
       {kFirst + 64},
       "read: Invalid feature length (40)\n"},
      {"each other length is reported, as a signed number",
       bitstreamHeader(7, 3) + frameHeader(9) + frameHeader(0x80000000) + frameHeader(11),
       {},
       "read: Invalid feature length (9)\nread: Invalid feature length (-2147483648)\n"
       "read: Invalid feature length (11)\n"},
      {"no frame", bitstreamHeader(7, 0), {}, "read: Invalid number of frame (0)\n"},
      {"1501 frames", bitstreamHeader(7, 1501), {}, "read: Invalid number of frame (1501)\n"},
      {"-1 frames", bitstreamHeader(7, 0xFFFFFFFF), {}, "read: Invalid number of frame (-1)\n"},
  };
  for (const auto& c : cases) {
    for (const ReadResult& result :
         {readWith(FeatureReader(), c.bytes), readWith(FeatureReaderV7(), c.bytes, 0)}) {
      EXPECT_EQ(result.offsets, c.offsets) << c.name;
      EXPECT_EQ(result.printed, c.printed) << c.name;
    }
  }
}

TEST(Walk, Takes1500Frames) {
  std::string bytes = bitstreamHeader(7, 1500);
  for (int i = 0; i < 1500; ++i) bytes += frame(kFeature);
  EXPECT_EQ(readWith(FeatureReader(), bytes).offsets.size(), 1500U);
}

TEST(Version8, LooksAtNothing) {
  EXPECT_TRUE(FeatureReaderV8().read(nullptr, 0, 10).empty());
}

TEST(FramesFit, IsFalseOnlyWhereTheWalkLeavesTheBytes) {
  constexpr std::uint64_t k4GiB = std::uint64_t{1} << 32;
  const std::string two = bitstreamHeader(7, 2) + frame(kFeature) + frame(kFeature);
  const std::string lastOther = bitstreamHeader(7, 2) + frame(kFeature) + frameHeader(11);
  const std::string hugeLength = bitstreamHeader(7, 1) + frameHeader(0xFFFFFFF0);
  const struct {
    const char* name;
    std::string bytes;
    std::uint64_t size;
    std::uint64_t targetSize;
    bool fits;
  } cases[] = {
      {"whole", two, two.size(), 10, true},
      {"last byte missing", two, two.size() - 1, 10, false},
      {"second header missing", two, kFirst + 42, 10, false},
      {"length field ends the bytes", lastOther, lastOther.size() - 4, 10, true},
      {"length field cut", lastOther, lastOther.size() - 5, 10, false},
      {"frame count cut", two, 67, 10, false},
      {"frame count alone, invalid", bitstreamHeader(7, 1501), 68, 10, true},
      {"frame count alone, valid", two, 68, 10, false},
      {"another length's bytes are not needed", two, two.size() - 1, 11, true},
      {"version cut", two, 7, 10, true},
      {"version 8", bitstreamHeader(8, 9), 8, 10, true},
      {"version 9", bitstreamHeader(9, 9), 8, 10, true},
      {"query of the target's length", two, 100, 100, true},
      {"... of it in 32 bits", two, 100, 100 + k4GiB, true},
      {"empty target", two, 100, 0, true},
      {"target of 4 GiB counts as empty", two, 100, k4GiB, true},
      {"target length in 32 bits", two, two.size() - 1, k4GiB + 10, false},
      {"query length in 32 bits is too short", two, k4GiB + 7, 10, true},
      {"length near 2^32", hugeLength, hugeLength.size(), 0xFFFFFFF0, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(queryFramesFit(c.bytes.data(), c.size, c.targetSize), c.fits) << c.name;
  }
  EXPECT_TRUE(queryFramesFit(nullptr, 100, 10));
}

}  // namespace
