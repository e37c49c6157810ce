/// @file
/// Device-independent bitmaps as the caller describes them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// The format that a header tells.
struct DibFormat {
  std::int64_t width;   ///< pixels, 1 or more
  std::int64_t height;  ///< rows, 1 or more
  RowOrder order;
  int bitsPerPixel;       ///< 1, 4, 8, 16, 24 or 32
  std::int64_t rowBytes;  ///< a multiple of 4
};

/// Reads a header. Nothing for a null or impossible one: see CreateDIBSection().
std::optional<DibFormat> ReadDibFormat(const BITMAPINFO* info, UINT usage);

/// The colours behind the header of a bitmap of 8 bits or fewer; black beyond its table.
ColorTable ReadDibColors(const BITMAPINFO& info, int bitsPerPixel);

/// The rows of a device-independent bitmap, as a surface to copy from.
class DibSource {
 public:
  /// @param bits the rows that the caller holds
  /// @param rows how many they are, counted as they stand in memory
  /// @return null for a null or impossible bitmap, or when memory runs out
  static std::unique_ptr<DibSource> Create(const DibFormat& format, const BITMAPINFO& info,
                                           const void* bits, std::int64_t rows);

  const Surface& GetSurface() const { return m_surface; }

 private:
  bool Expand(const DibFormat& format);

  Surface m_surface;                        ///< the caller's rows, or the expanded ones
  ColorTable m_colors{};                    ///< of 8 bits or fewer
  std::unique_ptr<PixelMemory> m_expanded;  ///< rows of a depth that surfaces don't have
};

}  // namespace orvalix
