#include "orvalix/chart/legend_obj_3d.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "chart/legend_fixture.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;
using Kind = FeedbackPrimitive::Kind;

TEST(LegendObj3D, StartsWithItsDefaults) {
  const int before = CLegendObj3D::nSelfID;
  CLegendObj3D entry;
  EXPECT_EQ(CLegendObj3D::nSelfID, before + 1);
  EXPECT_EQ(entry.GetTextColor().red, 0.0);
  EXPECT_EQ(entry.GetTextColor().alpha, 1.0);
  EXPECT_EQ(entry.GetSymbolColor().alpha, 1.0);
  EXPECT_EQ(entry.GetSymbol(), 0);
  EXPECT_EQ(entry.GetSymbolScale(), 0.1);
  EXPECT_EQ(entry.GetTextPosition().x, 0.0);
  EXPECT_EQ(entry.GetSymbolPosition().z, 0.0);
  EXPECT_EQ(entry.GetSymbolRotation().x, -20.0);
  EXPECT_EQ(entry.GetSymbolRotation().y, -20.0);
  EXPECT_EQ(entry.GetSymbolRotation().z, 0.0);
  EXPECT_EQ(entry.GetLegendObjEnable(), 1);
  EXPECT_EQ(entry.GetClassTag(), 1313);
  EXPECT_STREQ(entry.GetText(), "");
  EXPECT_EQ(entry.TextWidth(), 0.0);
  entry.DrawLegendObj();  // bound to nothing
}

TEST_F(LegendTest, EntriesNeedContextAndTransform) {
  COpenGL* gl = view.GetOpenGLPntr();
  CTransform3D transform(gl);
  CLegendObj3D entry;
  EXPECT_EQ(Catch([&] { entry.InitLegendObj(nullptr, &transform); }),
            (CaughtError{16, 16, "InitLegendObj"}));
  EXPECT_EQ(Catch([&] { entry.InitLegendObj(gl, nullptr); }),
            (CaughtError{15, 16, "InitLegendObj"}));
  CLegendObj3D bound(gl, &transform, "abc");
  EXPECT_EQ(bound.GetTransformID(), transform.GetTransformID());
  EXPECT_GT(bound.TextWidth(), 0.0);
  EXPECT_GT(bound.TextHeight(), 0.0);
}

TEST_F(LegendTest, SymbolsAreTheSolidsOfTheirNumbers) {
  CLegendObj3D& entry = *legend.NewLegendObj();
  entry.SetSymbolColor({0.0, 1.0, 0.0, 1.0});
  entry.SetSymbolRotation({0.0, 0.0, 0.0, 0.0});
  // Faces of each, and their extent along z in sizes of the symbol.
  struct Expected {
    int symbol;
    std::size_t faces;
    double height;
  };
  for (const Expected& expected : std::initializer_list<Expected>{{2, 6, 0.5},
                                                                  {3, 6, 1.0},
                                                                  {8, 6, 0.25},
                                                                  {9, 6, 1.0},
                                                                  {10, 6, 1.0},
                                                                  {11, 12, 1.0},
                                                                  {12, 12, 2.0},
                                                                  {13, 6, 1.0},
                                                                  {14, 12, 1.0},
                                                                  {15, 12, 0.75}}) {
    SCOPED_TRACE(expected.symbol);
    entry.SetSymbol(expected.symbol);
    const auto drawn = OfKind(DrawnSymbol(entry), Kind::kPolygon);
    EXPECT_EQ(drawn.size(), expected.faces);
    double low = 1e9;
    double high = -1e9;
    for (const auto& face : drawn) {
      EXPECT_NEAR(face.vertices[0].green, 1.0, 1e-6);
      for (const auto& vertex : face.vertices) {
        low = std::min(low, vertex.z);
        high = std::max(high, vertex.z);
      }
    }
    // The identity looks along z, whose two units are 1 deep: size 0.1, enlarged by 1.5.
    EXPECT_NEAR(high - low, expected.height * 0.1 * 1.5 / 2.0, 1e-5);
  }
  for (const int symbol : {0, 4, 5, 6, 7, 16, -1}) {
    entry.SetSymbol(symbol);
    EXPECT_TRUE(DrawnSymbol(entry).empty()) << symbol;
  }
}

TEST_F(LegendTest, SymbolsKeepTheirShapeInAWideView) {
  CLegendObj3D& entry = *legend.NewLegendObj();
  entry.SetSymbol(1);
  entry.SetSymbolColor({0.0, 0.0, 1.0, 1.0});
  entry.SetSymbolScale(0.2);
  entry.SetSymbolPosition({0.5, 0.25, 0.0, 0.0});
  const auto drawn = DrawnSymbol(entry);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].kind, Kind::kLine);
  EXPECT_NEAR(drawn[0].vertices[0].blue, 1.0, 1e-6);
  // 0.2 * 1.5 long, times the aspect of 1/2: 0.15 of 100 pixels a unit, about x = 150.
  EXPECT_NEAR(drawn[0].vertices[0].x, 150.0 - 7.5, 1e-2);
  EXPECT_NEAR(drawn[0].vertices[1].x, 150.0 + 7.5, 1e-2);
  EXPECT_NEAR(drawn[0].vertices[0].y, 62.5, 1e-2);
  entry.EnableLegendObj(0);
  EXPECT_TRUE(DrawnSymbol(entry).empty());
}

// The legend puts symbols at a depth of 0.85, 0.15 from where the view ends.
TEST_F(LegendTest, LargeSymbolsStayInsideTheView) {
  COpenGL& gl = *view.GetOpenGLPntr();
  gl.MakeCurrent();
  CTransform3D turnedUpright(&gl);
  CLegendObj3D& entry = *legend.NewLegendObj();
  entry.SetSymbolPosition({0.0, 0.85, 0.0, 0.0});
  for (const double scale : {0.1, 0.2, 0.5}) {
    for (const int symbol : {3, 9}) {
      SCOPED_TRACE(::testing::Message() << scale << ' ' << symbol);
      entry.SetSymbolScale(scale);
      entry.SetSymbol(symbol);
      const auto faces = CaptureFeedback([&] {
        gl.SetColorMode(0);
        gl.SetPolygonOutlineMode(0);
        turnedUpright.TextTransform();
        entry.DrawLegendSymbol();
      });
      ASSERT_EQ(faces.size(), 6U);
      for (const auto& face : faces) EXPECT_EQ(face.vertices.size(), 5U);
    }
  }
}

TEST_F(LegendTest, OnlySolidsAboveThreeAreTurned) {
  CLegendObj3D& entry = *legend.NewLegendObj();
  entry.SetSymbolRotation({0.0, 0.0, 45.0, 0.0});
  const auto widthOf = [&](int symbol) {
    entry.SetSymbol(symbol);
    double left = 1e9;
    double right = -1e9;
    for (const auto& face : DrawnSymbol(entry)) {
      for (const auto& vertex : face.vertices) {
        left = std::min(left, vertex.x);
        right = std::max(right, vertex.x);
      }
    }
    return right - left;
  };
  const double size = 0.1 * 1.5 * 0.5 * 100.0;  // scale, enlargement, aspect, pixels
  EXPECT_NEAR(widthOf(3), size, 1e-2);
  EXPECT_NEAR(widthOf(9), size * std::sqrt(2.0), 1e-2);
}

TEST_F(LegendTest, TextsTakeColorPlaceAndPlane) {
  CLegendObj3D& entry = *legend.NewLegendObj("I");
  entry.SetTextColor({0.0, 1.0, 0.0, 1.0});
  entry.SetTextPosition({0.25, 0.5, -0.25, 0.0});
  const auto drawn = CaptureFeedback([&] { entry.DrawLegendText(); });
  ASSERT_FALSE(drawn.empty());
  EXPECT_NEAR(drawn[0].vertices[0].green, 1.0, 1e-6);
  EXPECT_EQ(entry.GetTextObj()->GetTextPlane(), 1);
  EXPECT_EQ(entry.GetTextObj()->GetNormLocation().x, 0.25);
  entry.EnableLegendObj(0);
  EXPECT_TRUE(CaptureFeedback([&] { entry.DrawLegendObj(); }).empty());
}

}  // namespace
