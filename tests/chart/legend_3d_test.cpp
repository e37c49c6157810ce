#include "orvalix/chart/legend_3d.h"

#include <algorithm>
#include <limits>

#include "chart/legend_fixture.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;
using Kind = FeedbackPrimitive::Kind;

constexpr RGBDType kOrange{0.9, 0.5, 0.1, 1.0};

TEST(Legend3D, StartsWithItsDefaults) {
  const int before = CLegend3D::nSelfID;
  const CLegend3D legend;
  EXPECT_EQ(CLegend3D::nSelfID, before + 1);
  EXPECT_EQ(legend.GetNumLegendObjs(), 0);
  EXPECT_EQ(legend.GetLegendOrientation(), 0);
  EXPECT_EQ(legend.GetColorMode(), 0);
  EXPECT_EQ(legend.GetLegendRows(), 1);
  EXPECT_EQ(legend.GetLegendColumns(), 1);
  EXPECT_EQ(legend.GetLegendEnable(), 1);
  EXPECT_EQ(legend.GetLegendBorderEnable(), 1);
  EXPECT_EQ(legend.GetFontHeightSF(), 1.0);
  EXPECT_EQ(legend.GetFontSize(), 0.1);
  EXPECT_EQ(legend.GetBorderThickness(), 2.0);
  EXPECT_EQ(legend.GetSymbolTextSpace(), 1.5);
  EXPECT_EQ(legend.GetLegendYLoc(), 0.7);
  EXPECT_EQ(legend.GetLegendBkColor().blue, 1.0);
  EXPECT_EQ(legend.GetLegendBorderColor().red, 0.0);
  EXPECT_EQ(legend.GetLegendBorderColor().alpha, 1.0);
  EXPECT_EQ(legend.GetLegendPosition().x, 0.0);
  EXPECT_EQ(legend.GetLegendPosition().width, 1.0);
  EXPECT_EQ(legend.GetClassTag(), 1313);
  EXPECT_EQ(legend.GetNumberActiveLegends(), 0);
  EXPECT_EQ(legend.GetMaxLegendTextWidth(), 0.0);
}

TEST(Legend3D, NeedsAView) {
  CLegend3D legend;
  EXPECT_EQ(Catch([&] { legend.InitLegend(nullptr); }), (CaughtError{13, 15, "InitLegend"}));
  EXPECT_EQ(Catch([] { CLegend3D onNothing(nullptr); }), (CaughtError{13, 15, "InitLegend"}));
  legend.DrawLegend();  // nothing to draw on
}

TEST_F(LegendTest, StandsInPixelsOfTheView) {
  legend.SetLegendPosition({0.251, 0.5, 0.5, 0.25});
  const GLViewportType viewport = legend.GetLegendViewport();
  EXPECT_EQ(viewport.x, 50);  // 200 * 0.251, rounded down
  EXPECT_EQ(viewport.y, 50);
  EXPECT_EQ(viewport.width, 100);
  EXPECT_EQ(viewport.height, 25);
  legend.SetLegendViewport(nullptr);
  EXPECT_EQ(legend.GetLegendViewport().width, 100);
}

TEST_F(LegendTest, WithoutEnabledEntriesNothingIsDrawn) {
  legend.SetTitle1("Title");
  EXPECT_TRUE(Drawn().empty());
  legend.NewLegendObj("one", 3, kOrange)->EnableLegendObj(0);
  EXPECT_TRUE(Drawn().empty());
  legend.EnableLegendObj(0, 1);
  EXPECT_FALSE(Drawn().empty());
  legend.EnableLegend(0);
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(LegendTest, SlabAndFrameFillItsSquare) {
  legend.NewLegendObj();  // no symbol, no text
  legend.SetLegendBkColor(kOrange);
  legend.SetLegendBorderColor({0.0, 0.0, 1.0, 1.0});
  auto drawn = Drawn();
  const auto faces = OfKind(drawn, Kind::kPolygon);
  ASSERT_EQ(faces.size(), 6U);
  for (const auto& vertex : faces[1].vertices) {  // the face towards the viewer, at y = 0.8
    EXPECT_NEAR(std::abs(vertex.x - 100.0), 98.0, 1e-2);
    EXPECT_NEAR(std::abs(vertex.y - 50.0), 49.0, 1e-2);
    EXPECT_NEAR(vertex.red, 0.9, 1e-6);
  }
  // The outline of six faces, then the frame, halfway into the slab.
  const auto lines = OfKind(drawn, Kind::kLine);
  ASSERT_EQ(lines.size(), 24U + 4U);
  EXPECT_NEAR(lines[24].vertices[0].x, 2.0, 1e-2);
  EXPECT_NEAR(lines[24].vertices[0].y, 1.0, 1e-2);
  EXPECT_NEAR(lines[24].vertices[1].x, 2.0, 1e-2);
  EXPECT_NEAR(lines[24].vertices[1].y, 99.0, 1e-2);
  EXPECT_NEAR(lines[25].vertices[1].x, 198.0, 1e-2);
  EXPECT_NEAR(lines[26].vertices[1].y, 1.0, 1e-2);
  EXPECT_NEAR(lines[27].vertices[1].x, 2.0, 1e-2);
  for (std::size_t i = 24; i < 28; ++i) {
    EXPECT_NEAR(lines[i].vertices[0].z, (1.0 - 0.75) / 2.0, 1e-5);
    EXPECT_NEAR(lines[i].vertices[0].blue, 1.0, 1e-6);
  }
  legend.EnableLegendBorder(0);
  EXPECT_EQ(OfKind(Drawn(), Kind::kLine).size(), 24U);
}

TEST_F(LegendTest, RowsFollowFromEntriesAndColumns) {
  for (int i = 0; i < 5; ++i) legend.NewLegendObj("text", 3, kOrange);
  legend.SetLegendColumns(2);
  legend.SetLegendOrientation(1);
  legend.SetLegendRows(77);
  Drawn();
  EXPECT_EQ(legend.GetLegendRows(), 3);
  const double height = Height("text");
  // Margins 0.1 and 0.2; three rows, no titles: (2 - 0.2) / 3 a row, (2 - 0.4) / 2 a column.
  const double top = 1.0 - 0.1 - height;
  const double space = 0.1 * 0.5 * 1.5;  // symbol size, aspect, space
  for (int i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    const point3Dtype symbol = legend.GetLegendObj(i)->GetSymbolPosition();
    const point3Dtype text = legend.GetLegendObj(i)->GetTextPosition();
    EXPECT_NEAR(symbol.x, -0.8 + (i % 2) * 0.8, 1e-12);
    EXPECT_NEAR(text.x, symbol.x + space, 1e-12);
    EXPECT_NEAR(text.z, top - (i / 2) * 0.6, 1e-12);
    EXPECT_NEAR(symbol.z, text.z + height / 2.0, 1e-12);
    EXPECT_NEAR(symbol.y, 0.85, 1e-12);
    EXPECT_NEAR(text.y, 0.85, 1e-12);
  }
}

TEST_F(LegendTest, SymbolsStandToTheRightOfTheLongestText) {
  legend.NewLegendObj("a", 3, kOrange);
  legend.NewLegendObj("the longest", 3, kOrange)->EnableLegendObj(0);  // counts all the same
  Drawn();
  EXPECT_NEAR(legend.GetMaxLegendTextWidth(), Width("the longest"), 1e-12);
  const CLegendObj3D& entry = *legend.GetLegendObj(0);
  EXPECT_NEAR(entry.GetTextPosition().x, -0.8, 1e-12);
  // The text is drawn half as wide in a view twice as wide as high.
  EXPECT_NEAR(entry.GetSymbolPosition().x, -0.8 + 0.075 + Width("the longest") * 0.5, 1e-12);
  // In a legend half as high it is drawn twice as large, in an aspect half as large.
  legend.SetLegendPosition({0.0, 0.0, 1.0, 0.5});
  Drawn();
  EXPECT_NEAR(entry.GetSymbolPosition().x,
              -0.8 + 0.1 * 0.25 * 1.5 + Width("the longest") * 2.0 * 0.25, 1e-12);
  EXPECT_EQ(legend.GetFontHeightSF(), 2.0);
}

TEST_F(LegendTest, TextsOfSmallLegendsStayInside) {
  legend.NewLegendObj("text", 3, kOrange);
  legend.SetLegendPosition({0.0, 0.0, 1.0, 0.25});
  Drawn();
  // Drawn four times as high, the text hangs from the margin all the same.
  const double height = Height("text") * 4.0;
  const CLegendObj3D& entry = *legend.GetLegendObj(0);
  EXPECT_NEAR(entry.GetTextPosition().z, 0.9 - height, 1e-12);
  EXPECT_NEAR(entry.GetSymbolPosition().z, 0.9 - height / 2.0, 1e-12);
}

TEST_F(LegendTest, DisabledEntriesTakeNoCell) {
  for (int i = 0; i < 3; ++i) legend.NewLegendObj("text", 3, kOrange);
  legend.EnableLegendObj(1, 0);
  EXPECT_EQ(legend.GetNumberActiveLegends(), 2);
  Drawn();
  EXPECT_EQ(legend.GetLegendRows(), 2);
  EXPECT_NEAR(legend.GetLegendObj(2)->GetTextPosition().z, 1.0 - 0.1 - Height("text") - 0.9, 1e-12);
}

TEST_F(LegendTest, TitlesMoveTheEntriesDown) {
  legend.NewLegendObj("text", 3, kOrange);
  legend.SetTitle1("One");
  legend.SetTitle2("Two");
  legend.SetFooter("Foot");
  legend.GetTitle2Obj()->SetYJustify(2);
  Drawn();
  const double step = 1.8 / 4.0;  // a row and three texts
  const double top = 0.9 - Height("text");
  EXPECT_NEAR(legend.GetTitle1Obj()->GetNormLocation().z, top, 1e-12);
  EXPECT_NEAR(legend.GetTitle2Obj()->GetNormLocation().z, top - step, 1e-12);
  EXPECT_NEAR(legend.GetLegendObj(0)->GetTextPosition().z, top - 2.0 * step, 1e-12);
  EXPECT_NEAR(legend.GetFooterObj()->GetNormLocation().z, -0.9, 1e-12);
  EXPECT_EQ(legend.GetFooterObj()->GetNormLocation().x, 0.0);
  EXPECT_NEAR(legend.GetFooterObj()->GetNormLocation().y, 0.85, 1e-12);
  EXPECT_EQ(legend.GetTitle1Obj()->GetXJustify(), 1);
  EXPECT_EQ(legend.GetTitle1Obj()->GetYJustify(), 0);
  EXPECT_EQ(legend.GetTitle2Obj()->GetXJustify(), 1);
  EXPECT_EQ(legend.GetTitle2Obj()->GetYJustify(), 2);  // stays as it was
  EXPECT_EQ(legend.GetFooterObj()->GetYJustify(), 0);
}

TEST_F(LegendTest, ImpossibleColumnsAreOne) {
  for (int i = 0; i < 3; ++i) legend.NewLegendObj("text", 3, kOrange);
  for (const int columns : {0, -1, std::numeric_limits<int>::min()}) {
    legend.SetLegendColumns(columns);
    Drawn();
    EXPECT_EQ(legend.GetLegendRows(), 3) << columns;
  }
  legend.SetLegendColumns(std::numeric_limits<int>::max());
  Drawn();
  EXPECT_EQ(legend.GetLegendRows(), 1);
}

TEST_F(LegendTest, PlacesThatAreNoneDrawNothingOutside) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  legend.NewLegendObj("text", 3, kOrange);
  for (const GLViewRType& position :
       {GLViewRType{0, 0, 0, 0}, GLViewRType{0, 0, 1, 0}, GLViewRType{nan, nan, nan, nan},
        GLViewRType{0, 0, -1, -1}, GLViewRType{1e300, 1e300, 1e300, 1e300}}) {
    legend.SetLegendPosition(position);
    view.DrawViewScreen();
  }
  legend.SetLegendPosition({0, 0, 1, 1});
  EXPECT_FALSE(Drawn().empty());
}

TEST_F(LegendTest, EntriesAreReachedByNumber) {
  CLegendObj3D* entry = legend.NewLegendObj("first");
  legend.NewLegendObj("second", 12, kOrange);
  EXPECT_EQ(legend.GetNumLegendObjs(), 2);
  EXPECT_STREQ(legend.GetText(1), "second");
  EXPECT_EQ(legend.GetSymbol(1), 12);
  EXPECT_EQ(legend.GetSymbolColor(1).green, 0.5);
  EXPECT_EQ(legend.GetSymbol(0), 0);
  legend.SetText(0, "changed");
  legend.SetTextColor(0, kOrange);
  legend.SetSymbol(0, 9);
  legend.SetSymbolColor(0, kOrange);
  legend.SetSymbolScale(0, 0.25);
  EXPECT_STREQ(entry->GetText(), "changed");
  EXPECT_EQ(legend.GetTextColor(0).red, 0.9);
  EXPECT_EQ(entry->GetSymbol(), 9);
  EXPECT_EQ(legend.GetSymbolScale(0), 0.25);
  legend.SetColor(0, {0.0, 1.0, 0.0, 1.0});
  EXPECT_EQ(entry->GetSymbolColor().green, 1.0);
  for (const int index : {-1, 2, std::numeric_limits<int>::max()}) {
    legend.SetText(index, "none");
    legend.SetTextColor(index, kOrange);
    legend.SetSymbol(index, 1);
    legend.SetSymbolColor(index, kOrange);
    legend.SetSymbolScale(index, 1.0);
    legend.SetColor(index, kOrange);
    legend.EnableLegendObj(index, 0);
    EXPECT_STREQ(legend.GetText(index), "");
    EXPECT_EQ(legend.GetTextColor(index).alpha, 0.0);
    EXPECT_EQ(legend.GetSymbol(index), 0);
    EXPECT_EQ(legend.GetSymbolColor(index).alpha, 0.0);
    EXPECT_EQ(legend.GetSymbolScale(index), 0.0);
    EXPECT_EQ(legend.GetLegendObjEnable(index), 0);
    EXPECT_EQ(legend.GetLegendObj(index), nullptr);
  }
}

TEST_F(LegendTest, DrawsSymbolBeforeTextAndEntriesInOrder) {
  legend.EnableLegendBorder(0);
  legend.NewLegendObj("", 3, kOrange);
  legend.NewLegendObj("", 3, {0.0, 0.0, 1.0, 1.0});
  const auto faces = OfKind(Drawn(), Kind::kPolygon);
  ASSERT_EQ(faces.size(), 18U);  // the slab and two cubes
  EXPECT_NEAR(faces[6].vertices[0].red, 0.9, 1e-6);
  EXPECT_NEAR(faces[12].vertices[0].blue, 1.0, 1e-6);
}

TEST(LegendInView, IsBoundWhenTheViewIs) {
  CWnd window;
  CChartView3D view(&window);  // the window has no handle yet
  CLegend3D* legend = view.NewLegend3D();
  legend->NewLegendObj("early", 3, kOrange);
  legend->SetTitle1("Title");
  EXPECT_EQ(legend->GetMaxLegendTextWidth(), 0.0);
  window.CreateOffscreen(200, 100);
  CDC* dc = window.GetDC();
  view.DrawViewScreen(dc);
  window.ReleaseDC(dc);
  EXPECT_GT(legend->GetMaxLegendTextWidth(), 0.0);
  EXPECT_EQ(view.GetNumLegends(), 1);
  EXPECT_EQ(view.GetLegend(0), legend);
  EXPECT_EQ(view.GetLegend(1), nullptr);
}

TEST(LegendInView, LiesOverTheCharts) {
  ViewOn on(100, 100);
  CChart3D* chart = on.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0});
  chart->SetChartBkColor({0.0, 0.0, 1.0, 1.0});
  CLegend3D* legend = on.view->NewLegend3D();
  legend->SetLegendPosition({0.5, 0.5, 0.5, 0.5});
  legend->SetLegendBkColor({0.0, 1.0, 0.0, 1.0});
  legend->NewLegendObj();
  on.view->DrawViewScreen();
  EXPECT_EQ(on.BitmapPixel(75, 75), kGreen);
  EXPECT_EQ(on.BitmapPixel(20, 75), kBlue);
}

}  // namespace
