#include "orvalix/host/host_types.h"

#include <gtest/gtest.h>

#include <cstddef>

// The sizes and offsets of the framework on 64-bit systems; files and hosts rely on them.
static_assert(sizeof(BOOL) == 4 && sizeof(BYTE) == 1 && sizeof(WORD) == 2 && sizeof(DWORD) == 4);
static_assert(sizeof(UINT) == 4 && sizeof(LONG) == 4 && sizeof(COLORREF) == 4);
static_assert(sizeof(HANDLE) == 8 && sizeof(HDC) == 8 && sizeof(HGDIOBJ) == 8);
static_assert(sizeof(RECT) == 16 && sizeof(POINT) == 8 && sizeof(SIZE) == 8);
static_assert(sizeof(RGBQUAD) == 4 && sizeof(PALETTEENTRY) == 4 && sizeof(LOGPALETTE) == 8);
static_assert(sizeof(BITMAP) == 32 && offsetof(BITMAP, bmBits) == 24);
static_assert(sizeof(BITMAPFILEHEADER) == 14 && offsetof(BITMAPFILEHEADER, bfOffBits) == 10);
static_assert(sizeof(BITMAPINFOHEADER) == 40 && offsetof(BITMAPINFOHEADER, biClrUsed) == 32);
static_assert(sizeof(BITMAPINFO) == 44 && offsetof(BITMAPINFO, bmiColors) == 40);
static_assert(sizeof(DIBSECTION) == 104 && offsetof(DIBSECTION, dsBmih) == 32);
static_assert(offsetof(DIBSECTION, dshSection) == 88 && offsetof(DIBSECTION, dsOffset) == 96);
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40);
static_assert(offsetof(PIXELFORMATDESCRIPTOR, cDepthBits) == 23);
static_assert(offsetof(PIXELFORMATDESCRIPTOR, dwLayerMask) == 28);
static_assert(sizeof(LOGFONTA) == 60 && offsetof(LOGFONTA, lfFaceName) == 28);
static_assert(sizeof(GLYPHMETRICSFLOAT) == 24 && offsetof(GLYPHMETRICSFLOAT, gmfCellIncX) == 16);

static_assert(SRCCOPY == 0x00CC0020 && BI_RGB == 0 && DIB_RGB_COLORS == 0);
static_assert(HORZRES == 8 && VERTRES == 10 && BITSPIXEL == 12 && PLANES == 14);
static_assert(LOGPIXELSX == 88 && LOGPIXELSY == 90 && COLORONCOLOR == 3);
static_assert(GMEM_MOVEABLE == 2 && GMEM_ZEROINIT == 0x40 && GHND == 0x42);
static_assert(sizeof(HGLOBAL) == 8 && sizeof(SIZE_T) == 8);
static_assert(DEFAULT_PALETTE == 15 && TRUE == 1 && FALSE == 0);

TEST(HostTypes, ColorHoldsRedInItsLowestByte) {
  EXPECT_EQ(RGB(0x11, 0x22, 0x33), 0x00332211U);
  EXPECT_EQ(GetRValue(0x00332211U), 0x11);
  EXPECT_EQ(GetGValue(0x00332211U), 0x22);
  EXPECT_EQ(GetBValue(0x00332211U), 0x33);
}

TEST(HostTypes, ColorTakesTheLowEightBitsOfAComponent) {
  // 256 + 1, -1 and 0x234 keep 1, 255 and 0x34.
  EXPECT_EQ(RGB(257, -1, 0x234), RGB(1, 255, 0x34));
}
