#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

/// A device of another toolkit that says of itself what a test wants.
class HostDC : public CDC {
 public:
  HostDC() { CreateHostDC(); }

  int GetDeviceCaps(int index) const override {
    switch (index) {
      case HORZRES:
        return width;
      case VERTRES:
        return height;
      case BITSPIXEL:
        return bitsPerPixel;
      case PLANES:
        return planes;
      default:
        return 96;
    }
  }

  BOOL PutImage(const RECT&, const void* bgra, int, int, int) override {
    const auto* first = static_cast<const unsigned char*>(bgra);
    pixel = {first[2], first[1], first[0]};
    return TRUE;
  }

  int width = 16;
  int height = 8;
  int bitsPerPixel = 32;
  int planes = 1;
  Pixel pixel{};  ///< the upper left one of the last picture
};

/// A window that counts the device contexts that are out, and can refuse to lend one.
class HostWindow : public CWnd {
 public:
  void Show() { m_hWnd = reinterpret_cast<HWND>(this); }

  void GetClientRect(RECT* rect) const override { *rect = {0, 0, 16, 8}; }
  CDC* GetDC() override {
    if (refuses) return nullptr;
    ++borrowed;
    ++lent;
    return &dc;
  }
  int ReleaseDC(CDC*) override {
    --borrowed;
    return 1;
  }

  HostDC dc;
  bool refuses = false;
  int borrowed = 0;
  int lent = 0;  ///< so far
};

TEST(ViewDeviceContext, DrawingNeedsTheWindows) {
  HostWindow window;
  window.Show();
  CChartView3D view(&window);
  EXPECT_EQ(window.borrowed, 0);
  view.DrawViewScreen();
  EXPECT_EQ(window.borrowed, 0);
  window.refuses = true;
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(); }), (CaughtError{14, 6, "InitDeviceContext"}));
  EXPECT_EQ(window.borrowed, 0);
  view.DrawViewScreen(&window.dc);  // brings its own
  window.refuses = false;
  view.DrawViewScreen();
}

TEST(ViewDeviceContext, AWindowWithoutAHandleIsNotAsked) {
  HostWindow window;
  CChartView3D view(&window);
  window.refuses = true;
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(); }), kNoError);
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc); }), kNoError);
}

TEST(ViewDeviceContext, FirstDrawingsNeedTheWindowsToo) {
  HostWindow window;
  CChartView3D view(&window);
  window.Show();
  window.refuses = true;
  const CaughtError expected{14, 6, "InitDeviceContext"};
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc); }), expected);
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc, 0, 0, 5, 5); }), expected);
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  window.refuses = false;
  view.DrawViewScreen(&window.dc);
  ASSERT_NE(view.GetDIBSection(), nullptr);
  EXPECT_EQ(view.GetDIBSection()->DIBWidth(), 16);
  EXPECT_EQ(window.borrowed, 0);
}

TEST(ViewDeviceContext, IsGivenBackWhenTheFirstDrawingFails) {
  HostWindow window;
  CChartView3D view(&window);
  window.Show();
  window.dc.width = 2000000000;
  window.dc.height = 2000000000;
  const CaughtError expected{3, 6, "MakeCompatibleBitmap"};
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc); }), expected);
  EXPECT_EQ(window.borrowed, 0);
  EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc, 0, 0, 5, 5); }), expected);
  EXPECT_EQ(window.borrowed, 0);
  EXPECT_EQ(Catch([&] { const CChartView3D another(&window); }), expected);
  EXPECT_EQ(window.borrowed, 0);
  // The next drawing tries again.
  window.dc.width = 16;
  window.dc.height = 8;
  view.EnableBorder(0);
  view.SetViewBkColor(SetRGBD(0, 0, 1, 1));
  view.DrawViewScreen(&window.dc);
  EXPECT_EQ(window.dc.pixel, kBlue);
  EXPECT_EQ(window.borrowed, 0);
}

TEST(ViewDeviceContext, ABitmapHasTheBitsOfAllPlanes) {
  HostDC device;
  device.bitsPerPixel = 8;
  device.planes = 3;
  CDC memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(&device));
  const CDIBSection section(&device, &memory, 5, 4, 8);
  EXPECT_EQ(section.GetDIBHeader().biBitCount, 24);  // 8 x 3
  EXPECT_EQ(section.GetDIBHeader().biPlanes, 1);
  EXPECT_EQ(section.StorageWidth(), 16);  // 5 x 3 bytes, rounded up to whole groups of 4
}

TEST(ViewDeviceContext, AContextWithoutMemoryIsAClearError) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(20, 20));
  // What comes before the rendering context has errors of its own; what comes after its first
  // allocation may be the driver's.
  CaughtError caught = kNoError;
  for (int n = 1; n < 50; ++n) {
    caught = Catch([&] {
      const AllocationFailure failure(n);
      const CChartView3D view(&window);
    });
    const bool isEarlier = caught == CaughtError{14, 6, "InitDeviceContext"} ||
                           caught == CaughtError{3, 6, "MakeCompatibleBitmap"};
    if (!isEarlier) break;
  }
  EXPECT_EQ(caught, (CaughtError{3, 6, "MakeCompatibleOpenGL"}));
}

// The header is made last: bitmap and rendering context are there.
TEST(ViewDeviceContext, AHeaderWithoutMemoryIsAClearError) {
  HostWindow window;
  CChartView3D view(&window);
  window.Show();
  const CaughtError expected{3, 6, "InitChartView3D"};
  {
    const SizedAllocationFailure failure(sizeof(CHeader3D));
    EXPECT_EQ(Catch([&] { view.DrawViewScreen(&window.dc); }), expected);
    EXPECT_EQ(Catch([&] { const CChartView3D another(&window); }), expected);
    EXPECT_EQ(window.borrowed, 0);
  }
  // The next drawing tries again.
  view.EnableBorder(0);
  view.SetViewBkColor(SetRGBD(0, 0, 1, 1));
  view.DrawViewScreen(&window.dc);
  EXPECT_EQ(window.dc.pixel, kBlue);
  EXPECT_EQ(window.borrowed, 0);
}

/// What copying throws, while the window lends its device context and gets it back.
CaughtError CopyOn(const HostWindow& window, CChartView3D& view) {
  const int lentBefore = window.lent;
  const CaughtError error = Catch([&] { view.CopyToClipboard(); });
  EXPECT_EQ(window.lent, lentBefore + 1);
  EXPECT_EQ(window.borrowed, 0);
  return error;
}

TEST(ViewDeviceContext, IsGivenBackWhateverBecomesOfACopy) {
  HostWindow window;
  window.Show();
  CChartView3D view(&window, 100, 60);
  EXPECT_EQ(CopyOn(window, view), kNoError);

  OpenClipboard(nullptr);
  EXPECT_EQ(CopyOn(window, view), kNoError);
  EmptyClipboard();
  CloseClipboard();

  {
    const LargeAllocationFailure poor(10000);  // of a picture of 24000 bytes
    EXPECT_EQ(CopyOn(window, view), (CaughtError{3, 6, "CopyToClipboard"}));
  }

  HostWindow later;
  CChartView3D waiting(&later);
  later.Show();
  EXPECT_EQ(CopyOn(later, waiting), (CaughtError{8, 6, "CopyToClipboard"}));
}

}  // namespace
