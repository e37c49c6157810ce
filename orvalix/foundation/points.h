/// @file
/// Building and computing with points.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/export.h"

/// Sets x, y and z; v becomes 0.
ORVALIX_API void AssignPoint3D(point3Dtype& p, double x, double y, double z);
/// Copies x, y and z out. Null pointers are passed over.
ORVALIX_API void getpoint3D(point3Dtype const& p, double* x, double* y, double* z);
/// x (axis 0), y (1) or z (2); 0 for any other axis.
ORVALIX_API double GetCoord3D(point3Dtype& p, int axis);
/// Sets x (axis 0), y (1) or z (2); any other axis changes nothing.
ORVALIX_API void coordassign(point3Dtype& p, int axis, double value);
/// Fills the four fields in order, in pixels.
ORVALIX_API void AssignViewport(GLViewportType& viewport, int x, int y, int width, int height);
/// Fills the four fields in order, in fractions of the view.
ORVALIX_API void AssignViewR(GLViewRType& viewport, double x, double y, double width,
                             double height);
/// Exchanges two whole points, v included.
ORVALIX_API void swap3Dpoints(point3Dtype& a, point3Dtype& b);
/// Exchanges two integers.
ORVALIX_API void swapints(int& a, int& b);
/// Exchanges two numbers.
ORVALIX_API void swapreals(double& a, double& b);

/// out = a - b; v of `out` is left as it was.
ORVALIX_API void Sub3DP(point3Dtype& out, point3Dtype const& a, point3Dtype const& b);
/// out = -p; v of `out` is left as it was.
ORVALIX_API void NegPoint(point3Dtype& out, point3Dtype const& p);
/// n = (p0 - p1) x (p1 - p2), not normalised; v of `n` is left as it was.
ORVALIX_API void CalcNormal(point3Dtype const& p0, point3Dtype const& p1, point3Dtype const& p2,
                            point3Dtype& n);
/// The distance between p and q.
ORVALIX_API double NearPointText(point3Dtype& p, point3Dtype const& q);
/// 1 unless |b - a| is greater than `tolerance`: an undefined difference counts as near.
ORVALIX_API int NearTest(double a, double b, double tolerance);
/// Fills the coordinates of `out` that aren't given, and v, by linear interpolation between p0 and
/// p1 at the one that is: z of `out` for plane codes 0 and 3, y for 1 and 4, x for 2 and 5. Other
/// codes change nothing. p0 and p1 must differ in the given coordinate.
ORVALIX_API void interpolatepoint3D(point3Dtype const& p0, point3Dtype const& p1, point3Dtype& out,
                                    int plane);
