#include "Brindle/utility/colourSpace.h"

#include <random>

#include "reference/PlainColour.h"
#include "support/CaseFile.h"

namespace {

void toFeature(double* in, double* out) {
  BGR2WeightedFeature(in, out, static_cast<int>(in[3]));
}

/// Both arrays are results: three arguments, the feature type, what `out` holds before.
void fromFeature(double* in, double* out) {
  std::copy_n(in, 3, out);
  std::copy_n(in + 4, 3, out + 3);
  weightedFeature2BGR(out, out + 3, static_cast<int>(in[3]));
}

TEST(ColourConversion, GivesTheBitsOfTheTable) {
  expectCases(TEST_DATA "/colour-space.txt", {{"BGR2HSV", BGR2HSV},
                                              {"HSV2BGR", HSV2BGR},
                                              {"BGR2YUV", BGR2YUV},
                                              {"BGR2XYZ", BGR2XYZ},
                                              {"XYZ2BGR", XYZ2BGR},
                                              {"XYZ2Lab", XYZ2Lab},
                                              {"Lab2XYZ", Lab2XYZ},
                                              {"BGR2Lab", BGR2Lab},
                                              {"Lab2BGR", Lab2BGR},
                                              {"BGR2CylindricalHSV", BGR2CylindricalHSV},
                                              {"cylindricalHSV2BGR", cylindricalHSV2BGR},
                                              {"BGR2ConeHSV", BGR2ConeHSV},
                                              {"coneHSV2BGR", coneHSV2BGR},
                                              {"BGR2WeightedFeature", toFeature},
                                              {"weightedFeature2BGR", fromFeature}});
}

TEST(ColourConversion, ToLabAgreesWithThePlainStepsToTheBit) {
  std::mt19937 engine(7);
  std::uniform_real_distribution intensity(-0.01, 1.2);
  for (int round = 0; round < 40'000; ++round) {
    double bgr[] = {intensity(engine), intensity(engine), intensity(engine)};
    if (round % 2 == 0) std::transform(bgr, bgr + 3, bgr, [](double x) { return x / 16.0; });
    double lab[3];
    BGR2Lab(bgr, lab);
    const LAB plain = plainBGR2Lab(bgr);
    ASSERT_TRUE(sameBits(lab[0], plain.l) && sameBits(lab[1], plain.a) && sameBits(lab[2], plain.b))
        << bgr[0] << ", " << bgr[1] << ", " << bgr[2];
  }
}

}  // namespace
