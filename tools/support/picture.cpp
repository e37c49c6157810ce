#include "support/picture.h"

#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace orvalix {
namespace {

constexpr int kComponents = 3;
constexpr int kAmplification = 8;

std::size_t Offset(const Picture& picture, int x, int y) {
  return (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
          static_cast<std::size_t>(x)) *
         kComponents;
}

Picture Blank(int width, int height) {
  Picture picture{.width = width, .height = height, .rgb = {}};
  picture.rgb.assign(Offset(picture, 0, height), 255);
  return picture;
}

void CopyInto(Picture& sheet, const Picture& picture, int left) {
  for (int y = 0; y < picture.height; ++y) {
    const auto row = picture.rgb.begin() + static_cast<std::ptrdiff_t>(Offset(picture, 0, y));
    std::copy_n(row, picture.width * kComponents,
                sheet.rgb.begin() + static_cast<std::ptrdiff_t>(Offset(sheet, left, y)));
  }
}

}  // namespace

void WritePng(const Picture& picture, const std::string& path) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(picture.width);
  png.height = static_cast<png_uint_32>(picture.height);
  png.format = PNG_FORMAT_RGB;
  if (png_image_write_to_file(&png, path.c_str(), 0, picture.rgb.data(), 0, nullptr) == 0) {
    throw std::runtime_error("can't write " + path + ": " + png.message);
  }
}

Picture ReadPng(const std::string& path) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&png, path.c_str()) == 0) {
    throw std::runtime_error("can't read " + path + ": " + png.message);
  }
  png.format = PNG_FORMAT_RGB;
  Picture picture = Blank(static_cast<int>(png.width), static_cast<int>(png.height));
  if (png_image_finish_read(&png, nullptr, picture.rgb.data(), 0, nullptr) == 0) {
    throw std::runtime_error("can't read " + path + ": " + png.message);
  }
  return picture;
}

Picture Halved(const Picture& picture) {
  Picture half = Blank(picture.width / 2, picture.height / 2);
  for (int y = 0; y < half.height; ++y) {
    for (int x = 0; x < half.width; ++x) {
      const std::size_t upper = Offset(picture, 2 * x, 2 * y);
      const std::size_t lower = Offset(picture, 2 * x, 2 * y + 1);
      for (std::size_t i = 0; i < kComponents; ++i) {
        const int sum = picture.rgb[upper + i] + picture.rgb[upper + kComponents + i] +
                        picture.rgb[lower + i] + picture.rgb[lower + kComponents + i];
        half.rgb[Offset(half, x, y) + i] = static_cast<unsigned char>((sum + 2) / 4);
      }
    }
  }
  return half;
}

namespace {

/// Sums up by tile.
class TileMeans {
 public:
  TileMeans(int width, int height)
      : m_width(static_cast<std::size_t>(width)),
        m_across((m_width + kTile - 1) / kTile),
        m_sums(m_across * ((static_cast<std::size_t>(height) + kTile - 1) / kTile)) {}

  void Add(std::size_t pixel, double value) {
    const std::size_t column = pixel % m_width / kTile;
    const std::size_t row = pixel / m_width / kTile;
    m_sums[row * m_across + column] += value;
  }

  /// The largest mean, as if the tiles at the edges were whole.
  double Largest() const {
    return *std::max_element(m_sums.begin(), m_sums.end()) / (kTile * kTile * kComponents);
  }

 private:
  static constexpr std::size_t kTile = 32;

  std::size_t m_width;
  std::size_t m_across;
  std::vector<double> m_sums;
};

}  // namespace

PictureDifference Compare(const Picture& a, const Picture& b) {
  PictureDifference difference;
  difference.sameSize = a.width == b.width && a.height == b.height;
  if (!difference.sameSize || a.rgb.empty()) return difference;
  double sum = 0.0;
  std::size_t differing = 0;
  TileMeans tiles(a.width, a.height);
  for (std::size_t pixel = 0; pixel < a.rgb.size(); pixel += kComponents) {
    int largest = 0;
    for (std::size_t i = pixel; i < pixel + kComponents; ++i) {
      const int off = std::abs(static_cast<int>(a.rgb[i]) - static_cast<int>(b.rgb[i]));
      sum += off;
      tiles.Add(pixel / kComponents, off);
      largest = std::max(largest, off);
    }
    differing += largest > 0 ? 1 : 0;
    difference.largest = std::max(difference.largest, largest);
  }
  const auto components = static_cast<double>(a.rgb.size());
  difference.mean = sum / components;
  difference.worstTile = tiles.Largest();
  difference.differingShare = static_cast<double>(differing) * kComponents / components;
  return difference;
}

Picture SideBySide(const Picture& actual, const Picture& expected) {
  const int width = std::max(actual.width, expected.width);
  Picture sheet = Blank(3 * width, std::max(actual.height, expected.height));
  CopyInto(sheet, actual, 0);
  CopyInto(sheet, expected, width);
  if (!Compare(actual, expected).sameSize) return sheet;
  Picture difference = actual;
  for (std::size_t i = 0; i < difference.rgb.size(); ++i) {
    const int off = std::abs(static_cast<int>(actual.rgb[i]) - static_cast<int>(expected.rgb[i]));
    difference.rgb[i] = static_cast<unsigned char>(std::min(255, off * kAmplification));
  }
  CopyInto(sheet, difference, 2 * width);
  return sheet;
}

}  // namespace orvalix
