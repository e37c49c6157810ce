#include <gtest/gtest.h>

#include "orvalix/orvalix.h"
#include "orvalix/qt/chart_widget.h"
#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

/// Two charts side by side, one more over the right one, and one that isn't shown.
class SeveralCharts : public ::testing::Test {
 protected:
  SeveralCharts() {
    for (const GLViewRType& position :
         {GLViewRType{0.0, 0.0, 0.4, 1.0}, GLViewRType{0.5, 0.0, 0.5, 1.0},
          GLViewRType{0.5, 0.5, 0.5, 0.5}, GLViewRType{0.0, 0.0, 1.0, 1.0}}) {
      CChart3D* chart = widget.GetView()->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0});
      chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
      chart->SetChartPosition(position);
    }
    widget.GetView()->GetChart(3)->EnableChart(0);
    widget.resize(400, 300);
    ShowOnScreen(widget);
  }

  void DoAt(int x, int y, const QString& actions) {
    const QPoint at = widget.mapToGlobal(QPoint(x, y));
    RunProgram("xdotool",
               QString("mousemove %1 %2 %3").arg(at.x()).arg(at.y()).arg(actions).split(' '));
    Wait(50);
  }
  double TurnOf(int chart, int transform) const {
    return widget.GetView()->GetChart(chart)->GetTransform(transform)->GetRotation().z;
  }
  /// Which charts have been turned, with all their transforms.
  std::vector<int> Turned() const {
    std::vector<int> turned;
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(TurnOf(i, 0), TurnOf(i, 1));
      if (TurnOf(i, 0) != 0.0) turned.push_back(i);
    }
    return turned;
  }

  ChartWidget widget;
};

TEST_F(SeveralCharts, ThoseUnderThePointerTurn) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  const QString drag = "mousedown 1 mousemove_relative -- 10 0 mouseup 1";
  DoAt(80, 100, drag);
  EXPECT_EQ(Turned(), (std::vector<int>{0}));
  widget.ResetView();
  EXPECT_EQ(Turned(), std::vector<int>{});
  DoAt(300, 250, drag);
  EXPECT_EQ(Turned(), (std::vector<int>{1}));
  widget.ResetView();
  DoAt(300, 50, drag);
  EXPECT_EQ(Turned(), (std::vector<int>{1, 2}));
  widget.ResetView();
  DoAt(180, 100, drag);  // between them
  EXPECT_EQ(Turned(), (std::vector<int>{0, 1, 2}));
}

TEST_F(SeveralCharts, ADragKeepsTheChartThatItBeganOn) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  DoAt(80, 100, "mousedown 1 mousemove_relative -- 10 0 mousemove_relative -- 200 150 mouseup 1");
  EXPECT_EQ(Turned(), (std::vector<int>{0}));
}

TEST_F(SeveralCharts, ProgramsChangeAllThatAreShown) {
  widget.RotateView(3.0, 4.0);
  EXPECT_EQ(Turned(), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(TurnOf(1, 1), -3.0);
  widget.ZoomView(2.0);
  widget.PanView(8.0, 3.0);
  for (const int chart : {0, 1, 2}) {
    EXPECT_EQ(ZoomOf(widget, chart).factor, 2.0);
    EXPECT_NE(ZoomOf(widget, chart).x, 0.0);
  }
  // 8 pixels of 160, in halves and magnified twofold: 8 * 2 / 160 / 2.
  EXPECT_NEAR(ZoomOf(widget, 0).x, -0.05, 1e-12);
  EXPECT_NEAR(ZoomOf(widget, 0).y, 0.01, 1e-12);
  EXPECT_EQ(ZoomOf(widget, 3).factor, 1.0);
}

TEST_F(SeveralCharts, ResetGoesBackToWhatWasKept) {
  CTransform3D* transform = widget.GetView()->GetChart(0)->GetTransform(0);
  transform->SetRotate({1, 2, 3, 0});
  widget.RotateView(10.0, 0.0);
  widget.ResetView();
  EXPECT_EQ(transform->GetRotation().z, 3.0);
  transform->SetRotate({4, 5, 6, 0});
  widget.ResetView();
  EXPECT_EQ(transform->GetRotation().z, 3.0);
  transform->SetRotate({4, 5, 6, 0});
  widget.GetView()->GetChart(0)->SetZoom(3.0, 0.1, 0.2);
  widget.KeepView();
  widget.RotateView(10.0, 10.0);
  widget.ZoomView(2.0);
  widget.ResetView();
  EXPECT_EQ(transform->GetRotation().x, 4.0);
  EXPECT_EQ(transform->GetRotation().y, 5.0);
  EXPECT_EQ(transform->GetRotation().z, 6.0);
  EXPECT_EQ(ZoomOf(widget).factor, 3.0);
  EXPECT_EQ(ZoomOf(widget).x, 0.1);
}

TEST_F(SeveralCharts, ChartsThatAreAddedStartWhereTheyStand) {
  widget.RotateView(10.0, 0.0);
  CTransform3D* added = nullptr;
  widget.GetView()->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &added);
  added->SetRotate({0, 0, 77, 0});
  widget.RotateView(10.0, 0.0);
  EXPECT_EQ(added->GetRotation().z, 67.0);
  widget.ResetView();
  EXPECT_EQ(added->GetRotation().z, 77.0);
}

TEST(NoCharts, NothingHappens) {
  ChartWidget widget;
  widget.resize(200, 100);
  ShowOnScreen(widget);
  widget.RotateView(1.0, 1.0);
  widget.ZoomView(2.0);
  widget.PanView(1.0, 1.0);
  widget.ResetView();
  EXPECT_EQ(widget.GetView()->GetNumCharts(), 0);
}

}  // namespace
