// The one walk over a version 7 bitstream, shared by the reader, the comparison and the bounds
// check. Private: not installed.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace vorquell::detail {

inline constexpr unsigned int kMinLength = 8;  // bytes up to the end of the version field
inline constexpr std::uint64_t kVersionOffset = 4;
inline constexpr std::uint64_t kFrameCountOffset = 64;
inline constexpr std::uint64_t kFirstFrameOffset = 184;
inline constexpr std::uint64_t kFeatureLengthOffset = 24;  // in a frame
inline constexpr std::uint64_t kFeatureOffset = 32;        // in a frame
inline constexpr std::uint32_t kMaxFrames = 1500;
inline constexpr std::uint64_t kFieldSize = sizeof(std::uint32_t);

/// The bound of a caller who vouches for every frame.
inline constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

/// The little-endian field at `offset`; x86-64 stores integers in that order.
inline std::uint32_t readField(const char* bitstream, std::uint64_t offset) {
  std::uint32_t value;
  std::memcpy(&value, bitstream + offset, sizeof value);
  return value;
}

inline bool isValidFrameCount(std::uint32_t count) {
  return count >= 1 && count <= kMaxFrames;
}

inline void printReaderMessage(const char* format, std::uint32_t value) {
  std::printf(format, "read", static_cast<int>(value));
}

/// Returns the bitstream's version, 7 or 8, or prints why there is none and returns 0.
int supportedVersion(const char* bitstream, unsigned int length);

/// Visits `frameCount` frames and calls `onFrame(featureOffset, frameLength)` for each. Returns
/// false, and stops, where the walk would read at or past `size` bytes; only the features of
/// `featureLength` bytes count as read.
template <class OnFrame>
bool walkFrames(const char* bitstream, std::uint64_t size, std::uint32_t frameCount,
                std::uint32_t featureLength, OnFrame onFrame) {
  std::uint64_t cursor = kFirstFrameOffset;
  for (std::uint32_t frame = 0; frame < frameCount; ++frame) {
    if (cursor + kFeatureLengthOffset + kFieldSize > size) return false;
    const std::uint32_t frameLength = readField(bitstream, cursor + kFeatureLengthOffset);
    cursor += kFeatureOffset;
    const std::uint64_t featureOffset = cursor;
    if (frameLength == featureLength) {
      cursor += featureLength;
      if (cursor > size) return false;
    }
    onFrame(featureOffset, frameLength);
  }
  return true;
}

/// Calls `onFeature(feature)` for each feature of exactly `featureLength` bytes of a version 7
/// bitstream whose frames the caller vouches for, and prints the reader's messages.
template <class OnFeature>
void forEachFeature(const char* bitstream, std::uint32_t featureLength, OnFeature onFeature) {
  const std::uint32_t frameCount = readField(bitstream, kFrameCountOffset);
  if (!isValidFrameCount(frameCount)) {
    printReaderMessage("%s: Invalid number of frame (%d)\n", frameCount);
    return;
  }
  walkFrames(bitstream, kUnbounded, frameCount, featureLength,
             [&](std::uint64_t featureOffset, std::uint32_t frameLength) {
               if (frameLength == featureLength) {
                 onFeature(bitstream + featureOffset);
               } else if (frameLength != 0) {
                 printReaderMessage("%s: Invalid feature length (%d)\n", frameLength);
               }
             });
}

}  // namespace vorquell::detail
