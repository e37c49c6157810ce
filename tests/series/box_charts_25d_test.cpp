#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::FeedbackPrimitive;

class BoxChart25D : public orvalix::test::SolidTest {
 protected:
  /// Lower end, lower edge, division, upper edge, upper end and symbol of one distribution.
  void SetUpBox(int symbolFlag = 1, int indAxis = 0) {
    SetUpBoxes({5}, {1, 2, 4, 7, 9, 6}, symbolFlag, indAxis);
  }

  void SetUpBoxes(const std::vector<double>& ind, const std::vector<double>& rows,
                  int symbolFlag = 1, int indAxis = 0) {
    const std::array<RGBDType, 6> colors{red, green, yellow, cyan, magenta, white};
    series.BoxAndWhiskerChart25D(ind.data(), rows.data(), 4.0, static_cast<int>(ind.size()), 2.0,
                                 3.0, CChartObj3D::kCube, 1.0, 3, colors.data(), blue, 0, 0,
                                 indAxis, symbolFlag);
    Plain();
  }

  /// A cube of size 1, 10 pixels large.
  void ExpectCube(const std::vector<FeedbackPrimitive>& drawn, double x, double y, double z) {
    ASSERT_EQ(drawn.size(), 6U);
    for (const FeedbackPrimitive& face : drawn) ExpectColor(face, white);
    const auto middle = Window({x, y, z});
    const Bounds bounds = BoundsOf(drawn);
    EXPECT_NEAR(bounds.low.x, middle.x - 5.0, 1e-2);
    EXPECT_NEAR(bounds.high.x, middle.x + 5.0, 1e-2);
    EXPECT_NEAR(bounds.low.y, middle.y - 5.0, 1e-2);
    EXPECT_NEAR(bounds.high.y, middle.y + 5.0, 1e-2);
    EXPECT_NEAR((bounds.low.z + bounds.high.z) / 2.0, middle.z, 1e-5);
  }

  const RGBDType white = SetRGBD(1, 1, 1, 1);
};

TEST_F(BoxChart25D, PartsFollowEachOther) {
  SetUpBox();
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U + 5U * 6U);
  ExpectLines(Part(drawn, 0, 1), {{{5, 4, 9}, {5, 4, 1}}});  // the whisker, from above
  ExpectColor(drawn[0], magenta);
  ExpectCube(Part(drawn, 1, 6), 5, 4, 6);
  // 2 x 3, centred on (5, 4): the lower end, 0.02 of 10 thick; the box from 2 to 4 to 7; the upper
  // end.
  const auto solids = Part(drawn, 7, 24);
  ExpectBoxes(
      solids,
      {{4, 2.5, 1, 2, 3, 0.2}, {4, 2.5, 2, 2, 3, 2}, {4, 2.5, 4, 2, 3, 3}, {4, 2.5, 9, 2, 3, 0.2}});
  ExpectSolidColors(solids, {red, green, yellow, cyan});
}

TEST_F(BoxChart25D, EachPartOfAllPointsComesBeforeTheNextPart) {
  SetUpBoxes({2, 7}, {1, 0, 2, 1, 4, 2, 7, 3, 9, 4, 6, 5});
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U + 10U * 6U);
  ExpectLines(Part(drawn, 0, 2), {{{2, 4, 9}, {2, 4, 1}}, {{7, 4, 4}, {7, 4, 0}}});
  ExpectCube(Part(drawn, 2, 6), 2, 4, 6);
  ExpectCube(Part(drawn, 8, 6), 7, 4, 5);
  ExpectBoxes(Part(drawn, 14, 48), {{1, 2.5, 1, 2, 3, 0.2},
                                    {6, 2.5, 0, 2, 3, 0.2},
                                    {1, 2.5, 2, 2, 3, 2},
                                    {6, 2.5, 1, 2, 3, 1},
                                    {1, 2.5, 4, 2, 3, 3},
                                    {6, 2.5, 2, 2, 3, 1},
                                    {1, 2.5, 9, 2, 3, 0.2},
                                    {6, 2.5, 4, 2, 3, 0.2}});
}

TEST_F(BoxChart25D, IndependentValuesMayRunAlongY) {
  SetUpBox(1, 1);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 31U);
  ExpectLines(Part(drawn, 0, 1), {{{4, 5, 9}, {4, 5, 1}}});
  ExpectCube(Part(drawn, 1, 6), 4, 5, 6);
  ExpectBoxes(
      Part(drawn, 7, 24),
      {{2.5, 4, 1, 3, 2, 0.2}, {2.5, 4, 2, 3, 2, 2}, {2.5, 4, 4, 3, 2, 3}, {2.5, 4, 9, 3, 2, 0.2}});
}

TEST_F(BoxChart25D, SymbolsAreDrawnWhenTheirFlagIsSet) {
  SetUpBox(0);
  const std::array<int, 6> others{0, 1, 1, 1, 1, 1};
  series.SetComboChartFlags(others.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 25U);
  ExpectBoxes(Part(drawn, 1, 6), {{4, 2.5, 1, 2, 3, 0.2}});
}

TEST_F(BoxChart25D, AllPartsAreOneMoreSeries) {
  for (const int symbolFlag : {0, 1}) {
    SetUpBox(symbolFlag);
    for (int redraw = 0; redraw < 2; ++redraw) {
      const int before = CChartObj3D::nSelfID;
      Drawn();
      EXPECT_EQ(CChartObj3D::nSelfID, before + 1);
    }
  }
}

TEST_F(BoxChart25D, TheWhiskerHasStyleAndWidth) {
  SetUpBox(0);
  series.SetLineStyle(2);
  Drawn();
  EXPECT_EQ(GLNumber(GL_LINE_STIPPLE_PATTERN), 0x1111);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
}

TEST_F(BoxChart25D, PartsHaveTheOutlinesOfTheSeries) {
  SetUpBox(0);
  series.SetOutlineMode(1);
  series.SetOutlineWidth(2.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U + 4U * 30U);
  for (const std::size_t solid : {0U, 1U, 2U, 3U}) {
    ExpectColor(drawn[1 + 30 * solid + 1], blue);
  }
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 2.0);
  EXPECT_EQ(target.gl->GetPolygonOutlineMode(), 0);
}

TEST_F(BoxChart25D, EndsHaveTheThicknessOfTheSeries) {
  SetUpBox(0);
  series.SetPlaneThickness(0.1);
  ExpectBoxes(Part(Drawn(), 1, 6), {{4, 2.5, 1, 2, 3, 1}});
}

TEST_F(BoxChart25D, JustificationsAreOnlyStored) {
  SetUpBox();
  const auto drawn = Drawn();
  series.SetConstJustify(2);
  series.SetIndJustify(2);
  series.SetDepJustify(2);
  ExpectSame(Drawn(), drawn);
}

TEST_F(BoxChart25D, LogarithmicBoxesAreFloatingBars) {
  SetLogScale(2, 1, 1000);
  SetUpBoxes({5}, {1, 90, 100, 200, 1000, 10});
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 31U);
  ExpectLines(Part(drawn, 0, 1), {{{5, 4, 3}, {5, 4, 0}}});
  ExpectCube(Part(drawn, 1, 6), 5, 4, 1);
  // Ends at log10(1) and log10(1000), 0.02 of three decades thick. The lower box hangs from
  // log10(100) = 2, log10(100 - 90) = 1 high; the upper one from log10(200) = 2.30103,
  // log10(200 - 100) = 2 high.
  ExpectBoxes(Part(drawn, 7, 24), {{4, 2.5, 0, 2, 3, 0.06},
                                   {4, 2.5, 1, 2, 3, 1},
                                   {4, 2.5, 0.30103, 2, 3, 2},
                                   {4, 2.5, 3, 2, 3, 0.06}});
}

TEST_F(BoxChart25D, NeedsSixRowsAndPlaces) {
  SetUpBox();
  series.SetNumGroups(5);
  EXPECT_TRUE(Drawn().empty());
  SetUpBox();
  series.SetNumDataPnts(2);  // six values are three rows of two
  EXPECT_TRUE(Drawn().empty());
  SetUpBox();
  series.DeleteGroupDataStorage();
  EXPECT_TRUE(Drawn().empty());
  SetUpBox();
  series.DeleteIndDataStorage();
  EXPECT_TRUE(Drawn().empty());
  for (const int count : {0, -1}) {
    SetUpBox();
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(BoxChart25D, FewerPlacesThanDistributions) {
  SetUpBoxes({2, 7}, {1, 0, 2, 1, 4, 2, 7, 3, 9, 4, 6, 5}, 0);
  series.SetNumDataPnts(1);
  series.InitIndDataStorage(std::array{5.0}.data());
  series.SetNumDataPnts(2);
  EXPECT_EQ(Drawn().size(), 25U);
}

TEST_F(BoxChart25D, PartsWithoutAColorHaveThatOfTheSeries) {
  SetUpBox(0);
  series.SetFillColor(white);
  series.DeleteGroupColorsStorage();
  for (const FeedbackPrimitive& primitive : Drawn()) ExpectColor(primitive, white);
}

}  // namespace
