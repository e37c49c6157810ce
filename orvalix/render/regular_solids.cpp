#include <algorithm>
#include <array>
#include <cstddef>

#include "orvalix/foundation/matrix_stack.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/foundation/vectors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/shapes.h"

namespace {

using Vector = std::array<double, 3>;

/// A regular solid: its vertices, in any size, and its faces, anticlockwise from outside.
template <std::size_t Vertices, std::size_t Faces, std::size_t Corners>
struct Solid {
  std::array<Vector, Vertices> vertices;
  std::array<std::array<std::size_t, Corners>, Faces> faces;
};

constexpr Solid<4, 4, 3> kTetrahedron{{{{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}}},
                                      {{{0, 1, 2}, {0, 2, 3}, {0, 3, 1}, {1, 3, 2}}}};

constexpr Solid<6, 8, 3> kOctahedron{
    {{{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}}},
    {{{0, 2, 4}, {2, 1, 4}, {1, 3, 4}, {3, 0, 4}, {2, 0, 5}, {1, 2, 5}, {3, 1, 5}, {0, 3, 5}}}};

constexpr double kGolden = 1.618033988749894848;

/// The twelve corners of three golden rectangles.
constexpr Solid<12, 20, 3> kIcosahedron{
    {{{-1, 0, kGolden},
      {1, 0, kGolden},
      {-1, 0, -kGolden},
      {1, 0, -kGolden},
      {0, kGolden, 1},
      {0, kGolden, -1},
      {0, -kGolden, 1},
      {0, -kGolden, -1},
      {kGolden, 1, 0},
      {-kGolden, 1, 0},
      {kGolden, -1, 0},
      {-kGolden, -1, 0}}},
    {{{0, 1, 4}, {0, 4, 9},  {9, 4, 5},  {4, 8, 5},  {4, 1, 8},  {8, 1, 10}, {8, 10, 3},
      {5, 8, 3}, {5, 3, 2},  {2, 3, 7},  {7, 3, 10}, {7, 10, 6}, {7, 6, 11}, {11, 6, 0},
      {0, 6, 1}, {6, 10, 1}, {9, 11, 0}, {9, 2, 11}, {9, 5, 2},  {7, 11, 2}}}};

/// The eight corners of a cube and the twelve ends of three rectangles through it.
constexpr double kLong = kGolden;
constexpr double kShort = 1.0 / kGolden;
constexpr Solid<20, 12, 5> kDodecahedron{
    {{{1, 1, 1},          {1, 1, -1},          {1, -1, 1},          {1, -1, -1},
      {-1, 1, 1},         {-1, 1, -1},         {-1, -1, 1},         {-1, -1, -1},
      {0, kShort, kLong}, {0, kShort, -kLong}, {0, -kShort, kLong}, {0, -kShort, -kLong},
      {kShort, kLong, 0}, {kShort, -kLong, 0}, {-kShort, kLong, 0}, {-kShort, -kLong, 0},
      {kLong, 0, kShort}, {kLong, 0, -kShort}, {-kLong, 0, kShort}, {-kLong, 0, -kShort}}},
    {{{0, 8, 10, 2, 16},
      {0, 16, 17, 1, 12},
      {0, 12, 14, 4, 8},
      {1, 17, 3, 11, 9},
      {1, 9, 5, 14, 12},
      {2, 10, 6, 15, 13},
      {2, 13, 3, 17, 16},
      {3, 13, 15, 7, 11},
      {4, 14, 5, 19, 18},
      {4, 18, 6, 10, 8},
      {5, 9, 11, 7, 19},
      {6, 18, 19, 7, 15}}}};

bool IsPlaceable(const Vector& vertex) {
  return orvalix::IsPlaceable({vertex[0], vertex[1], vertex[2], 0.0});
}

/// Draws a solid with its vertices `radius` away from the origin, moved and scaled by the matrix
/// stack. Draws nothing when that leaves any vertex without a place.
template <std::size_t Vertices, std::size_t Faces, std::size_t Corners>
void Draw(const Solid<Vertices, Faces, Corners>& solid, double radius, GLenum mode) {
  const double scale = radius / length3(solid.vertices[0].data());
  std::array<Vector, Vertices> placed;
  for (std::size_t i = 0; i < Vertices; ++i) {
    scalarmult(scale, solid.vertices[i].data(), placed[i].data());
    m_xformptonly(placed[i].data(), placed[i].data());
  }
  if (!std::all_of(placed.begin(), placed.end(), IsPlaceable)) return;
  for (const auto& face : solid.faces) {
    const double* first = solid.vertices[face[0]].data();
    Vector normal{};
    Vector unused{};
    perpnorm(first, solid.vertices[face[1]].data(), solid.vertices[face[2]].data(), normal.data());
    m_xformpt(first, normal.data(), unused.data(), normal.data());
    glBegin(mode);
    glNormal3dv(normal.data());
    for (const std::size_t corner : face) glVertex3dv(placed[corner].data());
    glEnd();
  }
}

/// Kept: about the distance of a cube's corner from its centre, by which the dodecahedron is
/// smaller than the other solids.
constexpr double kDodecahedronDivisor = 1.73;

}  // namespace

void auxSolidTetrahedron(double radius) { Draw(kTetrahedron, radius, GL_TRIANGLES); }

void auxWireTetrahedron(double radius) { Draw(kTetrahedron, radius, GL_LINE_LOOP); }

void auxSolidOctahedron(double radius) { Draw(kOctahedron, radius, GL_TRIANGLES); }

void auxWireOctahedron(double radius) { Draw(kOctahedron, radius, GL_LINE_LOOP); }

void auxSolidDodecahedron(double radius) {
  Draw(kDodecahedron, radius / kDodecahedronDivisor, GL_TRIANGLE_FAN);
}

void auxWireDodecahedron(double radius) {
  Draw(kDodecahedron, radius / kDodecahedronDivisor, GL_LINE_LOOP);
}

void auxSolidIcosahedron(double radius) { Draw(kIcosahedron, radius, GL_TRIANGLES); }

void auxWireIcosahedron(double radius) { Draw(kIcosahedron, radius, GL_LINE_LOOP); }
