// Live data
// Measured values that arrive while they are shown: the window is redrawn 30 times a second.

#include <orvalix/orvalix.h>
#include <orvalix/qt/chart_widget.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kValues = 60;
constexpr int kFramesPerSecond = 30;

/// The last values of a signal, the newest at the end.
class Signal {
 public:
  Signal() : m_time(kValues), m_values(kValues) {
    for (int i = 0; i < kValues; ++i) m_time[static_cast<std::size_t>(i)] = i;
  }
  void Measure() {
    std::rotate(m_values.begin(), m_values.begin() + 1, m_values.end());
    m_values.back() = 5.0 + 3.0 * std::sin(0.15 * m_count) + std::sin(0.031 * m_count * m_count);
    ++m_count;
  }
  const double* Time() const { return m_time.data(); }
  const double* Values() const { return m_values.data(); }

 private:
  std::vector<double> m_time;
  std::vector<double> m_values;
  int m_count = 0;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  ChartWidget widget;
  widget.setWindowTitle("Live data");

  CTransform3D* transform = nullptr;
  CChart3D* chart =
      widget.GetView()->NewChart3D({0.0, 0.0, 0.0, 0.0}, {kValues, 1.0, 10.0, 0.0}, &transform);
  transform->SetRotate({-14.0, 0.0, 8.0, 0.0});
  chart->AutoAxes(transform);
  CChartObj3D* bars = chart->NewChartObj(transform);

  Signal signal;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &widget, [&] {
    signal.Measure();
    // The same object takes the new values in place of those before: nothing grows.
    bars->BarChart25D(signal.Time(), signal.Values(), 0.0, 0.5, kValues, 0.8, 0.5,
                      SetRGBD(0.1, 0.6, 0.4, 1.0), SetRGBD(0.1, 0.1, 0.1, 1.0), 0, 1, 0);
    widget.update();
  });
  timer.start(1000 / kFramesPerSecond);
  widget.show();
  return QApplication::exec();
}
