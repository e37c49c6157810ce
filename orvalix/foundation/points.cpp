#include "orvalix/foundation/points.h"

#include <cmath>
#include <utility>

#include "orvalix/foundation/planes.h"

namespace {

constexpr int kLastPlaneCode = 5;

}  // namespace

void AssignPoint3D(point3Dtype& p, double x, double y, double z) { p = {x, y, z, 0.0}; }

void getpoint3D(point3Dtype const& p, double* x, double* y, double* z) {
  if (x != nullptr) *x = p.x;
  if (y != nullptr) *y = p.y;
  if (z != nullptr) *z = p.z;
}

double GetCoord3D(point3Dtype& p, int axis) {
  switch (axis) {
    case 0:
      return p.x;
    case 1:
      return p.y;
    case 2:
      return p.z;
    default:
      return 0.0;
  }
}

void coordassign(point3Dtype& p, int axis, double value) {
  if (axis == 0) p.x = value;
  if (axis == 1) p.y = value;
  if (axis == 2) p.z = value;
}

void AssignViewport(GLViewportType& viewport, int x, int y, int width, int height) {
  viewport = {x, y, width, height};
}

void AssignViewR(GLViewRType& viewport, double x, double y, double width, double height) {
  viewport = {x, y, width, height};
}

void swap3Dpoints(point3Dtype& a, point3Dtype& b) { std::swap(a, b); }

void swapints(int& a, int& b) { std::swap(a, b); }

void swapreals(double& a, double& b) { std::swap(a, b); }

void Sub3DP(point3Dtype& out, point3Dtype const& a, point3Dtype const& b) {
  out.x = a.x - b.x;
  out.y = a.y - b.y;
  out.z = a.z - b.z;
}

void NegPoint(point3Dtype& out, point3Dtype const& p) {
  out.x = -p.x;
  out.y = -p.y;
  out.z = -p.z;
}

void CalcNormal(point3Dtype const& p0, point3Dtype const& p1, point3Dtype const& p2,
                point3Dtype& n) {
  const point3Dtype a{p0.x - p1.x, p0.y - p1.y, p0.z - p1.z, 0.0};
  const point3Dtype b{p1.x - p2.x, p1.y - p2.y, p1.z - p2.z, 0.0};
  n.x = a.y * b.z - a.z * b.y;
  n.y = a.z * b.x - a.x * b.z;
  n.z = a.x * b.y - a.y * b.x;
}

double NearPointText(point3Dtype& p, point3Dtype const& q) {
  return std::hypot(p.x - q.x, p.y - q.y, p.z - q.z);
}

int NearTest(double a, double b, double tolerance) {
  // Not "less or equal": an undefined difference is near.
  return std::abs(b - a) > tolerance ? 0 : 1;
}

void interpolatepoint3D(point3Dtype const& p0, point3Dtype const& p1, point3Dtype& out, int plane) {
  if (plane < 0 || plane > kLastPlaneCode) return;
  // Copies: `out` may be one of the ends.
  point3Dtype from = p0;
  point3Dtype to = p1;
  const int given = GetNormalAxis(plane);
  const double start = GetCoord3D(from, given);
  const double t = (GetCoord3D(out, given) - start) / (GetCoord3D(to, given) - start);
  for (int axis = 0; axis < 3; ++axis) {
    if (axis == given) continue;
    const double value = GetCoord3D(from, axis);
    coordassign(out, axis, value + t * (GetCoord3D(to, axis) - value));
  }
  out.v = from.v + t * (to.v - from.v);
}
