#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::AreaSolid;
using orvalix::test::AreaSolidAlongY;
using orvalix::test::kJustifications;

// The tolerance on the scale from 0 to 10 is 10 / 500 = 0.02.
class AreaFill25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpArea(const std::vector<double>& ind, const std::vector<double>& dep, double base = 2.0,
                 int constJustify = 0, int indAxis = 0) {
    SetUpDeepArea(ind, dep, base, 4.0, 3.0, constJustify, indAxis);
  }

  void SetUpDeepArea(const std::vector<double>& ind, const std::vector<double>& dep, double base,
                     double constant, double constWidth, int constJustify = 0, int indAxis = 0) {
    series.AreaFillChart25D(ind.data(), dep.data(), base, constant, static_cast<int>(ind.size()),
                            constWidth, red, blue, constJustify, indAxis);
    Plain();
  }
};

TEST_F(AreaFill25D, SolidsRiseFromTheBaseValue) {
  SetUpArea({1, 4, 9}, {5, 8, 3});
  const auto drawn = Drawn();
  ExpectSolids(drawn,
               {AreaSolid({1, 2, 5}, {4, 2, 8}, 4, 7), AreaSolid({4, 2, 8}, {9, 2, 3}, 4, 7)});
  ExpectSolidColors(drawn, {red, red});
}

TEST_F(AreaFill25D, SolidsHangFromTheBaseValue) {
  SetUpArea({1, 4}, {0, 1});
  // From the values, which are the bottom now, up to the base value.
  ExpectSolids(Drawn(), {AreaSolid({1, 0, 2}, {4, 1, 2}, 4, 7)});
}

TEST_F(AreaFill25D, IndependentValuesMayRunAlongY) {
  SetUpArea({1, 4, 9}, {5, 8, 1}, 0.0, 0, 1);
  ExpectSolids(Drawn(), {AreaSolidAlongY({1, 0, 5}, {4, 0, 8}, 4, 7),
                         AreaSolidAlongY({4, 0, 8}, {9, 0, 1}, 4, 7)});
}

TEST_F(AreaFill25D, JustificationsMoveTheSeries) {
  for (const auto& [justify, share] : kJustifications) {
    SCOPED_TRACE(justify);
    const double near = 4 + 3 * share;
    SetUpArea({1, 4}, {5, 8}, 2.0, justify, 0);
    ExpectSolids(Drawn(), {AreaSolid({1, 2, 5}, {4, 2, 8}, near, near + 3)});
    SetUpArea({1, 4}, {5, 8}, 2.0, justify, 1);
    ExpectSolids(Drawn(), {AreaSolidAlongY({1, 2, 5}, {4, 2, 8}, near, near + 3)});
  }
}

TEST_F(AreaFill25D, ACrossingIsAPointOfTheOutline) {
  SetUpArea({1, 4}, {5, -1});
  // 5 to -1 reaches 2 after half of the way, at 2.5. Both pieces touch the base value there, so
  // that their level lies a tolerance below it.
  ExpectSolids(Drawn(), {AreaSolid({1, 1.98, 5}, {2.5, 1.98, 2}, 4, 7),
                         AreaSolid({2.5, 2, 1.98}, {4, -1, 1.98}, 4, 7)});
  SetUpArea({1, 4}, {-1, 5}, 2.0, 0, 1);
  ExpectSolids(Drawn(), {AreaSolidAlongY({1, -1, 1.98}, {2.5, 2, 1.98}, 4, 7),
                         AreaSolidAlongY({2.5, 1.98, 2}, {4, 1.98, 5}, 4, 7)});
}

TEST_F(AreaFill25D, CrossingsAreFoundInWorldUnits) {
  SetLogScale(0, 1, 1e6);
  SetUpArea({1, 199}, {5, -1});
  // Halfway between 1 and 199 is 100, log10(100) = 2; log10(199) = 2.29885.
  ExpectSolids(Drawn(), {AreaSolid({0, 1.98, 5}, {2, 1.98, 2}, 4, 7),
                         AreaSolid({2, 2, 1.98}, {2.29885308, -1, 1.98}, 4, 7)});
}

TEST_F(AreaFill25D, AValueOnTheBaseValueTouchesIt) {
  // 2 and 5 both lie above the level at which crossings are looked for, 1.98.
  SetUpArea({1, 4}, {2, 5});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.98, 2}, {4, 1.98, 5}, 4, 7)});
  SetUpArea({1, 4}, {2, 2});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.98, 2}, {4, 1.98, 2}, 4, 7)});
  // Touching is a matter of single pieces.
  SetUpArea({1, 4, 7}, {2, 5, 6});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.98, 2}, {4, 1.98, 5}, 4, 7),
                         AreaSolid({4, 2, 5}, {7, 2, 6}, 4, 7)});
}

TEST_F(AreaFill25D, AValueThatComesUpToTheBaseValueCrosses) {
  SetUpArea({1, 4}, {-1, 2});
  // -1 lies below 1.98 and 2 above it: the crossing is the end itself, and a piece without length
  // follows.
  ExpectSolids(Drawn(), {AreaSolid({1, -1, 1.98}, {4, 2, 1.98}, 4, 7),
                         AreaSolid({4, 1.98, 2}, {4, 1.98, 2}, 4, 7)});
}

TEST_F(AreaFill25D, ValuesWithinTheToleranceAreAboveTheBaseValue) {
  // Both above 1.98: no crossing. One of them is below the base value, so that the solid runs from
  // the values up to it.
  SetUpArea({1, 4}, {1.99, 5});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.99, 2}, {4, 5, 2}, 4, 7)});
}

TEST_F(AreaFill25D, CrossingsStayBetweenTheirPoints) {
  // From 1.99 to -1 there is no 2, but there is 1.98: the base value is reached at the first point.
  SetUpArea({1, 4}, {1.99, -1});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.99, 1.98}, {1, 2, 1.98}, 4, 7),
                         AreaSolid({1, 2, 1.98}, {4, -1, 1.98}, 4, 7)});
  SetUpArea({1, 4}, {-1, 1.99});
  ExpectSolids(Drawn(), {AreaSolid({1, -1, 1.98}, {4, 2, 1.98}, 4, 7),
                         AreaSolid({4, 2, 1.98}, {4, 1.99, 1.98}, 4, 7)});
}

TEST_F(AreaFill25D, TheToleranceFollowsTheScale) {
  transform.SetScale({0, 0, 0, 0}, {10, 10, 50, 0});  // 50 / 500 = 0.1
  SetUpArea({1, 4}, {2, 5});
  ExpectSolids(Drawn(), {AreaSolid({1, 1.9, 2}, {4, 1.9, 5}, 4, 7)});
  // And -50 / 500 = -0.1 on an inverted scale: the level is 2.1, and reached from 2 on.
  transform.SetScale({0, 0, 50, 0}, {10, 10, 0, 0});
  ExpectSolids(Drawn(), {AreaSolid({1, 2.1, 2}, {1, 2.1, 2}, 4, 7),
                         AreaSolid({1, 2.1, 2}, {4, 2.1, 5}, 4, 7)});
}

TEST_F(AreaFill25D, LogarithmicValuesAndDepths) {
  SetLogScale(1, 1, 1e6);
  SetLogScale(2, 1, 1000);
  // Depth from 10 to 10 + 90, that is from 1 to 2; base log10(10) = 1.
  SetUpDeepArea({1, 4}, {100, 1000}, 10, 10, 90);
  ExpectSolids(Drawn(), {AreaSolid({1, 1, 2}, {4, 1, 3}, 1, 2)});
  // Centred it begins at 55 - 45 = 10: justifications are in world units.
  SetUpDeepArea({1, 4}, {100, 1000}, 10, 55, 90, 1);
  ExpectSolids(Drawn(), {AreaSolid({1, 1, 2}, {4, 1, 3}, 1, 2)});
}

TEST_F(AreaFill25D, TheGapIsAtFarEndsOnly) {
  SetUpArea({1, 4, 9}, {5, 8, 3});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()),
               {AreaSolid({1, 2, 5}, {3.5, 2, 8}, 4, 7), AreaSolid({4, 2, 8}, {8.5, 2, 3}, 4, 7)});
  SetUpArea({1, 4, 9}, {5, 8, 3}, 2.0, 0, 1);
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolidAlongY({1, 2, 5}, {3.5, 2, 8}, 4, 7),
                                         AreaSolidAlongY({4, 2, 8}, {8.5, 2, 3}, 4, 7)});
}

TEST_F(AreaFill25D, CrossingsHaveAGapToo) {
  SetUpArea({1, 4}, {5, -1});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 1.98, 5}, {2, 1.98, 2}, 4, 7),
                                         AreaSolid({2.5, 2, 1.98}, {3.5, -1, 1.98}, 4, 7)});
}

TEST_F(AreaFill25D, NoGapOnALogarithmicAxis) {
  SetLogScale(0, 1, 1e6);
  SetUpArea({10, 1000}, {5, 8});
  WithGap();
  ExpectSolids(FacesFromEdges(Drawn()), {AreaSolid({1, 2, 5}, {3, 2, 8}, 4, 7)});
}

TEST_F(AreaFill25D, SegmentColorsAdvanceWithTheSolids) {
  SetUpArea({1, 4, 9}, {5, 8, 3});
  series.InitSegmentColorsStorage(std::array{yellow, green, cyan}.data());
  ExpectSolidColors(Drawn(), {green, cyan});
  // A crossing makes a solid more; the colours don't suffice for the last one.
  series.SetDepData(1, -1.0);
  series.SetDepData(2, -1.0);
  ExpectSolidColors(Drawn(), {green, cyan, red});
  series.SetSegmentColorMode(0);
  ExpectSolidColors(Drawn(), {red, red, red});
}

TEST_F(AreaFill25D, OutlinesHaveColorAndWidth) {
  SetUpArea({1, 4}, {5, 8});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 30U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(AreaFill25D, FewOrNoPoints) {
  SetUpArea({}, {});
  EXPECT_TRUE(Drawn().empty());
  SetUpArea({5}, {5});
  EXPECT_TRUE(Drawn().empty());
  SetUpArea({1, 4, 9}, {5, 8, 3});
  series.SetNumDataPnts(1000000);
  EXPECT_EQ(Drawn().size(), 12U);
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(3);
  series.DeleteDepDataStorage();
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
