#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

const point3Dtype kZero{0, 0, 0, 0};
const point3Dtype kTen{10, 10, 10, 0};

// Where fields stand in a record.
constexpr std::size_t kCounter = 0;        // of every class
constexpr std::size_t kSeriesOwner = 4;    // id of a series' transform
constexpr std::size_t kAspectFactor = 4;   // of a chart
constexpr std::size_t kFontHeightSF = 20;  // of a chart

template <class T>
void Put(Bytes& bytes, std::size_t offset, T value) {
  ASSERT_LE(offset + sizeof(T), bytes.size());
  std::memcpy(bytes.data() + offset, &value, sizeof(T));
}

/// Where the record of an object stands in that of its owner.
std::size_t Find(const Bytes& record, const Bytes& part) {
  const auto at = std::search(record.begin(), record.end(), part.begin(), part.end());
  EXPECT_NE(at, record.end());
  return static_cast<std::size_t>(at - record.begin());
}

Bytes SavedView(const CChartView3D& view) {
  const TemporaryFile file;
  view.Save(file.Path());
  return file.Read();
}

/// Gives the chart a red bar that covers its whole scale.
CChartObj3D* NewRedBar(CChart3D& chart, CTransform3D* transform) {
  const std::array<double, 1> place{0};
  const std::array<double, 1> height{10};
  const RGBDType red = SetRGBD(1, 0, 0, 1);
  CChartObj3D* bar = chart.NewChartObj(transform);
  bar->BarChart25D(place.data(), height.data(), 0.0, 0.0, 1, 10.0, 10.0, red, red, 0, 0, 0);
  bar->SetColorMode(0);
  return bar;
}

TEST(ChartBinding, SeriesWhoseTransformIsMissingDrawNothing) {
  ViewOn source(40, 40);
  CTransform3D* transform = nullptr;
  CChart3D* chart = source.view->NewChart3D(kZero, kTen, &transform);
  const Bytes bar = Saved(*NewRedBar(*chart, transform));
  Bytes record = Saved(*chart);

  ViewOn target(40, 40);
  LoadFrom(*target.view->NewChart3D(), record);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(20, 20), kRed);

  Put(record, Find(record, bar) + kSeriesOwner, -77);
  CChart3D* loaded = target.view->NewChart3D();  // covers the other one
  LoadFrom(*loaded, record);
  ASSERT_EQ(loaded->GetNumChartObjs(), 1);
  EXPECT_EQ(loaded->GetNumTransforms(), 1);
  EXPECT_EQ(loaded->GetChartObj(0)->GetOwnerID(), -77);
  EXPECT_EQ(loaded->GetChartObj(0)->GetNumDataPnts(), 1);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(20, 20), kWhite);
}

TEST(ChartBinding, StoredFontFactorsReachTransformsAndHeader) {
  ViewOn target(40, 20);
  Bytes record = Saved(*target.view->NewChart3D(kZero, kTen));
  Put(record, kAspectFactor, 2.0);
  Put(record, kFontHeightSF, 3.0);
  CChart3D* loaded = target.view->NewChart3D();
  LoadFrom(*loaded, record);
  target.view->DrawViewScreen();
  ASSERT_EQ(loaded->GetNumTransforms(), 1);
  EXPECT_EQ(loaded->GetTransform(0)->GetFontAspect(), 2.0 * 20.0 / 40.0);
  EXPECT_EQ(loaded->GetTransform(0)->GetFontHeightSF(), 3.0);
  EXPECT_EQ(loaded->GetHeader()->GetFontHeightSF(), 3.0);
}

TEST(ChartBinding, ChartsMadeBeforeTheirViewCanDrawAreBoundWithIt) {
  CWnd window;
  CChartView3D view(&window);
  CChart3D* chart = view.NewChart3D();
  chart->SetChartBkColor(SetRGBD(0, 0, 1, 1));
  // A transform needs a context only to be drawn through.
  CTransform3D* transform = chart->NewTransform();
  transform->SetScale(kZero, kTen);
  EXPECT_EQ(Catch([&] { chart->NewTransform(kZero, kTen); }),
            (CaughtError{16, 20, "InitTransform"}));
  EXPECT_EQ(Catch([&] { chart->NewChartObj(transform); }), (CaughtError{16, 5, "InitChartObj3D"}));
  EXPECT_EQ(Catch([&] { view.NewChart3D(kZero, kTen); }), (CaughtError{16, 20, "InitTransform"}));
  EXPECT_EQ(view.GetNumCharts(), 1);
  EXPECT_EQ(chart->GetNumTransforms(), 1);
  EXPECT_EQ(chart->GetNumChartObjs(), 0);
  chart->DrawChart();
  view.DrawViewScreen();

  ASSERT_TRUE(window.CreateOffscreen(40, 40));
  view.DrawViewScreen(window.GetDC());
  EXPECT_EQ(window.GetDC()->GetPixel(20, 20), 0xFF0000U);  // blue
  NewRedBar(*chart, transform);
  view.DrawViewScreen();
  EXPECT_EQ(window.GetDC()->GetPixel(20, 20), 0x0000FFU);  // red
}

TEST(ChartBinding, ChartsLoadedBeforeTheirViewCanDrawAreBoundWithIt) {
  ViewOn source(40, 40);
  CTransform3D* transform = nullptr;
  CChart3D* chart = source.view->NewChart3D(kZero, kTen, &transform);
  NewRedBar(*chart, transform);
  const TemporaryFile file(SavedView(*source.view));

  CWnd window;
  CChartView3D view(&window);
  view.Load(file.Path());
  ASSERT_EQ(view.GetNumCharts(), 1);
  EXPECT_EQ(view.GetChart(0)->GetNumTransforms(), 1);
  EXPECT_EQ(view.GetChart(0)->GetNumChartObjs(), 1);
  view.GetChart(0)->DrawChart();  // no context: draws nothing
  view.DrawViewScreen();

  ASSERT_TRUE(window.CreateOffscreen(40, 40));
  view.DrawViewScreen(window.GetDC());
  EXPECT_EQ(window.GetDC()->GetPixel(20, 20), 0x0000FFU);  // red
  EXPECT_EQ(window.GetDC()->GetPixel(5, 5), 0xFFFFFFU);
}

TEST(ChartBinding, TheCounterBecomesThatOfTheChartReadLast) {
  ViewOn target(20, 20);
  CChart3D* first = target.view->NewChart3D();
  CChart3D* second = target.view->NewChart3D();
  first->SetFontSize(0.25);
  second->SetFontSize(0.75);
  Bytes bytes = SavedView(*target.view);
  const std::size_t firstRecord = Find(bytes, Saved(*first));
  const std::size_t secondRecord = Find(bytes, Saved(*second));
  ASSERT_LT(firstRecord, secondRecord);
  Put(bytes, firstRecord + kCounter, 20);
  Put(bytes, secondRecord + kCounter, 10);
  const int before = CChart3D::nSelfID;
  const TemporaryFile file(bytes);
  target.view->Load(file.Path());
  EXPECT_EQ(target.view->GetNumCharts(), 2);
  EXPECT_EQ(CChart3D::nSelfID, 10);
  CChart3D::nSelfID = before;
}

}  // namespace
