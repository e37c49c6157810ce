#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "series/setup_fixture.h"
#include "series/setup_routines.h"

namespace {

using orvalix::test::Contents;
using orvalix::test::ContentsOf;
using orvalix::test::kDep;
using orvalix::test::kDep2;
using orvalix::test::kFill;
using orvalix::test::kInd;
using orvalix::test::kOutline;
using orvalix::test::SetUpArrays;
using orvalix::test::SetUpRoutine;
using orvalix::test::SetUpRoutines;
using orvalix::test::SetUpSources;

class SetUpOfAny : public orvalix::test::SetUpTest {};

TEST_F(SetUpOfAny, TheTypesOfTheTableAreTheirNumbers) {
  std::vector<int> types;
  for (const SetUpRoutine& routine : SetUpRoutines()) {
    routine.setUp(object, SetUpArrays{}, 0);
    EXPECT_EQ(object.GetChartType(), routine.type) << routine.name;
    types.push_back(routine.type);
  }
  EXPECT_EQ(types.size(), 21U);
}

TEST_F(SetUpOfAny, NullArraysLeaveWhatWasThere) {
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

TEST_F(SetUpOfAny, AsManyElementsAsPoints) {
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

TEST_F(SetUpOfAny, AnotherTypeKeepsTheArraysThatItDoesNotName) {
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

TEST_F(SetUpOfAny, SourcesMayChangeAfterwards) {
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
