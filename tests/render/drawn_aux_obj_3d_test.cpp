#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "render/shape_fixture.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::Length;
using orvalix::test::Line;
using orvalix::test::OfKind;
using orvalix::test::ShapeTest;
using orvalix::test::ToTranscript;
using orvalix::test::Vertex;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr auto kLine = FeedbackPrimitive::Kind::kLine;
constexpr auto kPolygon = FeedbackPrimitive::Kind::kPolygon;

void ExpectPoint(const point3Dtype& p, const point3Dtype& expected) {
  EXPECT_EQ(p.x, expected.x);
  EXPECT_EQ(p.y, expected.y);
  EXPECT_EQ(p.z, expected.z);
  EXPECT_EQ(p.v, expected.v);
}

void ExpectRGBD(const RGBDType& color, const RGBDType& expected) {
  EXPECT_EQ(color.red, expected.red);
  EXPECT_EQ(color.green, expected.green);
  EXPECT_EQ(color.blue, expected.blue);
  EXPECT_EQ(color.alpha, expected.alpha);
}

/// The world 0 to 1 in a chart that reaches from -0.5 to 0.5, with a wire cube of edge 2 at
/// scale 1.
class DrawnShape : public ShapeTest {
 protected:
  DrawnShape() : transform(&gl, {0, 0, 0, 0}, {1, 1, 1, 0}), shape(&gl, &transform, 2) {
    transform.ChartTransform();
    gl.LoadIdentity();
    shape.SetSolidType(0);
    shape.SetScaleFactor(1.0);
    shape.SetSizeParameters(2.0, 2.0, 2.0);
  }

  std::vector<FeedbackPrimitive> Drawn() {
    return CaptureFeedback([this] { shape.DrawAuxObj(); });
  }
  std::vector<Line> DrawnLines() {
    return Lines([this] { shape.DrawAuxObj(); });
  }
  bool DrawsNoShape() {
    return DrawsNothing([this] { shape.DrawAuxObj(); });
  }

  /// Expects a box about `middle` in the view, with these half sides.
  void ExpectBox(const Vertex& middle, const Vertex& half) {
    ExpectEachVertex(DrawnLines(), [&](const Vertex& v) {
      EXPECT_NEAR(std::abs(v.x - middle.x), half.x, kRounding);
      EXPECT_NEAR(std::abs(v.y - middle.y), half.y, kRounding);
      EXPECT_NEAR(std::abs(v.z - middle.z), half.z, kRounding);
    });
  }

  /// The tip of a cone: all the lines of its last circle are there.
  Vertex ConeTip() {
    Vertex tip{kNotANumber, kNotANumber, kNotANumber};
    for (const Line& line : DrawnLines()) {
      if (Length(line[1] - line[0]) < kRounding) tip = line[0];
    }
    return tip;
  }

  std::array<double, 16> Matrix() const {
    std::array<double, 16> matrix{};
    gl.ReadModelViewMatrix(matrix.data());
    return matrix;
  }

  CTransform3D transform;
  CAuxObj3D shape;
};

TEST_F(DrawnShape, IsBoundWithItsType) {
  EXPECT_EQ(shape.GetAuxObjType(), 2);
  EXPECT_EQ(shape.GetTransformID(), transform.GetTransformID());
  EXPECT_NE(shape.GetTransformID(), 0);
  EXPECT_FALSE(DrawsNoShape());
}

TEST_F(DrawnShape, RefusesWhatIsNotAliveAndKeepsItsBinding) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  auto* notContext = reinterpret_cast<COpenGL*>(untagged.data());
  auto* notTransform = reinterpret_cast<CTransform3D*>(untagged.data());
  for (COpenGL* bad : {static_cast<COpenGL*>(nullptr), notContext}) {
    EXPECT_EQ(Catch([&] { shape.InitAuxObj(bad, &transform); }),
              (CaughtError{16, 0, "InitAuxObj"}));
    EXPECT_EQ(Catch([&] { shape.InitAuxObj(bad, nullptr); }), (CaughtError{16, 0, "InitAuxObj"}));
    EXPECT_EQ(Catch([&] { const CAuxObj3D other(bad, &transform, 1); }),
              (CaughtError{16, 0, "InitAuxObj"}));
  }
  for (CTransform3D* bad : {static_cast<CTransform3D*>(nullptr), notTransform}) {
    EXPECT_EQ(Catch([&] { shape.InitAuxObj(&gl, bad); }), (CaughtError{15, 0, "InitAuxObj"}));
    EXPECT_EQ(Catch([&] { const CAuxObj3D other(&gl, bad, 1); }),
              (CaughtError{15, 0, "InitAuxObj"}));
  }
  EXPECT_EQ(shape.GetTransformID(), transform.GetTransformID());
  EXPECT_FALSE(DrawsNoShape());
}

TEST_F(DrawnShape, MayBeBoundAnew) {
  CTransform3D other(&gl, {0, 0, 0, 0}, {1, 1, 1, 0});
  other.SetOffset({1, 0, 0, 0});
  shape.InitAuxObj(&gl, &other);
  EXPECT_EQ(shape.GetTransformID(), other.GetTransformID());
  EXPECT_EQ(shape.GetAuxObjType(), 2);
  ExpectBox({1, 0, 0}, {1, 1, 1});
}

TEST_F(DrawnShape, UnboundDrawsNothing) {
  CAuxObj3D unbound;
  unbound.SetAuxObjType(2);
  unbound.SetLocation({1, 2, 3, 4});
  ExpectPoint(unbound.GetLocation(), {1, 2, 3, 4});
  ExpectPoint(unbound.GetNormLocation(), {0, 0, 0, 0});
  EXPECT_TRUE(DrawsNothing([&] { unbound.DrawAuxObj(); }));
  unbound.InitAuxObj(&gl, &transform);
  EXPECT_FALSE(DrawsNothing([&] { unbound.DrawAuxObj(); }));
}

TEST_F(DrawnShape, OtherTypesDrawNothing) {
  shape.SetOutlineMode(1);
  for (const int type : {0, 11, -1, std::numeric_limits<int>::max()}) {
    shape.SetAuxObjType(type);
    for (const int solid : {0, 1}) {
      shape.SetSolidType(solid);
      EXPECT_TRUE(DrawsNoShape()) << type;
    }
  }
}

TEST_F(DrawnShape, ADefaultOneIsSmall) {
  CAuxObj3D small(&gl, &transform, CAuxObj3D::kCube);
  // 0.05 x 1, half of it on each side.
  for (const FeedbackPrimitive& primitive : CaptureFeedback([&] { small.DrawAuxObj(); })) {
    EXPECT_EQ(primitive.kind, kPolygon);
    for (const auto& v : primitive.vertices) {
      EXPECT_NEAR(std::abs(Place(v).x), 0.025, kRounding);
      EXPECT_NEAR(std::abs(Place(v).y), 0.025, kRounding);
    }
  }
}

// Where a chart isn't turned, its x runs to the right, y into the depth of the view and z up.
TEST_F(DrawnShape, StandsAtItsNormalisedPlace) {
  shape.SetNormLocation({3, 4, 5, 6});
  ExpectBox({3, 5, -4}, {1, 1, 1});
  shape.SetScaleFactor(0.5);
  ExpectBox({3, 5, -4}, {0.5, 0.5, 0.5});
}

TEST_F(DrawnShape, HasThreeSizes) {
  shape.SetAuxObjType(3);
  shape.SetSizeParameters(1, 2, 6);
  ExpectBox({0, 0, 0}, {0.5, 3, 1});
}

TEST_F(DrawnShape, EachTypeIsDrawn) {
  shape.SetSizeParameters(0.75, 1.5, 2.5);
  shape.SetRotation({20, 30, 40, 0});
  // 15 circles and 16 half circles of 16 lines; each edge of the flat ones twice; 3 circles of 12
  // lines and 12 lines of 2 parts; 11 circles of 15 lines and 15 lines of 10 parts.
  const std::array<std::size_t, 10> lines{496, 24, 24, 480, 60, 60, 24, 12, 60, 315};
  for (int type = 1; type <= 10; ++type) {
    shape.SetAuxObjType(type);
    shape.SetSolidType(0);
    EXPECT_EQ(DrawnLines().size(), lines[static_cast<std::size_t>(type - 1)]) << type;
    shape.SetSolidType(1);
    const auto solid = Drawn();
    EXPECT_FALSE(solid.empty()) << type;
    EXPECT_EQ(OfKind(solid, kPolygon).size(), solid.size()) << type;
  }
}

// A cone of height 4 points along its own z. By itself each turn moves the tip so:
// about x from z to -y, about y from z to x, about z from x to y. The view shows (x, z, -y).
TEST_F(DrawnShape, TurnsAboutZThenYThenX) {
  shape.SetAuxObjType(10);
  shape.SetSizeParameters(1, 4, 0);
  ExpectNear(ConeTip(), {0, 4, 0});
  shape.SetRotation({90, 0, 0, 0});
  ExpectNear(ConeTip(), {0, 0, 4});
  shape.SetRotation({0, 90, 0, 0});
  ExpectNear(ConeTip(), {4, 0, 0});
  shape.SetRotation({0, 0, 90, 0});
  ExpectNear(ConeTip(), {0, 4, 0});
  // About y first, to x, where a turn about x leaves it.
  shape.SetRotation({90, 90, 0, 0});
  ExpectNear(ConeTip(), {4, 0, 0});
  // About z first, which leaves it.
  shape.SetRotation({90, 0, 90, 0});
  ExpectNear(ConeTip(), {0, 0, 4});
  shape.SetRotation({0, 90, 90, 0});
  ExpectNear(ConeTip(), {4, 0, 0});
}

TEST_F(DrawnShape, TurnsWhereItStands) {
  shape.SetAuxObjType(10);
  shape.SetSizeParameters(1, 4, 0);
  shape.SetScaleFactor(0.5);
  shape.SetNormLocation({1, 2, 3, 0});
  shape.SetRotation({0, 90, 0, 0});
  ExpectNear(ConeTip(), {3, 3, -2});
}

TEST_F(DrawnShape, TurnsAndMovesWithTheChart) {
  shape.SetNormLocation({3, 0, 0, 0});
  transform.SetRotate({0, 0, 90, 0});  // x to y, into the depth
  ExpectBox({0, 0, -3}, {1, 1, 1});
  transform.SetOffset({1, 2, 0, 0});
  ExpectBox({1, 0, -5}, {1, 1, 1});
}

TEST_F(DrawnShape, IsNotDistortedByTheScales) {
  transform.SetScale({0, -5, 1, 0}, {100, 5, 1000, 0});
  transform.SetAxisScaleMode(2, 1);
  transform.SetChartRect({0.9, 0.1, 0.4, 0});
  transform.ChartTransform();
  ExpectBox({0, 0, 0}, {1, 1, 1});
}

TEST_F(DrawnShape, FollowsItsWorldPlace) {
  // The world 0 to 1 lies between -0.5 and 0.5.
  shape.SetLocation({0.75, 0.5, 1.0, 9.0});
  ExpectPoint(shape.GetLocation(), {0.75, 0.5, 1.0, 9.0});
  ExpectPoint(shape.GetNormLocation(), {0.25, 0.0, 0.5, 9.0});
  ExpectBox({0.25, 0.5, 0}, {1, 1, 1});
  // Later scales leave it where it is.
  transform.SetScale({0, 0, 0, 0}, {10, 10, 10, 0});
  transform.ChartTransform();
  ExpectPoint(shape.GetNormLocation(), {0.25, 0.0, 0.5, 9.0});
  shape.SetNormLocation({1, 2, 3, 4});
  ExpectPoint(shape.GetLocation(), {0.75, 0.5, 1.0, 9.0});
}

TEST_F(DrawnShape, ItsWorldPlaceTakesTheScaleOfNow) {
  transform.SetScale({0, 0, 0, 0}, {10, 20, 40, 0});
  shape.SetLocation({5, 20, 10, 0});
  ExpectPoint(shape.GetNormLocation(), {0.0, 0.5, -0.25, 0.0});
  // As the chart's own transform leaves it.
  const std::array<double, 16> matrix = Matrix();
  EXPECT_TRUE(std::equal(matrix.begin(), matrix.end(), transform.GetGraphTransform()));
  EXPECT_NEAR(matrix[0], 0.1, 1e-6);  // 10 world units are one of the view
  gl.LoadIdentity();
}

TEST_F(DrawnShape, APlaceInAScaleWithoutExtentIsNone) {
  transform.SetScale({0, 0, 0, 0}, {0, 1, 1, 0});
  shape.SetLocation({0.5, 0.5, 0.5, 0});
  EXPECT_TRUE(DrawsNoShape());
  gl.LoadIdentity();
}

TEST_F(DrawnShape, SolidsHaveItsColorFlatOrLit) {
  shape.SetSolidType(1);
  shape.SetColor({0.25, 0.5, 0.75, 0.0});
  shape.SetRotation({20, 30, 40, 0});
  shape.SetColorMode(0);
  for (const FeedbackPrimitive& primitive : Drawn()) ExpectColor(primitive, 0.25, 0.5, 0.75);
  shape.SetColorMode(1);
  const auto lit = Drawn();
  ASSERT_EQ(lit.size(), 6U);
  EXPECT_TRUE(std::any_of(lit.begin(), lit.end(), [&](const FeedbackPrimitive& face) {
    return face.vertices[0].blue != lit[0].vertices[0].blue;
  }));
}

// Mode 2 is lit as mode 1 is, but sends no colour.
TEST_F(DrawnShape, SolidsOfOtherColorModesHaveTheColorDrawnBefore) {
  shape.SetSolidType(1);
  shape.SetRotation({20, 30, 40, 0});
  const auto drawnIn = [&](const RGBDType& color, int mode) {
    shape.SetColor(color);
    shape.SetColorMode(mode);
    return ToTranscript(Drawn());
  };
  const auto red1 = drawnIn(red, 1);
  const auto green1 = drawnIn(green, 1);
  ASSERT_NE(red1, green1);
  for (const int mode : {2, 3, -1}) {
    SCOPED_TRACE(mode);
    drawnIn(red, 0);
    EXPECT_EQ(drawnIn(green, mode), red1);
    drawnIn(green, 1);
    EXPECT_EQ(drawnIn(red, mode), green1);
  }
}

TEST_F(DrawnShape, SolidsWithoutEdgesHideTheirFarSide) {
  const auto picture = [&] {
    std::vector<unsigned char> rgb(200 * 100 * 3);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    shape.DrawAuxObj();
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, 200, 100, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    return rgb;
  };
  transform.SetRotate({-25, 0, 30, 0});
  shape.SetSolidType(1);
  shape.SetColorMode(1);
  shape.SetScaleFactor(3.0);
  shape.SetSizeParameters(1.0, 1.5, 1.2);
  glCullFace(
      GL_FRONT);  // the projection of these tests doesn't mirror the depth: it is the far side
  for (const int type : {1, 2, 3, 4, 6, 7, 8, 9}) {  // closed ones
    shape.SetAuxObjType(type);
    const auto whole = picture();
    glEnable(GL_CULL_FACE);
    const auto nearSide = picture();
    glDisable(GL_CULL_FACE);
    EXPECT_TRUE(std::any_of(whole.begin(), whole.end(), [](int part) { return part > 0; }));
    EXPECT_TRUE(whole == nearSide) << type;
  }
}

TEST_F(DrawnShape, WiresHaveItsColorAndThicknessNeverLit) {
  shape.SetColor({0.25, 0.5, 0.75, 0.0});
  shape.SetLineThickness(3.0);
  gl.SetLineStyle3D(4, 1.0, red);
  for (const int mode : {0, 1, 2}) {
    shape.SetColorMode(mode);
    const auto drawn = Drawn();
    EXPECT_EQ(OfKind(drawn, kLine).size(), 24U);
    for (const FeedbackPrimitive& primitive : drawn) ExpectColor(primitive, 0.25, 0.5, 0.75);
  }
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 3.0);
  ExpectRGBD(gl.GetLineColor3D(), {0.25, 0.5, 0.75, 0.0});
  GLfloat width = 0.0F;
  glGetFloatv(GL_LINE_WIDTH, &width);
  EXPECT_EQ(width, 3.0F);
  EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), GL_FALSE);
}

// Kept by what is drawn next: each object of a chart sets the colour mode that it needs.
TEST_F(DrawnShape, LeavesItsColorMode) {
  for (const int mode : {0, 1, 2}) {
    for (const int solid : {0, 1}) {
      shape.SetSolidType(solid);
      shape.SetColorMode(mode);
      gl.SetColorMode(mode == 0 ? 1 : 0);
      shape.DrawAuxObj();
      EXPECT_EQ(gl.GetColorMode(), mode) << solid;
    }
  }
}

TEST_F(DrawnShape, SolidsWithEdgesHaveThemInBlackAfterTheFaces) {
  shape.SetSolidType(1);
  shape.SetColorMode(1);
  shape.SetRotation({20, 30, 40, 0});
  shape.SetLineThickness(2.0);
  gl.SetLineStyle3D(4, 1.0, red);
  const std::array<int, 7> types{2, 3, 5, 6, 7, 8, 9};
  const std::array<std::size_t, 7> lines{24, 24, 60, 60, 24, 12, 60};
  for (std::size_t i = 0; i < types.size(); ++i) {
    SCOPED_TRACE(types[i]);
    shape.SetAuxObjType(types[i]);
    shape.SetOutlineMode(0);
    const auto faces = Drawn();
    EXPECT_TRUE(OfKind(faces, kLine).empty());
    shape.SetOutlineMode(-1);  // anything but zero
    auto outlined = Drawn();
    const auto edges = OfKind(outlined, kLine);
    EXPECT_EQ(edges.size(), lines[i]);
    for (const FeedbackPrimitive& edge : edges) ExpectColor(edge, 0, 0, 0);
    ASSERT_EQ(outlined.size(), faces.size() + edges.size());
    outlined.resize(faces.size());
    EXPECT_EQ(ToTranscript(outlined), ToTranscript(faces));
  }
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 2.0);
  ExpectRGBD(gl.GetLineColor3D(), black);
}

TEST_F(DrawnShape, SpheresRingsAndConesHaveNoEdges) {
  shape.SetSolidType(1);
  shape.SetOutlineMode(1);
  shape.SetLineThickness(2.0);
  gl.SetLineStyle3D(4, 1.0, red);
  for (const int type : {1, 4, 10}) {
    shape.SetAuxObjType(type);
    const auto drawn = Drawn();
    EXPECT_FALSE(drawn.empty()) << type;
    EXPECT_TRUE(OfKind(drawn, kLine).empty()) << type;
  }
  EXPECT_EQ(gl.GetLineStyle(), 4);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
  ExpectRGBD(gl.GetLineColor3D(), red);
}

TEST_F(DrawnShape, WiresAreDrawnOnceWhateverTheOutlineMode) {
  shape.SetColor(green);
  const auto plain = Drawn();
  shape.SetOutlineMode(1);
  EXPECT_EQ(ToTranscript(Drawn()), ToTranscript(plain));
}

TEST_F(DrawnShape, LeavesTheMatrixAsItWas) {
  gl.Translate3D(1, 2, 3);
  const std::array<double, 16> before = Matrix();
  for (const int solid : {0, 1}) {
    shape.SetSolidType(solid);
    shape.DrawAuxObj();
    EXPECT_EQ(Matrix(), before);
    EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), 1);
  }
  shape.SetSolidType(0);
  ExpectBox({0, 0, 0}, {1, 1, 1});  // and isn't moved by it
  gl.LoadIdentity();
}

TEST_F(DrawnShape, TheFirstOfAViewFindsTheProjectionsMatrix) {
  glMatrixMode(GL_PROJECTION);
  ExpectBox({0, 0, 0}, {1, 1, 1});
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
  EXPECT_EQ(Integer(GL_PROJECTION_STACK_DEPTH), 1);
  EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), 1);
}

TEST_F(DrawnShape, DrawsNothingWhereThereIsNoPlace) {
  const std::array<double, 16> before = Matrix();
  for (const double bad : {kNotANumber, kInfinity, -kInfinity, 1e39, -1e300}) {
    for (int coordinate = 0; coordinate < 3; ++coordinate) {
      point3Dtype point{0, 0, 0, 0};
      (coordinate == 0 ? point.x : coordinate == 1 ? point.y : point.z) = bad;
      shape.SetNormLocation(point);
      EXPECT_TRUE(DrawsNoShape()) << bad;
      shape.SetNormLocation({0, 0, 0, bad});
      EXPECT_FALSE(DrawsNoShape()) << bad;
      shape.SetRotation(point);
      EXPECT_TRUE(DrawsNoShape()) << bad;
      shape.SetRotation({0, 0, 0, bad});
      EXPECT_FALSE(DrawsNoShape()) << bad;
    }
  }
  EXPECT_EQ(Matrix(), before);
}

TEST_F(DrawnShape, DrawsNothingWithoutAScale) {
  shape.SetOutlineMode(1);
  for (const double bad : {kNotANumber, kInfinity, -kInfinity, 1e39, -1e300}) {
    for (int type = 1; type <= 10; ++type) {
      shape.SetAuxObjType(type);
      for (const int solid : {0, 1}) {
        shape.SetSolidType(solid);
        shape.SetScaleFactor(bad);
        EXPECT_TRUE(DrawsNoShape()) << type << " " << bad;
        shape.SetScaleFactor(1.0);
        shape.SetSizeParameters(bad, bad, bad);
        EXPECT_TRUE(DrawsNoShape()) << type << " " << bad;
        shape.SetSizeParameters(1.0, 1.0, 1.0);
        EXPECT_FALSE(DrawsNoShape()) << type << " " << bad;
      }
    }
  }
}

TEST_F(DrawnShape, MayBeAPointOrMirroredOrTooLarge) {
  shape.SetScaleFactor(0.0);
  ExpectBox({0, 0, 0}, {0, 0, 0});
  shape.SetAuxObjType(10);
  shape.SetSizeParameters(1, 4, 0);
  shape.SetScaleFactor(-0.5);
  ExpectNear(ConeTip(), {0, -2, 0});
  for (const double factor : {1e10, 1e30, 3e38, kInfinity, kNotANumber}) {
    shape.SetScaleFactor(factor);
    shape.SetSizeParameters(factor, factor, factor);
    for (int type = 1; type <= 10; ++type) {
      shape.SetAuxObjType(type);
      for (const int solid : {0, 1}) {
        shape.SetSolidType(solid);
        shape.DrawAuxObj();
        glFinish();
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR}) << type << " " << factor;
      }
    }
  }
}

}  // namespace
