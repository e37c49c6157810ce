#include "orvalix/host/wnd.h"

#include <gtest/gtest.h>

#include <limits>

#include "orvalix/host/host.h"

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();

void ExpectRect(const RECT& rect, LONG left, LONG top, LONG right, LONG bottom) {
  EXPECT_EQ(rect.left, left);
  EXPECT_EQ(rect.top, top);
  EXPECT_EQ(rect.right, right);
  EXPECT_EQ(rect.bottom, bottom);
}

TEST(CWnd, IsNoWindowAtFirst) {
  CWnd window;
  EXPECT_EQ(window.m_hWnd, nullptr);
  EXPECT_EQ(window.GetSafeHwnd(), nullptr);
  EXPECT_EQ(window.GetDC(), nullptr);
  EXPECT_EQ(window.ReleaseDC(nullptr), 0);
  EXPECT_FALSE(window.DestroyWindow());
  RECT rect{1, 2, 3, 4};
  window.GetClientRect(&rect);
  ExpectRect(rect, 0, 0, 0, 0);
  window.Invalidate();
  window.ValidateRect(nullptr);
  EXPECT_FALSE(window.GetUpdateRect(&rect));
}

TEST(CWnd, OffscreenWindowHasSizeAndDepth) {
  for (const int depth : {8, 24, 32}) {
    CWnd window;
    ASSERT_TRUE(window.CreateOffscreen(30, 20, depth));
    EXPECT_NE(window.GetSafeHwnd(), nullptr);
    RECT rect{};
    window.GetClientRect(&rect);
    ExpectRect(rect, 0, 0, 30, 20);
    window.GetClientRect(nullptr);
    CDC* const dc = window.GetDC();
    ASSERT_NE(dc, nullptr);
    // The screen of a window without a display is the window.
    EXPECT_EQ(dc->GetDeviceCaps(HORZRES), 30);
    EXPECT_EQ(dc->GetDeviceCaps(VERTRES), 20);
    EXPECT_EQ(dc->GetDeviceCaps(BITSPIXEL), depth);
    EXPECT_EQ(dc->GetDeviceCaps(PLANES), 1);
    EXPECT_EQ(dc->GetDeviceCaps(LOGPIXELSX), 96);
    EXPECT_EQ(dc->GetDeviceCaps(LOGPIXELSY), 96);
    EXPECT_EQ(dc->GetPixel(29, 19), RGB(0, 0, 0));
    EXPECT_EQ(window.ReleaseDC(dc), 1);
  }
}

TEST(CWnd, DefaultDepthIs32) {
  CWnd window;
  window.CreateOffscreen(1, 1);
  EXPECT_EQ(window.GetDC()->GetDeviceCaps(BITSPIXEL), 32);
}

TEST(CWnd, DeviceContextBelongsToTheWindow) {
  CWnd window;
  window.CreateOffscreen(2, 2);
  CDC* const dc = window.GetDC();
  EXPECT_EQ(window.GetDC(), dc);
  EXPECT_EQ(CDC::FromHandle(dc->m_hDC), dc);
  EXPECT_FALSE(dc->DeleteDC());
  EXPECT_EQ(window.ReleaseDC(dc), 1);
  EXPECT_EQ(window.GetDC(), dc);
  EXPECT_EQ(window.ReleaseDC(nullptr), 0);
  CDC other;
  EXPECT_EQ(window.ReleaseDC(&other), 0);
}

TEST(CWnd, RefusesImpossibleWindowsAndStaysAsItWas) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(3, 2, 24));
  window.GetDC()->SetPixel(0, 0, RGB(1, 2, 3));
  EXPECT_FALSE(window.CreateOffscreen(-1, 2));
  EXPECT_FALSE(window.CreateOffscreen(3, -1));
  EXPECT_FALSE(window.CreateOffscreen(kLargest, kLargest));
  EXPECT_FALSE(window.CreateOffscreen(kLargest, 1));
  for (const int depth : {0, 1, 4, 16, 33, -8}) EXPECT_FALSE(window.CreateOffscreen(3, 2, depth));
  EXPECT_EQ(window.GetDC()->GetDeviceCaps(BITSPIXEL), 24);
  EXPECT_EQ(window.GetDC()->GetPixel(0, 0), RGB(1, 2, 3));
}

TEST(CWnd, IsMadeAnew) {
  CWnd window;
  window.CreateOffscreen(3, 2, 24);
  const HWND handle = window.m_hWnd;
  CDC* const dc = window.GetDC();
  dc->SetPixel(0, 0, RGB(1, 2, 3));
  window.Invalidate();
  ASSERT_TRUE(window.CreateOffscreen(5, 4, 8));
  EXPECT_EQ(window.m_hWnd, handle);
  EXPECT_EQ(window.GetDC(), dc);
  EXPECT_EQ(dc->GetDeviceCaps(HORZRES), 5);
  EXPECT_EQ(dc->GetDeviceCaps(BITSPIXEL), 8);
  EXPECT_EQ(dc->GetPixel(0, 0), RGB(0, 0, 0));
  EXPECT_EQ(dc->GetPixel(4, 3), RGB(0, 0, 0));
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
  EXPECT_EQ(window.GetInvalidateCount(), 0U);
}

TEST(CWnd, EmptyWindowIsLegal) {
  for (const SIZE& size : {SIZE{0, 0}, SIZE{5, 0}, SIZE{0, 5}, SIZE{kLargest, 0}}) {
    CWnd window;
    ASSERT_TRUE(window.CreateOffscreen(size.cx, size.cy, size.cx == kLargest ? 8 : 32));
    EXPECT_NE(window.GetSafeHwnd(), nullptr);
    CDC* const dc = window.GetDC();
    EXPECT_EQ(dc->GetDeviceCaps(HORZRES), size.cx);
    EXPECT_EQ(dc->GetDeviceCaps(VERTRES), size.cy);
    EXPECT_EQ(dc->SetPixel(0, 0, 0), CLR_INVALID);
    CDC source;
    source.CreateCompatibleDC(nullptr);
    EXPECT_TRUE(dc->BitBlt(0, 0, 1, 1, &source, 0, 0, SRCCOPY));
    EXPECT_TRUE(source.BitBlt(0, 0, 1, 1, dc, 0, 0, SRCCOPY));
    EXPECT_TRUE(dc->StretchBlt(0, 0, 1, 1, &source, 0, 0, 1, 1, SRCCOPY));
    window.Invalidate();
    EXPECT_FALSE(window.GetUpdateRect(nullptr));
  }
}

TEST(CWnd, IsDestroyed) {
  CWnd window;
  window.CreateOffscreen(2, 2);
  const HDC dc = window.GetDC()->m_hDC;
  EXPECT_TRUE(window.DestroyWindow());
  EXPECT_EQ(window.GetSafeHwnd(), nullptr);
  EXPECT_EQ(window.GetDC(), nullptr);
  EXPECT_EQ(CDC::FromHandle(dc), nullptr);
  EXPECT_FALSE(window.DestroyWindow());
  EXPECT_TRUE(window.CreateOffscreen(1, 1));
}

TEST(CWnd, GathersWhatWaitsToBeRedrawn) {
  CWnd window;
  window.CreateOffscreen(100, 50);
  RECT rect{1, 1, 1, 1};
  EXPECT_FALSE(window.GetUpdateRect(&rect));
  ExpectRect(rect, 0, 0, 0, 0);
  const RECT first{10, 10, 20, 20};
  const RECT second{90, 40, 200, 200};
  window.InvalidateRect(&first);
  window.InvalidateRect(&second, FALSE);
  EXPECT_TRUE(window.GetUpdateRect(&rect));
  ExpectRect(rect, 10, 10, 100, 50);
  EXPECT_EQ(window.GetInvalidateCount(), 2U);
}

TEST(CWnd, IgnoresWhatLiesOutside) {
  CWnd window;
  window.CreateOffscreen(100, 50);
  const RECT outside{100, 0, 200, 50};
  const RECT turned{20, 20, 10, 10};
  window.InvalidateRect(&outside);
  window.InvalidateRect(&turned);
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
  EXPECT_EQ(window.GetInvalidateCount(), 2U);
}

TEST(CWnd, InvalidatesAndValidatesTheWhole) {
  CWnd window;
  window.CreateOffscreen(100, 50);
  window.Invalidate();
  RECT rect{};
  EXPECT_TRUE(window.GetUpdateRect(&rect));
  ExpectRect(rect, 0, 0, 100, 50);
  const RECT part{0, 0, 100, 49};
  window.ValidateRect(&part);
  EXPECT_TRUE(window.GetUpdateRect(nullptr));
  const RECT more{-5, -5, 100, 50};
  window.ValidateRect(&more);
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
  window.InvalidateRect(nullptr);
  EXPECT_TRUE(window.GetUpdateRect(nullptr));
  window.ValidateRect(nullptr);
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
}

TEST(CPrintInfo, Defaults) {
  const CPrintInfo info;
  EXPECT_FALSE(info.m_bPreview);
  EXPECT_FALSE(info.m_bDirect);
  EXPECT_TRUE(info.m_bContinuePrinting);
  EXPECT_EQ(info.m_nCurPage, 1U);
  EXPECT_EQ(info.m_nNumPreviewPages, 0U);
  ExpectRect(info.m_rectDraw, 0, 0, 0, 0);
}

}  // namespace
