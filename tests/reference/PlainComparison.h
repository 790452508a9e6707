// The comparison in its plainest form, against which the product's is held.
#pragma once

/// One look-up in a bit-count table for each byte.
double plainScores(const char* a, const char* b, int length);

/// The smallest score over a list of the version 7 bitstream's matching features, 1.0 when there is
/// none. The bitstream must be valid.
double plainBitstreamDistance(const char* target, unsigned int targetLength, const char* query);
