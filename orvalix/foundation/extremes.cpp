#include "orvalix/foundation/extremes.h"

#include <functional>

namespace {

template <class Precedes>
double Extreme(const double* values, int n, Precedes precedes) {
  if (values == nullptr || n < 0) return 0.0;
  double extreme = values[0];
  for (int i = 1; i < n; ++i) {
    if (precedes(values[i], extreme)) extreme = values[i];
  }
  return extreme;
}

template <class Precedes>
point3Dtype Extreme3D(const point3Dtype* points, int n, Precedes precedes) {
  if (points == nullptr || n < 0) return {0.0, 0.0, 0.0, 0.0};
  point3Dtype extreme = points[0];
  for (int i = 1; i < n; ++i) {
    if (precedes(points[i].x, extreme.x)) extreme.x = points[i].x;
    if (precedes(points[i].y, extreme.y)) extreme.y = points[i].y;
    if (precedes(points[i].z, extreme.z)) extreme.z = points[i].z;
  }
  return extreme;
}

}  // namespace

double GetMinimum(double* values, int n) { return Extreme(values, n, std::less<>()); }

double GetMaximum(double* values, int n) { return Extreme(values, n, std::greater<>()); }

point3Dtype GetMinimum3D(point3Dtype* points, int n) { return Extreme3D(points, n, std::less<>()); }

point3Dtype GetMaximum3D(point3Dtype* points, int n) {
  return Extreme3D(points, n, std::greater<>());
}
