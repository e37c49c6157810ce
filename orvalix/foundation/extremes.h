/// @file
/// The smallest and largest of arrays. Null arrays give 0; n below 0 gives 0; otherwise element 0
/// is always read, even for n = 0.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/export.h"

/// The smallest of n numbers. A running value gives way only to a strictly smaller one.
ORVALIX_API double GetMinimum(double* values, int n);
/// The largest of n numbers. A running value gives way only to a strictly larger one.
ORVALIX_API double GetMaximum(double* values, int n);
/// The smallest x, y and z of n points, each on its own; v is that of point 0.
ORVALIX_API point3Dtype GetMinimum3D(point3Dtype* points, int n);
/// The largest x, y and z of n points, each on its own; v is that of point 0.
ORVALIX_API point3Dtype GetMaximum3D(point3Dtype* points, int n);
