/// @file
/// The framework's palette.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/gdi_object.h"
#include "orvalix/host/host_types.h"

/// A list of colours that 8-bit pictures index.
class ORVALIX_API CPalette : public CGdiObject {
 public:
  /// Makes a palette.
  /// @return FALSE without a description or entries, while a palette is owned, or when memory runs
  ///   out
  BOOL CreatePalette(const LOGPALETTE* description);
  /// Number of colours; 0 when there is no palette.
  int GetEntryCount() const;
  /// Copies colours out.
  /// @param entries room for `count` colours; null asks for the number of colours
  /// @return colours copied
  UINT GetPaletteEntries(UINT first, UINT count, PALETTEENTRY* entries) const;
  /// Replaces colours.
  /// @return colours replaced
  UINT SetPaletteEntries(UINT first, UINT count, const PALETTEENTRY* entries);

  /// The owner of a handle, or a stand-in that lives as long as the palette and owns nothing. Null
  /// for a handle that is no palette.
  static CPalette* FromHandle(HPALETTE palette);
  /// The handle.
  operator HPALETTE() const;
};
