#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::AreaSolid;
using orvalix::test::kJustifications;
using orvalix::test::kNan;

class GroupAreas25D : public orvalix::test::SolidTest {
 protected:
  void SetUpGroups(const std::vector<double>& ind, const std::vector<double>& rows,
                   int constJustify = 0, int indAxis = 0, double constWidth = 3.0) {
    const std::array<RGBDType, 3> colors{red, green, yellow};
    series.GroupAreaFillChart25D(ind.data(), rows.data(), 4.0, static_cast<int>(ind.size()),
                                 static_cast<int>(rows.size() / ind.size()), constWidth,
                                 colors.data(), blue, constJustify, indAxis);
    Plain();
  }
};

TEST_F(GroupAreas25D, LayersLieUponEachOther) {
  SetUpGroups({1, 4, 9}, {1, 2, 3, 4, 4, 2});
  // From 0 to 1 2 3, and from there to 5 6 5.
  const auto drawn = Drawn();
  ExpectSolids(drawn,
               {AreaSolid({1, 0, 1}, {4, 0, 2}, 4, 7), AreaSolid({4, 0, 2}, {9, 0, 3}, 4, 7),
                AreaSolid({1, 1, 5}, {4, 2, 6}, 4, 7), AreaSolid({4, 2, 6}, {9, 3, 5}, 4, 7)});
  ExpectSolidColors(drawn, {red, red, green, green});
}

TEST_F(GroupAreas25D, TheBaseValueIsNotUsed) {
  SetUpGroups({1, 4}, {1, 2});
  series.SetBaseValue(5.0);
  ExpectSolids(Drawn(), {AreaSolid({1, 0, 1}, {4, 0, 2}, 4, 7)});
}

TEST_F(GroupAreas25D, NegativeLayersHang) {
  SetUpGroups({1, 4}, {5, 6, -2, -3});
  // 5 to 6, then back to 3.
  ExpectSolids(Drawn(),
               {AreaSolid({1, 0, 5}, {4, 0, 6}, 4, 7), AreaSolid({1, 3, 5}, {4, 3, 6}, 4, 7)});
}

TEST_F(GroupAreas25D, LayersAreDividedWhereTheyChangeTheirSign) {
  SetUpGroups({1, 5}, {4, 8, 3, -1});
  // From 3 above to 1 below the first layer after three quarters of the way, at 4, at 4 + 3 = 7.
  const auto drawn = Drawn();
  ExpectSolids(drawn, {AreaSolid({1, 0, 4}, {5, 0, 8}, 4, 7), AreaSolid({1, 4, 7}, {4, 7, 7}, 4, 7),
                       AreaSolid({4, 7, 7}, {5, 7, 8}, 4, 7)});
  ExpectSolidColors(drawn, {red, green, green});
}

TEST_F(GroupAreas25D, LayersAreClosedAndTurnOut) {
  for (const int indAxis : {0, 1}) {
    for (const double constWidth : {3.0, -3.0}) {
      for (const std::vector<double>& ind :
           {std::vector<double>{1, 4}, std::vector<double>{4, 1}}) {
        SCOPED_TRACE(::testing::Message() << indAxis << ' ' << constWidth << ' ' << ind[0]);
        SetUpGroups(ind, {1, 2, 4, 4}, 0, indAxis, constWidth);
        const auto drawn = Drawn();
        ASSERT_EQ(drawn.size(), 12U);
        // (1 + 2) / 2 high, 3 long and 3 deep; then 4 high
        ExpectClosedOutwards(Part(drawn, 0, 6), 13.5);
        ExpectClosedOutwards(Part(drawn, 6, 6), 36.0);
        SetUpGroups(ind, {-2, 2}, 0, indAxis, constWidth);
        ExpectClosedOutwards(Drawn(), 9.0);  // two triangles 2 high and 1.5 long
      }
    }
  }
}

TEST_F(GroupAreas25D, IndependentValuesMayRunAlongY) {
  SetUpGroups({1, 4}, {1, 2}, 0, 1);
  ExpectBounds(BoundsOf(Drawn()), {4, 1, 0}, {7, 4, 2});
}

TEST_F(GroupAreas25D, JustificationsMoveTheSeries) {
  for (const auto& [justify, share] : kJustifications) {
    SCOPED_TRACE(justify);
    const double near = 4 + 3 * share;
    SetUpGroups({1, 4}, {1, 2}, justify, 0);
    ExpectSolids(Drawn(), {AreaSolid({1, 0, 1}, {4, 0, 2}, near, near + 3)});
    SetUpGroups({1, 4}, {1, 2}, justify, 1);
    ExpectBounds(BoundsOf(Drawn()), {near, 1, 0}, {near + 3, 4, 2});
  }
}

TEST_F(GroupAreas25D, SumsAreConverted) {
  SetLogScale(2, 1, 1000);
  SetUpGroups({1, 4}, {10, 1, 90, 999});
  ExpectSolids(Drawn(),
               {AreaSolid({1, 0, 1}, {4, 0, 0}, 4, 7), AreaSolid({1, 1, 2}, {4, 0, 3}, 4, 7)});
}

TEST_F(GroupAreas25D, TheGapIsAtFarEndsOfLinearAxes) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()),
               {AreaSolid({1, 0, 1}, {3.5, 0, 2}, 4, 7), AreaSolid({1, 1, 5}, {3.5, 2, 6}, 4, 7)});
  SetLogScale(0, 1, 1e6);
  SetUpGroups({10, 1000}, {1, 2});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 0, 1}, {3, 0, 2}, 4, 7)});
}

TEST_F(GroupAreas25D, OutlinesHaveColorAndWidth) {
  SetUpGroups({1, 4}, {1, 2});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(GroupAreas25D, SegmentColorsAreNotTaken) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  series.InitSegmentColorsStorage(std::array{cyan, cyan}.data());
  ExpectSolidColors(Drawn(), {red, green});
}

TEST_F(GroupAreas25D, NoOtherSeriesIsMade) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  const int before = CChartObj3D::nSelfID;
  Drawn();
  EXPECT_EQ(CChartObj3D::nSelfID, before);
}

TEST_F(GroupAreas25D, AsManyRowsAndPointsAsThereAre) {
  SetUpGroups({1, 4, 9}, {1, 2, 3, 4, 4, 2});
  series.SetNumGroups(1000000);
  EXPECT_EQ(Drawn().size(), 24U);
  series.SetNumGroups(1);
  EXPECT_EQ(Drawn().size(), 12U);
  series.SetNumGroups(2);
  series.SetNumDataPnts(4);  // one row of four, three of which have a place
  EXPECT_EQ(Drawn().size(), 12U);
  for (const int count : {1, 0, -1}) {
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
  series.SetNumDataPnts(3);
  for (const int count : {0, -1}) {
    series.SetNumGroups(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupAreas25D, NeedBothArrays) {
  using Delete = void (CChartObj3D::*)();
  for (const Delete free :
       {&CChartObj3D::DeleteIndDataStorage, &CChartObj3D::DeleteGroupDataStorage}) {
    SetUpGroups({1, 4}, {1, 2, 4, 4});
    (series.*free)();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupAreas25D, AnUndefinedValueEndsTheSumsOfItsPoint) {
  SetUpGroups({1, 4, 9}, {kNan, 2, 3, 4, 4, 2});
  ExpectSolids(Drawn(),
               {AreaSolid({4, 0, 2}, {9, 0, 3}, 4, 7), AreaSolid({4, 2, 6}, {9, 3, 5}, 4, 7)});
}

}  // namespace
