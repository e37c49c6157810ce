#include "orvalix/host/dc.h"

#include <gtest/gtest.h>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;

TEST(CDC, HasNoDeviceAtFirst) {
  CDC dc;
  EXPECT_EQ(dc.m_hDC, nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_FALSE(dc.DeleteDC());
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 0);
  EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
  EXPECT_EQ(dc.SetPixel(0, 0, 0), CLR_INVALID);
  EXPECT_EQ(dc.SetStretchBltMode(COLORONCOLOR), 0);
  CDC source;
  source.CreateCompatibleDC(nullptr);
  EXPECT_FALSE(dc.BitBlt(0, 0, 1, 1, &source, 0, 0, SRCCOPY));
  EXPECT_FALSE(dc.StretchBlt(0, 0, 1, 1, &source, 0, 0, 1, 1, SRCCOPY));
  EXPECT_FALSE(source.BitBlt(0, 0, 1, 1, &dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(source.BitBlt(0, 0, 1, 1, nullptr, 0, 0, SRCCOPY));
  EXPECT_FALSE(source.StretchBlt(0, 0, 1, 1, nullptr, 0, 0, 1, 1, SRCCOPY));
}

TEST(CDC, HandleLeadsBack) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  const HDC handle = dc.GetSafeHdc();
  EXPECT_EQ(CDC::FromHandle(handle), &dc);
  EXPECT_TRUE(dc.DeleteDC());
  EXPECT_EQ(dc.m_hDC, nullptr);
  EXPECT_EQ(CDC::FromHandle(handle), nullptr);
  EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
}

TEST(CDC, IsMadeOnceAndAgainAfterDeleting) {
  CDC dc;
  EXPECT_TRUE(dc.CreateCompatibleDC(nullptr));
  EXPECT_FALSE(dc.CreateCompatibleDC(nullptr));
  EXPECT_TRUE(dc.DeleteDC());
  EXPECT_TRUE(dc.CreateCompatibleDC(nullptr));
}

TEST(CDC, AnswersAsTheDeviceItIsCompatibleWith) {
  CWnd window;
  window.CreateOffscreen(30, 20, 24);
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(window.GetDC()));
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 30);
  EXPECT_EQ(dc.GetDeviceCaps(VERTRES), 20);
  EXPECT_EQ(dc.GetDeviceCaps(BITSPIXEL), 24);
  EXPECT_EQ(dc.GetDeviceCaps(PLANES), 1);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSX), 96);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 96);
  EXPECT_EQ(dc.GetDeviceCaps(0), 0);
  EXPECT_EQ(dc.GetDeviceCaps(-1), 0);
  CDC second;
  ASSERT_TRUE(second.CreateCompatibleDC(&dc));
  EXPECT_EQ(second.GetDeviceCaps(HORZRES), 30);
}

TEST(CDC, CompatibleWithNothingAnswersAsASmallScreen) {
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 1024);
  EXPECT_EQ(dc.GetDeviceCaps(VERTRES), 768);
  EXPECT_EQ(dc.GetDeviceCaps(BITSPIXEL), 32);
  CDC noDevice;
  CDC second;
  EXPECT_FALSE(second.CreateCompatibleDC(&noDevice));
}

TEST(CDC, StartsWithAStockBitmapOfOnePixel) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_EQ(dc.GetPixel(0, 0), RGB(0, 0, 0));
  EXPECT_EQ(dc.GetPixel(1, 0), CLR_INVALID);
  CBitmap bitmap;
  bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
  CBitmap* const stock = dc.SelectObject(&bitmap);
  ASSERT_NE(stock, nullptr);
  BITMAP description{};
  stock->GetBitmap(&description);
  EXPECT_EQ(description.bmWidth, 1);
  EXPECT_EQ(description.bmHeight, 1);
  const HGDIOBJ handle = stock->m_hObject;
  EXPECT_TRUE(DeleteObject(handle));
  EXPECT_EQ(SelectObject(dc.m_hDC, handle), bitmap.m_hObject);
}

TEST(CDC, SelectsAndReturnsTheBitmapBefore) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CBitmap first;
  CBitmap second;
  first.CreateBitmap(2, 2, 1, 32, nullptr);
  second.CreateBitmap(3, 3, 1, 32, nullptr);
  CBitmap* const stock = dc.SelectObject(&first);
  EXPECT_EQ(dc.GetPixel(1, 1), RGB(0, 0, 0));
  EXPECT_EQ(dc.SelectObject(&second), &first);
  EXPECT_EQ(dc.GetPixel(2, 2), RGB(0, 0, 0));
  EXPECT_EQ(dc.SelectObject(&second), &second);
  EXPECT_EQ(dc.SelectObject(stock), &second);
  EXPECT_EQ(dc.GetPixel(1, 1), CLR_INVALID);
  EXPECT_EQ(SelectObject(dc.m_hDC, first), stock->m_hObject);
  EXPECT_EQ(SelectObject(dc.m_hDC, stock->m_hObject), first.m_hObject);
}

TEST(CDC, BitmapIsSelectedIntoOneDeviceContextOnly) {
  CDC first;
  CDC second;
  first.CreateCompatibleDC(nullptr);
  second.CreateCompatibleDC(nullptr);
  CBitmap bitmap;
  bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
  EXPECT_NE(first.SelectObject(&bitmap), nullptr);
  EXPECT_EQ(second.SelectObject(&bitmap), nullptr);
  EXPECT_EQ(second.GetPixel(1, 1), CLR_INVALID);
  first.DeleteDC();
  EXPECT_NE(second.SelectObject(&bitmap), nullptr);
  second.DeleteDC();
}

TEST(CDC, StockBitmapOutlivesItsDeviceContextWhereItIsSelected) {
  CDC second;
  second.CreateCompatibleDC(nullptr);
  {
    CDC first;
    first.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
    CBitmap* const stock = first.SelectObject(&bitmap);
    EXPECT_NE(second.SelectObject(stock), nullptr);
    first.DeleteDC();
  }
  EXPECT_EQ(second.SetPixel(0, 0, RGB(1, 2, 3)), RGB(1, 2, 3));
}

TEST(CDC, OnlyMemoryDeviceContextsTakeBitmaps) {
  CWnd window;
  window.CreateOffscreen(2, 2);
  CBitmap bitmap;
  bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
  EXPECT_EQ(window.GetDC()->SelectObject(&bitmap), nullptr);
  EXPECT_EQ(SelectObject(nullptr, bitmap), nullptr);
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CBitmap empty;
  EXPECT_EQ(dc.SelectObject(nullptr), nullptr);
  EXPECT_EQ(dc.SelectObject(&empty), nullptr);
}

TEST(CDC, PixelsOutsideAreInvalid) {
  MemoryPicture picture(3, 2, 32);
  for (const auto& [x, y] :
       {std::pair{-1, 0}, {0, -1}, {3, 0}, {0, 2}, {2147483647, 0}, {0, -2147483647 - 1}}) {
    EXPECT_EQ(picture.dc.GetPixel(x, y), CLR_INVALID);
    EXPECT_EQ(picture.dc.SetPixel(x, y, RGB(1, 1, 1)), CLR_INVALID);
  }
}

TEST(CDC, SetPixelIsOpaqueAt32Bits) {
  MemoryPicture picture(1, 1, 32);
  EXPECT_EQ(picture.dc.SetPixel(0, 0, RGB(1, 2, 3)), RGB(1, 2, 3));
  EXPECT_EQ(picture.bits[0], 3);
  EXPECT_EQ(picture.bits[1], 2);
  EXPECT_EQ(picture.bits[2], 1);
  EXPECT_EQ(picture.bits[3], 255);
}

TEST(CDC, SetPixelTakesTheNearestColor) {
  MemoryPicture picture(1, 1, std::vector<RGBQUAD>{{0, 0, 0, 0}, {0, 0, 200, 0}, {0, 0, 200, 0}});
  // (160, 0, 0) is 40 from (200, 0, 0), of which the first one counts, and 160 from black.
  EXPECT_EQ(picture.dc.SetPixel(0, 0, RGB(160, 0, 0)), RGB(200, 0, 0));
  EXPECT_EQ(picture.bits[0], 1);
  EXPECT_EQ(picture.dc.SetPixel(0, 0, RGB(90, 0, 0)), RGB(0, 0, 0));
  EXPECT_EQ(picture.bits[0], 0);
}

TEST(CDC, RemembersTheStretchMode) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_EQ(dc.SetStretchBltMode(COLORONCOLOR), BLACKONWHITE);
  EXPECT_EQ(dc.SetStretchBltMode(HALFTONE), COLORONCOLOR);
  EXPECT_EQ(dc.SetStretchBltMode(0), 0);
  EXPECT_EQ(dc.SetStretchBltMode(5), 0);
  EXPECT_EQ(dc.SetStretchBltMode(COLORONCOLOR), HALFTONE);
}

TEST(CDC, PutImageOfThisClassRefuses) {
  CDC dc;
  const BYTE pixel[4] = {};
  EXPECT_FALSE(dc.PutImage({0, 0, 1, 1}, pixel, 1, 1, 4));
}

TEST(CDC, FlushSucceeds) { EXPECT_TRUE(GdiFlush()); }

}  // namespace
