#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/surface/polysurface.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

struct Range {
  double min;
  double max;
};

Range Rounded(double min, double max, int toMinorStep) {
  CChart3D().RoundAxis(min, max, toMinorStep);
  return {min, max};
}

void ExpectRounded(const Range& range, int toMinorStep, const Range& expected) {
  SCOPED_TRACE(::testing::Message() << range.min << " to " << range.max << ", " << toMinorStep);
  const Range actual = Rounded(range.min, range.max, toMinorStep);
  EXPECT_NEAR(actual.min, expected.min, 1e-9 * std::abs(expected.min));
  EXPECT_NEAR(actual.max, expected.max, 1e-9 * std::abs(expected.max));
}

TEST(RoundAxis, WidensToMinorSteps) {
  // 10 is log 1, decade 1: grid of 0.1, from 0 to 100, 101 units, steps of 5 (times 8). Up from
  // 100 by one step of 5: 105; (0 - 1) / 5 is 0.
  ExpectRounded({0, 10}, 1, {0, 10.5});
  // 4 to 60: log 56 = 1.7, decade 2: grid of 1, 4 to 60, 57 units, steps of 5 (times 4).
  // (60 / 5 + 1) * 5 = 65; (3 / 5) * 5 = 0.
  ExpectRounded({4, 60}, 1, {0, 65});
  // 12 to 40: 29 units, steps of 2 (times 5): (40 / 2 + 1) * 2 = 42; (11 / 2) * 2 = 10.
  ExpectRounded({12, 40}, 1, {10, 42});
  // 20 to 35: 16 units, steps of 1 (times 5): 36; 19.
  ExpectRounded({20, 35}, 1, {19, 36});
  // 100 to 109: log 9 = 0.95, decade 1: grid of 0.1, 1000 to 1090, 91 units, steps of 5.
  ExpectRounded({100, 109}, 1, {99.5, 109.5});
}

TEST(RoundAxis, WidensToMajorSteps) {
  ExpectRounded({0, 10}, 0, {0, 12});    // steps of 40: (100 / 40 + 1) * 40 = 120
  ExpectRounded({4, 60}, 0, {0, 80});    // of 20: (60 / 20 + 1) * 20
  ExpectRounded({12, 40}, 0, {10, 50});  // of 10: (40 / 10 + 1) * 10, (11 / 10) * 10
  ExpectRounded({20, 35}, 0, {15, 40});  // of 5: (35 / 5 + 1) * 5, (19 / 5) * 5
}

TEST(RoundAxis, TakesTheFirstFittingPattern) {
  // Spans of exactly 81, 80, 41, 40, 21, 20, 11 and 10 units, from 100 units on: B + 1 - A.
  const auto stepOf = [](int span) {
    // A range of span - 1 units of 1, in decade 2 (10 < extent <= 100), starting at 200.
    const Range rounded = Rounded(200.0, 200.0 + span - 1, 1);
    return rounded;
  };
  // 81: steps of 5: high (280 / 5 + 1) * 5 = 285, low (199 / 5) * 5 = 195.
  EXPECT_EQ(stepOf(81).max, 285.0);
  EXPECT_EQ(stepOf(81).min, 195.0);
  EXPECT_EQ(Rounded(200.0, 280.0, 0).max, 320.0);  // 5 * 8
  EXPECT_EQ(Rounded(200.0, 279.0, 0).max, 280.0);  // 80 units: 5 * 4
  EXPECT_EQ(stepOf(41).max, 245.0);                // steps of 5
  EXPECT_EQ(stepOf(40).max, 240.0);                // of 2
  EXPECT_EQ(stepOf(40).min, 198.0);
  EXPECT_EQ(stepOf(21).max, 222.0);  // of 2
  EXPECT_EQ(stepOf(20).max, 220.0);  // of 1
  EXPECT_EQ(stepOf(20).min, 199.0);
  EXPECT_EQ(Rounded(200.0, 219.0, 0).max, 220.0);  // 1 * 5
  // 11 units: an extent of 10 is in decade 1, so the grid is 0.1; a span of 10 comes from extents
  // whose logarithm rounds up late. 1 to 1.9 has log -0.046, decade 0: grid 0.01, 91 units.
  EXPECT_NEAR(Rounded(1.0, 1.9, 1).max, 1.95, 1e-9);
}

TEST(RoundAxis, TreatsSmallExtentsLiterally) {
  // 0.3: log -0.52; int(-0.52 + 0.5) = 0: decade 0, grid of 0.01, 0 to 30, 31 units: steps of 2.
  ExpectRounded({0, 0.3}, 1, {0, 0.32});
  ExpectRounded({0, 0.3}, 0, {0, 0.4});
  // 0.01: log -2; int(-1.5) = -1: grid of 0.001, 0 to 10, 11 units, steps of 1: 11 and -1.
  ExpectRounded({0, 0.01}, 1, {-0.001, 0.011});
  ExpectRounded({0, 0.01}, 0, {0, 0.015});
  // 0.009: log -2.05; int(-1.55) = -1: grid of 0.001, 0 to 9, 10 units: steps of 1 (times 2).
  ExpectRounded({0, 0.009}, 1, {-0.001, 0.01});
  ExpectRounded({0, 0.009}, 0, {0, 0.01});
}

TEST(RoundAxis, ShiftsRangesThatBeginBelowZero) {
  // -50 to 150: log 200 = 2.3, decade 3, grid of 10, shifted by 1000: 95 to 115, 21 units, steps
  // of 2: 116 and 94.
  ExpectRounded({-50, 150}, 1, {-60, 160});
  ExpectRounded({-50, 150}, 0, {-100, 200});
}

TEST(RoundAxis, MirrorsNegativeRanges) {
  // 50 to 150: log 100 = 2, decade 2, grid of 1, 101 units, steps of 5: 155 and (49 / 5) * 5 = 45.
  ExpectRounded({-150, -50}, 1, {-155, -45});
  ExpectRounded({50, 150}, 1, {45, 155});
}

TEST(RoundAxis, WidensEvenRoundRanges) {
  const Range range = Rounded(100.0, 200.0, 1);
  EXPECT_LT(range.min, 100.0);
  EXPECT_GT(range.max, 200.0);
}

TEST(RoundAxis, GivesRangesWithoutExtentOne) {
  ExpectRounded({5, 5}, 1, {0, 10.5});  // 0 to 10
  ExpectRounded({0, 0}, 1, {0, 10.5});  // 0 to 10
  ExpectRounded({1e-30, -1e-30}, 1, {0, 10.5});
  // -3: -6 to 0 has its maximum at 0: shifted by 10 to 4 and 10 on a grid of 0.1: 40 to 100, 61
  // units, steps of 5: 105 and 35.
  ExpectRounded({-3, -3}, 1, {-6.5, 0.5});
}

TEST(RoundAxis, ExchangesLimitsInTheWrongOrder) { ExpectRounded({10, 0}, 1, {0, 10.5}); }

TEST(RoundAxis, GivesNoNegativeZero) {
  EXPECT_FALSE(std::signbit(Rounded(0, 10, 1).min));
  EXPECT_FALSE(std::signbit(Rounded(-10, -0.3, 1).max));
  EXPECT_TRUE(std::isfinite(Rounded(0.0, 1.7e308, 1).max));
  const Range exchanged = Rounded(1.7e308, 0.0, 1);
  EXPECT_EQ(exchanged.min, 0.0);
}

TEST(RoundAxis, LeavesWhatIsNotFiniteAlone) {
  for (const double bad : {kNotANumber, kInfinity, -kInfinity}) {
    const Range range = Rounded(bad, 5.0, 1);
    EXPECT_EQ(std::isnan(bad), std::isnan(range.min));
    EXPECT_EQ(range.max, 5.0);
  }
  const Range widest = Rounded(-1.7e308, 1.7e308, 1);  // its extent is no number
  EXPECT_EQ(widest.min, -1.7e308);
  const Range large = Rounded(0.0, 1.7e308, 1);  // neither is what it would be rounded to
  EXPECT_FALSE(std::isnan(large.min));
  EXPECT_FALSE(std::isnan(large.max));
  const Range far = Rounded(1e15, 1e15 + 0.25, 1);
  EXPECT_LE(far.min, 1e15);
  EXPECT_GE(far.max, 1e15 + 0.25);
}

struct Tics {
  double first;
  double spacing;
  int divisions;
  int decimals;
};

Tics Choose(double min, double max) {
  Tics tics{-1, -1, -1, -1};
  CChart3D().CalcAxisTicMarks(min, max, tics.first, tics.spacing, tics.divisions, tics.decimals);
  return tics;
}

void ExpectTics(double min, double max, const Tics& expected) {
  SCOPED_TRACE(::testing::Message() << min << " to " << max);
  const Tics actual = Choose(min, max);
  EXPECT_NEAR(actual.first, expected.first, 1e-9 * std::abs(expected.first));
  EXPECT_NEAR(actual.spacing, expected.spacing, 1e-9 * expected.spacing);
  EXPECT_EQ(actual.divisions, expected.divisions);
  EXPECT_EQ(actual.decimals, expected.decimals);
}

TEST(CalcAxisTicMarks, FollowItsOwnTable) {
  ExpectTics(0, 10, {0, 0.5, 10, 0});     // 100 units of 0.1: 5 times 10 (RoundAxis has 8)
  ExpectTics(200, 281, {200, 5, 10, 0});  // 81 units of 1
  ExpectTics(200, 280, {200, 5, 4, 0});   // 80
  ExpectTics(200, 241, {200, 5, 4, 0});   // 41
  ExpectTics(200, 240, {200, 2, 5, 0});   // 40
  ExpectTics(200, 221, {200, 2, 5, 0});   // 21
  ExpectTics(200, 220, {200, 1, 5, 0});   // 20
  ExpectTics(200, 211, {200, 1, 5, 0});   // 11
}

TEST(CalcAxisTicMarks, TakeTheLastRowJustAboveADecade) {
  ExpectTics(0, 10.5, {0, 1, 2, 0});  // 10 units of 1
}

TEST(CalcAxisTicMarks, StartAtTheFirstMajorStepInside) {
  ExpectTics(4, 60, {20, 5, 4, 0});          // 4 up to the next 20
  ExpectTics(1879, 2024, {1900, 10, 5, 0});  // units of 10: 187 to 202, 15 units, major 5: 190
}

TEST(CalcAxisTicMarks, StartAtZeroInsideOfTheRange) {
  // -50 to 150: decade 3, shifted: 95 to 115 in units of 10, 20 units: 1 times 5.
  ExpectTics(-50, 150, {0, 10, 5, 0});
  ExpectTics(-0.6, 1.2, {0, 0.1, 5, 1});
}

TEST(CalcAxisTicMarks, MirrorNegativeRanges) {
  // 50 to 150 in units of 1 is 100 units: 5 times 10; 50 is a multiple of 50.
  ExpectTics(-150, -50, {-50, 5, 10, 0});
  // 4 to 60 begins at 20.
  ExpectTics(-60, -4, {-20, 5, 4, 0});
}

TEST(CalcAxisTicMarks, KeepTheShiftedNumberBelowZero) {
  // -150 to 0: decade 3, shifted by 1000 to 850 and 1000: 85 to 100 in units of 10, 15 units, 1
  // times 5; 85 is a multiple of 5. 0 isn't strictly inside.
  ExpectTics(-150, 0, {850, 10, 5, 0});
}

TEST(CalcAxisTicMarks, TellTheDecimalsOfMajorSteps) {
  EXPECT_EQ(Choose(0, 1000).decimals, 0);
  EXPECT_EQ(Choose(0, 2).decimals, 1);       // units of 0.1, 20 of them: major 0.5
  EXPECT_EQ(Choose(0, 0.2).decimals, 2);     // major 0.05
  EXPECT_EQ(Choose(0, 0.0002).decimals, 5);  // major 0.00005
  EXPECT_EQ(Choose(0, 1e30).decimals, 0);
}

TEST(CalcAxisTicMarks, TakeLimitsInEitherOrder) {
  ExpectTics(60, 4, {20, 5, 4, 0});
  ExpectTics(150, -50, {0, 10, 5, 0});
}

TEST(CalcAxisTicMarks, AreSafeForEveryRange) {
  const Tics equal = Choose(5, 5);  // as 0 to 10
  EXPECT_EQ(equal.first, 0.0);
  EXPECT_EQ(equal.spacing, 0.5);
  EXPECT_EQ(Choose(0, 0).spacing, 0.5);
  EXPECT_GT(Choose(-3, -3).spacing, 0.0);
  for (const double bad : {kNotANumber, kInfinity, -kInfinity}) {
    EXPECT_EQ(Choose(bad, 1).spacing, 0.0);
    EXPECT_EQ(Choose(0, bad).divisions, 1);
  }
  EXPECT_FALSE(std::isnan(Choose(-1.7e308, 1.7e308).spacing));
  EXPECT_FALSE(std::isnan(Choose(0, 1.7e308).first));
  EXPECT_FALSE(std::isnan(Choose(1e15, 1e15 + 0.25).first));
}

class AutoScale : public ::testing::Test {
 protected:
  AutoScale() : target(40, 40), chart(target.view->NewChart3D()) {}

  static void ExpectScale(const CTransform3D* transform, const point3Dtype& min,
                          const point3Dtype& max) {
    point3Dtype actualMin{};
    point3Dtype actualMax{};
    transform->GetScale(actualMin, actualMax);
    ExpectPoint(actualMin, min);
    ExpectPoint(actualMax, max);
  }
  static void ExpectPoint(const point3Dtype& actual, const point3Dtype& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9 * std::abs(expected.x));
    EXPECT_NEAR(actual.y, expected.y, 1e-9 * std::abs(expected.y));
    EXPECT_NEAR(actual.z, expected.z, 1e-9 * std::abs(expected.z));
  }

  ViewOn target;
  CChart3D* chart;
};

TEST_F(AutoScale, OfPoints) {
  const std::vector<point3Dtype> points{{0, 4, -150, 9}, {10, 60, -50, -9}, {5, 10, -100, 0}};
  CTransform3D* transform = chart->AutoTransform3D(points.data(), 3, 1);
  ExpectScale(transform, {0, 0, -155, 0}, {10.5, 65, -45, 0});
  EXPECT_EQ(chart->GetTransform(0), transform);
  EXPECT_EQ(transform->GetScaleMin().v, 9.0);  // that of the first point
  EXPECT_EQ(transform->GetScaleMax().v, 9.0);
  ExpectScale(chart->AutoTransform3D(points.data(), 3, 0), {0, 0, -160, 0}, {12, 80, -40, 0});
}

TEST_F(AutoScale, PassesOverWhatIsNoNumber) {
  const std::vector<point3Dtype> points{
      {kNotANumber, 4, 5, 0}, {0, kInfinity, 5, 0}, {10, 60, -kInfinity, 0}};
  ExpectScale(chart->AutoTransform3D(points.data(), 3, 1), {0, 0, 0, 0}, {10.5, 65, 10.5, 0});
  ExpectScale(chart->AutoTransform3D(nullptr, 3, 1), {0, 0, 0, 0}, {10.5, 10.5, 10.5, 0});
  for (const int count : {0, -5}) {
    ExpectScale(chart->AutoTransform3D(points.data(), count, 1), {0, 0, 0, 0},
                {10.5, 10.5, 10.5, 0});
  }
}

TEST_F(AutoScale, OfASeries) {
  const std::vector<double> x{4, 60, 1000};
  const std::vector<double> y{0, 10, 1000};
  ExpectScale(chart->AutoTransform25D(x.data(), y.data(), 2, 3.0, 0, 1), {0, 0, 0, 0},
              {65, 3, 10.5, 0});
  ExpectScale(chart->AutoTransform25D(x.data(), y.data(), 2, 3.0, 7, 1), {0, 0, 0, 0},
              {65, 3, 10.5, 0});
  ExpectScale(chart->AutoTransform25D(x.data(), y.data(), 2, 3.0, 1, 0), {0, 0, 0, 0},
              {3, 80, 12, 0});
  point3Dtype min{9, 9, 9, 9};
  point3Dtype max{9, 9, 9, 9};
  chart->MinMaxValues25D(x.data(), y.data(), 2, 3.0, 1, 1, min, max);
  ExpectPoint(min, {0, 0, 0, 0});
  ExpectPoint(max, {3, 65, 10.5, 0});
  EXPECT_EQ(min.v, 0.0);
  EXPECT_EQ(max.v, 0.0);
}

TEST_F(AutoScale, OfSeveralSeries) {
  const std::vector<double> x1{0, 10};
  const std::vector<double> y1{50, 150};
  const std::vector<double> x2{4, 60};
  const std::vector<double> y2{-150, -50};
  const std::array<const double*, 2> x{x1.data(), x2.data()};
  const std::array<const double*, 2> y{y1.data(), y2.data()};
  const std::array<int, 2> counts{2, 2};
  ExpectScale(chart->AutoTransformN25D(x.data(), y.data(), counts.data(), 2, 4.0, 0, 1),
              {0, 0, -155, 0}, {65, 4, 155, 0});
  // Turned, to major steps, and with a count of its own for each series: -150 alone becomes -300 to
  // 0, in units of 10 shifted by 1000 70 to 100, steps of 10: 60 and 110.
  const std::array<int, 2> firstOnly{2, 1};
  ExpectScale(chart->AutoTransformN25D(x.data(), y.data(), firstOnly.data(), 2, 4.0, 1, 0),
              {0, 0, -400, 0}, {4, 12, 160, 0});
  // Kept: from negative values alone comes a maximum of 1e-100.
  const std::array<const double*, 1> negative{y2.data()};
  const CTransform3D* transform =
      chart->AutoTransformN25D(x.data(), negative.data(), counts.data(), 1, 4.0, 0, 1);
  EXPECT_EQ(transform->GetScaleMax().z, 1e-100);
  EXPECT_EQ(transform->GetScaleMin().z, -155.0);
  // No series at all leaves the limits that the search starts with.
  ExpectScale(chart->AutoTransformN25D(nullptr, nullptr, nullptr, 5, 1.0, 0, 1),
              {1e100, 1e100, 1e100, 0}, {1e-100, 1e-100, 1e-100, 0});
  ExpectScale(chart->AutoTransformN25D(x.data(), y.data(), counts.data(), 0, 1.0, 0, 1),
              {1e100, 1e100, 1e100, 0}, {1e-100, 1e-100, 1e-100, 0});
}

TEST_F(AutoScale, OfTheRealPointsOfASurface) {
  const std::vector<point3Dtype> points{{4, 12, 20, 0}, {60, 40, 35, 0}, {30, 20, 25, 0}};
  CPolysurface surface(points.data(), 0, 3);
  surface.SetOnePolysurfacePoint(4, {-1e6, 1e6, 1e6, 0});  // a spare one
  ExpectScale(chart->AutoTransformPolysurface(&surface, 1), {0, 10, 19, 0}, {65, 42, 36, 0});
  ExpectScale(chart->AutoTransformPolysurface(&surface, 0), {0, 10, 15, 0}, {80, 50, 40, 0});
  for (const CPolysurface& empty : {CPolysurface(), CPolysurface(0, 0, 0)}) {
    ExpectScale(chart->AutoTransformPolysurface(&empty, 1), {0, 0, 0, 0}, {10.5, 10.5, 10.5, 0});
  }
  ExpectScale(chart->AutoTransformPolysurface(nullptr, 1), {0, 0, 0, 0}, {10.5, 10.5, 10.5, 0});
}

TEST_F(AutoScale, OfGroupsSideBySide) {
  const std::vector<double> x{0, 10};
  const std::vector<double> groups{50, 100, 60, 150};
  // 50 to 100: 51 units, steps of 5, 105 and 45; 60 to 150: decade 2, 91 units, steps of 5:
  // 155, 55.
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 70.0, 2, 2, 1.0, 0, 0, 1),
              {0, 0, 45, 0}, {10.5, 1, 155, 0});
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 7.0, 2, 2, 1.0, 0, 0, 1),
              {0, 0, 7, 0}, {10.5, 1, 155, 0});
  // Turned, to major steps: 40 to 120, and 40 to 160.
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 70.0, 2, 2, 1.0, 1, 0, 0),
              {0, 0, 40, 0}, {1, 12, 160, 0});
}

TEST_F(AutoScale, OfStackedGroups) {
  const std::vector<double> x{0, 10};
  const std::vector<double> groups{20, 100, 30, 50};
  // The sums are 50 and 150.
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 70.0, 2, 2, 1.0, 0, 1, 1),
              {0, 0, 45, 0}, {10.5, 1, 155, 0});
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 0.0, 2, 2, 1.0, 1, 9, 1),
              {0, 0, 0, 0}, {1, 10.5, 155, 0});
  ExpectScale(chart->AutoTransformGroup25D(x.data(), nullptr, 0.0, 2, 2, 1.0, 0, 1, 1),
              {0, 0, 0, 0}, {10.5, 1, 10.5, 0});
  ExpectScale(chart->AutoTransformGroup25D(x.data(), groups.data(), 0.0, -2, 2, 1.0, 0, 1, 1),
              {0, 0, 0, 0}, {10.5, 1, 10.5, 0});
}

TEST_F(AutoScale, LaysAxesOut) {
  CTransform3D* transform = chart->NewTransform({0, -50, 4, 0}, {10, 150, 60, 0});
  CAxes3D* axes = chart->AutoAxes(transform);
  EXPECT_EQ(chart->GetAxes(0), axes);
  EXPECT_EQ(axes->GetTransformID(), transform->GetTransformID());
  const std::array<std::array<double, 2>, 3> intercepts{{{150, 4}, {10, 4}, {0, 150}}};
  const std::array<int, 3> directions{2, 3, 0};
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<std::size_t>(i);
    EXPECT_EQ(axes->GetAxisIntercept1(i), intercepts[at][0]);
    EXPECT_EQ(axes->GetAxisIntercept2(i), intercepts[at][1]);
    EXPECT_EQ(axes->GetAxisEnable(i), 1);
    EXPECT_EQ(axes->GetAxisMinorTicLength(i), 0.02);
    EXPECT_EQ(axes->GetAxisMajorTicLength(i), 0.04);
    EXPECT_EQ(axes->GetAxisTicDir(i), directions[at]);
    EXPECT_EQ(axes->GetAxisLabelsEnable(i), 1);
    EXPECT_EQ(axes->GetAxisLabelsPlane(i), 1);
    EXPECT_EQ(axes->GetAxisLabelsRotation(i), 0);
    EXPECT_EQ(axes->GetAxisLabelsDir(i), directions[at]);
    EXPECT_EQ(axes->GetAxisLabelsEnds(i), 7);
    EXPECT_EQ(axes->GetNumAxisLabelStrings(i), 0);
    EXPECT_EQ(axes->GetAxisLabelsColor(i).alpha, 1.0);
    EXPECT_EQ(axes->GetAxisColor(i).alpha, 1.0);
    EXPECT_EQ(axes->GetAxisTicColor(i).red, 0.0);
  }
  EXPECT_EQ(axes->GetAxisMax(1), 150.0);
  EXPECT_EQ(axes->GetAxisCenterPoint(0), 0.0);
  EXPECT_EQ(axes->GetAxisTicSpace(0), 0.5);
  EXPECT_EQ(axes->GetAxisNthTicMajor(0), 10);
  EXPECT_EQ(axes->GetAxisCenterPoint(1), 0.0);
  EXPECT_EQ(axes->GetAxisTicSpace(1), 10.0);
  EXPECT_EQ(axes->GetAxisNthTicMajor(1), 5);
  EXPECT_EQ(axes->GetAxisCenterPoint(2), 20.0);
  EXPECT_EQ(axes->GetAxisLabelsDecimals(2), 0);
}

TEST_F(AutoScale, MarksLogarithmicAxesByTens) {
  CTransform3D* transform = chart->NewTransform({1, 0, 0, 0}, {1000, 10, 0.2, 0});
  transform->SetAxisScaleMode(0, 1);
  CAxes3D* axes = chart->AutoAxes(transform);
  EXPECT_EQ(axes->GetAxisNthTicMajor(0), 10);
  EXPECT_EQ(axes->GetAxisNthTicMajor(2), 5);
  EXPECT_EQ(axes->GetAxisLabelsDecimals(2), 2);
}

TEST_F(AutoScale, NeedsATransform) {
  EXPECT_EQ(Catch([&] { chart->AutoAxes(nullptr); }), (CaughtError{15, 4, "NewAxes"}));
  CChart3D unbound;
  EXPECT_EQ(Catch([&] { unbound.AutoTransform3D(nullptr, 0, 1); }).type, 16);
}

TEST_F(AutoScale, DrawsAChartOfEveryRange) {
  for (const double bad : {0.0, -5.0, kNotANumber, kInfinity, 1e300, 1e-300}) {
    CTransform3D* transform = chart->NewTransform({bad, 0, -1, 0}, {bad, bad, 1, 0});
    chart->AutoAxes(transform);
  }
  target.view->DrawViewScreen();
}

}  // namespace
