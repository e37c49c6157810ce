#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>

#include "orvalix/foundation/colors.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;

constexpr int kHuge = std::numeric_limits<int>::max();

const std::array<double, 4> kOneToFour{1, 2, 3, 4};
const std::array<RGBDType, 4> kColors{{{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}, {1, 1, 1, 1}}};
const std::array<point3Dtype, 3> kPoints{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}};

/// A storage of doubles with an element per point, by its routines.
struct PointStorage {
  const char* name;
  void (CChartObj3D::*init)(const double*);
  void (CChartObj3D::*free)();
  std::function<double(const CChartObj3D&, int)> get;
  void (CChartObj3D::*set)(int, double);
};

std::vector<PointStorage> PointStorages() {
  return {
      {"InitIndDataStorage", &CChartObj3D::InitIndDataStorage, &CChartObj3D::DeleteIndDataStorage,
       [](const CChartObj3D& o, int i) { return o.GetIndData(i); }, &CChartObj3D::SetIndData},
      {"InitDepDataStorage", &CChartObj3D::InitDepDataStorage, &CChartObj3D::DeleteDepDataStorage,
       [](const CChartObj3D& o, int i) { return o.GetDepData(i); }, &CChartObj3D::SetDepData},
      {"InitDepData2Storage", &CChartObj3D::InitDepData2Storage,
       &CChartObj3D::DeleteDepData2Storage,
       [](const CChartObj3D& o, int i) { return o.GetDepData2(i, 77.0); },
       &CChartObj3D::SetDepData2},
      {"InitBarHeightsStorage", &CChartObj3D::InitBarHeightsStorage,
       &CChartObj3D::DeleteBarHeightsStorage,
       [](const CChartObj3D& o, int i) { return o.GetBarHeight(i); }, &CChartObj3D::SetBarHeight}};
}

TEST(ChartObjStorage, CopiesAnElementPerPoint) {
  for (const PointStorage& storage : PointStorages()) {
    SCOPED_TRACE(storage.name);
    CChartObj3D object;
    EXPECT_EQ(storage.get(object, 0), 0.0);
    object.SetNumDataPnts(3);
    auto source = kOneToFour;
    (object.*storage.init)(source.data());
    source[0] = 99;
    EXPECT_EQ(storage.get(object, 0), 1.0);
    EXPECT_EQ(storage.get(object, 2), 3.0);
    for (const int outside : {-1, 3, kHuge}) {
      EXPECT_EQ(storage.get(object, outside), 0.0);
      (object.*storage.set)(outside, 5.0);
    }
    (object.*storage.set)(1, 8.0);
    EXPECT_EQ(storage.get(object, 1), 8.0);
    (object.*storage.init)(nullptr);  // no change
    EXPECT_EQ(storage.get(object, 1), 8.0);
    // The count says more than there is: nothing outside is read.
    object.SetNumDataPnts(kHuge);
    EXPECT_EQ(storage.get(object, 3), 0.0);
    (object.*storage.set)(kHuge - 1, 1.0);
    object.SetNumDataPnts(2);
    EXPECT_EQ(storage.get(object, 2), 0.0);  // the count bounds, too
    (object.*storage.free)();
    EXPECT_EQ(storage.get(object, 1), 0.0);
    EXPECT_EQ(object.GetNumDataPnts(), 2);
  }
}

TEST(ChartObjStorage, CountsBelow1AreEmpty) {
  for (const PointStorage& storage : PointStorages()) {
    CChartObj3D object;
    object.SetNumDataPnts(-5);
    (object.*storage.init)(kOneToFour.data());
    object.SetNumDataPnts(1);
    EXPECT_EQ(storage.get(object, 0), 0.0) << storage.name;
  }
}

TEST(ChartObjStorage, GroupsFollowEachOther) {
  CChartObj3D object;
  object.SetNumDataPnts(2);
  object.SetNumGroups(2);
  object.InitGroupDataStorage(kOneToFour.data());
  EXPECT_EQ(object.GetGroupData(0, 0), 1.0);
  EXPECT_EQ(object.GetGroupData(0, 1), 2.0);
  EXPECT_EQ(object.GetGroupData(1, 0), 3.0);
  EXPECT_EQ(object.GetGroupData(1, 1), 4.0);
  object.SetGroupData(1, 0, 30.0);
  EXPECT_EQ(object.GetGroupData(1, 0), 30.0);
  for (const auto& [group, point] :
       std::initializer_list<std::pair<int, int>>{{2, 0}, {0, 2}, {-1, 0}, {0, -1}, {kHuge, 0}}) {
    EXPECT_EQ(object.GetGroupData(group, point), 0.0);
    object.SetGroupData(group, point, 5.0);
  }
  object.InitGroupDataStorage(nullptr);
  EXPECT_EQ(object.GetGroupData(1, 0), 30.0);
  object.SetNumGroups(kHuge);
  object.SetNumDataPnts(kHuge);
  EXPECT_EQ(object.GetGroupData(kHuge - 1, kHuge - 1), 0.0);
  object.DeleteGroupDataStorage();
  EXPECT_EQ(object.GetGroupData(0, 0), 0.0);
}

TEST(ChartObjStorage, GroupColors) {
  CChartObj3D object;
  object.SetNumGroups(2);
  object.InitGroupColorsStorage(kColors.data());
  EXPECT_EQ(object.GetGroupColor(1).green, 1.0);
  EXPECT_EQ(object.GetGroupColor(2).blue, 0.0);
  object.SetGroupColor(1, SetRGBD(0.5, 0, 0, 0));
  object.SetGroupColor(2, SetRGBD(0.5, 0, 0, 0));
  object.InitGroupColorsStorage(nullptr);
  EXPECT_EQ(object.GetGroupColor(1).red, 0.5);
  object.DeleteGroupColorsStorage();
  EXPECT_EQ(object.GetGroupColor(1).red, 0.0);
}

TEST(ChartObjStorage, SegmentColorsSwitchTheirMode) {
  CChartObj3D object;
  object.SetNumDataPnts(2);
  object.InitSegmentColorsStorage(kColors.data());
  EXPECT_EQ(object.GetSegmentColorMode(), 1);
  EXPECT_EQ(object.GetSegmentColor(1).green, 1.0);
  EXPECT_EQ(object.GetSegmentColor(2).alpha, 0.0);
  EXPECT_EQ(object.GetSegmentColor(-1).alpha, 0.0);
  object.SetSegmentColor(0, SetRGBD(0.5, 0, 0, 0));
  EXPECT_EQ(object.GetSegmentColor(0).red, 0.5);
  object.InitSegmentColorsStorage(nullptr);
  EXPECT_EQ(object.GetSegmentColorMode(), 0);
  EXPECT_EQ(object.GetSegmentColor(0).red, 0.5);  // the colours stay
}

TEST(ChartObjStorage, NoPointsMeansNoData) {
  CChartObj3D object;
  object.SetNumDataPnts(2);
  object.Init3DPointStorage(kPoints.data());
  EXPECT_EQ(object.Get3DPoint(1).v, 8.0);
  EXPECT_EQ(object.Get3DPoint(2).x, 0.0);
  object.Set3DPoint(0, {7, 7, 7, 7});
  object.Set3DPoint(2, {7, 7, 7, 7});
  EXPECT_EQ(object.Get3DPoint(0).x, 7.0);
  object.Init3DPointStorage(nullptr);
  EXPECT_EQ(object.GetNumDataPnts(), 0);
  object.Set3DPointStorage(kPoints.data(), 3);
  EXPECT_EQ(object.GetNumDataPnts(), 3);
  EXPECT_EQ(object.Get3DPoint(2).z, 11.0);
  object.Delete3DPointStorage();
  EXPECT_EQ(object.Get3DPoint(2).z, 0.0);
}

TEST(ChartObjStorage, Texts) {
  const std::array<CString, 2> texts{CString("one"), CString("two")};
  CChartObj3D object;
  object.SetDataStringsStorage(kPoints.data(), texts.data(), 2);
  EXPECT_EQ(object.GetNumDataPnts(), 2);
  EXPECT_STREQ(object.GetScatterTextString(1), "two");
  EXPECT_STREQ(object.GetScatterTextString(2), "");
  object.SetScatterTextString(0, "zero");
  object.SetScatterTextString(-1, "lost");
  EXPECT_STREQ(object.GetScatterTextString(0), "zero");
  EXPECT_EQ(object.Get3DPoint(1).x, 5.0);
  object.InitDataStringsStorage(nullptr);
  EXPECT_STREQ(object.GetScatterTextString(0), "zero");
  object.DeleteDataStringsStorage();
  EXPECT_STREQ(object.GetScatterTextString(0), "");
}

TEST(ChartObjStorage, ContoursAreReadByPointsAndWrittenByContours) {
  CChartObj3D object;
  object.SetNumContours(3);
  object.InitContourValueStorage(kOneToFour.data());
  object.InitContourColorsStorage(kColors.data());  // one more than contours
  for (int i = -1; i < 5; ++i) EXPECT_EQ(object.GetContourValue(i), 0.0) << i;
  EXPECT_EQ(object.GetContourColor(0).red, 1.0);  // below NumDataPnts + 1
  EXPECT_EQ(object.GetContourColor(1).green, 0.0);
  object.SetNumDataPnts(2);
  EXPECT_EQ(object.GetContourValue(1), 2.0);
  EXPECT_EQ(object.GetContourValue(2), 0.0);
  EXPECT_EQ(object.GetContourColor(2).blue, 1.0);
  EXPECT_EQ(object.GetContourColor(3).red, 0.0);
  object.SetContourValue(2, 30.0);
  object.SetContourValue(3, 40.0);
  object.SetContourColor(3, SetRGBD(0.5, 0, 0, 0));
  object.SetContourColor(4, SetRGBD(0.5, 0, 0, 0));
  object.SetNumDataPnts(kHuge);
  EXPECT_EQ(object.GetContourValue(2), 30.0);
  EXPECT_EQ(object.GetContourValue(3), 0.0);
  EXPECT_EQ(object.GetContourColor(3).red, 0.5);
  EXPECT_EQ(object.GetContourColor(4).red, 0.0);
  EXPECT_EQ(object.GetContourColor(-1).red, 0.0);
  // They share the storages of independent values and segment colours.
  EXPECT_EQ(object.GetIndData(0), 1.0);
  EXPECT_EQ(object.GetSegmentColor(3).red, 0.5);
  EXPECT_EQ(object.GetSegmentColorMode(), 0);
  object.InitContourValueStorage(nullptr);
  object.InitContourColorsStorage(nullptr);
  EXPECT_EQ(object.GetIndData(0), 1.0);
  object.DeleteContourValueStorage();
  object.DeleteContourColorsStorage();
  EXPECT_EQ(object.GetIndData(0), 0.0);
  EXPECT_EQ(object.GetSegmentColor(3).red, 0.0);
}

TEST(ChartObjStorage, DataStorage25DPutsDependentValuesWhereIndependentOnesGo) {
  const std::array<double, 2> ind{1, 2};
  const std::array<double, 2> dep{30, 40};
  const std::array<double, 2> dep2{500, 600};
  CChartObj3D object;
  object.SetNumDataPnts(2);
  object.InitDepDataStorage(ind.data());
  object.SetDataStorage25D(ind.data(), dep.data(), dep2.data(), 2);
  EXPECT_EQ(object.GetIndData(0), 30.0);
  EXPECT_EQ(object.GetDepData(0), 1.0);  // as it was
  EXPECT_EQ(object.GetDepData2(1, 0.0), 600.0);
  EXPECT_EQ(object.GetBarHeight(1), 600.0);
  object.SetDataStorage25D(ind.data(), nullptr, nullptr, 1);
  EXPECT_EQ(object.GetNumDataPnts(), 1);
  EXPECT_EQ(object.GetIndData(0), 1.0);
  EXPECT_EQ(object.GetBarHeight(0), 500.0);
}

TEST(ChartObjStorage, GroupDataStorageSetsBothCounts) {
  CChartObj3D object;
  object.SetGroupDataStorage(kOneToFour.data(), kOneToFour.data(), 2, 2, kColors.data());
  EXPECT_EQ(object.GetNumDataPnts(), 2);
  EXPECT_EQ(object.GetNumGroups(), 2);
  EXPECT_EQ(object.GetIndData(1), 2.0);
  EXPECT_EQ(object.GetGroupData(1, 1), 4.0);
  EXPECT_EQ(object.GetGroupColor(1).green, 1.0);
  object.SetBarHeightsStorage(kOneToFour.data());
  EXPECT_EQ(object.GetBarHeight(1), 2.0);
}

/// A storage routine, with its source of three elements.
struct Storage {
  const char* name;
  void (*init)(CChartObj3D&);
};

TEST(ChartObjStorageFailure, EveryRoutineReportsItsOwnName) {
  static const std::array<double, 4> numbers{1, 2, 3, 4};
  static const std::array<RGBDType, 4> colors{};
  static const std::array<point3Dtype, 4> points{};
  static const std::array<CString, 4> texts{};
  const std::vector<Storage> storages{
      {"InitIndDataStorage", [](CChartObj3D& o) { o.InitIndDataStorage(numbers.data()); }},
      {"InitDepDataStorage", [](CChartObj3D& o) { o.InitDepDataStorage(numbers.data()); }},
      {"InitDepData2Storage", [](CChartObj3D& o) { o.InitDepData2Storage(numbers.data()); }},
      {"InitBarHeightsStorage", [](CChartObj3D& o) { o.InitBarHeightsStorage(numbers.data()); }},
      {"InitGroupDataStorage", [](CChartObj3D& o) { o.InitGroupDataStorage(numbers.data()); }},
      {"InitGroupColorsStorage", [](CChartObj3D& o) { o.InitGroupColorsStorage(colors.data()); }},
      {"InitSegmentColorsStorage",
       [](CChartObj3D& o) { o.InitSegmentColorsStorage(colors.data()); }},
      {"Init3DPointStorage", [](CChartObj3D& o) { o.Init3DPointStorage(points.data()); }},
      {"InitContourValueStorage",
       [](CChartObj3D& o) { o.InitContourValueStorage(numbers.data()); }},
      {"InitContourColorsStorage",
       [](CChartObj3D& o) { o.InitContourColorsStorage(colors.data()); }},
      {"InitDataStringsStorage", [](CChartObj3D& o) { o.InitDataStringsStorage(texts.data()); }}};
  for (const Storage& storage : storages) {
    SCOPED_TRACE(storage.name);
    CChartObj3D object;
    object.SetNumDataPnts(3);
    object.SetNumGroups(1);
    object.SetNumContours(3);
    EXPECT_EQ(Catch([&] {
                const orvalix::test::AllocationFailure failure(1);
                storage.init(object);
              }),
              (CaughtError{2, 5, storage.name}));
    EXPECT_EQ(Catch([&] { storage.init(object); }), kNoError);
  }
}

TEST(ChartObjStorageFailure, ImpossibleSizesAreRefused) {
  const std::array<double, 1> number{1};
  CChartObj3D object;
  object.SetNumDataPnts(2147483647);
  object.SetNumGroups(2147483647);
  EXPECT_EQ(Catch([&] { object.InitGroupDataStorage(number.data()); }),
            (CaughtError{2, 5, "InitGroupDataStorage"}));
}

TEST(ChartObjCopies, ReportMemoryThatRunsOut) {
  CChartObj3D source;
  const std::array<double, 2> values{1, 2};
  source.SetNumDataPnts(2);
  source.InitIndDataStorage(values.data());
  source.InitDepDataStorage(values.data());
  CChartObj3D target;
  target.SetBaseValue(5.0);
  int errors = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const auto caught = Catch([&] { target = source; });
    if (caught == orvalix::test::kNoError) return;
    ++errors;
    EXPECT_EQ(caught, (CaughtError{2, 5, "operator="}));
    EXPECT_EQ(target.GetBaseValue(), 5.0);
    EXPECT_EQ(target.GetNumDataPnts(), 0);
  });
  EXPECT_EQ(failures, 2);
  EXPECT_EQ(errors, failures);
  EXPECT_EQ(target.GetDepData(1), 2.0);
  const int counted = CChartObj3D::nSelfID;
  const CChartObj3D copy(target);
  EXPECT_EQ(copy.GetIndData(1), 2.0);
  EXPECT_EQ(CChartObj3D::nSelfID, counted);
}

}  // namespace
