/// @file
/// Bitmap files, put together by hand: every part can be said, and said wrongly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace orvalix::test {

using Bytes = std::vector<unsigned char>;

/// Red, green, blue.
using Rgb = std::array<int, 3>;

/// The parts of a bitmap file. Compressions: 0 none, 1 runs of 8 bits, 2 runs of 4 bits, 3 masks, 6
/// masks with one of alpha.
struct BitmapFile {
  std::uint32_t headerBytes = 40;
  int width = 1;
  int height = 1;  ///< negative: top row first
  int bits = 24;
  std::uint32_t compression = 0;
  std::uint32_t colorsUsed = 0;
  std::uint32_t imageBytes = 0;
  std::vector<std::uint32_t> masks;     ///< red, green, blue, alpha
  std::vector<Rgb> colors;              ///< the colour table
  Bytes gap;                            ///< between colour table and pixels
  Bytes pixels;                         ///< as they stand in the file
  std::optional<std::uint32_t> offset;  ///< what the file header says; where the pixels are if not
};

inline void Append(Bytes& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

inline Bytes EncodeHeader(const BitmapFile& file) {
  constexpr std::uint32_t kCore = 12;
  constexpr std::uint32_t kInfo = 40;
  Bytes header;
  Append(header, file.headerBytes, 4);
  const int sizeBytes = file.headerBytes == kCore ? 2 : 4;
  Append(header, static_cast<std::uint32_t>(file.width), sizeBytes);
  Append(header, static_cast<std::uint32_t>(file.height), sizeBytes);
  Append(header, 1, 2);
  Append(header, static_cast<std::uint32_t>(file.bits), 2);
  if (file.headerBytes == kCore) return header;
  for (const std::uint32_t value : {file.compression, file.imageBytes, 2835U, 2836U}) {
    Append(header, value, 4);
  }
  Append(header, file.colorsUsed, 4);
  Append(header, 0, 4);
  for (const std::uint32_t mask : file.masks) Append(header, mask, 4);
  // Masks are part of a longer header and follow a short one.
  if (file.headerBytes > kInfo) header.resize(file.headerBytes);
  return header;
}

inline Bytes Encode(const BitmapFile& file) {
  constexpr std::uint32_t kFileHeader = 14;
  Bytes rest = EncodeHeader(file);
  for (const Rgb& color : file.colors) {
    for (const std::size_t i : {2U, 1U, 0U}) Append(rest, static_cast<std::uint32_t>(color[i]), 1);
    if (file.headerBytes != 12) rest.push_back(0);
  }
  rest.insert(rest.end(), file.gap.begin(), file.gap.end());
  const auto pixelOffset = static_cast<std::uint32_t>(kFileHeader + rest.size());
  rest.insert(rest.end(), file.pixels.begin(), file.pixels.end());
  Bytes bytes{'B', 'M'};
  Append(bytes, static_cast<std::uint32_t>(kFileHeader + rest.size()), 4);
  Append(bytes, 0, 4);
  Append(bytes, file.offset.value_or(pixelOffset), 4);
  bytes.insert(bytes.end(), rest.begin(), rest.end());
  return bytes;
}

/// Rows of pixel values, given from the top, packed into `bits` bits each with the leftmost pixel
/// in the highest bits (up to 8 bits) or least significant byte first (above), padded to groups of
/// four bytes.
inline Bytes PackRows(const std::vector<std::vector<std::uint32_t>>& rows, int bits,
                      bool topFirst = false) {
  Bytes packed;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& row = rows[topFirst ? i : rows.size() - 1 - i];
    Bytes bytes;
    int filled = 0;
    for (const std::uint32_t value : row) {
      if (bits >= 8) {
        Append(bytes, value, bits / 8);
        continue;
      }
      if (filled == 0) bytes.push_back(0);
      filled += bits;
      bytes.back() = static_cast<unsigned char>(bytes.back() | value << (8 - filled));
      filled %= 8;
    }
    while (bytes.size() % 4 != 0) bytes.push_back(0);
    packed.insert(packed.end(), bytes.begin(), bytes.end());
  }
  return packed;
}

/// A 2 x 2 bitmap of 24 bits: red and green above blue and white.
inline BitmapFile FourColors() {
  BitmapFile file;
  file.width = 2;
  file.height = 2;
  file.pixels = PackRows({{0xFF0000, 0x00FF00}, {0x0000FF, 0xFFFFFF}}, 24);
  return file;
}

}  // namespace orvalix::test
