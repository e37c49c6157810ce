#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::FullBitmapInfo;
using orvalix::test::MemoryPicture;

constexpr LONG kLargest = std::numeric_limits<LONG>::max();
constexpr LONG kSmallest = std::numeric_limits<LONG>::min();

/// Tries to make a section; when none comes, the pixels must be null as well.
bool CanCreate(const FullBitmapInfo& info) {
  int something = 0;
  void* bits = &something;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info.Get(), DIB_RGB_COLORS, &bits, nullptr, 0);
  EXPECT_EQ(bits == nullptr, bitmap == nullptr);
  EXPECT_EQ(DeleteObject(bitmap) != FALSE, bitmap != nullptr);
  return bitmap != nullptr;
}

TEST(DibSection, PixelsAreZeroAndRowsAreMultiplesOfFourBytes) {
  struct Case {
    LONG width;
    int bitCount;
    LONG rowBytes;  // ((bitCount * width + 31) / 32) * 4
  };
  for (const Case& c :
       {Case{3, 8, 4}, Case{5, 8, 8}, Case{3, 24, 12}, Case{5, 24, 16}, Case{3, 32, 12}}) {
    const MemoryPicture picture(c.width, 2, c.bitCount);
    BITMAP description{};
    ASSERT_EQ(GetObjectA(picture.bitmap, sizeof(description), &description), 32);
    EXPECT_EQ(description.bmType, 0);
    EXPECT_EQ(description.bmWidth, c.width);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(description.bmWidthBytes, c.rowBytes);
    EXPECT_EQ(description.bmPlanes, 1);
    EXPECT_EQ(description.bmBitsPixel, c.bitCount);
    EXPECT_EQ(description.bmBits, picture.bits);
    const std::vector<std::uint8_t> zeros(static_cast<std::size_t>(2 * c.rowBytes));
    EXPECT_EQ(std::memcmp(picture.bits, zeros.data(), zeros.size()), 0);
  }
}

TEST(DibSection, PositiveHeightPutsTheBottomRowFirst) {
  MemoryPicture picture(2, 3, 24);
  picture.dc.SetPixel(1, 2, RGB(1, 2, 3));
  // The bottom row comes first; its second pixel starts at byte 3: blue, green, red.
  EXPECT_EQ(picture.bits[3], 3);
  EXPECT_EQ(picture.bits[4], 2);
  EXPECT_EQ(picture.bits[5], 1);
}

TEST(DibSection, NegativeHeightPutsTheTopRowFirst) {
  MemoryPicture picture(2, -3, 24);
  picture.dc.SetPixel(1, 0, RGB(1, 2, 3));
  EXPECT_EQ(picture.bits[3], 3);
  picture.dc.SetPixel(0, 2, RGB(4, 5, 6));
  EXPECT_EQ(picture.bits[2 * 8], 6);  // two rows of 8 bytes
  EXPECT_EQ(picture.dc.GetPixel(0, 2), RGB(4, 5, 6));
}

TEST(DibSection, IsDescribedWithItsHeader) {
  const MemoryPicture picture(5, -2, 24);
  DIBSECTION section{};
  ASSERT_EQ(GetObjectA(picture.bitmap, sizeof(section), &section), 104);
  EXPECT_EQ(section.dsBmih.biSize, 40U);
  EXPECT_EQ(section.dsBmih.biWidth, 5);
  EXPECT_EQ(section.dsBmih.biHeight, 2);
  EXPECT_EQ(section.dsBmih.biPlanes, 1);
  EXPECT_EQ(section.dsBmih.biBitCount, 24);
  EXPECT_EQ(section.dsBmih.biCompression, BI_RGB);
  EXPECT_EQ(section.dsBmih.biSizeImage, 32U);  // 2 rows of 16 bytes
  EXPECT_EQ(section.dsBm.bmBits, picture.bits);
  EXPECT_EQ(section.dshSection, nullptr);
  EXPECT_EQ(section.dsOffset, 0U);
}

TEST(DibSection, DescriptionNeedsRoom) {
  const MemoryPicture picture(1, 1, 32);
  DIBSECTION section{};
  EXPECT_EQ(GetObjectA(picture.bitmap, 0, nullptr), 104);
  EXPECT_EQ(GetObjectA(picture.bitmap, 103, &section), 32);
  EXPECT_EQ(GetObjectA(picture.bitmap, 31, &section), 0);
  EXPECT_EQ(GetObjectA(picture.bitmap, -1, &section), 0);
  EXPECT_EQ(GetObjectA(nullptr, 104, &section), 0);
}

TEST(DibSection, RefusesImpossibleFormats) {
  EXPECT_TRUE(CanCreate(FullBitmapInfo(1, 1, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(0, 1, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(-1, 1, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(1, 0, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(kSmallest, kSmallest, 32)));
  // 2^15 * 2^14 * 4 bytes are 2^31, one more than allowed; so are these.
  EXPECT_FALSE(CanCreate(FullBitmapInfo(32768, 16384, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(kLargest, 1, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(kLargest, kLargest, 32)));
  EXPECT_FALSE(CanCreate(FullBitmapInfo(1, kSmallest, 8)));
  for (const int bitCount : {0, 1, 2, 4, 7, 15, 16, 31, 33, 48, 64, 65535}) {
    EXPECT_FALSE(CanCreate(FullBitmapInfo(1, 1, bitCount))) << bitCount;
  }
}

TEST(DibSection, RefusesOtherHeaders) {
  FullBitmapInfo info(1, 1, 32);
  info.header.biSize = 12;
  EXPECT_FALSE(CanCreate(info));
  info.header.biSize = 0;
  EXPECT_FALSE(CanCreate(info));
  info.header.biSize = 125;
  EXPECT_FALSE(CanCreate(info));
  info.header.biSize = 124;
  EXPECT_TRUE(CanCreate(info));
  info.header.biSize = 40;
  info.header.biCompression = 1;
  EXPECT_FALSE(CanCreate(info));
}

TEST(DibSection, RefusesNullAndUnsupportedArguments) {
  const FullBitmapInfo info(1, 1, 32);
  int something = 0;
  void* bits = &something;
  EXPECT_EQ(CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr);
  EXPECT_EQ(bits, nullptr);
  EXPECT_EQ(CreateDIBSection(nullptr, info.Get(), DIB_PAL_COLORS, &bits, nullptr, 0), nullptr);
  EXPECT_EQ(CreateDIBSection(nullptr, info.Get(), DIB_RGB_COLORS, &bits, &something, 0), nullptr);
  const HBITMAP bitmap = CreateDIBSection(nullptr, info.Get(), DIB_RGB_COLORS, nullptr, nullptr, 0);
  EXPECT_NE(bitmap, nullptr);
  EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(DibSection, ReadsNothingBehindTheHeaderAboveEightBits) {
  // Exactly 40 bytes on the heap: reading on would be seen by the address sanitizer.
  for (const int bitCount : {24, 32}) {
    const FullBitmapInfo full(2, 2, bitCount);
    std::vector<std::uint8_t> header(sizeof(BITMAPINFOHEADER));
    std::memcpy(header.data(), &full.header, header.size());
    const HBITMAP bitmap =
        CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(header.data()),
                         DIB_RGB_COLORS, nullptr, nullptr, 0);
    EXPECT_NE(bitmap, nullptr);
    DeleteObject(bitmap);
  }
}

/// The colours of a section made from exactly those bytes.
std::array<RGBQUAD, 256> ColorsOf(const std::vector<std::uint8_t>& info) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(info.data()),
                                          DIB_RGB_COLORS, nullptr, nullptr, 0);
  EXPECT_NE(bitmap, nullptr);
  SelectObject(dc.m_hDC, bitmap);
  std::array<RGBQUAD, 256> colors{};
  EXPECT_EQ(GetDIBColorTable(dc.m_hDC, 0, 256, colors.data()), 256U);
  dc.DeleteDC();
  DeleteObject(bitmap);
  return colors;
}

TEST(DibSection, ReadsTheUsedColorsOnly) {
  FullBitmapInfo full(1, 1, 8);
  full.header.biClrUsed = 2;
  std::vector<std::uint8_t> info(40 + 2 * 4);
  std::memcpy(info.data(), &full.header, 40);
  info[40] = 10;  // blue of the first colour
  info[46] = 20;  // red of the second one
  const auto colors = ColorsOf(info);
  EXPECT_EQ(colors[0].rgbBlue, 10);
  EXPECT_EQ(colors[1].rgbRed, 20);
  EXPECT_EQ(colors[2].rgbRed, 0);
}

TEST(DibSection, FindsTheColorsBehindALongerHeader) {
  FullBitmapInfo full(1, 1, 8);
  full.header.biSize = 108;
  full.header.biClrUsed = 1;
  std::vector<std::uint8_t> info(108 + 4);
  std::memcpy(info.data(), &full.header, 40);
  info[108] = 77;
  EXPECT_EQ(ColorsOf(info)[0].rgbBlue, 77);
}

TEST(DibSection, ReadsNoMoreThan256Colors) {
  FullBitmapInfo full(1, 1, 8);
  full.header.biClrUsed = 0xFFFFFFFF;
  full.colors[255] = {9, 8, 7, 0};
  std::vector<std::uint8_t> info(sizeof(full));
  std::memcpy(info.data(), &full, sizeof(full));
  EXPECT_EQ(ColorsOf(info)[255].rgbBlue, 9);
}

TEST(DibSection, ColorTableIsReadAndReplacedInParts) {
  MemoryPicture picture(1, 1, 8);
  std::array<RGBQUAD, 4> colors{};
  EXPECT_EQ(GetDIBColorTable(picture.dc.m_hDC, 254, 4, colors.data()), 2U);
  EXPECT_EQ(colors[0].rgbRed, 254);
  EXPECT_EQ(colors[1].rgbRed, 255);
  EXPECT_EQ(GetDIBColorTable(picture.dc.m_hDC, 256, 4, colors.data()), 0U);
  EXPECT_EQ(GetDIBColorTable(picture.dc.m_hDC, 0xFFFFFFFF, 0xFFFFFFFF, colors.data()), 0U);

  const std::array<RGBQUAD, 2> red = {{{0, 0, 200, 0}, {0, 0, 201, 0}}};
  EXPECT_EQ(SetDIBColorTable(picture.dc.m_hDC, 255, 2, red.data()), 1U);
  EXPECT_EQ(GetDIBColorTable(picture.dc.m_hDC, 255, 1, colors.data()), 1U);
  EXPECT_EQ(colors[0].rgbRed, 200);
  EXPECT_EQ(SetDIBColorTable(picture.dc.m_hDC, 300, 2, red.data()), 0U);
  picture.bits[0] = 255;
  EXPECT_EQ(picture.dc.GetPixel(0, 0), RGB(200, 0, 0));
}

TEST(DibSection, OnlyEightBitSectionsHaveAColorTable) {
  std::array<RGBQUAD, 256> colors{};
  const MemoryPicture deep(1, 1, 32);
  EXPECT_EQ(GetDIBColorTable(deep.dc.m_hDC, 0, 256, colors.data()), 0U);
  EXPECT_EQ(SetDIBColorTable(deep.dc.m_hDC, 0, 256, colors.data()), 0U);

  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_EQ(GetDIBColorTable(dc.m_hDC, 0, 256, colors.data()), 0U);
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 8, nullptr));
  dc.SelectObject(&bitmap);
  EXPECT_EQ(GetDIBColorTable(dc.m_hDC, 0, 256, colors.data()), 0U);
  dc.DeleteDC();
  EXPECT_EQ(GetDIBColorTable(nullptr, 0, 256, colors.data()), 0U);

  const MemoryPicture indexed(1, 1, 8);
  EXPECT_EQ(GetDIBColorTable(indexed.dc.m_hDC, 0, 256, nullptr), 0U);
  EXPECT_EQ(SetDIBColorTable(indexed.dc.m_hDC, 0, 256, nullptr), 0U);
}

}  // namespace
