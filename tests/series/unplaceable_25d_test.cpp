#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "series/series_fixture.h"
#include "series/setup_routines.h"

namespace {

using orvalix::test::FeedbackPrimitive;
using orvalix::test::FeedbackVertex;
using orvalix::test::kInfinity;
using orvalix::test::kNan;
using orvalix::test::SetUpArrays;
using orvalix::test::SetUpRoutine;
using orvalix::test::SetUpRoutines25D;

constexpr std::size_t kPoints = 4;
constexpr std::size_t kMostGroups = 6;

/// The values of four points.
struct Values {
  std::array<double, kPoints> ind{1, 3, 5, 7};
  std::array<double, kPoints> dep{5, 8, 2, 6};
  std::array<double, kPoints> dep2{2, 3, 1, 4};  ///< heights of bars too
  std::array<std::array<double, kPoints>, kMostGroups> rows{
      {{1, 2, 1, 2}, {2, 3, 2, 3}, {1, 1, 2, 3}, {4, 5, 4, 5}, {6, 7, 6, 7}, {3, 4, 3, 4}}};
};

class Unplaceable25D : public orvalix::test::SeriesTest {
 protected:
  std::vector<FeedbackPrimitive> DrawnBy(const SetUpRoutine& routine, const Values& values,
                                         std::size_t points) {
    SetUp(routine, values, points);
    return Drawn();
  }

  void SetUp(const SetUpRoutine& routine, const Values& values, std::size_t points) {
    std::vector<double> group;
    for (const auto& row : values.rows) {
      group.insert(group.end(), row.begin(), row.begin() + static_cast<std::ptrdiff_t>(points));
    }
    const std::array<RGBDType, kMostGroups> colors{red, green, yellow, cyan, magenta, blue};
    SetUpArrays arrays{};
    arrays.ind = values.ind.data();
    arrays.dep = values.dep.data();
    arrays.dep2 = values.dep2.data();
    arrays.group = group.data();
    arrays.colors = colors.data();
    routine.setUp(series, arrays, static_cast<int>(points));
    series.SetSymbol(CChartObj3D::kCube);
    series.SetSymbol2(CChartObj3D::kCube);
    Plain();
  }

  static bool Takes(const SetUpRoutine& routine, const std::string& storage) {
    return std::find(routine.storages.begin(), routine.storages.end(), storage) !=
           routine.storages.end();
  }

  static void ExpectNumbers(const std::vector<FeedbackPrimitive>& drawn) {
    for (const FeedbackPrimitive& primitive : drawn) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        ASSERT_TRUE(std::isfinite(vertex.x) && std::isfinite(vertex.y) && std::isfinite(vertex.z));
      }
    }
  }
};

TEST_F(Unplaceable25D, ALastPointWithoutAPlaceIsLeftOut) {
  const Values good;
  for (const SetUpRoutine& routine : SetUpRoutines25D()) {
    const auto expected = DrawnBy(routine, good, kPoints - 1);
    ASSERT_FALSE(expected.empty());
    for (const double bad : {kNan, kInfinity, -kInfinity}) {
      SCOPED_TRACE(::testing::Message() << routine.name << ", " << bad);
      Values values = good;
      values.ind.back() = bad;
      ExpectSame(DrawnBy(routine, values, kPoints), expected);
      if (Takes(routine, "InitDepDataStorage")) {
        values = good;
        values.dep.back() = bad;
        ExpectSame(DrawnBy(routine, values, kPoints), expected);
      }
      if (Takes(routine, "InitDepData2Storage") || Takes(routine, "InitBarHeightsStorage")) {
        values = good;
        values.dep2.back() = bad;
        ExpectSame(DrawnBy(routine, values, kPoints), expected);
      }
      if (Takes(routine, "InitGroupDataStorage")) {
        values = good;
        for (auto& row : values.rows) row.back() = bad;
        ExpectSame(DrawnBy(routine, values, kPoints), expected);
      }
    }
  }
}

TEST_F(Unplaceable25D, SinglePartsOfACompositeAreLeftOut) {
  const Values good;
  for (const SetUpRoutine& routine : SetUpRoutines25D()) {
    if (!Takes(routine, "InitGroupDataStorage")) continue;
    const std::size_t whole = DrawnBy(routine, good, kPoints).size();
    const auto groups = static_cast<std::size_t>(series.GetNumGroups());
    for (std::size_t row = 0; row < groups; ++row) {
      SCOPED_TRACE(::testing::Message() << routine.name << ", row " << row);
      Values values = good;
      values.rows[row][1] = kNan;
      const auto drawn = DrawnBy(routine, values, kPoints);
      ExpectNumbers(drawn);
      EXPECT_LT(drawn.size(), whole);
      EXPECT_FALSE(drawn.empty());
    }
  }
}

TEST_F(Unplaceable25D, NothingUndefinedIsDrawn) {
  for (const SetUpRoutine& routine : SetUpRoutines25D()) {
    for (const double bad : {kNan, kInfinity, -kInfinity, 1e300, -1e300, 1e30, 1e-300,
                             std::numeric_limits<double>::max()}) {
      for (std::size_t point = 0; point < kPoints; ++point) {
        SCOPED_TRACE(::testing::Message() << routine.name << ", " << bad << " at " << point);
        Values values;
        values.ind[point] = bad;
        ExpectNumbers(DrawnBy(routine, values, kPoints));
        values = {};
        values.dep[point] = bad;
        values.rows[point][point] = bad;
        ExpectNumbers(DrawnBy(routine, values, kPoints));
        values = {};
        values.dep2[point] = bad;
        ExpectNumbers(DrawnBy(routine, values, kPoints));
      }
    }
  }
}

TEST_F(Unplaceable25D, AttributesThatAreNoNumbersDrawNothingUndefined) {
  using Set = void (CChartObj3D::*)(double);
  for (const SetUpRoutine& routine : SetUpRoutines25D()) {
    for (const Set set :
         {&CChartObj3D::SetBaseValue, &CChartObj3D::SetConstValue, &CChartObj3D::SetConstWidth,
          &CChartObj3D::SetIndWidth, &CChartObj3D::SetRelSize, &CChartObj3D::SetPlaneThickness,
          &CChartObj3D::SetFillGap, &CChartObj3D::SetOutlineWidth}) {
      for (const double bad : {kNan, kInfinity, 1e300}) {
        SCOPED_TRACE(::testing::Message() << routine.name << ", " << bad);
        SetUp(routine, {}, kPoints);
        (series.*set)(bad);
        ExpectNumbers(Drawn());
      }
    }
    // A series without a place isn't there.
    SetUp(routine, {}, kPoints);
    series.SetConstValue(kNan);
    EXPECT_TRUE(Drawn().empty()) << routine.name;
  }
}

TEST_F(Unplaceable25D, ValuesWithoutALogarithmCountAsThoseOf1) {
  SetLogScale(2, 1, 1000);
  const std::array<double, 2> ind{1, 4};
  for (const double value : {0.0, -5.0, -kInfinity}) {
    const std::array<double, 2> dep{value, 100};
    series.LineChart25D(ind.data(), dep.data(), 4, 2, 0, 1, red, 0);
    ExpectLines(Drawn(), {{{1, 4, 0}, {4, 4, 2}}});
  }
}

TEST_F(Unplaceable25D, AScaleWithoutARangeDrawsNothingUndefined) {
  transform.SetScale({5, 5, 5, 0}, {5, 5, 5, 0});
  for (const SetUpRoutine& routine : SetUpRoutines25D()) {
    SCOPED_TRACE(routine.name);
    ExpectNumbers(DrawnBy(routine, {}, kPoints));
  }
}

}  // namespace
