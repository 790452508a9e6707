#include "Brindle/utility/colourSpace.h"

#include <algorithm>

#include "support/Table.h"

namespace {

using support::givesNumbers;

/// Arguments: three numbers, the feature type. Results: a triple.
void toFeature(double* in, double* out) {
  BGR2WeightedFeature(in, out, static_cast<int>(in[3]));
}

/// Arguments: the first triple, the feature type, the second triple. Results: both triples.
void fromFeature(double* in, double* out) {
  std::copy_n(in, 3, out);
  std::copy_n(in + 4, 3, out + 3);
  weightedFeature2BGR(out, out + 3, static_cast<int>(in[3]));
}

TEST(ColourSpace, GivesTheBitsOfTheTable) {
  support::checkTable("colour-space.txt",
                      {
                          {"BGR2HSV", givesNumbers(BGR2HSV)},
                          {"HSV2BGR", givesNumbers(HSV2BGR)},
                          {"BGR2YUV", givesNumbers(BGR2YUV)},
                          {"BGR2XYZ", givesNumbers(BGR2XYZ)},
                          {"XYZ2BGR", givesNumbers(XYZ2BGR)},
                          {"XYZ2Lab", givesNumbers(XYZ2Lab)},
                          {"Lab2XYZ", givesNumbers(Lab2XYZ)},
                          {"BGR2Lab", givesNumbers(BGR2Lab)},
                          {"Lab2BGR", givesNumbers(Lab2BGR)},
                          {"BGR2CylindricalHSV", givesNumbers(BGR2CylindricalHSV)},
                          {"cylindricalHSV2BGR", givesNumbers(cylindricalHSV2BGR)},
                          {"BGR2ConeHSV", givesNumbers(BGR2ConeHSV)},
                          {"coneHSV2BGR", givesNumbers(coneHSV2BGR)},
                          {"BGR2WeightedFeature", givesNumbers(toFeature)},
                          {"weightedFeature2BGR", givesNumbers(fromFeature)},
                      });
}

}  // namespace
