#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "records/record_values.h"
#include "support/offscreen.h"

namespace {

using namespace orvalix::test;

/// A context, and the transform that the fixtures name.
class AxesRecords : public ::testing::Test {
 protected:
  AxesRecords() {
    CTransform3D::nSelfID = kTransformId - 1;  // takes the next one
    transform.SetTransformDefaults();
    transform.InitTransform(target.gl.get());
  }

  Offscreen target;
  CTransform3D transform;
};

// The numbers of each record follow from a first one.

void ExpectAxis(const CAxis3D& axis, int first) {
  EXPECT_EQ(axis.GetTransformID(), kTransformId);
  EXPECT_EQ(axis.GetAxisTicDir(), first + 1);
  EXPECT_EQ(axis.GetAxisStyle(), first + 2);
  EXPECT_EQ(axis.GetAxisNthTicMajor(), first + 3);
  EXPECT_EQ(axis.GetColorMode(), first + 4);
  EXPECT_EQ(Of(axis.GetAxisColor()), From(first + 0.5));
  EXPECT_EQ(Of(axis.GetAxisTicColor()), From(first + 1.5));
  EXPECT_EQ(axis.GetAxisThickness(), first + 2.5);
  EXPECT_EQ(axis.GetAxisMin(), first + 3.5);
  EXPECT_EQ(axis.GetAxisMax(), first + 4.5);
  EXPECT_EQ(axis.GetAxisStart(), first + 5.5);
  EXPECT_EQ(axis.GetAxisStop(), first + 6.5);
  EXPECT_EQ(axis.GetAxisMinorTicLength(), first + 7.5);
  EXPECT_EQ(axis.GetAxisMajorTicLength(), first + 8.5);
  EXPECT_EQ(axis.GetAxisWallThickness(), first + 9.5);
  EXPECT_EQ(axis.GetAxisTicSpace(), first + 10.5);
  EXPECT_EQ(axis.GetAxisCenterPoint(), first + 11.5);
  EXPECT_EQ(axis.GetAxisIntercept1(), first + 12.5);
  EXPECT_EQ(axis.GetAxisIntercept2(), first + 13.5);
  EXPECT_NE(axis.IsAxisSet(), 0);
}

/// All but start and stop, which belong to the limits, and the flag that these were set.
void SetUpAxis(CAxis3D& axis, int first) {
  axis.SetAxisTicDir(first + 1);
  axis.SetAxisStyle(first + 2);
  axis.SetAxisNthTicMajor(first + 3);
  axis.SetColorMode(first + 4);
  axis.SetAxisColor(ColorFrom(first + 0.5));
  axis.SetAxisTicColor(ColorFrom(first + 1.5));
  axis.SetAxisThickness(first + 2.5);
  axis.SetAxisLimits(first + 4.5, first + 3.5);
  axis.SetAxisMinorTicLength(first + 7.5);
  axis.SetAxisMajorTicLength(first + 8.5);
  axis.SetAxisWallThickness(first + 9.5);
  axis.SetAxisTicSpace(first + 10.5);
  axis.SetAxisCenterPoint(first + 11.5);
  axis.SetAxisIntercept1(first + 12.5);
  axis.SetAxisIntercept2(first + 13.5);
}

TEST_F(AxesRecords, AxesAreLoaded) {
  CAxis3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("axis_3d"));
  EXPECT_EQ(CAxis3D::nSelfID, 301);
  EXPECT_EQ(loaded.GetAxisIndex(), 2);
  ExpectAxis(loaded, 10);
}

TEST_F(AxesRecords, AxesAreSavedAsTheyWereSetUp) {
  CAxis3D made(target.gl.get(), &transform, 2);
  SetUpAxis(made, 10);
  CAxis3D::nSelfID = 301;
  RecordFixture expected("axis_3d");
  expected.Put("start", {14.5}).Put("stop", {13.5}).Put("set", {1});
  ExpectRecord(Saved(made), expected);
}

void ExpectLabels(CAxisLabels3D& labels, int first) {
  EXPECT_EQ(labels.GetTransformID(), kTransformId);
  EXPECT_EQ(labels.GetAxisLabelsPlane(), first + 1);
  EXPECT_EQ(labels.GetAxisLabelsDir(), first + 2);
  EXPECT_EQ(labels.GetAxisLabelsRotation(), first + 3);
  EXPECT_EQ(labels.GetAxisLabelsDecimals(), first + 4);
  EXPECT_EQ(labels.GetAxisLabelsFormat(), first + 5);
  EXPECT_EQ(labels.GetAxisLabelsEnds(), first + 6);
  EXPECT_EQ(labels.GetAxisLabelsXJust(), first + 7);
  EXPECT_EQ(labels.GetAxisLabelsYJust(), first + 8);
  EXPECT_EQ(labels.GetAxisLabelsFlipX(), first + 11);
  EXPECT_EQ(labels.GetAxisLabelsFlipY(), first + 12);
  EXPECT_EQ(labels.GetAxisTitleFlipX(), first + 13);
  EXPECT_EQ(labels.GetAxisTitleFlipY(), first + 14);
  EXPECT_EQ(labels.GetAxisTitlePlane(), first + 15);
  EXPECT_EQ(labels.GetAxisTitleDir(), first + 16);
  EXPECT_EQ(labels.GetAxisTitleRotation(), first + 17);
  EXPECT_EQ(labels.GetAxisTitleXJust(), first + 18);
  EXPECT_EQ(labels.GetAxisTitleYJust(), first + 19);
  EXPECT_EQ(labels.GetAxisTitleAutomatic(), first + 20);
  EXPECT_EQ(labels.GetAxisLabelsTicOffset(), first + 0.5);
  EXPECT_EQ(labels.GetAxisLabelsSize(), first + 1.5);
  EXPECT_EQ(labels.GetAxisTitleSize(), first + 2.5);
  EXPECT_EQ(labels.GetAxisLabelsStringEnable(), first + 23);
  EXPECT_EQ(Of(labels.GetAxisLabelsColor()), From(first + 3.5));
  EXPECT_EQ(Of(labels.GetAxisTitleColor()), From(first + 4.5));
}

void ExpectStrings(CAxisLabels3D& labels, const std::vector<std::string>& expected) {
  ASSERT_EQ(labels.GetNumAxisLabelsStrings(), static_cast<int>(expected.size()));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_STREQ(labels.GetAxisLabelsStrings()[i], expected[i].c_str());
  }
}

std::string TitleOf(const CAxisLabels3D& labels) {
  CString title;
  labels.GetAxisTitleString(title);
  return std::string(title);
}

void SetUpLabels(CAxisLabels3D& labels, int first, const std::vector<CString>& strings,
                 const CString& title) {
  labels.SetAxisLabels(first + 1, first + 3, first + 2, first + 4, first + 6,
                       ColorFrom(first + 3.5), strings.data(), static_cast<int>(strings.size()));
  labels.SetAxisLabelsFormat(first + 5);
  labels.SetAxisLabelsXJust(first + 7);
  labels.SetAxisLabelsYJust(first + 8);
  labels.SetAxisLabelsFlipX(first + 11);
  labels.SetAxisLabelsFlipY(first + 12);
  labels.SetAxisTitleFlipX(first + 13);
  labels.SetAxisTitleFlipY(first + 14);
  labels.SetAxisTitle(first + 15, first + 16, first + 17, first + 18, first + 19, first + 20,
                      ColorFrom(first + 4.5), title);
  labels.SetAxisLabelsTicOffset(first + 0.5);
  labels.SetAxisLabelsSize(first + 1.5);
  labels.SetAxisTitleSize(first + 2.5);
  labels.EnableAxisLabelsStrings(first + 23);
  SetUpText(*labels.GetAxisTitleObj(), first + 80);
}

TEST_F(AxesRecords, LabelsAreLoaded) {
  CAxisLabels3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("axis_labels_3d"));
  EXPECT_EQ(CAxisLabels3D::nSelfID, 401);
  ExpectLabels(loaded, 0);
  ExpectStrings(loaded, {"one", "eleven"});
  EXPECT_EQ(TitleOf(loaded), "A title");
  EXPECT_EQ(Of(loaded.GetAxisTitleObj()->GetLocation()), From(80.5));
}

TEST_F(AxesRecords, LabelsAreSavedAsTheyWereSetUp) {
  CAxis3D axis(target.gl.get(), &transform, 1);
  CAxisLabels3D made(target.gl.get(), &transform, &axis);
  SetUpLabels(made, 0, {"one", "eleven"}, "A title");
  CAxisLabels3D::nSelfID = 401;
  CTextObj3D::nSelfID = 1501;
  // With the automatic justifications of labels along x, y and z in the text planes 0 to 3.
  ExpectRecord(Saved(made), RecordFixture("axis_labels_3d_built"));
}

TEST_F(AxesRecords, FramesAreLoaded) {
  CAxes3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("axes_3d"));
  EXPECT_EQ(CAxes3D::nSelfID, 201);
  EXPECT_EQ(loaded.GetTransformID(), kTransformId);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.GetAxis(i)->GetAxisIndex(), i);
    ExpectAxis(*loaded.GetAxis(i), 20 * i);
    ExpectLabels(*loaded.GetAxisLabels(i), 200 + 200 * i);
    EXPECT_EQ(loaded.GetAxisEnable(i), 1421 + i);
    EXPECT_EQ(loaded.GetAxisLabelsEnable(i), 1431 + i);
  }
  ExpectStrings(*loaded.GetAxisLabels(0), {"x1"});
  ExpectStrings(*loaded.GetAxisLabels(1), {});
  ExpectStrings(*loaded.GetAxisLabels(2), {"z one", "z two"});
  EXPECT_EQ(TitleOf(*loaded.GetAxisLabels(0)), "x title");
  EXPECT_EQ(TitleOf(*loaded.GetAxisLabels(1)), "title of y");
  EXPECT_EQ(TitleOf(*loaded.GetAxisLabels(2)), "");
  point3Dtype min;
  point3Dtype max;
  loaded.GetAxesLimits(min, max);
  EXPECT_EQ(Of(min), From(1300.5));
  EXPECT_EQ(Of(max), From(1301.5));
  EXPECT_EQ(loaded.GetOutlineMode(), 1441);
}

TEST_F(AxesRecords, PlanesOfFramesAreLoaded) {
  CAxes3D loaded;
  LoadFrom(loaded, RecordFixture("axes_3d").AllBytes());
  for (int i = 0; i < 6; ++i) {
    const int grid = 1000 + 10 * i;
    EXPECT_EQ(loaded.GetPlaneGridNthTic1(i), grid + 1);
    EXPECT_EQ(loaded.GetPlaneGridNthTic2(i), grid + 2);
    EXPECT_EQ(loaded.GetPlaneGridWallFlag(i), grid + 3);
    EXPECT_EQ(loaded.GetPlaneGridThickness(i), grid + 0.5);
    EXPECT_EQ(loaded.GetPlaneGridStyle(i), grid + 4);
    EXPECT_EQ(Of(loaded.GetPlaneGridColor(i)), From(grid + 1.5));
    EXPECT_EQ(loaded.GetGridEnable(i), grid + 5);
    const int plane = 1100 + 10 * i;
    EXPECT_EQ(Of(loaded.GetPlaneColor(i)), From(plane + 0.5));
    EXPECT_EQ(Of(loaded.GetOutlineColor(i)), From(plane + 1.5));
    EXPECT_EQ(loaded.GetWallThickness(i), plane + 2.5);
    EXPECT_EQ(loaded.GetWallOffset(i), plane + 3.5);
    EXPECT_EQ(loaded.GetOutlineWidth(i), plane + 4.5);
    EXPECT_EQ(loaded.GetPlaneEnable(i), plane + 1);
    EXPECT_EQ(loaded.GetPlaneColorMode(i), 1411 + i);
  }
}

TEST_F(AxesRecords, PaddingIsNotKept) {
  RecordFixture record("axes_3d");
  const Bytes zeros = record.AllBytes();
  CAxes3D loaded;
  LoadFrom(loaded, record.Put("padding", {-1}).AllBytes());
  EXPECT_NE(record.AllBytes(), zeros);
  ExpectRecord(Saved(loaded), record.Put("padding", {0}));
}

void SetUpPlane(CAxes3D& axes, int plane) {
  const int grid = 1000 + 10 * plane;
  axes.SetPlaneGrid(plane, grid + 1, grid + 2, ColorFrom(grid + 1.5), grid + 0.5, grid + 4,
                    grid + 3);
  axes.EnableGrid(plane, grid + 5);
  const int first = 1100 + 10 * plane;
  // Planes 1, 3 and 5 are walls.
  const auto set = plane % 2 == 0 ? &CAxes3D::SetPlaneColor : &CAxes3D::SetWallPlane;
  (axes.*set)(plane, ColorFrom(first + 0.5), ColorFrom(first + 1.5));
  axes.SetWallThickness(plane, first + 2.5);
  axes.SetWallOffset(plane, first + 3.5);
  axes.SetOutlineWidth(plane, first + 4.5);
  axes.EnablePlane(plane, first + 1);
  axes.SetPlaneColorMode(plane, 1411 + plane);
}

TEST_F(AxesRecords, FramesAreSavedAsTheyWereSetUp) {
  CAxes3D made(target.gl.get(), &transform, PointFrom(1300.5), PointFrom(1301.5));
  for (int plane = 0; plane < 6; ++plane) SetUpPlane(made, plane);
  for (int i = 0; i < 3; ++i) {
    made.SetAxisColorMode(i, 1401 + i);
    made.EnableAxis(i, 1421 + i);
    made.EnableAxisLabels(i, 1431 + i);
    SetUpAxis(*made.GetAxis(i), 20 * i);
  }
  made.SetOutlineMode(1441);
  SetUpLabels(*made.GetAxisLabels(0), 200, {"x1"}, "x title");
  SetUpLabels(*made.GetAxisLabels(1), 400, {}, "title of y");
  SetUpLabels(*made.GetAxisLabels(2), 600, {"z one", "z two"}, "");
  CAxes3D::nSelfID = 201;
  CAxis3D::nSelfID = 301;
  CAxisLabels3D::nSelfID = 401;
  CTextObj3D::nSelfID = 1501;
  // With the limits of the axes as they were given, and the tables that no setter reaches.
  ExpectRecord(Saved(made), RecordFixture("axes_3d_built"));
}

}  // namespace
