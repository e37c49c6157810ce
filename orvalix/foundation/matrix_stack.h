/// @file
/// The matrix stack by which the regular solids place their vertices: ten entries, each a 4 by 4
/// matrix for points and a 3 by 3 matrix for normals, both the identity at first. There is one
/// stack for the whole program. Outputs may be the same arrays as inputs.
///
/// Errors are reported to the function of seterrorfunc(); without one they end the program.
#pragma once

#include "orvalix/host/export.h"

/// Puts a copy of the current entry on the stack. With nine entries above the first one it reports
/// "m_pushmatrix: stack overflow\n" and does nothing.
ORVALIX_API void m_pushmatrix();
/// Goes back to the entry before. At the first one it reports "m_popmatrix: stack underflow\n" and
/// does nothing.
ORVALIX_API void m_popmatrix();
/// Moves points by (x, y, z) before what the entry did to them so far.
ORVALIX_API void m_translate(double x, double y, double z);
/// Scales points about the origin before what the entry did to them so far; normals stay at right
/// angles to what is scaled. A factor of 0 makes normals undefined.
ORVALIX_API void m_scale(double x, double y, double z);
/// Transforms a point and a normal of three numbers each. The normal comes out with length 1; one
/// without length is reported as by normalize().
ORVALIX_API void m_xformpt(const double* point, const double* normal, double* outPoint,
                           double* outNormal);
/// Transforms a point.
ORVALIX_API void m_xformptonly(const double* point, double* out);
