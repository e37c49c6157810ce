/// @file
/// How the pixels and colours of a bitmap section are described to the platform.
#pragma once

#include <array>
#include <cstdint>

#include "orvalix/host/host.h"

namespace orvalix {

/// Entries of a section's colour table.
inline constexpr UINT kSectionColors = 256;

/// BITMAPINFO with the colours of an 8-bit bitmap.
struct SectionInfo {
  BITMAPINFOHEADER header;
  std::array<RGBQUAD, kSectionColors> colors;

  const BITMAPINFO* Get() const { return reinterpret_cast<const BITMAPINFO*>(this); }
};

/// Bytes of a row: whole groups of four.
inline std::int64_t RowBytes(int bitCount, int width) {
  return ((std::int64_t{bitCount} * width + 31) >> 5) * 4;
}

}  // namespace orvalix
