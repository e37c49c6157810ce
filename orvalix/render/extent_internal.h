/// @file
/// The room that points take.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include "orvalix/foundation/value_types.h"

namespace orvalix {

/// The box around points; empty at first.
struct Extent {
  std::array<double, 3> low{kFar, kFar, kFar};
  std::array<double, 3> high{-kFar, -kFar, -kFar};

  void Include(const point3Dtype& point) {
    const std::array<double, 3> place{point.x, point.y, point.z};
    for (std::size_t i = 0; i < place.size(); ++i) {
      low[i] = std::min(low[i], place[i]);
      high[i] = std::max(high[i], place[i]);
    }
  }
  bool operator==(const Extent&) const = default;

 private:
  static constexpr double kFar = std::numeric_limits<double>::infinity();
};

}  // namespace orvalix
