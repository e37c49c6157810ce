#include <gtest/gtest.h>

#include <array>

#include "orvalix/foundation/colors.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::FromHex;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

/// Two bars with colours and texts of their own, as they have to stand in every file.
constexpr const char* kStoredBars = R"(
07000000  # series counted so far: 7
00000000  # owner: none
000000000000f83f  # const value 1.5
000000000000e03f  # base value 0.5
000000000000f03f  # relative size 1
0000000000000c40  # const width 3.5
0000000000000440  # independent width 2.5
2d431cebe2365a3f  # fill gap 0.0016
7b14ae47e17a943f  # plane thickness 0.02
000000000000f03f  # outline width 1
000000000000d03f 0000000000000000  # fill colour 0.25 0 0 1
0000000000000000 000000000000f03f
0000000000000000 000000000000e03f  # outline colour 0 0.5 0 1
0000000000000000 000000000000f03f
0000000000000000 0000000000000000  # line colour 0 0 0 1
0000000000000000 000000000000f03f
03000000 04000000  # symbols 3 and 4
02000000  # 2 points
00000000 00000000 00000000  # no second values, no heights, no 3D points
00000000 02000000 02000000  # no group colours, 2 segment colours, 2 texts
00000000  # no surface
00000000  # no groups
01000000 00000000  # line width 1, style 0
01000000 00000000 02000000  # justifications 1, 0, 2
01000000  # independent axis 1
00000000 01000000  # projection plane 0, text plane 1
00000000  # group type 0
02000000  # chart type 2
01000000  # segments have their own colours
00000000 00000000  # no contours, not labelled
01000000  # colour mode 1: lit
00000000  # not clipped
01000000  # outlined
01000000 00000000 00000000  # combo chart flags 1 0 0 0 0 6
00000000 00000000 06000000
01000000  # enabled
000000000000f03f 0000000000000040  # independent values 1 2
0000000000000840 00000000000010c0  # dependent values 3 -4
000000000000f03f 0000000000000000  # segment colours 1 0 0 1
0000000000000000 000000000000f03f
0000000000000000 000000000000f03f  # and 0 1 0 1
0000000000000000 000000000000f03f
02000000 6162  # text "ab"
00000000  # text ""
)";

CChartObj3D TwoBars() {
  constexpr std::array<double, 2> kPlaces{1, 2};
  constexpr std::array<double, 2> kValues{3, -4};
  constexpr std::array<RGBDType, 2> kColors{{{1, 0, 0, 1}, {0, 1, 0, 1}}};
  constexpr std::array<int, 6> kFlags{1, 0, 0, 0, 0, 6};
  const std::array<CString, 2> texts{CString("ab"), CString("")};
  CChartObj3D object;
  object.BarChart25D(kPlaces.data(), kValues.data(), 0.5, 1.5, 2, 2.5, 3.5, SetRGBD(0.25, 0, 0, 1),
                     SetRGBD(0, 0.5, 0, 1), 1, 2, 1);
  object.InitSegmentColorsStorage(kColors.data());
  object.InitDataStringsStorage(texts.data());
  object.SetSymbol(3);
  object.SetSymbol2(4);
  object.SetComboChartFlags(kFlags.data());
  return object;
}

TEST(ChartObjFile, IsWrittenByteForByte) {
  const CChartObj3D object = TwoBars();
  const int before = CChartObj3D::nSelfID;
  CChartObj3D::nSelfID = 7;
  EXPECT_EQ(Saved(object), FromHex(kStoredBars));
  CChartObj3D::nSelfID = before;
}

TEST(ChartObjFile, IsReadBack) {
  const int before = CChartObj3D::nSelfID;
  CChartObj3D object;
  LoadFrom(object, FromHex(kStoredBars));
  EXPECT_EQ(CChartObj3D::nSelfID, 7);
  EXPECT_EQ(object.GetConstValue(), 1.5);
  EXPECT_EQ(object.GetBaseValue(), 0.5);
  EXPECT_EQ(object.GetConstWidth(), 3.5);
  EXPECT_EQ(object.GetIndWidth(), 2.5);
  EXPECT_EQ(object.GetPlaneThickness(), 0.02);
  EXPECT_EQ(object.GetFillColor().red, 0.25);
  EXPECT_EQ(object.GetOutlineColor().green, 0.5);
  EXPECT_EQ(object.GetSymbol2(), 4);
  EXPECT_EQ(object.GetNumDataPnts(), 2);
  EXPECT_EQ(object.GetConstJustify(), 2);
  EXPECT_EQ(object.GetTextPlane(), 1);
  EXPECT_EQ(object.GetChartType(), 2);
  EXPECT_EQ(object.GetIndData(1), 2.0);
  EXPECT_EQ(object.GetDepData(1), -4.0);
  EXPECT_EQ(object.GetSegmentColor(1).green, 1.0);
  EXPECT_EQ(object.GetSegmentColorMode(), 1);
  EXPECT_STREQ(object.GetScatterTextString(0), "ab");
  CChartObj3D::nSelfID = before;
}

/// Kept: colours that are read are in use, whatever the mode was when they were saved.
TEST(ChartObjFile, StoredSegmentColorsAreInUse) {
  CChartObj3D object = TwoBars();
  object.SetSegmentColorMode(0);
  CChartObj3D loaded;
  LoadFrom(loaded, Saved(object));
  EXPECT_EQ(loaded.GetSegmentColorMode(), 1);
}

}  // namespace
