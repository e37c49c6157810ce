#include <array>
#include <limits>
#include <string>
#include <vector>

#include "chart/legend_fixture.h"

namespace {

using namespace orvalix::test;

constexpr std::array<double, 4> kValues{1, 2, 3, 4};
constexpr RGBDType kTextColor{0.5, 0.5, 0.5, 1.0};

/// Five colours that tell their number.
std::array<RGBDType, 5> Colors() {
  std::array<RGBDType, 5> colors{};
  for (std::size_t i = 0; i < colors.size(); ++i) colors[i].red = static_cast<double>(i) / 10.0;
  return colors;
}

std::vector<std::string> Texts(const CLegend3D& legend) {
  std::vector<std::string> texts;
  for (int i = 0; i < legend.GetNumLegendObjs(); ++i) {
    texts.emplace_back(static_cast<const char*>(legend.GetText(i)));
  }
  return texts;
}

using Strings = std::vector<std::string>;

TEST(ContourLegend, TellsBandsFromTheHighestDown) {
  CLegend3D legend;
  legend.ContourLegend(kValues.data(), Colors().data(), 4, 0, kTextColor, 1, "U", "L");
  EXPECT_EQ(Texts(legend), (Strings{"U   3", "2 - 3", "1 - 2", "L   1"}));
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(legend.GetSymbol(i), 3);
    EXPECT_NEAR(legend.GetSymbolColor(i).red, (3 - i) / 10.0, 1e-12) << i;
    EXPECT_EQ(legend.GetTextColor(i).green, 0.5);
  }
  legend.ContourLegend(kValues.data(), Colors().data(), 4, 1, kTextColor, 0, "U", "L");
  EXPECT_EQ(Texts(legend), (Strings{"U   3", "2 - 3", "1 - 2", "L   1", "U   3.0", "2.0 - 3.0",
                                    "1.0 - 2.0", "L   1.0"}));
  EXPECT_NEAR(legend.GetTextColor(4).red, 0.3, 1e-12);  // that of the band
}

TEST(ContourLegend, TellsValuesAlone) {
  CLegend3D legend;
  legend.ContourLegend2(kValues.data(), Colors().data(), 3, 0, kTextColor, 1);
  EXPECT_EQ(Texts(legend), (Strings{"3", "2", "1"}));
  EXPECT_NEAR(legend.GetSymbolColor(0).red, 0.2, 1e-12);
  EXPECT_NEAR(legend.GetSymbolColor(2).red, 0.0, 1e-12);
}

TEST(ContourLegend, FewValuesMakeTheEntriesThatThereAre) {
  for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
    CLegend3D legend;
    legend.ContourLegend(kValues.data(), Colors().data(), count, 0, kTextColor, 1, "U", "L");
    legend.ContourLegend2(kValues.data(), Colors().data(), count, 0, kTextColor, 1);
    EXPECT_EQ(legend.GetNumLegendObjs(), 0) << count;
  }
  CLegend3D one;
  one.ContourLegend(kValues.data(), Colors().data(), 1, 0, kTextColor, 1, "U", "L");
  EXPECT_EQ(Texts(one), (Strings{"L   1"}));
  CLegend3D two;
  two.ContourLegend(kValues.data(), Colors().data(), 2, 0, kTextColor, 1, "U", "L");
  EXPECT_EQ(Texts(two), (Strings{"U   1", "L   1"}));
  EXPECT_NEAR(two.GetSymbolColor(0).red, 0.1, 1e-12);
}

TEST(ContourLegend, NullArraysLeaveTheCopies) {
  CLegend3D legend;
  legend.ContourLegend2(kValues.data(), Colors().data(), 2, 0, kTextColor, 1);
  legend.ContourLegend2(nullptr, nullptr, 2, 0, kTextColor, 1);
  EXPECT_EQ(Texts(legend), (Strings{"2", "1", "2", "1"}));
  EXPECT_NEAR(legend.GetSymbolColor(2).red, 0.1, 1e-12);
  // As many as there are, whatever is promised.
  for (const int count : {0, 3, std::numeric_limits<int>::max()}) {
    const int before = legend.GetNumLegendObjs();
    legend.ContourLegend2(nullptr, nullptr, count, 0, kTextColor, 1);
    EXPECT_EQ(legend.GetNumLegendObjs(), before + 2) << count;
  }
  legend.ContourLegend2(nullptr, nullptr, 2, 0, kTextColor, 7);  // neither 0 nor 1: the band's
  EXPECT_EQ(legend.GetTextColor(legend.GetNumLegendObjs() - 2).red, 0.1);
}

// Only 1 asks for the one colour of all texts.
TEST(ContourLegend, OtherFlagsGiveTextsTheColorsOfTheirBands) {
  for (const int flag : {0, 1, 2, -1, std::numeric_limits<int>::max()}) {
    SCOPED_TRACE(flag);
    CLegend3D legend;
    legend.ContourLegend(kValues.data(), Colors().data(), 3, 0, kTextColor, flag, "U", "L");
    legend.ContourLegend2(kValues.data(), Colors().data(), 3, 0, kTextColor, flag);
    for (int i = 0; i < 6; ++i) {
      const double ofBand = (2 - i % 3) / 10.0;
      EXPECT_EQ(legend.GetTextColor(i).red, flag == 1 ? 0.5 : ofBand) << i;
      EXPECT_EQ(legend.GetSymbolColor(i).red, ofBand) << i;
    }
  }
}

TEST(ContourLegend, ValuesWithoutColorsAreBlack) {
  CLegend3D legend;
  legend.ContourLegend2(kValues.data(), nullptr, 4, 0, kTextColor, 1);
  EXPECT_EQ(legend.GetSymbolColor(0).red, 0.0);
  EXPECT_EQ(legend.GetSymbolColor(0).alpha, 1.0);
}

TEST(ContourLegend, DecimalsStayReadable) {
  CLegend3D legend;
  for (const int decimals : {-5, std::numeric_limits<int>::min()}) {
    legend.ContourLegend2(kValues.data(), nullptr, 1, decimals, kTextColor, 1);
  }
  legend.ContourLegend2(kValues.data(), nullptr, 1, std::numeric_limits<int>::max(), kTextColor, 1);
  EXPECT_STREQ(legend.GetText(0), "1");
  EXPECT_STREQ(legend.GetText(1), "1");
  EXPECT_STREQ(legend.GetText(2), "1.00000000000000000000");
}

}  // namespace
