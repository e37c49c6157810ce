/// @file
/// A series in which everything has a value of its own, and what of it a set-up routine changes.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/surface/polysurface.h"
#include "support/temporary_file.h"

namespace orvalix::test {

/// Everything in a series by its name: arrays element by element, attributes as arrays of one.
using Contents = std::map<std::string, std::vector<double>>;

inline void Append(std::vector<double>& values, const RGBDType& color) {
  values.insert(values.end(), {color.red, color.green, color.blue, color.alpha});
}

inline std::vector<double> Components(const RGBDType& color) {
  std::vector<double> values;
  Append(values, color);
  return values;
}

/// Whatever the counts say. No element of the sources is 0.
inline void ReadArrays(CChartObj3D object, Contents& contents) {
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

inline std::uint64_t LittleEndian(const Bytes& bytes, std::size_t at, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t i = count; i > 0; --i) number = number << 8U | bytes.at(at + i - 1);
  return number;
}

/// What can be read from the record only.
inline void ReadRecord(const CChartObj3D& object, Contents& contents) {
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

inline Contents ContentsOf(const CChartObj3D& object) {
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

inline constexpr RGBDType kFill{0.11, 0.12, 0.13, 0.14};
inline constexpr RGBDType kOutline{0.15, 0.16, 0.17, 0.18};
inline const std::array<double, 2> kInd{1, 2};
inline const std::array<double, 2> kDep{3, 4};
inline const std::array<double, 2> kDep2{5, 6};
inline const std::array<double, 12> kGroup{21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
inline const std::array<point3Dtype, 2> kPoints{{{41, 42, 43, 44}, {45, 46, 47, 48}}};
inline const std::array<CString, 2> kTexts{CString("51"), CString("52")};
inline const std::array<RGBDType, 6> kColors{{{0.21, 0.22, 0.23, 0.24},
                                              {0.31, 0.32, 0.33, 0.34},
                                              {0.41, 0.42, 0.43, 0.44},
                                              {0.51, 0.52, 0.53, 0.54},
                                              {0.61, 0.62, 0.63, 0.64},
                                              {0.71, 0.72, 0.73, 0.74}}};

inline std::vector<double> Colors(std::size_t count) {
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i) Append(values, kColors[i]);
  return values;
}

inline std::vector<double> Group(std::size_t count) {
  return {kGroup.begin(), kGroup.begin() + static_cast<std::ptrdiff_t>(count)};
}

inline CPolysurface Surface(double x) {
  const std::array<point3Dtype, 3> points{{{x, 1, 1, 1}, {x + 1, 1, 1, 1}, {x + 2, 1, 1, 1}}};
  CPolysurface surface(3, 1, 3);
  surface.SetPolysurfacePoints(points.data(), 0, 3);
  return surface;
}

/// A series in which everything has a value of its own already.
class SetUpTest : public ::testing::Test {
 protected:
  SetUpTest() {
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

}  // namespace orvalix::test
