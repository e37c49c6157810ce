#include "orvalix/qt/chart_widget.h"

#include <QtGui/QPainter>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

const QColor kGreen(10, 200, 30);

TEST(ChartWidgetPainting, ScreenshotIsTheOffscreenPicture) {
  ChartWidget widget;
  FillWithBars(*widget.GetView());
  widget.resize(500, 380);
  ShowOnScreen(widget);
  const QImage shown = Screenshot(widget);
  EXPECT_EQ(shown.size(), QSize(500, 380));
  EXPECT_EQ(shown, OffscreenPicture(500, 380, FillWithBars));
}

TEST(ChartWidgetPainting, FillsTheWindowAfterEachResize) {
  ChartWidget widget;
  FillWithBars(*widget.GetView());
  widget.resize(300, 200);
  ShowOnScreen(widget);
  for (const QSize size : {QSize(640, 500), QSize(200, 350), QSize(1100, 900)}) {
    widget.resize(size);
    ASSERT_TRUE(WaitUntil([&] { return Screenshot(widget).size() == size; }));
    Wait(100);
    EXPECT_EQ(Screenshot(widget), OffscreenPicture(size.width(), size.height(), FillWithBars));
  }
}

// A bitmap of 200 x 150 in a widget of 300 x 250: the lower left 200 x 150 pixels of the picture
// that a large enough bitmap would hold; above and beside it background.
TEST(ChartWidgetPainting, ALargerWindowShowsTheLowerLeftOfThePicture) {
  ChartWidget widget(QSize(200, 150));
  FillWithBars(*widget.GetView());
  QPalette colors = widget.palette();
  colors.setColor(QPalette::Window, kGreen);
  widget.setPalette(colors);
  widget.resize(300, 250);
  ShowOnScreen(widget);
  const QImage shown = Screenshot(widget);
  QImage expected = OffscreenPicture(300, 250, FillWithBars);
  {
    QPainter painter(&expected);
    painter.fillRect(0, 0, 300, 100, kGreen);
    painter.fillRect(200, 0, 100, 250, kGreen);
  }
  EXPECT_EQ(shown, expected);
}

TEST(ChartWidgetPainting, TheBitmapIsAsLargeAsTheScreen) {
  const ChartWidget widget;
  EXPECT_EQ(widget.GetView()->GetDIBSection()->DIBWidth(), 1280);
  EXPECT_EQ(widget.GetView()->GetDIBSection()->DIBHeight(), 1024);
}

TEST(ChartWidgetPainting, ShowsWhatHasChangedAfterAnUpdate) {
  ChartWidget widget;
  FillWithBars(*widget.GetView());
  widget.resize(320, 240);
  ShowOnScreen(widget);
  const auto fill = [](CChartView3D& view) {
    FillWithBars(view);
    view.GetChart(0)->SetChartBkColor(SetRGBD(1.0, 1.0, 0.5, 1.0));
  };
  widget.GetView()->GetChart(0)->SetChartBkColor(SetRGBD(1.0, 1.0, 0.5, 1.0));
  widget.update();
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(320, 240, fill));
}

TEST(ChartWidgetPainting, AnotherThreadMayUseTheViewMeanwhile) {
  ChartWidget widget(QSize(320, 240));
  FillWithBars(*widget.GetView());
  widget.resize(320, 240);
  ShowOnScreen(widget);
  widget.EnablePainting(false);
  CChartView3D& view = *widget.GetView();
  view.GetOpenGLPntr()->MakeNonCurrent();
  const std::unique_ptr<QThread> thread(QThread::create([&view] {
    CWnd canvas;
    canvas.CreateOffscreen(320, 240);
    for (int i = 0; i < 50; ++i) {
      view.GetChart(0)->SetChartBkColor(SetRGBD(1.0, 1.0, i / 50.0, 1.0));
      view.DrawViewScreen(canvas.GetDC(), 0, 0, 320, 240);
    }
    view.GetChart(0)->SetChartBkColor(SetRGBD(0.0, 1.0, 1.0, 1.0));
    view.GetOpenGLPntr()->MakeNonCurrent();
  }));
  thread->start();
  while (!thread->isFinished()) {
    widget.update();
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(320, 240, FillWithBars));
  widget.EnablePainting(true);
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(320, 240, [](CChartView3D& other) {
              FillWithBars(other);
              other.GetChart(0)->SetChartBkColor(SetRGBD(0.0, 1.0, 1.0, 1.0));
            }));
}

/// Shows bars, 300 x 200 pixels large, in a widget whose background is green.
void ShowBarsOnGreen(ChartWidget& widget) {
  QPalette colors = widget.palette();
  colors.setColor(QPalette::Window, kGreen);
  widget.setPalette(colors);
  FillWithBars(*widget.GetView());
  widget.resize(300, 200);
  ShowOnScreen(widget);
}

// Qt begins a picture of the window anew at each size.
TEST(ChartWidgetPainting, WithoutPaintingItKeepsItsPictureAtEachSize) {
  ChartWidget widget(QSize(640, 480));
  ShowBarsOnGreen(widget);
  const QImage before = OffscreenPicture(300, 200, FillWithBars);
  ASSERT_EQ(Screenshot(widget), before);
  widget.EnablePainting(false);
  for (const QSize size : {QSize(400, 350), QSize(250, 180), QSize(500, 150)}) {
    widget.resize(size);
    ASSERT_TRUE(WaitUntil([&] { return Screenshot(widget).size() == size; }));
    Wait(50);
    QImage expected(size, QImage::Format_RGB32);
    expected.fill(kGreen);
    QPainter(&expected).drawImage(0, 0, before);
    EXPECT_EQ(Screenshot(widget), expected);
  }
  widget.EnablePainting(true);
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(500, 150, FillWithBars));
}

TEST(ChartWidgetPainting, WithoutPaintingItShowsNoPictureForOthers) {
  ChartWidget widget(QSize(320, 240));
  ShowBarsOnGreen(widget);
  widget.CopyToClipboard();
  widget.EnablePainting(false);
  widget.update();
  QImage expected(300, 200, QImage::Format_RGB32);
  expected.fill(kGreen);
  EXPECT_EQ(Screenshot(widget), expected);
}

TEST(ChartWidgetPainting, SeveralViewsLiveBesideEachOther) {
  QWidget window;
  window.resize(600, 250);
  ChartWidget left(&window);
  ChartWidget right(&window);
  left.setGeometry(0, 0, 300, 250);
  right.setGeometry(300, 0, 300, 250);
  FillWithBars(*left.GetView());
  right.GetView()->SetViewBkColor(SetRGBD(0.0, 0.0, 1.0, 1.0));
  ShowOnScreen(window);
  EXPECT_EQ(Screenshot(left), OffscreenPicture(300, 250, FillWithBars));
  EXPECT_EQ(Screenshot(right).pixelColor(100, 100), QColor(0, 0, 255));
}

TEST(ChartWidgetPainting, TellsAssistiveProgramsWhatItIs) {
  const ChartWidget widget;
  EXPECT_EQ(widget.accessibleName(), "3D chart");
  EXPECT_FALSE(widget.accessibleDescription().isEmpty());
  EXPECT_EQ(widget.focusPolicy(), Qt::StrongFocus);
}

}  // namespace
