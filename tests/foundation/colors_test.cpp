#include "orvalix/foundation/colors.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Colors, AreBuiltWithoutClamping) {
  const RGBDType d = SetRGBD(-1.0, 2.0, 0.5, 7.0);
  EXPECT_EQ(d.red, -1.0);
  EXPECT_EQ(d.green, 2.0);
  EXPECT_EQ(d.blue, 0.5);
  EXPECT_EQ(d.alpha, 7.0);
  const RGBFType f = SetRGBF(-1.0F, 2.0F, 0.5F, 7.0F);
  EXPECT_EQ(f.red, -1.0F);
  EXPECT_EQ(f.green, 2.0F);
  EXPECT_EQ(f.blue, 0.5F);
  EXPECT_EQ(f.alpha, 7.0F);
}

TEST(Colors, ConvertBetweenDoublesAndFloats) {
  const RGBFType f = RGBDtoRGBF(SetRGBD(0.1, 0.2, 0.3, 0.4));
  EXPECT_EQ(f.red, 0.1F);
  EXPECT_EQ(f.green, 0.2F);
  EXPECT_EQ(f.blue, 0.3F);
  EXPECT_EQ(f.alpha, 0.4F);
  const RGBDType d = RGBFtoRGBD(SetRGBF(0.1F, 0.25F, 0.5F, 1.0F));
  EXPECT_EQ(d.red, static_cast<double>(0.1F));
  EXPECT_EQ(d.green, 0.25);
  EXPECT_EQ(d.blue, 0.5);
  EXPECT_EQ(d.alpha, 1.0);
}

TEST(Colors, BytesAreCutOffAndWrap) {
  // 0.5 * 255 = 127.5; 1.2 * 255 = 306 = 256 + 50; -0.1 * 255 = -25.5, cut to -25 = 231 - 256.
  const RGBBType b = RGBDtoRGBB(SetRGBD(0.5, 1.2, -0.1, 1.0));
  EXPECT_EQ(b.red, 127);
  EXPECT_EQ(b.green, 50);
  EXPECT_EQ(b.blue, 231);
  EXPECT_EQ(b.alpha, 255);
  const RGBDType d = RGBBtoRGBD({51, 0, 255, 102});
  EXPECT_EQ(d.red, 51.0 / 255.0);
  EXPECT_EQ(d.green, 0.0);
  EXPECT_EQ(d.blue, 1.0);
  EXPECT_EQ(d.alpha, 102.0 / 255.0);
}

TEST(Colors, WhatIsNoNumberOfBytesIsZero) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const RGBBType b =
      RGBDtoRGBB(SetRGBD(std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e300));
  EXPECT_EQ(b.red, 0);
  EXPECT_EQ(b.green, 0);
  EXPECT_EQ(b.blue, 0);
  EXPECT_EQ(b.alpha, 0);
}

TEST(Colors, BytesOfLargeNumbersWrapToo) {
  // 2^32 * 255 has no low bits; (2^32 + 1) * 255 = 2^32 * 255 + 255; -256 / 255 * 255 = -256.
  const RGBBType b = RGBDtoRGBB(SetRGBD(4294967296.0, 4294967297.0, -1.0, -256.0 / 255.0));
  EXPECT_EQ(b.red, 0);
  EXPECT_EQ(b.green, 255);
  EXPECT_EQ(b.blue, 1);  // -255 = 1 - 256
  EXPECT_EQ(b.alpha, 0);
}

TEST(Colors, PackIntoAnInteger) {
  EXPECT_EQ(RGBDtoCOLORREF(SetRGBD(1.0, 0.5, 0.0, 0.7)), 0x00007FFFU);
  EXPECT_EQ(RGBDtoCOLORREF(SetRGBD(1.2, 0.0, 0.0, 1.0)), 50U);
  EXPECT_EQ(RGBDtoCOLORREF(SetRGBD(0.0, 0.0, 1.0, 0.0)), 0x00FF0000U);
  EXPECT_EQ(RGBD2INT(SetRGBD(1.0, 0.5, 0.0, 0.7)), 0x00007FFFU);
  // -0.1 * 255 = -25.5, cut to -25 = 0xE7 - 256; 1.2 * 255 = 306 = 256 + 0x32.
  EXPECT_EQ(RGBD2INT(SetRGBD(-0.1, 1.2, 1.0, 9.0)), 0x00FF32E7U);
}

TEST(Colors, UnpackWithFullAlpha) {
  const RGBDType d = COLORREFtoRGDB(0xAA336699U);
  EXPECT_EQ(d.red, 0x99 / 255.0);
  EXPECT_EQ(d.green, 0x66 / 255.0);
  EXPECT_EQ(d.blue, 0x33 / 255.0);
  EXPECT_EQ(d.alpha, 1.0);
  // There and back loses alpha and rounds down: 0.999 * 255 = 254.7.
  const RGBDType back = COLORREFtoRGDB(RGBDtoCOLORREF(SetRGBD(0.999, 0.0, 0.0, 0.25)));
  EXPECT_EQ(back.red, 254.0 / 255.0);
  EXPECT_EQ(back.alpha, 1.0);
}

}  // namespace
