#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

TEST(CallerPixels, AreDrawnInPlace) {
  std::array<BYTE, 2 * 2 * 4> pixels{};
  CDC dc;
  ASSERT_TRUE(dc.CreateOnPixels(pixels.data(), 2, 2, 8));
  EXPECT_EQ(dc.SetPixel(1, 1, RGB(1, 2, 3)), RGB(1, 2, 3));
  EXPECT_EQ(pixels[12], 3);
  EXPECT_EQ(pixels[13], 2);
  EXPECT_EQ(pixels[14], 1);
  EXPECT_EQ(pixels[15], 255);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 2);
  EXPECT_EQ(dc.GetDeviceCaps(VERTRES), 2);
  EXPECT_EQ(dc.GetDeviceCaps(BITSPIXEL), 32);
  EXPECT_EQ(dc.GetDeviceCaps(PLANES), 1);
}

TEST(CallerPixels, OddStridesKeepTheirGaps) {
  // Rows of 8 bytes, 11 bytes apart, from an odd address on.
  std::vector<BYTE> pixels(1 + 2 * 11, 0xEE);
  CDC dc;
  ASSERT_TRUE(dc.CreateOnPixels(&pixels[1], 2, 2, 11));
  MemoryPicture source(5, 5, 32);
  source.Fill(RGB(1, 2, 3));
  EXPECT_TRUE(dc.BitBlt(0, 0, 5, 5, &source.dc, 0, 0, SRCCOPY));
  const std::vector<BYTE> expected = {0xEE, 3, 2, 1,   255, 3, 2, 1,   255,  0xEE, 0xEE, 0xEE,
                                      3,    2, 1, 255, 3,   2, 1, 255, 0xEE, 0xEE, 0xEE};
  EXPECT_EQ(pixels, expected);
}

TEST(CallerPixels, NegativeStrideGoesUp) {
  std::array<BYTE, 2 * 4> pixels{};
  CDC dc;
  ASSERT_TRUE(dc.CreateOnPixels(&pixels[4], 1, 2, -4));
  dc.SetPixel(0, 0, RGB(0, 0, 7));
  dc.SetPixel(0, 1, RGB(0, 0, 9));
  EXPECT_EQ(pixels[4], 7);
  EXPECT_EQ(pixels[0], 9);
}

TEST(CallerPixels, TakeEveryDepth) {
  for (const int depth : {8, 24, 32}) {
    std::array<BYTE, 4 * 4> pixels{};
    CDC dc;
    ASSERT_TRUE(dc.CreateOnPixels(pixels.data(), 2, 2, 8));
    MemoryPicture source(2, 2, depth);
    source.Number();
    EXPECT_TRUE(dc.BitBlt(0, 0, 2, 2, &source.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(GetRValue(dc.GetPixel(1, 1)), 4);
    EXPECT_EQ(pixels[15], 255);
  }
}

TEST(CallerPixels, AreASource) {
  std::array<BYTE, 4> pixels = {30, 20, 10, 0};
  CDC dc;
  ASSERT_TRUE(dc.CreateOnPixels(pixels.data(), 1, 1, 4));
  MemoryPicture destination(1, 1, 24);
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 1, 1, &dc, 0, 0, SRCCOPY));
  EXPECT_EQ(destination.dc.GetPixel(0, 0), RGB(10, 20, 30));
}

TEST(CallerPixels, OneMemorySeenTwiceOverlapsSafely) {
  // The same 3 rows, once from the top and once from the bottom: the copy turns them over.
  MemoryPicture picture(1, 3, 32);
  picture.Number();
  CDC turned;
  ASSERT_TRUE(turned.CreateOnPixels(picture.bits, 1, 3, 4));
  EXPECT_TRUE(turned.BitBlt(0, 0, 1, 3, &picture.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (orvalix::test::Rows{{3}, {2}, {1}}));
}

TEST(CallerPixels, RefuseImpossibleMemory) {
  std::array<BYTE, 64> pixels{};
  CDC dc;
  EXPECT_FALSE(dc.CreateOnPixels(nullptr, 2, 2, 8));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 0, 2, 8));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, 0, 8));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), -2, 2, 8));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, kSmallest, 8));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, 2, 7));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, 2, -7));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, 2, 0));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), kLargest, 2, kLargest));
  EXPECT_EQ(dc.m_hDC, nullptr);
  // A single row needs no stride.
  EXPECT_TRUE(dc.CreateOnPixels(pixels.data(), 2, 1, 0));
  EXPECT_FALSE(dc.CreateOnPixels(pixels.data(), 2, 2, 8));
}

TEST(CallerPixels, AreLeftAloneByTheEnd) {
  std::array<BYTE, 4> pixels = {1, 2, 3, 4};
  {
    CDC dc;
    dc.CreateOnPixels(pixels.data(), 1, 1, 4);
  }
  EXPECT_EQ(pixels, (std::array<BYTE, 4>{1, 2, 3, 4}));
}

}  // namespace
