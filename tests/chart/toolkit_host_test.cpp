#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "chart/view_fixture.h"

namespace {

using namespace orvalix::test;

/// A device of another toolkit: it keeps the last picture that it was given.
class ToolkitDC : public CDC {
 public:
  ToolkitDC() { CreateHostDC(); }

  int GetDeviceCaps(int index) const override {
    switch (index) {
      case HORZRES:
        return 64;
      case VERTRES:
        return 48;
      case BITSPIXEL:
        return 32;
      case PLANES:
        return 1;
      default:
        return 96;
    }
  }

  BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                int strideBytes) override {
    place = destination;
    pixels.clear();
    for (int y = 0; y < height; ++y) {
      const auto* row =
          static_cast<const unsigned char*>(bgra) + static_cast<std::ptrdiff_t>(y) * strideBytes;
      pixels.insert(pixels.end(), row, row + std::ptrdiff_t{4} * width);
    }
    return TRUE;
  }

  RECT place{};
  std::vector<unsigned char> pixels;
};

/// A window of another toolkit, 20 x 10 pixels on a screen of 64 x 48.
class ToolkitWindow : public CWnd {
 public:
  ToolkitWindow() { m_hWnd = reinterpret_cast<HWND>(this); }

  void GetClientRect(RECT* rect) const override { *rect = {0, 0, 20, 10}; }
  CDC* GetDC() override {
    ++borrowed;
    return &dc;
  }
  int ReleaseDC(CDC*) override {
    --borrowed;
    return 1;
  }

  ToolkitDC dc;
  int borrowed = 0;
};

TEST(ToolkitHost, ReceivesTheFinishedPicture) {
  ToolkitWindow window;
  CChartView3D view(&window);
  EXPECT_EQ(view.GetDIBSection()->DIBWidth(), 64);  // as large as the screen
  EXPECT_EQ(view.GetDIBSection()->DIBHeight(), 48);
  view.EnableBorder(0);
  CChart3D* chart = view.NewChart3D();
  chart->EnableBorder(0);
  chart->SetChartPosition({0.0, 0.5, 1.0, 0.5});  // the upper half
  chart->SetChartBkColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
  view.DrawViewScreen();
  EXPECT_EQ(window.borrowed, 0);  // every borrowed device context was given back

  EXPECT_EQ(window.dc.place.right - window.dc.place.left, 20);
  EXPECT_EQ(window.dc.place.bottom - window.dc.place.top, 10);
  ASSERT_EQ(window.dc.pixels.size(), 20U * 10U * 4U);
  const auto pixel = [&](std::size_t x, std::size_t y) {
    const unsigned char* at = window.dc.pixels.data() + (y * 20 + x) * 4;
    return std::vector<int>{at[0], at[1], at[2], at[3]};
  };
  EXPECT_EQ(pixel(0, 0), (std::vector<int>{0, 0, 255, 255}));
  EXPECT_EQ(pixel(19, 4), (std::vector<int>{0, 0, 255, 255}));
  EXPECT_EQ(pixel(19, 5), (std::vector<int>{255, 255, 255, 255}));
}

}  // namespace
