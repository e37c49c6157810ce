#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "orvalix/foundation/colors.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

// Where the fields of the record stand.
constexpr std::size_t kOwner = 4;
constexpr std::size_t kReals = 8;
constexpr std::size_t kColors = kReals + 8 * 8;
constexpr std::size_t kIntegers = kColors + 3 * 32;
constexpr std::size_t kFlags = kIntegers + 27 * 4;
constexpr std::size_t kEnable = kFlags + 6 * 4;
constexpr std::size_t kArrays = kEnable + 4;

/// Places in the row of integers.
enum Integer {
  kSymbol,
  kSymbol2,
  kPoints,
  kDep2Count,
  kHeightsCount,
  kPointCount,
  kGroupColorsCount,
  kSegmentColorsCount,
  kStringsCount,
  kPolysurfaceFlag,
  kGroups,
  kLineWidth,
  kLineStyle,
  kIndJustify,
  kDepJustify,
  kConstJustify,
  kIndAxis,
  kProjectionPlane,
  kTextPlane,
  kGroupType,
  kChartType,
  kSegmentColorMode,
  kNumContours,
  kContourLabelFlag,
  kColorMode,
  kClipping,
  kOutlineMode
};

template <class T>
T At(const Bytes& bytes, std::size_t offset) {
  T value{};
  EXPECT_LE(offset + sizeof(T), bytes.size());
  if (offset + sizeof(T) <= bytes.size()) std::memcpy(&value, bytes.data() + offset, sizeof(T));
  return value;
}

int IntegerOf(const Bytes& bytes, Integer place) {
  return At<int>(bytes, kIntegers + 4 * static_cast<std::size_t>(place));
}

void PutInteger(Bytes& bytes, Integer place, int value) {
  std::memcpy(bytes.data() + kIntegers + 4 * static_cast<std::size_t>(place), &value,
              sizeof(value));
}

CChartObj3D SampleBars() {
  std::array<double, 2> ind{1, 2};
  std::array<double, 2> dep{3, 4};
  CChartObj3D object;
  object.BarChart25D(ind.data(), dep.data(), 0.5, 1.5, 2, 2.5, 3.5, SetRGBD(0.1, 0, 0, 1),
                     SetRGBD(0.2, 0, 0, 1), 1, 2, 1);
  return object;
}

TEST(ChartObjRecord, HoldsTheFieldsInOrder) {
  CChartObj3D object = SampleBars();
  object.SetRelSize(4.5);
  object.SetFillGap(5.5);
  object.SetOutlineWidth(6.5);
  object.SetPlaneThickness(7.5);
  object.SetSymbol(101);
  object.SetSymbol2(102);
  object.SetLineWidth(103);
  object.SetLineStyle(104);
  object.SetDepJustify(105);
  object.SetProjectionPlane(106);
  object.SetTextPlane(107);
  object.SetGroupType(108);
  object.SetNumContours(109);
  object.SetContourLabelFlag(110);
  object.SetColorMode(111);
  object.SetClipping(112);
  object.SetOutlineMode(113);
  const std::array<int, 6> flags{1, 2, 3, 4, 5, 6};
  object.SetComboChartFlags(flags.data());
  object.EnableChartObj(7);
  const Bytes record = Saved(object);

  EXPECT_EQ(kArrays, 304U);
  ASSERT_EQ(record.size(), kArrays + 4 * 8);  // two arrays of two numbers
  EXPECT_EQ(At<int>(record, 0), CChartObj3D::nSelfID);
  EXPECT_EQ(At<int>(record, kOwner), 0);
  // Plane thickness stands before outline width.
  const std::array<double, 8> reals{1.5, 0.5, 4.5, 3.5, 2.5, 5.5, 7.5, 6.5};
  for (std::size_t i = 0; i < reals.size(); ++i) {
    EXPECT_EQ(At<double>(record, kReals + 8 * i), reals[i]) << i;
  }
  EXPECT_EQ(At<double>(record, kColors), 0.1);
  EXPECT_EQ(At<double>(record, kColors + 32), 0.2);
  EXPECT_EQ(At<double>(record, kColors + 64 + 24), 1.0);  // the line colour: opaque black
  const std::array<int, 27> integers{101, 102, 2, 0,   0,   0,   0, 0, 0,   0,   0,   103, 104, 1,
                                     105, 2,   1, 106, 107, 108, 2, 0, 109, 110, 111, 112, 113};
  for (std::size_t i = 0; i < integers.size(); ++i) {
    EXPECT_EQ(At<int>(record, kIntegers + 4 * i), integers[i]) << i;
  }
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(At<int>(record, kFlags + 4 * i), flags[i]);
  EXPECT_EQ(At<int>(record, kEnable), 7);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(At<double>(record, kArrays + 8 * i), static_cast<double>(i + 1));
  }

  CChartObj3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(Saved(loaded), record);
  EXPECT_EQ(loaded.GetDepData(1), 4.0);
}

TEST(ChartObjRecord, OverwritesTheCounter) {
  const int before = CChartObj3D::nSelfID;
  Bytes record = Saved(CChartObj3D());
  record[0] = 0x11;
  record[1] = 0x22;
  record[2] = 0;
  record[3] = 0;
  CChartObj3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CChartObj3D::nSelfID, 0x2211);
  CChartObj3D::nSelfID = before;
}

TEST(ChartObjRecord, GroupsReplaceDependentValues) {
  const std::array<double, 4> values{1, 2, 3, 4};
  const std::array<RGBDType, 2> colors{{{1, 0, 0, 1}, {0, 1, 0, 1}}};
  CChartObj3D object;
  object.SetGroupDataStorage(values.data(), values.data(), 2, 2, colors.data());
  object.InitDepDataStorage(values.data());  // not stored for groups
  object.InitDepData2Storage(values.data());
  object.InitBarHeightsStorage(values.data());
  object.InitSegmentColorsStorage(colors.data());
  const Bytes record = Saved(object);
  // 2 independent, 4 group, 2 + 2 further values, then 2 + 2 colours.
  ASSERT_EQ(record.size(), kArrays + 10 * 8 + 4 * 32);
  EXPECT_EQ(IntegerOf(record, kDep2Count), 2);
  EXPECT_EQ(IntegerOf(record, kHeightsCount), 2);
  EXPECT_EQ(IntegerOf(record, kGroupColorsCount), 2);
  EXPECT_EQ(IntegerOf(record, kSegmentColorsCount), 2);
  CChartObj3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(loaded.GetGroupData(1, 1), 4.0);
  EXPECT_EQ(loaded.GetDepData(0), 0.0);
  EXPECT_EQ(loaded.GetDepData2(1, 0), 2.0);
  EXPECT_EQ(loaded.GetBarHeight(1), 2.0);
  EXPECT_EQ(loaded.GetGroupColor(1).green, 1.0);
  EXPECT_EQ(loaded.GetSegmentColor(0).red, 1.0);
  EXPECT_EQ(loaded.GetSegmentColorMode(), 1);
  EXPECT_EQ(Saved(loaded), record);
}

TEST(ChartObjRecord, ThreeDimensionalTypesLoseTheirBarHeights) {
  const std::array<point3Dtype, 2> points{{{1, 2, 3, 4}, {5, 6, 7, 8}}};
  const std::array<CString, 2> texts{CString("one"), CString("two")};
  const std::array<double, 2> heights{9, 10};
  CChartObj3D object;
  object.SetDataStringsStorage(points.data(), texts.data(), 2);
  object.SetBarHeightsStorage(heights.data());
  const Bytes record = Saved(object);
  ASSERT_EQ(record.size(), kArrays + 2 * 32 + 2 * 7);  // points, then two texts of three bytes
  EXPECT_EQ(IntegerOf(record, kPointCount), 2);
  EXPECT_EQ(IntegerOf(record, kStringsCount), 2);
  CChartObj3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(loaded.Get3DPoint(1).v, 8.0);
  EXPECT_STREQ(loaded.GetScatterTextString(1), "two");
  EXPECT_EQ(loaded.GetBarHeight(0), 0.0);
}

TEST(ChartObjRecord, CountsWithoutTheirArraysAreNotPromised) {
  CChartObj3D object = SampleBars();
  object.SetNumDataPnts(2147483647);
  object.SetNumGroups(5);  // without group data
  Bytes record = Saved(object);
  EXPECT_EQ(IntegerOf(record, kPoints), 2);
  EXPECT_EQ(IntegerOf(record, kGroups), 0);
  ASSERT_EQ(record.size(), kArrays + 4 * 8);
  EXPECT_EQ(At<double>(record, kArrays + 8), 2.0);
  EXPECT_EQ(At<double>(record, kArrays + 16), 3.0);
  object.DeleteIndDataStorage();
  record = Saved(object);
  EXPECT_EQ(IntegerOf(record, kPoints), 0);
  EXPECT_EQ(record.size(), kArrays);
}

/// Expects that what the object saves can be loaded and is then saved the same.
void ExpectReadable(const CChartObj3D& object) {
  const Bytes record = Saved(object);
  CChartObj3D loaded;
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
  EXPECT_EQ(Saved(loaded), record);
}

TEST(ChartObjRecord, PointsThatAreGoneLeaveRoomForTheOtherArrays) {
  const std::array<point3Dtype, 2> points{};
  const std::array<double, 2> heights{9, 10};
  CChartObj3D object;
  object.Set3DPointStorage(points.data(), 2);
  object.SetBarHeightsStorage(heights.data());
  object.Delete3DPointStorage();
  const Bytes record = Saved(object);
  // Without its points it is no three-dimensional type, so that the bar heights follow; there are
  // no independent and dependent values, so no points of them.
  EXPECT_EQ(IntegerOf(record, kPointCount), 0);
  EXPECT_EQ(IntegerOf(record, kPoints), 0);
  ASSERT_EQ(record.size(), kArrays + 2 * 8);
  EXPECT_EQ(At<double>(record, kArrays + 8), 10.0);
  ExpectReadable(object);
}

TEST(ChartObjRecord, CountsBelow0AreNotStored) {
  const std::array<double, 2> values{1, 2};
  const std::array<point3Dtype, 1> points{};
  const std::array<RGBDType, 1> colors{};
  CChartObj3D object = SampleBars();
  object.SetNumDataPnts(-3);  // every count of a storage becomes -3
  object.InitDepData2Storage(values.data());
  object.InitBarHeightsStorage(values.data());
  object.Init3DPointStorage(points.data());
  object.InitSegmentColorsStorage(colors.data());
  object.SetNumGroups(-3);
  object.InitGroupColorsStorage(colors.data());
  ExpectReadable(object);
  object.SetNumDataPnts(2);
  ExpectReadable(object);
  EXPECT_EQ(IntegerOf(Saved(object), kGroups), 0);
  EXPECT_EQ(IntegerOf(Saved(object), kPoints), 2);
}

TEST(ChartObjRecord, GroupsOfAnotherTypeStayWithPoints) {
  const std::array<point3Dtype, 1> points{};
  CChartObj3D object;
  object.Set3DPointStorage(points.data(), 1);
  object.SetNumGroups(5);  // such a record has no group data that could fall short
  EXPECT_EQ(IntegerOf(Saved(object), kGroups), 5);
  ExpectReadable(object);
}

TEST(ChartObjRecord, WhatAFailedLoadLeavesCanBeSaved) {
  const Bytes record = Saved(SampleBars());
  for (const Integer place : {kPoints, kDep2Count, kHeightsCount, kPointCount, kGroupColorsCount,
                              kSegmentColorsCount, kStringsCount, kPolysurfaceFlag, kGroups}) {
    for (const int count : {-1, 1, 1000}) {
      SCOPED_TRACE(::testing::Message() << "field " << place << ", count " << count);
      Bytes changed = record;
      PutInteger(changed, place, count);
      CChartObj3D loaded = SampleBars();
      Catch([&] { LoadFrom(loaded, changed); });
      ExpectReadable(loaded);
    }
  }
}

TEST(ChartObjRecord, ReplacesWhatWasThere) {
  const Bytes record = Saved(SampleBars());
  const std::array<double, 3> values{7, 8, 9};
  const std::array<CString, 3> texts{CString("a"), CString("b"), CString("c")};
  CChartObj3D object;
  object.SetNumDataPnts(3);
  object.InitIndDataStorage(values.data());
  object.InitDepDataStorage(values.data());
  object.InitDataStringsStorage(texts.data());
  LoadFrom(object, record);
  EXPECT_EQ(object.GetNumDataPnts(), 2);
  EXPECT_EQ(object.GetIndData(0), 1.0);
  EXPECT_EQ(object.GetDepData(1), 4.0);
  EXPECT_EQ(Saved(object), record);
}

TEST(ChartObjRecord, SurvivesEveryTruncation) {
  CChartObj3D object = SampleBars();
  object.SetOutlineMode(9);
  const Bytes record = Saved(object);
  const int before = CChartObj3D::nSelfID;
  for (std::size_t length = 0; length < record.size(); ++length) {
    SCOPED_TRACE(length);
    CChartObj3D loaded;
    const CaughtError error = Catch([&] {
      LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    if (error != kNoError) {
      EXPECT_EQ(error, (CaughtError{7, 5, "Load"}));
    }
    EXPECT_EQ(loaded.GetOutlineMode(), length >= kFlags ? 9 : 1);
    EXPECT_EQ(loaded.GetIndData(1), length >= kArrays + 16 ? 2.0 : 0.0);
    EXPECT_EQ(loaded.GetDepData(1), 0.0);
  }
  CChartObj3D::nSelfID = before;
}

TEST(ChartObjRecord, DistrustsCounts) {
  const Bytes record = Saved(SampleBars());
  for (const Integer place : {kPoints, kDep2Count, kHeightsCount, kPointCount, kGroupColorsCount,
                              kSegmentColorsCount, kStringsCount, kGroups}) {
    for (const int count : {-1, 1000, 2147483647, -2147483647}) {
      SCOPED_TRACE(::testing::Message() << "field " << place << ", count " << count);
      Bytes changed = record;
      PutInteger(changed, place, count);
      if (place == kPointCount) PutInteger(changed, kPoints, count);
      CChartObj3D loaded;
      EXPECT_EQ(Catch([&] { LoadFrom(loaded, changed); }), (CaughtError{7, 5, "Load"}));
      // Whatever was read: nothing outside an array is.
      EXPECT_EQ(loaded.GetIndData(1000), 0.0);
      EXPECT_EQ(loaded.GetGroupData(900, 1), 0.0);
    }
  }
}

TEST(ChartObjRecord, ReportsFailingFiles) {
  CChartObj3D object = SampleBars();
  object.Save(nullptr);
  object.Load(nullptr);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { object.Save(full.m_hFile); }), (CaughtError{7, 5, "Save"}));
}

/// Lets each allocation of `work` fail in turn; all have to be reported the same way.
template <class Work>
void ExpectEachFailure(const CaughtError& expected, Work&& work) {
  int errors = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch(work);
    errors += caught == expected ? 1 : 0;
    EXPECT_TRUE(caught == expected || caught == kNoError) << caught;
  });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(errors, failures);
}

TEST(ChartObjRecord, ReportsMemoryThatRunsOut) {
  const CChartObj3D object = SampleBars();
  CFile nowhere;
  ASSERT_TRUE(nowhere.Open("/dev/null", CFile::modeWrite));
  ExpectEachFailure({2, 5, "Save"}, [&] { object.Save(nowhere.m_hFile); });
  const orvalix::test::TemporaryFile file(Saved(object));
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  ExpectEachFailure({2, 5, "Load"}, [&] {
    in.Seek(0, CFile::begin);
    CChartObj3D loaded;
    loaded.Load(in.m_hFile);
  });
}

}  // namespace
