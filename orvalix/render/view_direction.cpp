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

bool IsParallel(const std::array<double, 16>& m) {
  return m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] == 1.0;
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
  const std::array<double, 3> depth{m[2], m[6], m[10]};
  // The third row of the inverse, transposed: how far a normal goes into the depth.
  const std::array<double, 3> row{m[4] * m[9] - m[5] * m[8], m[8] * m[1] - m[9] * m[0],
                                  m[0] * m[5] - m[1] * m[4]};
  const double determinant = row[0] * depth[0] + row[1] * depth[1] + row[2] * depth[2];
  const double length = std::sqrt(row[0] * row[0] + row[1] * row[1] + row[2] * row[2]);
  const double inward = (row[0] * normal[0] + row[1] * normal[1] + row[2] * normal[2]) / length;
  return determinant > 0.0 ? inward > kEdgeOn : determinant < 0.0 && -inward > kEdgeOn;
}

bool IsCutInFront(const std::array<double, 16>& m, const std::array<double, 3>& low,
                  const std::array<double, 3>& high) {
  if (!IsParallel(m)) return true;
  double nearest = m[14];
  for (const std::size_t i : {0U, 1U, 2U}) {
    const double depth = m[i * 4 + 2];
    nearest += std::min(depth * low[i], depth * high[i]);
  }
  return !(nearest > kNearest);
}

}  // namespace orvalix
