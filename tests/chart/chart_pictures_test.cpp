/// Shapes and pictures of a chart: made, drawn in order, saved, and bound again.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/bitmap_files.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

class ChartPictures : public ::testing::Test {
 protected:
  ChartPictures() : target(100, 100), chart(target.view->NewChart3D()), file(Encode(FourColors())) {
    target.view->EnableBorder(0);
    chart->EnableBorder(0);
  }

  /// What a chart draws.
  std::vector<FeedbackPrimitive> Drawn(CChart3D& drawn) const {
    target.view->GetOpenGLPntr()->MakeCurrent();
    return CaptureFeedback([&] { drawn.DrawChart(); });
  }

  ViewOn target;
  CChart3D* chart;
  TemporaryFile file;
};

TEST_F(ChartPictures, AreBoundToTheFirstTransformOrTheirOwn) {
  CTransform3D* first = chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  CTransform3D* last = chart->NewTransform({0, 0, 0, 0}, {2, 2, 2, 0});
  CDIBObj3D* ofFirst = chart->NewDIBObj(file.Path());
  CDIBObj3D* ofLast = chart->NewDIBObj(last, file.Path());
  CDIBObj3D* unbound = chart->NewDIBObj();
  EXPECT_EQ(ofFirst->GetTransformID(), first->GetTransformID());
  EXPECT_EQ(ofLast->GetTransformID(), last->GetTransformID());
  EXPECT_EQ(unbound->GetTransformID(), 0);
  EXPECT_STREQ(ofLast->GetDIBFilename(), file.Path());
  EXPECT_STREQ(unbound->GetDIBFilename(), "");
  EXPECT_EQ(chart->GetNumDIBObjs(), 3);
  EXPECT_EQ(chart->GetDIBObj(1), ofLast);
  EXPECT_EQ(chart->GetDIBObj(3), nullptr);
  EXPECT_EQ(chart->GetDIBObj(-1), nullptr);

  CAuxObj3D* shape = chart->NewAuxObj(CAuxObj3D::kCube);
  CAuxObj3D* shapeOfLast = chart->NewAuxObj(last, CAuxObj3D::kCone);
  CAuxObj3D* unboundShape = chart->NewAuxObj();
  EXPECT_EQ(shape->GetTransformID(), first->GetTransformID());
  EXPECT_EQ(shape->GetAuxObjType(), 2);
  EXPECT_EQ(shapeOfLast->GetTransformID(), last->GetTransformID());
  EXPECT_EQ(shapeOfLast->GetAuxObjType(), 10);
  EXPECT_EQ(unboundShape->GetTransformID(), 0);
  EXPECT_EQ(unboundShape->GetAuxObjType(), 0);
  EXPECT_EQ(chart->GetNumAuxObjs(), 3);
  EXPECT_EQ(chart->GetAuxObj(1), shapeOfLast);
  EXPECT_EQ(chart->GetAuxObj(3), nullptr);
  EXPECT_EQ(chart->GetAuxObj(-1), nullptr);
  target.view->DrawViewScreen();
}

TEST_F(ChartPictures, NeedATransform) {
  const CaughtError picture{15, 4, "NewDIBObj"};
  const CaughtError shape{15, 4, "NewAUXObj"};
  EXPECT_EQ(Catch([&] { chart->NewDIBObj(file.Path()); }), picture);
  EXPECT_EQ(Catch([&] { chart->NewDIBObj(nullptr, file.Path()); }), picture);
  EXPECT_EQ(Catch([&] { chart->NewAuxObj(1); }), shape);
  EXPECT_EQ(Catch([&] { chart->NewAuxObj(nullptr, 1); }), shape);
  chart->NewDIBObj();  // these need none
  chart->NewAuxObj();
  EXPECT_EQ(chart->GetNumDIBObjs(), 1);
  EXPECT_EQ(chart->GetNumAuxObjs(), 1);
}

TEST_F(ChartPictures, AMissingFileMakesNoPicture) {
  chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  EXPECT_EQ(Catch([&] { chart->NewDIBObj("/no/such.bmp"); }),
            (CaughtError{5, 8, "LoadBitmapFile"}));
  EXPECT_EQ(chart->GetNumDIBObjs(), 0);
}

TEST_F(ChartPictures, NeedAContext) {
  CChart3D unbound;
  CTransform3D* transform = unbound.NewTransform();
  EXPECT_EQ(Catch([&] { unbound.NewDIBObj(transform, ""); }), (CaughtError{16, 10, "InitDIBObj"}));
  EXPECT_EQ(Catch([&] { unbound.NewAuxObj(transform, 1); }), (CaughtError{16, 0, "InitAuxObj"}));
}

TEST_F(ChartPictures, AreDrawnBetweenSeriesAndTexts) {
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {10, 10, 10, 0});
  chart->NewChartTextObj(transform, "H")->SetColor(SetRGBD(0, 0, 1, 1));
  CDIBObj3D* picture = chart->NewDIBObj(transform, file.Path());
  picture->SetRepeatFactors(5, 5);
  CAuxObj3D* shape = chart->NewAuxObj(transform, CAuxObj3D::kCube);
  shape->SetColor(SetRGBD(1, 1, 0, 1));
  shape->SetColorMode(0);
  const double place = 5;
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(&place, &place, 0, 5, 1, 2, 2, SetRGBD(0, 1, 0, 1), SetRGBD(0, 1, 0, 1), 0, 0,
                    0);
  bars->SetColorMode(0);
  target.view->DrawViewScreen();  // gets the font ready
  std::string order;
  for (const FeedbackPrimitive& primitive : Drawn(*chart)) {
    const FeedbackVertex& vertex = primitive.vertices[primitive.vertices.size() / 2];
    char letter = '?';
    if (vertex.green > 0.5) letter = 'S';
    if (vertex.green > 0.5 && vertex.red > 0.5) letter = 'A';
    if (vertex.t2 > 4.5) letter = 'D';
    if (vertex.blue > 0.5) letter = 'T';
    if (order.empty() || order.back() != letter) order += letter;
  }
  EXPECT_EQ(order, "SADT");  // series, shapes, pictures, texts
}

TEST_F(ChartPictures, AloneInAChartTheyAreWhereTheyBelong) {
  // Nothing else has brought the scale up to date, or chosen the matrix.
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {2, 2, 2, 0});
  transform->SetChartRect({1, 1, 1, 0});
  CDIBObj3D* picture = chart->NewDIBObj(file.Path());
  picture->SetPlanePoints({0, 1, 0, 0}, {0, 1, 2, 0}, {2, 1, 2, 0});
  CAuxObj3D* shape = chart->NewAuxObj(CAuxObj3D::kCube);
  shape->SetLocation({1, 0, 1, 0});  // nearer to the viewer
  shape->SetSizeParameters(4, 4, 4);
  shape->SetColor(SetRGBD(0, 0, 0, 1));
  for (int frame = 0; frame < 2; ++frame) {
    target.view->DrawViewScreen();
    EXPECT_EQ(target.WindowPixel(10, 10), kRed);
    EXPECT_EQ(target.WindowPixel(90, 10), kGreen);
    EXPECT_EQ(target.WindowPixel(10, 90), kBlue);
    EXPECT_EQ(target.WindowPixel(90, 90), kWhite);
  }
  EXPECT_EQ(glGetError(), 0U);
}

TEST_F(ChartPictures, ColoringByValueSurvivesThem) {
  const auto drawnPixels = [&] {
    target.view->DrawViewScreen();
    std::vector<Pixel> pixels;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 100; ++x) pixels.push_back(target.BitmapPixel(x, y));
    }
    return pixels;
  };
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {10, 10, 10, 0});
  const std::vector<RGBDType> colors{SetRGBD(1, 0, 0, 1), SetRGBD(0, 1, 0, 1)};
  chart->SetTextureColorArray(colors.data(), 0, 10, 2);
  chart->SetTextureMode(2);
  const double place = 5;
  const double height = 9;
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(&place, &height, 0, 5, 1, 2, 2, SetRGBD(1, 1, 1, 1), SetRGBD(0, 0, 0, 1), 0, 0,
                    0);
  bars->SetColorMode(2);
  const auto without = drawnPixels();
  // Behind the series, and drawn after it in the frame before.
  CDIBObj3D* picture = chart->NewDIBObj(file.Path());
  picture->SetNormPlanePoints({-9, 0.9, -9, 0}, {-9, 0.9, -8, 0}, {-8, 0.9, -8, 0});
  drawnPixels();
  EXPECT_EQ(drawnPixels(), without);
}

TEST_F(ChartPictures, CanBeFilesThatViewsHaveSaved) {
  // Each has 256 colours in front of its pixels, whatever its depth.
  const TemporaryFile saved;
  for (const int bits : {8, 24, 32}) {
    ViewOn source(64, 64, bits);
    source.view->EnableBorder(0);
    source.view->SetViewBkColor(SetRGBD(0, 1, 0, 1));
    source.view->SaveToFile(saved.Path());
    CDib dib(saved.Path());
    EXPECT_EQ(dib.GetDibNumColors(), 256) << bits;
    const unsigned char* texture = dib.TranslateDIBToOGL(dib.CreateDibPalette());
    ASSERT_NE(texture, nullptr) << bits;
    EXPECT_EQ(Bytes(texture, texture + 4), (Bytes{0, 255, 0, 255})) << bits;
  }
}

class ChartPictureFiles : public ChartPictures {
 protected:
  ChartPictureFiles() {
    CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
    shape = chart->NewAuxObj(transform, CAuxObj3D::kCube);
    shape->SetLocation({0.5, 0.5, 0.5, 0});
    picture = chart->NewDIBObj(transform, file.Path());
    picture->SetRepeatFactors(2, 3);
  }

  /// The record with another file in the picture's record, at its end.
  Bytes RecordWithFile(const std::string& name) {
    Bytes record = Saved(*chart);
    const auto before = static_cast<std::size_t>(CString(file.Path()).GetLength()) + 4;
    record.resize(record.size() - before);
    Append(record, static_cast<std::uint32_t>(name.size()), 4);
    record.insert(record.end(), name.begin(), name.end());
    return record;
  }

  /// Only pictures have texture coordinates here.
  static bool IsPicture(const FeedbackPrimitive& primitive) {
    return std::any_of(primitive.vertices.begin(), primitive.vertices.end(),
                       [](const FeedbackVertex& vertex) { return vertex.t2 == 3.0; });
  }

  static void ExpectShapeAlone(const std::vector<FeedbackPrimitive>& drawn) {
    EXPECT_FALSE(drawn.empty());
    EXPECT_TRUE(std::none_of(drawn.begin(), drawn.end(), IsPicture));
  }

  CAuxObj3D* shape;
  CDIBObj3D* picture;
};

TEST_F(ChartPictureFiles, ComeBackWithTheirBinding) {
  ASSERT_TRUE(IsPicture(Drawn(*chart).back()));
  const std::string before = ToTranscript(Drawn(*chart));
  const int counter = CDIBObj3D::nSelfID;
  const Bytes record = Saved(*chart);
  CChart3D* loaded = target.view->NewChart3D();
  loaded->EnableBorder(0);
  LoadFrom(*loaded, record);
  ASSERT_EQ(loaded->GetNumAuxObjs(), 1);
  ASSERT_EQ(loaded->GetNumDIBObjs(), 1);
  EXPECT_EQ(loaded->GetAuxObj(0)->GetAuxObjType(), 2);
  EXPECT_EQ(loaded->GetDIBObj(0)->GetRepeatFactorY(), 3);
  EXPECT_STREQ(loaded->GetDIBObj(0)->GetDIBFilename(), file.Path());
  EXPECT_EQ(ToTranscript(Drawn(*loaded)), before);
  EXPECT_EQ(CDIBObj3D::nSelfID, counter + 1);  // the stored one, and the binding of this one
}

TEST_F(ChartPictureFiles, AFileThatIsMissingLeavesThePictureOut) {
  for (const std::string name : {"/no/such.bmp", "/tmp", ""}) {
    CChart3D* loaded = target.view->NewChart3D();
    loaded->EnableBorder(0);
    EXPECT_EQ(Catch([&] { LoadFrom(*loaded, RecordWithFile(name)); }), kNoError) << name;
    ASSERT_EQ(loaded->GetNumDIBObjs(), 1);
    EXPECT_EQ(loaded->GetNumAuxObjs(), 1);
    EXPECT_STREQ(loaded->GetDIBObj(0)->GetDIBFilename(), name.c_str());
    ExpectShapeAlone(Drawn(*loaded));
  }
}

TEST_F(ChartPictureFiles, ABrokenFileLeavesThePictureOut) {
  SetMessageBoxHandler([](const char*) { return 0; });
  const TemporaryFile broken(Bytes{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 9});
  CChart3D* loaded = target.view->NewChart3D();
  loaded->EnableBorder(0);
  LoadFrom(*loaded, RecordWithFile(broken.Path()));
  SetMessageBoxHandler(nullptr);
  ASSERT_EQ(loaded->GetNumDIBObjs(), 1);
  EXPECT_STREQ(loaded->GetDIBObj(0)->GetDIBFilename(), broken.Path());
  ExpectShapeAlone(Drawn(*loaded));
}

TEST_F(ChartPictureFiles, AreBoundWithTheirView) {
  const TemporaryFile stored;
  target.view->Save(stored.Path());
  CWnd window;
  CChartView3D view(&window);
  view.Load(stored.Path());
  ASSERT_EQ(view.GetNumCharts(), 1);
  CChart3D* loaded = view.GetChart(0);
  EXPECT_EQ(loaded->GetNumAuxObjs(), 1);
  EXPECT_EQ(loaded->GetNumDIBObjs(), 1);
  ASSERT_TRUE(window.CreateOffscreen(100, 100));
  view.DrawViewScreen(window.GetDC());
  view.GetOpenGLPntr()->MakeCurrent();
  const auto drawn = CaptureFeedback([&] { loaded->DrawChart(); });
  EXPECT_FALSE(IsPicture(drawn.front()));
  EXPECT_TRUE(IsPicture(drawn.back()));
}

TEST_F(ChartPictureFiles, WithoutTheirTransformTheyAreNotDrawn) {
  Bytes record = Saved(*chart);
  const int id = chart->GetTransform(0)->GetTransformID();
  // The transform's record stands behind the chart's own fields, its header and a count.
  constexpr std::size_t kFirstTransform = 268 + 258 * 32 + 24 + 44 + 3 * 152 + 4;
  int stored = 0;
  std::memcpy(&stored, &record[kFirstTransform], sizeof(stored));
  ASSERT_EQ(stored, id);
  record[kFirstTransform + 3] = 0x70;
  CChart3D* loaded = target.view->NewChart3D();
  loaded->EnableBorder(0);
  LoadFrom(*loaded, record);
  EXPECT_EQ(loaded->GetNumAuxObjs(), 1);
  EXPECT_EQ(loaded->GetNumDIBObjs(), 1);
  EXPECT_TRUE(Drawn(*loaded).empty());
}

TEST_F(ChartPictureFiles, SurviveEveryTruncation) {
  const Bytes record = Saved(*chart);
  const std::size_t children = Saved(*shape).size() + Saved(*picture).size();
  for (std::size_t length = record.size() - children - 12; length < record.size(); ++length) {
    CChart3D loaded;
    const CaughtError error = Catch([&] {
      LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    if (error == kNoError) continue;
    EXPECT_EQ(error.type, 7) << length;
    EXPECT_EQ(error.place, "Load") << length;
  }
}

}  // namespace
