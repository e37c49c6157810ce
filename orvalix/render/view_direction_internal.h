/// @file
/// Which faces look away from the viewer.
#pragma once

#include <array>

#include "orvalix/render/extent_internal.h"

namespace orvalix {

/// OpenGL's matrices at present, the projection and what comes before it, in one; column by column.
std::array<double, 16> ToClipSpace();

/// True while OpenGL cuts anything off: insides of solids may then be seen.
bool IsCutAnywhere();

/// True when a face with that outward normal looks away from the viewer. None does for viewers who
/// don't look everywhere along the same line.
/// @param m as ToClipSpace() tells it
bool LooksAway(const std::array<double, 16>& m, const std::array<double, 3>& normal);

/// Which way round a path goes on the screen: 1 counterclockwise, -1 clockwise, 0 where that can't
/// be told, because it is seen from the edge or by a viewer who doesn't look everywhere along the
/// same line.
/// @param m as ToClipSpace() tells it
/// @param axis that the path goes round counterclockwise
int TurnOnScreen(const std::array<double, 16>& m, const std::array<double, 3>& axis);

/// True when something within that extent is cut off in front of the viewer, who may then look into
/// solids; otherwise the sides that look away are hidden by the others.
/// @param m as ToClipSpace() tells it
bool IsCutInFront(const std::array<double, 16>& m, const Extent& extent);

/// How a side of a closed solid is drawn.
enum class SideView {
  kWhole,    ///< as it is
  kBehind,   ///< it looks away: at the same depth, sides that look at the viewer cover it
  kNotSeen,  ///< it needn't be drawn
};

/// Of sides that may look away.
/// @param isCut true when the viewer may look into the solid
constexpr SideView ViewOfSide(bool looksAway, bool isCut) {
  if (!looksAway) return SideView::kWhole;
  return isCut ? SideView::kBehind : SideView::kNotSeen;
}

}  // namespace orvalix
