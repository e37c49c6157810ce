/// @file
/// Solid and wire shapes, drawn at the origin of OpenGL's current matrix in the current colour.
/// Solids have normals that point outwards, so that they can be lit. An OpenGL context must be
/// current. Sizes may have any value; what can't be placed isn't drawn.
///
/// Spheres, cylinders and cones of negative size, and cylinders without a height, aren't drawn
/// either. A negative size mirrors the other shapes in the origin without their normals, which then
/// point inwards.
#pragma once

#include "orvalix/host/export.h"

/// A sphere of 16 slices and 16 stacks.
ORVALIX_API void auxSolidSphere(double radius);
ORVALIX_API void auxWireSphere(double radius);

/// A cube from -size/2 to size/2 on each axis.
ORVALIX_API void auxSolidCube(double size);
ORVALIX_API void auxWireCube(double size);

/// A box centred on the origin: `width` along x, `height` along y, `depth` along z.
ORVALIX_API void auxSolidBox(double width, double height, double depth);
ORVALIX_API void auxWireBox(double width, double height, double depth);

/// A ring about the z axis of 8 sides and 15 rings.
/// @param innerRadius of the tube
/// @param outerRadius from the origin to the centre of the tube
ORVALIX_API void auxSolidTorus(double innerRadius, double outerRadius);
ORVALIX_API void auxWireTorus(double innerRadius, double outerRadius);

/// An open cylinder about the y axis of 12 slices and 2 stacks. It reaches from y = 1 down to
/// 1 - height; kept: the shift by 1 doesn't depend on the height.
ORVALIX_API void auxSolidCylinder(double radius, double height);
ORVALIX_API void auxWireCylinder(double radius, double height);

/// An open cone about the z axis of 15 slices and 10 stacks: its base at z = 0, its tip at
/// `height`.
ORVALIX_API void auxSolidCone(double radius, double height);
ORVALIX_API void auxWireCone(double radius, double height);

/// A tetrahedron whose vertices are `radius` away from the origin, where the current entry of the
/// matrix stack (matrix_stack.h) puts it.
ORVALIX_API void auxSolidTetrahedron(double radius);
ORVALIX_API void auxWireTetrahedron(double radius);

/// An octahedron whose vertices are `radius` away from the origin, where the current entry of the
/// matrix stack (matrix_stack.h) puts it.
ORVALIX_API void auxSolidOctahedron(double radius);
ORVALIX_API void auxWireOctahedron(double radius);

/// A dodecahedron whose vertices are `radius` / 1.73 away from the origin, where the current entry
/// of the matrix stack (matrix_stack.h) puts it.
ORVALIX_API void auxSolidDodecahedron(double radius);
ORVALIX_API void auxWireDodecahedron(double radius);

/// An icosahedron whose vertices are `radius` away from the origin, where the current entry of the
/// matrix stack (matrix_stack.h) puts it.
ORVALIX_API void auxSolidIcosahedron(double radius);
ORVALIX_API void auxWireIcosahedron(double radius);
