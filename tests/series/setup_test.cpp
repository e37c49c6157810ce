#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/surface/polysurface.h"
#include "series/setup_routines.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Saved;
using orvalix::test::SetUpArrays;
using orvalix::test::SetUpRoutine;
using orvalix::test::SetUpRoutines;
using orvalix::test::SetUpSources;

/// Everything in a series by its name: arrays element by element, attributes as arrays of one.
using Contents = std::map<std::string, std::vector<double>>;

void Append(std::vector<double>& values, const RGBDType& color) {
  values.insert(values.end(), {color.red, color.green, color.blue, color.alpha});
}

std::vector<double> Components(const RGBDType& color) {
  std::vector<double> values;
  Append(values, color);
  return values;
}

/// Whatever the counts say. No element of the sources is 0.
void ReadArrays(CChartObj3D object, Contents& contents) {
  constexpr int kMany = 100;
  object.SetNumDataPnts(kMany);
  object.SetNumGroups(kMany);
  for (const char* name : {"ind", "dep", "dep2", "heights", "group", "points", "texts", "surface",
                           "groupColors", "segmentColors"}) {
    contents[name] = {};
  }
  const auto read = [&](const char* name, double value) {
    if (value != 0.0) contents[name].push_back(value);
  };
  for (int i = 0; i < kMany; ++i) {
    read("ind", object.GetIndData(i));
    read("dep", object.GetDepData(i));
    read("dep2", object.GetDepData2(i, 0.0));
    read("heights", object.GetBarHeight(i));
    read("group", object.GetGroupData(0, i));
    read("points", object.Get3DPoint(i).x);
    read("points", object.Get3DPoint(i).v);
    read("texts", std::atof(object.GetScatterTextString(i)));
    read("surface", object.GetPolysurfacePoint(i).x);
    if (object.GetGroupColor(i).alpha != 0.0) {
      Append(contents["groupColors"], object.GetGroupColor(i));
    }
    if (object.GetSegmentColor(i).alpha != 0.0) {
      Append(contents["segmentColors"], object.GetSegmentColor(i));
    }
  }
}

std::uint64_t LittleEndian(const Bytes& bytes, std::size_t at, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t i = count; i > 0; --i) number = number << 8U | bytes.at(at + i - 1);
  return number;
}

/// What can be read from the record only.
void ReadRecord(const CChartObj3D& object, Contents& contents) {
  constexpr std::size_t kLineColorAt = 136;
  constexpr std::size_t kDepJustifyAt = 224;
  const Bytes record = Saved(object);
  contents["lineColor"] = {};
  for (std::size_t i = 0; i < 4; ++i) {
    contents["lineColor"].push_back(
        std::bit_cast<double>(LittleEndian(record, kLineColorAt + 8 * i, 8)));
  }
  const auto depJustify = static_cast<std::uint32_t>(LittleEndian(record, kDepJustifyAt, 4));
  contents["depJustify"] = {double(std::bit_cast<std::int32_t>(depJustify))};
}

Contents ContentsOf(const CChartObj3D& object) {
  std::array<int, 6> flags{};
  object.GetComboChartFlags(flags.data());
  Contents contents{{"const", {object.GetConstValue()}},
                    {"base", {object.GetBaseValue()}},
                    {"size", {object.GetRelSize()}},
                    {"constWidth", {object.GetConstWidth()}},
                    {"indWidth", {object.GetIndWidth()}},
                    {"fillGap", {object.GetFillGap()}},
                    {"outlineWidth", {object.GetOutlineWidth()}},
                    {"planeThickness", {object.GetPlaneThickness()}},
                    {"fill", Components(object.GetFillColor())},
                    {"outline", Components(object.GetOutlineColor())},
                    {"symbol", {double(object.GetSymbol())}},
                    {"symbol2", {double(object.GetSymbol2())}},
                    {"n", {double(object.GetNumDataPnts())}},
                    {"groups", {double(object.GetNumGroups())}},
                    {"lineWidth", {double(object.GetLineWidth())}},
                    {"lineStyle", {double(object.GetLineStyle())}},
                    {"indJustify", {double(object.GetIndJustify())}},
                    {"constJustify", {double(object.GetConstJustify())}},
                    {"indAxis", {double(object.GetIndAxis())}},
                    {"plane", {double(object.GetProjectionPlane())}},
                    {"textPlane", {double(object.GetTextPlane())}},
                    {"groupType", {double(object.GetGroupType())}},
                    {"type", {double(object.GetChartType())}},
                    {"contours", {double(object.GetNumContours())}},
                    {"colorMode", {double(object.GetColorMode())}},
                    {"labelFlag", {double(object.GetContourLabelFlag())}},
                    {"segmentColorMode", {double(object.GetSegmentColorMode())}},
                    {"clipping", {double(object.GetClipping())}},
                    {"outlineMode", {double(object.GetOutlineMode())}},
                    {"enable", {double(object.GetChartObjEnable())}},
                    {"flags", {flags.begin(), flags.end()}}};
  ReadArrays(object, contents);
  ReadRecord(object, contents);
  return contents;
}

constexpr RGBDType kFill{0.11, 0.12, 0.13, 0.14};
constexpr RGBDType kOutline{0.15, 0.16, 0.17, 0.18};
const std::array<double, 2> kInd{1, 2};
const std::array<double, 2> kDep{3, 4};
const std::array<double, 2> kDep2{5, 6};
const std::array<double, 12> kGroup{21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
const std::array<point3Dtype, 2> kPoints{{{41, 42, 43, 44}, {45, 46, 47, 48}}};
const std::array<CString, 2> kTexts{CString("51"), CString("52")};
const std::array<RGBDType, 6> kColors{{{0.21, 0.22, 0.23, 0.24},
                                       {0.31, 0.32, 0.33, 0.34},
                                       {0.41, 0.42, 0.43, 0.44},
                                       {0.51, 0.52, 0.53, 0.54},
                                       {0.61, 0.62, 0.63, 0.64},
                                       {0.71, 0.72, 0.73, 0.74}}};

std::vector<double> Colors(std::size_t count) {
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i) Append(values, kColors[i]);
  return values;
}

std::vector<double> Group(std::size_t count) {
  return {kGroup.begin(), kGroup.begin() + static_cast<std::ptrdiff_t>(count)};
}

CPolysurface Surface(double x) {
  const std::array<point3Dtype, 3> points{{{x, 1, 1, 1}, {x + 1, 1, 1, 1}, {x + 2, 1, 1, 1}}};
  CPolysurface surface(3, 1, 3);
  surface.SetPolysurfacePoints(points.data(), 0, 3);
  return surface;
}

/// A series in which everything has a value of its own already.
class SetUp : public ::testing::Test {
 protected:
  SetUp() {
    FillArrays();
    FillNumbers();
    FillCodes();
  }

  /// Expects that this changes what is named to what is given, and nothing else.
  template <class Work>
  void ExpectChanges(Work&& work, const Contents& changes) {
    Contents expected = ContentsOf(object);
    work();
    for (const auto& [name, values] : changes) {
      ASSERT_TRUE(expected.contains(name)) << name;
      EXPECT_NE(expected[name], values) << name << " is so already";
      expected[name] = values;
    }
    for (const auto& [name, values] : ContentsOf(object)) EXPECT_EQ(values, expected[name]) << name;
  }

  CChartObj3D object;

 private:
  void FillArrays() {
    const std::array<double, 15> numbers{301, 302, 303, 304, 305, 306, 307, 308,
                                         309, 310, 311, 312, 313, 314, 315};
    const std::array<RGBDType, 6> colors{{{0.81, 0.82, 0.83, 0.84},
                                          {0.85, 0.86, 0.87, 0.88},
                                          {0.91, 0.92, 0.93, 0.94},
                                          {0.95, 0.96, 0.97, 0.98},
                                          {0.71, 0.62, 0.53, 0.44},
                                          {0.72, 0.63, 0.54, 0.45}}};
    const std::array<point3Dtype, 3> points{{{401, 1, 1, 402}, {403, 1, 1, 404}, {405, 1, 1, 406}}};
    const std::array<CString, 3> texts{CString("501"), CString("502"), CString("503")};
    const CPolysurface surface = Surface(600);
    const std::array<int, 5> flags{701, 702, 703, 704, 705};
    object.OHLCChart25D(nullptr, nullptr, 0, 3, 0, 0, 0, 0, colors.data(), kFill, 0, 706, 0,
                        flags.data());
    object.SetGroupDataStorage(numbers.data(), numbers.data() + 1, 3, 4, colors.data());
    object.InitDepDataStorage(numbers.data() + 3);
    object.InitDepData2Storage(numbers.data() + 4);
    object.InitBarHeightsStorage(numbers.data() + 5);
    object.InitSegmentColorsStorage(colors.data());
    object.SetDataStringsStorage(points.data(), texts.data(), 3);
    object.SetPolysurface(&surface);
  }

  void FillNumbers() {
    object.SetConstValue(801.5);
    object.SetBaseValue(802.5);
    object.SetRelSize(803.5);
    object.SetConstWidth(804.5);
    object.SetIndWidth(805.5);
    object.SetFillGap(806.5);
    object.SetOutlineWidth(807.5);
    object.SetPlaneThickness(808.5);
    object.SetFillColor({0.01, 0.02, 0.03, 0.04});
    object.SetOutlineColor({0.05, 0.06, 0.07, 0.08});
  }

  void FillCodes() {
    object.SetSymbol(901);
    object.SetSymbol2(902);
    object.SetLineWidth(903);
    object.SetLineStyle(904);
    object.SetIndJustify(905);
    object.SetConstJustify(906);
    object.SetIndAxis(907);
    object.SetProjectionPlane(908);
    object.SetTextPlane(909);
    object.SetGroupType(910);
    object.SetNumContours(911);
    object.SetColorMode(912);
    object.SetContourLabelFlag(913);
    object.SetSegmentColorMode(914);
    object.SetClipping(915);
    object.SetOutlineMode(916);
    object.EnableChartObj(917);
    object.SetChartType(918);
    object.SetComboChartFlags(std::array{921, 922, 923, 924, 925, 926}.data());
  }
};

TEST_F(SetUp, RibbonChart25D) {
  ExpectChanges(
      [&] { object.RibbonChart25D(kInd.data(), kDep.data(), 61, 2, 62, kFill, kOutline, 63, 64); },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"const", {61}},
       {"n", {2}},
       {"constWidth", {62}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"constJustify", {63}},
       {"indAxis", {64}},
       {"type", {1}}});
}

TEST_F(SetUp, BarChart25D) {
  ExpectChanges(
      [&] {
        object.BarChart25D(kInd.data(), kDep.data(), 60, 61, 2, 62, 63, kFill, kOutline, 64, 65,
                           66);
      },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"base", {60}},
       {"const", {61}},
       {"n", {2}},
       {"indWidth", {62}},
       {"constWidth", {63}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"indJustify", {64}},
       {"constJustify", {65}},
       {"indAxis", {66}},
       {"type", {2}}});
}

TEST_F(SetUp, BarChart3D) {
  ExpectChanges(
      [&] { object.BarChart3D(kPoints.data(), kDep2.data(), 2, 61, 62, kFill, kOutline); },
      {{"points", {41, 44, 45, 48}},
       {"heights", {5, 6}},
       {"n", {2}},
       {"indWidth", {61}},
       {"constWidth", {62}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"type", {3}}});
}

TEST_F(SetUp, AreaFillChart25D) {
  ExpectChanges(
      [&] {
        object.AreaFillChart25D(kInd.data(), kDep.data(), 60, 61, 2, 62, kFill, kOutline, 63, 64);
      },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"base", {60}},
       {"const", {61}},
       {"n", {2}},
       {"constWidth", {62}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"constJustify", {63}},
       {"indAxis", {64}},
       {"type", {4}}});
}

TEST_F(SetUp, AreaRangeChart25D) {
  ExpectChanges(
      [&] {
        object.AreaRangeChart25D(kInd.data(), kDep.data(), kDep2.data(), 61, 2, 62, kFill, kOutline,
                                 63, 64);
      },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"dep2", {5, 6}},
       {"const", {61}},
       {"n", {2}},
       {"constWidth", {62}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"constJustify", {63}},
       {"indAxis", {64}},
       {"type", {5}}});
}

TEST_F(SetUp, LineChart25D) {
  ExpectChanges([&] { object.LineChart25D(kInd.data(), kDep.data(), 61, 2, 62, 63.9, kFill, 64); },
                {{"ind", {1, 2}},
                 {"dep", {3, 4}},
                 {"const", {61}},
                 {"n", {2}},
                 {"lineStyle", {62}},
                 {"lineWidth", {63}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kFill)},
                 {"indAxis", {64}},
                 {"type", {6}}});
}

TEST_F(SetUp, LineWidthsLoseTheirFractions) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<double, int>> widths{{2.9, 2},
                                                   {-2.9, -2},
                                                   {0.9, 0},
                                                   {kNan, 0},
                                                   {1e300, INT_MAX},
                                                   {-1e300, INT_MIN},
                                                   {kInfinity, INT_MAX},
                                                   {-kInfinity, INT_MIN}};
  for (const auto& [given, stored] : widths) {
    object.LineChart25D(kInd.data(), kDep.data(), 61, 2, 62, given, kFill, 64);
    EXPECT_EQ(object.GetLineWidth(), stored) << given;
  }
}

TEST_F(SetUp, ScatterChart3D) {
  ExpectChanges([&] { object.ScatterChart3D(kPoints.data(), 61, 2, 62, kFill, kOutline, 63, 64); },
                {{"points", {41, 44, 45, 48}},
                 {"size", {61}},
                 {"n", {2}},
                 {"symbol", {62}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kOutline)},
                 {"plane", {63}},
                 {"const", {64}},
                 {"type", {7}}});
}

TEST_F(SetUp, LineChart3D) {
  ExpectChanges([&] { object.LineChart3D(kPoints.data(), 2, 61, 62, kFill); },
                {{"points", {41, 44, 45, 48}},
                 {"n", {2}},
                 {"lineStyle", {61}},
                 {"lineWidth", {62}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kFill)},
                 {"type", {8}}});
}

// The second argument has no effect: the last one says where the plane stands.
TEST_F(SetUp, ProjectionLineChart3D) {
  ExpectChanges([&] { object.ProjectionLineChart3D(kPoints.data(), 5, 2, 61, 62, kFill, 63, 7); },
                {{"points", {41, 44, 45, 48}},
                 {"n", {2}},
                 {"lineStyle", {61}},
                 {"lineWidth", {62}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kFill)},
                 {"plane", {63}},
                 {"const", {7}},
                 {"type", {9}}});
}

TEST_F(SetUp, GroupBarChart25D) {
  ExpectChanges(
      [&] {
        object.GroupBarChart25D(kInd.data(), kGroup.data(), 60, 61, 2, 3, 62, 63, 64,
                                kColors.data(), kOutline, 65, 66, 67);
      },
      {{"ind", {1, 2}},
       {"group", Group(6)},
       {"const", {60}},
       {"base", {61}},
       {"n", {2}},
       {"groups", {3}},
       {"groupType", {62}},
       {"indWidth", {63}},
       {"constWidth", {64}},
       {"groupColors", Colors(3)},
       {"outline", Components(kOutline)},
       {"indJustify", {65}},
       {"constJustify", {66}},
       {"indAxis", {67}},
       {"type", {10}}});
}

TEST_F(SetUp, GroupRibbonAndAreaCharts25D) {
  Contents changes{{"ind", {1, 2}},
                   {"group", Group(6)},
                   {"const", {61}},
                   {"n", {2}},
                   {"groups", {3}},
                   {"constWidth", {62}},
                   {"groupColors", Colors(3)},
                   {"outline", Components(kOutline)},
                   {"constJustify", {63}},
                   {"indAxis", {64}},
                   {"type", {11}}};
  CChartObj3D untouched(object);
  ExpectChanges(
      [&] {
        object.GroupRibbonChart25D(kInd.data(), kGroup.data(), 61, 2, 3, 62, kColors.data(),
                                   kOutline, 63, 64);
      },
      changes);
  object = untouched;
  changes["type"] = {12};
  ExpectChanges(
      [&] {
        object.GroupAreaFillChart25D(kInd.data(), kGroup.data(), 61, 2, 3, 62, kColors.data(),
                                     kOutline, 63, 64);
      },
      changes);
}

// Four groups, each with a colour; the fifth colour is that of the line. The sixth flag stays.
TEST_F(SetUp, OHLCChart25D) {
  object.SetNumGroups(99);
  ExpectChanges(
      [&] {
        object.OHLCChart25D(kInd.data(), kGroup.data(), 61, 2, 62, 63, 64, 65, kColors.data(),
                            kOutline, 66, 67, 68, std::array{71, 72, 73, 74, 75}.data());
      },
      {{"ind", {1, 2}},
       {"group", Group(8)},
       {"const", {61}},
       {"n", {2}},
       {"groups", {4}},
       {"symbol", {62}},
       {"symbol2", {63}},
       {"size", {64}},
       {"lineWidth", {65}},
       {"groupColors", Colors(4)},
       {"lineColor", Components(kColors[4])},
       {"outline", Components(kOutline)},
       {"constJustify", {66}},
       {"depJustify", {67}},
       {"indAxis", {68}},
       {"flags", {71, 72, 73, 74, 75, 926}},
       {"type", {13}}});
}

TEST_F(SetUp, OHLCChart25DWithoutFlagsHasAllParts) {
  object.OHLCChart25D(kInd.data(), kGroup.data(), 61, 2, 62, 63, 64, 65, kColors.data(), kOutline,
                      66, 67, 68, nullptr);
  EXPECT_EQ(ContentsOf(object)["flags"], (std::vector<double>{1, 1, 1, 1, 1, 926}));
}

TEST_F(SetUp, PlaneChart3D) {
  ExpectChanges([&] { object.PlaneChart3D(kPoints.data(), 2, 61, 62, kFill, kOutline); },
                {{"points", {41, 44, 45, 48}},
                 {"n", {2}},
                 {"indWidth", {61}},
                 {"constWidth", {62}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kOutline)},
                 {"type", {14}}});
}

TEST_F(SetUp, ScatterText3D) {
  ExpectChanges(
      [&] { object.ScatterText3D(kPoints.data(), kTexts.data(), 2, 61, 62, kFill, 63, 64); },
      {{"points", {41, 44, 45, 48}},
       {"texts", {51, 52}},
       {"n", {2}},
       {"size", {61}},
       {"textPlane", {62}},
       {"fill", Components(kFill)},
       {"plane", {63}},
       {"const", {64}},
       {"type", {15}}});
}

// Six groups, each with a colour; only the first flag is given.
TEST_F(SetUp, BoxAndWhiskerChart25D) {
  object.SetNumGroups(99);
  ExpectChanges(
      [&] {
        object.BoxAndWhiskerChart25D(kInd.data(), kGroup.data(), 61, 2, 62, 63, 64, 65, 66,
                                     kColors.data(), kOutline, 67, 68, 69, 70);
      },
      {{"ind", {1, 2}},
       {"group", Group(12)},
       {"const", {61}},
       {"n", {2}},
       {"groups", {6}},
       {"indWidth", {62}},
       {"constWidth", {63}},
       {"symbol", {64}},
       {"size", {65}},
       {"lineWidth", {66}},
       {"groupColors", Colors(6)},
       {"outline", Components(kOutline)},
       {"constJustify", {67}},
       {"depJustify", {68}},
       {"indAxis", {69}},
       {"flags", {70, 922, 923, 924, 925, 926}},
       {"type", {16}}});
}

TEST_F(SetUp, FloatingBarChart25D) {
  ExpectChanges(
      [&] {
        object.FloatingBarChart25D(kInd.data(), kDep.data(), kDep2.data(), 61, 2, 62, 63, kFill,
                                   kOutline, 64, 65, 66);
      },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"heights", {5, 6}},
       {"const", {61}},
       {"n", {2}},
       {"indWidth", {62}},
       {"constWidth", {63}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"indJustify", {64}},
       {"constJustify", {65}},
       {"indAxis", {66}},
       {"type", {17}}});
}

TEST_F(SetUp, PlaneChart25D) {
  ExpectChanges(
      [&] {
        object.PlaneChart25D(kInd.data(), kDep.data(), 61, 2, 62, 63, kFill, kOutline, 64, 65, 66);
      },
      {{"ind", {1, 2}},
       {"dep", {3, 4}},
       {"const", {61}},
       {"n", {2}},
       {"indWidth", {62}},
       {"constWidth", {63}},
       {"fill", Components(kFill)},
       {"outline", Components(kOutline)},
       {"indJustify", {64}},
       {"constJustify", {65}},
       {"indAxis", {66}},
       {"type", {18}}});
}

TEST_F(SetUp, PolysurfaceCharts) {
  const CPolysurface surface = Surface(81);
  ExpectChanges([&] { object.PolysurfaceChart2D(&surface, 61, 62); },
                {{"surface", {81, 82, 83}}, {"const", {61}}, {"plane", {62}}, {"type", {50}}});
  const CPolysurface other = Surface(91);
  ExpectChanges([&] { object.PolysurfaceChart3D(&other); },
                {{"surface", {91, 92, 93}}, {"type", {51}}});
}

// Values and colours, of which there is one more, take the place of other types' arrays.
TEST_F(SetUp, ContourPolysurface3D) {
  const CPolysurface surface = Surface(81);
  ExpectChanges(
      [&] { object.ContourPolysurface3D(&surface, kInd.data(), kColors.data(), 2, 61, 62); },
      {{"surface", {81, 82, 83}},
       {"ind", {1, 2}},
       {"segmentColors", Colors(3)},
       {"contours", {2}},
       {"const", {61}},
       {"labelFlag", {62}},
       {"type", {52}}});
}

TEST_F(SetUp, BaseAndConstValueStandInTwoOrders) {
  object.BarChart25D(nullptr, nullptr, 5, 7, 0, 1, 1, kFill, kOutline, 0, 0, 0);
  EXPECT_EQ(object.GetBaseValue(), 5.0);
  EXPECT_EQ(object.GetConstValue(), 7.0);
  object.GroupBarChart25D(nullptr, nullptr, 5, 7, 0, 0, 0, 1, 1, nullptr, kOutline, 0, 0, 0);
  EXPECT_EQ(object.GetBaseValue(), 7.0);
  EXPECT_EQ(object.GetConstValue(), 5.0);
}

TEST_F(SetUp, TheTypesOfTheTableAreTheirNumbers) {
  std::vector<int> types;
  for (const SetUpRoutine& routine : SetUpRoutines()) {
    routine.setUp(object, SetUpArrays{}, 0);
    EXPECT_EQ(object.GetChartType(), routine.type) << routine.name;
    types.push_back(routine.type);
  }
  EXPECT_EQ(types.size(), 21U);
}

TEST_F(SetUp, NullArraysLeaveWhatWasThere) {
  const CChartObj3D untouched(object);
  const Contents before = ContentsOf(untouched);
  for (const SetUpRoutine& routine : SetUpRoutines()) {
    SCOPED_TRACE(routine.name);
    object = untouched;
    routine.setUp(object, SetUpArrays{}, 2);
    const Contents after = ContentsOf(object);
    for (const char* name : {"ind", "dep", "dep2", "heights", "group", "points", "texts", "surface",
                             "groupColors", "segmentColors", "lineColor"}) {
      EXPECT_EQ(after.at(name), before.at(name)) << name;
    }
    EXPECT_EQ(object.GetSegmentColorMode(), 914);
    const bool takesPoints = routine.storages.front() == "Init3DPointStorage";
    const bool takesSurface = routine.storages.front() == "InitPolysurfaceStorage";
    // Without points there are none; a surface has no number of points.
    EXPECT_EQ(object.GetNumDataPnts(), takesPoints ? 0 : takesSurface ? 3 : 2);
    EXPECT_EQ(object.GetChartType(), routine.type);
  }
}

TEST_F(SetUp, AsManyElementsAsPoints) {
  const std::map<std::string, std::string> namesInContents{
      {"InitIndDataStorage", "ind"},      {"InitDepDataStorage", "dep"},
      {"InitDepData2Storage", "dep2"},    {"InitBarHeightsStorage", "heights"},
      {"InitGroupDataStorage", "group"},  {"Init3DPointStorage", "points"},
      {"InitDataStringsStorage", "texts"}};
  const SetUpSources sources;
  auto routines = orvalix::test::SetUpRoutines25D();
  for (const SetUpRoutine& more : orvalix::test::SetUpRoutines3D()) routines.push_back(more);
  for (const SetUpRoutine& routine : routines) {
    for (const int n : {2, 1, 0, -1}) {
      SCOPED_TRACE(::testing::Message() << routine.name << ", " << n);
      const std::size_t elements = n > 0 ? static_cast<std::size_t>(n) : 0;
      CChartObj3D fresh;
      routine.setUp(fresh, sources.Arrays(), n);
      EXPECT_EQ(fresh.GetNumDataPnts(), n);
      const Contents contents = ContentsOf(fresh);
      for (const auto& [storage, name] : namesInContents) {
        const bool taken = std::find(routine.storages.begin(), routine.storages.end(), storage) !=
                           routine.storages.end();
        std::size_t perPoint = taken ? 1 : 0;
        if (taken && name == "group") perPoint = static_cast<std::size_t>(fresh.GetNumGroups());
        if (taken && name == "points") perPoint = 2;  // x and v were read
        EXPECT_EQ(contents.at(name).size(), elements * perPoint) << name;
      }
    }
  }
}

TEST_F(SetUp, AnotherTypeKeepsTheArraysThatItDoesNotName) {
  const SetUpSources sources;
  CChartObj3D fresh;
  fresh.FloatingBarChart25D(kInd.data(), kDep.data(), kDep2.data(), 61, 2, 62, 63, kFill, kOutline,
                            64, 65, 66);
  fresh.RibbonChart25D(kDep.data(), kInd.data(), 1, 2, 2, kOutline, kFill, 0, 0);
  const Contents contents = ContentsOf(fresh);
  EXPECT_EQ(contents.at("ind"), (std::vector<double>{3, 4}));
  EXPECT_EQ(contents.at("dep"), (std::vector<double>{1, 2}));
  EXPECT_EQ(contents.at("heights"), (std::vector<double>{5, 6}));
  EXPECT_EQ(contents.at("indWidth"), (std::vector<double>{62}));
  EXPECT_EQ(contents.at("indJustify"), (std::vector<double>{64}));
}

TEST_F(SetUp, SourcesMayChangeAfterwards) {
  std::array<double, 2> ind = kInd;
  std::array<double, 4> group{1, 2, 3, 4};
  std::array<RGBDType, 2> colors{kFill, kOutline};
  object.GroupRibbonChart25D(ind.data(), group.data(), 61, 2, 2, 62, colors.data(), kOutline, 0, 0);
  ind.fill(99);
  group.fill(99);
  colors.fill({9, 9, 9, 9});
  EXPECT_EQ(object.GetIndData(1), 2.0);
  EXPECT_EQ(object.GetGroupData(1, 1), 4.0);
  EXPECT_EQ(object.GetGroupColor(0).red, kFill.red);
}

}  // namespace
