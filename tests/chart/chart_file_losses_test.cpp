/// What a chart file doesn't hold: each is another one after loading.

#include <gtest/gtest.h>

#include <array>

#include "chart/full_view.h"
#include "orvalix/host/print_info.h"

namespace {

using namespace orvalix::test;

const point3Dtype kZero{0.0, 0.0, 0.0, 0.0};
const point3Dtype kTen{10.0, 10.0, 10.0, 0.0};
const RGBDType kRedFill = SetRGBD(1.0, 0.0, 0.0, 1.0);

/// A chart with a transform, seen from the front, to be saved, and a view to load it into.
class ChartFileLosses : public ::testing::Test {
 protected:
  ChartFileLosses() : source(40, 40), loaded(40, 40) {
    chart = source.view->NewChart3D();
    transform = chart->NewTransform(kZero, kTen);
  }

  /// Loads what is saved into the other view and draws both.
  CChart3D& Load() {
    LoadFile(*loaded.view, SavedFile(*source.view));
    source.view->DrawViewScreen();
    loaded.view->DrawViewScreen();
    return *loaded.view->GetChart(0);
  }

  static int Count(const ViewOn& target, const Pixel& color) {
    int count = 0;
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) count += target.BitmapPixel(x, y) == color ? 1 : 0;
    }
    return count;
  }

  ViewOn source;
  ViewOn loaded;
  CChart3D* chart;
  CTransform3D* transform;
};

TEST_F(ChartFileLosses, BarsInSpaceStandOnZero) {
  const std::array<point3Dtype, 1> points{{{0.0, 0.0, 10.0, 0.0}}};
  const std::array<double, 1> heights{6.0};
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart3D(points.data(), heights.data(), 1, 10.0, 10.0, kRedFill, kRedFill);
  bars->SetColorMode(0);
  CChart3D& again = Load();
  EXPECT_EQ(bars->GetBarHeight(0), 6.0);
  EXPECT_EQ(again.GetChartObj(0)->GetBarHeight(0), 0.0);
  EXPECT_EQ(again.GetChartObj(0)->Get3DPoint(0).z, 10.0);
  // From 6 to 10, and from 0 to 10: more than twice the area.
  EXPECT_GT(Count(source, kRed), 0);
  EXPECT_GT(Count(loaded, kRed), 2 * Count(source, kRed));
}

TEST_F(ChartFileLosses, ShapesHaveNoEdges) {
  CAuxObj3D* cube = chart->NewAuxObj(transform, CAuxObj3D::kCube);
  cube->SetLocation({5.0, 5.0, 5.0, 0.0});
  cube->SetSizeParameters(10.0, 10.0, 10.0);
  cube->SetColor(kRedFill);
  cube->SetColorMode(0);
  cube->SetOutlineMode(1);
  chart->EnableBorder(0);
  source.view->EnableBorder(0);
  EXPECT_EQ(Load().GetAuxObj(0)->GetOutlineMode(), 0);
  EXPECT_GT(Count(source, kBlack), 0);
  EXPECT_EQ(Count(loaded, kBlack), 0);
  EXPECT_GT(Count(loaded, kRed), 0);
}

TEST_F(ChartFileLosses, SurfacesAreFilledTrianglesAtAnyDistances) {
  const std::array<double, 4> values{1.0, 2.0, 3.0, 4.0};
  CPolysurface surface(2, 2, 0.0, 0.0, 10.0, 10.0, values.data(), 0);
  surface.SetWireFrame(1);
  EXPECT_EQ(surface.GetEvenGridFlag(), 1);
  EXPECT_EQ(surface.GetGridType(), 2);
  const TemporaryFile file;
  surface.Save(CString(file.Path()));
  const CPolysurface again{CString(file.Path())};
  EXPECT_EQ(again.GetEvenGridFlag(), 0);
  EXPECT_EQ(again.GetGridType(), 1);
  EXPECT_EQ(again.GetWireFrame(), 0);
  EXPECT_EQ(again.GetRGRows(), 2);  // the rest of the grid is there
}

TEST_F(ChartFileLosses, WireFramesOfSeriesAreFilled) {
  const std::array<double, 4> values{9.0, 0.0, 9.0, 0.0};
  CPolysurface surface(2, 2, 0.0, 0.0, 10.0, 10.0, values.data(), 0);
  surface.SetPolysurfaceColors(0, kRedFill, kRedFill);
  surface.SetWireFrame(1);
  CChartObj3D* series = chart->NewChartObj(transform);
  series->PolysurfaceChart3D(&surface);
  series->SetColorMode(0);
  transform->SetRotate({60.0, 0.0, 0.0, 0.0});
  Load();
  EXPECT_GT(Count(loaded, kRed), 2 * Count(source, kRed));
}

TEST_F(ChartFileLosses, PrintingStaysAsTheViewHasIt) {
  source.view->SetPrintScaleMode(3);
  source.view->SetNormPrintRect({0.25, 0.25, 0.5, 0.5});
  loaded.view->SetPrintScaleMode(2);
  loaded.view->SetNormPrintRect({0.1, 0.2, 0.3, 0.4});
  Load();
  EXPECT_EQ(loaded.view->GetPrintScaleMode(), 2);
  REALRECT rectangle{};
  loaded.view->GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.1);
  EXPECT_EQ(rectangle.height, 0.4);
}

TEST_F(ChartFileLosses, SizesStayAsTheViewHasThem) {
  ViewOn wide(60, 20);
  source.view->DrawViewScreen();
  LoadFile(*wide.view, SavedFile(*source.view));
  wide.view->DrawViewScreen();
  int width = 0;
  int height = 0;
  wide.view->GetViewSize(width, height);
  EXPECT_EQ(width, 60);
  EXPECT_EQ(height, 20);
}

TEST_F(ChartFileLosses, LabelsAreThoseOfEveryTicAndWithTheCommonSuffixes) {
  CAxes3D* axes = chart->NewAxes(transform);
  CAxisLabels3D* labels = axes->GetAxisLabels(0);
  labels->SetAxisLabelsNthTic(3);
  labels->SetEngString("abcdef");
  const CAxisLabels3D fresh;
  CAxisLabels3D* again = Load().GetAxes(0)->GetAxisLabels(0);
  EXPECT_EQ(again->GetAxisLabelsNthTic(), fresh.GetAxisLabelsNthTic());
  EXPECT_STREQ(again->GetEngString(), fresh.GetEngString());
}

TEST_F(ChartFileLosses, SpareFieldsAreKept) {
  source.view->SetViewBkMode(77);
  CTextObj3D* text = chart->NewChartTextObj(transform, "text");
  text->SetClipping(78);
  CChartObj3D* series = chart->NewChartObj(transform);
  series->SetContourLabelFlag(79);
  chart->GetHeader()->SetFontSize(0.375);
  CChart3D& again = Load();
  EXPECT_EQ(loaded.view->GetViewBkMode(), 77);
  EXPECT_EQ(again.GetChartTextObj(0)->GetClipping(), 78);
  EXPECT_EQ(again.GetChartObj(0)->GetContourLabelFlag(), 79);
  EXPECT_EQ(again.GetHeader()->GetFontSize(), 0.375);
}

}  // namespace
