// Shows a blue chart in a window without a display, and looks for its colour.

#include <orvalix/orvalix.h>
#include <orvalix/qt/chart_widget.h>
#include <orvalix/qt/qt_dc.h>
#include <orvalix/qt/qt_host.h>
#include <orvalix/qt/qt_wnd.h>

#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <cstdio>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  ConnectQtHost();
  ChartWidget widget(QSize(160, 120));
  CChart3D* chart = widget.GetView()->NewChart3D();
  chart->SetChartBkColor(SetRGBD(0.0, 0.0, 1.0, 1.0));
  widget.resize(160, 120);
  const QImage picture = widget.grab().toImage();
  if (picture.pixelColor(80, 60) != QColor(0, 0, 255)) {
    std::puts("the chart isn't there");
    return 1;
  }
  std::puts("a chart in a window of Qt");
  return 0;
}
