/// @file
/// Copying and stretching rectangles between surfaces.
#pragma once

#include <cstdint>

#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// A rectangle of pixels.
struct PixelRect {
  std::int64_t x;
  std::int64_t y;
  std::int64_t width;
  std::int64_t height;
};

/// Copies a rectangle to (`x`, `y`). What lies outside of either surface is left out; the two may
/// share memory.
/// @return false when memory runs out
bool CopyPixels(const Surface& to, std::int64_t x, std::int64_t y, const Surface& from,
                const PixelRect& source);

/// How the pixels of one direction are stretched.
struct StretchAxis {
  std::int64_t to;         ///< first pixel of the destination
  std::int64_t toCount;    ///< pixels of the destination, 0 or more
  std::int64_t from;       ///< first pixel of the source
  std::int64_t fromCount;  ///< pixels of the source, 0 or more
  bool isMirrored;         ///< the last pixel of the source goes first

  /// From the framework's start and extent: a negative extent counts from its start downwards, that
  /// pixel included, and mirrors.
  static StretchAxis FromExtents(int to, int toExtent, int from, int fromExtent);
  bool IsEmpty() const { return toCount == 0 || fromCount == 0; }
  /// The source pixel of destination pixel `index`, counted from the first one: the pixel under its
  /// middle.
  std::int64_t SourceOf(std::int64_t index) const;
};

/// Stretches a rectangle, dropping or repeating pixels. What lies outside of either surface is left
/// out; the two may share memory.
/// @return false when memory runs out
bool StretchPixels(const Surface& to, const Surface& from, const StretchAxis& across,
                   const StretchAxis& down);

}  // namespace orvalix
