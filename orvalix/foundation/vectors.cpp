#include "orvalix/foundation/vectors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "orvalix/foundation/error_function_internal.h"

namespace {

using Vector = std::array<double, 3>;

constexpr std::size_t kDimensions = 3;

void (*errorFunction)(const char* message) = nullptr;

/// Out of a calculation whose input `out` may be.
void Store(const Vector& vector, double* out) { std::copy(vector.begin(), vector.end(), out); }

}  // namespace

namespace orvalix {

void ReportError(const char* message) {
  if (errorFunction == nullptr) std::exit(1);
  errorFunction(message);
}

}  // namespace orvalix

void seterrorfunc(void (*function)(const char* message)) { errorFunction = function; }

void add3(const double* a, const double* b, double* out) {
  for (std::size_t i = 0; i < kDimensions; ++i) out[i] = a[i] + b[i];
}

void diff3(const double* a, const double* b, double* out) {
  for (std::size_t i = 0; i < kDimensions; ++i) out[i] = a[i] - b[i];
}

void copy3(const double* from, double* to) {
  for (std::size_t i = 0; i < kDimensions; ++i) to[i] = from[i];
}

void scalarmult(double s, const double* v, double* out) {
  for (std::size_t i = 0; i < kDimensions; ++i) out[i] = s * v[i];
}

double dot3(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

void crossprod(const double* a, const double* b, double* out) {
  Store({a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]}, out);
}

double length3(const double* v) { return std::sqrt(dot3(v, v)); }

double dist3(const double* a, const double* b) {
  Vector difference{};
  diff3(a, b, difference.data());
  return length3(difference.data());
}

void normalize(double* v) {
  double length = length3(v);
  if (length == 0.0) {
    orvalix::ReportError("normalize: zero length vector");
    length = 1.0;
    v[0] = 1.0;
  }
  for (std::size_t i = 0; i < kDimensions; ++i) v[i] /= length;
}

void perpnorm(const double* a, const double* b, const double* c, double* out) {
  Vector ab{};
  Vector ac{};
  Vector normal{};
  diff3(b, a, ab.data());
  diff3(c, a, ac.data());
  crossprod(ab.data(), ac.data(), normal.data());
  normalize(normal.data());
  Store(normal, out);
}

long samepoint(const double* a, const double* b) {
  return std::equal(a, a + kDimensions, b) ? 1 : 0;
}

void identifymat3(double matrix[3][3]) {
  for (std::size_t i = 0; i < kDimensions; ++i) {
    for (std::size_t j = 0; j < kDimensions; ++j) matrix[i][j] = i == j ? 1.0 : 0.0;
  }
}

void copymat3(const double from[3][3], double to[3][3]) {
  for (std::size_t i = 0; i < kDimensions; ++i) copy3(from[i], to[i]);
}

void xformvec3(const double* v, const double matrix[3][3], double* out) {
  Vector sum{};
  for (std::size_t i = 0; i < kDimensions; ++i) {
    for (std::size_t j = 0; j < kDimensions; ++j) sum[j] += v[i] * matrix[i][j];
  }
  Store(sum, out);
}
