#include <algorithm>
#include <cmath>
#include <limits>

#include "orvalix/chart/viewport_internal.h"

namespace orvalix {
namespace {

/// A length in pixels rounded towards zero, kept to what an int can hold; 0 when undefined.
int ToPixels(double length) {
  if (std::isnan(length)) return 0;
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(length, kLowest, kHighest));
}

}  // namespace

GLViewportType PixelViewport(const GLViewRType& position, int viewWidth, int viewHeight) {
  return {ToPixels(viewWidth * position.x), ToPixels(viewHeight * position.y),
          ToPixels(viewWidth * position.width), ToPixels(viewHeight * position.height)};
}

}  // namespace orvalix
