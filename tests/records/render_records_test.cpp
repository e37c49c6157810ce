#include <gtest/gtest.h>

#include <array>
#include <string>

#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "records/record_values.h"
#include "support/bitmap_files.h"
#include "support/offscreen.h"

namespace {

using namespace orvalix::test;

/// A context, and the transform that the fixtures name.
class RenderRecords : public ::testing::Test {
 protected:
  RenderRecords() {
    CTransform3D::nSelfID = kTransformId - 1;  // takes the next one
    transform.SetTransformDefaults();
    transform.InitTransform(target.gl.get());
  }

  Offscreen target;
  CTransform3D transform;
};

TEST_F(RenderRecords, TransformsAreLoaded) {
  CTransform3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("transform_3d"));
  EXPECT_EQ(loaded.GetTransformID(), kTransformId);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(loaded.GetGraphTransform()[i], 1 + i);
    EXPECT_EQ(loaded.GetFontTransform()[i], 21 + i);
  }
  EXPECT_EQ(Of(loaded.GetCentroid()), From(41.5));
  EXPECT_EQ(Of(loaded.GetOffset()), From(42.5));
  EXPECT_EQ(Of(loaded.GetRotation()), From(43.5));
  EXPECT_EQ(Of(loaded.GetNormalizationFactors()), From(44.5));
  EXPECT_EQ(Of(loaded.GetChartRect()), From(45.5));
  EXPECT_EQ(Of(loaded.GetScaleMin()), From(46.5));
  EXPECT_EQ(Of(loaded.GetScaleMax()), From(47.5));
  point3Dtype min;
  point3Dtype max;
  loaded.GetWorkingScale(min, max);
  EXPECT_EQ(Of(min), From(48.5));
  EXPECT_EQ(Of(max), From(49.5));
  for (int i = 0; i < 6; ++i) EXPECT_EQ(loaded.GetAxisScaleMode(i), i);
  EXPECT_EQ(loaded.GetClipping(), 61);
  EXPECT_EQ(loaded.GetFontAspect(), 63.5);
  EXPECT_EQ(loaded.GetFontHeightSF(), 64.5);
}

TEST_F(RenderRecords, TransformsAreSavedAsTheyWereSetUp) {
  CTransform3D::nSelfID = kTransformId - 1;
  CTransform3D made;
  made.SetScale({10.0, 100.0, 1000.0, 1.5}, {20.0, 1e4, 1e6, 2.5});
  for (int i = 0; i < 6; ++i) made.SetAxisScaleMode(i, i);
  made.TransformScale();
  made.SetCentroid(PointFrom(41.5));
  for (int i = 0; i < 16; ++i) {
    made.GetGraphTransform()[i] = 1 + i;
    made.GetFontTransform()[i] = 21 + i;
  }
  made.SetOffset(PointFrom(42.5));
  made.SetRotate(PointFrom(43.5));
  made.SetChartRect(PointFrom(45.5));
  made.SetClipping(61);
  made.SetFontAspect(63.5);
  made.SetFontHeightSF(64.5);
  RecordFixture expected("transform_3d");
  expected.Put("scale minimum", {10.0, 100.0, 1000.0, 1.5});
  expected.Put("scale maximum", {20.0, 1e4, 1e6, 2.5});
  // Worked out: x is linear, y and z logarithmic.
  expected.Put("working scale minimum", {10.0, 2.0, 3.0, 1.5});
  expected.Put("working scale maximum", {20.0, 4.0, 6.0, 2.5});
  expected.Put("adjusted scale minimum", {10.0, 100.0, 1000.0, 1.5});
  expected.Put("adjusted scale maximum", {20.0, 1e4, 1e6, 2.5});
  expected.Put("normalisation factors", {2.0 / 10.0, 2.0 / 2.0, 2.0 / 3.0, 0.0});
  expected.Put("rotation", {43.5, 43.625, 43.75, 0.0});  // the setter takes angles alone
  expected.Put("reserved", {0});
  ExpectRecord(Saved(made), expected);
}

TEST_F(RenderRecords, FontsAreLoaded) {
  CFont3D loaded;
  RecordFixture record("font_3d");
  LoadFrom(loaded, record.AllBytes());
  EXPECT_EQ(loaded.GetListBase(), 20000);
  EXPECT_EQ(loaded.GetNumFontChars(), 100);
  EXPECT_EQ(loaded.GetFontExtrusion(), 0.125);
  EXPECT_EQ(loaded.GetFontRendering(), 0.25);
  EXPECT_EQ(loaded.GetFontScaleFactor(), 0.625);
  EXPECT_STREQ(loaded.GetFaceName(), "Serif");
  // The first of the two scale factors is lost.
  ExpectRecord(Saved(loaded), record.Put("scale factor", {0.625}));
}

TEST_F(RenderRecords, FontsAreSavedAsTheyWereSetUp) {
  CFont3D made(target.gl.get(), &target.memory, 20000);
  made.SetFontExtrusion(0.125);
  made.SetFontRendering(0.25);
  ASSERT_NE(made.RegisterFont("Serif", 0.625, 650, 2, 3, 100), 0);
  RecordFixture expected("font_3d");
  expected.Put("spare", {0}).Put("spare factor", {1.0}).Put("scale factor", {0.625});
  ExpectRecord(Saved(made), expected);
}

TEST_F(RenderRecords, TextsAreLoaded) {
  CTextObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("text_obj_3d"));
  EXPECT_EQ(CTextObj3D::nSelfID, 1501);
  EXPECT_EQ(loaded.GetTransformID(), kTransformId);
  EXPECT_STREQ(loaded.GetString(), "Some text");
  EXPECT_EQ(Of(loaded.GetLocation()), From(0.5));
  EXPECT_EQ(Of(loaded.GetNormLocation()), From(1.5));
  EXPECT_EQ(loaded.GetXJustify(), 1);
  EXPECT_EQ(loaded.GetYJustify(), 2);
  EXPECT_EQ(Of(loaded.GetColor()), From(2.5));
  EXPECT_EQ(loaded.GetTextPlane(), 3);
  EXPECT_EQ(loaded.GetFlipX(), 4);
  EXPECT_EQ(loaded.GetFlipY(), 5);
  EXPECT_EQ(loaded.GetRotation(), 6);
  EXPECT_EQ(loaded.GetClipping(), 8);
  EXPECT_EQ(loaded.GetTextEnable(), 9);
  EXPECT_EQ(loaded.GetCharSize(), 3.5);
}

TEST_F(RenderRecords, TextsAreSavedAsTheyWereSetUp) {
  CTextObj3D made(target.gl.get(), target.gl->GetFont(), &transform, "Some text");
  SetUpText(made, 0);
  CTextObj3D::nSelfID = 1501;
  ExpectRecord(Saved(made), RecordFixture("text_obj_3d").Put("reserved", {0}));
}

TEST_F(RenderRecords, ShapesAreLoaded) {
  CAuxObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("aux_obj_3d"));
  EXPECT_EQ(CAuxObj3D::nSelfID, 101);
  EXPECT_EQ(loaded.GetTransformID(), kTransformId);
  EXPECT_EQ(loaded.GetAuxObjType(), 9);
  EXPECT_EQ(loaded.GetSolidType(), 2);
  EXPECT_EQ(loaded.GetColorMode(), 3);
  EXPECT_EQ(loaded.GetSizeParameter1(), 0.5);
  EXPECT_EQ(loaded.GetSizeParameter2(), 1.5);
  EXPECT_EQ(loaded.GetSizeParameter3(), 2.5);
  EXPECT_EQ(loaded.GetScaleFactor(), 3.5);
  EXPECT_EQ(Of(loaded.GetLocation()), From(4.5));
  EXPECT_EQ(Of(loaded.GetNormLocation()), From(5.5));
  EXPECT_EQ(Of(loaded.GetRotation()), From(6.5));
  EXPECT_EQ(Of(loaded.GetColor()), From(7.5));
  EXPECT_EQ(loaded.GetLineThickness(), 8.5);
}

TEST_F(RenderRecords, ShapesAreSavedAsTheyWereSetUp) {
  CAuxObj3D made(target.gl.get(), &transform, CAuxObj3D::kDodecahedron);
  made.SetSolidType(2);
  made.SetColorMode(3);
  made.SetSizeParameters(0.5, 1.5, 2.5);
  made.SetScaleFactor(3.5);
  made.SetLocation(PointFrom(4.5));
  made.SetNormLocation(PointFrom(5.5));
  made.SetRotation(PointFrom(6.5));
  made.SetColor(ColorFrom(7.5));
  made.SetLineThickness(8.5);
  made.SetOutlineMode(10);  // not in the record
  CAuxObj3D::nSelfID = 101;
  ExpectRecord(Saved(made), RecordFixture("aux_obj_3d"));
}

std::array<Four, 6> PlanePointsOf(const CDIBObj3D& picture) {
  std::array<point3Dtype, 6> points;
  picture.GetPlanePoints(points[0], points[1], points[2]);
  picture.GetNormPlanePoints(points[3], points[4], points[5]);
  std::array<Four, 6> numbers;
  for (std::size_t i = 0; i < points.size(); ++i) numbers[i] = Of(points[i]);
  return numbers;
}

TEST_F(RenderRecords, PicturesAreLoaded) {
  CDIBObj3D loaded;
  LoadAndSaveAgain(loaded, RecordFixture("dib_obj_3d"));
  EXPECT_EQ(CDIBObj3D::nSelfID, 1001);
  EXPECT_EQ(loaded.GetTransformID(), kTransformId);
  const std::array<Four, 6> points = PlanePointsOf(loaded);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i], From(0.5 + static_cast<double>(i))) << i;
  }
  EXPECT_EQ(loaded.GetRepeatFactorX(), 2);
  EXPECT_EQ(loaded.GetRepeatFactorY(), 3);
  EXPECT_EQ(loaded.GetNormMode(), 4);
  EXPECT_STREQ(loaded.GetDIBFilename(), "no/such/picture.bmp");
}

TEST_F(RenderRecords, PicturesAreSavedAsTheyWereSetUp) {
  BitmapFile onePixel;
  onePixel.pixels = {1, 2, 3, 0};
  const TemporaryFile bitmap(Encode(onePixel));
  CDIBObj3D made(target.gl.get(), &transform, bitmap.Path());
  made.SetDIBFilename("no/such/picture.bmp");
  made.SetPlanePoints(PointFrom(0.5), PointFrom(1.5), PointFrom(2.5));
  made.SetNormPlanePoints(PointFrom(3.5), PointFrom(4.5), PointFrom(5.5));
  made.SetRepeatFactors(2, 3);
  CDIBObj3D::nSelfID = 1001;
  ExpectRecord(Saved(made), RecordFixture("dib_obj_3d").Put("norm mode", {1}));
}

}  // namespace
