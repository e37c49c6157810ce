#include "orvalix/host/palette.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "orvalix/host/host.h"
#include "orvalix/host/system_colors_internal.h"
#include "tests/host/memory_picture.h"

namespace {

/// Makes a palette of `count` colours, the i-th one (i, 1, 2).
HPALETTE NewPalette(int count) {
  std::vector<LOGPALETTE> storage(static_cast<std::size_t>(count / 2) + 1);
  storage[0].palVersion = 0x300;
  storage[0].palNumEntries = static_cast<WORD>(count);
  auto* entries = reinterpret_cast<PALETTEENTRY*>(reinterpret_cast<BYTE*>(storage.data()) + 4);
  for (int i = 0; i < count; ++i) entries[i] = {static_cast<BYTE>(i), 1, 2, 0};
  return CreatePalette(storage.data());
}

TEST(CPalette, HoldsItsColors) {
  CPalette palette;
  EXPECT_EQ(palette.GetEntryCount(), 0);
  ASSERT_TRUE(palette.Attach(NewPalette(256)));
  EXPECT_EQ(palette.GetEntryCount(), 256);
  std::array<PALETTEENTRY, 4> entries{};
  EXPECT_EQ(palette.GetPaletteEntries(253, 4, entries.data()), 3U);
  EXPECT_EQ(entries[0].peRed, 253);
  EXPECT_EQ(entries[2].peRed, 255);
  EXPECT_EQ(entries[2].peGreen, 1);
  EXPECT_EQ(entries[2].peBlue, 2);
  EXPECT_EQ(palette.GetPaletteEntries(256, 1, entries.data()), 0U);
  EXPECT_EQ(palette.GetPaletteEntries(0, 0, nullptr), 256U);
  WORD count = 0;
  EXPECT_EQ(palette.GetObject(sizeof(count), &count), 2);
  EXPECT_EQ(count, 256);
  EXPECT_EQ(palette.GetObject(1, &count), 0);
}

TEST(CPalette, IsMadeOnce) {
  LOGPALETTE description{0x300, 1, {{1, 2, 3, 0}}};
  CPalette palette;
  EXPECT_TRUE(palette.CreatePalette(&description));
  EXPECT_FALSE(palette.CreatePalette(&description));
  EXPECT_EQ(palette.GetEntryCount(), 1);
}

TEST(CPalette, RefusesNullAndNoColors) {
  LOGPALETTE description{0x300, 0, {{1, 2, 3, 0}}};
  CPalette palette;
  EXPECT_FALSE(palette.CreatePalette(nullptr));
  EXPECT_FALSE(palette.CreatePalette(&description));
  EXPECT_EQ(CreatePalette(nullptr), nullptr);
  std::array<PALETTEENTRY, 1> entries{};
  EXPECT_EQ(GetPaletteEntries(nullptr, 0, 1, entries.data()), 0U);
  EXPECT_EQ(SetPaletteEntries(nullptr, 0, 1, entries.data()), 0U);
}

TEST(CPalette, ReplacesColors) {
  CPalette palette;
  palette.Attach(NewPalette(3));
  const std::array<PALETTEENTRY, 2> changed = {{{100, 101, 102, 0}, {103, 104, 105, 0}}};
  EXPECT_EQ(palette.SetPaletteEntries(2, 2, changed.data()), 1U);
  EXPECT_EQ(palette.SetPaletteEntries(3, 2, changed.data()), 0U);
  EXPECT_EQ(palette.SetPaletteEntries(0, 2, nullptr), 0U);
  PALETTEENTRY entry{};
  palette.GetPaletteEntries(2, 1, &entry);
  EXPECT_EQ(entry.peRed, 100);
}

TEST(CPalette, StockPaletteHoldsTheSystemsColors) {
  const auto stock = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  std::array<PALETTEENTRY, 20> entries{};
  ASSERT_EQ(GetPaletteEntries(stock, 0, 20, entries.data()), 20U);
  EXPECT_EQ(entries[1].peRed, 128);
  EXPECT_EQ(entries[9].peRed, 166);
  EXPECT_EQ(entries[9].peGreen, 202);
  EXPECT_EQ(entries[9].peBlue, 240);
  EXPECT_EQ(entries[19].peBlue, 255);
  const PALETTEENTRY red{255, 0, 0, 0};
  EXPECT_EQ(SetPaletteEntries(stock, 0, 1, &red), 0U);
}

TEST(CPalette, IsSelectedIntoEveryDeviceContext) {
  CPalette palette;
  palette.Attach(NewPalette(4));
  CDC first;
  CDC second;
  first.CreateCompatibleDC(nullptr);
  second.CreateCompatibleDC(nullptr);
  CPalette* const stock = first.SelectPalette(&palette, FALSE);
  ASSERT_NE(stock, nullptr);
  EXPECT_EQ(stock->m_hObject, GetStockObject(DEFAULT_PALETTE));
  second.SelectPalette(&palette, TRUE);
  EXPECT_FALSE(palette.DeleteObject());
  EXPECT_EQ(first.SelectPalette(stock, FALSE), &palette);
  EXPECT_FALSE(palette.DeleteObject());
  second.DeleteDC();
  EXPECT_TRUE(palette.DeleteObject());
}

TEST(CPalette, SelectingTheSameAgainKeepsIt) {
  CPalette palette;
  palette.Attach(NewPalette(4));
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  dc.SelectPalette(&palette, FALSE);
  EXPECT_EQ(dc.SelectPalette(&palette, FALSE), &palette);
  EXPECT_FALSE(palette.DeleteObject());
  dc.DeleteDC();
  EXPECT_TRUE(palette.DeleteObject());
}

TEST(CPalette, SelectingFailsWithoutPaletteOrDevice) {
  CPalette palette;
  palette.Attach(NewPalette(4));
  CDC noDevice;
  EXPECT_EQ(noDevice.SelectPalette(&palette, FALSE), nullptr);
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CPalette empty;
  EXPECT_EQ(dc.SelectPalette(nullptr, FALSE), nullptr);
  EXPECT_EQ(dc.SelectPalette(&empty, FALSE), nullptr);
  EXPECT_EQ(SelectPalette(nullptr, palette, FALSE), nullptr);
  EXPECT_EQ(SelectPalette(dc.m_hDC, nullptr, FALSE), nullptr);
}

TEST(CPalette, SelectedPaletteOutlivesItsOwner) {
  CWnd window;
  window.CreateOffscreen(1, 1, 8);
  HPALETTE handle = nullptr;
  {
    CPalette palette;
    palette.Attach(NewPalette(4));
    handle = palette;
    window.GetDC()->SelectPalette(&palette, FALSE);
  }
  EXPECT_EQ(GetPaletteEntries(handle, 0, 0, nullptr), 4U);
  EXPECT_EQ(window.GetDC()->RealizePalette(), 4U);
  SelectPalette(window.GetDC()->m_hDC, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)),
                FALSE);
  EXPECT_EQ(GetPaletteEntries(handle, 0, 0, nullptr), 0U);
}

TEST(CPalette, RealizingColorsAnEightBitWindow) {
  CWnd window;
  window.CreateOffscreen(2, 1, 8);
  CDC* const dc = window.GetDC();
  // At first the window has the system's colours: number 1 is dark red, number 246 the 11th one.
  EXPECT_EQ(dc->SetPixel(0, 0, RGB(128, 0, 0)), RGB(128, 0, 0));
  EXPECT_EQ(dc->SetPixel(1, 0, RGB(255, 251, 240)), RGB(255, 251, 240));
  CPalette palette;
  palette.Attach(NewPalette(256));
  CPalette* const previous = dc->SelectPalette(&palette, FALSE);
  // (0, 1, 2) to (255, 1, 2) all differ from what was there.
  EXPECT_EQ(dc->RealizePalette(), 256U);
  EXPECT_EQ(dc->RealizePalette(), 0U);
  EXPECT_EQ(dc->GetPixel(0, 0), RGB(1, 1, 2));
  EXPECT_EQ(dc->GetPixel(1, 0), RGB(246, 1, 2));
  const PALETTEENTRY changed{9, 9, 9, 0};
  palette.SetPaletteEntries(1, 1, &changed);
  EXPECT_EQ(dc->RealizePalette(), 1U);
  EXPECT_EQ(dc->GetPixel(0, 0), RGB(9, 9, 9));
  dc->SelectPalette(previous, FALSE);
  EXPECT_EQ(dc->RealizePalette(), 0U);
  EXPECT_EQ(dc->GetPixel(0, 0), RGB(9, 9, 9));
}

TEST(CPalette, LongPaletteColorsItsFirst256) {
  CWnd window;
  window.CreateOffscreen(1, 1, 8);
  CPalette palette;
  palette.Attach(NewPalette(300));
  window.GetDC()->SelectPalette(&palette, FALSE);
  EXPECT_EQ(window.GetDC()->RealizePalette(), 256U);
  window.DestroyWindow();
}

TEST(CPalette, OtherDevicesNeedNoColors) {
  CPalette palette;
  palette.Attach(NewPalette(4));
  CWnd window;
  window.CreateOffscreen(1, 1, 32);
  window.GetDC()->SelectPalette(&palette, FALSE);
  EXPECT_EQ(window.GetDC()->RealizePalette(), 0U);
  orvalix::test::MemoryPicture picture(1, 1, 8);
  picture.dc.SelectPalette(&palette, FALSE);
  EXPECT_EQ(picture.dc.RealizePalette(), 0U);
  CDC noDevice;
  EXPECT_EQ(noDevice.RealizePalette(), 0U);
  EXPECT_EQ(RealizePalette(nullptr), 0U);
}

}  // namespace
