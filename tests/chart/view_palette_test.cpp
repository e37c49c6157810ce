#include <gtest/gtest.h>

#include "chart/view_fixture.h"

namespace {

using namespace orvalix::test;

/// A palette of one colour, as a program may have of its own.
class ViewPalette : public ::testing::Test {
 protected:
  ViewPalette() {
    const LOGPALETTE description{0x300, 1, {{1, 2, 3, 0}}};
    own.CreatePalette(&description);
    // Components of levels 5, 2 and 1 of the 3, 3 and 2 bits. No system colour is like it.
    target.view->SetViewBkColor(SetRGBD(182 / 255.0, 73 / 255.0, 85 / 255.0, 1));
    target.view->EnableBorder(0);
  }

  HDC WindowDC() { return target.window.GetDC()->GetSafeHdc(); }

  static HPALETTE Stock() { return static_cast<HPALETTE>(::GetStockObject(DEFAULT_PALETTE)); }

  CPalette own;
  ViewOn target{20, 10, 8};
};

constexpr UINT kIndex = 5 | 2 << 3 | 1 << 6;
const Pixel kColor{182, 73, 85};

TEST_F(ViewPalette, TheWindowGetsTheBitmapsColors) {
  RGBQUAD entry{};
  const HDC bitmapDC = target.view->GetDIBSection()->GetTargetDC()->GetSafeHdc();
  ASSERT_EQ(::GetDIBColorTable(bitmapDC, kIndex, 1, &entry), 1U);
  EXPECT_EQ((Pixel{entry.rgbRed, entry.rgbGreen, entry.rgbBlue}), kColor);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(0, 0), kColor);
  EXPECT_EQ(target.WindowPixel(19, 9), kColor);
}

TEST_F(ViewPalette, TheProgramsPaletteIsSelectedAgain) {
  ::SelectPalette(WindowDC(), own, FALSE);
  const auto expectOwn = [&] { EXPECT_EQ(::SelectPalette(WindowDC(), own, FALSE), own); };
  target.view->DrawViewScreen();
  expectOwn();
  target.view->DrawViewScreen(target.window.GetDC());
  expectOwn();
  target.view->DrawViewScreen(target.window.GetDC(), 0, 0, 5, 5);
  expectOwn();
  EXPECT_EQ(target.WindowPixel(0, 0), kColor);
  ::SelectPalette(WindowDC(), Stock(), FALSE);
}

TEST_F(ViewPalette, TheBitmapsPaletteStaysWithTheView) {
  const HPALETTE made = target.view->GetDIBSection()->GetPaletteHandle();
  ASSERT_NE(made, nullptr);
  target.view->DrawViewScreen();
  EXPECT_EQ(::SelectPalette(WindowDC(), Stock(), FALSE), Stock());
  EXPECT_EQ(::GetPaletteEntries(made, 0, 0, nullptr), 256U);
  target.view.reset();  // nothing holds it any more
  EXPECT_EQ(::GetPaletteEntries(made, 0, 0, nullptr), 0U);
}

TEST_F(ViewPalette, DeeperWindowsKeepTheirs) {
  ViewOn deep(20, 10, 32);
  const HDC dc = deep.window.GetDC()->GetSafeHdc();
  ::SelectPalette(dc, own, FALSE);
  EXPECT_EQ(deep.view->GetDIBSection()->GetPaletteHandle(), nullptr);
  deep.view->DrawViewScreen();
  EXPECT_EQ(::SelectPalette(dc, Stock(), FALSE), own);
}

}  // namespace
