#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::kJustifications;
using orvalix::test::Place;

/// A piece of a ribbon between a and b along x, from near to far along y.
std::vector<Place> AlongX(double a, double za, double b, double zb, double near, double far) {
  return {{a, near, za}, {b, near, zb}, {b, far, zb}, {a, far, za}, {a, near, za}};
}

/// The same with x and y exchanged.
std::vector<Place> AlongY(double a, double za, double b, double zb, double near, double far) {
  return {{near, a, za}, {near, b, zb}, {far, b, zb}, {far, a, za}, {near, a, za}};
}

class RibbonChart25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpRibbon(const std::vector<double>& ind, const std::vector<double>& dep,
                   int constJustify = 0, int indAxis = 0) {
    SetUpDeepRibbon(ind, dep, 4.0, 3.0, constJustify, indAxis);
  }

  void SetUpDeepRibbon(const std::vector<double>& ind, const std::vector<double>& dep,
                       double constant, double constWidth, int constJustify = 0, int indAxis = 0) {
    series.RibbonChart25D(ind.data(), dep.data(), constant, static_cast<int>(ind.size()),
                          constWidth, red, blue, constJustify, indAxis);
    Plain();
  }
};

TEST_F(RibbonChart25D, PiecesReachFromPointToPoint) {
  SetUpRibbon({1, 4, 9}, {5, 8, 2});
  const auto drawn = Drawn();
  ExpectPolygons(drawn, {AlongX(1, 5, 4, 8, 4, 7), AlongX(4, 8, 9, 2, 4, 7)});
  for (const auto& piece : drawn) ExpectColor(piece, red);
}

TEST_F(RibbonChart25D, IndependentValuesMayRunAlongY) {
  SetUpRibbon({1, 4, 9}, {5, 8, 2}, 0, 1);
  ExpectPolygons(Drawn(), {AlongY(1, 5, 4, 8, 4, 7), AlongY(4, 8, 9, 2, 4, 7)});
}

TEST_F(RibbonChart25D, JustificationsMoveTheSeries) {
  for (const auto& [justify, share] : kJustifications) {
    SCOPED_TRACE(justify);
    const double near = 4 + 3 * share;
    SetUpRibbon({1, 4}, {5, 8}, justify, 0);
    ExpectPolygons(Drawn(), {AlongX(1, 5, 4, 8, near, near + 3)});
    SetUpRibbon({1, 4}, {5, 8}, justify, 1);
    ExpectPolygons(Drawn(), {AlongY(1, 5, 4, 8, near, near + 3)});
  }
}

TEST_F(RibbonChart25D, TheGapIsAtFarEndsOnly) {
  SetUpRibbon({1, 4, 9}, {5, 8, 2});
  WithGap();
  ExpectPolygons(FacesFromEdges(Drawn()), {AlongX(1, 5, 3.5, 8, 4, 7), AlongX(4, 8, 8.5, 2, 4, 7)});
  SetUpRibbon({1, 4, 9}, {5, 8, 2}, 0, 1);
  WithGap();
  ExpectPolygons(FacesFromEdges(Drawn()), {AlongY(1, 5, 3.5, 8, 4, 7), AlongY(4, 8, 8.5, 2, 4, 7)});
}

TEST_F(RibbonChart25D, TheGapStaysOnALogarithmicAxis) {
  SetLogScale(0, 1, 1e6);
  SetUpRibbon({10, 1000}, {5, 8});
  WithGap();
  // 0.05 of six decades
  ExpectPolygons(FacesFromEdges(Drawn()), {AlongX(1, 5, 2.7, 8, 4, 7)});
}

TEST_F(RibbonChart25D, LogarithmicValues) {
  SetLogScale(2, 1, 1000);
  SetUpRibbon({1, 4}, {10, 1000});
  ExpectPolygons(Drawn(), {AlongX(1, 1, 4, 3, 4, 7)});
}

// The near edge is converted, and the far one, which begins there, once more.
TEST_F(RibbonChart25D, TheFarEdgeIsConvertedTwice) {
  SetLogScale(1, 1, 1e6);
  SetUpDeepRibbon({1, 4}, {5, 8}, 100, 98);  // near: log10(100) = 2, far: log10(2 + 98) = 2
  ExpectPolygons(Drawn(), {AlongX(1, 5, 4, 8, 2, 2)});
  SetUpDeepRibbon({1, 4}, {5, 8}, 100, 8);  // far: log10(2 + 8) = 1
  ExpectPolygons(Drawn(), {AlongX(1, 5, 4, 8, 2, 1)});
  // Centred the near edge is 2 - 4 / 2 = 0, and log10(0 + 4) = 0.60206 the far one.
  SetUpDeepRibbon({1, 4}, {5, 8}, 100, 4, 1);
  ExpectPolygons(Drawn(), {AlongX(1, 5, 4, 8, 0, 0.60205999)});
}

TEST_F(RibbonChart25D, TheFarEdgeIsConvertedTwiceAlongX) {
  SetLogScale(0, 1, 1e6);
  SetUpDeepRibbon({1, 4}, {5, 8}, 100, 8, 0, 1);
  ExpectPolygons(Drawn(), {AlongY(1, 5, 4, 8, 2, 1)});
}

TEST_F(RibbonChart25D, SegmentColorsBeginAt1) {
  SetUpRibbon({1, 4, 9}, {5, 8, 2});
  series.InitSegmentColorsStorage(std::array{yellow, green, cyan}.data());
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectColor(drawn[0], green);
  ExpectColor(drawn[1], cyan);
  series.SetSegmentColorMode(0);
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], red);
}

TEST_F(RibbonChart25D, OutlinesHaveColorAndWidth) {
  SetUpRibbon({1, 4}, {5, 8});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 5U);
  ExpectColor(drawn[0], red);
  for (std::size_t edge = 1; edge < 5; ++edge) ExpectColor(drawn[edge], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(RibbonChart25D, OnePointMakesNone) {
  for (const std::vector<double>& ind : {std::vector<double>{}, std::vector<double>{5}}) {
    SetUpRibbon(ind, ind);
    target.gl->SetLineWidth3D(7.0);
    EXPECT_TRUE(Drawn().empty());
  }
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);  // one point sets it all the same
}

TEST_F(RibbonChart25D, AsManyPointsAsBothArraysHold) {
  SetUpRibbon({1, 4, 9}, {5, 8, 2});
  series.SetNumDataPnts(1000000);
  EXPECT_EQ(Drawn().size(), 2U);
  series.SetNumDataPnts(2);
  series.InitDepDataStorage(std::array{5.0, 8.0}.data());
  series.SetNumDataPnts(3);
  EXPECT_EQ(Drawn().size(), 1U);
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(3);
  series.DeleteIndDataStorage();
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
