/// @file
/// Pictures in memory: written and read as PNG files, compared.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvalix {

/// Red, green and blue bytes of each pixel, top row first.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> rgb;

  bool operator==(const Picture&) const = default;
};

/// @throws std::runtime_error naming the file when it can't be written or read
void WritePng(const Picture& picture, const std::string& path);
Picture ReadPng(const std::string& path);

/// Half as wide and as high: each pixel the mean of four. The last one of an odd number is left
/// out.
Picture Halved(const Picture& picture);

/// How much two pictures differ.
struct PictureDifference {
  bool sameSize = false;
  int largest = 0;            ///< of any component, 0 to 255
  double mean = 0.0;          ///< of all components
  double differingShare = 0;  ///< pixels that differ at all, 0 to 1
  /// The largest mean of any tile of 32 x 32 pixels: what is sparse, such as a word or a line, is
  /// lost in the mean of the whole picture.
  double worstTile = 0.0;
};

PictureDifference Compare(const Picture& a, const Picture& b);

/// Actual, expected and their difference (amplified) side by side.
Picture SideBySide(const Picture& actual, const Picture& expected);

}  // namespace orvalix
