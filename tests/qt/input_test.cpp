// What a user does, sent to the X server by another program.

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QMenu>
#include <cmath>
#include <functional>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

constexpr int kWidth = 500;
constexpr int kHeight = 400;
// Of FillWithBars().
constexpr double kTilt = -14.0;
constexpr double kTurn = 8.0;
// A drag over the whole width turns by 180 degrees.
constexpr double kDegreesPerPixel = 180.0 / kWidth;

/// A chart in a window, and a user.
class Input : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
    FillWithBars(*widget.GetView());
    widget.resize(kWidth, kHeight);
    ShowOnScreen(widget);
    QObject::connect(&widget, &ChartWidget::viewChanged, [this] { ++changes; });
  }

  /// Lets xdotool act after the pointer was moved to a place in the widget.
  void DoAt(int x, int y, const QString& actions) {
    const QPoint at = widget.mapToGlobal(QPoint(x, y));
    RunProgram("xdotool",
               QString("mousemove %1 %2 %3").arg(at.x()).arg(at.y()).arg(actions).split(' '));
    Wait(50);
  }

  void ExpectRotation(double x, double z) {
    const point3Dtype rotation = RotationOf(widget);
    EXPECT_NEAR(rotation.x, x, 1e-9);
    EXPECT_NEAR(rotation.y, 0.0, 1e-9);
    EXPECT_NEAR(rotation.z, z, 1e-9);
  }
  void ExpectZoom(double factor, double x, double y) {
    const Zoom zoom = ZoomOf(widget);
    EXPECT_NEAR(zoom.factor, factor, 1e-9);
    EXPECT_NEAR(zoom.x, x, 1e-9);
    EXPECT_NEAR(zoom.y, y, 1e-9);
  }
  void ExpectUntouched() {
    ExpectRotation(kTilt, kTurn);
    ExpectZoom(1.0, 0.0, 0.0);
    EXPECT_EQ(changes, 0);
  }

  ChartWidget widget;
  int changes = 0;
};

TEST_F(Input, ADragTurnsTheChart) {
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 50 0 mouseup 1");
  ExpectRotation(kTilt, kTurn - 50 * kDegreesPerPixel);
  EXPECT_GT(changes, 0);
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 0 25 mouseup 1");
  const double tilt = kTilt - 25 * kDegreesPerPixel;
  const double turn = kTurn - 50 * kDegreesPerPixel;
  ExpectRotation(tilt, turn);
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(kWidth, kHeight, [&](CChartView3D& view) {
              FillWithBars(view);
              view.GetChart(0)->GetTransform(0)->SetRotate({tilt, 0.0, turn, 0.0});
            }));
  // The button is up.
  changes = 0;
  DoAt(100, 100, "mousemove_relative -- 30 30");
  EXPECT_EQ(changes, 0);
}

// In front is the larger y: a point there is where the pointer is, so it goes where the pointer
// goes.
TEST_F(Input, WhatIsInFrontFollowsThePointer) {
  const auto xOfFront = [this] {
    const point3Dtype rotation = RotationOf(widget);
    return -std::sin(rotation.z * 3.14159265358979 / 180.0);  // of the point (0, 1, 0)
  };
  const double before = xOfFront();
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 40 0 mouseup 1");
  EXPECT_GT(xOfFront(), before);
}

TEST_F(Input, TiltStopsAtTheVertical) {
  DoAt(250, 10, "mousedown 1 mousemove_relative -- 0 380 mouseup 1");
  EXPECT_NEAR(RotationOf(widget).x, -90.0, 1e-9);
  DoAt(250, 390, "mousedown 1 mousemove_relative -- 0 -385 mouseup 1");
  DoAt(250, 390, "mousedown 1 mousemove_relative -- 0 -385 mouseup 1");
  EXPECT_NEAR(RotationOf(widget).x, 90.0, 1e-9);
}

TEST_F(Input, TurnsStayWithinAHalfTurn) {
  for (int i = 0; i < 3; ++i) DoAt(20, 200, "mousedown 1 mousemove_relative -- 400 0 mouseup 1");
  // 8 - 3 * 144 = -424, a full turn more: -64.
  ExpectRotation(kTilt, -64.0);
}

// Halfway between the middle and the upper right corner: (0.5, 0.5) of the chart. It stays there,
// so that after a factor of f the middle shows (0.5, 0.5) * (1 - 1 / f).
TEST_F(Input, TheWheelMagnifiesAboutThePointer) {
  DoAt(375, 100, "click 4");
  ExpectZoom(1.2, 0.5 * (1 - 1 / 1.2), 0.5 * (1 - 1 / 1.2));
  DoAt(375, 100, "click 4");
  ExpectZoom(1.44, 0.5 * (1 - 1 / 1.44), 0.5 * (1 - 1 / 1.44));
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(kWidth, kHeight, [&](CChartView3D& view) {
              FillWithBars(view);
              const Zoom zoom = ZoomOf(widget);
              view.GetChart(0)->SetZoom(zoom.factor, zoom.x, zoom.y);
            }));
  DoAt(375, 100, "click 5 click 5");
  ExpectZoom(1.0, 0.0, 0.0);
  DoAt(375, 100, "click --repeat 30 --delay 1 5");
  EXPECT_NEAR(ZoomOf(widget).factor, 0.1, 1e-9);
  DoAt(250, 200, "click --repeat 60 --delay 1 4");
  EXPECT_NEAR(ZoomOf(widget).factor, 50.0, 1e-9);
}

// 50 pixels to the right are 0.2 of half the width, 40 down 0.2 of half the height; magnified
// twofold, half of that. What is in the middle comes from the other side.
TEST_F(Input, TheMiddleButtonMoves) {
  DoAt(200, 200, "mousedown 2 mousemove_relative -- 50 40 mouseup 2");
  ExpectZoom(1.0, -0.2, 0.2);
  ExpectRotation(kTilt, kTurn);
  widget.GetView()->GetChart(0)->SetZoom(2.0, 0.0, 0.0);
  DoAt(200, 200, "mousedown 2 mousemove_relative -- -50 -40 mouseup 2");
  ExpectZoom(2.0, 0.1, -0.1);
}

TEST_F(Input, ShiftAndADragMove) {
  DoAt(200, 200, "keydown shift mousedown 1 mousemove_relative -- 50 0 mouseup 1 keyup shift");
  ExpectZoom(1.0, -0.2, 0.0);
  ExpectRotation(kTilt, kTurn);
}

TEST_F(Input, MovesNoFartherThanTheChart) {
  for (int i = 0; i < 4; ++i) DoAt(20, 200, "mousedown 2 mousemove_relative -- 450 0 mouseup 2");
  ExpectZoom(1.0, -1.0, 0.0);
}

TEST_F(Input, ADoubleClickGoesBack) {
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 50 30 mouseup 1");
  DoAt(300, 100, "click 4");
  DoAt(300, 100, "mousedown 2 mousemove_relative -- 50 30 mouseup 2");
  EXPECT_NE(RotationOf(widget).z, kTurn);
  Wait(600);  // so that the next click is none of a double click with those before
  DoAt(250, 200, "click --repeat 2 --delay 20 1");
  ExpectRotation(kTilt, kTurn);
  ExpectZoom(1.0, 0.0, 0.0);
}

TEST_F(Input, KeysDoTheSame) {
  DoAt(250, 200, "key Left");
  ExpectRotation(kTilt, kTurn + 5.0);
  DoAt(250, 200, "key Right key Right");
  ExpectRotation(kTilt, kTurn - 5.0);
  DoAt(250, 200, "key Up key Up key Down");
  ExpectRotation(kTilt + 5.0, kTurn - 5.0);
  DoAt(250, 200, "key plus");
  ExpectZoom(1.2, 0.0, 0.0);
  DoAt(250, 200, "key minus key minus");
  ExpectZoom(1 / 1.2, 0.0, 0.0);
  DoAt(250, 200, "key Home");
  ExpectRotation(kTilt, kTurn);
  ExpectZoom(1.0, 0.0, 0.0);
  // A twentieth of the size, which is a tenth of half of it.
  DoAt(250, 200, "key shift+Right");
  ExpectZoom(1.0, -0.1, 0.0);
  DoAt(250, 200, "key shift+Up");
  ExpectZoom(1.0, -0.1, -0.1);
}

// The pointer is at the place of the drag's start, 30 pixels to the right of it, or back there.
TEST_F(Input, OtherButtonsLeaveADragAlone) {
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 30 0");
  EXPECT_EQ(widget.cursor().shape(), Qt::ClosedHandCursor);
  for (const char* other : {"3", "2"}) {
    DoAt(280, 200, QString("mousedown %1").arg(other));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    DoAt(250, 200, QString("mouseup %1").arg(other));
    EXPECT_EQ(widget.cursor().shape(), Qt::ClosedHandCursor);
    ExpectRotation(kTilt, kTurn);
    DoAt(280, 200, "mousemove_relative -- 1 0");
    ExpectRotation(kTilt, kTurn - 31 * kDegreesPerPixel);
  }
  ExpectZoom(1.0, 0.0, 0.0);
  DoAt(280, 200, "mouseup 1");
  EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
  ExpectRotation(kTilt, kTurn - 30 * kDegreesPerPixel);
  // The other way round: it is the middle button that moves, and the left one that is in between.
  DoAt(200, 200, "mousedown 2 mousedown 1 mousemove_relative -- 50 40 mouseup 1");
  EXPECT_EQ(widget.cursor().shape(), Qt::SizeAllCursor);
  DoAt(200, 200, "mouseup 2");
  ExpectZoom(1.0, 0.0, 0.0);
  ExpectRotation(kTilt, kTurn - 30 * kDegreesPerPixel);
}

TEST_F(Input, ADragGivesTheProgramsCursorBack) {
  widget.setCursor(Qt::CrossCursor);
  DoAt(250, 200, "mousedown 1");
  EXPECT_EQ(widget.cursor().shape(), Qt::ClosedHandCursor);
  DoAt(250, 200, "mouseup 1");
  EXPECT_EQ(widget.cursor().shape(), Qt::CrossCursor);
}

/// A mouse event in the middle, with the buttons that are down after it.
void Send(QWidget& widget, QEvent::Type type, int x, Qt::MouseButton button,
          Qt::MouseButtons buttons) {
  const QPointF at(x, 200.0);
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

// As with a window that opens meanwhile and takes the release.
TEST_F(Input, ADragEndsWhenItsReleaseWentElsewhere) {
  Send(widget, QEvent::MouseButtonPress, 200, Qt::LeftButton, Qt::LeftButton);
  Send(widget, QEvent::MouseMove, 300, Qt::NoButton, Qt::NoButton);
  ExpectUntouched();
  EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
  EXPECT_FALSE(widget.hasMouseTracking());

  Send(widget, QEvent::MouseButtonPress, 200, Qt::LeftButton, Qt::LeftButton);
  Send(widget, QEvent::MouseButtonPress, 200, Qt::RightButton, Qt::RightButton);
  EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
  Send(widget, QEvent::MouseMove, 300, Qt::NoButton, Qt::RightButton);
  ExpectUntouched();

  Send(widget, QEvent::MouseButtonPress, 200, Qt::LeftButton, Qt::LeftButton);
  Send(widget, QEvent::MouseButtonPress, 200, Qt::LeftButton, Qt::LeftButton);
  Send(widget, QEvent::MouseMove, 250, Qt::NoButton, Qt::LeftButton);
  ExpectRotation(kTilt, kTurn - 50 * kDegreesPerPixel);
  Send(widget, QEvent::MouseButtonRelease, 250, Qt::LeftButton, Qt::NoButton);
}

/// Acts on the menu of a widget once it is there; closes it when that takes too long.
class MenuWatcher {
 public:
  explicit MenuWatcher(std::function<void(QMenu&)> act) {
    m_timer.callOnTimeout([this, act] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu == nullptr || !texts.isEmpty()) return;
      for (const QAction* action : menu->actions()) texts << action->text();
      act(*menu);
    });
    m_timer.start(50);
    m_limit.setSingleShot(true);
    m_limit.callOnTimeout([] {
      if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
    });
    m_limit.start(10000);
  }

  QStringList texts;  ///< of its actions

 private:
  QTimer m_timer;
  QTimer m_limit;
};

TEST_F(Input, AMenuOffersTheRest) {
  QAction own("Own");
  widget.addAction(&own);
  widget.RotateView(30.0, 0.0);
  const MenuWatcher watcher([](QMenu&) { QProcess::startDetached("xdotool", {"key", "r"}); });
  DoAt(200, 200, "click 3");
  EXPECT_TRUE(WaitUntil([&] { return RotationOf(widget).z == kTurn; }));
  EXPECT_EQ(watcher.texts,
            (QStringList{"&Reset View", "Zoom &In", "Zoom &Out", "", "&Copy Picture", "", "Own"}));
}

TEST_F(Input, TheMenuHasOnlyWhatIsSwitchedOn) {
  struct Case {
    ChartWidget::Interactions interactions;
    QStringList texts;
  };
  for (const Case& one : {Case{ChartWidget::kContextMenu, {"&Copy Picture"}},
                          Case{ChartWidget::kContextMenu | ChartWidget::kZoom,
                               {"Zoom &In", "Zoom &Out", "", "&Copy Picture"}},
                          Case{ChartWidget::kContextMenu | ChartWidget::kReset,
                               {"&Reset View", "", "&Copy Picture"}}}) {
    widget.SetInteractions(one.interactions);
    const MenuWatcher watcher([](QMenu& menu) { menu.close(); });
    DoAt(200, 200, "click 3");
    EXPECT_EQ(watcher.texts, one.texts);
  }
}

TEST_F(Input, AMenuMayDeleteItsWidget) {
  auto other = std::make_unique<ChartWidget>(QSize(200, 150));
  widget.hide();
  other->resize(200, 150);
  ShowOnScreen(*other);
  QAction* const close = new QAction("Close", other.get());
  other->addAction(close);
  QObject::connect(close, &QAction::triggered, [&] { other.reset(); });
  const MenuWatcher watcher([close](QMenu&) { close->trigger(); });
  DoAt(100, 70, "click 3");
  EXPECT_TRUE(WaitUntil([&] { return other == nullptr; }));
}

TEST_F(Input, EachCanBeSwitchedOff) {
  widget.SetInteractions({});
  DoAt(250, 200, "mousedown 1 mousemove_relative -- 50 30 mouseup 1");
  DoAt(200, 200, "mousedown 2 mousemove_relative -- 50 30 mouseup 2");
  DoAt(300, 100, "click 4");
  DoAt(300, 100, "click --repeat 2 --delay 20 1");
  DoAt(300, 100, "key Left key plus key Home");
  DoAt(300, 100, "click 3");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  ExpectUntouched();

  struct Case {
    ChartWidget::Interaction interaction;
    const char* action;
  };
  for (const Case& one :
       {Case{ChartWidget::kRotation, "mousedown 1 mousemove_relative -- 9 5 mouseup 1"},
        Case{ChartWidget::kPanning, "mousedown 2 mousemove_relative -- 9 5 mouseup 2"},
        Case{ChartWidget::kZoom, "click 4"}, Case{ChartWidget::kKeyboard, "key Left"}}) {
    changes = 0;
    widget.SetInteractions(one.interaction);
    EXPECT_EQ(widget.GetInteractions(), one.interaction);
    DoAt(250, 200, one.action);
    EXPECT_GT(changes, 0) << one.action;
    changes = 0;
    widget.SetInteractions({});
    widget.EnableInteraction(one.interaction, true);
    widget.EnableInteraction(one.interaction, false);
    DoAt(250, 200, one.action);
    EXPECT_EQ(changes, 0) << one.action;
  }
}

/// A parent that sees what its child doesn't want.
class Parent : public QWidget {
 public:
  int wheels = 0;
  int presses = 0;

 protected:
  void wheelEvent(QWheelEvent*) override { ++wheels; }
  void mousePressEvent(QMouseEvent*) override { ++presses; }
};

TEST_F(Input, WhatIsSwitchedOffGoesToTheParent) {
  widget.hide();
  Parent parent;
  parent.resize(300, 200);
  ChartWidget child(&parent);
  child.setGeometry(0, 0, 300, 200);
  ShowOnScreen(parent);
  DoAt(100, 100, "click 4");
  EXPECT_EQ(parent.wheels, 0);
  child.SetInteractions({});
  DoAt(100, 100, "click 4");
  DoAt(100, 100, "click 1");
  EXPECT_EQ(parent.wheels, 1);
  EXPECT_EQ(parent.presses, 1);
}

}  // namespace
