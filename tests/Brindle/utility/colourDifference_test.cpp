#include "Brindle/utility/colourDifference.h"

#include <algorithm>
#include <cmath>

#include "support/Table.h"

namespace {

using support::givesNumbers;

auto givesDifference(double (*difference)(double*, double*)) {
  return givesNumbers([=](double* in, double* out) { *out = difference(in, in + 3); });
}

double ofLab(double* one, double* two) {
  return CIEDE2000({one[0], one[1], one[2]}, {two[0], two[1], two[2]});
}

/// In both orders, to four decimals.
void published(double* in, double* out) {
  out[0] = std::round(ofLab(in, in + 3) * 1e4) / 1e4;
  out[1] = std::round(ofLab(in + 3, in) * 1e4) / 1e4;
}

void capped(double* in, double* out) {
  std::copy_n(in, 3, out);
  LabCap(out);
}

TEST(ColourDifference, GivesTheBitsOfTheTable) {
  support::checkTable("colour-difference.txt",
                      {
                          {"CIEDeltaE76", givesDifference(CIEDeltaE76)},
                          {"CIEDeltaE94", givesDifference(CIEDeltaE94)},
                          {"CIEDeltaE2000", givesDifference(CIEDeltaE2000)},
                          {"CIEDE2000", givesDifference(CIEDE2000)},
                          {"CIEDE2000ofLab", givesDifference(ofLab)},
                          {"publishedCIEDE2000", givesNumbers(published)},
                          {"myDeltaE", givesDifference(myDeltaE)},
                          {"LabCap", givesNumbers(capped)},
                      });
}

}  // namespace
