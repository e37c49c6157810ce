/// @file
/// Windows on a real X server, and what other programs see of them.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QThread>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <cstddef>
#include <functional>
#include <vector>

#include "orvalix/orvalix.h"
#include "orvalix/qt/chart_widget.h"

namespace orvalix::test {

/// Handles events until a condition holds. @return false when it doesn't in that time
inline bool WaitUntil(const std::function<bool()>& condition, int milliseconds = 10000) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.elapsed() > milliseconds) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QThread::msleep(1);
  }
  return true;
}

/// Handles events for a while.
inline void Wait(int milliseconds) {
  WaitUntil([] { return false; }, milliseconds);
}

/// Runs another program while events are handled here. @return what it wrote
inline QByteArray RunProgram(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(WaitUntil([&] { return process.state() == QProcess::NotRunning; }, 30000))
      << program.toStdString();
  EXPECT_EQ(process.exitCode(), 0)
      << program.toStdString() << ": " << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

/// True when a program is installed.
inline bool IsInstalled(const QString& program) {
  return !QStandardPaths::findExecutable(program).isEmpty();
}

/// Shows a widget at (40, 30) and waits until the X server has its picture.
inline void ShowOnScreen(QWidget& widget) {
  widget.move(40, 30);
  widget.show();
  ASSERT_TRUE(WaitUntil(
      [&] { return widget.windowHandle() != nullptr && widget.windowHandle()->isExposed(); }));
  widget.activateWindow();
  WaitUntil([&] { return widget.isActiveWindow(); }, 2000);
  Wait(50);
}

/// What the X server shows of a widget, in pixels of the screen.
inline QImage Screenshot(const QWidget& widget) {
  QCoreApplication::processEvents();
  Wait(20);
  const QPoint corner = widget.mapToGlobal(QPoint(0, 0));
  return widget.screen()
      ->grabWindow(0, corner.x(), corner.y(), widget.width(), widget.height())
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

/// The picture of a view in a window without a display, drawn after `fill` has made its charts.
inline QImage OffscreenPicture(int width, int height,
                               const std::function<void(CChartView3D&)>& fill) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(Qt::black);
  CWnd window;
  window.CreateOffscreen(width, height);
  CChartView3D view(&window);
  fill(view);
  CDC dc;
  dc.CreateOnPixels(picture.bits(), width, height, static_cast<int>(picture.bytesPerLine()));
  view.DrawViewScreen(&dc);
  return picture;
}

/// Bars with axes: small, but with lines, areas and texts.
inline void FillWithBars(CChartView3D& view) {
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {5.0, 1.0, 10.0, 0.0}, &transform);
  transform->SetRotate({-14.0, 0.0, 8.0, 0.0});
  chart->AutoAxes(transform);
  chart->GetHeader()->SetTitle1("Sales by month");
  const double month[] = {1.0, 2.0, 3.0, 4.0};
  const double sales[] = {4.0, 7.5, 6.0, 9.0};
  chart->NewChartObj(transform)->BarChart25D(month, sales, 0.0, 0.5, 4, 0.8, 0.5,
                                             SetRGBD(0.2, 0.5, 0.9, 1.0),
                                             SetRGBD(0.1, 0.1, 0.1, 1.0), 1, 1, 0);
}

inline constexpr std::size_t kPoor = 200000;  ///< bytes that one allocation may ask for

/// Contour lines whose colours take more than that in every frame.
inline void FillWithContours(CChartView3D& view) {
  constexpr int kLines = 10000;
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
  CPolysurface surface;
  const double heights[] = {0.0, 0.2, 0.4, 0.6};
  surface.CreatePolysurfaceEvenGrid(2, 2, 0.0, 0.0, 1.0, 1.0, heights, 1);
  const std::vector<double> levels(kLines, 0.5);
  const std::vector<RGBDType> colors(kLines + 1, SetRGBD(1, 0, 0, 1));
  chart->NewChartObj(transform)->ContourPolysurface3D(&surface, levels.data(), colors.data(),
                                                      kLines, 0.0, 0);
  chart->GetChartObj(0)->SetLineWidth(0);
}

/// The rotation of the first transform of a view's first chart.
inline point3Dtype RotationOf(const ChartWidget& widget) {
  return widget.GetView()->GetChart(0)->GetTransform(0)->GetRotation();
}

struct Zoom {
  double factor = 0.0;
  double x = 0.0;
  double y = 0.0;
};

/// The zoom of a view's chart.
inline Zoom ZoomOf(const ChartWidget& widget, int chart = 0) {
  Zoom zoom;
  widget.GetView()->GetChart(chart)->GetZoom(zoom.factor, zoom.x, zoom.y);
  return zoom;
}

}  // namespace orvalix::test
