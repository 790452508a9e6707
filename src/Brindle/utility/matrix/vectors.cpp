#include "Brindle/utility/matrix.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

template <class T>
T squaredDistance(std::size_t count, const T* a, const T* b) {
  T sum = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const T difference = a[i] - b[i];
    sum += difference * difference;
  }
  return sum;
}

}  // namespace

double dotProduct(int n, double* a, double* b) {
  double sum = 0.0;
  for (int i = 0; i < n; ++i) sum += a[i] * b[i];
  return sum;
}

double dotProduct3D(double* a, double* b) {
  return dotProduct(3, a, b);
}

void crossProduct3D(double* a, double* b, double* out) {
  const double x = a[1] * b[2] - a[2] * b[1];
  const double y = a[2] * b[0] - a[0] * b[2];
  const double z = a[0] * b[1] - a[1] * b[0];
  out[0] = x;
  out[1] = y;
  out[2] = z;
}

double norm3D(double* v) {
  return std::sqrt(norm2(3, v));
}

double norm2(int n, double* v) {
  return dotProduct(n, v, v);
}

void minus3D(double* a, double* b, double* out) {
  for (int k = 0; k < 3; ++k) out[k] = a[k] - b[k];
}

void add3D(double* a, double* b, double* out) {
  for (int k = 0; k < 3; ++k) out[k] = a[k] + b[k];
}

double vecDist2(int n, double* a, double* b) {
  return squaredDistance(static_cast<std::size_t>(std::max(n, 0)), a, b);
}

float vecDist2f(const std::vector<float>& a, const std::vector<float>& b) {
  return squaredDistance(a.size(), a.data(), b.data());
}

double vecDist2d(const std::vector<double>& a, const std::vector<double>& b) {
  return squaredDistance(a.size(), a.data(), b.data());
}

void int_swap(int& x, int& y) {
  std::swap(x, y);
}

void ulint_swap(unsigned long& x, unsigned long& y) {
  std::swap(x, y);
}
