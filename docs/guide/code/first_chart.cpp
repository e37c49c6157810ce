// Draws four bars into a PNG file, without a window on any screen.

#include <orvalix/orvalix.h>

#include <array>

int main() {
  const std::array<double, 4> months{1.0, 2.0, 3.0, 4.0};
  const std::array<double, 4> sales{4.0, 7.5, 6.0, 9.0};
  constexpr RGBDType kBlue{0.0, 0.45, 0.7, 1.0};
  constexpr RGBDType kBlack{0.0, 0.0, 0.0, 1.0};

  // A window without a display, and a view that draws into it.
  CWnd window;
  window.CreateOffscreen(640, 480);
  CChartView3D view(&window, 640, 480);

  // A chart, and a transform: x runs from 0 to 5, y from 0 to 1, z from 0 to 10.
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {5.0, 1.0, 10.0, 0.0}, &transform);
  chart->GetHeader()->SetTitle1("Sales by month");
  chart->SetFontSize(0.06);

  // The box in which the data lie: wide and flat, and turned a little.
  transform->SetChartRect({0.7, 0.15, 0.6, 0.0});
  transform->SetRotate({-14.0, 0.0, 12.0, 0.0});

  // Axes with tics and labels at round numbers. A single row of bars needs no depth axis.
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  axes->SetAxisTitleString(0, "month");
  axes->SetAxisTitleString(2, "thousand");

  // Bars that stand on 0, in the middle of the depth, 0.8 wide and 0.5 deep.
  CChartObj3D* bars = chart->NewChartObj(transform);
  constexpr int kCentred = 1;
  constexpr int kAlongX = 0;
  bars->BarChart25D(months.data(), sales.data(), 0.0, 0.5, 4, 0.8, 0.5, kBlue, kBlack, kCentred,
                    kCentred, kAlongX);

  view.SaveToPng("first_chart.png");
}
