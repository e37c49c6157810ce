#include <gtest/gtest.h>

#include <array>
#include <string>

#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/surface/polysurface.h"
#include "records/record_values.h"
#include "support/offscreen.h"

namespace {

using namespace orvalix::test;

/// A series with the attributes that all fixtures have, drawn through the transform that they name.
class SeriesRecords : public ::testing::Test {
 protected:
  SeriesRecords() {
    CTransform3D::nSelfID = kTransformId - 1;  // takes the next one
    transform.SetTransformDefaults();
    transform.InitTransform(target.gl.get());
    made.InitChartObj3D(target.gl.get(), &transform);
  }

  /// After the set-up routine: sets the attributes that it sets, and others.
  /// @return what is saved then
  RecordFixture Expected(const std::string& name) {
    SetReals();
    SetIntegers();
    CChartObj3D::nSelfID = 601;
    RecordFixture expected("chart_obj_3d_" + name);
    // No setter reaches it; charts of open-high-low-close values have it.
    expected.Put("open-high-low-close line colour", {0.0, 0.0, 0.0, 1.0});
    return expected;
  }

  void ExpectSaved(const std::string& name) {
    const RecordFixture expected = Expected(name);
    ExpectRecord(Saved(made), expected);
  }

  Offscreen target;
  CTransform3D transform;
  CChartObj3D made;

 private:
  void SetReals() {
    made.SetConstValue(0.5);
    made.SetBaseValue(1.5);
    made.SetRelSize(2.5);
    made.SetConstWidth(3.5);
    made.SetIndWidth(4.5);
    made.SetFillGap(5.5);
    made.SetPlaneThickness(6.5);
    made.SetOutlineWidth(7.5);
    made.SetFillColor(ColorFrom(8.5));
    made.SetOutlineColor(ColorFrom(9.5));
  }

  void SetIntegers() {
    made.SetSymbol(11);
    made.SetSymbol2(12);
    made.SetLineWidth(21);
    made.SetLineStyle(22);
    made.SetIndJustify(23);
    made.SetDepJustify(24);
    made.SetConstJustify(25);
    made.SetIndAxis(26);
    made.SetProjectionPlane(27);
    made.SetTextPlane(28);
    made.SetGroupType(29);
    made.SetSegmentColorMode(31);
    made.SetContourLabelFlag(32);
    made.SetColorMode(33);
    made.SetClipping(34);
    made.SetOutlineMode(35);
    const std::array<int, 6> flags{41, 42, 43, 44, 45, 46};
    made.SetComboChartFlags(flags.data());
    made.EnableChartObj(47);
  }
};

constexpr std::array<double, 3> kInd{60.5, 61.5, 62.5};
constexpr std::array<double, 3> kDep{70.5, 71.5, 72.5};
constexpr RGBDType kAny{};

void ExpectAttributes(const CChartObj3D& loaded) {
  EXPECT_EQ(CChartObj3D::nSelfID, 601);
  EXPECT_EQ(loaded.GetOwnerID(), kTransformId);
  EXPECT_EQ(loaded.GetConstValue(), 0.5);
  EXPECT_EQ(loaded.GetBaseValue(), 1.5);
  EXPECT_EQ(loaded.GetRelSize(), 2.5);
  EXPECT_EQ(loaded.GetConstWidth(), 3.5);
  EXPECT_EQ(loaded.GetIndWidth(), 4.5);
  EXPECT_EQ(loaded.GetFillGap(), 5.5);
  EXPECT_EQ(loaded.GetPlaneThickness(), 6.5);
  EXPECT_EQ(loaded.GetOutlineWidth(), 7.5);
  EXPECT_EQ(Of(loaded.GetFillColor()), From(8.5));
  EXPECT_EQ(Of(loaded.GetOutlineColor()), From(9.5));
  EXPECT_EQ(loaded.GetSymbol(), 11);
  EXPECT_EQ(loaded.GetSymbol2(), 12);
  EXPECT_EQ(loaded.GetLineWidth(), 21);
  EXPECT_EQ(loaded.GetLineStyle(), 22);
  EXPECT_EQ(loaded.GetIndJustify(), 23);
  EXPECT_EQ(loaded.GetConstJustify(), 25);
  EXPECT_EQ(loaded.GetIndAxis(), 26);
  EXPECT_EQ(loaded.GetProjectionPlane(), 27);
  EXPECT_EQ(loaded.GetTextPlane(), 28);
  EXPECT_EQ(loaded.GetGroupType(), 29);
  EXPECT_EQ(loaded.GetContourLabelFlag(), 32);
  EXPECT_EQ(loaded.GetColorMode(), 33);
  EXPECT_EQ(loaded.GetClipping(), 34);
  EXPECT_EQ(loaded.GetOutlineMode(), 35);
  std::array<int, 6> flags{};
  loaded.GetComboChartFlags(flags.data());
  EXPECT_EQ(flags, (std::array<int, 6>{41, 42, 43, 44, 45, 46}));
  EXPECT_EQ(loaded.GetChartObjEnable(), 47);
}

TEST_F(SeriesRecords, ValuesAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_values"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kBarChart25D);
  EXPECT_EQ(loaded.GetSegmentColorMode(), 31);
  ASSERT_EQ(loaded.GetNumDataPnts(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.GetIndData(i), 60.5 + i);
    EXPECT_EQ(loaded.GetDepData(i), 70.5 + i);
  }
}

TEST_F(SeriesRecords, ValuesAreSavedAsTheyWereSetUp) {
  made.BarChart25D(kInd.data(), kDep.data(), 0, 0, 3, 0, 0, kAny, kAny, 0, 0, 0);
  ExpectSaved("values");
}

TEST_F(SeriesRecords, PointsAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_points"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kScatterChart3D);
  ASSERT_EQ(loaded.GetNumDataPnts(), 2);
  EXPECT_EQ(Of(loaded.Get3DPoint(0)), From(50.5));
  EXPECT_EQ(Of(loaded.Get3DPoint(1)), From(51.5));
}

TEST_F(SeriesRecords, PointsAreSavedAsTheyWereSetUp) {
  const std::array<point3Dtype, 2> points{PointFrom(50.5), PointFrom(51.5)};
  made.ScatterChart3D(points.data(), 0, 2, 0, kAny, kAny, 0, 0);
  ExpectSaved("points");
}

TEST_F(SeriesRecords, GroupsAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_groups"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kGroupBarChart25D);
  ASSERT_EQ(loaded.GetNumDataPnts(), 3);
  ASSERT_EQ(loaded.GetNumGroups(), 2);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.GetIndData(i), 60.5 + i);
    EXPECT_EQ(loaded.GetGroupData(0, i), 80.5 + i);
    EXPECT_EQ(loaded.GetGroupData(1, i), 83.5 + i);
  }
  EXPECT_EQ(Of(loaded.GetGroupColor(0)), From(110.5));
  EXPECT_EQ(Of(loaded.GetGroupColor(1)), From(111.5));
}

TEST_F(SeriesRecords, GroupsAreSavedAsTheyWereSetUp) {
  const std::array<double, 6> group{80.5, 81.5, 82.5, 83.5, 84.5, 85.5};
  const std::array<RGBDType, 2> colors{ColorFrom(110.5), ColorFrom(111.5)};
  made.GroupBarChart25D(kInd.data(), group.data(), 0, 0, 3, 2, 0, 0, 0, colors.data(), kAny, 0, 0,
                        0);
  ExpectSaved("groups");
}

TEST_F(SeriesRecords, FloatingBarsAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_floating_bars"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kFloatingBarChart25D);
  ASSERT_EQ(loaded.GetNumDataPnts(), 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(loaded.GetIndData(i), 60.5 + i);
    EXPECT_EQ(loaded.GetDepData(i), 70.5 + i);
    EXPECT_EQ(loaded.GetDepData2(i, 0.0), 90.5 + i);
    EXPECT_EQ(loaded.GetBarHeight(i), 100.5 + i);
  }
}

TEST_F(SeriesRecords, FloatingBarsAreSavedAsTheyWereSetUp) {
  const std::array<double, 2> dep2{90.5, 91.5};
  const std::array<double, 2> heights{100.5, 101.5};
  made.FloatingBarChart25D(kInd.data(), kDep.data(), heights.data(), 0, 2, 0, 0, kAny, kAny, 0, 0,
                           0);
  made.InitDepData2Storage(dep2.data());
  ExpectSaved("floating_bars");
}

TEST_F(SeriesRecords, SegmentColorsAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_segment_colors"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kRibbonChart25D);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Of(loaded.GetSegmentColor(i)), From(120.5 + i));
  EXPECT_EQ(loaded.GetSegmentColorMode(), 1);
}

// Segments that have colours show them.
TEST_F(SeriesRecords, SegmentColorsThatAreLoadedAreUsed) {
  CChartObj3D loaded;
  RecordFixture record("chart_obj_3d_segment_colors");
  LoadFrom(loaded, record.Put("segment colour mode", {0}).AllBytes());
  EXPECT_EQ(loaded.GetSegmentColorMode(), 1);
  ExpectRecord(Saved(loaded), RecordFixture("chart_obj_3d_segment_colors"));
}

TEST_F(SeriesRecords, SegmentColorsAreSavedAsTheyWereSetUp) {
  const std::array<RGBDType, 3> colors{ColorFrom(120.5), ColorFrom(121.5), ColorFrom(122.5)};
  made.RibbonChart25D(kInd.data(), kDep.data(), 0, 3, 0, kAny, kAny, 0, 0);
  made.InitSegmentColorsStorage(colors.data());
  const RecordFixture expected = Expected("segment_colors");
  made.SetSegmentColorMode(1);
  ExpectRecord(Saved(made), expected);
}

TEST_F(SeriesRecords, TextsAreLoaded) {
  CChartObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("chart_obj_3d_texts"));
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kScatterText3D);
  EXPECT_EQ(Of(loaded.Get3DPoint(1)), From(51.5));
  EXPECT_STREQ(loaded.GetScatterTextString(0), "first");
  EXPECT_STREQ(loaded.GetScatterTextString(1), "second text");
}

TEST_F(SeriesRecords, TextsAreSavedAsTheyWereSetUp) {
  const std::array<point3Dtype, 2> points{PointFrom(50.5), PointFrom(51.5)};
  const std::array<CString, 2> texts{"first", "second text"};
  made.ScatterText3D(points.data(), texts.data(), 2, 0, 0, kAny, 0, 0);
  ExpectSaved("texts");
}

// What a mesh doesn't keep out of a file: that it was an even grid, and how that was divided.
RecordFixture& AsLoaded(RecordFixture& record) {
  return record.Put("even grid", {0}).Put("grid type", {1});
}

TEST_F(SeriesRecords, ContoursAreLoaded) {
  CChartObj3D loaded;
  RecordFixture record("chart_obj_3d_contours");
  LoadFrom(loaded, record.AllBytes());
  ExpectAttributes(loaded);
  EXPECT_EQ(loaded.GetChartType(), CChartObj3D::kContourPolysurface3D);
  EXPECT_EQ(loaded.GetNumContours(), 2);
  EXPECT_EQ(loaded.GetNumDataPnts(), 0);
  EXPECT_EQ(Of(loaded.GetPolysurfacePoint(4)), From(24.5));
  loaded.SetNumDataPnts(2);  // the getters go as far as there are points
  for (int i = 0; i < 2; ++i) EXPECT_EQ(loaded.GetContourValue(i), 130.5 + i);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Of(loaded.GetContourColor(i)), From(140.5 + i));
  loaded.SetNumDataPnts(0);
  ExpectRecord(Saved(loaded), AsLoaded(record));
}

TEST_F(SeriesRecords, ContoursAreSavedAsTheyWereSetUp) {
  CPolysurface surface;
  LoadFrom(surface, RecordFixture("polysurface").AllBytes());
  const std::array<double, 2> values{130.5, 131.5};
  const std::array<RGBDType, 3> colors{ColorFrom(140.5), ColorFrom(141.5), ColorFrom(142.5)};
  made.ContourPolysurface3D(&surface, values.data(), colors.data(), 2, 0, 0);
  RecordFixture expected = Expected("contours");
  ExpectRecord(Saved(made), AsLoaded(expected));
}

void ExpectGrid(const CPolysurface& surface) {
  EXPECT_EQ(surface.GetRGRows(), 2);
  EXPECT_EQ(surface.GetRGColumns(), 3);
  EXPECT_EQ(surface.GetRGMinX(), 0.5);
  EXPECT_EQ(surface.GetRGMaxX(), 1.5);
  EXPECT_EQ(surface.GetRGRangeX(), 2.5);
  EXPECT_EQ(surface.GetRGMinY(), 3.5);
  EXPECT_EQ(surface.GetRGMaxY(), 4.5);
  EXPECT_EQ(surface.GetRGRangeY(), 5.5);
  EXPECT_EQ(surface.GetRGMinZ(), 6.5);
  EXPECT_EQ(surface.GetRGMaxZ(), 7.5);
  EXPECT_EQ(surface.GetRGRangeZ(), 8.5);
  EXPECT_EQ(surface.GetRGStepX(), 9.5);
  EXPECT_EQ(surface.GetRGStepY(), 10.5);
  EXPECT_EQ(surface.GetEvenGridFlag(), 0);
  EXPECT_EQ(surface.GetGridType(), 1);
}

TEST(PolysurfaceRecords, AreLoaded) {
  CPolysurface loaded;
  RecordFixture record("polysurface");
  LoadFrom(loaded, record.AllBytes());
  ExpectGrid(loaded);
  ASSERT_EQ(loaded.GetPSNumPoints(), 5);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(Of(loaded.GetPSPoints()[i]), From(20.5 + i)) << i;
  EXPECT_EQ(loaded.GetPSMaxPolygons(), 3);
  EXPECT_EQ(loaded.GetPSNumPolygons(), 2);
  EXPECT_EQ(loaded.GetPSPointsPerPolygon(), 5);
  std::array<int, 5> indices{};
  int count = 0;
  RGBDType first{};
  RGBDType second{};
  loaded.GetPSPolygonIndices(0, indices.data(), count, first, second);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(indices, (std::array<int, 5>{0, 1, 3, 0, 0}));
  EXPECT_EQ(Of(first), From(40.5));
  EXPECT_EQ(Of(second), From(42.5));
  loaded.GetPSPolygonIndices(1, indices.data(), count, first, second);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(indices, (std::array<int, 5>{1, 4, 3, 2, 0}));
  EXPECT_EQ(Of(first), From(43.5));
  EXPECT_EQ(Of(second), From(45.5));
  std::array<int, 3> neighbors{};
  loaded.GetAdjacentPolyList(1, neighbors.data());
  EXPECT_EQ(neighbors, (std::array<int, 3>{-1, 0, -1}));
  ExpectRecord(Saved(loaded), AsLoaded(record));
}

// Polygons as a program adds them: the points are its own, and there is no grid.
TEST(PolysurfaceRecords, AreSavedAsTheyWereSetUp) {
  CPolysurface made(5, 2, 5);
  for (int i = 0; i < 5; ++i) made.SetOnePolysurfacePoint(i, PointFrom(20.5 + i));
  const std::array<int, 3> triangle{0, 1, 3};
  const std::array<int, 4> quadrangle{1, 4, 3, 2};
  made.AddPolysurfacePolygon(0, triangle.data(), 3, ColorFrom(40.5), ColorFrom(42.5));
  made.AddPolysurfacePolygon(1, quadrangle.data(), 4, ColorFrom(43.5), ColorFrom(45.5));
  ExpectRecord(Saved(made), RecordFixture("polysurface_built"));
}

}  // namespace
