// Saves a chart, loads it again, changes it, and writes pictures of it.

#include <orvalix/orvalix.h>

#include <array>
#include <fstream>
#include <iostream>
#include <string>

namespace {

void FillView(CChartView3D& view) {
  const std::array<double, 4> months{1.0, 2.0, 3.0, 4.0};
  const std::array<double, 4> sales{4.0, 7.5, 6.0, 9.0};
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {5.0, 1.0, 10.0, 0.0}, &transform);
  chart->AutoAxes(transform);
  chart->NewChartObj(transform)->BarChart25D(months.data(), sales.data(), 0.0, 0.5, 4, 0.8, 0.5,
                                             {0.0, 0.45, 0.7, 1.0}, {0.0, 0.0, 0.0, 1.0}, 1, 1, 0);
}

}  // namespace

int main() {
  CWnd window;
  window.CreateOffscreen(640, 480);

  CChartView3D view(&window, 640, 480);
  FillView(view);
  view.Save("sales.chart");

  CChartView3D other(&window, 640, 480);
  other.Load("sales.chart");
  other.GetChart(0)->GetTransform(0)->SetRotate({-30.0, 0.0, 30.0, 0.0});
  other.GetChart(0)->GetChartObj(0)->SetFillColor({0.84, 0.37, 0.0, 1.0});
  other.SaveToPng("sales.png");
  other.SaveToFile("sales.bmp");

  // A file that is no chart does no harm: it is refused.
  std::ofstream("broken.chart") << std::string(1000, '?');
  CErr3D::SetErrorReportMode(0);
  try {
    other.Load("broken.chart");
  } catch (const CErr3D& error) {
    if (error.GetErrorType() == ERR3D_DISK_IO) std::cout << "refused\n";
  }
}
