#include "FeatureReader.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/Bitstream.h"
#include "support/Outcome.h"

namespace {

static_assert(std::has_virtual_destructor_v<FeatureReader>);

constexpr std::ptrdiff_t kFirst = 184, k4GiB = std::ptrdiff_t{1} << 32;
const std::string kFrame = frame("0123456789"), kOne = bitstreamHeader(7, 1) + kFrame;
const std::string kTwo = bitstreamHeader(7, 2) + kFrame + kFrame;

using Offsets = std::vector<std::ptrdiff_t>;

/// Where features of 10 bytes are found, and what is printed. The shortest length that the reader
/// accepts will do: only the announced frames bound it.
Outcome<Offsets> readWith(FeatureReader&& reader, const std::string& bytes,
                          unsigned int length = 8) {
  return outcome([&] {
    Offsets offsets;
    for (const char* feature : reader.read(bytes.data(), length, 10)) {
      offsets.push_back(feature - bytes.data());
    }
    return offsets;
  });
}

TEST(FeatureReaders, RefusesWithAMessage) {
  const std::tuple<std::string, unsigned int, std::string> cases[] = {
      {kOne, 0, "read: Empty bitstream\n"},
      {kOne, 1, "read: Bitstream too short\n"},
      {kOne, 7, "read: Bitstream too short\n"},
      {bitstreamHeader(9, 1).substr(0, 8), 8, "read: Invalid bitstream version (9)\n"},
      {bitstreamHeader(0xFFFFFFFE, 1), 184, "read: Invalid bitstream version (-2)\n"},
      {bitstreamHeader(6, 1), 184, "read: Invalid bitstream version (6)\n"},
      {bitstreamHeader(8, 1).substr(0, 8), 8, ""},
  };
  for (const auto& [bytes, length, printed] : cases) {
    EXPECT_EQ(readWith(FeatureReader(), bytes, length), Outcome(Offsets(), printed))
        << testing::PrintToString(bytes) << " of length " << length;
  }
  EXPECT_EQ(outcome([] { return FeatureReader().read(nullptr, 100, 10).size(); }),
            Outcome(std::size_t{0}, "read: Empty bitstream\n"));
  EXPECT_TRUE(FeatureReaderV8().read(nullptr, 0, 10).empty());
}

TEST(FeatureReaders, FindsTheFramesOfTheRightLength) {
  const std::string refused = "read: Invalid feature length ";
  std::string headerInFeature(40, 'x'), most = bitstreamHeader(7, 1500);
  putField(headerInFeature, 24, 10);
  Offsets all;
  for (std::ptrdiff_t i = 0; i < 1500; ++i, most += kFrame) all.push_back(kFirst + 42 * i + 32);
  const std::tuple<const char*, std::string, Offsets, std::string> cases[] = {
      {"one frame", kOne, {kFirst + 32}, ""},
      {"frames after the count are not read", kOne + kFrame, {kFirst + 32}, ""},
      {"1500 frames", most, all, ""},
      {"an empty feature is passed over silently",
       bitstreamHeader(7, 3) + kFrame + frameHeader(0) + kFrame,
       {kFirst + 32, kFirst + 106},
       ""},
      {"after another length the next header is read from the feature",
       bitstreamHeader(7, 2) + frameHeader(40) + headerInFeature + "0123456789",
       {kFirst + 64},
       refused + "(40)\n"},
      {"each other length is reported, as a signed number",
       bitstreamHeader(7, 3) + frameHeader(9) + frameHeader(0x80000000) + frameHeader(11),
       {},
       refused + "(9)\n" + refused + "(-2147483648)\n" + refused + "(11)\n"},
      {"no frame", bitstreamHeader(7, 0), {}, "read: Invalid number of frame (0)\n"},
      {"1501 frames", bitstreamHeader(7, 1501), {}, "read: Invalid number of frame (1501)\n"},
      {"-1 frames", bitstreamHeader(7, 0xFFFFFFFF), {}, "read: Invalid number of frame (-1)\n"},
  };
  for (const auto& [name, bytes, offsets, printed] : cases) {
    EXPECT_EQ(readWith(FeatureReader(), bytes), Outcome(offsets, printed)) << name;
    EXPECT_EQ(readWith(FeatureReaderV7(), bytes, 0), Outcome(offsets, printed)) << name;
  }
}

TEST(QueryFramesFit, IsFalseOnlyWhereTheWalkLeavesTheBytes) {
  const std::string lastOther = bitstreamHeader(7, 2) + kFrame + frameHeader(11);
  const std::tuple<const char*, std::string, std::uint64_t, std::uint64_t, bool> cases[] = {
      {"whole", kTwo, kFirst + 84, 10, true},
      {"last byte missing", kTwo, kFirst + 83, 10, false},
      {"second header missing", kTwo, kFirst + 42, 10, false},
      {"length field ends the bytes", lastOther, kFirst + 70, 10, true},
      {"length field truncated", lastOther, kFirst + 69, 10, false},
      {"frame count truncated", kTwo, 67, 10, false},
      {"frame count alone, invalid", bitstreamHeader(7, 1501), 68, 10, true},
      {"frame count alone, valid", bitstreamHeader(7, 1500), 68, 10, false},
      {"another length's bytes are not needed", kTwo, kFirst + 83, 11, true},
      {"version truncated", kTwo, 7, 10, true},
      {"version 8", bitstreamHeader(8, 9), 8, 10, true},
      {"version 9", bitstreamHeader(9, 9), 8, 10, true},
      {"query of the target's length", kTwo, 100, 100, true},
      {"... of it in 32 bits", kTwo, 100, 100 + k4GiB, true},
      {"empty target", kTwo, 100, 0, true},
      {"target of 4 GiB counts as empty", kTwo, 100, k4GiB, true},
      {"target length in 32 bits", kTwo, kFirst + 83, k4GiB + 10, false},
      {"query length in 32 bits is too short", kTwo, k4GiB + 7, 10, true},
      {"near 2^32", bitstreamHeader(7, 1) + frameHeader(~15U), kFirst + 32, 0xFFFFFFF0, false},
  };
  for (const auto& [name, bytes, size, targetSize, fits] : cases) {
    EXPECT_EQ(queryFramesFit(bytes.data(), size, targetSize), fits) << name;
  }
  EXPECT_TRUE(queryFramesFit(nullptr, 100, 10));
}

}  // namespace
