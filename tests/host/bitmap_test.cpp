#include "orvalix/host/bitmap.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;

constexpr int kLargest = std::numeric_limits<int>::max();

TEST(CBitmap, IsMadeInTheDepthOfTheDevice) {
  for (const int depth : {8, 24, 32}) {
    CWnd window;
    ASSERT_TRUE(window.CreateOffscreen(4, 4, depth));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(window.GetDC(), 3, 2));
    BITMAP description{};
    EXPECT_EQ(bitmap.GetBitmap(&description), 32);
    EXPECT_EQ(description.bmWidth, 3);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(description.bmBitsPixel, depth);
    // Rows of whole pairs of bytes: 3 pixels of 1, 3 and 4 bytes.
    EXPECT_EQ(description.bmWidthBytes, depth == 8 ? 4 : depth == 24 ? 10 : 12);
    EXPECT_EQ(description.bmBits, nullptr);
  }
}

TEST(CBitmap, IsCompatibleWithAMemoryDeviceContextsBitmap) {
  const MemoryPicture picture(1, 1, 24);
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateCompatibleBitmap(const_cast<CDC*>(&picture.dc), 1, 1));
  BITMAP description{};
  bitmap.GetBitmap(&description);
  EXPECT_EQ(description.bmBitsPixel, 24);
}

TEST(CBitmap, StockBitmapCountsAsTheDevices) {
  CWnd window;
  window.CreateOffscreen(1, 1, 24);
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(window.GetDC()));
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 1, 1));
  BITMAP description{};
  bitmap.GetBitmap(&description);
  EXPECT_EQ(description.bmBitsPixel, 24);
}

TEST(CBitmap, EightBitBitmapHasTheDevicesColors) {
  CWnd window;
  window.CreateOffscreen(2, 1, 8);
  LOGPALETTE description{0x300, 1, {{11, 22, 33, 0}}};
  CPalette palette;
  ASSERT_TRUE(palette.CreatePalette(&description));
  window.GetDC()->SelectPalette(&palette, FALSE);
  window.GetDC()->RealizePalette();

  CDC dc;
  dc.CreateCompatibleDC(window.GetDC());
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateCompatibleBitmap(window.GetDC(), 1, 1));
  CBitmap* const previous = dc.SelectObject(&bitmap);
  EXPECT_EQ(dc.SetPixel(0, 0, RGB(12, 21, 33)), RGB(11, 22, 33));
  dc.SelectObject(previous);
}

TEST(CBitmap, IsMadeFromRowsOfPairsOfBytes) {
  // 3 pixels of 8 bits: each row has a byte of padding.
  const std::array<BYTE, 8> bits = {1, 2, 3, 99, 4, 5, 6, 99};
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(3, 2, 1, 8, bits.data()));
  std::array<BYTE, 10> read{};
  EXPECT_EQ(bitmap.GetBitmapBits(10, read.data()), 8U);
  EXPECT_EQ(read, (std::array<BYTE, 10>{1, 2, 3, 99, 4, 5, 6, 99, 0, 0}));
}

TEST(CBitmap, RefusesImpossibleFormats) {
  CBitmap bitmap;
  EXPECT_FALSE(bitmap.CreateBitmap(0, 1, 1, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 0, 1, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(-1, 1, 1, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, -1, 1, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(kLargest, kLargest, 1, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 0, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 2, 32, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 1, 0, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 1, 1, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 1, 16, nullptr));
  EXPECT_FALSE(bitmap.CreateBitmap(1, 1, 1, 0xFFFFFFFF, nullptr));
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(nullptr, 1, 1));
  CDC noDevice;
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&noDevice, 1, 1));
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, 0, 1));
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, 1, -1));
  EXPECT_EQ(bitmap.m_hObject, nullptr);
}

TEST(CBitmap, IsMadeOnce) {
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
  const HGDIOBJ handle = bitmap.m_hObject;
  EXPECT_FALSE(bitmap.CreateBitmap(2, 2, 1, 32, nullptr));
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, 2, 2));
  EXPECT_EQ(bitmap.m_hObject, handle);
}

TEST(CBitmap, CopiesBitsInAndOut) {
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(1, 3, 1, 32, nullptr));
  const std::array<BYTE, 12> bits = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  EXPECT_EQ(bitmap.SetBitmapBits(12, bits.data()), 12U);
  std::array<BYTE, 12> read{};
  EXPECT_EQ(bitmap.GetBitmapBits(12, read.data()), 12U);
  EXPECT_EQ(read, bits);
  // Six bytes are one row and a half.
  std::array<BYTE, 12> part{};
  EXPECT_EQ(bitmap.GetBitmapBits(6, part.data()), 6U);
  EXPECT_EQ(part, (std::array<BYTE, 12>{1, 2, 3, 4, 5, 6}));
  const std::array<BYTE, 6> changed = {21, 22, 23, 24, 25, 26};
  EXPECT_EQ(bitmap.SetBitmapBits(6, changed.data()), 6U);
  bitmap.GetBitmapBits(12, read.data());
  EXPECT_EQ(read, (std::array<BYTE, 12>{21, 22, 23, 24, 25, 26, 7, 8, 9, 10, 11, 12}));
  EXPECT_EQ(bitmap.GetBitmapBits(0, read.data()), 0U);
  EXPECT_EQ(bitmap.GetBitmapBits(12, nullptr), 0U);
  EXPECT_EQ(bitmap.SetBitmapBits(12, nullptr), 0U);
  EXPECT_EQ(bitmap.GetBitmapBits(0xFFFFFFFF, read.data()), 12U);
}

TEST(CBitmap, BitsOfASectionComeFromTheTop) {
  MemoryPicture picture(1, 2, 32);
  picture.dc.SetPixel(0, 0, RGB(0, 0, 5));
  picture.dc.SetPixel(0, 1, RGB(0, 0, 6));
  std::array<BYTE, 8> read{};
  EXPECT_EQ(CBitmap::FromHandle(picture.bitmap)->GetBitmapBits(8, read.data()), 8U);
  EXPECT_EQ(read[0], 5);
  EXPECT_EQ(read[4], 6);
}

TEST(CBitmap, WithoutABitmapNothingIsDescribed) {
  CBitmap bitmap;
  BITMAP description{};
  BYTE byte = 0;
  EXPECT_EQ(bitmap.GetBitmap(&description), 0);
  EXPECT_EQ(bitmap.GetBitmapBits(1, &byte), 0U);
  EXPECT_EQ(bitmap.SetBitmapBits(1, &byte), 0U);
  ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
  EXPECT_EQ(bitmap.GetBitmap(nullptr), 0);
}

}  // namespace
