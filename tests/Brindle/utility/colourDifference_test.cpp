#include "Brindle/utility/colourDifference.h"

#include <cmath>
#include <random>

#include "reference/PlainColour.h"
#include "support/CaseFile.h"

namespace {

template <double (*difference)(double*, double*)>
void ofPair(double* in, double* out) {
  *out = difference(in, in + 3);
}

void ofRecords(double* in, double* out) {
  *out = CIEDE2000({in[0], in[1], in[2]}, {in[3], in[4], in[5]});
}

/// In both orders, rounded to four decimals.
void published(double* in, double* out) {
  const LAB x{in[0], in[1], in[2]}, y{in[3], in[4], in[5]};
  out[0] = std::round(CIEDE2000(x, y) * 1e4) / 1e4;
  out[1] = std::round(CIEDE2000(y, x) * 1e4) / 1e4;
}

// CIEDeltaE2000 differs from CIEDE2000 where the mean hue exceeds a turn.
TEST(ColourDifference, GivesTheBitsOfTheTable) {
  // clang-format off
  expectCases(TEST_DATA "/colour-difference.txt", {
      {"CIEDeltaE76", ofPair<CIEDeltaE76>}, {"CIEDeltaE94", ofPair<CIEDeltaE94>},
      {"CIEDeltaE2000", ofPair<CIEDeltaE2000>}, {"CIEDE2000", ofPair<CIEDE2000>},
      {"CIEDE2000(LAB)", ofRecords}, {"CIEDE2000(published)", published},
      {"myDeltaE", ofPair<myDeltaE>},
      {"LabCap", [](double* in, double* out) { LabCap(std::copy_n(in, 3, out) - 3); }}});
  // clang-format on
}

TEST(Ciede2000, AgreesWithThePlainStepsToTheBit) {
  std::mt19937 engine(9);
  std::uniform_real_distribution l(-5.0, 105.0), ab(-120.0, 120.0);
  for (int round = 0; round < 40'000; ++round) {
    const LAB x{l(engine), ab(engine), ab(engine)};
    const LAB y{l(engine), round % 16 == 0 ? 0.0 : ab(engine), round % 8 == 0 ? 0.0 : ab(engine)};
    ASSERT_TRUE(sameBits(CIEDE2000(x, y), plainCIEDE2000(x, y))) << "round " << round;
  }
}

}  // namespace
