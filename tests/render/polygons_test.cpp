#include <gtest/gtest.h>

#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::OfKind;
using orvalix::test::Vertex;
using Kind = FeedbackPrimitive::Kind;

class Polygons : public orvalix::test::DrawingTest {};

const std::vector<point3Dtype> kTriangle{{-0.5, -0.5, 0, 0}, {0.5, -0.5, 0, 0}, {0, 0.5, 0, 0}};

TEST_F(Polygons, FillsInTheFillColor) {
  gl.SetFillStyle3D(red, green, blue);
  const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(kTriangle.data(), 3); });
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].kind, Kind::kPolygon);
  ExpectVertices(drawn[0], {{-0.5, -0.5, 0}, {0.5, -0.5, 0}, {0, 0.5, 0}});
  ExpectColor(drawn[0], 1, 0, 0);
}

TEST_F(Polygons, AreBlackWithWhiteOutlinesAtFirst) {
  const auto filled = CaptureFeedback([&] { gl.PolyFillAbs3D(kTriangle.data(), 3); });
  ASSERT_EQ(filled.size(), 1U);
  ExpectColor(filled[0], 0, 0, 0);
  const auto outline = CaptureFeedback([&] { gl.Frame3D(kTriangle.data(), 3); });
  ASSERT_EQ(outline.size(), 2U);
  for (const auto& line : outline) ExpectColor(line, 1, 1, 1);
}

TEST_F(Polygons, ReturnToTheFillColor) {
  gl.SetFillStyle3D(red, green, blue);
  gl.SetLineColor3D(green);
  gl.LineAbs3D({0, 0, 0, 0}, {1, 0, 0, 0});
  gl.SetPolygonOutlineMode(1);
  for (int time = 0; time < 2; ++time) {  // after a line, and after an outline
    const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(kTriangle.data(), 3); });
    ASSERT_EQ(drawn.size(), 3U);
    ExpectColor(drawn[0], 1, 0, 0);
  }
}

TEST_F(Polygons, AreFilledWhateverTheModeWas) {
  glPolygonMode(GL_FRONT, GL_LINE);
  const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(kTriangle.data(), 3); });
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].kind, Kind::kPolygon);
}

TEST_F(Polygons, OutlineModeDrawsTheFrameBehindThem) {
  gl.SetFillStyle3D(red, green, blue);
  gl.SetPolygonOutlineMode(1);
  const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(kTriangle.data(), 3); });
  ASSERT_EQ(drawn.size(), 3U);  // two lines: the frame of three points is open
  EXPECT_EQ(drawn[0].kind, Kind::kPolygon);
  EXPECT_EQ(drawn[1].kind, Kind::kLine);
  ExpectColor(drawn[1], 0, 0, 1);
}

TEST_F(Polygons, AreasDoNotCoverTheirOutlines) {
  // A steep area, where lines and filled area differ in depth by rounding alone.
  const std::vector<point3Dtype> steep{{-0.5, -0.5, -0.9, 0},
                                       {0.5, -0.5, -0.4, 0},
                                       {0.5, 0.5, 0.9, 0},
                                       {-0.5, 0.5, 0.4, 0},
                                       {-0.5, -0.5, -0.9, 0}};
  gl.SetClearColor(1, 1, 1, 1);
  gl.Clear(0x4100);
  gl.SetFillStyle3D(red, black, blue);
  gl.SetPolygonOutlineMode(1);
  gl.PolyFillAbs3D(steep.data(), 5);
  EXPECT_FALSE(glIsEnabled(GL_POLYGON_OFFSET_FILL));
  gl.UpdateBitmap(200, 100);
  // The upright edges stand at the columns 50 and 150.
  for (int y = 27; y < 73; ++y) {
    const auto* row = static_cast<const unsigned char*>(target.dib->FindDIBBits()) +
                      static_cast<std::ptrdiff_t>(y) * target.dib->StorageWidth();
    for (const std::ptrdiff_t edge : {50, 150}) {
      const bool isOutlined = row[(edge - 1) * 4] == 255 && row[(edge - 1) * 4 + 2] == 0;
      const bool isOutlinedNext = row[edge * 4] == 255 && row[edge * 4 + 2] == 0;
      EXPECT_TRUE(isOutlined || isOutlinedNext) << "row " << y << ", column " << edge;
    }
  }
}

TEST_F(Polygons, SendOneUnnormalisedNormal) {
  // a = p0 - p1 = (-1, 0, 0), b = p1 - p2 = (0.5, -1, 0): a x b = (0, 0, 1 - 0).
  gl.PolyFillAbs3D(kTriangle.data(), 3);
  std::array<float, 3> normal{};
  glGetFloatv(GL_CURRENT_NORMAL, normal.data());
  EXPECT_EQ(normal, (std::array<float, 3>{0, 0, 1}));
  const std::vector<point3Dtype> twice{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 0, 0.5, 0}};
  // a = (-1, 0, 0), b = (0, 0, -0.5): a x b = (0, 0 * 0 - (-1)(-0.5), 0) = (0, -0.5, 0).
  gl.PolyFillAbs3D(twice.data(), 3);
  glGetFloatv(GL_CURRENT_NORMAL, normal.data());
  EXPECT_EQ(normal, (std::array<float, 3>{0, -0.5, 0}));
}

TEST_F(Polygons, AreLitByTheirNormal) {
  gl.LoadIdentity();
  gl.SetLightPosition({0, 0, 1, 0});  // from above: OpenGL's +y
  for (const int light : {GL_POSITION, GL_DIFFUSE}) gl.LoadLight(light);
  gl.SetLightComponent(12345, SetRGBD(0.25, 0.25, 0.25, 1));
  gl.SetLightComponent(GL_AMBIENT, SetRGBD(0, 0, 0, 1));
  gl.LoadLight(GL_AMBIENT);
  gl.SetColorMode(1);
  gl.SetFillStyle3D(SetRGBD(0.5, 0.5, 0.5, 1), black, black);
  // Seen from above counterclockwise: normal +y. Lit: 0.5 * (0.25 + 1).
  const std::vector<point3Dtype> up{{0, 0, 0, 0}, {0.5, 0, -0.5, 0}, {0, 0, -0.5, 0}};
  const auto lit = CaptureFeedback([&] { gl.PolyFillAbs3D(up.data(), 3); });
  ASSERT_EQ(lit.size(), 1U);
  EXPECT_NEAR(lit[0].vertices[0].red, 0.625, 1e-5);
  // Turned over it has the ambient light alone: 0.5 * 0.25.
  const std::vector<point3Dtype> down(up.rbegin(), up.rend());
  const auto dark = CaptureFeedback([&] { gl.PolyFillAbs3D(down.data(), 3); });
  ASSERT_EQ(dark.size(), 1U);
  EXPECT_NEAR(dark[0].vertices[0].red, 0.125, 1e-5);
}

TEST_F(Polygons, FewerThanThreePointsDrawNothingAndReadNothingElse) {
  const std::vector<point3Dtype> one{{0, 0, 0, 0}};
  const std::vector<point3Dtype> two{{0, 0, 0, 0}, {0.5, 0, 0, 0}};
  EXPECT_TRUE(CaptureFeedback([&] {
                gl.PolyFillAbs3D(one.data(), 1);
                gl.PolyFillAbs3D(two.data(), 2);
                gl.PolyFillAbs3D(two.data(), 0);
                gl.PolyFillAbs3D(two.data(), -5);
                gl.PolyFillAbs3D(nullptr, 3);
                gl.PolyAbs3D(nullptr, 3);
                gl.PolyAbs3D(two.data(), -5);
                gl.Frame3D(nullptr, 3);
                gl.Frame3D(two.data(), -5);
              }).empty());
}

TEST_F(Polygons, SimpleZPlaneIsACentredRectangleThatFacesUp) {
  gl.SetPolygonOutlineMode(1);
  const auto drawn = CaptureFeedback([&] { gl.DrawSimpleZPlane(1.0, 0.5, 77.0, red, blue); });
  ASSERT_EQ(drawn.size(), 5U);
  ExpectVertices(
      drawn[0],
      {{-0.5, -0.25, 0}, {0.5, -0.25, 0}, {0.5, 0.25, 0}, {-0.5, 0.25, 0}, {-0.5, -0.25, 0}});
  ExpectColor(drawn[0], 1, 0, 0);
  ExpectColor(drawn[4], 0, 0, 1);
  std::array<float, 3> normal{};
  glGetFloatv(GL_CURRENT_NORMAL, normal.data());
  EXPECT_GT(normal[2], 0.0F);
}

// Corners: 0 (-,-), 1 (-,+), 2 (+,+), 3 (+,-) at the bottom, 4 to 7 above them.
const std::vector<point3Dtype> kCorners{
    {-0.5, -0.25, -0.75, 0}, {-0.5, 0.25, -0.75, 0}, {0.5, 0.25, -0.75, 0}, {0.5, -0.25, -0.75, 0},
    {-0.5, -0.25, 0.75, 0},  {-0.5, 0.25, 0.75, 0},  {0.5, 0.25, 0.75, 0},  {0.5, -0.25, 0.75, 0}};

const std::array<std::array<std::size_t, 4>, 6> kFacesInOrder{
    {{0, 3, 7, 4}, {1, 5, 6, 2}, {0, 4, 5, 1}, {3, 2, 6, 7}, {0, 1, 2, 3}, {4, 7, 6, 5}}};
constexpr std::array<std::size_t, 6> kFlagsInOrder{0, 5, 1, 2, 3, 4};

std::vector<Vertex> FaceOf(const std::vector<point3Dtype>& corners, std::size_t face,
                           std::size_t offset = 0) {
  std::vector<Vertex> vertices;
  for (std::size_t i = 0; i < 5; ++i) {
    const point3Dtype& corner = corners[offset + kFacesInOrder[face][i % 4]];
    vertices.push_back({corner.x, corner.y, corner.z});
  }
  return vertices;
}

TEST_F(Polygons, SolidsDrawTheirFacesInOrder) {
  const std::array<int, 6> all{1, 1, 1, 1, 1, 1};
  const auto drawn =
      CaptureFeedback([&] { gl.DrawSolidObject3D(kCorners.data(), red, blue, all.data()); });
  ASSERT_EQ(drawn.size(), 6U);
  for (std::size_t face = 0; face < 6; ++face) {
    SCOPED_TRACE(face);
    ExpectVertices(drawn[face], FaceOf(kCorners, face));
    ExpectColor(drawn[face], 1, 0, 0);
  }
}

TEST_F(Polygons, FaceFlagsChooseTheFaces) {
  for (std::size_t face = 0; face < 6; ++face) {
    SCOPED_TRACE(face);
    std::array<int, 6> flags{};
    flags[kFlagsInOrder[face]] = -3;  // anything but 0
    const auto drawn =
        CaptureFeedback([&] { gl.DrawSolidObject3D(kCorners.data(), red, blue, flags.data()); });
    ASSERT_EQ(drawn.size(), 1U);
    ExpectVertices(drawn[0], FaceOf(kCorners, face));
  }
}

TEST_F(Polygons, SolidsOutlineEachFaceInTheOutlineColor) {
  const std::array<int, 6> all{1, 1, 1, 1, 1, 1};
  gl.SetPolygonOutlineMode(1);
  const auto drawn =
      CaptureFeedback([&] { gl.DrawSolidObject3D(kCorners.data(), red, blue, all.data()); });
  EXPECT_EQ(OfKind(drawn, Kind::kPolygon).size(), 6U);
  const auto lines = OfKind(drawn, Kind::kLine);
  ASSERT_EQ(lines.size(), 24U);  // four closed sides for each of six faces
  for (const auto& line : lines) ExpectColor(line, 0, 0, 1);
}

TEST_F(Polygons, ComplexObjectsShareQuadrilaterals) {
  std::vector<point3Dtype> points = kCorners;
  for (std::size_t i = 0; i < 4; ++i) {
    points.push_back({kCorners[i].x * 0.5, kCorners[i].y * 0.5, 0.9, 0});
  }
  const auto drawn = CaptureFeedback([&] { gl.DrawComplexObject3D(points.data(), 2, red, blue); });
  ASSERT_EQ(drawn.size(), 12U);
  for (std::size_t face = 0; face < 6; ++face) {
    ExpectVertices(drawn[face], FaceOf(points, face));
    ExpectVertices(drawn[6 + face], FaceOf(points, face, 4));
  }
  EXPECT_TRUE(CaptureFeedback([&] {
                gl.DrawComplexObject3D(points.data(), 0, red, blue);
                gl.DrawComplexObject3D(points.data(), -1, red, blue);
                gl.DrawComplexObject3D(nullptr, 1, red, blue);
                gl.DrawSolidObject3D(nullptr, red, blue, nullptr);
                gl.DrawSolidObject3D(points.data(), red, blue, nullptr);
              }).empty());
}

}  // namespace
