/* Comparison of two objects by the bits of their features.
 *
 * A feature is a run of bytes that is compared bit by bit; the distance of two features of equal
 * length is the share of bits in which they differ (the normalised Hamming distance), from 0.0
 * (identical) to 1.0 (every bit differs).
 *
 * Both functions are reentrant and keep no state: any number of threads may call them at once, as
 * long as no buffer changes during a call. They allocate nothing and take ownership of nothing.
 * Diagnostics are printed on standard output.
 *
 * This header is valid C99 and C++.
 */
#pragma once

#define ORV_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/** Returns the interface's version, "1.0.0.0:20180102": a constant string that nobody frees. */
ORV_API const char* ORV_GetCompareFeaturesVersion(void);

/** Finds the smallest distance between a target feature and the features of a query.
 *
 * - `queryLength` equal to `targetLength`: the whole query is one raw feature, whatever its bytes
 *   hold; it is never parsed.
 * - Any other `queryLength`: the query is a feature bitstream (FeatureReader.h shows its layout)
 * and every feature in it of exactly `targetLength` bytes is compared; a version 8 bitstream yields
 *   none.
 *
 * @warning A bitstream's frame count and length fields are trusted: the caller must hold every
 *   frame that `query` announces, whatever `queryLength` says. When the bytes come from outside,
 * ask queryFramesFit() of FeatureReader.h first, a C++ function of the static library.
 *
 * @param target        the target's feature, `targetLength` bytes
 * @param targetLength  bytes of the target; the bit count is formed in 32 bits and wraps from
 *                      268,435,456 bytes (256 MiB) on, where the distance is no longer meaningful
 * @param query         the query's bytes
 * @param queryLength   bytes of the query
 * @param distance      receives the smallest distance found, never more than 1.0 for a bitstream
 * @return 0 on success; -1 on failure:
 *   - a null pointer or a zero length: prints "ORV_CompareFeatures: Invalid input\n" and leaves
 *     `*distance` untouched;
 *   - a bitstream without a feature of the target's length: the reader's own messages (see
 *     FeatureReader.h), then prints
 *     "ORV_CompareFeatures: Invalid bitstream (Target Bitstream length: %d).\n" with `targetLength`
 *     as a signed number; `*distance` is 1.0.
 */
ORV_API int ORV_CompareFeatures(const char* target, unsigned int targetLength, const char* query,
                                unsigned int queryLength, double* distance);

#ifdef __cplusplus
}
#endif
