#include "Brindle/utility/colourDifference.h"

#include <cmath>

#include "support/Call.h"

namespace {

double CIEDE2000ofLab(double* one, double* two) {
  return CIEDE2000({one[0], one[1], one[2]}, {two[0], two[1], two[2]});
}

/// In both orders, to four decimals.
void publishedCIEDE2000(double* one, double* two, double* differences) {
  differences[0] = std::round(CIEDE2000ofLab(one, two) * 1e4) / 1e4;
  differences[1] = std::round(CIEDE2000ofLab(two, one) * 1e4) / 1e4;
}

TEST(ColourDifference, GivesTheBitsOfTheTable) {
  support::checkTable("colour-difference.txt",
                      {CALLS(CIEDeltaE76), CALLS(CIEDeltaE94), CALLS(CIEDeltaE2000),
                       CALLS(CIEDE2000, double, double*, double*), CALLS(CIEDE2000ofLab),
                       CALLS(publishedCIEDE2000), CALLS(myDeltaE), CALLS(LabCap)});
}

}  // namespace
