/** @file
 * Comparison of targets with many features at once: all distances, or the closest features.
 *
 * A feature is a run of bytes that is compared bit by bit; the distance of two features of equal
 * length is the share of bits in which they differ (the normalised Hamming distance), from 0.0
 * (identical) to 1.0 (every bit differs). The distances are those of ORV_CompareFeatures() to the
 * last bit.
 *
 * Features and targets lie one after the other, `length` bytes each (1 to 2^28 - 1), at any
 * alignment. Every size is 64 bits; nothing is truncated.
 *
 * No function keeps anything but the chosen instruction set, prints anything or reads outside the
 * bytes that it is given: any number of threads may call them at once, as long as no input changes
 * during a call.
 *
 * All return a status: #ORV_FOUND (0), or a negative one that ORV_SearchText() puts into words.
 * What is wrong is judged in this order: `length` and `k`, whatever the counts are; then a count of
 * 0 ends the call with #ORV_FOUND, and no pointer is looked at; then null pointers; then sizes:
 * every product, in bytes, the results' too, must fit in 64 bits.
 *
 * `threads`, where there is such a parameter, is how many threads compute, the caller's included; 0
 * means as many as there are processors that the process may run on (its affinity mask). More than
 * there is work for are not started, and one that cannot be started is done without. No result
 * depends on their number.
 *
 * This header is valid C99 and C++.
 */
#pragma once

#include <stdint.h>

/** @defgroup search The search
 * @{
 */

/** Marks what the shared library exports. */
#define ORV_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/** A feature that was found. */
typedef struct ORV_Match {
  uint64_t index;  /**< its number, counted from 0 */
  double distance; /**< 0.0 to 1.0 */
} ORV_Match;

/** The statuses. */
enum {
  ORV_FOUND = 0,          /**< everything asked for is there */
  ORV_INVALID_INPUT = -1, /**< null where bytes are needed, a length of 0 or of 2^28 and more, `k`
                             of 0, or sizes that 64 bits do not hold */
  ORV_NO_BITSTREAM = -2,  /**< shorter than 8 bytes, the version neither 7 nor 8, or the number of
                             frames not 1 to 1500 */
  ORV_CUT_SHORT = -3,     /**< a frame that the bitstream announces lies past its end */
  ORV_NO_FEATURE = -4,    /**< no feature of the target's length (every version 8 bitstream) */
  ORV_OUT_OF_MEMORY = -5  /**< what the threads need besides the caller's memory is not there */
};

/** Puts a status into words.
 * @param status  any number
 * @return a constant text without a line end, also for a number that is no status; nobody frees it
 */
ORV_API const char* ORV_SearchText(int status);

/** Finds the feature of a query that is closest to a target.
 *
 * This is ORV_CompareFeatures() for queries that nobody vouches for: it stays inside `queryLength`
 * bytes whatever they hold, prints nothing, and returns the same distance to the last bit wherever
 * the bitstream is whole.
 *
 * - `queryLength` equal to `targetLength`: the whole query is one raw feature, whatever its bytes
 *   hold, and its index is 0.
 * - Any other `queryLength`: the query is a bitstream, and its features of the target's length are
 *   compared. The index is the number of the frame, counted over all frames, the lowest among
 *   equally close ones. A query may be longer than 2^28 bytes, and than 4 GiB.
 *
 * Of a last frame with a feature of another length only its length field must be there.
 * @param target  the target's feature
 * @param targetLength  bytes of the target, 1 to 2^28 - 1
 * @param query  a raw feature or a bitstream
 * @param queryLength  bytes of the query, at least 1
 * @param match  receives the closest feature; untouched on failure
 * @return #ORV_FOUND, #ORV_INVALID_INPUT, #ORV_NO_BITSTREAM, #ORV_CUT_SHORT or #ORV_NO_FEATURE
 */
ORV_API int ORV_MatchQuery(const char* target, uint64_t targetLength, const char* query,
                           uint64_t queryLength, ORV_Match* match);

/** Computes the distance of each target to each feature.
 * @param targets  `targetCount` features of `length` bytes
 * @param targetCount  number of targets
 * @param features  `featureCount` features of `length` bytes
 * @param featureCount  number of features
 * @param length  bytes of a feature, 1 to 2^28 - 1
 * @param threads  see the top of this file
 * @param distances  receives `targetCount * featureCount` distances, row by row: that of target t
 * and feature f at `t * featureCount + f`
 * @return #ORV_FOUND, #ORV_INVALID_INPUT (nothing is written) or #ORV_OUT_OF_MEMORY (nothing in
 * `distances` counts)
 */
ORV_API int ORV_Distances(const char* targets, uint64_t targetCount, const char* features,
                          uint64_t featureCount, uint64_t length, unsigned threads,
                          double* distances);

/** Finds the `k` closest features of each target.
 *
 * Besides the caller's memory each thread takes 16 bytes for each of the `k` and 64 more, for each
 * target that is compared at a time and for one more; these are 128, or 2^20 / `k` where that is
 * less. More features take no more.
 * @param targets  `targetCount` features of `length` bytes
 * @param targetCount  number of targets
 * @param features  `featureCount` features of `length` bytes
 * @param featureCount  number of features
 * @param length  bytes of a feature, 1 to 2^28 - 1
 * @param k  how many to find, at least 1; where there are fewer features, all of them
 * @param threads  see the top of this file
 * @param matches  receives `targetCount * min(k, featureCount)` matches, row by row, each row with
 * the closest first and the lower index first among equally close ones
 * @return #ORV_FOUND, #ORV_INVALID_INPUT (nothing is written) or #ORV_OUT_OF_MEMORY (nothing in
 * `matches` counts)
 */
ORV_API int ORV_Nearest(const char* targets, uint64_t targetCount, const char* features,
                        uint64_t featureCount, uint64_t length, uint64_t k, unsigned threads,
                        ORV_Match* matches);

#ifdef __cplusplus
}
#endif

/** @} */
