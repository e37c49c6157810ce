/// @file
/// The frame that views and charts have in common.
#pragma once

#include "orvalix/foundation/value_types.h"

class COpenGL;

namespace orvalix {

/// Draws a frame along the edges of a viewport of `width` x `height` pixels, behind everything
/// else. The identity matrix must be current.
/// @param thickness line width in pixels
void DrawBorder(COpenGL& openGL, double thickness, int width, int height, RGBDType const& color);

}  // namespace orvalix
