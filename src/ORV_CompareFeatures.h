/** @file
 * Comparison of two objects by the bits of their features, for C99 and C++.
 *
 * A feature is a run of bytes that is compared bit by bit; the distance of two features of equal
 * length is the share of bits in which they differ (the normalised Hamming distance), from 0.0
 * (identical) to 1.0 (every bit differs).
 *
 * Both functions are callable from any number of threads at once, as long as no buffer changes
 * during a call. They keep nothing between calls but the chosen instruction set, allocate nothing
 * themselves and take ownership of nothing. Diagnostics are printed on standard output; the C
 * library may allocate its buffer at the first message.
 */
#pragma once

/** @defgroup compareFeatures The comparison
 * @{
 */

/** Marks what the shared library exports. */
#define ORV_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/** Returns "1.0.0.0:20180102", the interface's version, a constant string that nobody frees. */
ORV_API const char* ORV_GetCompareFeaturesVersion(void);

/** Finds the smallest distance between a target feature and the features of a query.
 *
 * - `queryLength` equal to `targetLength`: the whole query is one raw feature, whatever its bytes
 *   hold; it is never parsed.
 * - Any other `queryLength`: the query is a feature bitstream (FeatureReader.h shows its layout)
 *   and every feature in it of exactly `targetLength` bytes is compared; a version 8 bitstream
 *   yields none. A feature of another length that is not empty derails the walk over the features
 *   after it.
 *
 * Fails in two cases, each with its message.
 *
 * - Prints "ORV_CompareFeatures: Invalid input\n" when a pointer is null or a length 0, and leaves
 *   `*distance` untouched.
 * - Prints "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: %d).\n" with
 *   `targetLength` as a signed number, after the reader's own messages (see FeatureReader.h), when
 *   a bitstream holds no feature of the target's length; `*distance` is 1.0.
 *
 * @warning A bitstream's frame count and length fields are trusted: the caller must hold every
 * frame that `query` announces, whatever `queryLength` says. When the bytes come from outside, call
 * ORV_MatchQuery() of ORV_Search.h instead, or ask queryFramesFit() of FeatureReader.h first, a C++
 * function of the static library. See docs/hazards.md.
 * @param target  the target's feature
 * @param targetLength  in bytes; the bit count wraps around in 32 bits from 268,435,456 bytes
 * (256 MiB) on, where distances mean nothing
 * @param query  a raw feature or a bitstream
 * @param queryLength  in bytes
 * @param distance  receives the smallest distance found. For a bitstream it is never more than 1.0,
 * except where the target's length is a multiple of 2^29 bytes: a score may be NaN there, which
 * replaces any distance and is replaced by any, infinity included
 * @return 0; -1 on failure
 */
ORV_API int ORV_CompareFeatures(const char* target, unsigned int targetLength, const char* query,
                                unsigned int queryLength, double* distance);

#ifdef __cplusplus
}
#endif

/** @} */
