// A window and a printed page as another toolkit brings them.

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>
#include <vector>

#include "orvalix/host/host.h"
#include "support/allocation_failure.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::FullBitmapInfo;
using orvalix::test::MemoryPicture;

constexpr int kLargest = std::numeric_limits<int>::max();

/// A picture that a device was given.
struct Shown {
  RECT destination;
  int width;
  int height;
  std::vector<DWORD> pixels;  // 0xAARRGGBB, row by row
};

class PageDC : public CDC {
 public:
  PageDC() { EXPECT_TRUE(CreateHostDC()); }

  int GetDeviceCaps(int index) const override {
    switch (index) {
      case HORZRES:
        return 4800;
      case VERTRES:
        return 6600;
      case BITSPIXEL:
        return 24;
      case PLANES:
        return 1;
      case LOGPIXELSX:
        return 600;
      case LOGPIXELSY:
        return 300;
      default:
        return CDC::GetDeviceCaps(index);
    }
  }
  BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                int strideBytes) override {
    Shown picture{destination, width, height, {}};
    for (int y = 0; y < height; ++y) {
      const BYTE* const row = static_cast<const BYTE*>(bgra) + y * strideBytes;
      for (int x = 0; x < width; ++x) {
        const BYTE* const p = row + x * 4;
        picture.pixels.push_back(p[0] | DWORD{p[1]} << 8 | DWORD{p[2]} << 16 | DWORD{p[3]} << 24);
      }
    }
    shown.push_back(picture);
    return answer;
  }
  using CDC::CreateHostDC;

  std::vector<Shown> shown;
  BOOL answer = TRUE;
};

class ToolkitWindow : public CWnd {
 public:
  ToolkitWindow() { m_hWnd = reinterpret_cast<HWND>(&m_dc); }
  void GetClientRect(RECT* rect) const override { *rect = {0, 0, 40, 30}; }
  CDC* GetDC() override { return &m_dc; }
  int ReleaseDC(CDC* dc) override { return dc == &m_dc ? 1 : 0; }
  void InvalidateRect(const RECT* rect, BOOL erase) override {
    ++m_updates;
    m_wholeWindow = rect == nullptr;
    m_erases = erase;
  }

  int m_updates = 0;
  bool m_wholeWindow = false;
  BOOL m_erases = FALSE;

 private:
  PageDC m_dc;
};

void ExpectRect(const RECT& rect, LONG left, LONG top, LONG right, LONG bottom) {
  EXPECT_EQ(rect.left, left);
  EXPECT_EQ(rect.top, top);
  EXPECT_EQ(rect.right, right);
  EXPECT_EQ(rect.bottom, bottom);
}

/// A page that is over with its first picture.
class ShortPage : public PageDC {
 public:
  BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                int strideBytes) override {
    PageDC::PutImage(destination, bgra, width, height, strideBytes);
    return DeleteDC();
  }
};

TEST(OtherToolkit, MayDeleteItsContextWhileItGetsAPicture) {
  ShortPage page;
  MemoryPicture picture(3, 2, 32);
  EXPECT_TRUE(page.BitBlt(0, 0, 3, 2, &picture.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(page.shown.size(), 1U);
  EXPECT_EQ(page.GetSafeHdc(), nullptr);
  EXPECT_FALSE(page.BitBlt(0, 0, 3, 2, &picture.dc, 0, 0, SRCCOPY));
}

TEST(OtherToolkit, WindowIsItsOwn) {
  ToolkitWindow toolkitWindow;
  CWnd& window = toolkitWindow;
  EXPECT_NE(window.GetSafeHwnd(), nullptr);
  EXPECT_FALSE(window.CreateOffscreen(1, 1));
  EXPECT_FALSE(window.DestroyWindow());
  EXPECT_NE(window.GetSafeHwnd(), nullptr);
  window.Invalidate();
  EXPECT_EQ(toolkitWindow.m_updates, 1);
  EXPECT_TRUE(toolkitWindow.m_wholeWindow);
  EXPECT_TRUE(toolkitWindow.m_erases);
  EXPECT_EQ(window.ReleaseDC(window.GetDC()), 1);
}

TEST(OtherToolkit, DeviceHasAHandleAndNoPixels) {
  PageDC page;
  EXPECT_NE(page.m_hDC, nullptr);
  EXPECT_EQ(CDC::FromHandle(page.m_hDC), &page);
  EXPECT_FALSE(page.CreateHostDC());
  EXPECT_EQ(page.GetPixel(0, 0), CLR_INVALID);
  EXPECT_EQ(page.SetPixel(0, 0, 0), CLR_INVALID);
  EXPECT_EQ(page.GetDeviceCaps(0), 0);
  MemoryPicture picture(1, 1, 32);
  EXPECT_FALSE(picture.dc.BitBlt(0, 0, 1, 1, &page, 0, 0, SRCCOPY));
  EXPECT_FALSE(picture.dc.StretchBlt(0, 0, 1, 1, &page, 0, 0, 1, 1, SRCCOPY));
}

TEST(OtherToolkit, MemoryDeviceContextAnswersAsTheDevice) {
  PageDC page;
  CDC memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(&page));
  EXPECT_EQ(memory.GetDeviceCaps(HORZRES), 4800);
  EXPECT_EQ(memory.GetDeviceCaps(VERTRES), 6600);
  EXPECT_EQ(memory.GetDeviceCaps(BITSPIXEL), 24);
  EXPECT_EQ(memory.GetDeviceCaps(LOGPIXELSX), 600);
  EXPECT_EQ(memory.GetDeviceCaps(LOGPIXELSY), 300);
  for (CDC* const dc : {static_cast<CDC*>(&page), &memory}) {
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(dc, 1, 1));
    BITMAP description{};
    bitmap.GetBitmap(&description);
    EXPECT_EQ(description.bmBitsPixel, 24);
  }
}

TEST(OtherToolkit, PalettesCanBeSelectedAndChangeNothing) {
  PageDC page;
  LOGPALETTE description{0x300, 1, {{1, 2, 3, 0}}};
  CPalette palette;
  palette.CreatePalette(&description);
  CPalette* const previous = page.SelectPalette(&palette, FALSE);
  EXPECT_NE(previous, nullptr);
  EXPECT_EQ(page.RealizePalette(), 0U);
  EXPECT_EQ(page.SelectPalette(previous, FALSE), &palette);
}

TEST(OtherToolkit, BlitArrivesAsAnOpaquePicture) {
  for (const int depth : {8, 24, 32}) {
    PageDC page;
    MemoryPicture source(2, 2, depth);
    source.Number();
    EXPECT_TRUE(page.BitBlt(10, 20, 2, 2, &source.dc, 0, 0, SRCCOPY));
    ASSERT_EQ(page.shown.size(), 1U);
    ExpectRect(page.shown[0].destination, 10, 20, 12, 22);
    EXPECT_EQ(page.shown[0].width, 2);
    EXPECT_EQ(page.shown[0].height, 2);
    EXPECT_EQ(page.shown[0].pixels,
              (std::vector<DWORD>{0xFF010101, 0xFF020202, 0xFF030303, 0xFF040404}));
  }
}

TEST(OtherToolkit, TransparentSourcePixelsArriveOpaque) {
  PageDC page;
  std::array<BYTE, 4> pixel = {1, 2, 3, 0};
  CDC source;
  source.CreateOnPixels(pixel.data(), 1, 1, 4);
  page.BitBlt(0, 0, 1, 1, &source, 0, 0, SRCCOPY);
  EXPECT_EQ(page.shown[0].pixels, std::vector<DWORD>{0xFF030201});
  EXPECT_EQ(pixel[3], 0);
}

/// Takes pictures and keeps nothing of them.
class PoorDC : public PageDC {
 public:
  BOOL PutImage(const RECT&, const void* bgra, int, int, int) override {
    last = bgra;
    const BYTE first = *static_cast<const BYTE*>(bgra);
    if (again != nullptr) {
      CDC* const source = std::exchange(again, nullptr);
      // Another picture meanwhile leaves the pixels of this one alone.
      EXPECT_TRUE(BitBlt(0, 0, 64, 48, source, 1, 0, SRCCOPY));
      EXPECT_EQ(*static_cast<const BYTE*>(bgra), first);
    }
    return TRUE;
  }
  const void* last = nullptr;
  CDC* again = nullptr;  ///< what is put while the next picture is
};

TEST(OtherToolkit, FramesOfOneSizeTakeNoNewMemory) {
  PoorDC page;
  MemoryPicture source(64, 48, 32);
  source.Number();
  page.BitBlt(0, 0, 64, 48, &source.dc, 0, 0, SRCCOPY);
  const void* const first = page.last;
  {
    const orvalix::test::AllocationMeter meter;
    for (int i = 0; i < 10; ++i) page.BitBlt(0, 0, 64, 48, &source.dc, 0, 0, SRCCOPY);
    EXPECT_LT(meter.Total(), 64U * 48U * 4U);
  }
  EXPECT_EQ(page.last, first);
  page.again = &source.dc;
  EXPECT_TRUE(page.BitBlt(0, 0, 64, 48, &source.dc, 0, 0, SRCCOPY));
  page.BitBlt(0, 0, 32, 48, &source.dc, 0, 0, SRCCOPY);
  page.BitBlt(0, 0, 64, 48, &source.dc, 0, 0, SRCCOPY);
  EXPECT_TRUE(page.shown.empty());
}

TEST(OtherToolkit, BlitBringsOnlyWhatTheSourceHas) {
  PageDC page;
  MemoryPicture source(2, 2, 32);
  source.Number();
  EXPECT_TRUE(page.BitBlt(10, 20, 5, 5, &source.dc, -1, 1, SRCCOPY));
  ASSERT_EQ(page.shown.size(), 1U);
  // Source columns 0 and 1 belong to 11 and 12, source row 1 to 20.
  ExpectRect(page.shown[0].destination, 11, 20, 13, 21);
  EXPECT_EQ(page.shown[0].pixels, (std::vector<DWORD>{0xFF030303, 0xFF040404}));
  EXPECT_TRUE(page.BitBlt(0, 0, 5, 5, &source.dc, 2, 0, SRCCOPY));
  EXPECT_TRUE(page.BitBlt(0, 0, 5, 5, &source.dc, -5, 0, SRCCOPY));
  EXPECT_TRUE(page.BitBlt(0, 0, 0, 5, &source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(page.BitBlt(0, 0, -1, 5, &source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(page.shown.size(), 1U);
}

TEST(OtherToolkit, StretchingIsLeftToTheDevice) {
  PageDC page;
  MemoryPicture source(2, 1, 32);
  source.Number();
  EXPECT_TRUE(page.StretchBlt(0, 0, 100, 50, &source.dc, 0, 0, 2, 1, SRCCOPY));
  ExpectRect(page.shown[0].destination, 0, 0, 100, 50);
  EXPECT_EQ(page.shown[0].pixels, (std::vector<DWORD>{0xFF010101, 0xFF020202}));
}

TEST(OtherToolkit, StretchedPartKeepsItsPlace) {
  PageDC page;
  MemoryPicture source(2, 1, 32);
  source.Number();
  // A part of 4 columns, of which the source has the middle two, over 0 to 100.
  EXPECT_TRUE(page.StretchBlt(0, 0, 100, 50, &source.dc, -1, 0, 4, 1, SRCCOPY));
  ExpectRect(page.shown[0].destination, 25, 0, 75, 50);
  EXPECT_EQ(page.shown[0].width, 2);
  // Mirrored, the source's end comes first: it has columns 0 and 1 of 0 to 3, in reverse order.
  EXPECT_TRUE(page.StretchBlt(0, 0, 100, 50, &source.dc, 3, 0, -4, 1, SRCCOPY));
  ExpectRect(page.shown[1].destination, 50, 0, 100, 50);
  EXPECT_EQ(page.shown[1].pixels, (std::vector<DWORD>{0xFF020202, 0xFF010101}));
}

TEST(OtherToolkit, MirroredDownArrivesTurned) {
  PageDC page;
  MemoryPicture source(1, 2, 24);
  source.Number();
  EXPECT_TRUE(page.StretchBlt(0, 9, 10, -10, &source.dc, 0, 0, 1, 2, SRCCOPY));
  ExpectRect(page.shown[0].destination, 0, 0, 10, 10);
  EXPECT_EQ(page.shown[0].pixels, (std::vector<DWORD>{0xFF020202, 0xFF010101}));
}

TEST(OtherToolkit, ExtremesAreClamped) {
  PageDC page;
  MemoryPicture source(1, 1, 32);
  EXPECT_TRUE(page.BitBlt(kLargest, kLargest, 1, 1, &source.dc, 0, 0, SRCCOPY));
  ExpectRect(page.shown[0].destination, kLargest, kLargest, kLargest, kLargest);
  EXPECT_TRUE(page.StretchBlt(kLargest, 0, kLargest, kLargest, &source.dc, 0, 0, 1, 1, SRCCOPY));
  ExpectRect(page.shown[1].destination, kLargest, 0, kLargest, kLargest);
}

TEST(OtherToolkit, DibArrivesThroughTheFreeFunctionToo) {
  PageDC page;
  const FullBitmapInfo info(1, 2, 24);
  const std::array<BYTE, 8> bits = {1, 2, 3, 0, 4, 5, 6, 0};
  EXPECT_EQ(StretchDIBits(page.m_hDC, 5, 6, 70, 80, 0, 0, 1, 2, bits.data(), info.Get(),
                          DIB_RGB_COLORS, SRCCOPY),
            2);
  EXPECT_EQ(SetDIBitsToDevice(page.m_hDC, 5, 6, 1, 2, 0, 0, 0, 2, bits.data(), info.Get(),
                              DIB_RGB_COLORS),
            2);
  ASSERT_EQ(page.shown.size(), 2U);
  ExpectRect(page.shown[0].destination, 5, 6, 75, 86);
  ExpectRect(page.shown[1].destination, 5, 6, 6, 8);
  for (const Shown& picture : page.shown) {
    EXPECT_EQ(picture.pixels, (std::vector<DWORD>{0xFF060504, 0xFF030201}));
  }
}

TEST(OtherToolkit, RefusalIsReported) {
  PageDC page;
  page.answer = FALSE;
  MemoryPicture source(1, 1, 32);
  const FullBitmapInfo info(1, 1, 32);
  EXPECT_FALSE(page.BitBlt(0, 0, 1, 1, &source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(page.StretchBlt(0, 0, 1, 1, &source.dc, 0, 0, 1, 1, SRCCOPY));
  EXPECT_EQ(
      page.StretchDIBits(0, 0, 1, 1, 0, 0, 1, 1, source.bits, info.Get(), DIB_RGB_COLORS, SRCCOPY),
      0);
}

/// A page that takes bitmaps as they are.
class BitmapPage : public PageDC {
 public:
  int StretchDIBits(int, int, int, int, int, int, int, int, const void*, const BITMAPINFO*, UINT,
                    DWORD) override {
    return 77;
  }
};

TEST(OtherToolkit, FreeFunctionCallsTheOverriddenMember) {
  BitmapPage page;
  EXPECT_EQ(StretchDIBits(page.m_hDC, 0, 0, 1, 1, 0, 0, 1, 1, nullptr, nullptr, 0, SRCCOPY), 77);
}

}  // namespace
