// Determinants, each minor computed once, against the plain expansion that copies every minor.
#include <bit>
#include <cstdint>
#include <memory>
#include <random>

#include "Brindle/utility/matrix.h"
#include "ratio.h"
#include "reference/PlainNumerics.h"

namespace {

/// All of the plain expansion would take some 20 s for 12 columns, so its minors of 9 columns are
/// left to the product: the ratio tells what the first three rows cost.
double plainAboveNine(double** A, int n) {
  return n == 9 ? matrixDet(A, n) : plainExpansion(A, n, plainAboveNine);
}

void determinant(const std::string& name, int n, double (*plainVersion)(double**, int)) {
  const auto release = [n](double** M) { safeDelete2DDouble(n, M); };
  const std::shared_ptr<double*> matrix(allocate2DDouble(n, n), release);
  std::mt19937 engine(1);
  for (int i = 0; i < n * n; ++i) {
    matrix.get()[i / n][i % n] = static_cast<double>(engine()) / 2e9 - 1.0;
  }
  const auto run = [=](double (*of)(double**, int)) {
    double result = of(matrix.get(), n);
    benchmark::DoNotOptimize(result);
    return result;
  };
  const auto fast = [=] { return run(matrixDet); };
  const auto plain = [=] { return run(plainVersion); };
  bench::pair("matrixDet/" + name, fast, plain, [=] {
    return std::bit_cast<std::uint64_t>(fast()) == std::bit_cast<std::uint64_t>(plain());
  });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  determinant("3", 3, plainDeterminant);
  determinant("6", 6, plainDeterminant);
  determinant("9", 9, plainDeterminant);
  determinant("12_plain_above_9", 12, plainAboveNine);
  benchmark::RunSpecifiedBenchmarks();
}
