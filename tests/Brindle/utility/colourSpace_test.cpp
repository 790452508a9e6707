#include "Brindle/utility/colourSpace.h"

#include "support/Call.h"

namespace {

TEST(ColourSpace, GivesTheBitsOfTheTable) {
  support::checkTable(
      "colour-space.txt",
      {CALLS(BGR2HSV), CALLS(HSV2BGR), CALLS(BGR2YUV), CALLS(BGR2XYZ), CALLS(XYZ2BGR),
       CALLS(XYZ2Lab), CALLS(Lab2XYZ), CALLS(BGR2Lab), CALLS(Lab2BGR), CALLS(BGR2CylindricalHSV),
       CALLS(cylindricalHSV2BGR), CALLS(BGR2ConeHSV), CALLS(coneHSV2BGR),
       CALLS(BGR2WeightedFeature), CALLS(weightedFeature2BGR)});
}

}  // namespace
