#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"

int compare_from_c(const char* target, const char* query, double* distance);

int compare_from_c(const char* target, const char* query, double* distance) {
  return ORV_GetCompareFeaturesVersion() == 0 ||
         ORV_CompareFeatures(target, 1U, query, 1U, distance) != 0;
}

int search_from_c(const char* target, const char* features, ORV_Match* match);

int search_from_c(const char* target, const char* features, ORV_Match* match) {
  return ORV_SearchText(ORV_FOUND) == 0 ||
         ORV_Nearest(target, 1U, features, 2U, 1U, 1U, 0U, match) != ORV_FOUND;
}
