/// @file
/// The off-screen bitmap that pictures are drawn into.
#pragma once

#include <array>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

/// A device-independent bitmap whose pixels stand in memory, bottom row first. The rendering
/// context draws into it; the view copies it to windows, prints it and writes it to files.
///
/// Where a colour table is read or written, the bitmap must be selected into its device context.
class ORVALIX_API CDIBSection {
 public:
  /// Creates the bitmap in the colour depth of `windowDC`; without one, an empty section. The
  /// palette of an 8-bit bitmap is made by CreateRGBPalette(), which a rendering context calls.
  /// @param windowDC device context whose depth the bitmap takes; used only here
  /// @param targetDC device context that the bitmap will be selected into; not owned
  /// @param width, height size in pixels; one that isn't positive makes an empty section
  /// @param bitsPerPixel not consulted: the window's depth decides
  CDIBSection(CDC* windowDC, CDC* targetDC, int width, int height, int bitsPerPixel);
  /// Deletes the bitmap and the palette.
  ~CDIBSection();
  CDIBSection(const CDIBSection&) = delete;
  CDIBSection& operator=(const CDIBSection&) = delete;

  /// The header of the bitmap as the platform reports it; all 0 when there is no bitmap.
  BITMAPINFOHEADER GetDIBHeader() const;
  /// Pixels in a row.
  int DIBWidth() const;
  /// Number of rows.
  int DIBHeight() const;
  /// Bytes from a row to the next: a multiple of 4.
  int StorageWidth() const;
  /// Number of colours in the table of a bitmap with that header; 0 above 8 bits per pixel.
  unsigned short DIBNumColors(const BITMAPINFOHEADER& header) const;
  /// Size in bytes of the colour table of a bitmap with that header.
  unsigned short PaletteSize(const BITMAPINFOHEADER& header) const;
  /// The pixels, bottom row first; null when there is no bitmap or its handle was deleted.
  void* FindDIBBits() const;
  /// Reads the colour table of the bitmap in the target device context into this object.
  void GetCDIBColorTable();
  /// Gives the bitmap the colours of a palette. Null does nothing.
  void SetCDIBColorTable(HPALETTE palette);
  /// Makes the palette of an 8-bit bitmap and gives the bitmap its colours; does nothing for other
  /// depths.
  /// @throws CErr3D type 2, class 9, "CreateRGBPalette"
  void CreateRGBPalette();
  /// Writes the bitmap as a bitmap file: file header, information header, 256 colours whatever the
  /// depth, pixels from byte 1078 on. A bitmap that isn't selected has the colours as last read or
  /// set.
  /// @throws CErr3D class 9, "SaveDIB": type 8 when there is no bitmap or no target device context,
  ///   type 2 without memory for the colours, type 6 when the file can't be made, type 7 when a
  ///   write fails
  void SaveDIB(const CString& fileName) const;
  /// Packs the bitmap into one block of memory, as a clipboard takes it: information header, 256
  /// colours whatever the depth (as in SaveDIB()), pixels from byte 1064 on.
  /// @return a movable block, not locked, which belongs to the caller (GlobalFree())
  /// @throws CErr3D class 9, "GetDIBSectionAsDIB": type 1 without memory for the block, type 2
  ///   without memory for the colours, type 8 when there is no bitmap or no target device context
  HGLOBAL GetDIBSectionAsDIB() const;

  /// @name Printing
  /// @{

  /// The part of the page that print mode 3 fills, in fractions of the page. Default 0, 0, 1, 1.
  void SetNormPrintRect(const REALRECT& rectangle);
  void GetNormPrintRect(REALRECT& rectangle) const;
  /// Where the bitmap goes on a page, in pixels of the printer.
  ///
  /// Mode 1 fits the bitmap, from the upper left corner on and in its proportions: on a page that
  /// is as tall as wide in inches, or taller, it fills the width, else the height, and may reach
  /// beyond the page. Mode 3 takes `normalised`; any other mode the whole page. Fractions of a
  /// pixel are dropped, numbers that no coordinate holds become the nearest one. At the end a
  /// margin of a third of an inch is taken away on each side, so that a small place turns inside
  /// out.
  ///
  /// A printer without a resolution counts as one with square pixels, and has no margin.
  /// @param printer null leaves `out` as it was
  void CalculatePrintRect(CDC* printer, RECT& out, unsigned short mode,
                          const REALRECT& normalised) const;
  /// Stretches the bitmap over the place on the page that CalculatePrintRect() tells; where that is
  /// empty or inside out, nothing is printed. The printer is given strips of rows, from the top
  /// down, of at most 4 MiB each (or one row), which meet without a gap. Job and page belong to
  /// the host, which has started both.
  /// @param title not consulted, may be null: the host names the job
  /// @throws CErr3D class 9, "PrintDIB": type 8 when there is no bitmap, type 9 without a printer
  ///   or when it refuses a strip; the strips before that one are on the page
  void PrintDIB(CDC* printer, unsigned short mode, const char* title) const;
  /// As PrintDIB().
  void PrintDIBSection(CDC* printer, unsigned short mode, const char* title) const;
  /// @}

  /// Addition: the platform's handle of the bitmap; null when there is none.
  HBITMAP GetBitmapHandle() const;
  /// Addition: the platform's handle of the palette; null until CreateRGBPalette() has made one,
  /// and when the depth needs none.
  HPALETTE GetPaletteHandle() const;
  /// Addition: the device context that the bitmap is drawn through.
  CDC* GetTargetDC() const;
  /// Addition: the colours as last read or set, 256 entries; all 0 at first.
  const RGBQUAD* GetColorTable() const;

 private:
  void CreateCDIBSection(CDC* windowDC, CDC* targetDC, int width, int height, int bitsPerPixel);
  /// Stores 256 colours: those of the selected bitmap, else as last read or set.
  void CopyColors(RGBQUAD* colors) const;
  /// Sends `rows` rows, from `firstRow` on as counted from the top, to their share of the place.
  /// @return false when the printer refuses
  bool PrintBand(CDC* printer, const RECT& place, int firstRow, int rows) const;

  void* m_bits;                           ///< the pixels; they belong to m_bitmap
  CBitmap m_bitmap;                       ///< lives on while a device context holds it
  std::array<RGBQUAD, 256> m_colorTable;  ///< as last read or set
  REALRECT m_normPrintRect;               ///< fractions of the page, for print mode 3
  CPalette m_palette;                     ///< of an 8-bit bitmap
  CDC* m_targetDC;                        ///< not owned
};
