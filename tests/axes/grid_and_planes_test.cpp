/// Grid lines, fills and walls of the six planes, as OpenGL is told to draw them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "axes/axes_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/render/gl_api_internal.h"

namespace {

using orvalix::test::AxesTest;
using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::FeedbackVertex;
using orvalix::test::OfKind;

/// The box from 2 to 8 within a scale from 0 to 10, so that what lies outside of the box is seen.
class Planes : public AxesTest {
 protected:
  Planes() : axes(&gl, &transform, {2, 2, 2, 0}, {8, 8, 8, 0}) {
    for (int i = 0; i < 3; ++i) {
      axes.SetAxisTics(i, 2, 2, 1, 0.02, 0.04, 0);
      axes.EnableAxis(i, 0);
    }
  }

  std::vector<Line> Drawn() {
    return LinesOf([this] { axes.DrawAxes(); });
  }

  /// The smallest and largest corner of everything that is drawn, in shares of the scale.
  struct Box {
    std::array<double, 3> low{1e9, 1e9, 1e9};
    std::array<double, 3> high{-1e9, -1e9, -1e9};
  };
  Box DrawnBox() {
    Box box;
    for (const FeedbackPrimitive& primitive : CaptureFeedback([this] { axes.DrawAxes(); })) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        const std::array<double, 3> at{vertex.x / 200.0, 1.0 - vertex.z, vertex.y / 200.0};
        for (std::size_t i = 0; i < 3; ++i) {
          box.low[i] = std::min(box.low[i], at[i]);
          box.high[i] = std::max(box.high[i], at[i]);
        }
      }
    }
    return box;
  }

  CAxes3D axes;
};

/// First axis, second axis, axis across, and the share at which the plane lies.
struct PlaneLayout {
  int first, second, across;
  double at;
};
constexpr std::array<PlaneLayout, 6> kLayouts{{{0, 1, 2, 0.2},
                                               {0, 2, 1, 0.2},
                                               {1, 2, 0, 0.2},
                                               {0, 1, 2, 0.8},
                                               {0, 2, 1, 0.8},
                                               {1, 2, 0, 0.8}}};

TEST_F(Planes, CarryGridsAcrossBothAxes) {
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    const PlaneLayout& layout = kLayouts[static_cast<std::size_t>(p)];
    const auto point = [&](double first, double second) {
      std::array<double, 3> at{};
      at[static_cast<std::size_t>(layout.first)] = first;
      at[static_cast<std::size_t>(layout.second)] = second;
      at[static_cast<std::size_t>(layout.across)] = layout.at;
      return at;
    };
    const auto line = [&](const std::array<double, 3>& a, const std::array<double, 3>& b) {
      return Line{a[0], a[1], a[2], b[0], b[1], b[2]};
    };
    std::vector<Line> expected;
    for (const double v : {0.2, 0.4, 0.6, 0.8})
      expected.push_back(line(point(v, 0.2), point(v, 0.8)));
    for (const double v : {0.2, 0.4, 0.6, 0.8})
      expected.push_back(line(point(0.2, v), point(0.8, v)));
    axes.SetPlaneGrid(p, 1, 1, red, 1.0, 0, 0);
    ExpectLines(Drawn(), expected);
    axes.EnableGrid(p, 0);
  }
}

TEST_F(Planes, CarryGridsAtEveryNthTic) {
  axes.SetAxisTics(0, 4, 1, 1, 0.02, 0.04, 0);
  axes.EnableAxis(0, 0);
  axes.SetPlaneGrid(1, 2, 0, red, 1.0, 0, 0);  // x at 4, 6, 8 and 2; no lines along x
  ExpectLines(Drawn(), {{0.4, 0.2, 0.2, 0.4, 0.2, 0.8},
                        {0.6, 0.2, 0.2, 0.6, 0.2, 0.8},
                        {0.8, 0.2, 0.2, 0.8, 0.2, 0.8},
                        {0.2, 0.2, 0.2, 0.2, 0.2, 0.8}});
  axes.SetPlaneGrid(1, 0, 3, red, 1.0, 0, 0);  // z at 2 and 8
  ExpectLines(Drawn(), {{0.2, 0.2, 0.2, 0.8, 0.2, 0.2}, {0.2, 0.2, 0.8, 0.8, 0.2, 0.8}});
  axes.SetPlaneGrid(1, 0, 0, red, 1.0, 0, 0);
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(Planes, DrawGridLinesOnAcrossTheWall) {
  axes.SetWallThickness(0, 0.05);
  axes.SetWallThickness(3, 0.05);
  axes.SetPlaneGrid(0, 3, 0, red, 1.0, 0, 1);
  // An extension at the start, the line, one at the end; 0.05 of the scale downwards.
  ExpectLines(Drawn(), {{0.2, 0.2, 0.2, 0.2, 0.2, 0.15},
                        {0.2, 0.2, 0.2, 0.2, 0.8, 0.2},
                        {0.2, 0.8, 0.2, 0.2, 0.8, 0.15},
                        {0.8, 0.2, 0.2, 0.8, 0.2, 0.15},
                        {0.8, 0.2, 0.2, 0.8, 0.8, 0.2},
                        {0.8, 0.8, 0.2, 0.8, 0.8, 0.15}});
  axes.EnableGrid(0, 0);
  axes.SetPlaneGrid(3, 3, 0, red, 1.0, 0, 1);
  EXPECT_NEAR(Drawn()[0].z1, 0.85, 1e-4);  // upwards
  EXPECT_NEAR(Drawn()[0].z0, 0.8, 1e-4);
}

TEST_F(Planes, DrawGridsInTheirColorStyleAndWidth) {
  axes.SetPlaneGrid(0, 1, 0, green, 3.0, 4, 0);
  const auto drawn = CaptureFeedback([this] { axes.DrawAxes(); });
  ASSERT_FALSE(drawn.empty());
  EXPECT_NEAR(drawn[0].vertices[0].green, 1.0, 1e-6);
  EXPECT_EQ(gl.GetLineStyle(), 4);
  EXPECT_EQ(gl.GetLineWidth3D(), 3.0);
}

class LogarithmicPlanes : public Planes {
 protected:
  LogarithmicPlanes() {
    transform.SetScale({1, 0, 0, 0}, {1000, 10, 10, 0});
    transform.SetAxisScaleMode(0, 1);
    axes.SetAxisLimits(0, 1, 1000);
    axes.SetAxisCenterPoint(0, 10);
    axes.SetAxisNthTicMajor(0, 10);
  }

  /// Where the grid lines stand, as values of x.
  std::vector<double> Values(int nth) {
    axes.SetPlaneGrid(1, nth, 0, red, 1.0, 0, 0);
    std::vector<double> values;
    for (const Line& line : Drawn()) values.push_back(std::pow(10.0, line.x0 * 3.0));
    return values;
  }
};

MATCHER(WithinAThousandth, "") {
  return std::abs(std::get<0>(arg) / std::get<1>(arg) - 1.0) < 1e-3;
}

TEST_F(LogarithmicPlanes, CarryLogarithmicGrids) {
  std::vector<double> expected;
  for (const double decade : {10.0, 100.0}) {
    for (int k = 1; k <= 9; ++k) expected.push_back(decade * k);
  }
  expected.push_back(10.0);
  for (int k = 9; k >= 2; --k) expected.push_back(k);
  for (const double decade : {1.0, 10.0, 100.0}) {
    for (int k = 1; k <= 9; ++k) expected.push_back(decade * k);
  }
  EXPECT_THAT(Values(1), ::testing::Pointwise(WithinAThousandth(), expected));
}

TEST_F(LogarithmicPlanes, CarryOneTwoFiveOrDecades) {
  EXPECT_THAT(Values(5),
              ::testing::Pointwise(WithinAThousandth(),
                                   {10.0, 20.0, 50.0, 100.0, 200.0, 500.0, 10.0, 5.0, 2.0, 1.0, 2.0,
                                    5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0}));
  EXPECT_THAT(Values(10), ::testing::Pointwise(WithinAThousandth(), {10.0, 100.0, 10.0, 100.0}));
  axes.SetAxisNthTicMajor(0, 20);
  EXPECT_THAT(Values(12), ::testing::Pointwise(WithinAThousandth(), {10.0, 10.0}));
  EXPECT_TRUE(Values(0).empty());
}

TEST_F(LogarithmicPlanes, MakeIllegalLimitsLegal) {
  const std::vector<double> legal = Values(1);
  axes.SetAxisCenterPoint(0, 1);
  const std::vector<double> fromOne = Values(1);
  axes.SetAxisCenterPoint(0, 0);
  EXPECT_THAT(Values(1), ::testing::Pointwise(WithinAThousandth(), fromOne));
  axes.SetAxisLimits(0, -5, 1000);
  axes.SetAxisCenterPoint(0, 10);
  EXPECT_THAT(Values(1), ::testing::Pointwise(WithinAThousandth(), legal));
}

TEST_F(Planes, FillThemselvesJustOutside) {
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    const PlaneLayout& layout = kLayouts[static_cast<std::size_t>(p)];
    axes.SetPlaneColor(p, red, blue);
    axes.SetPlaneColorMode(p, 0);
    const auto drawn = CaptureFeedback([this] { axes.DrawAxes(); });
    const auto polygons = OfKind(drawn, FeedbackPrimitive::Kind::kPolygon);
    ASSERT_EQ(polygons.size(), 1U);
    EXPECT_EQ(OfKind(drawn, FeedbackPrimitive::Kind::kLine).size(), 4U);  // the outline
    for (const FeedbackVertex& vertex : polygons[0].vertices) EXPECT_NEAR(vertex.red, 1.0, 1e-6);
    axes.SetOutlineMode(0);
    const Box box = DrawnBox();
    axes.SetOutlineMode(1);
    const auto across = static_cast<std::size_t>(layout.across);
    // The default gap is 0.002 of the scale across.
    const double at = p < 3 ? 0.2 - 0.002 : 0.8 + 0.002;
    EXPECT_NEAR(box.low[across], at, 1e-4);
    EXPECT_NEAR(box.high[across], at, 1e-4);
    for (const int inPlane : {layout.first, layout.second}) {
      EXPECT_NEAR(box.low[static_cast<std::size_t>(inPlane)], 0.2, 1e-4);
      EXPECT_NEAR(box.high[static_cast<std::size_t>(inPlane)], 0.8, 1e-4);
    }
    axes.EnablePlane(p, 0);
  }
}

/// A box of three different extents, so that no axis is taken for another.
class UnevenPlanes : public Planes {
 protected:
  static constexpr std::array<double, 3> kLow{0.1, 0.2, 0.3};
  static constexpr std::array<double, 3> kHigh{0.9, 0.7, 0.5};
  UnevenPlanes() {
    axes.SetAxesLimits({1, 2, 3, 0}, {9, 7, 5, 0});
    axes.SetOutlineMode(0);
  }
  void ExpectBox(const Box& box, const std::array<double, 3>& low,
                 const std::array<double, 3>& high) {
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(box.low[i], low[i], 1e-4) << "axis " << i;
      EXPECT_NEAR(box.high[i], high[i], 1e-4) << "axis " << i;
    }
  }
};

TEST_F(UnevenPlanes, AreFilledWithinTheirOwnAxes) {
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    axes.SetPlaneColor(p, red, blue);
    std::array<double, 3> low = kLow;
    std::array<double, 3> high = kHigh;
    const auto across = static_cast<std::size_t>(kLayouts[static_cast<std::size_t>(p)].across);
    low[across] = high[across] = p < 3 ? low[across] - 0.002 : high[across] + 0.002;
    ExpectBox(DrawnBox(), low, high);
    axes.EnablePlane(p, 0);
  }
}

TEST_F(UnevenPlanes, HaveWallsOfTheirOwnExtents) {
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    axes.SetWallPlane(p, red, blue);
    axes.SetWallThickness(p, 0.1);
    axes.SetWallOffset(p, 0.0);
    std::array<double, 3> low = kLow;
    std::array<double, 3> high = kHigh;
    const auto across = static_cast<std::size_t>(kLayouts[static_cast<std::size_t>(p)].across);
    const double depth = 0.1 * (high[across] - low[across]);
    if (p < 3) {
      high[across] = low[across];
      low[across] -= depth;
    } else {
      low[across] = high[across];
      high[across] += depth;
    }
    ExpectBox(DrawnBox(), low, high);
    axes.EnablePlane(p, 0);
  }
}

TEST_F(UnevenPlanes, CarryGridsWithinTheirOwnAxes) {
  for (int i = 0; i < 3; ++i) {
    axes.SetAxisTics(i, std::array<double, 3>{1, 2, 3}[static_cast<std::size_t>(i)], 1, 1, 0, 0, 0);
    axes.EnableAxis(i, 0);
  }
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    axes.SetPlaneGrid(p, 1, 1, red, 1.0, 0, 0);
    std::array<double, 3> low = kLow;
    std::array<double, 3> high = kHigh;
    const auto across = static_cast<std::size_t>(kLayouts[static_cast<std::size_t>(p)].across);
    low[across] = high[across] = p < 3 ? low[across] : high[across];
    ExpectBox(DrawnBox(), low, high);
    axes.EnableGrid(p, 0);
  }
}

TEST_F(Planes, LieOutsideOnAnInvertedAxisToo) {
  // z from 10 down to 0: its minimum is at the top of the picture, and outside of it is further up.
  transform.SetScale({0, 0, 10, 0}, {10, 10, 0, 0});
  axes.SetOutlineMode(0);
  axes.SetPlaneColor(0, red, blue);
  EXPECT_NEAR(DrawnBox().high[2], 0.8 + 0.002, 1e-4);
  axes.EnablePlane(0, 0);
  axes.SetPlaneColor(3, red, blue);
  EXPECT_NEAR(DrawnBox().low[2], 0.2 - 0.002, 1e-4);
  axes.EnablePlane(3, 0);
  axes.SetWallThickness(0, 0.05);
  axes.SetPlaneGrid(0, 3, 0, red, 1.0, 0, 1);
  EXPECT_NEAR(DrawnBox().high[2], 0.8 + 0.05, 1e-4);
}

TEST_F(Planes, AreDrawnInTheirOrder) {
  for (int p = 0; p < 6; ++p) {
    axes.SetPlaneColor(p, SetRGBD((p + 1) / 10.0, 0, 0, 1), blue);
    axes.SetPlaneColorMode(p, 0);
  }
  axes.SetOutlineMode(0);
  const auto drawn = CaptureFeedback([this] { axes.DrawAxes(); });
  ASSERT_EQ(drawn.size(), 6U);
  for (std::size_t p = 0; p < 6; ++p) {
    EXPECT_NEAR(drawn[p].vertices[0].red, static_cast<double>(p + 1) / 10.0, 1e-6);
  }
}

TEST_F(Planes, LeaveDrawingStateAsExpected) {
  axes.SetPlaneColor(0, red, blue);
  axes.SetOutlineWidth(0, 4.0);
  axes.SetPlaneColorMode(0, 2);
  axes.DrawAxes();
  EXPECT_EQ(gl.GetPolygonOutlineMode(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
  EXPECT_EQ(gl.GetColorMode(), 2);
}

TEST_F(Planes, HaveOutlinesWhenAsked) {
  axes.SetPlaneColor(0, red, blue);
  axes.SetOutlineMode(0);
  EXPECT_TRUE(Drawn().empty());
  axes.SetOutlineMode(1);
  const auto lines =
      OfKind(CaptureFeedback([this] { axes.DrawAxes(); }), FeedbackPrimitive::Kind::kLine);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_NEAR(lines[0].vertices[0].blue, 1.0, 1e-6);
}

TEST_F(Planes, HaveWallsBehindThem) {
  constexpr double kOffset = 0.01;
  constexpr double kThickness = 0.1;
  for (int p = 0; p < 6; ++p) {
    SCOPED_TRACE(p);
    const PlaneLayout& layout = kLayouts[static_cast<std::size_t>(p)];
    axes.SetOutlineMode(0);
    axes.SetWallPlane(p, red, blue);
    axes.SetWallThickness(p, kThickness);
    axes.SetWallOffset(p, kOffset);
    const auto polygons =
        OfKind(CaptureFeedback([this] { axes.DrawAxes(); }), FeedbackPrimitive::Kind::kPolygon);
    EXPECT_EQ(polygons.size(), 6U);
    const Box box = DrawnBox();
    // The frame is 0.6 of the scale wide; extents shrink by 1 - 2 * 0.01, the depth included.
    const double depth = 0.6 * kThickness;
    const double shrunk = 1.0 - 2.0 * kOffset;
    const auto across = static_cast<std::size_t>(layout.across);
    const double start =
        p < 3 ? 0.2 - depth - 10.0 * kOffset * depth : 0.8 + 10.0 * kOffset * depth;
    EXPECT_NEAR(box.low[across], start, 1e-4);
    EXPECT_NEAR(box.high[across], start + depth * shrunk, 1e-4);
    for (const int inPlane : {layout.first, layout.second}) {
      const double low = 0.2 + kOffset * 0.6;
      EXPECT_NEAR(box.low[static_cast<std::size_t>(inPlane)], low, 1e-4);
      EXPECT_NEAR(box.high[static_cast<std::size_t>(inPlane)], low + 0.6 * shrunk, 1e-4);
    }
    axes.EnableWall(p, 0);
  }
}

TEST_F(Planes, AreFilledOrWalled) {
  axes.SetWallPlane(0, red, blue);
  axes.SetPlaneColor(0, red, blue);  // the wall becomes a fill
  EXPECT_EQ(OfKind(CaptureFeedback([this] { axes.DrawAxes(); }), FeedbackPrimitive::Kind::kPolygon)
                .size(),
            1U);
  axes.EnableWall(0, 0);  // hides the fill as well
  EXPECT_TRUE(CaptureFeedback([this] { axes.DrawAxes(); }).empty());
}

TEST_F(Planes, DrawGridThenFill) {
  axes.SetPlaneGrid(0, 1, 1, green, 1.0, 0, 0);
  axes.SetPlaneColor(0, red, blue);
  const auto drawn = CaptureFeedback([this] { axes.DrawAxes(); });
  EXPECT_EQ(drawn.front().kind, FeedbackPrimitive::Kind::kLine);
  EXPECT_EQ(drawn[8].kind, FeedbackPrimitive::Kind::kPolygon);
}

TEST_F(Planes, EndForEveryInput) {
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity(), 0.0, -1.0, 1e300}) {
    for (int p = 0; p < 6; ++p) {
      axes.SetPlaneGrid(p, 1, 1, red, bad, 0, 1);
      axes.SetWallPlane(p, red, blue);
      axes.SetWallThickness(p, bad);
      axes.SetWallOffset(p, bad);
      axes.SetOutlineWidth(p, bad);
    }
    axes.SetAxisTicSpace(0, bad);
    axes.SetAxesLimits({bad, 0, 0, 0}, {10, bad, 10, 0});
    axes.DrawAxes();
  }
  glGetError();  // widths that OpenGL refuses
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
