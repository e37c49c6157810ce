#include "orvalix/foundation/matrix_stack.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "orvalix/foundation/error_function_internal.h"
#include "orvalix/foundation/vectors.h"

namespace {

constexpr std::size_t kEntries = 10;

/// Rows of vectors: a point is multiplied from the left.
struct Entry {
  double points[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  double normals[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
};

std::array<Entry, kEntries> stack;
std::size_t depth = 0;

}  // namespace

void m_pushmatrix() {
  if (depth + 1 >= kEntries) {
    orvalix::ReportError("m_pushmatrix: stack overflow\n");
    return;
  }
  stack[depth + 1] = stack[depth];
  ++depth;
}

void m_popmatrix() {
  if (depth < 1) {
    orvalix::ReportError("m_popmatrix: stack underflow\n");
    return;
  }
  --depth;
}

void m_translate(double x, double y, double z) {
  auto& matrix = stack[depth].points;
  for (std::size_t j = 0; j < 4; ++j) {
    matrix[3][j] += x * matrix[0][j] + y * matrix[1][j] + z * matrix[2][j];
  }
}

void m_scale(double x, double y, double z) {
  Entry& entry = stack[depth];
  const std::array<double, 3> factors{x, y, z};
  for (std::size_t i = 0; i < factors.size(); ++i) {
    for (double& element : entry.points[i]) element *= factors[i];
    for (double& element : entry.normals[i]) element /= factors[i];
  }
}

void m_xformpt(const double* point, const double* normal, double* outPoint, double* outNormal) {
  std::array<double, 3> moved{};
  m_xformptonly(point, moved.data());
  xformvec3(normal, stack[depth].normals, outNormal);
  normalize(outNormal);
  copy3(moved.data(), outPoint);
}

void m_xformptonly(const double* point, double* out) {
  const auto& matrix = stack[depth].points;
  std::array<double, 3> sum{};
  for (std::size_t j = 0; j < sum.size(); ++j) {
    sum[j] =
        point[0] * matrix[0][j] + point[1] * matrix[1][j] + point[2] * matrix[2][j] + matrix[3][j];
  }
  std::copy(sum.begin(), sum.end(), out);
}
