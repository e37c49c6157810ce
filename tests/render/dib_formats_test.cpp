/// Each format of bitmap files shows the picture that was put into it.

#include "render/dib_fixture.h"

namespace {

using namespace orvalix::test;

using Values = std::vector<std::vector<std::uint32_t>>;

/// Eight colours, which the pictures here are made of.
const std::vector<Rgb> kColors{{0, 0, 0},     {255, 0, 0},   {0, 255, 0},   {0, 0, 255},
                               {255, 255, 0}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};

/// 4 x 2 indices into kColors, from the top; for 1 bit only the first two.
Values Indices(int bits) {
  if (bits == 1) return {{0, 1, 1, 0}, {1, 1, 0, 1}};
  return {{0, 1, 2, 3}, {7, 6, 5, 4}};
}

/// The pixel value of a colour for these masks: all of their bits, or none.
std::uint32_t Masked(const Rgb& color, const std::vector<std::uint32_t>& masks) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 3; ++i) value |= color[i] == 255 ? masks[i] : 0;
  return value;
}

/// Indices as pixel values of `bits` bits.
Values PixelValues(int bits, const std::vector<std::uint32_t>& masks) {
  Values values = Indices(bits);
  if (bits <= 8) return values;
  for (auto& row : values) {
    for (std::uint32_t& value : row) value = Masked(kColors[value], masks);
  }
  return values;
}

ColorRows Expected(int bits) {
  ColorRows rows;
  for (const auto& row : Indices(bits)) {
    std::vector<Rgb> colors;
    for (const std::uint32_t index : row) colors.push_back(kColors[index]);
    rows.push_back(colors);
  }
  return rows;
}

/// The picture in a file without compression.
BitmapFile Uncompressed(std::uint32_t headerBytes, int bits, bool topFirst) {
  const std::vector<std::uint32_t> fiveBits{0x7C00, 0x03E0, 0x001F};
  const std::vector<std::uint32_t> eightBits{0xFF0000, 0x00FF00, 0x0000FF};
  BitmapFile file;
  file.headerBytes = headerBytes;
  file.width = 4;
  file.height = topFirst ? -2 : 2;
  file.bits = bits;
  if (bits <= 8) {
    file.colors = kColors;
    file.colors.resize(std::size_t{1} << bits, Rgb{9, 9, 9});
  }
  file.pixels = PackRows(PixelValues(bits, bits == 16 ? fiveBits : eightBits), bits, topFirst);
  return file;
}

class DibFormats : public DibTest {};

TEST_F(DibFormats, UncompressedBehindEachHeader) {
  for (const std::uint32_t headerBytes : {12U, 40U, 52U, 56U, 64U, 108U, 124U}) {
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
      for (const bool topFirst : {false, true}) {
        if (topFirst && headerBytes == 12) continue;  // it has no sign
        EXPECT_EQ(TextureOf(Uncompressed(headerBytes, bits, topFirst)), Expected(bits))
            << headerBytes << " bytes, " << bits << " bits, top first " << topFirst;
      }
    }
  }
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibFormats, SixteenBitsHaveFivePerComponent) {
  BitmapFile file;
  file.bits = 16;
  file.pixels = {0x41, 0x08, 0, 0};  // 00010 00010 00001: 2, 2 and 1 of 31
  // Five bits are widened by repeating the highest three: 2 is 00010 000, 1 is 00001 000.
  EXPECT_EQ(TextureOf(file)[0][0], (Rgb{16, 16, 8}));
}

TEST_F(DibFormats, MasksBehindAndInEachHeader) {
  const std::vector<std::vector<std::uint32_t>> ofSixteen{{0xF800, 0x07E0, 0x001F},
                                                          {0x7C00, 0x03E0, 0x001F},
                                                          {0x0F00, 0x00F0, 0x000F},
                                                          {0x001F, 0x07E0, 0xF800},
                                                          {0x8000, 0x4000, 0x2000}};
  const std::vector<std::vector<std::uint32_t>> ofThirtyTwo{{0x00FF0000, 0x0000FF00, 0x000000FF},
                                                            {0xFF000000, 0x00FF0000, 0x0000FF00},
                                                            {0x3FF00000, 0x000FFC00, 0x000003FF},
                                                            {0xFFFF0000, 0x0000FF00, 0x000000FF}};
  for (const int bits : {16, 32}) {
    for (const auto& masks : bits == 16 ? ofSixteen : ofThirtyTwo) {
      for (const std::uint32_t headerBytes : {40U, 52U, 56U, 108U, 124U}) {
        for (const bool topFirst : {false, true}) {
          BitmapFile file = Uncompressed(headerBytes, bits, topFirst);
          file.compression = 3;
          file.masks = masks;
          file.pixels = PackRows(PixelValues(bits, masks), bits, topFirst);
          EXPECT_EQ(TextureOf(file), Expected(bits))
              << headerBytes << " bytes, " << bits << " bits, red mask " << masks[0];
        }
      }
    }
  }
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibFormats, AnAlphaMaskLeavesThePictureOpaque) {
  const std::vector<std::uint32_t> masks{0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
  for (const std::uint32_t headerBytes : {40U, 56U, 108U, 124U}) {
    for (const std::uint32_t compression : {3U, 6U}) {
      if (headerBytes == 40 && compression == 3) continue;  // has room for three
      BitmapFile file = Uncompressed(headerBytes, 32, false);
      file.compression = compression;
      file.masks = masks;
      Values values = PixelValues(32, masks);
      for (auto& row : values) {
        for (std::uint32_t& value : row) value |= 0x40000000;
      }
      file.pixels = PackRows(values, 32);
      EXPECT_EQ(TextureOf(file), Expected(32)) << headerBytes << ", " << compression;
    }
  }
}

TEST_F(DibFormats, ComponentsOfAnyWidthBecomeEightBits) {
  BitmapFile file;
  file.bits = 32;
  file.compression = 3;
  // 1 bit, 3 bits and 12 bits: 1, 5 (101 10110) and 0xABC, whose highest eight are 0xAB.
  file.masks = {0x80000000, 0x00007000, 0x00000FFF};
  file.pixels = {0xBC, 0x5A, 0x00, 0x80};
  EXPECT_EQ(TextureOf(file)[0][0], (Rgb{255, 0xB6, 0xAB}));
  file.masks = {0, 0, 0x3};  // without red and green; two bits: 00 is 0
  EXPECT_EQ(TextureOf(file)[0][0], (Rgb{0, 0, 0}));
  file.pixels = {0xBE, 0x5A, 0x00, 0x80};  // 10 is 10101010
  EXPECT_EQ(TextureOf(file)[0][0], (Rgb{0, 0, 0xAA}));
}

/// A 4 x 2 file of runs of 8 bits with the eight colours.
BitmapFile Runs8(const Bytes& runs) {
  BitmapFile file = Uncompressed(40, 8, false);
  file.compression = 1;
  file.pixels = runs;
  return file;
}

BitmapFile Runs4(const Bytes& runs) {
  BitmapFile file = Uncompressed(40, 4, false);
  file.compression = 2;
  file.pixels = runs;
  return file;
}

/// What those show: rows of indices from the top.
ColorRows Colors(const Values& indices) {
  ColorRows rows;
  for (const auto& row : indices) {
    rows.emplace_back();
    for (const std::uint32_t index : row) rows.back().push_back(kColors[index]);
  }
  return rows;
}

TEST_F(DibFormats, RunsOfEightBits) {
  // The lower row: three times 5, once 1. The upper one: 2, 3, 4 as they stand, padded; once 7.
  const Bytes runs{3, 5, 1, 1, 0, 0, 0, 3, 2, 3, 4, 0, 1, 7, 0, 1};
  EXPECT_EQ(TextureOf(Runs8(runs)), Colors({{2, 3, 4, 7}, {5, 5, 5, 1}}));
  BitmapFile topFirst = Runs8(runs);
  topFirst.height = -2;
  EXPECT_EQ(TextureOf(topFirst), Colors({{5, 5, 5, 1}, {2, 3, 4, 7}}));
  BitmapFile otherHeader = Runs8(runs);
  otherHeader.headerBytes = 64;
  EXPECT_EQ(TextureOf(otherHeader), Colors({{2, 3, 4, 7}, {5, 5, 5, 1}}));
}

TEST_F(DibFormats, RunsOfFourBits) {
  // The lower row: three pixels of 5 and 1 in turn, once 6. The upper one: 2, 3, 4 in two bytes.
  const Bytes runs{3, 0x51, 1, 0x60, 0, 0, 0, 3, 0x23, 0x40, 1, 0x70, 0, 1};
  EXPECT_EQ(TextureOf(Runs4(runs)), Colors({{2, 3, 4, 7}, {5, 1, 5, 6}}));
  // Five pixels take three bytes and a fourth that fills up; the fifth is outside.
  const Bytes wide{0, 5, 0x12, 0x34, 0x50, 0x99, 0, 0, 4, 0x77, 0, 1};
  EXPECT_EQ(TextureOf(Runs4(wide)), Colors({{7, 7, 7, 7}, {1, 2, 3, 4}}));
}

TEST_F(DibFormats, RunsMayPassOverPixelsAndEndEarly) {
  // Two to the right and one up from the start, then 4 twice.
  EXPECT_EQ(TextureOf(Runs8({0, 2, 2, 1, 2, 4, 0, 1})), Colors({{0, 0, 4, 4}, {0, 0, 0, 0}}));
  EXPECT_EQ(TextureOf(Runs4({0, 2, 1, 1, 2, 0x45, 0, 1})), Colors({{0, 4, 5, 0}, {0, 0, 0, 0}}));
  // An end of the picture, and one without any mark.
  EXPECT_EQ(TextureOf(Runs8({4, 6, 0, 1, 4, 6})), Colors({{0, 0, 0, 0}, {6, 6, 6, 6}}));
  EXPECT_EQ(TextureOf(Runs8({4, 6})), Colors({{0, 0, 0, 0}, {6, 6, 6, 6}}));
  // Cut in a pair, in a move and in single values.
  EXPECT_EQ(TextureOf(Runs8({4, 6, 9})), Colors({{0, 0, 0, 0}, {6, 6, 6, 6}}));
  EXPECT_EQ(TextureOf(Runs8({4, 6, 0, 2, 1})), Colors({{0, 0, 0, 0}, {6, 6, 6, 6}}));
  EXPECT_EQ(TextureOf(Runs8({0, 4, 6, 5})), Colors({{0, 0, 0, 0}, {6, 5, 0, 0}}));
  EXPECT_EQ(TextureOf(Runs4({0, 4, 0x65})), Colors({{0, 0, 0, 0}, {6, 5, 0, 0}}));
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibFormats, RunsOutsideAreLeftOut) {
  // Too long for the row, then above the last row, by ends of rows and by a move.
  EXPECT_EQ(TextureOf(Runs8({9, 6, 0, 0, 4, 5, 0, 0, 4, 4})), Colors({{5, 5, 5, 5}, {6, 6, 6, 6}}));
  EXPECT_EQ(TextureOf(Runs8({0, 2, 0, 200, 4, 4, 0, 1})), Colors({{0, 0, 0, 0}, {0, 0, 0, 0}}));
  EXPECT_EQ(TextureOf(Runs4({0, 2, 200, 0, 4, 0x44, 0, 1})), Colors({{0, 0, 0, 0}, {0, 0, 0, 0}}));
}

TEST_F(DibFormats, IndicesWithoutAColorAreBlack) {
  BitmapFile file = Uncompressed(40, 4, false);
  file.colorsUsed = 2;
  file.colors.resize(2);
  EXPECT_EQ(TextureOf(file), Colors({{0, 1, 0, 0}, {0, 0, 0, 0}}));
}

}  // namespace
