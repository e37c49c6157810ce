#include <limits>
#include <string>
#include <utility>

#include "series/chart_3d_fixture.h"

namespace {

using namespace orvalix::test;

constexpr int kNoSymbol = 9;
constexpr int kNoPlane = -1;

/// A horizontal rectangle of a symbol, in units of its size.
struct Rectangle {
  double x0, y0, x1, y1, z;
};

/// Solids between neighbouring rectangles.
using Stack = std::vector<Rectangle>;

/// A rectangle centred on the axis of a symbol.
Rectangle Centred(double w, double d, double z) {
  return {-w / 2.0, -d / 2.0, w / 2.0, d / 2.0, z};
}

class ScatterChart3D : public Chart3DTest {
 protected:
  void SetUpScatter(const std::vector<point3Dtype>& points, int symbol, int plane,
                    double constant = 0.0, double size = 2.0) {
    chart.ScatterChart3D(points.data(), size, static_cast<int>(points.size()), symbol, red, blue,
                         plane, constant);
  }

  /// Expects the solids of a symbol at a normalised place.
  static void ExpectStack(const Primitives& drawn, std::size_t first, const Stack& stack,
                          const Place& place, double scale) {
    const auto corner = [&](double x, double y, double z) {
      return Normalized({place.x + scale * x, place.y + scale * y, place.z + scale * z});
    };
    for (std::size_t solid = 0; solid + 1 < stack.size(); ++solid) {
      std::array<FeedbackVertex, 8> corners;
      for (std::size_t level = 0; level < 2; ++level) {
        const Rectangle& r = stack[solid + level];
        corners[4 * level] = corner(r.x0, r.y0, r.z);
        corners[4 * level + 1] = corner(r.x0, r.y1, r.z);
        corners[4 * level + 2] = corner(r.x1, r.y1, r.z);
        corners[4 * level + 3] = corner(r.x1, r.y0, r.z);
      }
      ExpectSolid(drawn, first + 6 * solid, corners);
    }
  }

  static std::string KindsOf(const Primitives& drawn) {
    std::string kinds;
    for (const auto& primitive : drawn) kinds += primitive.kind == Kind::kLine ? 'l' : 'p';
    return kinds;
  }
};

// Of the scale from 0 to 10 the middle half of the window is made: (2, 4, 6) lies at -0.3, -0.1,
// 0.1 of normalised units.
const point3Dtype kPoint{2, 4, 6, 0};
const Place kPlaced{-0.3, -0.1, 0.1};

TEST_F(ScatterChart3D, SetUpStoresItsArguments) {
  SetUpScatter({kPoint, {1, 2, 3, 4}}, 12, 4, 5.5, 1.5);
  EXPECT_EQ(chart.GetChartType(), 7);
  EXPECT_EQ(chart.GetNumDataPnts(), 2);
  EXPECT_EQ(chart.Get3DPoint(1).v, 4.0);
  EXPECT_EQ(chart.GetRelSize(), 1.5);
  EXPECT_EQ(chart.GetSymbol(), 12);
  EXPECT_EQ(chart.GetProjectionPlane(), 4);
  EXPECT_EQ(chart.GetConstValue(), 5.5);
  ExpectSameColor(chart.GetFillColor(), red);
  ExpectSameColor(chart.GetOutlineColor(), blue);
}

TEST_F(ScatterChart3D, SymbolsAreATenthOfTheirSizeAtTheirPoints) {
  // Every symbol with the stacks of solids it is made of; sizes 1, 1, 1, the diamond's 1, 1, 2.
  const std::vector<std::pair<int, std::vector<Stack>>> symbols{
      {10, {{Centred(1, 1, -0.5), Centred(1, 1, 0.5)}}},
      {11,
       {{Centred(0.5, 0.5, -0.5), Centred(0.5, 0.5, 0.5)},
        {Centred(1, 1, -0.25), Centred(1, 1, 0.25)}}},
      {12, {{Centred(0, 0, -1), Centred(1, 1, 0), Centred(0, 0, 1)}}},
      {13, {{Centred(1, 1, -0.5), Centred(0, 0, 0.5)}}},
      {14, {{Centred(1, 1, -0.5), Centred(0.5, 0.5, 0), Centred(1, 1, 0.5)}}},
      {15,
       {{Centred(0.5, 0.5, -0.5), Centred(0.5, 0.5, 0)},
        {Centred(1, 1, 0), {0, -0.25, 0, 0.25, 0.25}}}}};
  for (const auto& [symbol, stacks] : symbols) {
    SCOPED_TRACE(symbol);
    SetUpScatter({kPoint}, symbol, kNoPlane, 0.0, 2.5);
    const auto drawn = Drawn();
    std::size_t first = 0;
    for (const Stack& stack : stacks) {
      ExpectStack(drawn, first, stack, kPlaced, 0.25);
      first += 6 * (stack.size() - 1);
    }
    EXPECT_EQ(drawn.size(), first);
    for (const auto& face : drawn) ExpectColor(face, red);
  }
}

TEST_F(ScatterChart3D, SymbolsKeepTheirShapeWhateverTheScale) {
  transform.SetScale({0, 0, 0, 0}, {1000, 10, 0.1, 0});
  transform.SetChartRect({0.5, 0.8, 0.25, 0});
  SetUpScatter({{750, 5, 0.1, 0}}, 10, kNoPlane);
  const auto drawn = Drawn();
  // x: (1.5 - 1) * 0.5; y in the middle; z at the upper end of 0.25.
  ExpectStack(drawn, 0, {Centred(1, 1, -0.5), Centred(1, 1, 0.5)}, {0.25, 0, 0.25}, 0.2);
}

TEST_F(ScatterChart3D, SymbolsTurnWithTheChart) {
  transform.SetRotate({0, 0, 90, 0});
  SetUpScatter({kPoint}, 15, kNoPlane);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 12U);
  // A quarter turn about z takes (x, y) to (-y, x): the place and the solid alike. The shaft is
  // 0.1 wide at a scale of 0.2, from z - 0.1 up to z.
  const auto turned = [](double x, double y, double z) {
    return Normalized({-(kPlaced.y + y), kPlaced.x + x, kPlaced.z + z});
  };
  ExpectSolid(drawn, 0,
              {turned(-0.05, -0.05, -0.1), turned(-0.05, 0.05, -0.1), turned(0.05, 0.05, -0.1),
               turned(0.05, -0.05, -0.1), turned(-0.05, -0.05, 0), turned(-0.05, 0.05, 0),
               turned(0.05, 0.05, 0), turned(0.05, -0.05, 0)});
  // The ridge of the head keeps its direction, that of the chart's y.
  ExpectSolid(drawn, 6,
              {turned(-0.1, -0.1, 0), turned(-0.1, 0.1, 0), turned(0.1, 0.1, 0),
               turned(0.1, -0.1, 0), turned(0, -0.05, 0.05), turned(0, 0.05, 0.05),
               turned(0, 0.05, 0.05), turned(0, -0.05, 0.05)});
}

TEST_F(ScatterChart3D, OtherSymbolNumbersDrawTheLineAlone) {
  for (const int symbol : {0, kNoSymbol, 16, -1}) {
    SCOPED_TRACE(symbol);
    SetUpScatter({kPoint}, symbol, 0, 1.0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 1U);
    ExpectLine(drawn[0], {2, 4, 6}, {2, 4, 1});
    ExpectColor(drawn[0], red);
  }
}

TEST_F(ScatterChart3D, LinesLeadStraightToThePlane) {
  const std::array<Place, 6> ends{
      {{2, 4, 1}, {2, 1, 6}, {1, 4, 6}, {2, 4, 1}, {2, 1, 6}, {1, 4, 6}}};
  for (std::size_t plane = 0; plane < ends.size(); ++plane) {
    SCOPED_TRACE(plane);
    SetUpScatter({kPoint}, kNoSymbol, static_cast<int>(plane), 1.0);
    auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 1U);
    ExpectLine(drawn[0], {2, 4, 6}, ends[plane]);
  }
}

TEST_F(ScatterChart3D, PlanesThatAreNoneHaveNoLines) {
  for (const int plane : {-1, -100, 6, 7, 1000, std::numeric_limits<int>::max()}) {
    SCOPED_TRACE(plane);
    SetUpScatter({kPoint}, kNoSymbol, plane, 1.0);
    EXPECT_TRUE(Drawn().empty());
    SetUpScatter({kPoint}, 10, plane, 1.0);
    EXPECT_EQ(KindsOf(Drawn()), "pppppp");
  }
}

TEST_F(ScatterChart3D, EachPointHasItsLineThenItsSymbol) {
  SetUpScatter({kPoint, {8, 8, 8, 0}}, 13, 0);
  const auto drawn = Drawn();
  ASSERT_EQ(KindsOf(drawn), "lpppppplpppppp");
  ExpectLine(drawn[0], {2, 4, 6}, {2, 4, 0});
  // The line of the second point runs in the chart's matrix again, not in the symbol's.
  ExpectLine(drawn[7], {8, 8, 8}, {8, 8, 0});
  ExpectStack(drawn, 8, {Centred(1, 1, -0.5), Centred(0, 0, 0.5)}, {0.3, 0.3, 0.3}, 0.2);
}

TEST_F(ScatterChart3D, LinesHaveTheLineStyleAndTheWidth1) {
  const int dotted = PatternOf(3);
  const int solid = PatternOf(0);
  ASSERT_NE(dotted, solid);
  SetUpScatter({kPoint}, kNoSymbol, 0);
  chart.SetLineStyle(3);
  chart.SetLineWidth(5);
  chart.SetOutlineWidth(4.0);
  Drawn();
  EXPECT_EQ(PatternInUse(), dotted);
  EXPECT_EQ(WidthInUse(), 1.0F);
  // Reset afterwards, for whatever is drawn next.
  EXPECT_EQ(gl.GetLineStyle(), 0);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
  ExpectSameColor(gl.GetLineColor3D(), red);
}

TEST_F(ScatterChart3D, SegmentColorsAreThoseOfTheirPoints) {
  const std::array<RGBDType, 2> colors{green, yellow};
  SetUpScatter({kPoint, {8, 8, 8, 0}}, 10, 0);
  chart.InitSegmentColorsStorage(colors.data());
  auto drawn = Drawn();
  ASSERT_EQ(KindsOf(drawn), "lpppppplpppppp");
  for (std::size_t i = 0; i < drawn.size(); ++i) ExpectColor(drawn[i], i < 7 ? green : yellow);
  ExpectSameColor(gl.GetLineColor3D(), red);  // the fill colour, not a segment's
  chart.SetSegmentColorMode(0);
  drawn = Drawn();
  for (const auto& primitive : drawn) ExpectColor(primitive, red);
}

TEST_F(ScatterChart3D, MissingSegmentColorsAreThoseOfTheSeries) {
  SetUpScatter({kPoint, {8, 8, 8, 0}}, kNoSymbol, 0);
  chart.SetNumDataPnts(1);
  chart.InitSegmentColorsStorage(&green);
  chart.SetNumDataPnts(2);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectColor(drawn[0], green);
  ExpectColor(drawn[1], red);
}

TEST_F(ScatterChart3D, OutlinesHaveColorAndWidth) {
  SetUpScatter({kPoint, {8, 8, 8, 0}}, 10, 0);
  chart.SetOutlineMode(1);
  chart.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  // A line, then six faces with four edges each, per point.
  ASSERT_EQ(drawn.size(), 2U * (1 + 6 * 5));
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const std::size_t inSymbol = i % 31;  // 0 is the line
    const bool isEdge = inSymbol != 0 && (inSymbol - 1) % 5 != 0;
    ExpectColor(drawn[i], isEdge ? blue : red);
  }
  EXPECT_EQ(WidthInUse(), 3.0F);  // an edge was drawn last
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(ScatterChart3D, LogarithmicAxes) {
  transform.SetScale({1, 0, 1, 0}, {100, 10, 1000, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  SetUpScatter({{10, 5, 10, 0}}, 10, 0, 100.0);
  auto drawn = Drawn();
  ASSERT_EQ(KindsOf(drawn), "lpppppp");
  // Working x log10(10) = 1 of 2, z log10(10) = 1 of 3; the plane stands at log10(100) = 2.
  ExpectLine(drawn[0], {1, 5, 1}, {1, 5, 2});
  // Normalised: x in the middle, z at (2/3 - 1) * 0.5 = -1/6.
  ExpectStack(drawn, 1, {Centred(1, 1, -0.5), Centred(1, 1, 0.5)}, {0, 0, -1.0 / 6.0}, 0.2);
}

TEST_F(ScatterChart3D, SizesBelowOrAtZeroDoNoHarm) {
  SetUpScatter({kPoint}, 10, kNoPlane, 0.0, -2.0);
  const auto mirrored = Drawn();
  ASSERT_EQ(mirrored.size(), 6U);
  ExpectStack(mirrored, 0, {Centred(1, 1, -0.5), Centred(1, 1, 0.5)}, kPlaced, -0.2);
  SetUpScatter({kPoint}, 10, 0, 0.0, 0.0);
  const auto none = Drawn();
  ASSERT_FALSE(none.empty());
  ExpectLine(none[0], {2, 4, 6}, {2, 4, 0});
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(ScatterChart3D, PointsWithoutAPlaceAreLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  SetUpScatter({{nan, 4, 6, 0}, kPoint, {2, kInfinity, 6, 0}}, 10, 0);
  const auto lines = OfKind(Drawn(), Kind::kLine);
  ASSERT_EQ(lines.size(), 1U);
  ExpectLine(lines[0], {2, 4, 6}, {2, 4, 0});
  const auto faces = OfKind(Drawn(), Kind::kPolygon);
  ASSERT_EQ(faces.size(), 6U);
  ExpectStack(faces, 0, {Centred(1, 1, -0.5), Centred(1, 1, 0.5)}, kPlaced, 0.2);
  SetUpScatter({kPoint}, 10, 0, nan);
  EXPECT_EQ(KindsOf(Drawn()), "pppppp");  // a symbol, but no line to nowhere
  SetUpScatter({kPoint}, 10, 0, 0.0, nan);
  EXPECT_EQ(OfKind(Drawn(), Kind::kLine).size(), 1U);
}

TEST_F(ScatterChart3D, FewOrNoPoints) {
  SetUpScatter({}, 10, 0);
  EXPECT_TRUE(Drawn().empty());
  SetUpScatter({kPoint}, kNoSymbol, 0);
  chart.SetNumDataPnts(1000000);  // more than there are
  EXPECT_EQ(Drawn().size(), 1U);
  chart.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  chart.SetNumDataPnts(1);
  chart.Delete3DPointStorage();
  EXPECT_TRUE(Drawn().empty());
  chart.ScatterChart3D(nullptr, 2.0, 5, 10, red, blue, 0, 0.0);
  EXPECT_EQ(chart.GetNumDataPnts(), 0);
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
