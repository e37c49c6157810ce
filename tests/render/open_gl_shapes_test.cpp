#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <vector>

#include "orvalix/render/shapes.h"
#include "render/shape_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::ShapeTest;
using orvalix::test::ToTranscript;

using Shape = void (*)(point3Dtype const& size);

struct Row {
  int type;
  Shape solid;
  Shape wire;
};

constexpr std::array<Row, 10> kRows{{
    {1, [](auto const& s) { auxSolidSphere(s.x); }, [](auto const& s) { auxWireSphere(s.x); }},
    {2, [](auto const& s) { auxSolidCube(s.x); }, [](auto const& s) { auxWireCube(s.x); }},
    {3, [](auto const& s) { auxSolidBox(s.x, s.y, s.z); },
     [](auto const& s) { auxWireBox(s.x, s.y, s.z); }},
    {4, [](auto const& s) { auxSolidTorus(s.x, s.y); },
     [](auto const& s) { auxWireTorus(s.x, s.y); }},
    {5, [](auto const& s) { auxSolidCylinder(s.x, s.y); },
     [](auto const& s) { auxWireCylinder(s.x, s.y); }},
    {6, [](auto const& s) { auxSolidIcosahedron(s.x); },
     [](auto const& s) { auxWireIcosahedron(s.x); }},
    {7, [](auto const& s) { auxSolidOctahedron(s.x); },
     [](auto const& s) { auxWireOctahedron(s.x); }},
    {8, [](auto const& s) { auxSolidTetrahedron(s.x); },
     [](auto const& s) { auxWireTetrahedron(s.x); }},
    {9, [](auto const& s) { auxSolidDodecahedron(s.x); },
     [](auto const& s) { auxWireDodecahedron(s.x); }},
    {10, [](auto const& s) { auxSolidCone(s.x, s.y); },
     [](auto const& s) { auxWireCone(s.x, s.y); }},
}};

class OpenGLShapes : public ShapeTest {
 protected:
  /// Turned, so that no face is seen from its edge: the depth of those is lost with the offset that
  /// faces are drawn with.
  OpenGLShapes() {
    glRotated(30.0, 3.0, 2.0, 1.0);
    gl.SetFillStyle3D(red, green, blue);
    gl.SetLineStyle3D(0, 1.0, SetRGBD(0.25, 0.5, 0.75, 1.0));
  }

  std::vector<FeedbackPrimitive> Drawn(int type, int solid) {
    return CaptureFeedback([&] { gl.DrawAuxObject(type, solid, size); });
  }

  /// Lit from a light that the test doesn't set, so that only its colours tell that there is one.
  static bool IsLit(const std::vector<FeedbackPrimitive>& drawn) {
    const auto& first = drawn.at(0).vertices.at(0);
    return std::any_of(drawn.begin(), drawn.end(), [&](const FeedbackPrimitive& primitive) {
      return primitive.vertices.at(0).red != first.red;
    });
  }

  const point3Dtype size{1.0, 2.5, 0.5, 9.0};
};

TEST_F(OpenGLShapes, EachTypeIsAShapeWithItsSizes) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.type);
    glColor3d(1.0, 0.0, 0.0);
    const auto solid = CaptureFeedback([&] { row.solid(size); });
    ASSERT_FALSE(solid.empty());
    glColor3d(0.0, 0.0, 0.0);
    EXPECT_EQ(ToTranscript(Drawn(row.type, 1)), ToTranscript(solid));
    glColor3d(0.25, 0.5, 0.75);
    const auto wire = CaptureFeedback([&] { row.wire(size); });
    ASSERT_FALSE(wire.empty());
    glColor3d(0.0, 0.0, 0.0);
    EXPECT_EQ(ToTranscript(Drawn(row.type, 0)), ToTranscript(wire));
  }
}

TEST_F(OpenGLShapes, AnythingButZeroIsSolid) {
  for (const int solid : {-1, 2, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(ToTranscript(Drawn(3, solid)), ToTranscript(Drawn(3, 1))) << solid;
  }
}

TEST_F(OpenGLShapes, OtherTypesDrawNothing) {
  for (const int type :
       {0, -1, 11, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_TRUE(Drawn(type, 1).empty()) << type;
    EXPECT_TRUE(Drawn(type, 0).empty()) << type;
  }
}

TEST_F(OpenGLShapes, SolidsHaveTheFillColorLitOrFlat) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.type);
    gl.SetColorMode(0);
    for (const FeedbackPrimitive& primitive : Drawn(row.type, 1)) ExpectColor(primitive, 1, 0, 0);
    gl.SetColorMode(1);
    EXPECT_TRUE(IsLit(Drawn(row.type, 1)));
  }
}

TEST_F(OpenGLShapes, WiresHaveTheLineColorNeverLit) {
  for (const int mode : {0, 1, 2}) {
    gl.SetColorMode(mode);
    for (const Row& row : kRows) {
      SCOPED_TRACE(row.type);
      for (const FeedbackPrimitive& primitive : Drawn(row.type, 0)) {
        ExpectColor(primitive, 0.25, 0.5, 0.75);
      }
    }
  }
}

TEST_F(OpenGLShapes, LeavesTheColorModeAsItWas) {
  for (const int mode : {0, 1, 2}) {
    for (int type = 0; type <= 11; ++type) {
      for (const int solid : {0, 1}) {
        gl.SetColorMode(mode);
        gl.DrawAuxObject(type, solid, size);
        EXPECT_EQ(gl.GetColorMode(), mode) << type << " " << solid;
        EXPECT_EQ(glIsEnabled(GL_LIGHTING), mode != 0 ? GL_TRUE : GL_FALSE);
        EXPECT_EQ(glIsEnabled(GL_POLYGON_OFFSET_FILL), GL_FALSE);
      }
    }
  }
}

TEST_F(OpenGLShapes, WiresHaveTheLineWidthAndSolidsLeaveIt) {
  const auto width = [] {
    GLfloat value = 0.0F;
    glGetFloatv(GL_LINE_WIDTH, &value);
    return value;
  };
  gl.SetLineWidth3D(3.0);
  gl.DrawAuxObject(2, 1, size);
  EXPECT_EQ(width(), 1.0F);
  gl.DrawAuxObject(2, 0, size);
  EXPECT_EQ(width(), 3.0F);
  for (const double bad : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    gl.SetLineWidth3D(bad);
    gl.DrawAuxObject(2, 0, size);
    EXPECT_EQ(width(), 3.0F) << bad;
  }
}

TEST_F(OpenGLShapes, SizesThatCannotBePlacedDrawNothing) {
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity(), -1e300}) {
    for (const Row& row : kRows) {
      for (const int solid : {0, 1}) {
        EXPECT_TRUE(DrawsNothing([&] {
          gl.DrawAuxObject(row.type, solid, {bad, bad, bad, 0});
        })) << row.type;
      }
    }
    // Sizes that a shape doesn't have don't matter to it.
    EXPECT_FALSE(DrawsNothing([&] { gl.DrawAuxObject(1, 1, {1, bad, bad, bad}); }));
    EXPECT_FALSE(DrawsNothing([&] { gl.DrawAuxObject(5, 1, {1, 1, bad, bad}); }));
  }
}

}  // namespace
