#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::OfKind;
using orvalix::test::Vertex;

/// The four corners of a horizontal rectangle in the order of solids.
struct Rectangle {
  double x0, y0, x1, y1, z;
};

class Markers : public orvalix::test::DrawingTest {
 protected:
  /// Expects solids stacked on these rectangles, each with its six faces in order.
  static void ExpectStack(const std::vector<FeedbackPrimitive>& drawn, std::size_t first,
                          const std::vector<Rectangle>& rectangles) {
    constexpr std::array<std::array<std::size_t, 4>, 6> kFaces{
        {{0, 3, 7, 4}, {1, 5, 6, 2}, {0, 4, 5, 1}, {3, 2, 6, 7}, {0, 1, 2, 3}, {4, 7, 6, 5}}};
    std::vector<Vertex> corners;
    for (const Rectangle& r : rectangles) {
      corners.insert(corners.end(),
                     {{r.x0, r.y0, r.z}, {r.x0, r.y1, r.z}, {r.x1, r.y1, r.z}, {r.x1, r.y0, r.z}});
    }
    for (std::size_t solid = 0; solid + 1 < rectangles.size(); ++solid) {
      for (std::size_t face = 0; face < kFaces.size(); ++face) {
        SCOPED_TRACE(::testing::Message() << "solid " << solid << ", face " << face);
        std::vector<Vertex> expected;
        for (std::size_t i = 0; i < 5; ++i) {
          expected.push_back(corners[4 * solid + kFaces[face][i % 4]]);
        }
        ASSERT_LT(first + 6 * solid + face, drawn.size());
        ExpectVertices(drawn[first + 6 * solid + face], expected);
      }
    }
  }

  /// A rectangle of width w and depth d, centred on the z axis.
  static Rectangle Centred(double w, double d, double z) {
    return {-w / 2.0, -d / 2.0, w / 2.0, d / 2.0, z};
  }
};

constexpr double kW = 0.8;
constexpr double kD = 0.4;
constexpr double kH = 1.2;

TEST_F(Markers, PrismsSpanFromTheirCorner) {
  const auto drawn =
      CaptureFeedback([&] { gl.DrawPrism3D(-0.5, -0.25, -0.5, 0.75, 0.5, 1.0, red, blue); });
  ASSERT_EQ(drawn.size(), 6U);
  ExpectStack(drawn, 0, {{-0.5, -0.25, 0.25, 0.25, -0.5}, {-0.5, -0.25, 0.25, 0.25, 0.5}});
  for (const auto& face : drawn) ExpectColor(face, 1, 0, 0);
}

TEST_F(Markers, PrismsMayHaveNegativeExtents) {
  const auto drawn =
      CaptureFeedback([&] { gl.DrawPrism3D(0.5, 0.25, 0.5, -0.75, -0.5, -1.0, red, blue); });
  ASSERT_EQ(drawn.size(), 6U);
  ExpectStack(drawn, 0, {{0.5, 0.25, -0.25, -0.25, 0.5}, {0.5, 0.25, -0.25, -0.25, -0.5}});
}

TEST_F(Markers, CubesAreCentred) {
  // The whole view volume: a box from -1 to 1.
  const auto drawn = CaptureFeedback([&] { gl.DrawCube(2.0, red, blue); });
  ASSERT_EQ(drawn.size(), 6U);
  ExpectStack(drawn, 0, {Centred(2, 2, -1), Centred(2, 2, 1)});
}

TEST_F(Markers, CubeSolidsTakeFaceFlags) {
  const std::array<int, 6> flags{0, 1, 0, 0, 1, 0};
  const auto drawn =
      CaptureFeedback([&] { gl.DrawCubeSolidObject3D(kW, kD, kH, red, blue, flags.data()); });
  ASSERT_EQ(drawn.size(), 2U);
  // Flag 1, the face at -x (corners 0, 4, 5, 1), then flag 4, the top (4, 7, 6, 5).
  ExpectVertices(drawn[0], {{-0.4, -0.2, -0.6},
                            {-0.4, -0.2, 0.6},
                            {-0.4, 0.2, 0.6},
                            {-0.4, 0.2, -0.6},
                            {-0.4, -0.2, -0.6}});
  ExpectVertices(
      drawn[1],
      {{-0.4, -0.2, 0.6}, {0.4, -0.2, 0.6}, {0.4, 0.2, 0.6}, {-0.4, 0.2, 0.6}, {-0.4, -0.2, 0.6}});
}

TEST_F(Markers, PyramidsEndInAnApex) {
  const auto drawn = CaptureFeedback([&] { gl.DrawPyramidSolidObject3D(kW, kD, kH, red, blue); });
  ASSERT_EQ(drawn.size(), 6U);
  ExpectStack(drawn, 0, {Centred(kW, kD, -0.6), Centred(0, 0, 0.6)});
}

TEST_F(Markers, DiamondsAreTwoPyramids) {
  const auto drawn = CaptureFeedback([&] { gl.DrawDiamondSolidObject3D(kW, kD, kH, red, blue); });
  ASSERT_EQ(drawn.size(), 12U);
  ExpectStack(drawn, 0, {Centred(0, 0, -0.6), Centred(kW, kD, 0), Centred(0, 0, 0.6)});
}

TEST_F(Markers, HourglassesHaveAWaist) {
  const auto drawn = CaptureFeedback([&] { gl.DrawHourglassSolidObject3D(kW, kD, kH, red, blue); });
  ASSERT_EQ(drawn.size(), 12U);
  ExpectStack(drawn, 0, {Centred(kW, kD, -0.6), Centred(kW / 2, kD / 2, 0), Centred(kW, kD, 0.6)});
}

TEST_F(Markers, PlusesAreAColumnThroughASlab) {
  const auto drawn = CaptureFeedback([&] { gl.DrawPlusSolidObject3D(kW, kD, kH, red, blue); });
  ASSERT_EQ(drawn.size(), 12U);
  // The column from -w/4 to w/4 over the whole height, the slab from -h/4 to h/4.
  ExpectStack(drawn, 0, {{-0.2, -0.1, 0.2, 0.1, -0.6}, {-0.2, -0.1, 0.2, 0.1, 0.6}});
  ExpectStack(drawn, 6, {{-0.4, -0.2, 0.4, 0.2, -0.3}, {-0.4, -0.2, 0.4, 0.2, 0.3}});
}

TEST_F(Markers, ArrowsEndAtAQuarterOfTheirHeight) {
  const auto drawn = CaptureFeedback([&] { gl.DrawArrowSolidObject3D(kW, kD, kH, red, blue); });
  ASSERT_EQ(drawn.size(), 12U);
  ExpectStack(drawn, 0, {{-0.2, -0.1, 0.2, 0.1, -0.6}, {-0.2, -0.1, 0.2, 0.1, 0.0}});
  // The ridge along y: from -d/4 to d/4 at z = h/4.
  ExpectStack(drawn, 6, {{-0.4, -0.2, 0.4, 0.2, 0.0}, {0.0, -0.1, 0.0, 0.1, 0.3}});
}

TEST_F(Markers, AreFilledAndOutlinedInTheirColors) {
  const std::array<int, 6> all{1, 1, 1, 1, 1, 1};
  const std::vector<point3Dtype> corners{
      {-0.5, -0.5, -0.5, 0}, {-0.5, 0.5, -0.5, 0}, {0.5, 0.5, -0.5, 0}, {0.5, -0.5, -0.5, 0},
      {-0.5, -0.5, 0.5, 0},  {-0.5, 0.5, 0.5, 0},  {0.5, 0.5, 0.5, 0},  {0.5, -0.5, 0.5, 0}};
  // What draws, and how many solids of six faces it is made of.
  const std::vector<std::pair<std::function<void()>, std::size_t>> shapes{
      {[&] { gl.DrawPrism3D(-0.5, -0.5, -0.5, 1, 1, 1, red, blue); }, 1},
      {[&] { gl.DrawComplexObject3D(corners.data(), 1, red, blue); }, 1},
      {[&] { gl.DrawCube(0.5, red, blue); }, 1},
      {[&] { gl.DrawCubeSolidObject3D(kW, kD, kH, red, blue, all.data()); }, 1},
      {[&] { gl.DrawPyramidSolidObject3D(kW, kD, kH, red, blue); }, 1},
      {[&] { gl.DrawDiamondSolidObject3D(kW, kD, kH, red, blue); }, 2},
      {[&] { gl.DrawHourglassSolidObject3D(kW, kD, kH, red, blue); }, 2},
      {[&] { gl.DrawPlusSolidObject3D(kW, kD, kH, red, blue); }, 2},
      {[&] { gl.DrawArrowSolidObject3D(kW, kD, kH, red, blue); }, 2}};
  gl.SetPolygonOutlineMode(1);
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    SCOPED_TRACE(i);
    const auto drawn = CaptureFeedback(shapes[i].first);
    const auto areas = OfKind(drawn, FeedbackPrimitive::Kind::kPolygon);
    const auto lines = OfKind(drawn, FeedbackPrimitive::Kind::kLine);
    EXPECT_EQ(areas.size(), shapes[i].second * 6);
    EXPECT_EQ(lines.size(), shapes[i].second * 24);
    for (const auto& area : areas) ExpectColor(area, 1, 0, 0);
    for (const auto& line : lines) ExpectColor(line, 0, 0, 1);
  }
}

}  // namespace
