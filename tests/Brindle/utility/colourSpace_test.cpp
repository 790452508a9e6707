#include "Brindle/utility/colourSpace.h"

#include <random>

#include "reference/PlainColour.h"
#include "support/CaseFile.h"

namespace {

/// Both arrays are results: three arguments, the feature type, what `out` holds before.
void fromFeature(double* in, double* out) {
  std::copy_n(in, 3, out);
  std::copy_n(in + 4, 3, out + 3);
  weightedFeature2BGR(out, out + 3, static_cast<int>(in[3]));
}

TEST(ColourConversion, GivesTheBitsOfTheTable) {
  // clang-format off
  expectCases(TEST_DATA "/colour-space.txt", {
      {"BGR2HSV", BGR2HSV}, {"HSV2BGR", HSV2BGR}, {"BGR2YUV", BGR2YUV}, {"BGR2XYZ", BGR2XYZ},
      {"XYZ2BGR", XYZ2BGR}, {"XYZ2Lab", XYZ2Lab}, {"Lab2XYZ", Lab2XYZ}, {"BGR2Lab", BGR2Lab},
      {"BGR2CylindricalHSV", BGR2CylindricalHSV}, {"cylindricalHSV2BGR", cylindricalHSV2BGR},
      {"BGR2ConeHSV", BGR2ConeHSV}, {"coneHSV2BGR", coneHSV2BGR}, {"Lab2BGR", Lab2BGR},
      {"BGR2WeightedFeature", [](auto* i, auto* o) { BGR2WeightedFeature(i, o, int(i[3])); }},
      {"weightedFeature2BGR", fromFeature}});
  // clang-format on
}

TEST(ColourConversion, ToLabAgreesWithThePlainStepsToTheBit) {
  std::mt19937 engine(7);
  std::uniform_real_distribution intensity(-0.01, 1.2);
  for (int round = 0; round < 40'000; ++round) {
    double bgr[3], lab[3];
    for (double& value : bgr) value = intensity(engine) / (round % 2 == 0 ? 16.0 : 1.0);
    BGR2Lab(bgr, lab);
    const LAB plain = plainBGR2Lab(bgr);
    ASSERT_TRUE(sameBits(lab[0], plain.l) && sameBits(lab[1], plain.a) && sameBits(lab[2], plain.b))
        << bgr[0] << ", " << bgr[1] << ", " << bgr[2];
  }
}

}  // namespace
