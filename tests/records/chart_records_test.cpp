#include <gtest/gtest.h>

#include <array>
#include <string>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "records/record_values.h"
#include "support/caught_error.h"
#include "support/offscreen.h"

namespace {

using namespace orvalix::test;

constexpr int kAmbient = 12345;
constexpr int kDiffuse = 0x1201;

/// What surfaces don't keep out of a file: that they were even grids, and how these were divided.
RecordFixture& AsLoaded(RecordFixture& record) {
  return record.Put("even grid", {0}).Put("grid type", {1});
}

TEST(HeaderRecords, AreLoaded) {
  Offscreen target;
  CHeader3D loaded(target.gl.get());
  LoadAndSaveAgain(loaded, RecordFixture("header_3d"));
  EXPECT_EQ(CHeader3D::nSelfID, 1201);
  EXPECT_EQ(loaded.GetFontHeightSF(), 2.5);
  EXPECT_EQ(loaded.GetFontSize(), 3.5);
  EXPECT_EQ(loaded.GetHeaderEnable(), 4);
  EXPECT_STREQ(loaded.GetTitle1(), "First");
  EXPECT_STREQ(loaded.GetTitle2(), "Second line");
  EXPECT_STREQ(loaded.GetFooter(), "At the foot");
  EXPECT_EQ(Of(loaded.GetTitle1Obj()->GetLocation()), From(20.5));
  EXPECT_EQ(Of(loaded.GetTitle2Obj()->GetLocation()), From(40.5));
  EXPECT_EQ(Of(loaded.GetFooterObj()->GetLocation()), From(60.5));
}

TEST(HeaderRecords, AreSavedAsTheyWereSetUp) {
  Offscreen target;
  CTransform3D::nSelfID = 76;  // its own transform takes the next one
  CHeader3D made(target.gl.get());
  made.SetViewAspect(1.5);
  made.SetFontHeightSF(2.5);
  made.SetFontSize(3.5);
  made.EnableHeader(4);
  made.SetTitle1("First");
  made.SetTitle2("Second line");
  made.SetFooter("At the foot");
  SetUpText(*made.GetTitle1Obj(), 20);
  SetUpText(*made.GetTitle2Obj(), 40);
  SetUpText(*made.GetFooterObj(), 60);
  CHeader3D::nSelfID = 1201;
  CTextObj3D::nSelfID = 1501;
  RecordFixture expected("header_3d");
  ExpectRecord(Saved(made), expected.Put("header margin", {0.05}).Put("reserved", {0}));
}

void ExpectChart(const CChart3D& chart) {
  EXPECT_EQ(chart.GetFontSize(), 3.5);
  EXPECT_EQ(chart.GetBorderThickness(), 5.5);
  EXPECT_EQ(Of(chart.GetBorderColor()), From(6.5));
  EXPECT_EQ(chart.GetChartEnable(), 1);
  EXPECT_EQ(chart.GetBorderEnable(), 2);
  GLViewportType viewport{};
  chart.GetChartViewport(viewport);
  EXPECT_EQ(Of(viewport), (std::array<int, 4>{3, 4, 5, 6}));
  GLViewRType position{};
  chart.GetChartPosition(position);
  EXPECT_EQ(Of(position), From(7.5));
  point3Dtype light;
  chart.GetLightPosition(light);
  EXPECT_EQ(Of(light), From(8.5));
  EXPECT_EQ(Of(chart.GetLightComponent(kAmbient)), From(9.5));
  EXPECT_EQ(Of(chart.GetLightComponent(kDiffuse)), From(10.5));
  EXPECT_EQ(Of(chart.GetChartBkColor()), From(11.5));
  EXPECT_EQ(chart.GetTextureMode(), 7);
}

std::array<RGBDType, 258> TextureColors() {
  std::array<RGBDType, 258> colors;
  colors.fill(ColorFrom(22.5));
  colors[0] = ColorFrom(20.5);
  colors[1] = ColorFrom(21.5);
  colors[256] = ColorFrom(23.5);
  colors[257] = ColorFrom(24.5);
  return colors;
}

void ExpectTextures(const CChart3D& chart) {
  ASSERT_EQ(chart.GetNumTextureColors(), 258);
  std::array<RGBDType, 258> colors{};
  double min = 0;
  double max = 0;
  chart.GetTextureColorArray(colors.data(), &min, &max);
  const std::array<RGBDType, 258> expected = TextureColors();
  for (std::size_t i = 0; i < colors.size(); ++i) EXPECT_EQ(Of(colors[i]), Of(expected[i])) << i;
  EXPECT_EQ(min, 12.5);
  EXPECT_EQ(max, 13.5);
}

void ExpectChildren(const CChart3D& chart) {
  EXPECT_STREQ(chart.GetHeader()->GetTitle1(), "First");
  ASSERT_EQ(chart.GetNumTransforms(), 2);
  EXPECT_EQ(chart.GetTransform(0)->GetTransformID(), kTransformId);
  EXPECT_EQ(chart.GetTransform(1)->GetTransformID(), 1602);
  ASSERT_EQ(chart.GetNumAxes(), 1);
  EXPECT_EQ(chart.GetAxes(0)->GetOutlineMode(), 1441);
  ASSERT_EQ(chart.GetNumChartTextObjs(), 2);
  EXPECT_STREQ(chart.GetChartTextObj(0)->GetString(), "Some text");
  EXPECT_EQ(chart.GetChartTextObj(1)->GetTransformID(), 1602);
  ASSERT_EQ(chart.GetNumChartObjs(), 7);
  const std::array<int, 7> types{2, 7, 10, 17, 1, 15, 52};
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(chart.GetChartObj(i)->GetChartType(), types[static_cast<std::size_t>(i)]);
  }
  ASSERT_EQ(chart.GetNumAuxObjs(), 1);
  EXPECT_EQ(chart.GetAuxObj(0)->GetAuxObjType(), 9);
  ASSERT_EQ(chart.GetNumDIBObjs(), 1);
  EXPECT_STREQ(chart.GetDIBObj(0)->GetDIBFilename(), "no/such/picture.bmp");
}

TEST(ChartRecords, AreLoaded) {
  CChart3D loaded;
  RecordFixture record("chart_3d");
  LoadFrom(loaded, record.AllBytes());
  EXPECT_EQ(CChart3D::nSelfID, 501);
  ExpectChart(loaded);
  ExpectTextures(loaded);
  ExpectChildren(loaded);
  ExpectRecord(Saved(loaded), AsLoaded(record));
}

template <class T>
void FromItsRecord(T* object, const char* name) {
  EXPECT_EQ(Catch([&] { LoadFrom(*object, RecordFixture(name).AllBytes()); }), kNoError);
}

void AddChildren(CChart3D& chart) {
  FromItsRecord(chart.GetHeader(), "header_3d");
  FromItsRecord(chart.NewTransform(), "transform_3d");
  FromItsRecord(chart.NewTransform(), "transform_3d_other");
  CTransform3D* first = chart.GetTransform(0);
  FromItsRecord(chart.NewAxes(first), "axes_3d");
  FromItsRecord(chart.NewChartTextObj(), "text_obj_3d");
  FromItsRecord(chart.NewChartTextObj(), "text_obj_3d_other");
  for (const char* series :
       {"values", "points", "groups", "floating_bars", "segment_colors", "texts", "contours"}) {
    FromItsRecord(chart.NewChartObj(), (std::string("chart_obj_3d_") + series).c_str());
  }
  FromItsRecord(chart.NewAuxObj(), "aux_obj_3d");
  FromItsRecord(chart.NewDIBObj(), "dib_obj_3d");
}

TEST(ChartRecords, AreSavedAsTheyWereSetUp) {
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D view(&window);
  CChart3D& made = *view.NewChart3D();
  AddChildren(made);
  made.SetFontSize(3.5);
  made.SetBorderThickness(5.5);
  made.SetBorderColor(ColorFrom(6.5));
  made.EnableChart(1);
  made.EnableBorder(2);
  const Four position = From(7.5);
  made.SetChartPosition({position[0], position[1], position[2], position[3]});
  made.SetChartViewport({3, 4, 5, 6});
  made.SetLightPosition(PointFrom(8.5));
  made.SetLightComponent(kAmbient, ColorFrom(9.5));
  made.SetLightComponent(kDiffuse, ColorFrom(10.5));
  made.SetChartBkColor(ColorFrom(11.5));
  made.SetTextureColorArray(TextureColors().data(), 12.5, 13.5, 258);
  made.SetTextureMode(7);
  CChart3D::nSelfID = 501;
  RecordFixture expected("chart_3d_built");
  ExpectRecord(Saved(made), AsLoaded(expected));
}

// What no accessor tells shows in the texts: their width follows from both aspects, their height
// from the font's factor.
TEST(ChartRecords, LoadedFactorsReachTheTransforms) {
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D view(&window);
  CChart3D& loaded = *view.NewChart3D();
  FromItsRecord(&loaded, "chart_3d_other");
  const CTransform3D& transform = *loaded.NewTransform();
  loaded.SetChartPosition({0.0, 0.0, 1.0, 0.5});
  view.DrawViewScreen();
  EXPECT_EQ(transform.GetFontAspect(), 300.5 * 10.0 / 20.0);
  EXPECT_EQ(transform.GetFontHeightSF(), 302.5);
}

Bytes SavedView(const CChartView3D& view) {
  const TemporaryFile file;
  view.Save(file.Path());
  return file.Read();
}

void ExpectView(const CChartView3D& view) {
  EXPECT_EQ(view.GetFontWeight(), 550);
  EXPECT_EQ(view.GetFontItalics(), 2);
  EXPECT_EQ(view.GetFontUnderline(), 3);
  EXPECT_STREQ(view.GetFontName(), "Sans");
  EXPECT_EQ(Of(view.GetViewBkColor()), From(0.5));
  EXPECT_EQ(view.GetViewBkMode(), 4);
  EXPECT_EQ(view.GetViewBorderThickness(), 1.5);
  EXPECT_EQ(Of(view.GetViewBorderColor()), From(2.5));
  EXPECT_EQ(view.GetBorderEnable(), 5);
  ASSERT_EQ(view.GetNumCharts(), 2);
  ExpectChart(*view.GetChart(0));
  ExpectTextures(*view.GetChart(0));
  ExpectChildren(*view.GetChart(0));
  EXPECT_EQ(view.GetChart(1)->GetBorderThickness(), 305.5);
  ASSERT_EQ(view.GetNumLegends(), 2);
  EXPECT_STREQ(view.GetLegend(0)->GetText(1), "the second");
  EXPECT_EQ(view.GetLegend(1)->GetLegendOrientation(), 501);
  EXPECT_STREQ(view.GetHeader()->GetTitle1(), "The view");
  EXPECT_STREQ(view.GetHeader()->GetFooter(), "its foot");
}

TEST(ViewRecords, AreLoaded) {
  RecordFixture record("chart_view_3d");
  const TemporaryFile file(record.AllBytes());
  CChartView3D loaded;
  loaded.Load(file.Path());
  ExpectView(loaded);
  ExpectRecord(SavedView(loaded), AsLoaded(record));
}

// The children are bound to their transforms, which changes nothing in their records.
TEST(ViewRecords, AreLoadedIntoAViewThatDraws) {
  RecordFixture record("chart_view_3d");
  const TemporaryFile file(record.AllBytes());
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D loaded(&window);
  EXPECT_EQ(Catch([&] { loaded.Load(file.Path()); }), kNoError);
  ExpectView(loaded);
  ExpectRecord(SavedView(loaded), AsLoaded(record));
}

TEST(ViewRecords, AreSavedAsTheyWereSetUp) {
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D made(&window);
  made.SetFont("Sans", 550, 2, 3, 100);
  made.SetViewBkColor(ColorFrom(0.5));
  made.SetViewBkMode(4);
  made.SetViewBorderThickness(1.5);
  made.SetViewBorderColor(ColorFrom(2.5));
  made.EnableBorder(5);
  FromItsRecord(made.NewChart3D(), "chart_3d");
  FromItsRecord(made.NewChart3D(), "chart_3d_other");
  FromItsRecord(made.NewLegend3D(), "legend_3d");
  FromItsRecord(made.NewLegend3D(), "legend_3d_other");
  FromItsRecord(made.GetHeader(), "header_3d_other");
  RecordFixture expected("chart_view_3d");
  ExpectRecord(SavedView(made), AsLoaded(expected));
}

}  // namespace
