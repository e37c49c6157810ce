#include "orvalix/render/shapes.h"

#include <GL/glu.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <numbers>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/placeable_internal.h"

namespace {

/// True when OpenGL has numbers for vertices that far out.
bool CanPlace(double a, double b = 0.0, double c = 0.0) {
  return orvalix::IsPlaceable({a, b, c, 0.0});
}

using Quadric = std::unique_ptr<GLUquadric, decltype(&gluDeleteQuadric)>;

Quadric NewQuadric(GLenum style) {
  Quadric quadric(gluNewQuadric(), &gluDeleteQuadric);
  if (quadric == nullptr) return quadric;
  gluQuadricDrawStyle(quadric.get(), style);
  if (style == GLU_FILL) gluQuadricNormals(quadric.get(), GLU_SMOOTH);
  return quadric;
}

void DrawSphere(double radius, GLenum style) {
  constexpr int kSlices = 16;
  constexpr int kStacks = 16;
  const Quadric quadric = NewQuadric(style);
  if (quadric == nullptr || !CanPlace(radius)) return;
  gluSphere(quadric.get(), radius, kSlices, kStacks);
}

void DrawCylinder(double radius, double height, GLenum style) {
  constexpr int kSlices = 12;
  constexpr int kStacks = 2;
  const Quadric quadric = NewQuadric(style);
  if (quadric == nullptr || !CanPlace(radius, height)) return;
  glPushMatrix();
  glRotated(90.0, 1.0, 0.0, 0.0);
  glTranslated(0.0, 0.0, -1.0);
  gluCylinder(quadric.get(), radius, radius, height, kSlices, kStacks);
  glPopMatrix();
}

void DrawCone(double radius, double height, GLenum style) {
  constexpr int kSlices = 15;
  constexpr int kStacks = 10;
  const Quadric quadric = NewQuadric(style);
  if (quadric == nullptr || !CanPlace(radius, height)) return;
  gluCylinder(quadric.get(), radius, 0.0, height, kSlices, kStacks);
}

void DrawBox(double width, double height, double depth, GLenum mode) {
  // Each face: its normal, and its corners, anticlockwise from outside.
  struct Face {
    std::array<int, 3> normal;
    std::array<std::array<int, 3>, 4> corners;
  };
  static constexpr std::array<Face, 6> kFaces{
      {{{0, 0, -1}, {{{-1, -1, -1}, {-1, 1, -1}, {1, 1, -1}, {1, -1, -1}}}},
       {{0, 0, 1}, {{{-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}}}},
       {{0, -1, 0}, {{{-1, -1, -1}, {1, -1, -1}, {1, -1, 1}, {-1, -1, 1}}}},
       {{0, 1, 0}, {{{-1, 1, -1}, {-1, 1, 1}, {1, 1, 1}, {1, 1, -1}}}},
       {{-1, 0, 0}, {{{-1, -1, -1}, {-1, -1, 1}, {-1, 1, 1}, {-1, 1, -1}}}},
       {{1, 0, 0}, {{{1, -1, -1}, {1, 1, -1}, {1, 1, 1}, {1, -1, 1}}}}}};
  if (!CanPlace(width, height, depth)) return;
  for (const Face& face : kFaces) {
    glBegin(mode);
    glNormal3d(face.normal[0], face.normal[1], face.normal[2]);
    for (const auto& corner : face.corners) {
      glVertex3d(corner[0] * width / 2.0, corner[1] * height / 2.0, corner[2] * depth / 2.0);
    }
    glEnd();
  }
}

void DrawTorus(double innerRadius, double outerRadius, GLenum mode) {
  constexpr int kSides = 8;
  constexpr int kRings = 15;
  if (!CanPlace(std::abs(outerRadius) + std::abs(innerRadius))) return;
  const auto vertex = [&](int ring, int side) {
    constexpr double kFullTurn = 2.0 * std::numbers::pi;
    // Whole turns end exactly where they began.
    const double around = kFullTurn * (ring % kRings) / kRings;
    const double across = kFullTurn * (side % kSides) / kSides;
    const double distance = outerRadius + innerRadius * std::cos(across);
    glNormal3d(std::cos(around) * std::cos(across), std::sin(around) * std::cos(across),
               std::sin(across));
    glVertex3d(std::cos(around) * distance, std::sin(around) * distance,
               innerRadius * std::sin(across));
  };
  for (int ring = 0; ring < kRings; ++ring) {
    for (int side = 0; side < kSides; ++side) {
      glBegin(mode);
      vertex(ring, side);
      vertex(ring + 1, side);
      vertex(ring + 1, side + 1);
      vertex(ring, side + 1);
      glEnd();
    }
  }
}

}  // namespace

void auxSolidSphere(double radius) { DrawSphere(radius, GLU_FILL); }

void auxWireSphere(double radius) { DrawSphere(radius, GLU_LINE); }

void auxSolidCube(double size) { auxSolidBox(size, size, size); }

void auxWireCube(double size) { auxWireBox(size, size, size); }

void auxSolidBox(double width, double height, double depth) {
  DrawBox(width, height, depth, GL_QUADS);
}

void auxWireBox(double width, double height, double depth) {
  DrawBox(width, height, depth, GL_LINE_LOOP);
}

void auxSolidTorus(double innerRadius, double outerRadius) {
  DrawTorus(innerRadius, outerRadius, GL_QUADS);
}

void auxWireTorus(double innerRadius, double outerRadius) {
  DrawTorus(innerRadius, outerRadius, GL_LINE_LOOP);
}

void auxSolidCylinder(double radius, double height) { DrawCylinder(radius, height, GLU_FILL); }

void auxWireCylinder(double radius, double height) { DrawCylinder(radius, height, GLU_LINE); }

void auxSolidCone(double radius, double height) { DrawCone(radius, height, GLU_FILL); }

void auxWireCone(double radius, double height) { DrawCone(radius, height, GLU_LINE); }
