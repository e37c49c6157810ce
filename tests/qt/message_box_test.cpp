#include <QtCore/QBuffer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtWidgets/QMessageBox>
#include <thread>

#include "orvalix/qt/qt_dc.h"
#include "orvalix/qt/qt_host.h"
#include "orvalix/qt/qt_wnd.h"
#include "qt/qt_fixture.h"
#include "support/allocation_failure.h"

namespace {

using namespace orvalix::test;

/// Presses the button of every box that comes up, and takes down what they said.
class BoxWatcher {
 public:
  BoxWatcher() {
    m_timer.callOnTimeout([this] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const box = qobject_cast<QMessageBox*>(widget);
        if (box == nullptr || !box->isVisible()) continue;
        EXPECT_TRUE(box->isModal());
        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
        texts << box->text();
        const QPointer<QMessageBox> open(box);
        if (whileOpen) whileOpen();
        if (!open) return;
        box->accept();
      }
    });
    m_timer.start(20);
  }

  QStringList texts;
  std::function<void()> whileOpen;

 private:
  QTimer m_timer;
};

class QtMessageBox : public ::testing::Test {
 protected:
  QtMessageBox() { ConnectQtHost(); }
  ~QtMessageBox() override { CErr3D::SetErrorReportMode(1); }

  BoxWatcher boxes;
};

TEST_F(QtMessageBox, AnErrorShowsExactlyOne) {
  try {
    throw CErr3D(ERR3D_DISK_IO, ERR3DCLASS_CHARTVIEW3D, "Save");
  } catch (const CErr3D& error) {
    const CErr3D copy(error);
    EXPECT_EQ(copy.GetErrorType(), ERR3D_DISK_IO);
  }
  Wait(100);
  EXPECT_EQ(boxes.texts, QStringList{"Disk I/O Error"});
}

TEST_F(QtMessageBox, AFailureOfTheLibraryShowsOne) {
  ChartWidget widget(QSize(16, 16));
  EXPECT_THROW(widget.GetView()->Load("/no/such/file"), CErr3D);
  EXPECT_EQ(boxes.texts, QStringList{"Error Opening File for Input"});
}

TEST_F(QtMessageBox, SilentModeShowsNone) {
  CErr3D::SetErrorReportMode(0);
  ChartWidget widget(QSize(16, 16));
  EXPECT_THROW(widget.GetView()->Load("/no/such/file"), CErr3D);
  Wait(100);
  EXPECT_EQ(boxes.texts, QStringList{});
}

TEST_F(QtMessageBox, AnswersWithOkAndReadsUtf8) {
  EXPECT_EQ(AfxMessageBox("Gr\xC3\xB6\xC3\x9F"
                          "e"),
            IDOK);
  EXPECT_EQ(boxes.texts, QStringList{QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                       "e")});
}

TEST_F(QtMessageBox, WhileOneIsOpenOthersAreWritten) {
  boxes.whileOpen = [] { AfxMessageBox("second"); };
  ::testing::internal::CaptureStderr();
  AfxMessageBox("first");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "second\n");
  EXPECT_EQ(boxes.texts, QStringList{"first"});
}

TEST_F(QtMessageBox, OtherThreadsWrite) {
  ::testing::internal::CaptureStderr();
  std::thread([] { EXPECT_EQ(AfxMessageBox("from elsewhere"), IDOK); }).join();
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "from elsewhere\n");
  EXPECT_EQ(boxes.texts, QStringList{});
}

/// A chart that can't be painted while memory is scarce.
class FailingPaint : public QtMessageBox {
 protected:
  FailingPaint() : widget(QSize(200, 150)) {
    QObject::connect(&widget, &ChartWidget::drawingFailed,
                     [this](const QString& text) { failures << text; });
    QPalette colors = widget.palette();
    colors.setColor(QPalette::Window, QColor(250, 200, 30));
    widget.setPalette(colors);
    FillWithContours(*widget.GetView());
    widget.resize(200, 150);
  }

  void PaintOften() {
    for (int i = 0; i < 5; ++i) {
      widget.update();
      Wait(20);
    }
  }
  bool ShowsChart() { return Screenshot(widget) == OffscreenPicture(200, 150, FillWithContours); }

  ChartWidget widget;
  QStringList failures;
};

TEST_F(FailingPaint, IsToldOnceAndShown) {
  {
    const LargeAllocationFailure poor(kPoor);
    ShowOnScreen(widget);
    PaintOften();
    EXPECT_EQ(boxes.texts, QStringList{"Object New Error"});
    EXPECT_EQ(failures, QStringList{"Object New Error"});
    EXPECT_EQ(Screenshot(widget).pixelColor(3, 3), QColor(250, 200, 30));
  }
  PaintOften();
  EXPECT_TRUE(ShowsChart());
  EXPECT_EQ(boxes.texts.size(), 1);
}

TEST_F(FailingPaint, IsToldAgainAfterItWasMended) {
  ShowOnScreen(widget);
  EXPECT_TRUE(ShowsChart());
  CChartObj3D* const series = widget.GetView()->GetChart(0)->GetChartObj(0);
  for (int time = 1; time <= 2; ++time) {
    {
      series->SetLineWidth(2);  // what is kept of the lines doesn't do any more
      const LargeAllocationFailure poor(kPoor);
      PaintOften();
    }
    EXPECT_EQ(boxes.texts.size(), time);
    series->SetLineWidth(0);
    PaintOften();
    EXPECT_TRUE(ShowsChart());
  }
}

TEST_F(FailingPaint, SilentModeHasTheSignalOnly) {
  CErr3D::SetErrorReportMode(0);
  const LargeAllocationFailure poor(kPoor);
  ShowOnScreen(widget);
  PaintOften();
  EXPECT_EQ(boxes.texts, QStringList{});
  EXPECT_EQ(failures, QStringList{"Object New Error"});
}

TEST_F(FailingPaint, CopyingAndPrintingTell) {
  QStringList copies;
  QObject::connect(&widget, &ChartWidget::copyingFailed,
                   [&](const QString& text) { copies << text; });
  const LargeAllocationFailure poor(kPoor);
  EXPECT_FALSE(widget.CopyToClipboard());
  EXPECT_EQ(boxes.texts.size(), 1);
  EXPECT_EQ(copies, QStringList{"Object New Error"});
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QPdfWriter pages(&file);
  EXPECT_FALSE(widget.Print(pages));
  EXPECT_EQ(boxes.texts, (QStringList{"Object New Error", "Object New Error"}));
}

TEST_F(FailingPaint, LeavesNoEmptyPage) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  {
    QPdfWriter pages(&file);
    const LargeAllocationFailure poor(kPoor);
    EXPECT_FALSE(widget.Print(pages));
  }
  EXPECT_EQ(file.size(), 0);
  QPdfWriter pages(&file);
  EXPECT_TRUE(widget.Print(pages));
  EXPECT_GT(file.size(), 0);
}

TEST_F(FailingPaint, ABoxThatComesMeanwhileDoesNotBringMore) {
  // What covers a widget and goes away makes it paint.
  boxes.whileOpen = [this] {
    widget.repaint();
    widget.repaint();
  };
  const LargeAllocationFailure poor(kPoor);
  ::testing::internal::CaptureStderr();
  ShowOnScreen(widget);
  PaintOften();
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(boxes.texts, QStringList{"Object New Error"});
}

/// A program's own widget, whose painting fails with its view's.
class OwnFailingWidget : public QWidget {
 public:
  OwnFailingWidget() : window(this), view(&window) { FillWithContours(view); }

  CQtWnd window;
  CChartView3D view;
  int failures = 0;
  int boxesWithin = 0;  ///< that were open when the painting was over

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    CQtDC dc(&painter);
    try {
      view.DrawViewScreen(&dc);
    } catch (const CErr3D&) {
      ++failures;
    }
    boxesWithin += QApplication::activeModalWidget() != nullptr ? 1 : 0;
  }
};

TEST_F(QtMessageBox, AnOwnWidgetTellsOnceAfterItsPainting) {
  OwnFailingWidget widget;
  widget.resize(200, 150);
  const auto paintOften = [&] {
    for (int i = 0; i < 5; ++i) {
      widget.update();
      Wait(30);
    }
  };
  {
    const LargeAllocationFailure poor(kPoor);
    ShowOnScreen(widget);
    paintOften();
  }
  EXPECT_GE(widget.failures, 5);
  EXPECT_EQ(widget.boxesWithin, 0);
  EXPECT_EQ(boxes.texts, QStringList{"Object New Error"});

  paintOften();
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(200, 150, FillWithContours));
  widget.view.GetChart(0)->GetChartObj(0)->SetLineWidth(2);
  const LargeAllocationFailure poor(kPoor);
  paintOften();
  EXPECT_EQ(boxes.texts, (QStringList{"Object New Error", "Object New Error"}));
}

/// Leaves its device context with the painter of its last paint event.
class ForgetfulWidget : public QWidget {
 public:
  QString notice;  ///< comes up in the next paint events

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    m_dc.SetPainter(&painter);
    if (!notice.isEmpty()) AfxMessageBox(notice.toUtf8().constData());
  }

 private:
  CQtDC m_dc;
};

TEST_F(QtMessageBox, OutsideOfPaintingItIsShownAtOnce) {
  auto first = std::make_unique<ForgetfulWidget>();
  ForgetfulWidget second;
  ShowOnScreen(*first);
  ShowOnScreen(second);
  AfxMessageBox("now");
  EXPECT_EQ(boxes.texts, QStringList{"now"});
  first.reset();
  AfxMessageBox("and now");
  EXPECT_EQ(boxes.texts, (QStringList{"now", "and now"}));
  boxes.texts.clear();
  second.notice = "later";
  second.repaint();
  EXPECT_EQ(boxes.texts, QStringList{});
  Wait(100);
  EXPECT_EQ(boxes.texts, QStringList{"later"});
}

TEST_F(QtMessageBox, ItsWindowMayBeDeletedMeanwhile) {
  auto window = std::make_unique<QWidget>();
  ShowOnScreen(*window);
  ASSERT_EQ(QApplication::activeWindow(), window.get());
  boxes.whileOpen = [&] { window.reset(); };
  EXPECT_EQ(AfxMessageBox("gone"), IDOK);
  EXPECT_EQ(AfxMessageBox("next"), IDOK);
  EXPECT_EQ(boxes.texts, (QStringList{"gone", "next"}));
}

}  // namespace
