/// @file
/// Direction codes: 0 -x, 1 -y, 2 -z, 3 +x, 4 +y, 5 +z.
#pragma once

#include <algorithm>

#include "orvalix/foundation/points.h"
#include "orvalix/foundation/value_types.h"

namespace orvalix {

/// The nearest direction code.
inline int ValidDirection(int direction) { return std::clamp(direction, 0, 5); }

/// The nearest axis: 0 x, 1 y, 2 z.
inline int ValidAxis(int axis) { return std::clamp(axis, 0, 2); }

/// The axis along a direction.
inline int AxisOfDirection(int direction) { return ValidDirection(direction) % 3; }

/// True for +x, +y and +z.
inline bool PointsUp(int direction) { return ValidDirection(direction) >= 3; }

/// Moves a point by `distance` in a direction.
inline void MovePoint(point3Dtype& point, double distance, int direction) {
  const int axis = AxisOfDirection(direction);
  const double at = GetCoord3D(point, axis);
  coordassign(point, axis, PointsUp(direction) ? at + distance : at - distance);
}

}  // namespace orvalix
