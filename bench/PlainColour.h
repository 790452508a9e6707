// BGR to Lab and CIEDE2000 step by step, with which the benchmarks compare the product.
#pragma once

#include "Brindle/utility/colourDifference.h"

LAB plainBGR2Lab(const double* bgr);
double plainCIEDE2000(const LAB& first, const LAB& second);
