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
inline constexpr BOOL TRUE = 1;  ///< what a BOOL is when it holds
#endif
#if !defined(FALSE)
inline constexpr BOOL FALSE = 0;  ///< what a BOOL is when it doesn't hold
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
  LONG left;    ///< first column
  LONG top;     ///< first row
  LONG right;   ///< column after the last
  LONG bottom;  ///< row after the last
};

/// A position.
struct POINT {
  LONG x;  ///< to the right
  LONG y;  ///< downwards
};

/// An extent.
struct SIZE {
  LONG cx;  ///< width
  LONG cy;  ///< height
};

/// A colour of a bitmap's colour table.
struct RGBQUAD {
  BYTE rgbBlue;      ///< 0 to 255
  BYTE rgbGreen;     ///< 0 to 255
  BYTE rgbRed;       ///< 0 to 255
  BYTE rgbReserved;  ///< 0
};

/// What a bitmap looks like in memory.
struct BITMAP {
  LONG bmType;        ///< 0
  LONG bmWidth;       ///< pixels
  LONG bmHeight;      ///< rows, positive
  LONG bmWidthBytes;  ///< bytes from a row to the next
  WORD bmPlanes;      ///< 1
  WORD bmBitsPixel;   ///< bits of a pixel
  void* bmBits;       ///< the pixels of a section; null for other bitmaps
};

#pragma pack(push, 2)
/// The first 14 bytes of a bitmap file.
struct BITMAPFILEHEADER {
  WORD bfType;       ///< 0x4D42
  DWORD bfSize;      ///< bytes of the file
  WORD bfReserved1;  ///< 0
  WORD bfReserved2;  ///< 0
  DWORD bfOffBits;   ///< where the pixels begin, from the start of the file
};
#pragma pack(pop)

/// The format of a device-independent bitmap.
struct BITMAPINFOHEADER {
  DWORD biSize;          ///< 40, or more when a longer header follows
  LONG biWidth;          ///< pixels
  LONG biHeight;         ///< positive: bottom row first; negative: top row first
  WORD biPlanes;         ///< 1
  WORD biBitCount;       ///< bits of a pixel: 1, 4, 8, 16, 24 or 32
  DWORD biCompression;   ///< BI_RGB, BI_RLE8, BI_RLE4 or BI_BITFIELDS
  DWORD biSizeImage;     ///< bytes of the pixels; 0 will do without compression
  LONG biXPelsPerMeter;  ///< resolution across
  LONG biYPelsPerMeter;  ///< resolution down
  DWORD biClrUsed;       ///< entries in the colour table; 0: as many as the bit count allows
  DWORD biClrImportant;  ///< entries that are needed; 0: all
};

/// A header with the start of its colour table.
struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;  ///< format
  RGBQUAD bmiColors[1];        ///< as many follow one another as the header says
};

/// What is known of a bitmap made by CreateDIBSection().
struct DIBSECTION {
  BITMAP dsBm;              ///< the bitmap in memory
  BITMAPINFOHEADER dsBmih;  ///< its format
  DWORD dsBitfields[3];     ///< 0
  HANDLE dshSection;        ///< null
  DWORD dsOffset;           ///< 0
};

/// A colour of a palette.
struct PALETTEENTRY {
  BYTE peRed;    ///< 0 to 255
  BYTE peGreen;  ///< 0 to 255
  BYTE peBlue;   ///< 0 to 255
  BYTE peFlags;  ///< 0
};

/// The description of a palette; `palNumEntries` entries follow one another.
struct LOGPALETTE {
  WORD palVersion;              ///< 0x300
  WORD palNumEntries;           ///< number of entries
  PALETTEENTRY palPalEntry[1];  ///< the first entry
};

/// How OpenGL stores pixels.
struct PIXELFORMATDESCRIPTOR {
  WORD nSize;            ///< 40
  WORD nVersion;         ///< 1
  DWORD dwFlags;         ///< PFD_ flags
  BYTE iPixelType;       ///< PFD_TYPE_RGBA or PFD_TYPE_COLORINDEX
  BYTE cColorBits;       ///< bits of a colour
  BYTE cRedBits;         ///< bits of red
  BYTE cRedShift;        ///< lowest bit of red in a pixel
  BYTE cGreenBits;       ///< bits of green
  BYTE cGreenShift;      ///< lowest bit of green in a pixel
  BYTE cBlueBits;        ///< bits of blue
  BYTE cBlueShift;       ///< lowest bit of blue in a pixel
  BYTE cAlphaBits;       ///< bits of alpha
  BYTE cAlphaShift;      ///< lowest bit of alpha in a pixel
  BYTE cAccumBits;       ///< bits of the accumulation buffer
  BYTE cAccumRedBits;    ///< bits of red in the accumulation buffer
  BYTE cAccumGreenBits;  ///< bits of green in the accumulation buffer
  BYTE cAccumBlueBits;   ///< bits of blue in the accumulation buffer
  BYTE cAccumAlphaBits;  ///< bits of alpha in the accumulation buffer
  BYTE cDepthBits;       ///< bits of the depth buffer
  BYTE cStencilBits;     ///< bits of the stencil buffer
  BYTE cAuxBuffers;      ///< number of auxiliary buffers
  BYTE iLayerType;       ///< PFD_MAIN_PLANE
  BYTE bReserved;        ///< 0
  DWORD dwLayerMask;     ///< 0
  DWORD dwVisibleMask;   ///< 0
  DWORD dwDamageMask;    ///< 0
};

/// The description of a font.
struct LOGFONTA {
  LONG lfHeight;          ///< height in pixels; below 0: of characters without the room above them
  LONG lfWidth;           ///< mean width in pixels; 0: as the font has it
  LONG lfEscapement;      ///< direction of lines, tenths of a degree
  LONG lfOrientation;     ///< direction of characters, tenths of a degree
  LONG lfWeight;          ///< 0 to 1000, see FW_NORMAL
  BYTE lfItalic;          ///< nonzero: slanted
  BYTE lfUnderline;       ///< nonzero: underlined
  BYTE lfStrikeOut;       ///< nonzero: struck out
  BYTE lfCharSet;         ///< character set
  BYTE lfOutPrecision;    ///< how closely the font has to fit
  BYTE lfClipPrecision;   ///< how characters are cut at edges
  BYTE lfQuality;         ///< how well characters are drawn
  BYTE lfPitchAndFamily;  ///< kind of face to take when the named one is missing
  char lfFaceName[LF_FACESIZE];  ///< name of the face, with a terminator
};

/// A position in fractions.
struct POINTFLOAT {
  float x;  ///< to the right
  float y;  ///< upwards
};

/// The place and size of a character, in em.
struct GLYPHMETRICSFLOAT {
  float gmfBlackBoxX;           ///< width of the black box
  float gmfBlackBoxY;           ///< height of the black box
  POINTFLOAT gmfptGlyphOrigin;  ///< upper left corner of the black box
  float gmfCellIncX;            ///< step to the next character
  float gmfCellIncY;            ///< the same, upwards
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
