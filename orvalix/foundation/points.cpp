#include "orvalix/foundation/points.h"

#include <cmath>
#include <utility>

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
  const auto between = [](double from, double to, double t) { return from + t * (to - from); };
  switch (plane) {
    case 0:
    case 3: {
      const double t = (out.z - p0.z) / (p1.z - p0.z);
      out.x = between(p0.x, p1.x, t);
      out.y = between(p0.y, p1.y, t);
      out.v = between(p0.v, p1.v, t);
      break;
    }
    case 1:
    case 4: {
      const double t = (out.y - p0.y) / (p1.y - p0.y);
      out.x = between(p0.x, p1.x, t);
      out.z = between(p0.z, p1.z, t);
      out.v = between(p0.v, p1.v, t);
      break;
    }
    case 2:
    case 5: {
      const double t = (out.x - p0.x) / (p1.x - p0.x);
      out.y = between(p0.y, p1.y, t);
      out.z = between(p0.z, p1.z, t);
      out.v = between(p0.v, p1.v, t);
      break;
    }
    default:
      break;
  }
}
