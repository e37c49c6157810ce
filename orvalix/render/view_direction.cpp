#include <algorithm>
#include <cmath>
#include <cstddef>

#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/view_direction_internal.h"

namespace orvalix {
namespace {

/// A face that is seen at so flat an angle, as a share of its normal, may be seen.
constexpr double kEdgeOn = 1e-4;

/// Depths in front of which nothing is drawn.
constexpr double kNearest = -1.0;

double Dot(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

bool IsParallel(const std::array<double, 16>& m) {
  return m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] == 1.0;
}

/// The third row of the inverse times the determinant, transposed: how far a normal goes into the
/// depth, as a share of the longest that it can.
std::array<double, 3> DepthOfNormals(const std::array<double, 16>& m) {
  const std::array<double, 3> row{m[4] * m[9] - m[5] * m[8], m[8] * m[1] - m[9] * m[0],
                                  m[0] * m[5] - m[1] * m[4]};
  const double length = std::sqrt(Dot(row, row));
  return {row[0] / length, row[1] / length, row[2] / length};
}

}  // namespace

std::array<double, 16> ToClipSpace() {
  std::array<double, 16> projection{};
  std::array<double, 16> view{};
  glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
  glGetDoublev(GL_MODELVIEW_MATRIX, view.data());
  std::array<double, 16> product{};
  for (std::size_t column = 0; column < 4; ++column) {
    for (std::size_t row = 0; row < 4; ++row) {
      for (std::size_t i = 0; i < 4; ++i) {
        product[column * 4 + row] += projection[i * 4 + row] * view[column * 4 + i];
      }
    }
  }
  return product;
}

bool IsCutAnywhere() {
  for (GLenum plane = GL_CLIP_PLANE0; plane <= GL_CLIP_PLANE5; ++plane) {
    if (glIsEnabled(plane) == GL_TRUE) return true;
  }
  return false;
}

bool LooksAway(const std::array<double, 16>& m, const std::array<double, 3>& normal) {
  if (!IsParallel(m)) return false;
  const std::array<double, 3> row = DepthOfNormals(m);
  const double determinant = Dot(row, {m[2], m[6], m[10]});
  const double inward = Dot(row, normal);
  return determinant > 0.0 ? inward > kEdgeOn : determinant < 0.0 && -inward > kEdgeOn;
}

int TurnOnScreen(const std::array<double, 16>& m, const std::array<double, 3>& axis) {
  if (!IsParallel(m)) return 0;
  const double turn = Dot(DepthOfNormals(m), axis) / std::sqrt(Dot(axis, axis));
  if (turn > kEdgeOn) return 1;
  return turn < -kEdgeOn ? -1 : 0;
}

bool IsCutInFront(const std::array<double, 16>& m, const Extent& extent) {
  if (!IsParallel(m)) return true;
  double nearest = m[14];
  for (const std::size_t i : {0U, 1U, 2U}) {
    const double depth = m[i * 4 + 2];
    nearest += std::min(depth * extent.low[i], depth * extent.high[i]);
  }
  return !(nearest > kNearest);
}

}  // namespace orvalix
