#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <limits>
#include <utility>
#include <vector>

#include "series/setup_fixture.h"

namespace {

using orvalix::test::Colors;
using orvalix::test::Components;
using orvalix::test::Contents;
using orvalix::test::ContentsOf;
using orvalix::test::Group;
using orvalix::test::kColors;
using orvalix::test::kDep;
using orvalix::test::kDep2;
using orvalix::test::kFill;
using orvalix::test::kGroup;
using orvalix::test::kInd;
using orvalix::test::kOutline;

class SetUp25D : public orvalix::test::SetUpTest {};

TEST_F(SetUp25D, RibbonChart25D) {
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

TEST_F(SetUp25D, BarChart25D) {
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

TEST_F(SetUp25D, AreaFillChart25D) {
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

TEST_F(SetUp25D, AreaRangeChart25D) {
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

TEST_F(SetUp25D, LineChart25D) {
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

TEST_F(SetUp25D, LineWidthsLoseTheirFractions) {
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

TEST_F(SetUp25D, GroupBarChart25D) {
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

TEST_F(SetUp25D, GroupRibbonAndAreaCharts25D) {
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
TEST_F(SetUp25D, OHLCChart25D) {
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

TEST_F(SetUp25D, OHLCChart25DWithoutFlagsHasAllParts) {
  object.OHLCChart25D(kInd.data(), kGroup.data(), 61, 2, 62, 63, 64, 65, kColors.data(), kOutline,
                      66, 67, 68, nullptr);
  EXPECT_EQ(ContentsOf(object)["flags"], (std::vector<double>{1, 1, 1, 1, 1, 926}));
}

// Six groups, each with a colour; only the first flag is given.
TEST_F(SetUp25D, BoxAndWhiskerChart25D) {
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

TEST_F(SetUp25D, FloatingBarChart25D) {
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

TEST_F(SetUp25D, PlaneChart25D) {
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

TEST_F(SetUp25D, BaseAndConstValueStandInTwoOrders) {
  object.BarChart25D(nullptr, nullptr, 5, 7, 0, 1, 1, kFill, kOutline, 0, 0, 0);
  EXPECT_EQ(object.GetBaseValue(), 5.0);
  EXPECT_EQ(object.GetConstValue(), 7.0);
  object.GroupBarChart25D(nullptr, nullptr, 5, 7, 0, 0, 0, 1, 1, nullptr, kOutline, 0, 0, 0);
  EXPECT_EQ(object.GetBaseValue(), 7.0);
  EXPECT_EQ(object.GetConstValue(), 5.0);
}

}  // namespace
