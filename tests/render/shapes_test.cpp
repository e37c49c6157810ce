#include "orvalix/render/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <numbers>
#include <vector>

#include "render/shape_fixture.h"

namespace {

using orvalix::test::CaptureTriangles;
using orvalix::test::Dot;
using orvalix::test::Length;
using orvalix::test::LitCorner;
using orvalix::test::LitTriangle;
using orvalix::test::ShapeTest;
using orvalix::test::Triangle;
using orvalix::test::Vertex;

using Counts = std::map<int, std::size_t>;

constexpr double kPi = std::numbers::pi;

class Shapes : public ShapeTest {
 protected:
  /// Expects each corner to be lit as `normal` of its place says.
  template <class Normal>
  static void ExpectNormals(const std::vector<LitTriangle>& triangles, const Normal& normal) {
    ASSERT_FALSE(triangles.empty());
    for (const LitTriangle& triangle : triangles) {
      for (const LitCorner& corner : triangle) ExpectNear(corner.normal, normal(corner.at));
    }
  }
};

TEST_F(Shapes, SpheresHave16SlicesAnd16Stacks) {
  const std::vector<Triangle> triangles = Triangles([] { auxSolidSphere(2.0); });
  // 16 triangles about each pole; 14 stacks of 16 faces with four corners between them.
  EXPECT_EQ(triangles.size(), 2U * 16 + 14 * 16 * 2);
  EXPECT_EQ(Places(triangles), 2U + 15 * 16);
  EXPECT_EQ(OpenSides(triangles), 0U);
  ExpectEachVertex(triangles, [](const Vertex& v) { EXPECT_NEAR(Length(v), 2.0, kRounding); });
  // Each stack, between the circles of radii a and b, height h apart, would have the volume
  // pi h (a a + a b + b b) / 3; 16 corners make 16 sin(2 pi / 16) / 2 of the pi.
  double volume = 0.0;
  for (int stack = 0; stack < 16; ++stack) {
    const double a = 2.0 * std::sin(kPi * stack / 16);
    const double b = 2.0 * std::sin(kPi * (stack + 1) / 16);
    const double h = 2.0 * (std::cos(kPi * stack / 16) - std::cos(kPi * (stack + 1) / 16));
    volume += 8.0 * std::sin(kPi / 8.0) * h * (a * a + a * b + b * b) / 3.0;
  }
  EXPECT_NEAR(Volume(triangles), volume, 1e-3);
}

TEST_F(Shapes, SpheresAreSmooth) {
  ExpectNormals(LitTriangles([] { auxSolidSphere(2.0); }), [](const Vertex& v) { return 0.5 * v; });
}

TEST_F(Shapes, WireSpheresAreCirclesAndHalfCircles) {
  const auto lines = Lines([] { auxWireSphere(2.0); });
  // 15 circles of 16 lines and 16 half circles of 16 lines, each drawn once.
  EXPECT_EQ(TimesDrawn(lines), (Counts{{1, 15 * 16 + 16 * 16}}));
  ExpectEachVertex(lines, [](const Vertex& v) { EXPECT_NEAR(Length(v), 2.0, kRounding); });
}

TEST_F(Shapes, BoxesAreSixFacesAboutTheOrigin) {
  const auto draw = [] { auxSolidBox(2.0, 3.0, 4.0); };
  EXPECT_EQ(CornersOfFaces(draw), std::vector<std::size_t>(6, 4));
  const std::vector<Triangle> triangles = Triangles(draw);
  ExpectEachVertex(triangles, [](const Vertex& v) {
    EXPECT_NEAR(std::abs(v.x), 1.0, kRounding);
    EXPECT_NEAR(std::abs(v.y), 1.5, kRounding);
    EXPECT_NEAR(std::abs(v.z), 2.0, kRounding);
  });
  EXPECT_EQ(Places(triangles), 8U);
  EXPECT_EQ(OpenSides(triangles), 0U);
  EXPECT_NEAR(Volume(triangles), 2.0 * 3.0 * 4.0, 1e-3);
}

TEST_F(Shapes, BoxesAreFlat) {
  const std::vector<LitTriangle> triangles = LitTriangles([] { auxSolidBox(2.0, 3.0, 4.0); });
  ASSERT_EQ(triangles.size(), 12U);
  for (const LitTriangle& t : triangles) ExpectLitAcross(t);
}

TEST_F(Shapes, WireBoxesDrawEachEdgeWithBothFaces) {
  const auto lines = Lines([] { auxWireBox(2.0, 3.0, 4.0); });
  EXPECT_EQ(TimesDrawn(lines), (Counts{{2, 12}}));
  std::map<long, int> lengths;
  for (const auto& line : lines) ++lengths[std::lround(Length(line[1] - line[0]) * 1000.0)];
  // Four edges along each axis.
  EXPECT_EQ(lengths, (std::map<long, int>{{2000, 8}, {3000, 8}, {4000, 8}}));
  ExpectEachVertex(lines, [](const Vertex& v) {
    EXPECT_NEAR(std::abs(v.x), 1.0, kRounding);
    EXPECT_NEAR(std::abs(v.y), 1.5, kRounding);
    EXPECT_NEAR(std::abs(v.z), 2.0, kRounding);
  });
}

TEST_F(Shapes, CubesAreBoxesOfOneSize) {
  const std::vector<Triangle> triangles = Triangles([] { auxSolidCube(3.0); });
  EXPECT_EQ(triangles.size(), 12U);
  EXPECT_EQ(OpenSides(triangles), 0U);
  EXPECT_NEAR(Volume(triangles), 27.0, 1e-3);
  const auto lines = Lines([] { auxWireCube(3.0); });
  EXPECT_EQ(TimesDrawn(lines), (Counts{{2, 12}}));
  const auto check = [](const Vertex& v) {
    EXPECT_NEAR(std::abs(v.x), 1.5, kRounding);
    EXPECT_NEAR(std::abs(v.y), 1.5, kRounding);
    EXPECT_NEAR(std::abs(v.z), 1.5, kRounding);
  };
  ExpectEachVertex(triangles, check);
  ExpectEachVertex(lines, check);
}

/// From the centre of the tube (radius 3 about the z axis) that is nearest.
Vertex FromTube(const Vertex& v) {
  const double distance = std::hypot(v.x, v.y);
  return v - (3.0 / distance) * Vertex{v.x, v.y, 0.0};
}

TEST_F(Shapes, RingsHave8SidesAnd15Rings) {
  const auto draw = [] { auxSolidTorus(1.0, 3.0); };
  EXPECT_EQ(CornersOfFaces(draw), std::vector<std::size_t>(8 * 15, 4));
  const std::vector<Triangle> triangles = Triangles(draw);
  ExpectEachVertex(triangles,
                   [](const Vertex& v) { EXPECT_NEAR(Length(FromTube(v)), 1.0, kRounding); });
  EXPECT_EQ(Places(triangles), 8U * 15);
  EXPECT_EQ(OpenSides(triangles), 0U);
  // An octagon of radius 1 has the area 4 sin 45 degrees; where a whole turn would move its centre
  // by 2 pi 3, 15 straight parts make 15 sin 24 degrees of the 2 pi.
  const double octagon = 4.0 * std::sin(kPi / 4.0);
  EXPECT_NEAR(Volume(triangles), octagon * 3.0 * 15.0 * std::sin(2.0 * kPi / 15.0), 1e-3);
}

TEST_F(Shapes, RingsAreSmooth) {
  ExpectNormals(LitTriangles([] { auxSolidTorus(1.0, 3.0); }), FromTube);
}

TEST_F(Shapes, WireRingsDrawEachEdgeWithBothFaces) {
  const auto lines = Lines([] { auxWireTorus(1.0, 3.0); });
  EXPECT_EQ(TimesDrawn(lines), (Counts{{2, 2 * 8 * 15}}));
  ExpectEachVertex(lines,
                   [](const Vertex& v) { EXPECT_NEAR(Length(FromTube(v)), 1.0, kRounding); });
}

TEST_F(Shapes, CylindersHave12SlicesAnd2Stacks) {
  const auto draw = [] { auxSolidCylinder(2.0, 3.0); };
  EXPECT_EQ(CornersOfFaces(draw), std::vector<std::size_t>(12 * 2, 4));
  const std::vector<Triangle> triangles = Triangles(draw);
  EXPECT_EQ(Places(triangles), 3U * 12);
  EXPECT_EQ(OpenSides(triangles), 2U * 12);  // both ends
  ExpectEachVertex(triangles, [](const Vertex& v) {
    EXPECT_NEAR(std::hypot(v.x, v.z), 2.0, kRounding);
    EXPECT_NEAR(v.y + 0.5, 1.5 * std::round((v.y + 0.5) / 1.5), kRounding);  // 1, 1 - 3/2, 1 - 3
  });
}

TEST_F(Shapes, CylindersHangDownFromOneHoweverHighTheyAre) {
  for (const double height : {0.25, 1.0, 6.0}) {
    double top = -kReach;
    double bottom = kReach;
    for (const Triangle& t : Triangles([height] { auxSolidCylinder(0.5, height); })) {
      for (const Vertex& v : t) {
        top = std::max(top, v.y);
        bottom = std::min(bottom, v.y);
      }
    }
    EXPECT_NEAR(top, 1.0, kRounding) << height;
    EXPECT_NEAR(bottom, 1.0 - height, kRounding) << height;
  }
}

TEST_F(Shapes, CylindersAreSmoothAndTurnOutwards) {
  const std::vector<LitTriangle> triangles = LitTriangles([] { auxSolidCylinder(2.0, 3.0); });
  ExpectNormals(triangles, [](const Vertex& v) { return 0.5 * Vertex{v.x, 0.0, v.z}; });
  // The middle of a face is half of a slice, 15 degrees, away from its corners.
  for (const LitTriangle& t : triangles) {
    EXPECT_NEAR(Dot(NormalOf(t), t[0].normal), std::cos(kPi / 12.0), 1e-5);
  }
}

TEST_F(Shapes, WireCylindersAreThreeCirclesAndTwelveLinesOfTwoParts) {
  const auto lines = Lines([] { auxWireCylinder(2.0, 3.0); });
  EXPECT_EQ(TimesDrawn(lines), (Counts{{1, 3 * 12 + 12 * 2}}));
  ExpectEachVertex(lines, [](const Vertex& v) {
    EXPECT_NEAR(std::hypot(v.x, v.z), 2.0, kRounding);
    EXPECT_GE(v.y, -2.0 - kRounding);
    EXPECT_LE(v.y, 1.0 + kRounding);
  });
}

TEST_F(Shapes, ConesHave15SlicesAnd10Stacks) {
  const std::vector<Triangle> triangles = Triangles([] { auxSolidCone(2.0, 5.0); });
  EXPECT_EQ(triangles.size(), 15U * 10 * 2);
  EXPECT_EQ(Places(triangles), 1U + 10 * 15);
  EXPECT_EQ(OpenSides(triangles), 15U);  // the base
  ExpectEachVertex(triangles, [](const Vertex& v) {
    EXPECT_NEAR(std::hypot(v.x, v.y), 2.0 * (1.0 - v.z / 5.0), kRounding);
    EXPECT_NEAR(v.z, 0.5 * std::round(v.z / 0.5), kRounding);  // stacks of 5 / 10
    EXPECT_GE(v.z, -kRounding);
    EXPECT_LE(v.z, 5.0 + kRounding);
  });
  // A base of 15 corners, 15/2 sin 24 degrees times 2 x 2 large, times a third of the height. The
  // base itself, in the plane of the origin, would add nothing.
  EXPECT_NEAR(Volume(triangles), 7.5 * std::sin(2.0 * kPi / 15.0) * 4.0 * 5.0 / 3.0, 1e-3);
}

TEST_F(Shapes, ConesAreSmoothAndTurnOutwards) {
  const std::vector<LitTriangle> triangles = LitTriangles([] { auxSolidCone(2.0, 5.0); });
  ASSERT_FALSE(triangles.empty());
  const double side = std::sqrt(29.0);  // 2 x 2 + 5 x 5
  for (const LitTriangle& t : triangles) {
    for (const LitCorner& corner : t) {
      EXPECT_NEAR(Length(corner.normal), 1.0, kRounding);
      EXPECT_NEAR(corner.normal.z, 2.0 / side, kRounding);
      const double distance = std::hypot(corner.at.x, corner.at.y);
      if (distance < 0.1) continue;  // the tip points everywhere
      ExpectNear(corner.normal, {5.0 / side * corner.at.x / distance,
                                 5.0 / side * corner.at.y / distance, 2.0 / side});
    }
  }
}

TEST_F(Shapes, WireConesAreCirclesUpToTheTipAndLinesToIt) {
  const auto lines = Lines([] { auxWireCone(2.0, 5.0); });
  // Ten circles and the lines once each; the circle at the tip is 15 times one place.
  EXPECT_EQ(TimesDrawn(lines), (Counts{{1, 10 * 15 + 15 * 10}, {15, 1}}));
  ExpectEachVertex(lines, [](const Vertex& v) {
    EXPECT_NEAR(std::hypot(v.x, v.y), 2.0 * (1.0 - v.z / 5.0), kRounding);
  });
}

using Shape = void (*)(double);

/// Every shape, with each of its sizes.
constexpr std::array<Shape, 28> kShapes{[](double size) { auxSolidSphere(size); },
                                        [](double size) { auxWireSphere(size); },
                                        [](double size) { auxSolidCube(size); },
                                        [](double size) { auxWireCube(size); },
                                        [](double size) { auxSolidBox(size, 1.0, 1.0); },
                                        [](double size) { auxSolidBox(1.0, size, 1.0); },
                                        [](double size) { auxSolidBox(1.0, 1.0, size); },
                                        [](double size) { auxWireBox(size, 1.0, 1.0); },
                                        [](double size) { auxWireBox(1.0, size, 1.0); },
                                        [](double size) { auxWireBox(1.0, 1.0, size); },
                                        [](double size) { auxSolidTorus(size, 1.0); },
                                        [](double size) { auxSolidTorus(1.0, size); },
                                        [](double size) { auxWireTorus(size, 1.0); },
                                        [](double size) { auxWireTorus(1.0, size); },
                                        [](double size) { auxSolidCylinder(size, 1.0); },
                                        [](double size) { auxSolidCylinder(1.0, size); },
                                        [](double size) { auxWireCylinder(size, 1.0); },
                                        [](double size) { auxWireCylinder(1.0, size); },
                                        [](double size) { auxSolidCone(size, 1.0); },
                                        [](double size) { auxWireCone(1.0, size); },
                                        [](double size) { auxSolidIcosahedron(size); },
                                        [](double size) { auxWireIcosahedron(size); },
                                        [](double size) { auxSolidOctahedron(size); },
                                        [](double size) { auxWireOctahedron(size); },
                                        [](double size) { auxSolidTetrahedron(size); },
                                        [](double size) { auxWireTetrahedron(size); },
                                        [](double size) { auxSolidDodecahedron(size); },
                                        [](double size) { auxWireDodecahedron(size); }};

TEST_F(Shapes, SizesThatCannotBePlacedDrawNothing) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < kShapes.size(); ++i) {
    EXPECT_FALSE(DrawsNothing([&] { kShapes[i](0.5); })) << i;
    for (const double size : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e39,
                              -1e39, 1e300, std::numeric_limits<double>::max()}) {
      EXPECT_TRUE(DrawsNothing([&] { kShapes[i](size); })) << i << " of size " << size;
    }
  }
}

TEST_F(Shapes, SizesThatOpenGLCanJustPlaceAreHarmless) {
  gl.SetColorMode(1);
  for (std::size_t i = 0; i < kShapes.size(); ++i) {
    for (const double size : {1e20, 1e30, 3e38, -3e38, 1e-300}) {
      kShapes[i](size);
      glFinish();
      for (const auto& primitive : CaptureTriangles([&] { kShapes[i](size); })) {
        for (const auto& vertex : primitive.vertices) {
          EXPECT_TRUE(std::isfinite(vertex.x + vertex.y + vertex.z)) << i << " of size " << size;
        }
      }
      EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR}) << i << " of size " << size;
    }
  }
}

TEST_F(Shapes, SizeZeroIsAPointOrFlat) {
  const auto expectOrigin = [](const Vertex& v) { ExpectNear(v, {0, 0, 0}); };
  ExpectEachVertex(Triangles([] { auxSolidSphere(0.0); }), expectOrigin);
  ExpectEachVertex(Triangles([] { auxSolidCube(0.0); }), expectOrigin);
  ExpectEachVertex(Lines([] { auxWireCube(0.0); }), expectOrigin);
  ExpectEachVertex(Triangles([] { auxSolidTorus(0.0, 0.0); }), expectOrigin);
  ExpectEachVertex(Triangles([] { auxSolidIcosahedron(0.0); }), expectOrigin);
  ExpectEachVertex(Lines([] { auxWireDodecahedron(0.0); }), expectOrigin);
  ExpectEachVertex(Triangles([] { auxSolidBox(2.0, 0.0, 4.0); }),
                   [](const Vertex& v) { EXPECT_NEAR(v.y, 0.0, kRounding); });
  ExpectEachVertex(Triangles([] { auxSolidCone(2.0, 0.0); }),
                   [](const Vertex& v) { EXPECT_NEAR(v.z, 0.0, kRounding); });
  // Without a height its sides have no normals.
  EXPECT_TRUE(DrawsNothing([] { auxSolidCylinder(2.0, 0.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxWireCylinder(2.0, 0.0); }));
}

TEST_F(Shapes, NegativeSizesOfRoundShapesDrawNothing) {
  EXPECT_TRUE(DrawsNothing([] { auxSolidSphere(-1.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxWireSphere(-1.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxSolidCylinder(-1.0, 1.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxWireCylinder(1.0, -1.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxSolidCone(1.0, -1.0); }));
  EXPECT_TRUE(DrawsNothing([] { auxWireCone(-1.0, 1.0); }));
}

TEST_F(Shapes, NegativeSizesOfOtherShapesTurnThemInsideOut) {
  // Mirrored in the origin, with the normals that they had before.
  const std::vector<Triangle> cube = Triangles([] { auxSolidCube(-2.0); });
  EXPECT_NEAR(Volume(cube), -8.0, 1e-3);
  EXPECT_EQ(OpenSides(cube), 0U);
  EXPECT_NEAR(Volume(Triangles([] { auxSolidOctahedron(-3.0); })), -36.0, 1e-3);
  for (const LitTriangle& t : LitTriangles([] { auxSolidCube(-2.0); })) ExpectLitAcross(t);
  // The faces of a ring go round as before, only its normals turn.
  ExpectNormals(LitTriangles([] { auxSolidTorus(-1.0, 3.0); }),
                [](const Vertex& v) { return -1.0 * FromTube(v); });
}

TEST_F(Shapes, AreDrawnInTheCurrentColorAndPlace) {
  glColor3d(0.25, 0.5, 0.75);
  for (const Shape shape : kShapes) {
    for (const auto& primitive : orvalix::test::CaptureFeedback([&] { shape(0.5); })) {
      ExpectColor(primitive, 0.25, 0.5, 0.75);
    }
  }
  glTranslated(3.0, 4.0, 5.0);
  ExpectEachVertex(Triangles([] { auxSolidSphere(1.0); }), [](const Vertex& v) {
    EXPECT_NEAR(Length(v - Vertex{3.0, 4.0, 5.0}), 1.0, kRounding);
  });
  // Turned about x before it moves, the cylinder hangs from y = 4 + 1.
  ExpectEachVertex(Triangles([] { auxSolidCylinder(1.0, 2.0); }), [](const Vertex& v) {
    EXPECT_NEAR(std::hypot(v.x - 3.0, v.z - 5.0), 1.0, kRounding);
    EXPECT_GE(v.y, 3.0 - kRounding);
    EXPECT_LE(v.y, 5.0 + kRounding);
  });
}

}  // namespace
