/// @file
/// The plain types, records and constants of the host's framework, in the framework's own layout.
#pragma once

#include <cstddef>
#include <cstdint>

using BOOL = int;                ///< 0 is false, everything else true
using BYTE = std::uint8_t;       ///< 8 bits, unsigned
using WORD = std::uint16_t;      ///< 16 bits, unsigned
using DWORD = std::uint32_t;     ///< 32 bits, unsigned
using UINT = unsigned int;       ///< 32 bits, unsigned
using LONG = std::int32_t;       ///< 32 bits, signed, on every machine
using COLORREF = std::uint32_t;  ///< red in bits 0 to 7, green in 8 to 15, blue in 16 to 23

using SIZE_T = std::size_t;  ///< a number of bytes

struct HDC__;
struct HWND__;
struct HBITMAP__;
struct HPALETTE__;

using HANDLE = void*;          ///< an open file or another system object
using HGDIOBJ = void*;         ///< a bitmap or a palette
using HGLOBAL = HANDLE;        ///< a block of memory
using HDC = HDC__*;            ///< a device context
using HWND = HWND__*;          ///< a window
using HBITMAP = HBITMAP__*;    ///< a bitmap
using HPALETTE = HPALETTE__*;  ///< a palette

// Other libraries' headers may have made macros of these two.
#if !defined(TRUE)
inline constexpr BOOL TRUE = 1;
#endif
#if !defined(FALSE)
inline constexpr BOOL FALSE = 0;
#endif

inline constexpr DWORD SRCCOPY =
    0x00CC0020;                           ///< raster operation: the source replaces the destination
inline constexpr DWORD BI_RGB = 0;        ///< bitmap compression: none
inline constexpr DWORD BI_RLE8 = 1;       ///< bitmap compression: runs of pixels of 8 bits
inline constexpr DWORD BI_RLE4 = 2;       ///< bitmap compression: runs of pixels of 4 bits
inline constexpr DWORD BI_BITFIELDS = 3;  ///< no compression: masks tell the bits of components
inline constexpr UINT DIB_RGB_COLORS = 0;            ///< a colour table holds colours
inline constexpr UINT DIB_PAL_COLORS = 1;            ///< a colour table holds palette indices
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;  ///< "no colour": what a failed look-up gives

inline constexpr int HORZRES = 8;      ///< device capability: width in pixels
inline constexpr int VERTRES = 10;     ///< device capability: height in pixels
inline constexpr int BITSPIXEL = 12;   ///< device capability: bits per pixel
inline constexpr int PLANES = 14;      ///< device capability: colour planes
inline constexpr int LOGPIXELSX = 88;  ///< device capability: pixels per inch across
inline constexpr int LOGPIXELSY = 90;  ///< device capability: pixels per inch down

inline constexpr int BLACKONWHITE = 1;  ///< stretch mode that a new device context has
inline constexpr int WHITEONBLACK = 2;  ///< stretch mode
inline constexpr int COLORONCOLOR = 3;  ///< stretch mode: drop or repeat pixels
inline constexpr int HALFTONE = 4;      ///< stretch mode

inline constexpr int DEFAULT_PALETTE = 15;  ///< stock object: the 20 static system colours

inline constexpr UINT GMEM_MOVEABLE = 0x02;  ///< block of memory: behind a handle
inline constexpr UINT GMEM_ZEROINIT = 0x40;  ///< block of memory: filled with zero bytes
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;  ///< block of memory: both

inline constexpr UINT MB_OK = 0;                  ///< message box with one button
inline constexpr UINT MB_ICONSTOP = 0x10;         ///< message box with the sign of an error
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;  ///< message box with the sign of a warning
inline constexpr int IDOK = 1;                    ///< answer of a message box

inline constexpr DWORD PFD_DOUBLEBUFFER = 0x00000001;    ///< pixel format: two colour buffers
inline constexpr DWORD PFD_DRAW_TO_WINDOW = 0x00000004;  ///< pixel format: for windows
inline constexpr DWORD PFD_DRAW_TO_BITMAP = 0x00000008;  ///< pixel format: for bitmaps
inline constexpr DWORD PFD_SUPPORT_GDI = 0x00000010;     ///< pixel format: other drawing may mix in
inline constexpr DWORD PFD_SUPPORT_OPENGL = 0x00000020;  ///< pixel format: OpenGL may draw
inline constexpr DWORD PFD_GENERIC_FORMAT = 0x00000040;  ///< pixel format: drawn in software
inline constexpr DWORD PFD_NEED_PALETTE = 0x00000080;    ///< pixel format: shows through a palette
inline constexpr BYTE PFD_TYPE_RGBA = 0;                 ///< pixel type: colour components
inline constexpr BYTE PFD_TYPE_COLORINDEX = 1;           ///< pixel type: colour indices
inline constexpr BYTE PFD_MAIN_PLANE = 0;                ///< layer: the one picture

inline constexpr LONG FW_NORMAL = 400;  ///< font weight
inline constexpr LONG FW_BOLD = 700;    ///< font weight
inline constexpr int LF_FACESIZE = 32;  ///< bytes of a face name with its terminator

/// A rectangle: left and top edges are inside, right and bottom edges outside.
struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};

/// A position.
struct POINT {
  LONG x;
  LONG y;
};

/// An extent.
struct SIZE {
  LONG cx;
  LONG cy;
};

/// A colour of a bitmap's colour table.
struct RGBQUAD {
  BYTE rgbBlue;
  BYTE rgbGreen;
  BYTE rgbRed;
  BYTE rgbReserved;  ///< 0
};

/// What a bitmap looks like in memory.
struct BITMAP {
  LONG bmType;        ///< 0
  LONG bmWidth;       ///< pixels
  LONG bmHeight;      ///< rows, positive
  LONG bmWidthBytes;  ///< bytes from a row to the next
  WORD bmPlanes;      ///< 1
  WORD bmBitsPixel;
  void* bmBits;  ///< the pixels of a section; null for other bitmaps
};

#pragma pack(push, 2)
/// The first 14 bytes of a bitmap file.
struct BITMAPFILEHEADER {
  WORD bfType;  ///< 0x4D42
  DWORD bfSize;
  WORD bfReserved1;
  WORD bfReserved2;
  DWORD bfOffBits;
};
#pragma pack(pop)

/// The format of a device-independent bitmap.
struct BITMAPINFOHEADER {
  DWORD biSize;  ///< 40, or more when a longer header follows
  LONG biWidth;
  LONG biHeight;  ///< positive: bottom row first; negative: top row first
  WORD biPlanes;
  WORD biBitCount;
  DWORD biCompression;
  DWORD biSizeImage;
  LONG biXPelsPerMeter;
  LONG biYPelsPerMeter;
  DWORD biClrUsed;  ///< entries in the colour table; 0: as many as the bit count allows
  DWORD biClrImportant;
};

/// A header with the start of its colour table.
struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
};

/// What is known of a bitmap made by CreateDIBSection().
struct DIBSECTION {
  BITMAP dsBm;
  BITMAPINFOHEADER dsBmih;
  DWORD dsBitfields[3];  ///< 0
  HANDLE dshSection;     ///< null
  DWORD dsOffset;        ///< 0
};

/// A colour of a palette.
struct PALETTEENTRY {
  BYTE peRed;
  BYTE peGreen;
  BYTE peBlue;
  BYTE peFlags;
};

/// The description of a palette; `palNumEntries` entries follow one another.
struct LOGPALETTE {
  WORD palVersion;  ///< 0x300
  WORD palNumEntries;
  PALETTEENTRY palPalEntry[1];
};

/// How OpenGL stores pixels.
struct PIXELFORMATDESCRIPTOR {
  WORD nSize;  ///< 40
  WORD nVersion;
  DWORD dwFlags;
  BYTE iPixelType;
  BYTE cColorBits;
  BYTE cRedBits;
  BYTE cRedShift;
  BYTE cGreenBits;
  BYTE cGreenShift;
  BYTE cBlueBits;
  BYTE cBlueShift;
  BYTE cAlphaBits;
  BYTE cAlphaShift;
  BYTE cAccumBits;
  BYTE cAccumRedBits;
  BYTE cAccumGreenBits;
  BYTE cAccumBlueBits;
  BYTE cAccumAlphaBits;
  BYTE cDepthBits;
  BYTE cStencilBits;
  BYTE cAuxBuffers;
  BYTE iLayerType;
  BYTE bReserved;
  DWORD dwLayerMask;
  DWORD dwVisibleMask;
  DWORD dwDamageMask;
};

/// The description of a font.
struct LOGFONTA {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  char lfFaceName[LF_FACESIZE];
};

/// A position in fractions.
struct POINTFLOAT {
  float x;
  float y;
};

/// The place and size of a character, in em.
struct GLYPHMETRICSFLOAT {
  float gmfBlackBoxX;
  float gmfBlackBoxY;
  POINTFLOAT gmfptGlyphOrigin;  ///< upper left corner of the black box
  float gmfCellIncX;
  float gmfCellIncY;
};

/// Packs a colour; of each component the low 8 bits count.
constexpr COLORREF RGB(int red, int green, int blue) {
  return static_cast<COLORREF>(red & 0xFF) | static_cast<COLORREF>(green & 0xFF) << 8 |
         static_cast<COLORREF>(blue & 0xFF) << 16;
}

/// Red of a packed colour.
constexpr BYTE GetRValue(COLORREF color) { return static_cast<BYTE>(color & 0xFF); }

/// Green of a packed colour.
constexpr BYTE GetGValue(COLORREF color) { return static_cast<BYTE>((color >> 8) & 0xFF); }

/// Blue of a packed colour.
constexpr BYTE GetBValue(COLORREF color) { return static_cast<BYTE>((color >> 16) & 0xFF); }
