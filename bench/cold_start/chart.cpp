/// From the start of a process to a picture file of a labelled bar chart of 640 x 480 pixels.

#include <array>

#include "orvalix/orvalix.h"

int main(int argc, char** argv) {
  const char* const file = argc > 1 ? argv[1] : "/dev/null";
  CWnd window;
  window.CreateOffscreen(640, 480);
  CChartView3D view(&window, 640, 480);
  const std::array<double, 6> places{1, 2, 3, 4, 5, 6};
  const std::array<double, 6> values{3.1, 4.5, 2.2, 5.8, 4.9, 6.3};
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0, 0, 0, 0}, {8, 2, 8, 0}, &transform);
  transform->SetRotate({-20.0, 0.0, 25.0, 0.0});
  chart->NewChartObj(transform)->BarChart25D(
      places.data(), values.data(), 0.0, 0.5, static_cast<int>(places.size()), 0.7, 0.8,
      SetRGBD(0.2, 0.5, 0.8, 1.0), SetRGBD(0.0, 0.0, 0.0, 1.0), 0, 0, 0);
  chart->AutoAxes(transform);
  chart->GetHeader()->SetTitle1("Six bars");
  view.SaveToFile(file);
}
