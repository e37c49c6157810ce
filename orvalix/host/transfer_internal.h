/// @file
/// Bringing pixels to a device, be it pixels in memory or another toolkit's.
#pragma once

#include <cstdint>

#include "orvalix/host/blit_internal.h"
#include "orvalix/host/surface_internal.h"

class CDC;

namespace orvalix {

/// Copies a rectangle of a surface to (`x`, `y`) of a device.
/// @return false without a device, when it refuses, or when memory runs out
bool CopyToDevice(CDC& device, std::int64_t x, std::int64_t y, const Surface& from,
                  const PixelRect& source);

/// Stretches a rectangle of a surface over one of a device.
/// @return as CopyToDevice()
bool StretchToDevice(CDC& device, const Surface& from, const StretchAxis& across,
                     const StretchAxis& down);

}  // namespace orvalix
