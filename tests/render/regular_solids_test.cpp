#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "orvalix/foundation/matrix_stack.h"
#include "orvalix/render/shapes.h"
#include "render/shape_fixture.h"
#include "support/reported_errors.h"

namespace {

using orvalix::test::Dot;
using orvalix::test::Length;
using orvalix::test::LitTriangle;
using orvalix::test::ReportedErrors;
using orvalix::test::ShapeTest;
using orvalix::test::Triangle;
using orvalix::test::Vertex;

using Counts = std::map<int, std::size_t>;

/// An entry of the matrix stack for one block.
class Entry {
 public:
  Entry() { m_pushmatrix(); }
  ~Entry() { m_popmatrix(); }
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;
};

struct RegularSolid {
  const char* name;
  void (*solid)(double radius);
  void (*wire)(double radius);
  std::size_t faces;
  std::size_t corners;   ///< of a face
  std::size_t vertices;  ///< all of them
  std::size_t edges;
  double radius;  ///< of a solid that was told 1
  double edge;    ///< length for a radius of 1
  double volume;  ///< of an edge of 1
};

/// The closed formulas of each solid. sqrt(5) stands in the golden ones.
const std::array<RegularSolid, 4> kSolids{
    {{"tetrahedron", auxSolidTetrahedron, auxWireTetrahedron, 4, 3, 4, 6, 1.0, std::sqrt(8.0 / 3.0),
      1.0 / std::sqrt(72.0)},
     {"octahedron", auxSolidOctahedron, auxWireOctahedron, 8, 3, 6, 12, 1.0, std::sqrt(2.0),
      std::sqrt(2.0) / 3.0},
     {"dodecahedron", auxSolidDodecahedron, auxWireDodecahedron, 12, 5, 20, 30, 1.0 / 1.73,
      4.0 / (std::sqrt(3.0) * (1.0 + std::sqrt(5.0))), (15.0 + 7.0 * std::sqrt(5.0)) / 4.0},
     {"icosahedron", auxSolidIcosahedron, auxWireIcosahedron, 20, 3, 12, 30, 1.0,
      4.0 / std::sqrt(10.0 + 2.0 * std::sqrt(5.0)), 5.0 * (3.0 + std::sqrt(5.0)) / 12.0}}};

/// No test may leave anything on the matrix stack, or an error that wasn't looked at.
class RegularSolids : public ShapeTest {
 protected:
  void TearDown() override {
    EXPECT_EQ(errors.Take(), std::vector<std::string>());
    m_popmatrix();
    EXPECT_EQ(errors.Take().size(), 1U);
  }

  ReportedErrors errors;
};

TEST_F(RegularSolids, HaveTheirFacesAndVertices) {
  for (const RegularSolid& shape : kSolids) {
    SCOPED_TRACE(shape.name);
    const std::vector<Triangle> triangles = Triangles([&] { shape.solid(4.0); });
    EXPECT_EQ(triangles.size(), shape.faces * (shape.corners - 2));
    EXPECT_EQ(Places(triangles), shape.vertices);
    ExpectEachVertex(
        triangles, [&](const Vertex& v) { EXPECT_NEAR(Length(v), 4.0 * shape.radius, kRounding); });
  }
}

TEST_F(RegularSolids, AreClosedAndTurnOutwards) {
  for (const RegularSolid& shape : kSolids) {
    SCOPED_TRACE(shape.name);
    const std::vector<Triangle> triangles = Triangles([&] { shape.solid(4.0); });
    EXPECT_EQ(OpenSides(triangles), 0U);
    const double edge = 4.0 * shape.radius * shape.edge;
    EXPECT_NEAR(Volume(triangles), shape.volume * edge * edge * edge, 1e-3);
  }
}

TEST_F(RegularSolids, AreFlatAndLitFromOutside) {
  for (const RegularSolid& shape : kSolids) {
    SCOPED_TRACE(shape.name);
    const std::vector<LitTriangle> triangles = LitTriangles([&] { shape.solid(4.0); });
    ASSERT_FALSE(triangles.empty());
    for (const LitTriangle& t : triangles) {
      ExpectLitAcross(t);
      EXPECT_GT(Dot(t[0].at, t[0].normal), 0.0);
    }
  }
}

TEST_F(RegularSolids, WiresDrawEachEdgeWithBothFaces) {
  for (const RegularSolid& shape : kSolids) {
    SCOPED_TRACE(shape.name);
    const auto lines = Lines([&] { shape.wire(4.0); });
    EXPECT_EQ(lines.size(), shape.faces * shape.corners);
    EXPECT_EQ(TimesDrawn(lines), (Counts{{2, shape.edges}}));
    for (const auto& line : lines) {
      EXPECT_NEAR(Length(line[1] - line[0]), 4.0 * shape.radius * shape.edge, 2.0 * kRounding);
      EXPECT_NEAR(Length(line[0]), 4.0 * shape.radius, kRounding);
    }
  }
}

TEST_F(RegularSolids, TheDodecahedronIsSmallerThanToldByARoundedRootOfThree) {
  ExpectEachVertex(Triangles([] { auxSolidDodecahedron(3.46); }),
                   [](const Vertex& v) { EXPECT_NEAR(Length(v), 2.0, kRounding); });
}

TEST_F(RegularSolids, TheMatrixStackMovesAndScalesThem) {
  for (const RegularSolid& shape : kSolids) {
    SCOPED_TRACE(shape.name);
    const double radius = 2.0 * shape.radius;
    const Entry entry;
    m_translate(1.0, -2.0, 3.0);
    m_scale(2.0, 1.0, 0.5);
    const auto check = [&](const Vertex& v) {
      EXPECT_NEAR(Length({(v.x - 1.0) / 2.0, v.y + 2.0, (v.z - 3.0) / 0.5}), radius, 2 * kRounding);
    };
    const std::vector<Triangle> triangles = Triangles([&] { shape.solid(2.0); });
    ExpectEachVertex(triangles, check);
    EXPECT_EQ(OpenSides(triangles), 0U);
    const double edge = radius * shape.edge;
    EXPECT_NEAR(Volume(triangles), shape.volume * edge * edge * edge, 1e-3);  // 2 x 1 x 0.5 = 1
    ExpectEachVertex(Lines([&] { shape.wire(2.0); }), check);
    // Scaled unevenly, faces are still lit at right angles.
    for (const LitTriangle& t : LitTriangles([&] { shape.solid(2.0); })) ExpectLitAcross(t);
  }
}

TEST_F(RegularSolids, TheMatrixStackLeavesOtherShapesAlone) {
  const Entry entry;
  m_translate(1.0, 2.0, 3.0);
  m_scale(3.0, 3.0, 3.0);
  ExpectEachVertex(Triangles([] { auxSolidSphere(1.0); }),
                   [](const Vertex& v) { EXPECT_NEAR(Length(v), 1.0, kRounding); });
  ExpectEachVertex(Triangles([] { auxSolidCube(2.0); }),
                   [](const Vertex& v) { EXPECT_NEAR(Length(v), std::sqrt(3.0), kRounding); });
}

TEST_F(RegularSolids, WhatTheMatrixStackMovesOutOfAllPlacesIsNotDrawn) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const RegularSolid& shape : kSolids) {
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e39, 1e200, -1e300}) {
      for (const bool moved : {true, false}) {
        const Entry entry;
        if (moved) {
          m_translate(bad, 0.0, 0.0);
        } else {
          m_scale(bad, 1.0, 1.0);
        }
        EXPECT_TRUE(DrawsNothing([&] { shape.solid(1.0); })) << shape.name << " " << bad;
        EXPECT_TRUE(DrawsNothing([&] { shape.wire(1.0); })) << shape.name << " " << bad;
      }
    }
  }
}

TEST_F(RegularSolids, WithoutThicknessTheyAreFlat) {
  gl.SetColorMode(1);
  for (const RegularSolid& shape : kSolids) {
    const Entry entry;
    m_scale(1.0, 0.0, 1.0);
    ExpectEachVertex(Triangles([&] { shape.solid(4.0); }),
                     [](const Vertex& v) { EXPECT_NEAR(v.y, 0.0, kRounding); });
  }
}

}  // namespace
