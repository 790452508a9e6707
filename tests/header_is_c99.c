#include "ORV_CompareFeatures.h"
#include "ORV_Search.h"
