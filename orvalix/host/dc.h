/// @file
/// The framework's device context.
#pragma once

#include <memory>

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

class CBitmap;
class CPalette;
class CWnd;

namespace orvalix {
class DeviceContext;
}

/// What pictures are copied to and from: a bitmap in memory, an off-screen window, pixels of the
/// caller's, or a device of another toolkit.
///
/// Another toolkit brings its devices by deriving: the constructor calls CreateHostDC(), and
/// GetDeviceCaps() and PutImage() are overridden. Everything that is copied to such a device
/// context arrives at its PutImage().
///
/// Pixels of 32 bits are copied among each other with all four bytes; a pixel made from a colour of
/// another depth, or by SetPixel(), has 255 (opaque) in its fourth byte. Pixels of 8 bits take the
/// colour of the table with the smallest sum of squared differences, the first one among equals.
class ORVALIX_API CDC {
 public:
  /// No device yet.
  CDC();
  /// Deletes the device context.
  virtual ~CDC();
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  /// The handle; null when there is no device.
  HDC GetSafeHdc() const;
  /// The device context that a handle belongs to; null for a handle that is none.
  static CDC* FromHandle(HDC dc);

  /// Makes a memory device context, which starts with a stock bitmap of one pixel.
  /// @param dc whose capabilities it answers with; null for 1024 x 768 pixels of 32 bits at 96 per
  ///   inch
  /// @return FALSE when there is a device already, or when memory runs out
  BOOL CreateCompatibleDC(CDC* dc);
  /// Addition: makes a device context over pixels of the caller's, which must outlive it: 4 bytes
  /// per pixel, blue, green, red, alpha.
  /// @param bgra the top row's first byte
  /// @param strideBytes from a row to the one below it; may be negative, but must not let rows
  ///   overlap
  /// @return FALSE without pixels, for sizes below 1, when there is a device already, or when
  ///   memory runs out
  BOOL CreateOnPixels(void* bgra, int width, int height, int strideBytes);
  /// Deletes the device context. What was selected into it is released.
  /// @return FALSE when there is no device, or when it belongs to a window
  BOOL DeleteDC();

  /// Selects a bitmap into a memory device context.
  /// @return the bitmap before; null, with nothing changed, on failure: see ::SelectObject()
  CBitmap* SelectObject(CBitmap* bitmap);
  /// Selects a palette.
  /// @return the palette before; null on failure
  CPalette* SelectPalette(CPalette* palette, BOOL forceBackground);
  /// Gives the device the colours of the selected palette: see ::RealizePalette().
  /// @return colours that changed
  UINT RealizePalette();

  /// A property of the device: HORZRES, VERTRES, BITSPIXEL, PLANES, LOGPIXELSX or LOGPIXELSY. An
  /// off-screen window and pixels of the caller's answer with their own size, a memory device
  /// context as the one that it is compatible with. 0 for every other index and without a device.
  virtual int GetDeviceCaps(int index) const;

  /// Copies pixels. Parts outside of the source leave the destination as it was; source and
  /// destination may overlap.
  /// @param operation SRCCOPY
  /// @return FALSE, with nothing copied, for other operations, negative sizes, a source without
  ///   pixels, or when memory runs out; TRUE also when there is nothing to copy
  BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
              DWORD operation);
  /// Copies pixels, dropping or repeating them to fill the destination, whatever the stretch mode.
  /// A negative extent counts from its coordinate to the left or up, that pixel included, and
  /// mirrors.
  /// @return as BitBlt(), but for negative sizes
  BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                  int sourceWidth, int sourceHeight, DWORD operation);
  /// Stretches a part of a device-independent bitmap over the device, as StretchBlt() does. Bitmaps
  /// of 1, 4, 8, 16 (5 bits per component), 24 and 32 bits are understood, all uncompressed.
  /// @param sourceX, sourceY the part's corner: lower left for a bitmap with the bottom row first,
  ///   upper left for one with the top row first
  /// @param bits the whole bitmap
  /// @param info header with its colour table
  /// @param usage DIB_RGB_COLORS
  /// @param operation SRCCOPY
  /// @return the bitmap's rows; 0 on failure
  virtual int StretchDIBits(int x, int y, int width, int height, int sourceX, int sourceY,
                            int sourceWidth, int sourceHeight, const void* bits,
                            const BITMAPINFO* info, UINT usage, DWORD operation);
  /// Addition: shows a finished picture. Called for devices without pixels in memory; this one
  /// refuses.
  /// @param destination where to stretch it, in pixels of the device; may reach outside
  /// @param bgra the top row's first byte: blue, green, red and 255 for each pixel; only valid
  ///   during the call
  /// @param width, height pixels, 1 or more
  /// @param strideBytes from a row to the one below it
  /// @return FALSE when it could not be shown
  virtual BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                        int strideBytes);

  /// The colour of a pixel; CLR_INVALID outside of the picture or without pixels in memory.
  COLORREF GetPixel(int x, int y) const;
  /// Sets a pixel.
  /// @return the colour that it really has now; CLR_INVALID outside of the picture or without
  ///   pixels in memory
  COLORREF SetPixel(int x, int y, COLORREF color);
  /// Remembers a stretch mode, BLACKONWHITE to HALFTONE; all of them drop or repeat pixels.
  /// @return the mode before, at first BLACKONWHITE; 0 for an unknown mode or without a device
  int SetStretchBltMode(int mode);

  HDC m_hDC = nullptr;  ///< the handle; null when there is no device

 protected:
  /// Makes a device context without pixels in memory, for deriving classes.
  /// @return FALSE when there is a device already, or when memory runs out
  BOOL CreateHostDC();

 private:
  friend class CWnd;
  BOOL Adopt(std::unique_ptr<orvalix::DeviceContext> context);

  std::unique_ptr<orvalix::DeviceContext> m_context;  ///< what m_hDC stands for
};
