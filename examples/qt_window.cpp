// A window
// A chart in a window of Qt: turn it with the mouse, magnify it with the wheel, press the right
// button for a menu.

#include <orvalix/orvalix.h>
#include <orvalix/qt/chart_widget.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <array>

namespace {

void FillView(CChartView3D& view) {
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {5.0, 1.0, 10.0, 0.0}, &transform);
  transform->SetRotate({-14.0, 0.0, 8.0, 0.0});
  chart->AutoAxes(transform);
  chart->GetHeader()->SetTitle1("Sales by month");

  const std::array<double, 4> month{1.0, 2.0, 3.0, 4.0};
  const std::array<double, 4> sales{4.0, 7.5, 6.0, 9.0};
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(month.data(), sales.data(), 0.0, 0.5, 4, 0.8, 0.5, SetRGBD(0.2, 0.5, 0.9, 1.0),
                    SetRGBD(0.1, 0.1, 0.1, 1.0), 1, 1, 0);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  auto* const chart = new ChartWidget;  // the window deletes it
  FillView(*chart->GetView());
  window.setCentralWidget(chart);
  window.setWindowTitle("Sales");
  window.show();
  return QApplication::exec();
}
