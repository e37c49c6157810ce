#include <algorithm>
#include <cmath>

#include "orvalix/render/solid_faces_internal.h"

namespace orvalix {
namespace {

using Vector = std::array<double, 3>;

/// Share of a solid's extent by which a corner may lie outside the plane of a face.
constexpr double kPlanar = 1e-9;

Vector Difference(const point3Dtype& a, const point3Dtype& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

point3Dtype CentreOf(const std::array<point3Dtype, 8>& corners) {
  point3Dtype centre{};
  for (const point3Dtype& corner : corners) {
    centre.x += corner.x / 8.0;
    centre.y += corner.y / 8.0;
    centre.z += corner.z / 8.0;
  }
  return centre;
}

/// True when the two faces that show something look in opposite directions.
bool AreOpposite(const SolidSides& sides) {
  const auto first = std::find(sides.hasNoArea.begin(), sides.hasNoArea.end(), false);
  const auto second = std::find(first + 1, sides.hasNoArea.end(), false);
  const Vector& a = sides.outward[static_cast<std::size_t>(first - sides.hasNoArea.begin())];
  const Vector& b = sides.outward[static_cast<std::size_t>(second - sides.hasNoArea.begin())];
  return Dot(a, b) < -1.0 + kPlanar;
}

}  // namespace

SolidSides FindSides(const std::array<point3Dtype, 8>& corners) {
  const point3Dtype centre = CentreOf(corners);
  if (!std::isfinite(centre.x + centre.y + centre.z)) return {};
  double extent = 0.0;
  for (const point3Dtype& corner : corners) {
    const Vector from = Difference(corner, centre);
    extent = std::max({extent, std::abs(from[0]), std::abs(from[1]), std::abs(from[2])});
  }
  if (!(extent > 0.0)) return {};
  SolidSides sides;
  int insideOut = 0;
  int faces = 0;
  int flatFaces = 0;
  for (std::size_t i = 0; i < kSolidFaces.size(); ++i) {
    const std::array<std::size_t, 4>& face = kSolidFaces[i].corners;
    // Across the diagonals: defined for a triangle too.
    Vector normal = Cross(Difference(corners[face[2]], corners[face[0]]),
                          Difference(corners[face[3]], corners[face[1]]));
    const double length = std::sqrt(Dot(normal, normal));
    sides.hasNoArea[i] = !(length > kPlanar * extent * extent);
    if (sides.hasNoArea[i]) continue;
    for (double& number : normal) number /= length;
    const double toCentre = Dot(normal, Difference(centre, corners[face[0]]));
    const bool isFlat = std::abs(toCentre) <= kPlanar * extent;
    ++faces;
    if (isFlat) {
      ++flatFaces;
    } else if (toCentre > 0.0) {
      ++insideOut;
      normal = {-normal[0], -normal[1], -normal[2]};
    }
    for (const point3Dtype& corner : corners) {
      if (Dot(normal, Difference(corner, corners[face[0]])) > kPlanar * extent) return {};
    }
    sides.outward[i] = normal;
  }
  if (faces == 0) return {};
  if (flatFaces != 0) {
    // A plate without thickness: one of its two faces looks at the viewer, the other one away.
    if (faces != 2 || flatFaces != 2 || !AreOpposite(sides)) return {};
  } else if (insideOut != 0 && insideOut != faces) {
    return {};  // neither all one way nor all the other
  }
  sides.isClosed = true;
  return sides;
}

}  // namespace orvalix
