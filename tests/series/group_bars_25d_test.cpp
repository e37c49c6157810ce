#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::Box;
using orvalix::test::kJustifications;
using orvalix::test::kNan;

constexpr int kSideBySide = 0;
constexpr int kStacked = 1;

class GroupBars25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpGroups(const std::vector<double>& ind, const std::vector<double>& rows, int groupType,
                   int indJustify = 0, int constJustify = 0, int indAxis = 0, double base = 1.0) {
    SetUpWideGroups(ind, rows, groupType, 4.0, 2.0, 3.0, indJustify, constJustify, indAxis, base);
  }

  void SetUpWideGroups(const std::vector<double>& ind, const std::vector<double>& rows,
                       int groupType, double constant, double indWidth, double constWidth,
                       int indJustify = 0, int constJustify = 0, int indAxis = 0,
                       double base = 1.0) {
    const std::array<RGBDType, 3> colors{red, green, yellow};
    series.GroupBarChart25D(ind.data(), rows.data(), constant, base, static_cast<int>(ind.size()),
                            static_cast<int>(rows.size() / ind.size()), groupType, indWidth,
                            constWidth, colors.data(), blue, indJustify, constJustify, indAxis);
    Plain();
  }
};

TEST_F(GroupBars25D, SideBySideTheyShareTheWidth) {
  SetUpGroups({1, 5}, {3, 4, 6, -2}, kSideBySide);
  // Two slots of 1, on the base value 1; a negative value is as high as a positive one.
  const auto drawn = Drawn();
  ExpectBoxes(drawn,
              {{1, 4, 1, 1, 3, 3}, {2, 4, 1, 1, 3, 6}, {5, 4, 1, 1, 3, 4}, {6, 4, 1, 1, 3, 2}});
  ExpectSolidColors(drawn, {red, green, red, green});
}

TEST_F(GroupBars25D, SideBySideAlongY) {
  SetUpGroups({1, 5}, {3, 4, 6, -2}, kSideBySide, 0, 0, 1);
  ExpectBoxes(Drawn(),
              {{4, 1, 1, 3, 1, 3}, {4, 2, 1, 3, 1, 6}, {4, 5, 1, 3, 1, 4}, {4, 6, 1, 3, 1, 2}});
}

TEST_F(GroupBars25D, StackedTheyBeginWhereTheGroupBeforeEnds) {
  SetUpGroups({1, 5}, {3, 4, 6, -2}, kStacked);
  // From 0 to 3 to 9, and from 0 to 4 back to 2, whatever the base value is.
  const auto drawn = Drawn();
  ExpectBoxes(drawn,
              {{1, 4, 0, 2, 3, 3}, {1, 4, 3, 2, 3, 6}, {5, 4, 0, 2, 3, 4}, {5, 4, 2, 2, 3, 2}});
  ExpectSolidColors(drawn, {red, green, red, green});
  SetUpGroups({1}, {-1, -2, 4}, kStacked);  // to -1, to -3, to 1
  ExpectBoxes(Drawn(), {{1, 4, -1, 2, 3, 1}, {1, 4, -3, 2, 3, 2}, {1, 4, -3, 2, 3, 4}});
}

TEST_F(GroupBars25D, StackedAlongY) {
  SetUpGroups({1, 5}, {3, 4, 6, 2}, kStacked, 0, 0, 1);
  ExpectBoxes(Drawn(),
              {{4, 1, 0, 3, 2, 3}, {4, 1, 3, 3, 2, 6}, {4, 5, 0, 3, 2, 4}, {4, 5, 4, 3, 2, 2}});
}

TEST_F(GroupBars25D, OtherTypesDrawNothing) {
  for (const int type : {2, -1, 1000000}) {
    SetUpGroups({1, 5}, {3, 4, 6, -2}, type);
    EXPECT_TRUE(Drawn().empty()) << type;
  }
}

TEST_F(GroupBars25D, JustificationsMoveWholeGroups) {
  for (const auto& [ind, indShare] : kJustifications) {
    for (const auto& [constant, constShare] : kJustifications) {
      SCOPED_TRACE(::testing::Message() << ind << ", " << constant);
      const double along = 5 + 2 * indShare;
      const double across = 4 + 3 * constShare;
      SetUpGroups({5}, {3, 6}, kSideBySide, ind, constant, 0);
      ExpectBoxes(Drawn(), {{along, across, 1, 1, 3, 3}, {along + 1, across, 1, 1, 3, 6}});
      SetUpGroups({5}, {3, 6}, kSideBySide, ind, constant, 1);
      ExpectBoxes(Drawn(), {{across, along, 1, 3, 1, 3}, {across, along + 1, 1, 3, 1, 6}});
      SetUpGroups({5}, {3, 6}, kStacked, ind, constant, 0);
      ExpectBoxes(Drawn(), {{along, across, 0, 2, 3, 3}, {along, across, 3, 2, 3, 6}});
      SetUpGroups({5}, {3, 6}, kStacked, ind, constant, 1);
      ExpectBoxes(Drawn(), {{across, along, 0, 3, 2, 3}, {across, along, 3, 3, 2, 6}});
    }
  }
}

TEST_F(GroupBars25D, LogarithmicHeightsSideBySide) {
  SetLogScale(2, 1, 1000);
  SetUpGroups({1}, {100, 0.1}, kSideBySide, 0, 0, 0, 10.0);
  // On log10(10) = 1; log10(100) = 2 and |log10(0.1)| = 1 high.
  ExpectBoxes(Drawn(), {{1, 4, 1, 1, 3, 2}, {2, 4, 1, 1, 3, 1}});
}

TEST_F(GroupBars25D, LogarithmicHeightsStacked) {
  SetLogScale(2, 1, 1000);
  SetUpGroups({1}, {10, 90, -99}, kStacked);
  // Sums 10, 100, 1: from 0 (there is no log10(0)) to 1, to 2, back to 0.
  ExpectBoxes(Drawn(), {{1, 4, 0, 2, 3, 1}, {1, 4, 1, 2, 3, 1}, {1, 4, 0, 2, 3, 2}});
}

TEST_F(GroupBars25D, LogarithmicFootprintsAreConvertedEndByEnd) {
  SetLogScale(0, 1, 1e6);
  SetLogScale(1, 1, 1e6);
  SetUpWideGroups({10}, {3, 6}, kSideBySide, 10, 180, 90);
  // Slots of 90: 10 to 100 to 190; depth 10 to 100. log10(190) = 2.27875.
  ExpectBoxes(Drawn(), {{1, 1, 1, 1, 1, 3}, {2, 1, 1, 0.27875360, 1, 6}});
  SetUpWideGroups({10}, {3, 6}, kStacked, 10, 90, 990);
  ExpectBoxes(Drawn(), {{1, 1, 0, 1, 2, 3}, {1, 1, 3, 1, 2, 6}});
  // Justifications move converted places by widths as they are: 2 - 1.5 / 2 and 2 - 1.
  SetUpWideGroups({100}, {3}, kStacked, 100, 1.5, 1, 1, 2);
  ExpectBoxes(Drawn(), {{1.25, 1, 0, 0.00646604, 0.00432137, 3}});  // log10(1.015), log10(1.01)
}

TEST_F(GroupBars25D, NegativeWidthsAreAbsolute) {
  SetUpWideGroups({5}, {3, 6}, kSideBySide, 7, -2, -3);
  // Slots begin at 5 and 4, and are 1 wide all the same; so is the depth.
  ExpectBoxes(Drawn(), {{5, 7, 1, 1, 3, 3}, {4, 7, 1, 1, 3, 6}});
}

TEST_F(GroupBars25D, OutlinesHaveColorAndWidth) {
  SetUpGroups({1}, {3}, kStacked);
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(GroupBars25D, MissingRowsLeaveTheirSlotsEmpty) {
  SetUpGroups({1, 5}, {3, 4, 6, 2}, kSideBySide);
  series.SetNumGroups(4);
  // Slots of 2 / 4; the colours don't suffice for a fourth group anyway.
  ExpectBoxes(
      Drawn(),
      {{1, 4, 1, 0.5, 3, 3}, {1.5, 4, 1, 0.5, 3, 6}, {5, 4, 1, 0.5, 3, 4}, {5.5, 4, 1, 0.5, 3, 2}});
  series.SetNumGroups(1);
  ExpectBoxes(Drawn(), {{1, 4, 1, 2, 3, 3}, {5, 4, 1, 2, 3, 4}});
}

TEST_F(GroupBars25D, RowsArePlacedByTheNumberOfPoints) {
  SetUpGroups({1, 5}, {3, 4, 6, 2}, kStacked);
  series.SetNumDataPnts(3);  // a row of three, and one that isn't complete
  ExpectBoxes(Drawn(), {{1, 4, 0, 2, 3, 3}, {5, 4, 0, 2, 3, 4}});
  series.SetNumDataPnts(5);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(1);  // rows of one: 3 and 4
  ExpectBoxes(Drawn(), {{1, 4, 0, 2, 3, 3}, {1, 4, 3, 2, 3, 4}});
  for (const int count : {0, -1}) {
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
  series.SetNumDataPnts(2);
  for (const int count : {0, -1}) {
    series.SetNumGroups(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupBars25D, GroupsWithoutAColorHaveThatOfTheSeries) {
  SetUpGroups({1}, {3, 4}, kStacked);
  series.SetFillColor(cyan);
  series.SetNumGroups(1);
  series.InitGroupColorsStorage(&yellow);
  series.SetNumGroups(2);
  ExpectSolidColors(Drawn(), {yellow, cyan});
}

TEST_F(GroupBars25D, NeedColors) {
  SetUpGroups({1}, {3, 4}, kStacked);
  series.DeleteGroupColorsStorage();
  EXPECT_TRUE(Drawn().empty());
  for (const int type : {CChartObj3D::kGroupRibbonChart25D, CChartObj3D::kGroupAreaFillChart25D}) {
    SetUpGroups({1, 2}, {3, 4, 5, 6}, kStacked);
    series.SetChartType(type);
    EXPECT_FALSE(Drawn().empty());
    series.DeleteGroupColorsStorage();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupBars25D, NeedBothArrays) {
  using Delete = void (CChartObj3D::*)();
  for (const int type : {kSideBySide, kStacked}) {
    for (const Delete free :
         {&CChartObj3D::DeleteIndDataStorage, &CChartObj3D::DeleteGroupDataStorage}) {
      SetUpGroups({1, 5}, {3, 4, 6, -2}, type);
      EXPECT_EQ(Drawn().size(), 24U);
      (series.*free)();
      EXPECT_TRUE(Drawn().empty());
    }
  }
}

TEST_F(GroupBars25D, AnUndefinedValueEndsItsStack) {
  SetUpGroups({1, 5}, {kNan, 4, 6, 2}, kStacked);
  ExpectBoxes(Drawn(), {{5, 4, 0, 2, 3, 4}, {5, 4, 4, 2, 3, 2}});
  SetUpGroups({1, 5}, {kNan, 4, 6, 2}, kSideBySide);
  ExpectBoxes(Drawn(), {{2, 4, 1, 1, 3, 6}, {5, 4, 1, 1, 3, 4}, {6, 4, 1, 1, 3, 2}});
}

}  // namespace
