#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::FeedbackPrimitive;
using orvalix::test::OfKind;
using Kind = FeedbackPrimitive::Kind;

using Flags = std::array<int, 5>;
constexpr Flags kOpen{1, 0, 0, 0, 0};
constexpr Flags kHigh{0, 1, 0, 0, 0};
constexpr Flags kLow{0, 0, 1, 0, 0};
constexpr Flags kClose{0, 0, 0, 1, 0};
constexpr Flags kLine{0, 0, 0, 0, 1};
constexpr Flags kAll{1, 1, 1, 1, 1};

// x reaches from 0 to 10, y from 0 to 20: a size of 1 makes planes and tics 1 along x and 2 along
// y.
class MarketChart25D : public orvalix::test::SolidTest {
 protected:
  MarketChart25D() { transform.SetScale({0, 0, 0, 0}, {10, 20, 10, 0}); }

  /// At 5 in row 4: opens at 3, between 8 and 2, closes at 7.
  void SetUpMarket(const Flags& flags, int indAxis = 0, int symbol = CChartObj3D::kCube,
                   int symbol2 = CChartObj3D::kCube, double size = 1.0) {
    SetUpDays({5}, {3, 8, 2, 7}, flags.data(), indAxis, symbol, symbol2, size);
  }

  void SetUpDays(const std::vector<double>& ind, const std::vector<double>& rows, const int* flags,
                 int indAxis = 0, int symbol = CChartObj3D::kCube, int symbol2 = CChartObj3D::kCube,
                 double size = 1.0) {
    const std::array<RGBDType, 5> colors{red, green, yellow, cyan, magenta};
    series.OHLCChart25D(ind.data(), rows.data(), 4.0, static_cast<int>(ind.size()), symbol, symbol2,
                        size, 3, colors.data(), blue, 0, 0, indAxis, flags);
    Plain();
  }

  /// A symbol is a tenth of a normalised unit large, whatever the scales are: 10 pixels of the 100
  /// that a unit has, and 0.05 of the depth.
  void ExpectCube(const std::vector<FeedbackPrimitive>& drawn, double x, double y, double z,
                  const RGBDType& color, double size = 1.0) {
    ASSERT_EQ(drawn.size(), 6U);
    for (const FeedbackPrimitive& face : drawn) ExpectColor(face, color);
    const auto middle = Window({x, y, z});
    const Bounds bounds = BoundsOf(drawn);
    EXPECT_NEAR(bounds.low.x, middle.x - 5.0 * size, 1e-2);
    EXPECT_NEAR(bounds.high.x, middle.x + 5.0 * size, 1e-2);
    EXPECT_NEAR(bounds.low.y, middle.y - 5.0 * size, 1e-2);
    EXPECT_NEAR(bounds.high.y, middle.y + 5.0 * size, 1e-2);
    EXPECT_NEAR(bounds.low.z, middle.z - 0.025 * size, 1e-5);
    EXPECT_NEAR(bounds.high.z, middle.z + 0.025 * size, 1e-5);
  }
};

TEST_F(MarketChart25D, OpenIsASymbol) {
  SetUpMarket(kOpen);
  ExpectCube(Drawn(), 5, 4, 3, red);
  SetUpMarket(kOpen, 1);
  ExpectCube(Drawn(), 4, 5, 3, red);
}

TEST_F(MarketChart25D, HighIsAPlane) {
  SetUpMarket(kHigh);
  // 1 x 2, centred on (5, 4), 0.02 of 10 thick
  auto drawn = Drawn();
  ExpectBoxes(drawn, {{4.5, 3, 8, 1, 2, 0.2}});
  ExpectSolidColors(drawn, {green});
  SetUpMarket(kHigh, 1);
  drawn = Drawn();
  ExpectBoxes(drawn, {{3.5, 4, 8, 1, 2, 0.2}});
}

TEST_F(MarketChart25D, LowIsAPlane) {
  SetUpMarket(kLow);
  auto drawn = Drawn();
  ExpectBoxes(drawn, {{4.5, 3, 2, 1, 2, 0.2}});
  ExpectSolidColors(drawn, {yellow});
  SetUpMarket(kLow, 1);
  ExpectBoxes(Drawn(), {{3.5, 4, 2, 1, 2, 0.2}});
}

TEST_F(MarketChart25D, CloseIsTheSecondSymbol) {
  SetUpMarket(kClose, 0, CChartObj3D::kPlus, CChartObj3D::kCube);
  ExpectCube(Drawn(), 5, 4, 7, cyan);
  SetUpMarket(kClose, 1, CChartObj3D::kPlus, CChartObj3D::kCube);
  ExpectCube(Drawn(), 4, 5, 7, cyan);
  SetUpMarket(kClose, 0, CChartObj3D::kCube, CChartObj3D::kPlus);
  EXPECT_EQ(Drawn().size(), 12U);  // two solids
}

TEST_F(MarketChart25D, TheLineGoesFromHighToLow) {
  SetUpMarket(kLine);
  auto drawn = Drawn();
  ExpectLines(drawn, {{{5, 4, 8}, {5, 4, 2}}});
  ExpectColor(drawn[0], magenta);
  SetUpMarket(kLine, 1);
  ExpectLines(Drawn(), {{{4, 5, 8}, {4, 5, 2}}});
}

TEST_F(MarketChart25D, TheLineHasStyleAndWidth) {
  SetUpMarket(kLine);
  series.SetLineStyle(2);
  Drawn();
  EXPECT_EQ(GLNumber(GL_LINE_STIPPLE_PATTERN), 0x1111);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
}

TEST_F(MarketChart25D, StyleIsResetWhateverIsDrawn) {
  for (const Flags& flags : {kLine, kOpen, Flags{}}) {
    SetUpMarket(flags);
    series.SetLineStyle(2);
    target.gl->SetLineStyle3D(5, 6.0, yellow);
    Drawn();
    EXPECT_EQ(target.gl->GetLineStyle(), 0);
    EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
    EXPECT_EQ(target.gl->GetLineColor3D().red, 0.0);
    EXPECT_EQ(target.gl->GetLineColor3D().green, 0.0);
    EXPECT_EQ(target.gl->GetLineColor3D().blue, 0.0);
  }
}

TEST_F(MarketChart25D, PartsFollowEachOther) {
  SetUpDays({2, 7}, {3, 4, 8, 9, 2, 1, 7, 5}, kAll.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U + 4U * 12U);
  ExpectLines(Part(drawn, 0, 2), {{{2, 4, 8}, {2, 4, 2}}, {{7, 4, 9}, {7, 4, 1}}});
  ExpectCube(Part(drawn, 2, 6), 2, 4, 3, red);
  ExpectCube(Part(drawn, 8, 6), 7, 4, 4, red);
  ExpectBoxes(Part(drawn, 14, 12), {{1.5, 3, 8, 1, 2, 0.2}, {6.5, 3, 9, 1, 2, 0.2}});
  ExpectSolidColors(Part(drawn, 14, 12), {green, green});
  ExpectBoxes(Part(drawn, 26, 12), {{1.5, 3, 2, 1, 2, 0.2}, {6.5, 3, 1, 1, 2, 0.2}});
  ExpectSolidColors(Part(drawn, 26, 12), {yellow, yellow});
  ExpectCube(Part(drawn, 38, 6), 2, 4, 7, cyan);
  ExpectCube(Part(drawn, 44, 6), 7, 4, 5, cyan);
}

TEST_F(MarketChart25D, WithoutFlagsAllPartsAreDrawn) {
  SetUpMarket(kAll);
  const auto all = Drawn();
  SetUpDays({5}, {3, 8, 2, 7}, nullptr);
  ExpectSame(Drawn(), all);
  SetUpMarket(Flags{});
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(MarketChart25D, SizesOfSymbolsPlanesAndTics) {
  SetUpMarket(kOpen, 0, CChartObj3D::kCube, CChartObj3D::kCube, 2.0);
  ExpectCube(Drawn(), 5, 4, 3, red, 2.0);
  SetUpMarket(kHigh, 0, CChartObj3D::kCube, CChartObj3D::kCube, 0.5);
  ExpectBoxes(Drawn(), {{4.75, 3.5, 8, 0.5, 1, 0.2}});
  SetUpMarket(kOpen, 0, 0, 0, 2.0);
  ExpectLines(Drawn(), {{{5, 4, 3}, {4, 4, 3}}});
}

TEST_F(MarketChart25D, Symbol0MakesTics) {
  SetUpMarket(kOpen, 0, 0, 0);
  // Half as long as planes are wide: 0.5 along x, towards smaller values for open, and larger ones
  // for close.
  auto drawn = Drawn();
  ExpectLines(drawn, {{{5, 4, 3}, {4.5, 4, 3}}});
  ExpectColor(drawn[0], red);
  SetUpMarket(kClose, 0, 0, 0);
  drawn = Drawn();
  ExpectLines(drawn, {{{5, 4, 7}, {5.5, 4, 7}}});
  ExpectColor(drawn[0], cyan);
  SetUpMarket(kOpen, 1, 0, 0);
  ExpectLines(Drawn(), {{{4, 5, 3}, {4, 4, 3}}});
  SetUpMarket(kClose, 1, 0, 0);
  ExpectLines(Drawn(), {{{4, 5, 7}, {4, 6, 7}}});
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
}

TEST_F(MarketChart25D, TicsComeBeforeTheSolids) {
  SetUpMarket(kAll, 0, 0, 0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 15U);
  ExpectLines(Part(drawn, 0, 3),
              {{{5, 4, 8}, {5, 4, 2}}, {{5, 4, 3}, {4.5, 4, 3}}, {{5, 4, 7}, {5.5, 4, 7}}});
  ExpectBoxes(Part(drawn, 3, 12), {{4.5, 3, 8, 1, 2, 0.2}, {4.5, 3, 2, 1, 2, 0.2}});
}

TEST_F(MarketChart25D, EachPartCountsAsASeries) {
  const auto countedBy = [&](const Flags& flags, int symbol) {
    SetUpMarket(flags, 0, symbol, symbol);
    const int before = CChartObj3D::nSelfID;
    Drawn();
    return CChartObj3D::nSelfID - before;
  };
  for (const int symbol : {0, int{CChartObj3D::kCube}}) {
    EXPECT_EQ(countedBy(kAll, symbol), 4);
    EXPECT_EQ(countedBy(kLine, symbol), 0);
    for (const Flags& one : {kOpen, kHigh, kLow, kClose}) EXPECT_EQ(countedBy(one, symbol), 1);
  }
}

TEST_F(MarketChart25D, PartsHaveTheOutlinesAndThicknessOfTheSeries) {
  SetUpMarket(kHigh);
  series.SetOutlineMode(1);
  series.SetOutlineWidth(2.0);
  series.SetPlaneThickness(0.1);
  const auto drawn = Drawn();
  ExpectBoxes(FacesFromEdges(drawn), {{4.5, 3, 8, 1, 2, 1}});
  ExpectColor(drawn[1], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 2.0);
}

TEST_F(MarketChart25D, JustificationsAreOnlyStored) {
  SetUpMarket(kAll);
  const auto drawn = Drawn();
  series.SetConstJustify(2);
  series.SetIndJustify(2);
  series.SetDepJustify(2);
  ExpectSame(Drawn(), drawn);
}

TEST_F(MarketChart25D, LinesAndSymbolsAreConverted) {
  SetLogScale(2, 1, 1000);
  SetUpDays({5}, {10, 1000, 1, 100}, kAll.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 25U);
  ExpectLines(Part(drawn, 0, 1), {{{5, 4, 3}, {5, 4, 0}}});
  ExpectCube(Part(drawn, 1, 6), 5, 4, 1, red);
  ExpectBoxes(Part(drawn, 7, 12), {{4.5, 3, 3, 1, 2, 0.06}, {4.5, 3, 0, 1, 2, 0.06}});
  ExpectCube(Part(drawn, 19, 6), 5, 4, 2, cyan);
}

TEST_F(MarketChart25D, NeedsFourRowsAndPlaces) {
  SetUpMarket(kAll);
  series.SetNumGroups(3);
  EXPECT_TRUE(Drawn().empty());
  SetUpMarket(kAll);
  series.SetNumDataPnts(2);  // four values are two rows of two
  EXPECT_TRUE(Drawn().empty());
  SetUpMarket(kAll);
  series.DeleteGroupDataStorage();
  EXPECT_TRUE(Drawn().empty());
  SetUpMarket(kAll);
  series.DeleteIndDataStorage();
  EXPECT_TRUE(Drawn().empty());
  for (const int count : {0, -1}) {
    SetUpMarket(kAll);
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(MarketChart25D, PartsWithoutAColorHaveThatOfTheSeries) {
  SetUpMarket(kHigh);
  series.SetFillColor(magenta);
  series.SetNumGroups(1);
  series.InitGroupColorsStorage(&red);
  series.SetNumGroups(4);
  ExpectSolidColors(Drawn(), {magenta});
  series.DeleteGroupColorsStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(MarketChart25D, TicsPointToSmallerAndLargerValuesOnEveryAxis) {
  transform.SetScale({10, 0, 0, 0}, {0, 20, 10, 0});
  SetUpMarket(kOpen, 0, 0, 0);
  ExpectLines(Drawn(), {{{5, 4, 3}, {4.5, 4, 3}}});
  SetUpMarket(kClose, 0, 0, 0);
  ExpectLines(Drawn(), {{{5, 4, 7}, {5.5, 4, 7}}});
  transform.SetScale({0, 0, 0, 0}, {10, 20, 10, 0});
  SetLogScale(0, 1, 1e4);
  SetUpDays({100}, {3, 8, 2, 7}, kClose.data(), 0, 0, 0);
  // A twentieth of the four decades.
  ExpectLines(Drawn(), {{{2, 4, 7}, {2.2, 4, 7}}});
}

}  // namespace
