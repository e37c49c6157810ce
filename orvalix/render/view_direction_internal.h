/// @file
/// Which faces look away from the viewer.
#pragma once

#include <array>

namespace orvalix {

/// OpenGL's matrices at present, the projection and what comes before it, in one; column by column.
std::array<double, 16> ToClipSpace();

/// True while OpenGL cuts anything off: insides of solids may then be seen.
bool IsCutAnywhere();

/// True when a face with that outward normal looks away from the viewer, and nothing between the
/// corners `low` and `high` is cut off in front of him, so that the solid's other faces hide it.
/// Viewers who don't look everywhere along the same line see every face.
/// @param m as ToClipSpace() tells it
bool LooksAway(const std::array<double, 16>& m, const std::array<double, 3>& normal,
               const std::array<double, 3>& low, const std::array<double, 3>& high);

}  // namespace orvalix
