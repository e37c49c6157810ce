#include <gtest/gtest.h>

#include "chart/view_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

const CaughtError kNoDC{14, 6, "CopyToClipboard"};
const CaughtError kNoBitmap{8, 6, "CopyToClipboard"};

/// Empties the clipboard.
void Empty() {
  OpenClipboard(nullptr);
  EmptyClipboard();
  CloseClipboard();
}

HBITMAP Content() {
  OpenClipboard(nullptr);
  HANDLE bitmap = GetClipboardData(CF_BITMAP);
  CloseClipboard();
  return static_cast<HBITMAP>(bitmap);
}

class ViewClipboard : public ::testing::Test {
 protected:
  ViewClipboard() { Empty(); }
  ~ViewClipboard() override { Empty(); }
};

TEST_F(ViewClipboard, HoldsTheViewAtTheBitmapsSize) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    CWnd window;
    window.CreateOffscreen(40, 30, bits);
    CChartView3D view(&window, 100, 60);
    view.EnableBorder(0);
    CChart3D* chart = view.NewChart3D();
    chart->EnableBorder(0);
    chart->SetChartPosition({0.0, 0.5, 1.0, 0.5});  // the upper half
    chart->SetChartBkColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
    view.CopyToClipboard();
    int width = 0;
    int height = 0;
    view.GetViewSize(width, height);
    EXPECT_EQ(width, 100);
    EXPECT_EQ(height, 60);

    const HBITMAP bitmap = Content();
    BITMAP description{};
    ASSERT_EQ(GetObjectA(bitmap, sizeof(BITMAP), &description), int{sizeof(BITMAP)});
    EXPECT_EQ(description.bmWidth, 100);
    EXPECT_EQ(description.bmHeight, 60);
    EXPECT_EQ(description.bmBitsPixel, bits);
    EXPECT_EQ(description.bmBits, nullptr);  // no section: its pixels belong to the device
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(dc.m_hDC, bitmap);
    EXPECT_EQ(dc.GetPixel(0, 0), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(99, 29), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(99, 30), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(0, 59), RGB(255, 255, 255));
    SelectObject(dc.m_hDC, previous);
  }
}

TEST_F(ViewClipboard, EachCopyReplacesTheOneBefore) {
  ViewOn target(8, 8);
  target.view->CopyToClipboard();
  const HBITMAP first = Content();
  target.view->CopyToClipboard();
  EXPECT_NE(Content(), nullptr);
  EXPECT_EQ(GetObjectA(first, 0, nullptr) != 0, Content() == first);
}

TEST_F(ViewClipboard, LeavesAnOpenClipboardAlone) {
  ViewOn target(8, 8);
  OpenClipboard(nullptr);
  EXPECT_EQ(Catch([&] { target.view->CopyToClipboard(); }), kNoError);
  EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
  CloseClipboard();
}

TEST_F(ViewClipboard, DoesNothingWithoutAWindow) {
  CChartView3D nowhere;
  EXPECT_EQ(Catch([&] { nowhere.CopyToClipboard(); }), kNoError);
  CWnd later;
  CChartView3D waiting(&later);
  EXPECT_EQ(Catch([&] { waiting.CopyToClipboard(); }), kNoError);
  EXPECT_EQ(Content(), nullptr);
}

/// A window that may have no device context to give.
class PoorWindow : public CWnd {
 public:
  CDC* GetDC() override { return poor ? nullptr : CWnd::GetDC(); }
  bool poor = false;
};

TEST_F(ViewClipboard, NeedsADeviceContextAndABitmap) {
  PoorWindow window;
  CChartView3D view(&window);
  window.CreateOffscreen(8, 8);
  EXPECT_EQ(Catch([&] { view.CopyToClipboard(); }), kNoBitmap);
  view.DrawViewScreen(window.GetDC());
  window.poor = true;
  EXPECT_EQ(Catch([&] { view.CopyToClipboard(); }), kNoDC);
  window.poor = false;
  EXPECT_EQ(Catch([&] { view.CopyToClipboard(); }), kNoError);
  EXPECT_NE(Content(), nullptr);
}

TEST_F(ViewClipboard, WithoutMemoryItThrowsOrKeepsNothing) {
  ViewOn target(8, 8);
  target.view->CopyToClipboard();
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { target.view->CopyToClipboard(); });
    if (error.type >= 0) {
      EXPECT_EQ(error.type, 3) << error;
    }
  });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(Catch([&] { target.view->CopyToClipboard(); }), kNoError);
}

}  // namespace
