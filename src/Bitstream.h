// What a feature bitstream is: its layout, its version, the one walk over its frames, and whether a
// query is whole. Private: not installed. Used by the readers, the comparison, the search and
// the tool.
//
// All integers are unsigned, 32 bits, little-endian; offsets and lengths are in bytes; what is not
// named is reserved and not read.
//
//     offset   field
//          4   version: 7 or 8
//         64   number of frames (version 7), 1 to 1500
//        184   first frame
//
//     in a frame
//         24   length of the feature
//         32   the feature's bytes
//
// The skip rule: after a frame whose feature has the length asked for, the next frame begins after
// that feature. After any other frame only its header of 32 bytes is skipped, and what follows is
// read as the next header. So frames without a feature (length 0) may stand anywhere, but a feature
// of another length derails the walk. This is deliberate: what existing bitstreams give depends on
// it.
#pragma once

#include <cstdint>
#include <limits>

#include "detail/load.h"

namespace vorquell::detail {

inline constexpr std::uint64_t kVersionOffset = 4;
inline constexpr std::uint64_t kFrameCountOffset = 64;
inline constexpr std::uint64_t kFirstFrameOffset = 184;
inline constexpr std::uint64_t kFeatureLengthOffset = 24;  // in a frame
inline constexpr std::uint64_t kFeatureOffset = 32;        // in a frame
inline constexpr std::uint64_t kFieldSize = sizeof(std::uint32_t);
inline constexpr std::uint64_t kMinLength = kVersionOffset + kFieldSize;
inline constexpr std::uint32_t kMaxFrames = 1500;

/// The bound of a caller who vouches for every frame.
inline constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

/// x86-64 stores integers in the bitstream's order.
inline std::uint32_t readField(const char* bitstream, std::uint64_t offset) {
  return load<std::uint32_t>(bitstream + offset);
}

inline bool isValidFrameCount(std::uint32_t count) {
  return count >= 1 && count <= kMaxFrames;
}

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

/// Prints `format` with the readers' name and `value` as a signed number.
void printReaderMessage(const char* format, std::uint32_t value);

/// Returns the bitstream's version, 7 or 8, or prints why there is none and returns 0.
int readVersion(const char* bitstream, unsigned int length);

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

/// Whether a comparison of `query` with a target of `targetSize` bytes stays inside `querySize`
/// bytes; true for a query that it does not walk. As there, the sizes' low 32 bits are lengths.
bool isQueryWhole(const char* query, std::uint64_t querySize, std::uint64_t targetSize);

}  // namespace vorquell::detail
