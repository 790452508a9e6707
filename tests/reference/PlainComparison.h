// The comparison in its plainest form, with which the product's is compared.
#pragma once

/// One look-up in a bit-count table for each byte.
double plainScores(const char* a, const char* b, int length);
