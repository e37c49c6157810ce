// With --scale=F: as on a screen with that device pixel ratio.

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

double Ratio() { return qApp->devicePixelRatio(); }

/// What the X server shows, in its own pixels.
QImage ScreenshotInPixels(const QWidget& widget) {
  QImage shown = Screenshot(widget);
  shown.setDevicePixelRatio(1.0);
  return shown;
}

TEST(HighDensity, PaintsEachPixelOfTheScreen) {
  ASSERT_GT(Ratio(), 1.0);
  ChartWidget widget;
  FillWithBars(*widget.GetView());
  widget.resize(300, 200);
  ShowOnScreen(widget);
  const int width = qRound(300 * Ratio());
  const int height = qRound(200 * Ratio());
  const QImage shown = ScreenshotInPixels(widget);
  ASSERT_EQ(shown.size(), QSize(width, height));
  EXPECT_EQ(shown, OffscreenPicture(width, height, FillWithBars));
}

TEST(HighDensity, TheBitmapFillsTheScreen) {
  const ChartWidget widget;
  // Qt counts 1280 x 1024 pixels in units of 1.5 as 853 x 683, which are 1279.5 x 1024.5.
  EXPECT_EQ(widget.GetView()->GetDIBSection()->DIBWidth(), 1280);
  EXPECT_EQ(widget.GetView()->GetDIBSection()->DIBHeight(), Ratio() == 1.5 ? 1025 : 1024);
}

TEST(HighDensity, ALargerWidgetShowsTheLowerLeft) {
  ChartWidget widget(QSize(100, 90));
  widget.GetView()->EnableBorder(0);
  widget.GetView()->SetViewBkColor(SetRGBD(0.0, 0.0, 1.0, 1.0));
  QPalette colors = widget.palette();
  colors.setColor(QPalette::Window, QColor(10, 200, 30));
  widget.setPalette(colors);
  widget.resize(120, 100);
  ShowOnScreen(widget);
  const QImage shown = ScreenshotInPixels(widget);
  const int bottom = shown.height() - 1;
  EXPECT_EQ(shown.pixelColor(0, bottom), QColor(0, 0, 255));
  EXPECT_EQ(shown.pixelColor(99, bottom - 89), QColor(0, 0, 255));
  EXPECT_EQ(shown.pixelColor(100, bottom), QColor(10, 200, 30));
  EXPECT_EQ(shown.pixelColor(0, bottom - 90), QColor(10, 200, 30));
}

TEST(HighDensity, ThePointerStaysOnWhatItMagnifies) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  ChartWidget widget;
  FillWithBars(*widget.GetView());
  widget.resize(300, 200);
  ShowOnScreen(widget);
  // Three quarters across and a quarter down, in pixels of the screen.
  const QPoint corner = widget.mapToGlobal(QPoint(0, 0));
  const int x = qRound((corner.x() + 225) * Ratio());
  const int y = qRound((corner.y() + 50) * Ratio());
  RunProgram("xdotool", {"mousemove", QString::number(x), QString::number(y), "click", "4"});
  Wait(50);
  const Zoom zoom = ZoomOf(widget);
  EXPECT_NEAR(zoom.factor, 1.2, 1e-9);
  EXPECT_NEAR(zoom.x, 0.5 * (1 - 1 / 1.2), 1e-3);
  EXPECT_NEAR(zoom.y, 0.5 * (1 - 1 / 1.2), 1e-3);
}

}  // namespace
