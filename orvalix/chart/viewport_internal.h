/// @file
/// From fractions of a view to its pixels.
#pragma once

#include "orvalix/foundation/value_types.h"

namespace orvalix {

/// The rectangle in pixels of a view of that size, without fractions; 0 for what isn't a number.
GLViewportType PixelViewport(const GLViewRType& position, int viewWidth, int viewHeight);

}  // namespace orvalix
