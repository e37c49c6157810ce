/// @file
/// The pixel format that a picture of a given colour depth is drawn in.
#pragma once

#include "orvalix/host/host.h"

namespace orvalix {

/// The format asked for: RGBA drawn to a bitmap, 32 bits of depth, no alpha. `colorBits` is kept
/// to 8 bits, as the descriptor stores it.
PIXELFORMATDESCRIPTOR WantedPixelFormat(int colorBits);

/// The format in which a bitmap of that depth stores its pixels: red 3 bits, green 3, blue 2 from
/// the lowest bit up and a palette for 8 bits; blue, green and red bytes for 24 and 32.
/// @return a descriptor of size 0 when no picture can be drawn with that depth
PIXELFORMATDESCRIPTOR StoredPixelFormat(int colorBits);

/// True for a format that StoredPixelFormat() knew.
bool IsUsable(const PIXELFORMATDESCRIPTOR& format);

/// True when pictures of that format show their colours through a palette.
bool NeedsPalette(const PIXELFORMATDESCRIPTOR& format);

}  // namespace orvalix
