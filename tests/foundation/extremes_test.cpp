#include "orvalix/foundation/extremes.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

TEST(Extremes, OfNumbers) {
  std::array<double, 4> values{3, -1, 7, -1};
  EXPECT_EQ(GetMinimum(values.data(), 4), -1.0);
  EXPECT_EQ(GetMaximum(values.data(), 4), 7.0);
  EXPECT_EQ(GetMinimum(values.data(), 1), 3.0);
  EXPECT_EQ(GetMaximum(values.data(), 2), 3.0);
}

TEST(Extremes, ReadElement0EvenOfNothing) {
  std::array<double, 1> values{5};
  EXPECT_EQ(GetMinimum(values.data(), 0), 5.0);
  EXPECT_EQ(GetMaximum(values.data(), 0), 5.0);
  EXPECT_EQ(GetMinimum(values.data(), -1), 0.0);
  EXPECT_EQ(GetMaximum(values.data(), -1), 0.0);
  EXPECT_EQ(GetMinimum(nullptr, 3), 0.0);
  EXPECT_EQ(GetMaximum(nullptr, 0), 0.0);
}

TEST(Extremes, OnlyStrictlySmallerOrLargerReplaces) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::array<double, 3> values{2, nan, 1};
  EXPECT_EQ(GetMinimum(values.data(), 3), 1.0);
  EXPECT_EQ(GetMaximum(values.data(), 3), 2.0);
}

TEST(Extremes, OfPoints) {
  std::array<point3Dtype, 2> points{{{1, 5, 0, 8}, {3, 2, 9, 4}}};
  const point3Dtype max = GetMaximum3D(points.data(), 2);
  EXPECT_EQ(max.x, 3.0);
  EXPECT_EQ(max.y, 5.0);
  EXPECT_EQ(max.z, 9.0);
  EXPECT_EQ(max.v, 8.0);
  const point3Dtype min = GetMinimum3D(points.data(), 2);
  EXPECT_EQ(min.x, 1.0);
  EXPECT_EQ(min.y, 2.0);
  EXPECT_EQ(min.z, 0.0);
  EXPECT_EQ(min.v, 8.0);
  EXPECT_EQ(GetMaximum3D(points.data(), 1).x, 1.0);
}

TEST(Extremes, OfNoPoints) {
  std::array<point3Dtype, 2> points{{{1, 5, 7, 8}, {3, 2, 9, 4}}};
  const auto numbers = [](const point3Dtype& point) {
    return std::array<double, 4>{point.x, point.y, point.z, point.v};
  };
  const std::array<double, 4> first{1, 5, 7, 8};
  const std::array<double, 4> zero{};
  EXPECT_EQ(numbers(GetMaximum3D(points.data(), 0)), first);
  EXPECT_EQ(numbers(GetMinimum3D(points.data(), 0)), first);
  EXPECT_EQ(numbers(GetMaximum3D(points.data(), -1)), zero);
  EXPECT_EQ(numbers(GetMinimum3D(points.data(), -1)), zero);
  EXPECT_EQ(numbers(GetMaximum3D(nullptr, 2)), zero);
  EXPECT_EQ(numbers(GetMinimum3D(nullptr, 2)), zero);
}

}  // namespace
