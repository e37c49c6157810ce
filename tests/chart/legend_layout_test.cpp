/// Where legends put their symbols and texts.

#include <cmath>
#include <cstring>
#include <utility>

#include "chart/legend_fixture.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

constexpr RGBDType kOrange{0.9, 0.5, 0.1, 1.0};
constexpr double kNear = 1e-12;

class LegendLayout : public LegendTest {
 protected:
  void AddEntries(int count) {
    for (int i = 0; i < count; ++i) legend.NewLegendObj("text", 3, kOrange);
  }
  const CLegendObj3D& Entry(int index) const { return *legend.GetLegendObj(index); }
};

// Rows are (entries - 1) / columns + 1 without fractions: a full last row is followed by no other.
TEST_F(LegendLayout, FullLastRowsEndTheTable) {
  struct Expected {
    int entries;
    int columns;
    int rows;
  };
  for (const Expected& expected :
       {Expected{1, 2, 1}, Expected{2, 2, 1}, Expected{3, 3, 1}, Expected{5, 2, 3},
        Expected{6, 3, 2}, Expected{7, 3, 3}, Expected{8, 4, 2}, Expected{9, 4, 3}}) {
    SCOPED_TRACE(::testing::Message() << expected.entries << " in " << expected.columns);
    while (legend.GetNumLegendObjs() < expected.entries) AddEntries(1);
    legend.SetLegendColumns(expected.columns);
    legend.SetLegendOrientation(1);
    Drawn();
    EXPECT_EQ(legend.GetLegendRows(), expected.rows);
    const double top = 1.0 - 0.1 - Height("text");
    const double rowStep = 1.8 / expected.rows;
    const double columnStep = 1.6 / expected.columns;
    for (int i = 0; i < expected.entries; ++i) {
      SCOPED_TRACE(i);
      EXPECT_NEAR(Entry(i).GetSymbolPosition().x, -0.8 + (i % expected.columns) * columnStep,
                  kNear);
      EXPECT_NEAR(Entry(i).GetTextPosition().z, top - (i / expected.columns) * rowStep, kNear);
    }
  }
}

TEST_F(LegendLayout, SymbolsBehindTextsMoveWithTheirColumns) {
  AddEntries(3);
  legend.SetText(1, "a longer text");
  legend.SetLegendColumns(2);
  Drawn();
  // 1.6 / 2 a column; size of the symbol 0.1, aspect 1/2, space 1.5.
  const double behind = 0.1 * 0.5 * 1.5 + Width("a longer text") * 0.5;
  for (int i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    EXPECT_NEAR(Entry(i).GetTextPosition().x, -0.8 + (i % 2) * 0.8, kNear);
    EXPECT_NEAR(Entry(i).GetSymbolPosition().x, -0.8 + (i % 2) * 0.8 + behind, kNear);
  }
}

TEST_F(LegendLayout, DepthFollowsThatOfTheSlab) {
  AddEntries(1);
  legend.SetTitle1("One");
  legend.SetTitle2("Two");
  legend.SetFooter("Foot");
  legend.SetLegendYLoc(-0.5);
  Drawn();
  EXPECT_NEAR(Entry(0).GetSymbolPosition().y, -0.35, kNear);
  EXPECT_NEAR(Entry(0).GetTextPosition().y, -0.35, kNear);
  EXPECT_NEAR(legend.GetTitle1Obj()->GetNormLocation().y, -0.35, kNear);
  EXPECT_NEAR(legend.GetTitle2Obj()->GetNormLocation().y, -0.35, kNear);
  EXPECT_NEAR(legend.GetFooterObj()->GetNormLocation().y, -0.35, kNear);
  EXPECT_EQ(legend.GetTitle1Obj()->GetNormLocation().x, 0.0);
  EXPECT_EQ(legend.GetTitle2Obj()->GetNormLocation().x, 0.0);
}

TEST_F(LegendLayout, TextsAreJustifiedWhateverTheyWere) {
  AddEntries(1);
  legend.SetTitle1("One");
  legend.SetTitle2("Two");
  legend.SetFooter("Foot");
  for (CTextObj3D* text : {legend.GetTitle1Obj(), legend.GetTitle2Obj(), legend.GetFooterObj(),
                           legend.GetLegendObj(0)->GetTextObj()}) {
    text->SetJustify(2, 2);
  }
  Drawn();
  const auto justification = [](const CTextObj3D& text) {
    return std::pair(text.GetXJustify(), text.GetYJustify());
  };
  EXPECT_EQ(justification(*legend.GetTitle1Obj()), std::pair(1, 0));
  EXPECT_EQ(justification(*legend.GetTitle2Obj()), std::pair(1, 2));  // as its owner wants it
  EXPECT_EQ(justification(*legend.GetFooterObj()), std::pair(1, 0));
  EXPECT_EQ(justification(*legend.GetLegendObj(0)->GetTextObj()), std::pair(0, 0));
}

TEST_F(LegendLayout, ASecondTitleAloneJustifiesTheFirst) {
  AddEntries(1);
  legend.GetTitle1Obj()->SetJustify(2, 2);
  legend.GetTitle2Obj()->SetJustify(2, 2);
  Drawn();  // texts that aren't there stay as they are
  EXPECT_EQ(legend.GetTitle1Obj()->GetYJustify(), 2);
  legend.SetTitle2("Two");
  Drawn();
  EXPECT_EQ(legend.GetTitle1Obj()->GetXJustify(), 2);
  EXPECT_EQ(legend.GetTitle1Obj()->GetYJustify(), 0);
  EXPECT_EQ(legend.GetTitle2Obj()->GetXJustify(), 1);
  EXPECT_EQ(legend.GetTitle2Obj()->GetYJustify(), 2);
  // In the first row, with one more below it.
  EXPECT_NEAR(legend.GetTitle2Obj()->GetNormLocation().z, 0.9 - Height("text"), kNear);
  EXPECT_NEAR(Entry(0).GetTextPosition().z, 0.9 - Height("text") - 0.9, kNear);
}

TEST_F(LegendLayout, SpaceIsThatOfTheFirstSymbol) {
  AddEntries(2);
  legend.SetLegendOrientation(1);
  legend.SetSymbolTextSpace(2.0);
  legend.SetSymbolScale(1, 0.5);
  for (const double scale : {0.4, 0.0, -0.2}) {
    SCOPED_TRACE(scale);
    legend.SetSymbolScale(0, scale);
    Drawn();
    for (int i = 0; i < 2; ++i) {
      EXPECT_NEAR(Entry(i).GetTextPosition().x, -0.8 + scale * 0.5 * 2.0, kNear);
    }
  }
}

TEST_F(LegendLayout, DisabledFirstEntriesMeasureTheRows) {
  AddEntries(2);
  legend.EnableLegendObj(0, 0);
  legend.SetSymbolScale(0, 0.4);
  legend.SetLegendOrientation(1);
  legend.GetLegendObj(0)->SetText("");  // without a height
  Drawn();
  EXPECT_NEAR(Entry(1).GetTextPosition().z, 0.9 - Height(""), kNear);
  EXPECT_NEAR(Entry(1).GetTextPosition().x, -0.8 + 0.4 * 0.5 * 1.5, kNear);
}

TEST_F(LegendLayout, WidthsOfTextsFollowTheViewAspect) {
  legend.NewLegendObj("text", 3, kOrange);
  const auto symbolX = [&](double viewAspect) {
    legend.SetViewAspect(viewAspect);
    Drawn();
    return Entry(0).GetSymbolPosition().x;
  };
  // Before the symbol: the space, then the text in the aspect of viewport (1/2) and view.
  EXPECT_NEAR(symbolX(1.0), -0.8 + 0.075 + Width("text") * 0.5, kNear);
  EXPECT_NEAR(symbolX(3.0), -0.8 + 0.075 + Width("text") * 1.5, kNear);
}

TEST(LegendWithoutAView, PositionsLeaveFiniteNumbers) {
  CWnd window;  // has no size yet
  CChartView3D view(&window);
  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.25, 0.25, 0.5, 0.5});
  EXPECT_EQ(legend->GetLegendPosition().width, 0.5);
  EXPECT_EQ(legend->GetLegendViewport().width, 0);
  const Bytes record = Saved(*legend);
  constexpr std::size_t kReals = 12 * 4;
  ASSERT_GT(record.size(), kReals + 11 * 8);
  for (std::size_t i = 0; i < 11; ++i) {
    double value = 0.0;
    std::memcpy(&value, record.data() + kReals + 8 * i, sizeof(value));
    EXPECT_TRUE(std::isfinite(value)) << i;
  }
  // Bound to no view at all, it keeps the position.
  CLegend3D alone;
  alone.SetLegendPosition({0.1, 0.2, 0.3, 0.4});
  EXPECT_EQ(alone.GetLegendPosition().height, 0.4);
}

}  // namespace
