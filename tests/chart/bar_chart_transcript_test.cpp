#include <gtest/gtest.h>

#include <array>

#include "chart/view_fixture.h"
#include "support/feedback.h"
#include "support/golden.h"

namespace {

using namespace orvalix::test;

/// Three bars of which the middle one hangs below the base value, turned, outlined, in colours of
/// their own.
std::string BarsAlong(int indAxis) {
  ViewOn target(320, 240);
  target.view->EnableBorder(0);
  CTransform3D* transform = nullptr;
  const point3Dtype max =
      indAxis == 0 ? point3Dtype{4.0, 2.0, 5.0, 0.0} : point3Dtype{2.0, 4.0, 5.0, 0.0};
  CChart3D* chart = target.view->NewChart3D({0.0, 0.0, -2.0, 0.0}, max, &transform);
  chart->EnableBorder(0);
  transform->SetRotate({-20.0, 0.0, 30.0, 0.0});
  std::array<double, 3> places{1.0, 2.0, 3.0};
  std::array<double, 3> heights{2.0, -1.0, 4.5};
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(places.data(), heights.data(), 0.5, 1.0, 3, 0.6, 0.8, SetRGBD(0, 0, 0, 1),
                    SetRGBD(0.25, 0.25, 0.25, 1), 1, 1, indAxis);
  const std::array<RGBDType, 3> colors{SetRGBD(1, 0, 0, 1), SetRGBD(0, 1, 0, 1),
                                       SetRGBD(0, 0, 1, 1)};
  bars->InitSegmentColorsStorage(colors.data());
  target.view->DrawViewScreen();
  return ToTranscript(CaptureFeedback([&] { target.view->DrawViewScreen(); }));
}

TEST(BarChartTranscript, AlongX) { ExpectGoldenTranscript(BarsAlong(0), "bars_along_x"); }

TEST(BarChartTranscript, AlongY) { ExpectGoldenTranscript(BarsAlong(1), "bars_along_y"); }

}  // namespace
