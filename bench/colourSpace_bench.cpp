// BGR to Lab, which is bound by six calls of `pow` for a colour, against the plain steps.
#include "Brindle/utility/colourSpace.h"

#include <array>
#include <random>

#include "PlainColour.h"
#include "ratio.h"

namespace {

using Colours = std::array<std::array<double, 3>, 256>;

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  std::mt19937 engine(1);
  std::uniform_real_distribution intensity(0.0, 1.0);
  Colours colours;
  for (auto& bgr : colours) bgr = {intensity(engine), intensity(engine), intensity(engine)};

  auto fast = [colours]() mutable {
    Colours labs;
    for (std::size_t i = 0; i < labs.size(); ++i) BGR2Lab(colours[i].data(), labs[i].data());
    benchmark::DoNotOptimize(labs);
    return labs;
  };
  auto plain = [colours]() mutable {
    Colours labs;
    for (std::size_t i = 0; i < labs.size(); ++i) {
      const LAB lab = plainBGR2Lab(colours[i].data());
      labs[i] = {lab.l, lab.a, lab.b};
    }
    benchmark::DoNotOptimize(labs);
    return labs;
  };
  bench::pair("BGR2Lab/256", fast, plain, [=]() mutable { return fast() == plain(); });
  benchmark::RunSpecifiedBenchmarks();
}
