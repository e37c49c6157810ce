/// @file
/// Plane codes and what they do to axes: 0 and 3 are the x-y plane, 1 and 4 x-z, 2 and 5 y-z. Axes
/// are 0 x, 1 y, 2 z.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/export.h"

/// The point with its axes exchanged: (x, y, z) for codes 0 and 3, (x, z, y) for 1 and 4, (z, x, y)
/// for 2 and 5, unchanged for any other code; v of the result is 0.
ORVALIX_API point3Dtype swapcoords(int code, point3Dtype p);
/// The same for single numbers; any other code writes nothing.
ORVALIX_API void swapcoords(int code, double x, double y, double z, double& xOut, double& yOut,
                            double& zOut);
/// The axis in which input axis `axis` lands; 0 for another code or axis.
ORVALIX_API int GetSwapCoordAxis(int code, int axis);
/// The axis along the plane's normal: 2, 1 or 0; 2 for another code.
ORVALIX_API int GetNormalAxis(int code);
