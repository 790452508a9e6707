#include "ORV_CompareFeatures.h"

int compare_from_c(const char* target, const char* query, double* distance);

int compare_from_c(const char* target, const char* query, double* distance) {
  return ORV_GetCompareFeaturesVersion() == 0 ||
         ORV_CompareFeatures(target, 1U, query, 1U, distance) != 0;
}
