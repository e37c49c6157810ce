#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::FullBitmapInfo;
using orvalix::test::MemoryPicture;
using orvalix::test::Rows;

constexpr LONG kSmallest = std::numeric_limits<LONG>::min();

/// A 2 x 3 bitmap of 32 bits whose rows hold, as they stand in memory, the blues 1 2 / 3 4 / 5 6.
class DibBits : public ::testing::Test {
 protected:
  int Stretch(const FullBitmapInfo& info, const void* pixels, int width, int height) {
    return StretchDIBits(picture.dc.m_hDC, 0, 0, width, height, 0, 0, info.header.biWidth, height,
                         pixels, info.Get(), DIB_RGB_COLORS, SRCCOPY);
  }
  /// The blue of each pixel.
  Rows Blues() const {
    Rows rows;
    for (int y = 0; y < picture.Height(); ++y) {
      std::vector<int> row;
      for (int x = 0; x < picture.Width(); ++x) row.push_back(GetBValue(picture.dc.GetPixel(x, y)));
      rows.push_back(row);
    }
    return rows;
  }

  const std::vector<DWORD> bits{1, 2, 3, 4, 5, 6};
  const FullBitmapInfo bottomFirst{2, 3, 32};
  const FullBitmapInfo topFirst{2, -3, 32};
  MemoryPicture picture{2, 3, 32};
};

TEST_F(DibBits, StretchesTheWholeBitmap) {
  EXPECT_EQ(Stretch(bottomFirst, bits.data(), 2, 3), 3);
  EXPECT_EQ(Blues(), (Rows{{5, 6}, {3, 4}, {1, 2}}));
  EXPECT_EQ(Stretch(topFirst, bits.data(), 2, 3), 3);
  EXPECT_EQ(Blues(), (Rows{{1, 2}, {3, 4}, {5, 6}}));
}

TEST_F(DibBits, StretchCountsSourceRowsFromTheFirstInMemory) {
  StretchDIBits(picture.dc.m_hDC, 0, 0, 1, 1, 1, 0, 1, 1, bits.data(), bottomFirst.Get(),
                DIB_RGB_COLORS, SRCCOPY);
  EXPECT_EQ(Blues()[0], (std::vector<int>{2, 0}));
  StretchDIBits(picture.dc.m_hDC, 0, 0, 1, 1, 0, 1, 1, 1, bits.data(), topFirst.Get(),
                DIB_RGB_COLORS, SRCCOPY);
  EXPECT_EQ(Blues()[0], (std::vector<int>{3, 0}));
  EXPECT_EQ(picture.dc.StretchDIBits(1, 2, 1, 1, 0, 2, 1, 1, bits.data(), bottomFirst.Get(),
                                     DIB_RGB_COLORS, SRCCOPY),
            3);
  EXPECT_EQ(Blues()[2], (std::vector<int>{0, 5}));
}

TEST_F(DibBits, StretchMirrors) {
  StretchDIBits(picture.dc.m_hDC, 1, 2, -2, -3, 0, 0, 2, 3, bits.data(), topFirst.Get(),
                DIB_RGB_COLORS, SRCCOPY);
  EXPECT_EQ(Blues(), (Rows{{6, 5}, {4, 3}, {2, 1}}));
  StretchDIBits(picture.dc.m_hDC, 0, 0, 2, 3, 0, 2, 2, -3, bits.data(), bottomFirst.Get(),
                DIB_RGB_COLORS, SRCCOPY);
  EXPECT_EQ(Blues(), (Rows{{1, 2}, {3, 4}, {5, 6}}));
}

TEST_F(DibBits, ReadsOneBit) {
  FullBitmapInfo info(3, 1, 1);
  info.colors[0] = {10, 0, 0, 0};
  info.colors[1] = {20, 0, 0, 0};
  MemoryPicture row(3, 1, 32);
  const std::array<BYTE, 4> pixels = {0xA0, 0, 0, 0};  // 1 0 1
  EXPECT_EQ(StretchDIBits(row.dc.m_hDC, 0, 0, 3, 1, 0, 0, 3, 1, pixels.data(), info.Get(),
                          DIB_RGB_COLORS, SRCCOPY),
            1);
  EXPECT_EQ(row.dc.GetPixel(0, 0), RGB(0, 0, 20));
  EXPECT_EQ(row.dc.GetPixel(1, 0), RGB(0, 0, 10));
  EXPECT_EQ(row.dc.GetPixel(2, 0), RGB(0, 0, 20));
}

TEST_F(DibBits, ReadsFourBits) {
  FullBitmapInfo info(2, -3, 4);
  info.colors[5] = {55, 0, 0, 0};
  info.colors[15] = {99, 0, 0, 0};
  const std::array<BYTE, 12> pixels = {0x5F, 0, 0, 0, 0xF5, 0, 0, 0, 0x00, 0, 0, 0};
  EXPECT_EQ(Stretch(info, pixels.data(), 2, 3), 3);
  EXPECT_EQ(Blues(), (Rows{{55, 99}, {99, 55}, {0, 0}}));
}

TEST_F(DibBits, ReadsEightBits) {
  FullBitmapInfo info(2, 1, 8);
  info.colors[200] = {77, 0, 0, 0};
  const std::array<BYTE, 4> pixels = {200, 0, 0, 0};
  EXPECT_EQ(Stretch(info, pixels.data(), 2, 1), 1);
  EXPECT_EQ(Blues()[0], (std::vector<int>{77, 0}));
}

TEST_F(DibBits, ReadsFiveBitsPerComponent) {
  const FullBitmapInfo info(2, 1, 16);
  // Red 31, green 0, blue 1 and red 0, green 16, blue 0; 5 bits abcde become abcdeabc.
  const std::array<WORD, 2> pixels = {0x7C01, 0x0200};
  EXPECT_EQ(Stretch(info, pixels.data(), 2, 1), 1);
  EXPECT_EQ(picture.dc.GetPixel(0, 0), RGB(255, 0, 8));
  EXPECT_EQ(picture.dc.GetPixel(1, 0), RGB(0, 132, 0));
}

TEST_F(DibBits, ReadsTwentyFourBitsWithPadding) {
  const FullBitmapInfo info(1, 2, 24);
  const std::array<BYTE, 8> pixels = {1, 2, 3, 0, 4, 5, 6, 0};
  EXPECT_EQ(Stretch(info, pixels.data(), 1, 2), 2);
  EXPECT_EQ(picture.dc.GetPixel(0, 0), RGB(6, 5, 4));
  EXPECT_EQ(picture.dc.GetPixel(0, 1), RGB(3, 2, 1));
}

TEST_F(DibBits, StretchRefusesWhatItCannotRead) {
  const auto refused = [&](const FullBitmapInfo& info) {
    return Stretch(info, bits.data(), 2, 3) == 0;
  };
  EXPECT_TRUE(refused(FullBitmapInfo(0, 3, 32)));
  EXPECT_TRUE(refused(FullBitmapInfo(2, 0, 32)));
  EXPECT_TRUE(refused(FullBitmapInfo(2, 3, 2)));
  EXPECT_TRUE(refused(FullBitmapInfo(2, kSmallest, 32)));
  FullBitmapInfo compressed(2, 3, 8);
  compressed.header.biCompression = 1;
  EXPECT_TRUE(refused(compressed));
  EXPECT_EQ(Stretch(topFirst, nullptr, 2, 3), 0);
  const HDC dc = picture.dc.m_hDC;
  EXPECT_EQ(
      StretchDIBits(dc, 0, 0, 2, 3, 0, 0, 2, 3, bits.data(), nullptr, DIB_RGB_COLORS, SRCCOPY), 0);
  EXPECT_EQ(StretchDIBits(dc, 0, 0, 2, 3, 0, 0, 2, 3, bits.data(), topFirst.Get(), DIB_PAL_COLORS,
                          SRCCOPY),
            0);
  EXPECT_EQ(
      StretchDIBits(dc, 0, 0, 2, 3, 0, 0, 2, 3, bits.data(), topFirst.Get(), DIB_RGB_COLORS, 0), 0);
  EXPECT_EQ(StretchDIBits(nullptr, 0, 0, 2, 3, 0, 0, 2, 3, bits.data(), topFirst.Get(),
                          DIB_RGB_COLORS, SRCCOPY),
            0);
  CDC noDevice;
  EXPECT_EQ(noDevice.StretchDIBits(0, 0, 2, 3, 0, 0, 2, 3, bits.data(), topFirst.Get(),
                                   DIB_RGB_COLORS, SRCCOPY),
            0);
  EXPECT_EQ(Blues(), Rows(3, std::vector<int>(2, 0)));
}

TEST_F(DibBits, CopiesToTheDevice) {
  EXPECT_EQ(SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 3, 0, 0, 0, 3, bits.data(),
                              bottomFirst.Get(), DIB_RGB_COLORS),
            3);
  EXPECT_EQ(Blues(), (Rows{{5, 6}, {3, 4}, {1, 2}}));
  EXPECT_EQ(SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 3, 0, 0, 0, 3, bits.data(), topFirst.Get(),
                              DIB_RGB_COLORS),
            3);
  EXPECT_EQ(Blues(), (Rows{{1, 2}, {3, 4}, {5, 6}}));
}

TEST_F(DibBits, CopiesAPartCountedFromItsCorner) {
  // One row, the second in memory.
  SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 1, 0, 1, 0, 3, bits.data(), bottomFirst.Get(),
                    DIB_RGB_COLORS);
  EXPECT_EQ(Blues()[0], (std::vector<int>{3, 4}));
  // The first row alone, bottom first: its lower left corner is (0, 0).
  SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 1, 0, 0, 0, 3, bits.data(), bottomFirst.Get(),
                    DIB_RGB_COLORS);
  EXPECT_EQ(Blues()[0], (std::vector<int>{1, 2}));
  SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 1, 1, 1, 2, 0, 3, bits.data(), topFirst.Get(),
                    DIB_RGB_COLORS);
  EXPECT_EQ(Blues()[0], (std::vector<int>{6, 2}));
}

TEST_F(DibBits, CopiesBandByBand) {
  // The last two rows of memory, then the first one; each lands where it belongs.
  for (const FullBitmapInfo* info : {&bottomFirst, &topFirst}) {
    picture.Fill(0);
    EXPECT_EQ(SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 3, 0, 0, 1, 2, &bits[2], info->Get(),
                                DIB_RGB_COLORS),
              2);
    EXPECT_EQ(Blues(),
              info == &topFirst ? (Rows{{0, 0}, {3, 4}, {5, 6}}) : (Rows{{5, 6}, {3, 4}, {0, 0}}));
    EXPECT_EQ(SetDIBitsToDevice(picture.dc.m_hDC, 0, 0, 2, 3, 0, 0, 0, 1, bits.data(), info->Get(),
                                DIB_RGB_COLORS),
              1);
    EXPECT_EQ(Blues(),
              info == &topFirst ? (Rows{{1, 2}, {3, 4}, {5, 6}}) : (Rows{{5, 6}, {3, 4}, {1, 2}}));
  }
}

TEST_F(DibBits, CopyClipsAndRefuses) {
  const HDC dc = picture.dc.m_hDC;
  EXPECT_EQ(
      SetDIBitsToDevice(dc, 0, 0, 2, 3, 0, 0, 2, 100, &bits[4], topFirst.Get(), DIB_RGB_COLORS), 1);
  EXPECT_EQ(Blues(), (Rows{{0, 0}, {0, 0}, {5, 6}}));
  picture.Fill(0);
  EXPECT_EQ(
      SetDIBitsToDevice(dc, 0, 0, 2, 3, 0, 0, 3, 1, bits.data(), topFirst.Get(), DIB_RGB_COLORS),
      0);
  EXPECT_EQ(
      SetDIBitsToDevice(dc, 0, 0, 2, 3, 0, 0, 0, 0, bits.data(), topFirst.Get(), DIB_RGB_COLORS),
      0);
  EXPECT_EQ(SetDIBitsToDevice(dc, 0, 0, 2, 3, 0, 0, 0, 3, nullptr, topFirst.Get(), DIB_RGB_COLORS),
            0);
  EXPECT_EQ(SetDIBitsToDevice(dc, 0, 0, 2, 3, 0, 0, 0, 3, bits.data(), nullptr, DIB_RGB_COLORS), 0);
  EXPECT_EQ(SetDIBitsToDevice(nullptr, 0, 0, 2, 3, 0, 0, 0, 3, bits.data(), topFirst.Get(),
                              DIB_RGB_COLORS),
            0);
  EXPECT_EQ(SetDIBitsToDevice(dc, kSmallest, kSmallest, 0xFFFFFFFF, 0xFFFFFFFF, kSmallest,
                              kSmallest, 0, 3, bits.data(), topFirst.Get(), DIB_RGB_COLORS),
            3);
  EXPECT_EQ(Blues()[0], (std::vector<int>{1, 2}));
}

TEST_F(DibBits, ReadsTheMemoryItWritesTo) {
  // A section stretched over itself, upside down.
  picture.Number();
  EXPECT_EQ(StretchDIBits(picture.dc.m_hDC, 0, 0, 2, 3, 0, 0, 2, 3, picture.bits, topFirst.Get(),
                          DIB_RGB_COLORS, SRCCOPY),
            3);
  EXPECT_EQ(picture.Rows(), (Rows{{5, 6}, {3, 4}, {1, 2}}));
}

}  // namespace
