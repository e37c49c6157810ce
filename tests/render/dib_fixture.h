/// @file
/// Loading bitmap files in tests: the texture as a picture, and the messages that were shown.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "orvalix/render/dib.h"
#include "support/bitmap_files.h"
#include "support/temporary_file.h"

namespace orvalix::test {

/// Rows of colours, the highest row first.
using ColorRows = std::vector<std::vector<Rgb>>;

/// The texture of a bitmap; expects every pixel to be opaque.
inline ColorRows TextureOf(CDib& dib) {
  const unsigned char* pixel = dib.TranslateDIBToOGL(dib.CreateDibPalette());
  ColorRows rows;
  if (pixel == nullptr) return rows;
  for (int y = 0; y < dib.GetTextureHeight(); ++y) {
    std::vector<Rgb> row;
    for (int x = 0; x < dib.GetTextureWidth(); ++x, pixel += 4) {
      row.push_back({pixel[0], pixel[1], pixel[2]});
      EXPECT_EQ(pixel[3], 255) << x << ", " << y;
    }
    rows.insert(rows.begin(), row);
  }
  return rows;
}

inline ColorRows TextureOf(const Bytes& file) {
  const TemporaryFile stored(file);
  CDib dib(stored.Path());
  return TextureOf(dib);
}

inline ColorRows TextureOf(const BitmapFile& file) { return TextureOf(Encode(file)); }

inline constexpr const char* kNotABitmap = "Not a bitmap file";
inline constexpr const char* kDamaged = "Damaged or unknown bitmap file";

class DibTest : public ::testing::Test {
 protected:
  DibTest() {
    s_messages.clear();
    SetMessageBoxHandler([](const char* text) {
      s_messages.emplace_back(text);
      return 0;
    });
  }
  ~DibTest() override { SetMessageBoxHandler(nullptr); }

  static void ExpectEmpty(CDib& dib) {
    EXPECT_EQ(dib.GetDibInfoPtr(), nullptr);
    EXPECT_EQ(dib.GetDibInfoHeaderPtr(), nullptr);
    EXPECT_EQ(dib.GetDibRGBTablePtr(), nullptr);
    EXPECT_EQ(dib.GetDibBitsPtr(), nullptr);
    EXPECT_EQ(dib.GetDibWidth(), 0);
    EXPECT_EQ(dib.GetDibHeight(), 0);
    EXPECT_EQ(dib.GetDibNumColors(), 0);
    EXPECT_EQ(dib.GetDibSizeImage(), 0U);
    EXPECT_EQ(dib.CreateDibPalette(), nullptr);
    EXPECT_EQ(dib.GetDibPalette(), nullptr);
    EXPECT_EQ(dib.TranslateDIBToOGL(nullptr), nullptr);
    EXPECT_EQ(dib.GetTextureWidth(), 0);
    EXPECT_EQ(dib.GetTextureHeight(), 0);
  }

  /// Loads bytes and expects an empty object and one message, or none for null.
  static void ExpectRefused(const Bytes& file, const char* message) {
    s_messages.clear();
    const TemporaryFile stored(file);
    CDib dib(stored.Path());
    ExpectEmpty(dib);
    EXPECT_EQ(s_messages, std::vector<std::string>{message});
  }
  static void ExpectDamaged(const BitmapFile& file) { ExpectRefused(Encode(file), kDamaged); }

  static inline std::vector<std::string> s_messages;
  static constexpr Rgb kRed{255, 0, 0};
  static constexpr Rgb kGreen{0, 255, 0};
  static constexpr Rgb kBlue{0, 0, 255};
  static constexpr Rgb kWhite{255, 255, 255};
  static constexpr Rgb kBlack{0, 0, 0};
};

}  // namespace orvalix::test
