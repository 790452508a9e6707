// BGR to Lab and CIEDE2000 step by step, against which the product's are held.
#pragma once

#include "Brindle/utility/colourDifference.h"

LAB plainBGR2Lab(const double* bgr);
double plainCIEDE2000(const LAB& first, const LAB& second);
