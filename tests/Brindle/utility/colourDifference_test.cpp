#include "Brindle/utility/colourDifference.h"

#include <cstdio>
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

void capped(double* in, double* out) {
  std::copy_n(in, 3, out);
  LabCap(out);
}

TEST(ColourDifference, GivesTheBitsOfTheTable) {
  expectCases(TEST_DATA "/colour-difference.txt", {{"CIEDeltaE76", ofPair<CIEDeltaE76>},
                                                   {"CIEDeltaE94", ofPair<CIEDeltaE94>},
                                                   {"CIEDeltaE2000", ofPair<CIEDeltaE2000>},
                                                   {"CIEDE2000", ofPair<CIEDE2000>},
                                                   {"CIEDE2000(LAB)", ofRecords},
                                                   {"myDeltaE", ofPair<myDeltaE>},
                                                   {"LabCap", capped}});
}

TEST(Ciede2000, ReproducesThePublishedPairs) {
  std::ifstream file(TEST_DATA "/ciede2000-pairs.csv");
  int pairs = 0;
  for (std::string line; std::getline(file, line);) {
    LAB x, y;
    char published[16];
    if (std::sscanf(line.c_str(), "%lf,%lf,%lf,%lf,%lf,%lf,%15s", &x.l, &x.a, &x.b, &y.l, &y.a,
                    &y.b, published) != 7) {
      continue;
    }
    ++pairs;
    for (const double difference : {CIEDE2000(x, y), CIEDE2000(y, x)}) {
      char printed[16];
      std::snprintf(printed, sizeof printed, "%.4f", difference);
      EXPECT_STREQ(printed, published) << line;
    }
  }
  EXPECT_EQ(pairs, 34);
}

TEST(Ciede2000, InDegreesDiffersOnlyWhereTheMeanHueExceedsATurn) {
  struct {
    const char* hues;
    double first[3], second[3], excess;
  } cases[] = {
      {"50 and 310", {0.1, 0.4, 1.0}, {1.0, 0.8, 0.9}, -1.320482e-4},
      {"334 and 49", {0.7, 0.0, 0.8}, {0.0, 0.3, 0.9}, 1.757061e-7},
      {"198 and 9", {0.8, 0.8, 0.5}, {0.3, 0.0, 0.7}, 0.0},
      {"105 and 72", {0.4, 0.9, 0.9}, {0.5, 0.6, 0.7}, 0.0},
  };
  for (auto& c : cases) {
    EXPECT_NEAR(CIEDeltaE2000(c.first, c.second) - CIEDE2000(c.first, c.second), c.excess, 1e-10)
        << c.hues;
  }
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
