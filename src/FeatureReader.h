/// @file
/// The feature bitstream and its readers.
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
/// A frame whose feature has the length asked for is passed over as a whole. Of any other frame
/// only the 32 bytes of its header are passed over: the next header is read from the first bytes of
/// the skipped feature.
///
/// All of this is part of the static library only: the shared one exports nothing but the two
/// functions of ORV_CompareFeatures.h.
///
/// Readers copy no feature: they point into the caller's buffer, which must outlive what they
/// return. They keep no state and may be used from several threads. Their messages go to standard
/// output; numbers in them are printed as signed 32-bit values.
#pragma once

#include <cstdint>
#include <list>

/// Pointers to the first bytes of features in the caller's buffer, in the bitstream's order.
using FeatureList = std::list<const char*>;

/// Reads a bitstream of any version: looks at the version and leaves the rest to that version's
/// reader.
class FeatureReader {
 public:
  virtual ~FeatureReader();

  /// Finds the features of one length.
  ///
  /// - Prints "read: Empty bitstream\n" when `bitstream` is null or `length` 0.
  /// - Prints "read: Bitstream too short\n" when `length` is below 8.
  /// - Prints "read: Invalid bitstream version (%d)\n" when the version is neither 7 nor 8.
  ///
  /// @warning `length` serves these checks only. The frame count and the length fields are trusted:
  /// every frame that they announce must lie in the caller's buffer; queryFramesFit() tells.
  /// @param bitstream  the bytes, or null
  /// @param length  bytes of the bitstream
  /// @param featureLength  bytes of the features asked for
  /// @return the features of exactly `featureLength` bytes; an empty list after one of these
  /// messages
  virtual FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength);
};

/// Reads version 7.
class FeatureReaderV7 : public FeatureReader {
 public:
  /// Walks as many frames as the bitstream announces.
  ///
  /// - Prints "read: Invalid number of frame (%d)\n" when the count is outside 1 to 1500.
  /// - Prints "read: Invalid feature length (%d)\n" for each frame whose feature has another length
  ///   than `featureLength`, unless that length is 0.
  /// @param bitstream  must hold every frame that it announces, or be null
  /// @param length  not looked at
  /// @param featureLength  bytes of the features asked for
  /// @return the features of exactly `featureLength` bytes; an empty list for null or a bad count
  FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength) override;
};

/// Reads version 8, which holds no comparable features.
class FeatureReaderV8 : public FeatureReader {
 public:
  /// Finds nothing.
  /// @param bitstream  not looked at
  /// @param length  not looked at
  /// @param featureLength  not looked at
  /// @return an empty list
  FeatureList read(const char* bitstream, unsigned int length, unsigned int featureLength) override;
};

/// Tells whether a comparison stays inside the bytes that the caller holds. Call it before
/// ORV_CompareFeatures() or FeatureReader::read() when the bytes come from outside.
///
/// As in the comparison, both sizes count with their low 32 bits where it is given lengths.
/// @param query  the bytes that the caller holds, or null
/// @param querySize  bytes of the query
/// @param targetSize  bytes of the target, the length of the features that are compared
/// @return false only for a version 7 bitstream that is cut short: its frame count, the length
/// field of a frame on the walk, or a feature of the target's length reaches past `querySize`. True
/// in every other case, also for a query that the comparison refuses or does not parse (null,
/// shorter than 8 bytes, of the target's length, of another version, with a frame count outside 1
/// to 1500)
bool queryFramesFit(const char* query, std::uint64_t querySize, std::uint64_t targetSize);
