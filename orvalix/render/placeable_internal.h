/// @file
/// Which points can be drawn at all.
#pragma once

#include <algorithm>
#include <cmath>

#include "orvalix/foundation/value_types.h"

namespace orvalix {

/// True when OpenGL, which computes with `float`, has a number for each coordinate.
inline bool IsPlaceable(const point3Dtype& point) {
  return std::isfinite(static_cast<float>(point.x)) && std::isfinite(static_cast<float>(point.y)) &&
         std::isfinite(static_cast<float>(point.z));
}

/// True when each of n points is placeable.
inline bool ArePlaceable(const point3Dtype* points, int n) {
  return std::all_of(points, points + std::max(n, 0), IsPlaceable);
}

}  // namespace orvalix
