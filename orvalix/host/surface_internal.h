/// @file
/// Pixels in memory: where they lie, what format they have, who owns them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "orvalix/host/host_types.h"

namespace orvalix {

/// The colours of an 8-bit picture, by index.
using ColorTable = std::array<RGBQUAD, 256>;

/// Pixels in memory that somebody else owns. A width of 0 or a null `top` means none.
struct Surface {
  std::uint8_t* top = nullptr;   ///< first byte of the top row
  std::ptrdiff_t stride = 0;     ///< bytes from a row to the one below; may be negative
  int width = 0;                 ///< pixels
  int height = 0;                ///< rows
  int bitsPerPixel = 0;          ///< 8, 24 or 32
  ColorTable* colors = nullptr;  ///< of 8-bit pixels, else null

  /// The first byte of row `y`, counted from the top.
  std::uint8_t* Row(std::int64_t y) const { return top + stride * static_cast<std::ptrdiff_t>(y); }
  /// The first byte of a pixel.
  std::uint8_t* Pixel(std::int64_t x, std::int64_t y) const { return Row(y) + x * BytesPerPixel(); }
  int BytesPerPixel() const { return bitsPerPixel / 8; }
  bool Contains(std::int64_t x, std::int64_t y) const {
    return x >= 0 && y >= 0 && x < width && y < height;
  }
};

/// Which row stands first in memory.
enum class RowOrder { kTopFirst, kBottomFirst };

/// Owns the pixels of a surface and its colours.
class PixelMemory {
 public:
  /// True for the depths that pixels can have.
  static bool IsDepth(int bitsPerPixel);
  /// Pixels of zero bytes.
  /// @param width, height 0 or more
  /// @param alignment of a row, in bytes
  /// @return null for other sizes and depths, above 2^31 - 1 bytes, or when memory runs out
  static std::unique_ptr<PixelMemory> Create(std::int64_t width, std::int64_t height,
                                             int bitsPerPixel, RowOrder order, int alignment);

  const Surface& GetSurface() const { return m_surface; }
  /// The row that stands first in memory.
  std::uint8_t* Bytes() { return m_bytes.get(); }
  /// Number of bytes.
  std::int64_t Size() const { return m_rowBytes * m_surface.height; }
  /// Bytes from a row to the next.
  std::int64_t RowBytes() const { return m_rowBytes; }
  ColorTable& Colors() { return m_colors; }

 private:
  std::unique_ptr<std::uint8_t[]> m_bytes;
  std::int64_t m_rowBytes = 0;  ///< with the alignment
  ColorTable m_colors{};        ///< used at 8 bits
  Surface m_surface;            ///< describes m_bytes
};

/// The colours of a device of 8 bits: ten of the system first, ten last, black between.
ColorTable SystemColorTable();

}  // namespace orvalix
