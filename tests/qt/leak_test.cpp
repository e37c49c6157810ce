// A thousand repaints and resizes later, a program has what it had before.

#include <malloc.h>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

/// Bytes in use on the heap, of every library in the process. The address sanitizer has a heap of
/// its own, of which this knows nothing: there, its leak check takes this test's place.
std::size_t BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

qsizetype OpenFiles() { return QDir("/proc/self/fd").entryList(QDir::System | QDir::Files).size(); }

class Frames : public ::testing::Test {
 protected:
  void SetUp() override {
    FillWithBars(*widget.GetView());
    widget.resize(160, 120);
    ShowOnScreen(widget);
    // What the first frames and the first resizes bring for good: fonts, compiled shaders, buffers.
    for (int i = 0; i < 100; ++i) ResizeAndPaint(i);
  }
  void Paint() {
    widget.RotateView(1.0, 0.0);
    widget.repaint();
    QCoreApplication::processEvents();
  }
  void ResizeAndPaint(int i) {
    widget.resize(160 + i % 40, 120 + i % 30);
    QCoreApplication::processEvents();
    Paint();
  }

  ChartWidget widget;
};

constexpr int kFrames = ORVALIX_TEST_FRAMES;
/// Caches may fill up a little; a frame that kept a hundred bytes would show.
constexpr std::size_t kLeftOver = 64 * 1024;

TEST_F(Frames, AThousandRepaintsKeepNothing) {
  const std::size_t before = BytesInUse();
  const qsizetype files = OpenFiles();
  for (int i = 0; i < kFrames; ++i) Paint();
  EXPECT_LE(BytesInUse(), before + kLeftOver);
  EXPECT_EQ(OpenFiles(), files);
}

TEST_F(Frames, AThousandResizesKeepNothing) {
  widget.resize(160, 120);
  Wait(50);
  const std::size_t before = BytesInUse();
  const qsizetype files = OpenFiles();
  for (int i = 0; i < kFrames; ++i) ResizeAndPaint(i);
  widget.resize(160, 120);
  Wait(50);
  EXPECT_LE(BytesInUse(), before + kLeftOver);
  EXPECT_EQ(OpenFiles(), files);
}

TEST(Widgets, ThatComeAndGoKeepNothing) {
  const auto use = [] {
    ChartWidget widget(QSize(200, 150));
    FillWithBars(*widget.GetView());
    widget.resize(160, 120);
    widget.show();
    WaitUntil([&] { return widget.windowHandle()->isExposed(); });
    widget.repaint();
  };
  for (int i = 0; i < 5; ++i) use();
  const std::size_t before = BytesInUse();
  const qsizetype files = OpenFiles();
  constexpr int kWidgets = kFrames / 50;
  for (int i = 0; i < kWidgets; ++i) use();
  EXPECT_LE(BytesInUse(), before + kWidgets * kLeftOver);
  EXPECT_EQ(OpenFiles(), files);
}

}  // namespace
