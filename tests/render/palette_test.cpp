#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "orvalix/render/pixel_format_internal.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::Offscreen;

struct Rgb {
  int red, green, blue;
  bool operator==(const Rgb&) const = default;
};

// The static colours 1 to 12 of the system, and the palette slots that hold them.
constexpr std::array<Rgb, 13> kSystem{{{0, 0, 0},
                                       {128, 0, 0},
                                       {0, 128, 0},
                                       {128, 128, 0},
                                       {0, 0, 128},
                                       {128, 0, 128},
                                       {0, 128, 128},
                                       {192, 192, 192},
                                       {192, 220, 192},
                                       {166, 202, 240},
                                       {255, 251, 240},
                                       {160, 160, 164},
                                       {128, 128, 128}}};
constexpr std::array<int, 13> kSlots{0, 3, 24, 27, 64, 67, 88, 173, 181, 236, 247, 164, 91};

Rgb Of(const PALETTEENTRY& entry) { return {entry.peRed, entry.peGreen, entry.peBlue}; }

/// Entry i of the 3-3-2 layout without the system's colours.
Rgb Plain332(int i) {
  constexpr std::array<int, 8> kThree{0, 36, 73, 109, 146, 182, 219, 255};
  constexpr std::array<int, 4> kTwo{0, 85, 170, 255};
  return {kThree[static_cast<std::size_t>(i & 7)], kThree[static_cast<std::size_t>((i >> 3) & 7)],
          kTwo[static_cast<std::size_t>((i >> 6) & 3)]};
}

Rgb Expected332(int i) {
  for (std::size_t k = 1; k < kSlots.size(); ++k) {
    if (kSlots[k] == i) return kSystem[k];
  }
  return Plain332(i);
}

/// A palette description with room for `count` entries, all 77 at first.
class LogPalette {
 public:
  explicit LogPalette(std::size_t count)
      : m_storage((count * sizeof(PALETTEENTRY)) / sizeof(LOGPALETTE) + 2) {
    for (std::size_t i = 0; i < count; ++i) Get()->palPalEntry[i] = {77, 77, 77, 77};
  }
  LOGPALETTE* Get() { return m_storage.data(); }
  Rgb Entry(int i) { return Of(Get()->palPalEntry[i]); }

 private:
  std::vector<LOGPALETTE> m_storage;
};

TEST(Palette, ComponentsFollowTheTables) {
  Offscreen target;
  const COpenGL& gl = *target.gl;
  EXPECT_EQ(gl.ComponentFromIndex(0b101, 3, 0), 182);
  EXPECT_EQ(gl.ComponentFromIndex(0b111000, 3, 3), 255);
  EXPECT_EQ(gl.ComponentFromIndex(0b01000000, 2, 6), 85);
  EXPECT_EQ(gl.ComponentFromIndex(0b10000000, 2, 6), 170);
  EXPECT_EQ(gl.ComponentFromIndex(1, 1, 0), 255);
  EXPECT_EQ(gl.ComponentFromIndex(2, 1, 0), 0);
  EXPECT_EQ(gl.ComponentFromIndex(255, 0, 0), 0);
  EXPECT_EQ(gl.ComponentFromIndex(255, 4, 0), 0);
  EXPECT_EQ(gl.ComponentFromIndex(255, 3, 40), 0);
}

TEST(Palette, An8BitTargetGets256EntriesWithTheSystemsColors) {
  Offscreen target(16, 16, 8);
  const HPALETTE palette = target.dib->GetPaletteHandle();
  ASSERT_NE(palette, nullptr);
  std::array<PALETTEENTRY, 256> entries{};
  ASSERT_EQ(GetPaletteEntries(palette, 0, 256, entries.data()), 256U);
  for (int i = 0; i < 256; ++i) {
    const auto& entry = entries[static_cast<std::size_t>(i)];
    EXPECT_EQ(Of(entry), Expected332(i)) << i;
    EXPECT_EQ(entry.peFlags, 0) << i;
  }
  EXPECT_EQ(Of(entries[0]), (Rgb{0, 0, 0}));
  // The bitmap shows the same colours.
  std::array<RGBQUAD, 256> table{};
  ASSERT_EQ(GetDIBColorTable(target.memory.GetSafeHdc(), 0, 256, table.data()), 256U);
  for (std::size_t i = 0; i < 256; ++i) {
    EXPECT_EQ((Rgb{table[i].rgbRed, table[i].rgbGreen, table[i].rgbBlue}), Of(entries[i])) << i;
  }
}

TEST(Palette, MayBeMadeAnewWhileItIsSelected) {
  Offscreen target(16, 16, 8);
  const HDC dc = target.window.GetDC()->GetSafeHdc();
  const HPALETTE first = target.dib->GetPaletteHandle();
  SelectPalette(dc, first, FALSE);
  target.dib->CreateRGBPalette();
  const HPALETTE second = target.dib->GetPaletteHandle();
  EXPECT_NE(second, nullptr);
  EXPECT_NE(second, first);
  EXPECT_EQ(SelectPalette(dc, second, FALSE), first);
  SelectPalette(dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
}

TEST(Palette, TheContextsOwnPaletteFollowsTheSameRules) {
  Offscreen target(16, 16, 8);
  const auto stock = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  target.gl->CreateRGBPalette();
  const HPALETTE selected = SelectPalette(target.memory.GetSafeHdc(), stock, FALSE);
  ASSERT_NE(selected, nullptr);
  ASSERT_NE(selected, stock);
  std::array<PALETTEENTRY, 256> entries{};
  ASSERT_EQ(GetPaletteEntries(selected, 0, 256, entries.data()), 256U);
  for (int i = 0; i < 256; ++i) {
    EXPECT_EQ(Of(entries[static_cast<std::size_t>(i)]), Expected332(i)) << i;
  }
}

TEST(Palette, TheContextKeepsOnlyItsLastOne) {
  Offscreen target(16, 16, 8);
  const HDC dc = target.memory.GetSafeHdc();
  const auto stock = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  target.gl->CreateRGBPalette();
  const HPALETTE first = SelectPalette(dc, stock, FALSE);
  SelectPalette(dc, first, FALSE);
  target.gl->CreateRGBPalette();
  const HPALETTE second = SelectPalette(dc, stock, FALSE);
  SelectPalette(dc, second, FALSE);
  EXPECT_NE(second, first);
  EXPECT_EQ(GetPaletteEntries(first, 0, 0, nullptr), 0U);
  EXPECT_EQ(GetPaletteEntries(second, 0, 0, nullptr), 256U);
  // Closing gives the device context the default palette back, the destructor releases ours.
  target.gl->Close();
  EXPECT_EQ(SelectPalette(dc, stock, FALSE), stock);
  EXPECT_EQ(GetPaletteEntries(second, 0, 0, nullptr), 256U);
  target.gl.reset();
  EXPECT_EQ(GetPaletteEntries(second, 0, 0, nullptr), 0U);
}

TEST(Palette, TrueColorTargetsGetNone) {
  for (const int bits : {24, 32}) {
    Offscreen target(16, 16, bits);
    EXPECT_EQ(target.dib->GetPaletteHandle(), nullptr) << bits;
    const HPALETTE before = SelectPalette(
        target.memory.GetSafeHdc(), static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
    SelectPalette(target.memory.GetSafeHdc(), before, FALSE);
    target.gl->CreateRGBPalette();
    EXPECT_EQ(SelectPalette(target.memory.GetSafeHdc(), before, FALSE), before) << bits;
  }
}

TEST(Palette, FillsAGivenDescription) {
  Offscreen target;
  PIXELFORMATDESCRIPTOR format = orvalix::StoredPixelFormat(8);
  LogPalette palette(256);
  target.gl->CreateLogPalette(&format, palette.Get(), 256);
  EXPECT_EQ(palette.Get()->palVersion, 0x300);
  EXPECT_EQ(palette.Get()->palNumEntries, 256);
  for (int i = 0; i < 256; ++i) EXPECT_EQ(palette.Entry(i), Expected332(i)) << i;

  // Another layout, green and blue exchanged, has no slots for the system.
  format.cGreenShift = 6;
  format.cGreenBits = 2;
  format.cBlueShift = 3;
  format.cBlueBits = 3;
  target.gl->CreateLogPalette(&format, palette.Get(), 256);
  EXPECT_EQ(palette.Entry(3), (Rgb{109, 0, 0}));
  EXPECT_EQ(palette.Entry(24), (Rgb{0, 0, 109}));
}

TEST(Palette, FillsOnlyAsManyEntriesAsThereIsRoomFor) {
  Offscreen target;
  PIXELFORMATDESCRIPTOR format = orvalix::StoredPixelFormat(8);
  LogPalette palette(30);
  target.gl->CreateLogPalette(&format, palette.Get(), 20);
  EXPECT_EQ(palette.Get()->palNumEntries, 20);
  EXPECT_EQ(palette.Entry(3), (Rgb{128, 0, 0}));
  EXPECT_EQ(palette.Entry(20), (Rgb{77, 77, 77}));
  EXPECT_EQ(palette.Entry(24), (Rgb{77, 77, 77}));
  target.gl->CreateLogPalette(nullptr, palette.Get(), 20);
  target.gl->CreateLogPalette(&format, nullptr, 20);
  target.gl->CreateLogPalette(&format, palette.Get(), -1);
  EXPECT_EQ(palette.Get()->palNumEntries, 20);
}

TEST(PixelFormat, AsksForDrawingToABitmap) {
  const PIXELFORMATDESCRIPTOR format = orvalix::WantedPixelFormat(24);
  EXPECT_EQ(format.nSize, 40);
  EXPECT_EQ(format.nVersion, 1);
  EXPECT_EQ(format.dwFlags, 0x38U);
  EXPECT_EQ(format.iPixelType, PFD_TYPE_RGBA);
  EXPECT_EQ(format.cColorBits, 24);
  EXPECT_EQ(format.cDepthBits, 32);
  EXPECT_EQ(format.cAlphaBits, 0);
  EXPECT_EQ(format.cStencilBits, 0);
  EXPECT_EQ(format.cAccumBits, 0);
  EXPECT_EQ(format.cAuxBuffers, 0);
  EXPECT_EQ(orvalix::WantedPixelFormat(264).cColorBits, 8);  // kept to 8 bits
}

TEST(PixelFormat, OnlyTheDepthsOfBitmapsAreUsable) {
  for (const int bits : {8, 24, 32}) {
    EXPECT_TRUE(orvalix::IsUsable(orvalix::StoredPixelFormat(bits))) << bits;
  }
  for (const int bits : {0, 1, 4, 16, 64, -8}) {
    EXPECT_FALSE(orvalix::IsUsable(orvalix::StoredPixelFormat(bits))) << bits;
  }
  EXPECT_TRUE(orvalix::NeedsPalette(orvalix::StoredPixelFormat(8)));
  EXPECT_FALSE(orvalix::NeedsPalette(orvalix::StoredPixelFormat(24)));
}

}  // namespace
