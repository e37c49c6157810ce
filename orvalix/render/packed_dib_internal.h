/// @file
/// Bitmap files as one block of memory: information header, colour table, pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "orvalix/host/host.h"

namespace orvalix {

/// A bitmap that StretchDIBits() takes: a header of 40 bytes or more, not compressed, and every
/// byte of its pixels is there.
struct PackedDib {
  std::vector<unsigned char> bytes;  ///< starts with the information header
  std::size_t colorsAt = 0;          ///< where the colour table starts
  std::size_t numColors = 0;         ///< entries of the colour table
  std::size_t bitsAt = 0;            ///< where the pixels start
};

/// Where the parts of a bitmap file stand behind its 14-byte file header, and what they hold.
struct DibLayout {
  BITMAPINFOHEADER header{};  ///< that of the file, or the same said in 40 bytes
  std::size_t colorsAt = 0;
  std::size_t bytesPerColor = 0;  ///< 4, or 3 behind a header of 12 bytes
  std::size_t numColors = 0;
  std::size_t bitsAt = 0;                ///< not behind the end of the file
  std::array<std::uint32_t, 3> masks{};  ///< of red, green and blue; 0 without masks
  std::int64_t width = 0;                ///< pixels, 1 or more
  std::int64_t height = 0;               ///< rows, 1 or more
  bool isPacked = false;                 ///< as PackedDib demands
};

/// Bytes of a row of pixels: whole groups of four.
constexpr std::int64_t DibRowBytes(std::int64_t width, int bitCount) {
  return (width * bitCount + 31) / 32 * 4;
}

/// Makes a packed bitmap of what follows the file header of a bitmap file. Formats that are packed
/// already are taken as they are. Nothing for a damaged file or an unknown format.
///
/// The colour table has as many entries as the header says, else 2 to the power of the bit count
/// for 8 bits or fewer, else what stands between the header (with its masks) and `pixelOffset`;
/// the pixels follow it.
/// @param file all bytes behind the file header
/// @param pixelOffset the file header's offset of the pixels, from the start of the file
/// @throws std::bad_alloc
std::optional<PackedDib> ReadPackedDib(std::vector<unsigned char> file, std::uint32_t pixelOffset);

/// Turns pixels in runs, pixels told by masks, and everything behind a header of 12 bytes into an
/// uncompressed bitmap with a 40-byte header. Nothing for a damaged file.
///
/// The pixels take at most twice the bytes that they have in the file, those in runs at most
/// kMostBytesPerRunByte times the bytes of the runs; more than kMostPixelBytes are refused.
/// @throws std::bad_alloc
std::optional<PackedDib> DecodeDib(const std::vector<unsigned char>& file, const DibLayout& layout);

/// A run of 255 pixels of 8 bits takes 2 bytes. With its rows rounded up to groups of four bytes, a
/// bitmap whose every pixel stands in a run takes no more than this for each byte of its runs.
inline constexpr std::int64_t kMostBytesPerRunByte = 128;
/// What StretchDIBits() takes at most.
inline constexpr std::int64_t kMostPixelBytes = std::numeric_limits<std::int32_t>::max();

}  // namespace orvalix
