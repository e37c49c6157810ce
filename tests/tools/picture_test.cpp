#include "support/picture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

TEST(Picture, ComparesByShareAndMean) {
  orvalix::Picture a{.width = 2, .height = 1, .rgb = {10, 20, 30, 40, 50, 60}};
  orvalix::Picture b = a;
  EXPECT_EQ(orvalix::Compare(a, b).largest, 0);
  b.rgb[4] = 53;
  const auto difference = orvalix::Compare(a, b);
  EXPECT_TRUE(difference.sameSize);
  EXPECT_EQ(difference.largest, 3);
  EXPECT_EQ(difference.mean, 0.5);            // 3 / 6 components
  EXPECT_EQ(difference.differingShare, 0.5);  // one of two pixels
  b.width = 1;
  b.height = 2;
  EXPECT_FALSE(orvalix::Compare(a, b).sameSize);
  EXPECT_EQ(orvalix::SideBySide(a, a).width, 6);
}

TEST(Picture, IsHalvedByMeansOfFourPixels) {
  // Two rows of three pixels: the third column has no partner.
  const orvalix::Picture picture{.width = 3,
                                 .height = 2,
                                 .rgb = {0, 10, 255, 4, 20, 255, 99, 99, 99,  //
                                         8, 30, 255, 13, 40, 254, 99, 99, 99}};
  const orvalix::Picture half = orvalix::Halved(picture);
  EXPECT_EQ(half.width, 1);
  EXPECT_EQ(half.height, 1);
  // 25 / 4 = 6.25, 100 / 4 = 25, 1019 / 4 = 254.75, rounded.
  EXPECT_EQ(half.rgb, (std::vector<unsigned char>{6, 25, 255}));
}

TEST(Picture, SurvivesItsFile) {
  const orvalix::Picture picture{.width = 2, .height = 1, .rgb = {10, 20, 30, 40, 50, 60}};
  const std::string path = ::testing::TempDir() + "orvalix_picture.png";
  orvalix::WritePng(picture, path);
  EXPECT_EQ(orvalix::ReadPng(path), picture);
  std::remove(path.c_str());
  EXPECT_THROW(orvalix::ReadPng(path), std::runtime_error);
  EXPECT_THROW(orvalix::WritePng(picture, "/no/such/folder/picture.png"), std::runtime_error);
}

}  // namespace
