#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::AreaSolid;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::kJustifications;

class AreaRange25D : public orvalix::test::SolidTest {
 protected:
  void SetUpRange(const std::vector<double>& ind, const std::vector<double>& dep,
                  const std::vector<double>& dep2, int constJustify = 0, int indAxis = 0,
                  double constWidth = 3.0) {
    series.AreaRangeChart25D(ind.data(), dep.data(), dep2.data(), 4.0, static_cast<int>(ind.size()),
                             constWidth, red, blue, constJustify, indAxis);
    Plain();
  }
};

TEST_F(AreaRange25D, SolidsReachFromOneRowToTheOther) {
  SetUpRange({1, 4, 9}, {2, 3, 1}, {6, 5, 4});
  const auto drawn = Drawn();
  ExpectSolids(drawn,
               {AreaSolid({1, 2, 6}, {4, 3, 5}, 4, 7), AreaSolid({4, 3, 5}, {9, 1, 4}, 4, 7)});
  ExpectSolidColors(drawn, {red, red});
}

TEST_F(AreaRange25D, EitherRowMayBeTheHigherOne) {
  SetUpRange({1, 4}, {6, 5}, {2, 3});
  ExpectSolids(Drawn(), {AreaSolid({1, 2, 6}, {4, 3, 5}, 4, 7)});
}

TEST_F(AreaRange25D, PiecesAreDividedWhereTheRowsCross) {
  SetUpRange({1, 4}, {2, 8}, {6, 4});
  // The rows are 4 apart on one side and 4 on the other: they meet halfway, at 2.5, at (2 + 8) / 2.
  ExpectSolids(Drawn(),
               {AreaSolid({1, 2, 6}, {2.5, 5, 5}, 4, 7), AreaSolid({2.5, 5, 5}, {4, 4, 8}, 4, 7)});
  SetUpRange({1, 5}, {7, 2}, {4, 3});
  // 3 apart, then -1: they meet after three quarters of the way, at 4, at 7 - 5 * 0.75 = 3.25.
  ExpectSolids(Drawn(), {AreaSolid({1, 4, 7}, {4, 3.25, 3.25}, 4, 7),
                         AreaSolid({4, 3.25, 3.25}, {5, 2, 3}, 4, 7)});
}

TEST_F(AreaRange25D, RowsMayTouch) {
  SetUpRange({1, 4}, {2, 5}, {6, 5});
  ExpectSolids(Drawn(), {AreaSolid({1, 2, 6}, {4, 5, 5}, 4, 7)});
  SetUpRange({1, 4}, {5, 8}, {5, 4});
  ExpectSolids(Drawn(), {AreaSolid({1, 5, 5}, {4, 4, 8}, 4, 7)});
}

TEST_F(AreaRange25D, BarsTurnOut) {
  series.BarChart25D(std::array{1.0}.data(), std::array{5.0}.data(), 2.0, 4.0, 1, 3.0, 3.0, red,
                     blue, 0, 0, 0);
  Plain();
  ExpectClosedOutwards(Drawn(), 27.0);  // what is expected of ranges below is true of bars
}

// Whatever the directions are, solids are closed and turn their faces out, as bars do.
TEST_F(AreaRange25D, SolidsAreClosedAndTurnOut) {
  for (const int indAxis : {0, 1}) {
    for (const double constWidth : {3.0, -3.0}) {
      for (const bool descending : {false, true}) {
        for (const bool exchanged : {false, true}) {
          SCOPED_TRACE(::testing::Message()
                       << indAxis << ' ' << constWidth << ' ' << descending << ' ' << exchanged);
          std::vector<double> ind{1, 4};
          std::vector<double> low{2, 3};
          std::vector<double> high{6, 5};
          if (descending) std::swap(ind[0], ind[1]);
          if (exchanged) std::swap(low, high);
          SetUpRange(ind, low, high, 0, indAxis, constWidth);
          // (4 + 2) / 2 high, 3 long, 3 deep
          ExpectClosedOutwards(Drawn(), 27.0);
          SetUpRange(ind, {2, 8}, {6, 4}, 0, indAxis, constWidth);
          // two triangles 4 high and 1.5 long, 3 deep
          ExpectClosedOutwards(Drawn(), 18.0);
        }
      }
    }
  }
}

// A range as high everywhere is a box, and looks as a bar does in the same place.
TEST_F(AreaRange25D, SolidsAreLitFromOutside) {
  transform.SetRotate({20, 0, 30, 0});
  for (const int indAxis : {0, 1}) {
    for (const bool descending : {false, true}) {
      SCOPED_TRACE(::testing::Message() << indAxis << ' ' << descending);
      CChartObj3D bar(target.gl.get(), &transform);
      bar.BarChart25D(std::array{1.0}.data(), std::array{5.0}.data(), 2.0, 4.0, 1, 3.0, 3.0, red,
                      blue, 0, 0, indAxis);
      bar.SetOutlineMode(0);
      SetUpRange(descending ? std::vector<double>{4, 1} : std::vector<double>{1, 4}, {2, 2}, {5, 5},
                 0, indAxis);
      series.SetColorMode(1);
      ExpectSameFaces(Drawn(), Drawn(bar));
    }
  }
}

TEST_F(AreaRange25D, IndependentValuesMayRunAlongY) {
  SetUpRange({1, 4}, {2, 3}, {6, 5}, 0, 1);
  auto bounds = BoundsOf(Drawn());
  ExpectBounds(bounds, {4, 1, 2}, {7, 4, 6});
}

TEST_F(AreaRange25D, JustificationsMoveTheSeries) {
  for (const auto& [justify, share] : kJustifications) {
    SCOPED_TRACE(justify);
    const double near = 4 + 3 * share;
    SetUpRange({1, 4}, {2, 3}, {6, 5}, justify, 0);
    ExpectBounds(BoundsOf(Drawn()), {1, near, 2}, {4, near + 3, 6});
    SetUpRange({1, 4}, {2, 3}, {6, 5}, justify, 1);
    ExpectBounds(BoundsOf(Drawn()), {near, 1, 2}, {near + 3, 4, 6});
  }
}

TEST_F(AreaRange25D, DescendingValuesMakeTheSameSolid) {
  SetUpRange({4, 1}, {3, 2}, {5, 6});
  ExpectSolids(Drawn(), {AreaSolid({1, 2, 6}, {4, 3, 5}, 4, 7)});
}

TEST_F(AreaRange25D, ANegativeWidthMakesTheSameSolid) {
  SetUpRange({1, 4}, {2, 3}, {6, 5}, 0, 0, -3.0);
  // from 4 back to 1
  ExpectSameFaces(Drawn(), [&] {
    SetUpRange({1, 4}, {2, 3}, {6, 5});
    series.SetConstValue(1.0);
    return Drawn();
  }());
}

TEST_F(AreaRange25D, TheGapIsAtFarEndsOnly) {
  SetUpRange({1, 4, 9}, {2, 3, 1}, {6, 5, 4});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()),
               {AreaSolid({1, 2, 6}, {3.5, 3, 5}, 4, 7), AreaSolid({4, 3, 5}, {8.5, 1, 4}, 4, 7)});
  // Descending, the far end is the lower one.
  SetUpRange({4, 1}, {3, 2}, {5, 6});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1.5, 2, 6}, {4, 3, 5}, 4, 7)});
  // It is part of the whole piece, which reaches 4 - 0.5 = 3.5 and is divided in its middle.
  SetUpRange({1, 4}, {2, 8}, {6, 4});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 2, 6}, {2.25, 5, 5}, 4, 7),
                                         AreaSolid({2.25, 5, 5}, {3.5, 4, 8}, 4, 7)});
}

TEST_F(AreaRange25D, TheGapIsNeverLargerThanThePiece) {
  SetUpRange({1, 1.25}, {2, 3}, {6, 5});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 2, 6}, {1, 3, 5}, 4, 7)});
  transform.SetScale({10, 0, 0, 0}, {0, 10, 10, 0});  // inverted: the working range is negative
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 2, 6}, {1, 3, 5}, 4, 7)});
}

TEST_F(AreaRange25D, InvertedAxesHaveTheSameGap) {
  transform.SetScale({10, 0, 0, 0}, {0, 10, 10, 0});
  SetUpRange({1, 4}, {2, 3}, {6, 5});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 2, 6}, {3.5, 3, 5}, 4, 7)});
}

TEST_F(AreaRange25D, LogarithmicAxes) {
  SetLogScale(0, 1, 1e6);
  SetLogScale(1, 1, 1e6);
  SetLogScale(2, 1, 1000);
  series.AreaRangeChart25D(std::array{10.0, 1000.0}.data(), std::array{1.0, 10.0}.data(),
                           std::array{100.0, 1000.0}.data(), 10.0, 2, 90.0, red, blue, 0, 0);
  WithGap();
  // No gap; the depth is from 10 to 10 + 90.
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 0, 2}, {3, 1, 3}, 1, 2)});
}

// In working coordinates, in which edges are straight, 0 to 2 and 2 to 0 meet half way at 1: at 10.
TEST_F(AreaRange25D, RowsMeetWhereTheirEdgesDo) {
  SetLogScale(2, 1, 1000);
  SetUpRange({2, 6}, {1, 100}, {100, 1});
  ExpectSolids(Drawn(),
               {AreaSolid({2, 0, 2}, {4, 1, 1}, 4, 7), AreaSolid({4, 1, 1}, {6, 0, 2}, 4, 7)});
}

TEST_F(AreaRange25D, SegmentColorsAreThoseOfThePieces) {
  SetUpRange({1, 4, 9}, {2, 8, 7}, {6, 4, 1});
  series.InitSegmentColorsStorage(std::array{yellow, green, cyan}.data());
  ExpectSolidColors(Drawn(), {green, green, cyan});  // the first piece is divided
}

TEST_F(AreaRange25D, OutlinesHaveColorAndWidth) {
  SetUpRange({1, 4}, {2, 3}, {6, 5});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(AreaRange25D, NeedAllThreeArrays) {
  using Delete = void (CChartObj3D::*)();
  for (const Delete free : {&CChartObj3D::DeleteIndDataStorage, &CChartObj3D::DeleteDepDataStorage,
                            &CChartObj3D::DeleteDepData2Storage}) {
    SetUpRange({1, 4}, {2, 3}, {6, 5});
    EXPECT_EQ(Drawn().size(), 6U);
    (series.*free)();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(AreaRange25D, AsManyPointsAsAllArraysHold) {
  SetUpRange({1, 4, 9}, {2, 3, 1}, {6, 5, 4});
  series.SetNumDataPnts(2);
  series.InitDepData2Storage(std::array{6.0, 5.0}.data());
  series.SetNumDataPnts(3);
  ExpectSolids(Drawn(), {AreaSolid({1, 2, 6}, {4, 3, 5}, 4, 7)});
  for (const int count : {1, 0, -1}) {
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

}  // namespace
