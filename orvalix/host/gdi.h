/// @file
/// The framework's free drawing functions. Each accepts any handle: one that is null, deleted or of
/// another kind makes the call fail.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

/// Makes a bitmap whose pixels the caller reads and writes in memory, filled with zero bytes.
/// @param dc not consulted
/// @param info header of 40 bytes or more, uncompressed; a positive height puts the bottom row
///   first, a negative one the top row. At 8 bits a colour table follows the header: biClrUsed
///   entries, or 256 when that is 0. At more bits nothing behind the header is read.
/// @param usage DIB_RGB_COLORS
/// @param bits receives the pixels, which belong to the bitmap; may be null
/// @param section, offset not supported: null and 0
/// @return null, and `*bits` null, for a width below 1, a height of 0, more than 2^31 - 1 bytes,
/// bit
///   counts other than 8, 24 and 32, or when memory runs out
ORVALIX_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits,
                                     HANDLE section, DWORD offset);

/// Copies out the colours of the 8-bit section that is selected into a memory device context.
/// @return colours copied; 0 for every other bitmap
ORVALIX_API UINT GetDIBColorTable(HDC dc, UINT first, UINT count, RGBQUAD* colors);

/// Replaces colours of the 8-bit section that is selected into a memory device context.
/// @return colours replaced; 0 for every other bitmap
ORVALIX_API UINT SetDIBColorTable(HDC dc, UINT first, UINT count, const RGBQUAD* colors);

/// Makes a palette.
/// @return null without a description or entries, or when memory runs out
ORVALIX_API HPALETTE CreatePalette(const LOGPALETTE* description);

/// Copies colours of a palette out; with null `entries`, tells their number.
/// @return colours copied
ORVALIX_API UINT GetPaletteEntries(HPALETTE palette, UINT first, UINT count, PALETTEENTRY* entries);

/// Replaces colours of a palette; those of the stock palette stay.
/// @return colours replaced
ORVALIX_API UINT SetPaletteEntries(HPALETTE palette, UINT first, UINT count,
                                   const PALETTEENTRY* entries);

/// Describes a drawing object: a section as DIBSECTION (its header always with a positive height),
/// or as BITMAP when `size` has no room for more; another bitmap as BITMAP; a palette as the WORD
/// number of its colours.
/// @param description null asks for the bytes needed
/// @return bytes written; 0 when `size` is too small
ORVALIX_API int GetObjectA(HGDIOBJ object, int size, void* description);

/// Deletes a bitmap or a palette.
/// @return FALSE for an object that is selected into a device context; TRUE, with nothing done, for
///   stock objects
ORVALIX_API BOOL DeleteObject(HGDIOBJ object);

/// Selects a bitmap into a memory device context.
/// @return the bitmap before; null, with nothing changed, for other objects and device contexts and
///   for a bitmap that is selected into another device context
ORVALIX_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

/// Selects a palette into a device context. A palette may be selected into several.
/// @param forceBackground not consulted
/// @return the palette before
ORVALIX_API HPALETTE SelectPalette(HDC dc, HPALETTE palette, BOOL forceBackground);

/// Gives an off-screen window of 8 bits per pixel the colours of the palette in its device context,
/// each at its own index. Other devices need no colours, and the stock palette brings none.
/// @return colours that changed
ORVALIX_API UINT RealizePalette(HDC dc);

/// The palette of the 20 static system colours for DEFAULT_PALETTE; null for every other number.
ORVALIX_API HGDIOBJ GetStockObject(int index);

/// Stretches a part of a device-independent bitmap over a rectangle of the device: see
/// CDC::StretchDIBits().
ORVALIX_API int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                              int sourceWidth, int sourceHeight, const void* bits,
                              const BITMAPINFO* info, UINT usage, DWORD operation);

/// Copies a part of a device-independent bitmap, of which the caller holds `lineCount` rows, to the
/// device pixel by pixel.
/// @param sourceX, sourceY the part's corner: lower left for a bitmap with the bottom row first,
///   upper left for one with the top row first
/// @param firstLine, lineCount the rows that `bits` holds, counted as they stand in memory
/// @return rows held; 0 on failure
ORVALIX_API int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX,
                                  int sourceY, UINT firstLine, UINT lineCount, const void* bits,
                                  const BITMAPINFO* info, UINT usage);

/// Ends all pending drawing, of which there never is any.
/// @return TRUE
ORVALIX_API BOOL GdiFlush();
