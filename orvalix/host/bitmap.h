/// @file
/// The framework's bitmap.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/gdi_object.h"
#include "orvalix/host/host_types.h"

class CDC;

/// A bitmap of 8, 24 or 32 bits per pixel. Every creating member fails while a bitmap is owned, for
/// sizes below 1, for more than 2^31 - 1 bytes and when memory runs out.
class ORVALIX_API CBitmap : public CGdiObject {
 public:
  /// Makes a bitmap in the depth, and at 8 bits with the colours, of a device context, filled with
  /// zero bytes. For a memory device context those of its bitmap count, or, when none was selected
  /// yet, those of the device that it is compatible with.
  BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
  /// Makes a bitmap with its pixels. At 8 bits it has the system's colours.
  /// @param planes 1
  /// @param bitCount 8, 24 or 32
  /// @param bits rows from the top, each a multiple of 2 bytes; null fills with zero bytes
  BOOL CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits);
  /// Describes the bitmap.
  /// @return bytes written, 0 when there is no bitmap or no record to fill
  int GetBitmap(BITMAP* bitmap) const;
  /// Copies pixels out, rows from the top.
  /// @param count room in bytes
  /// @return bytes copied
  DWORD GetBitmapBits(DWORD count, void* bits) const;
  /// Copies pixels in, rows from the top.
  /// @return bytes copied
  DWORD SetBitmapBits(DWORD count, const void* bits);

  /// The owner of a handle, or a stand-in that lives as long as the bitmap and owns nothing. Null
  /// for a handle that is no bitmap.
  static CBitmap* FromHandle(HBITMAP bitmap);
  /// The handle.
  operator HBITMAP() const;
};
