#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;
using orvalix::test::Rows;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

class Stretch : public ::testing::Test {
 protected:
  // 1 2 / 3 4 onto zeros.
  void SetUp() override { source.Number(); }

  MemoryPicture source{2, 2, 24};
  MemoryPicture destination{6, 4, 32};
};

TEST_F(Stretch, RepeatsPixels) {
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 4, 4, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{1, 1, 2, 2, 0, 0}, {1, 1, 2, 2, 0, 0}, {3, 3, 4, 4, 0, 0}, {3, 3, 4, 4, 0, 0}}));
}

TEST_F(Stretch, TakesThePixelUnderTheMiddle) {
  // 3 pixels from 2: the middles 0.5, 1.5, 2.5 lie at 0.33, 1.0 and 1.67 of the source.
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 3, 1, &source.dc, 0, 0, 2, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{1, 2, 2, 0, 0, 0}));
}

TEST_F(Stretch, DropsPixels) {
  MemoryPicture wide(6, 1, 32);
  wide.Number();
  // The middles 0.5 and 1.5 of 2 pixels lie at 1.5 and 4.5 of 6.
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 2, 1, &wide.dc, 0, 0, 6, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{2, 5, 0, 0, 0, 0}));
}

TEST_F(Stretch, DoesTheSameInEveryMode) {
  for (const int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR, HALFTONE}) {
    destination.dc.SetStretchBltMode(mode);
    destination.Fill(0);
    EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 4, 1, &source.dc, 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(destination.Row(0), (std::vector<int>{1, 1, 2, 2, 0, 0}));
  }
}

TEST_F(Stretch, MirrorsAcross) {
  // The pixels 3, 2, 1, 0 of the destination take 1 1 2 2.
  EXPECT_TRUE(destination.dc.StretchBlt(3, 0, -4, 1, &source.dc, 0, 0, 2, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{2, 2, 1, 1, 0, 0}));
  destination.Fill(0);
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 4, 1, &source.dc, 1, 0, -2, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{2, 2, 1, 1, 0, 0}));
}

TEST_F(Stretch, MirroredTwiceIsNotMirrored) {
  EXPECT_TRUE(destination.dc.StretchBlt(3, 0, -4, 1, &source.dc, 1, 0, -2, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{1, 1, 2, 2, 0, 0}));
}

TEST_F(Stretch, MirrorsDown) {
  EXPECT_TRUE(destination.dc.StretchBlt(0, 3, 2, -4, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{3, 4, 0, 0, 0, 0}, {3, 4, 0, 0, 0, 0}, {1, 2, 0, 0, 0, 0}, {1, 2, 0, 0, 0, 0}}));
}

TEST_F(Stretch, LeavesOutWhatTheSourceLacks) {
  // The part is 4 x 4 with the source in its middle, each pixel once.
  destination.Fill(MemoryPicture::Grey(9));
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 4, 4, &source.dc, -1, -1, 4, 4, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{9, 9, 9, 9, 9, 9}, {9, 1, 2, 9, 9, 9}, {9, 3, 4, 9, 9, 9}, {9, 9, 9, 9, 9, 9}}));
}

TEST_F(Stretch, LeavesOutWhatTheDestinationLacks) {
  // 8 x 8 from (-3, -3) on: the source's last pixel begins at (1, 1).
  EXPECT_TRUE(destination.dc.StretchBlt(-3, -3, 8, 8, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(destination.Rows(),
            (Rows{{1, 2, 2, 2, 2, 0}, {3, 4, 4, 4, 4, 0}, {3, 4, 4, 4, 4, 0}, {3, 4, 4, 4, 4, 0}}));
}

TEST_F(Stretch, SurvivesExtremes) {
  const int extremes[] = {kSmallest, -1, 0, 1, kLargest};
  for (const int start : extremes) {
    for (const int extent : extremes) {
      for (const int from : extremes) {
        for (const int fromExtent : extremes) {
          EXPECT_TRUE(destination.dc.StretchBlt(start, start, extent, extent, &source.dc, from,
                                                from, fromExtent, fromExtent, SRCCOPY));
        }
      }
    }
  }
}

TEST_F(Stretch, StretchesOnePixelOverEverything) {
  // The whole destination lies within the first half.
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, kLargest, kLargest, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(destination.Rows(), Rows(4, std::vector<int>(6, 1)));
}

TEST_F(Stretch, EmptySizesCopyNothing) {
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 0, 4, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 4, 4, &source.dc, 0, 0, 2, 0, SRCCOPY));
  EXPECT_EQ(destination.Rows(), Rows(4, std::vector<int>(6, 0)));
}

TEST_F(Stretch, ConvertsDepths) {
  MemoryPicture indexed(2, 1, 8);
  indexed.bits[0] = 50;
  indexed.bits[1] = 60;
  EXPECT_TRUE(destination.dc.StretchBlt(0, 0, 6, 1, &indexed.dc, 0, 0, 2, 1, SRCCOPY));
  EXPECT_EQ(destination.Row(0), (std::vector<int>{50, 50, 50, 60, 60, 60}));
}

TEST_F(Stretch, SizesOfOneAreCopies) {
  EXPECT_TRUE(destination.dc.StretchBlt(4, 2, 2, 2, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(destination.Row(2), (std::vector<int>{0, 0, 0, 0, 1, 2}));
  EXPECT_EQ(destination.Row(3), (std::vector<int>{0, 0, 0, 0, 3, 4}));
}

}  // namespace
