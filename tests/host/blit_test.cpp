#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;
using orvalix::test::Rows;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

/// Copies between pictures of every pair of depths; those of 8 bits hold all greys.
class Blit : public ::testing::TestWithParam<std::tuple<int, int>> {
 protected:
  // The source holds 1 2 3 / 4 5 6 / 7 8 9, the destination 100 everywhere.
  void SetUp() override {
    source.Number();
    destination.Fill(MemoryPicture::Grey(100));
  }

  MemoryPicture source{3, 3, std::get<0>(GetParam())};
  MemoryPicture destination{4, -4, std::get<1>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(Depths, Blit,
                         ::testing::Combine(::testing::Values(8, 24, 32),
                                            ::testing::Values(8, 24, 32)),
                         [](const auto& instance) {
                           return std::to_string(std::get<0>(instance.param)) + "To" +
                                  std::to_string(std::get<1>(instance.param));
                         });

TEST_P(Blit, CopiesAPartToItsPlace) {
  EXPECT_TRUE(destination.dc.BitBlt(1, 2, 2, 1, &source.dc, 1, 1, SRCCOPY));
  EXPECT_EQ(
      destination.Rows(),
      (Rows{{100, 100, 100, 100}, {100, 100, 100, 100}, {100, 5, 6, 100}, {100, 100, 100, 100}}));
}

TEST_P(Blit, LeavesOutWhatTheSourceLacks) {
  // The source begins one pixel right and two below the part asked for, and ends within it.
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 10, 10, &source.dc, -1, -2, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{100, 100, 100, 100}, {100, 100, 100, 100}, {100, 1, 2, 3}, {100, 4, 5, 6}}));
}

TEST_P(Blit, LeavesOutWhatTheSourceLacksAtTheFarEdges) {
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 3, 3, &source.dc, 2, 1, SRCCOPY));
  EXPECT_EQ(
      destination.Rows(),
      (Rows{{6, 100, 100, 100}, {9, 100, 100, 100}, {100, 100, 100, 100}, {100, 100, 100, 100}}));
}

TEST_P(Blit, LeavesOutWhatTheDestinationLacks) {
  EXPECT_TRUE(destination.dc.BitBlt(-1, -2, 3, 3, &source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(
      destination.Rows(),
      (Rows{{8, 9, 100, 100}, {100, 100, 100, 100}, {100, 100, 100, 100}, {100, 100, 100, 100}}));
}

TEST_P(Blit, LeavesOutWhatTheDestinationLacksAtTheFarEdges) {
  EXPECT_TRUE(destination.dc.BitBlt(3, 2, 3, 3, &source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(
      destination.Rows(),
      (Rows{{100, 100, 100, 100}, {100, 100, 100, 100}, {100, 100, 100, 1}, {100, 100, 100, 4}}));
}

TEST_P(Blit, CopiesNothingFarAway) {
  const Rows before = destination.Rows();
  for (const int far : {kLargest, kSmallest, 1000000000, -1000000000}) {
    EXPECT_TRUE(destination.dc.BitBlt(far, 0, 3, 3, &source.dc, 0, 0, SRCCOPY));
    EXPECT_TRUE(destination.dc.BitBlt(0, far, 3, 3, &source.dc, 0, 0, SRCCOPY));
    EXPECT_TRUE(destination.dc.BitBlt(0, 0, 3, 3, &source.dc, far, 0, SRCCOPY));
    EXPECT_TRUE(destination.dc.BitBlt(0, 0, 3, 3, &source.dc, 0, far, SRCCOPY));
    EXPECT_TRUE(destination.dc.BitBlt(far, far, kLargest, kLargest, &source.dc, far, 5, SRCCOPY));
  }
  EXPECT_EQ(destination.Rows(), before);
}

TEST_P(Blit, CopiesWholePicturesOfHugeSizes) {
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, kLargest, kLargest, &source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{1, 2, 3, 100}, {4, 5, 6, 100}, {7, 8, 9, 100}, {100, 100, 100, 100}}));
  // The part starts far outside of both; pixel 0 of the source meets pixel 1 of the destination.
  destination.Fill(MemoryPicture::Grey(100));
  EXPECT_TRUE(
      destination.dc.BitBlt(1 - kLargest, 0, kLargest, 1, &source.dc, -kLargest, 0, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{100, 100, 100, 100}));
  EXPECT_TRUE(
      destination.dc.BitBlt(11 - kLargest, 0, kLargest, 1, &source.dc, 10 - kLargest, 0, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{100, 1, 2, 3}));
}

TEST_P(Blit, EmptySizesCopyNothing) {
  const Rows before = destination.Rows();
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 0, 3, &source.dc, 0, 0, SRCCOPY));
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 3, 0, &source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(destination.dc.BitBlt(0, 0, -1, 3, &source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(destination.dc.BitBlt(0, 0, 3, kSmallest, &source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(destination.Rows(), before);
}

TEST_P(Blit, OtherOperationsAreRefused) {
  constexpr DWORD kSrcPaint = 0x00EE0086;
  const Rows before = destination.Rows();
  EXPECT_FALSE(destination.dc.BitBlt(0, 0, 3, 3, &source.dc, 0, 0, kSrcPaint));
  EXPECT_FALSE(destination.dc.BitBlt(0, 0, 3, 3, &source.dc, 0, 0, 0));
  EXPECT_FALSE(destination.dc.StretchBlt(0, 0, 3, 3, &source.dc, 0, 0, 3, 3, kSrcPaint));
  EXPECT_EQ(destination.Rows(), before);
}

/// Copies within one picture of every depth.
class BlitWithin : public ::testing::TestWithParam<std::tuple<int, int>> {
 protected:
  void SetUp() override { picture.Number(); }

  // 1 2 3 4 / 5 6 7 8 / 9 10 11 12; both row orders.
  MemoryPicture picture{4, 3 * std::get<1>(GetParam()), std::get<0>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(Depths, BlitWithin,
                         ::testing::Combine(::testing::Values(8, 24, 32),
                                            ::testing::Values(1, -1)));

TEST_P(BlitWithin, MovesDownRight) {
  EXPECT_TRUE(picture.dc.BitBlt(1, 1, 3, 2, &picture.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (Rows{{1, 2, 3, 4}, {5, 1, 2, 3}, {9, 5, 6, 7}}));
}

TEST_P(BlitWithin, MovesUpLeft) {
  EXPECT_TRUE(picture.dc.BitBlt(0, 0, 3, 2, &picture.dc, 1, 1, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (Rows{{6, 7, 8, 4}, {10, 11, 12, 8}, {9, 10, 11, 12}}));
}

TEST_P(BlitWithin, MovesSideways) {
  EXPECT_TRUE(picture.dc.BitBlt(1, 0, 3, 3, &picture.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (Rows{{1, 1, 2, 3}, {5, 5, 6, 7}, {9, 9, 10, 11}}));
}

TEST_P(BlitWithin, StretchesOverItself) {
  // Pixels 0 and 1 of each row, twice each.
  EXPECT_TRUE(picture.dc.StretchBlt(0, 0, 4, 3, &picture.dc, 0, 0, 2, 3, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (Rows{{1, 1, 2, 2}, {5, 5, 6, 6}, {9, 9, 10, 10}}));
}

TEST_P(BlitWithin, MirrorsOverItself) {
  EXPECT_TRUE(picture.dc.StretchBlt(0, 0, 4, 3, &picture.dc, 3, 0, -4, 3, SRCCOPY));
  EXPECT_EQ(picture.Rows(), (Rows{{4, 3, 2, 1}, {8, 7, 6, 5}, {12, 11, 10, 9}}));
}

TEST(BlitFormats, FullBytesArePreservedAt32Bits) {
  MemoryPicture source(1, 1, 32);
  MemoryPicture destination(1, 1, 32);
  source.bits[3] = 77;
  destination.dc.BitBlt(0, 0, 1, 1, &source.dc, 0, 0, SRCCOPY);
  EXPECT_EQ(destination.bits[3], 77);
}

TEST(BlitFormats, ShallowerPixelsBecomeOpaque) {
  MemoryPicture destination(2, 1, 32);
  for (const int depth : {8, 24}) {
    destination.bits[3] = 0;
    MemoryPicture source(1, 1, depth);
    destination.dc.BitBlt(0, 0, 1, 1, &source.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(destination.bits[3], 255);
  }
}

TEST(BlitFormats, AllThreeComponentsAreKept) {
  MemoryPicture deep(1, 1, 32);
  MemoryPicture flat(1, 1, 24);
  deep.dc.SetPixel(0, 0, RGB(10, 20, 30));
  flat.dc.BitBlt(0, 0, 1, 1, &deep.dc, 0, 0, SRCCOPY);
  EXPECT_EQ(flat.dc.GetPixel(0, 0), RGB(10, 20, 30));
  deep.dc.SetPixel(0, 0, 0);
  deep.dc.BitBlt(0, 0, 1, 1, &flat.dc, 0, 0, SRCCOPY);
  EXPECT_EQ(deep.dc.GetPixel(0, 0), RGB(10, 20, 30));
}

TEST(BlitFormats, EqualColorTablesKeepIndices) {
  // Colours 1 and 2 are the same; only copied indices can tell them apart.
  const std::vector<RGBQUAD> colors = {{0, 0, 0, 0}, {9, 9, 9, 0}, {9, 9, 9, 0}};
  MemoryPicture source(2, 1, colors);
  MemoryPicture destination(2, 1, colors);
  source.bits[0] = 2;
  source.bits[1] = 1;
  destination.dc.BitBlt(0, 0, 2, 1, &source.dc, 0, 0, SRCCOPY);
  EXPECT_EQ(destination.bits[0], 2);
  EXPECT_EQ(destination.bits[1], 1);
}

TEST(BlitFormats, DifferentColorTablesMapToTheNearestColor) {
  MemoryPicture source(3, 1, std::vector<RGBQUAD>{{255, 0, 0, 0}, {0, 255, 0, 0}, {0, 0, 90, 0}});
  MemoryPicture destination(3, 1,
                            std::vector<RGBQUAD>{{0, 0, 250, 0}, {0, 250, 0, 0}, {250, 0, 0, 0}});
  for (std::uint8_t i = 0; i < 3; ++i) source.bits[i] = i;
  destination.dc.BitBlt(0, 0, 3, 1, &source.dc, 0, 0, SRCCOPY);
  // Blue and green have near matches. Of the dark red, black (90 away), which first stands at 3, is
  // closer than the red (160 away).
  EXPECT_EQ(destination.bits[0], 2);
  EXPECT_EQ(destination.bits[1], 1);
  EXPECT_EQ(destination.bits[2], 3);
}

TEST(BlitFormats, DeepColorsMapToTheNearestColor) {
  MemoryPicture destination(
      2, 1, std::vector<RGBQUAD>{{0, 0, 0, 0}, {128, 128, 128, 0}, {255, 255, 255, 0}});
  for (const int depth : {24, 32}) {
    MemoryPicture source(2, 1, depth);
    source.dc.SetPixel(0, 0, RGB(100, 140, 120));
    source.dc.SetPixel(1, 0, RGB(250, 200, 200));
    destination.dc.BitBlt(0, 0, 2, 1, &source.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(destination.bits[0], 1);
    // Squares to white: 25 + 3025 + 3025; to grey: 14884 + 5184 + 5184.
    EXPECT_EQ(destination.bits[1], 2);
  }
}

TEST(BlitFormats, WindowPixelsAreCopiedAsWell) {
  CWnd window;
  window.CreateOffscreen(2, 2, 24);
  window.GetDC()->SetPixel(1, 1, RGB(1, 2, 3));
  MemoryPicture picture(2, 2, 32);
  EXPECT_TRUE(picture.dc.BitBlt(0, 0, 2, 2, window.GetDC(), 0, 0, SRCCOPY));
  EXPECT_EQ(picture.dc.GetPixel(1, 1), RGB(1, 2, 3));
}

}  // namespace
