/// @file
/// Converting rows of pixels from one format to another.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "orvalix/host/nearest_color_internal.h"
#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// The fourth byte of 32-bit pixels that are made from a colour.
inline constexpr std::uint8_t kOpaque = 255;

/// Gives pixels of 32 bits that fourth byte.
void MakeOpaque(std::uint8_t* row, int count);

/// The colour of a pixel.
RGBQUAD ReadPixel(const Surface& surface, std::int64_t x, std::int64_t y);

/// Gives a pixel a colour, or the closest one of its table.
void WritePixel(const Surface& surface, std::int64_t x, std::int64_t y, const RGBQUAD& color);

/// Converts pixels of one surface's format to another's. Equal formats are copied byte by byte.
class RowConverter {
 public:
  /// The formats and colour tables of both; their pixels are not touched.
  RowConverter(const Surface& from, const Surface& to);
  /// Converts `count` pixels. The rows may overlap when the formats are equal.
  void Convert(const std::uint8_t* from, std::uint8_t* to, int count);

 private:
  void ConvertToIndices(const std::uint8_t* from, std::uint8_t* to, int count);
  void ConvertToColors(const std::uint8_t* from, std::uint8_t* to, int count) const;

  int m_fromBytes;                                 ///< per pixel
  int m_toBytes;                                   ///< per pixel
  bool m_sameFormat;                               ///< colours of the table included
  const ColorTable* m_fromColors;                  ///< of 8-bit pixels
  std::optional<NearestColor> m_nearest;           ///< when colours become indices
  std::array<std::uint8_t, 256> m_indexByIndex{};  ///< when indices become other indices
};

}  // namespace orvalix
