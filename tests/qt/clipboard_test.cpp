#include <QtGui/QClipboard>
#include <thread>

#include "orvalix/qt/qt_host.h"
#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

QImage PictureForOthers() {
  const QByteArray png = RunProgram("xclip", {"-selection", "clipboard", "-t", "image/png", "-o"});
  return QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32);
}

TEST(QtClipboard, AnotherProgramReceivesThePicture) {
  if (!IsInstalled("xclip")) GTEST_SKIP() << "there is no xclip";
  ChartWidget widget(QSize(320, 200));
  FillWithBars(*widget.GetView());
  widget.resize(100, 90);
  ShowOnScreen(widget);
  EXPECT_TRUE(widget.CopyToClipboard());
  EXPECT_EQ(PictureForOthers(), OffscreenPicture(320, 200, FillWithBars));
  // The window is none the worse for it.
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(100, 90, FillWithBars));
}

TEST(QtClipboard, KeysCopy) {
  if (!IsInstalled("xclip") || !IsInstalled("xdotool")) {
    GTEST_SKIP() << "there is no xclip or no xdotool";
  }
  ChartWidget widget(QSize(120, 80));
  widget.GetView()->SetViewBkColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
  widget.resize(100, 90);
  ShowOnScreen(widget);
  RunProgram("xdotool", {"mousemove", "60", "60", "key", "ctrl+c"});
  Wait(100);
  EXPECT_EQ(PictureForOthers().size(), QSize(120, 80));
  EXPECT_EQ(PictureForOthers().pixelColor(60, 40), QColor(255, 0, 0));
}

/// A widget whose messages are taken down.
class UnluckyCopy : public ::testing::Test {
 protected:
  UnluckyCopy() : widget(QSize(16, 16)) {
    QObject::connect(&widget, &ChartWidget::copyingFailed,
                     [this](const QString& text) { failures << text; });
    s_told = 0;
    m_before = SetMessageBoxHandler([](const char*) {
      ++s_told;
      return IDOK;
    });
    QGuiApplication::clipboard()->setText("before");
  }
  ~UnluckyCopy() override {
    SetMessageBoxHandler(m_before);
    CErr3D::SetErrorReportMode(1);
  }

  void ExpectFailure(int told) {
    EXPECT_FALSE(widget.CopyToClipboard());
    EXPECT_EQ(failures, QStringList{"The clipboard doesn't take the picture"});
    EXPECT_EQ(s_told, told);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    failures.clear();
    s_told = 0;
  }

  ChartWidget widget;
  QStringList failures;

 private:
  static inline int s_told = 0;
  MessageBoxHandler m_before = nullptr;
};

TEST_F(UnluckyCopy, IsToldWhenTheClipboardIsInUse) {
  OpenClipboard(nullptr);
  ExpectFailure(1);
  CErr3D::SetErrorReportMode(0);
  ExpectFailure(0);
  CloseClipboard();
  EXPECT_TRUE(widget.CopyToClipboard());
  EXPECT_EQ(failures, QStringList{});
}

TEST_F(UnluckyCopy, IsToldWhenThePictureIsRefused) {
  const ClipboardHandler before =
      SetClipboardHandler([](const void*, int, int, int) { return FALSE; });
  ExpectFailure(1);
  SetClipboardHandler(nullptr);
  ExpectFailure(1);
  SetClipboardHandler(before);
  EXPECT_TRUE(widget.CopyToClipboard());
  EXPECT_EQ(failures, QStringList{});
}

TEST(QtClipboard, OutlivesTheView) {
  {
    ChartWidget widget(QSize(32, 20));
    FillWithBars(*widget.GetView());
    EXPECT_TRUE(widget.CopyToClipboard());
  }
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
            OffscreenPicture(32, 20, FillWithBars));
}

TEST(QtClipboard, AViewWithoutAWindowCopiesTooOnceQtIsConnected) {
  ConnectQtHost();
  CWnd window;
  window.CreateOffscreen(40, 30);
  CChartView3D view(&window);
  view.SetViewBkColor(SetRGBD(0.0, 1.0, 0.0, 1.0));
  view.CopyToClipboard();
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(40, 30));
  EXPECT_EQ(QGuiApplication::clipboard()->image().pixelColor(20, 15), QColor(0, 255, 0));
}

TEST(QtClipboard, OtherThreadsKeepTheirPicture) {
  ConnectQtHost();
  QGuiApplication::clipboard()->setText("before");
  std::thread([] {
    CBitmap bitmap;
    bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
    OpenClipboard(nullptr);
    SetClipboardData(CF_BITMAP, bitmap.Detach());
    CloseClipboard();
    OpenClipboard(nullptr);
    EXPECT_NE(GetClipboardData(CF_BITMAP), nullptr);
    EmptyClipboard();
    CloseClipboard();
  }).join();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
}

}  // namespace
