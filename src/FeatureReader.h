/// @file
/// The feature bitstream and its readers. Part of the static library only: the shared one exports
/// nothing but the two functions of ORV_CompareFeatures.h.
///
/// A bitstream holds one feature for each frame of a recording. All integers are unsigned, 32 bits,
/// little-endian; offsets and lengths are in bytes; what is not named is reserved and not read.
///
///     offset   field
///          4   version: 7 or 8
///         64   number of frames (version 7), 1 to 1500
///        184   first frame
///
///     in a frame
///         24   length of the feature
///         32   the feature's bytes
///
/// After a frame whose feature has the length asked for, the next frame starts after that feature.
/// After any other frame only its 32-byte header is skipped, and the next header is read from the
/// first bytes of the skipped feature. So every feature should have the length asked for or be
/// empty.
///
/// Readers copy no feature: they point into the caller's buffer, which must outlive what they
/// return. They keep no state and may be used from several threads. Their messages go to standard
/// output; numbers in them are printed as signed 32-bit values.
#pragma once

#include <cstdint>
#include <list>

/// @defgroup featureReader Feature bitstreams
/// @{

/// Pointers to the first bytes of features in the caller's buffer, in the bitstream's order.
using FeatureList = std::list<const char*>;

/// Reads a bitstream of any version: looks at the version and leaves the rest to that version's
/// reader.
class FeatureReader {
 public:
  virtual ~FeatureReader();

  /// Returns the features of exactly `featureLength` bytes. Throws `std::bad_alloc`; nothing leaks.
  ///
  /// Returns an empty list after a message:
  /// - "read: Empty bitstream\n" when `bitstream` is null or `length` 0;
  /// - "read: Bitstream too short\n" when `length` is below 8;
  /// - "read: Invalid bitstream version (%d)\n" when the version is neither 7 nor 8.
  ///
  /// @warning `length` serves these checks only. The frame count and the length fields are trusted:
  /// every frame that they announce must lie in the caller's buffer. queryFramesFit() says so
  /// first, unless `featureLength` is 0 or equals `length`: then it does not look. See
  /// docs/hazards.md.
  virtual FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength);
};

/// Reads version 7.
class FeatureReaderV7 : public FeatureReader {
 public:
  /// Walks as many frames as the bitstream announces; all must lie in the caller's buffer. Returns
  /// the features of exactly `featureLength` bytes; an empty list for null. `length` is ignored.
  /// Throws `std::bad_alloc`; nothing leaks.
  ///
  /// - Prints "read: Invalid number of frame (%d)\n" when the count is outside 1 to 1500, and
  ///   returns an empty list.
  /// - Prints "read: Invalid feature length (%d)\n" for each frame whose feature has another length
  ///   than `featureLength`, unless that length is 0.
  FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength) override;
};

/// Reads version 8, which holds no comparable features.
class FeatureReaderV8 : public FeatureReader {
 public:
  /// Returns an empty list.
  FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength) override;
};

/// Returns whether a comparison stays inside the bytes that the caller holds. Call it before
/// ORV_CompareFeatures() when the bytes come from outside; and before FeatureReader::read(), which,
/// unlike the comparison, also walks a bitstream whose length is that of the features, or with a
/// feature length of 0: do not read those.
///
/// False only for a version 7 bitstream that is truncated: its frame count, the length field of a
/// frame on the walk, or a feature of the target's length reaches past `querySize`. True in every
/// other case, also for a query that the comparison refuses or does not parse (null, shorter than 8
/// bytes, of the target's length, of another version, with a frame count outside 1 to 1500).
///
/// Both sizes are in bytes and count with their low 32 bits where the comparison is given lengths;
/// the target's is the length of the features that are compared.
bool queryFramesFit(const char* query, std::uint64_t querySize, std::uint64_t targetSize);

/// @}
