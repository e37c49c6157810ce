/// @file
/// Pictures of views.
#pragma once

#include "support/picture.h"

class CChartView3D;

namespace orvalix {

/// What the view drew last. Its bitmap must be 24 or 32 bits deep.
Picture TakePicture(const CChartView3D& view);

}  // namespace orvalix
