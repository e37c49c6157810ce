#include "orvalix/qt/qt_dc.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <array>

#include "orvalix/qt/qt_wnd.h"
#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

/// 2 x 2 pixels: red, green, blue, white.
constexpr std::array<unsigned char, 16> kPixels{0,   0, 255, 255, 0,   255, 0,   255,
                                                255, 0, 0,   255, 255, 255, 255, 255};

QImage WhitePicture(int width, int height, double ratio = 1.0) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::black);
  return picture;
}

TEST(QtDC, AnImageTellsItsSize) {
  QImage picture = WhitePicture(30, 20);
  picture.setDotsPerMeterX(5906);  // 150 per inch
  picture.setDotsPerMeterY(11811);
  QPainter painter(&picture);
  CQtDC dc(&painter);
  EXPECT_NE(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 30);
  EXPECT_EQ(dc.GetDeviceCaps(VERTRES), 20);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSX), 150);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 300);
  EXPECT_EQ(dc.GetDeviceCaps(BITSPIXEL), 32);
  EXPECT_EQ(dc.GetDeviceCaps(PLANES), 1);
  EXPECT_EQ(dc.GetDeviceCaps(12345), 0);
}

TEST(QtDC, PicturesArriveAtTheirPlaceAndSize) {
  QImage picture = WhitePicture(8, 6);
  {
    QPainter painter(&picture);
    CQtDC dc(&painter);
    EXPECT_TRUE(dc.PutImage({1, 1, 3, 3}, kPixels.data(), 2, 2, 8));
    EXPECT_TRUE(dc.PutImage({4, 2, 8, 6}, kPixels.data(), 2, 2, 8));
  }
  EXPECT_EQ(picture.pixelColor(1, 1), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(2, 1), QColor(0, 255, 0));
  EXPECT_EQ(picture.pixelColor(1, 2), QColor(0, 0, 255));
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(255, 255, 255));
  EXPECT_EQ(picture.pixelColor(3, 3), QColor(0, 0, 0));
  EXPECT_EQ(picture.pixelColor(4, 2), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(5, 3), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(6, 4), QColor(255, 255, 255));
  EXPECT_EQ(picture.pixelColor(7, 5), QColor(255, 255, 255));
}

TEST(QtDC, CountsPixelsWhateverTheRatioAndThePainterSay) {
  for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
    QImage picture = WhitePicture(60, 60, ratio);
    {
      QPainter painter(&picture);
      painter.translate(30 / ratio, 0);
      painter.setOpacity(1.0);
      painter.setCompositionMode(QPainter::CompositionMode_Clear);
      CQtDC dc(&painter);
      EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 60);
      EXPECT_TRUE(dc.PutImage({1, 1, 3, 3}, kPixels.data(), 2, 2, 8));
      EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_Clear);
    }
    EXPECT_EQ(picture.pixelColor(31, 1), QColor(255, 0, 0)) << ratio;
    EXPECT_EQ(picture.pixelColor(32, 1), QColor(0, 255, 0)) << ratio;
    EXPECT_EQ(picture.pixelColor(31, 2), QColor(0, 0, 255)) << ratio;
    EXPECT_EQ(picture.pixelColor(33, 3), QColor(0, 0, 0)) << ratio;
    EXPECT_EQ(picture.pixelColor(30, 0), QColor(0, 0, 0)) << ratio;
  }
}

TEST(QtDC, ARecordingKeepsThePixels) {
  QPicture recording;
  {
    std::array<unsigned char, 16> pixels = kPixels;
    QPainter painter(&recording);
    CQtDC dc(&painter);
    EXPECT_TRUE(dc.PutImage({1, 1, 3, 3}, pixels.data(), 2, 2, 8));
    pixels.fill(0);
    painter.end();
  }
  QImage picture = WhitePicture(8, 6);
  QPainter painter(&picture);
  recording.play(&painter);
  painter.end();
  EXPECT_EQ(picture.pixelColor(1, 1), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(255, 255, 255));
}

TEST(QtDC, RefusesWhatItCannotDraw) {
  QImage picture = WhitePicture(4, 4);
  CQtDC dc;
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 0);
  EXPECT_FALSE(dc.PutImage({0, 0, 2, 2}, kPixels.data(), 2, 2, 8));
  QPainter idle;
  dc.SetPainter(&idle);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 0);
  EXPECT_FALSE(dc.PutImage({0, 0, 2, 2}, kPixels.data(), 2, 2, 8));
  QPainter painter(&picture);
  dc.SetPainter(&painter);
  EXPECT_FALSE(dc.PutImage({0, 0, 2, 2}, nullptr, 2, 2, 8));
  EXPECT_FALSE(dc.PutImage({0, 0, 2, 2}, kPixels.data(), 0, 2, 8));
  EXPECT_TRUE(dc.PutImage({0, 0, 2, 2}, kPixels.data(), 2, 2, 8));
  dc.SetPainter(nullptr);
  EXPECT_FALSE(dc.PutImage({0, 0, 2, 2}, kPixels.data(), 2, 2, 8));
}

TEST(QtDC, AViewDrawsIntoAnImage) {
  CWnd window;
  window.CreateOffscreen(200, 150);
  CChartView3D view(&window);
  FillWithBars(view);
  QImage picture = WhitePicture(200, 150);
  {
    QPainter painter(&picture);
    CQtDC dc(&painter);
    view.DrawViewScreen(&dc);
  }
  EXPECT_EQ(picture, OffscreenPicture(200, 150, FillWithBars));
}

TEST(QtWnd, IsTheWidget) {
  QWidget widget;
  widget.resize(123, 45);
  CQtWnd window(&widget);
  EXPECT_EQ(window.GetWidget(), &widget);
  EXPECT_NE(window.GetSafeHwnd(), nullptr);
  RECT client{9, 9, 9, 9};
  window.GetClientRect(&client);
  EXPECT_EQ(client.left, 0);
  EXPECT_EQ(client.top, 0);
  EXPECT_EQ(client.right, 123);
  EXPECT_EQ(client.bottom, 45);
  window.GetClientRect(nullptr);
  CDC* dc = window.GetDC();
  ASSERT_NE(dc, nullptr);
  EXPECT_EQ(dc->GetDeviceCaps(HORZRES), 1280);
  EXPECT_EQ(dc->GetDeviceCaps(VERTRES), 1024);
  EXPECT_EQ(dc->GetDeviceCaps(BITSPIXEL), 32);
  EXPECT_GT(dc->GetDeviceCaps(LOGPIXELSX), 0);
  EXPECT_EQ(window.ReleaseDC(dc), 1);
  EXPECT_EQ(window.ReleaseDC(nullptr), 0);
}

TEST(QtWnd, HasNoHandleWithoutAWidget) {
  CQtWnd none;
  EXPECT_EQ(none.GetSafeHwnd(), nullptr);
  EXPECT_EQ(none.GetDC(), nullptr);
  EXPECT_EQ(none.ReleaseDC(nullptr), 0);
  none.Invalidate();

  auto widget = std::make_unique<QWidget>();
  CQtWnd window(widget.get());
  CChartView3D view(&window, 40, 30);
  widget.reset();
  EXPECT_EQ(window.GetSafeHwnd(), nullptr);
  EXPECT_EQ(window.GetWidget(), nullptr);
  EXPECT_EQ(window.GetDC(), nullptr);
  RECT client{1, 1, 1, 1};
  window.GetClientRect(&client);
  EXPECT_EQ(client.right, 0);
  window.Invalidate();
  view.DrawViewScreen();
  view.CopyToClipboard();
}

/// A program's own widget, as CQtWnd's documentation describes it.
class OwnWidget : public QWidget {
 public:
  OwnWidget() : window(this), view(&window) {}

  CQtWnd window;
  CChartView3D view;
  std::vector<QRect> painted;

 protected:
  void paintEvent(QPaintEvent* event) override {
    painted.push_back(event->rect());
    QPainter painter(this);
    CQtDC dc(&painter);
    view.DrawViewScreen(&dc);
  }
};

TEST(QtWnd, AProgramsOwnWidgetShowsAView) {
  OwnWidget widget;
  FillWithBars(widget.view);
  widget.resize(240, 160);
  ShowOnScreen(widget);
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(240, 160, FillWithBars));

  // What is drawn outside of paint events comes with the next one.
  widget.painted.clear();
  widget.view.GetChart(0)->SetChartBkColor(SetRGBD(1, 1, 0, 1));
  widget.view.DrawViewScreen();
  ASSERT_TRUE(WaitUntil([&] { return !widget.painted.empty(); }));
  EXPECT_EQ(widget.painted, std::vector<QRect>{QRect(0, 0, 240, 160)});
  EXPECT_EQ(Screenshot(widget).pixelColor(3, 3), QColor(255, 255, 0));

  widget.painted.clear();
  const RECT part{10, 20, 30, 50};
  widget.window.InvalidateRect(&part);
  ASSERT_TRUE(WaitUntil([&] { return !widget.painted.empty(); }));
  EXPECT_EQ(widget.painted, std::vector<QRect>{QRect(10, 20, 20, 30)});
  Wait(100);
  EXPECT_EQ(widget.painted.size(), 1U);
}

}  // namespace
