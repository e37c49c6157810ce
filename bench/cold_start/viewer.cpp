/// usage: orvalix_viewer_start VIEWER
///
/// Prints the milliseconds from the start of the viewer to its first chart on the screen, the
/// median of several starts. Needs an X server without a window manager.

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <algorithm>
#include <array>
#include <iostream>

namespace {

constexpr int kStarts = 11;
constexpr int kPatienceMilliseconds = 10000;
/// In the upper left of a chart, beside its title; before there is one, the window is grey there.
constexpr QPoint kPlace(200, 60);

bool ShowsChart() {
  const QImage pixel =
      QGuiApplication::primaryScreen()->grabWindow(0, kPlace.x(), kPlace.y(), 1, 1).toImage();
  return pixel.pixelColor(0, 0) == QColor(Qt::white);
}

/// Waits until a chart is there, or not. @return false when that takes too long
bool WaitForChart(bool isThere) {
  QElapsedTimer timer;
  timer.start();
  while (ShowsChart() != isThere) {
    if (timer.elapsed() > kPatienceMilliseconds) return false;
    QThread::msleep(1);
  }
  return true;
}

/// Milliseconds until the first chart; negative when none comes.
double StartOnce(const QString& viewer) {
  QElapsedTimer timer;
  timer.start();
  QProcess process;
  process.start(viewer, QStringList());
  const bool isShown = WaitForChart(true);
  const double milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  process.kill();
  process.waitForFinished();
  return isShown && WaitForChart(false) ? milliseconds : -1.0;
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::cerr << "usage: orvalix_viewer_start VIEWER\n";
    return 2;
  }
  std::array<double, kStarts> times{};
  for (double& time : times) {
    time = StartOnce(QString::fromLocal8Bit(argv[1]));
    if (time < 0.0) {
      std::cerr << "orvalix_viewer_start: no chart comes\n";
      return 1;
    }
  }
  std::sort(times.begin(), times.end());
  std::cout << qRound(times[kStarts / 2]) << "\n";
  return 0;
}
