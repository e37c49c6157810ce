#include <gtest/gtest.h>

#include <array>

#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "records/record_values.h"
#include "support/offscreen.h"

namespace {

using namespace orvalix::test;

void ExpectEntry(const CLegendObj3D& entry, int first, const char* text) {
  EXPECT_EQ(entry.GetTransformID(), first);
  EXPECT_EQ(Of(entry.GetTextColor()), From(first + 0.5));
  EXPECT_EQ(Of(entry.GetSymbolColor()), From(first + 1.5));
  EXPECT_EQ(entry.GetSymbol(), first + 1);
  EXPECT_EQ(entry.GetLegendObjEnable(), first + 2);
  EXPECT_EQ(entry.GetSymbolScale(), first + 2.5);
  EXPECT_EQ(Of(entry.GetTextPosition()), From(first + 3.5));
  EXPECT_EQ(Of(entry.GetSymbolPosition()), From(first + 4.5));
  EXPECT_EQ(Of(entry.GetSymbolRotation()), From(first + 5.5));
  EXPECT_STREQ(entry.GetText(), text);
  EXPECT_EQ(Of(entry.GetTextObj()->GetLocation()), From(first + 20.5));
}

TEST(LegendRecords, EntriesAreLoaded) {
  CLegendObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("legend_obj_3d"));
  EXPECT_EQ(CLegendObj3D::nSelfID, 1302);
  ExpectEntry(loaded, 100, "An entry");
}

TEST(LegendRecords, EntriesAreSavedAsTheyWereSetUp) {
  Offscreen target;
  CTransform3D::nSelfID = 99;
  CTransform3D transform(target.gl.get());
  CLegendObj3D made(target.gl.get(), &transform, "An entry");
  made.SetTextColor(ColorFrom(100.5));
  made.SetSymbolColor(ColorFrom(101.5));
  made.SetSymbol(101);
  made.EnableLegendObj(102);
  made.SetSymbolScale(102.5);
  made.SetTextPosition(PointFrom(103.5));
  made.SetSymbolPosition(PointFrom(104.5));
  made.SetSymbolRotation(PointFrom(105.5));
  SetUpText(*made.GetTextObj(), 120);
  CLegendObj3D::nSelfID = 1302;
  CTextObj3D::nSelfID = 1501;
  ExpectRecord(Saved(made), RecordFixture("legend_obj_3d").Put("reserved", {0}));
}

TEST(LegendRecords, AreLoaded) {
  CLegend3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("legend_3d"));
  EXPECT_EQ(CLegend3D::nSelfID, 1301);
  EXPECT_EQ(loaded.GetTransformID(), 88);
  EXPECT_EQ(loaded.GetLegendOrientation(), 1);
  EXPECT_EQ(loaded.GetColorMode(), 4);
  EXPECT_EQ(loaded.GetLegendRows(), 5);
  EXPECT_EQ(loaded.GetLegendColumns(), 6);
  EXPECT_EQ(loaded.GetLegendEnable(), 8);
  EXPECT_EQ(loaded.GetLegendBorderEnable(), 9);
  EXPECT_EQ(loaded.GetFontHeightSF(), 2.5);
  EXPECT_EQ(loaded.GetFontSize(), 3.5);
  EXPECT_EQ(loaded.GetBorderThickness(), 8.5);
  EXPECT_EQ(loaded.GetLegendYLoc(), 9.5);
  EXPECT_EQ(loaded.GetSymbolTextSpace(), 10.5);
  EXPECT_EQ(Of(loaded.GetLegendBkColor()), From(12.5));
  EXPECT_EQ(Of(loaded.GetLegendBorderColor()), From(13.5));
  EXPECT_EQ(Of(loaded.GetLegendPosition()), From(14.5));
  EXPECT_EQ(Of(loaded.GetLegendViewport()), (std::array<int, 4>{11, 12, 13, 14}));
  ASSERT_EQ(loaded.GetNumLegendObjs(), 2);
  ExpectEntry(*loaded.GetLegendObj(0), 200, "first");
  ExpectEntry(*loaded.GetLegendObj(1), 300, "the second");
  EXPECT_STREQ(loaded.GetTitle1Obj()->GetString(), "Title");
  EXPECT_STREQ(loaded.GetTitle2Obj()->GetString(), "Second title");
  EXPECT_STREQ(loaded.GetFooterObj()->GetString(), "Foot");
}

// The number of entries in front is told, but the one before the entries counts.
TEST(LegendRecords, TheFirstNumberOfEntriesIsNotUsed) {
  CLegend3D loaded;
  RecordFixture record("legend_3d");
  LoadFrom(loaded, record.Put("entry count", {7}).AllBytes());
  EXPECT_EQ(loaded.GetNumLegendObjs(), 2);
  ExpectRecord(Saved(loaded), RecordFixture("legend_3d"));
}

TEST(LegendRecords, WithoutEntriesAreSavedAsTheyWereSetUp) {
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D view(&window);
  CTransform3D::nSelfID = 88;  // its own transform takes the next one
  CLegend3D made(&view);
  made.SetLegendOrientation(501);
  made.SetColorMode(504);
  made.SetLegendRows(505);
  made.SetLegendColumns(506);
  made.EnableLegend(508);
  made.EnableLegendBorder(509);
  made.SetViewAspect(500.5);
  made.SetFontHeightSF(502.5);
  made.SetFontSize(503.5);
  made.SetBorderThickness(508.5);
  made.SetLegendYLoc(509.5);
  made.SetSymbolTextSpace(510.5);
  made.ContourLegend(nullptr, nullptr, 0, 502, ColorFrom(511.5), 507, "over", "below");
  made.SetLegendBkColor(ColorFrom(512.5));
  made.SetLegendBorderColor(ColorFrom(513.5));
  const Four position = From(514.5);
  made.SetLegendPosition({position[0], position[1], position[2], position[3]});
  const GLViewportType viewport{511, 512, 513, 514};
  made.SetLegendViewport(&viewport);
  made.SetFooter("only a foot");
  SetUpText(*made.GetTitle1Obj(), 540);
  SetUpText(*made.GetTitle2Obj(), 560);
  SetUpText(*made.GetFooterObj(), 580);
  CLegend3D::nSelfID = 1301;
  CTextObj3D::nSelfID = 1501;
  RecordFixture expected("legend_3d_other");
  expected.Put("viewport aspect", {514.0 / 513.0});
  expected.Put("reserved", {0});
  // Each drawing works out the steps anew, and the margins stay what they are.
  expected.Put("row step", {0.1}).Put("column step", {0.25});
  expected.Put("top margin", {0.1}).Put("left margin", {0.2});
  ExpectRecord(Saved(made), expected);
}

}  // namespace
