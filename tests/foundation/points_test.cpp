#include "orvalix/foundation/points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

void ExpectPoint(const point3Dtype& p, double x, double y, double z, double v) {
  EXPECT_EQ(p.x, x);
  EXPECT_EQ(p.y, y);
  EXPECT_EQ(p.z, z);
  EXPECT_EQ(p.v, v);
}

TEST(Points, AreAssignedAndRead) {
  point3Dtype p{9, 9, 9, 9};
  AssignPoint3D(p, 1, 2, 3);
  ExpectPoint(p, 1, 2, 3, 0);
  double x = 0;
  double y = 0;
  double z = 0;
  getpoint3D(p, &x, &y, &z);
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(y, 2.0);
  EXPECT_EQ(z, 3.0);
  getpoint3D(p, nullptr, nullptr, nullptr);
}

TEST(Points, CoordinatesHaveNumbers) {
  point3Dtype p{1, 2, 3, 4};
  EXPECT_EQ(GetCoord3D(p, 0), 1.0);
  EXPECT_EQ(GetCoord3D(p, 1), 2.0);
  EXPECT_EQ(GetCoord3D(p, 2), 3.0);
  EXPECT_EQ(GetCoord3D(p, 3), 0.0);
  EXPECT_EQ(GetCoord3D(p, -1), 0.0);
  coordassign(p, 0, 10);
  coordassign(p, 1, 20);
  coordassign(p, 2, 30);
  coordassign(p, 3, 40);
  coordassign(p, -1, 40);
  ExpectPoint(p, 10, 20, 30, 4);
}

TEST(Points, ViewportsAreFilledInOrder) {
  GLViewportType viewport{};
  AssignViewport(viewport, 1, 2, 3, 4);
  EXPECT_EQ(viewport.x, 1);
  EXPECT_EQ(viewport.y, 2);
  EXPECT_EQ(viewport.width, 3);
  EXPECT_EQ(viewport.height, 4);
  GLViewRType fractions{};
  AssignViewR(fractions, 0.1, 0.2, 0.3, 0.4);
  EXPECT_EQ(fractions.x, 0.1);
  EXPECT_EQ(fractions.y, 0.2);
  EXPECT_EQ(fractions.width, 0.3);
  EXPECT_EQ(fractions.height, 0.4);
}

TEST(Points, AreSwappedWhole) {
  point3Dtype a{1, 2, 3, 4};
  point3Dtype b{5, 6, 7, 8};
  swap3Dpoints(a, b);
  ExpectPoint(a, 5, 6, 7, 8);
  ExpectPoint(b, 1, 2, 3, 4);
  int i = 1;
  int j = 2;
  swapints(i, j);
  EXPECT_EQ(i, 2);
  EXPECT_EQ(j, 1);
  double x = 1.5;
  double y = 2.5;
  swapreals(x, y);
  EXPECT_EQ(x, 2.5);
  EXPECT_EQ(y, 1.5);
}

TEST(Points, ArithmeticLeavesTheCarriedValue) {
  point3Dtype out{0, 0, 0, 77};
  Sub3DP(out, {5, 7, 9, 1}, {1, 2, 3, 1});
  ExpectPoint(out, 4, 5, 6, 77);
  NegPoint(out, {1, -2, 3, 1});
  ExpectPoint(out, -1, 2, -3, 77);
  // a = (-1, 0, 0), b = (0, -1, 0): a x b = (0, 0, 1).
  CalcNormal({0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, out);
  ExpectPoint(out, 0, 0, 1, 77);
  // Not normalised: a = (-2, -1, 0), b = (1, -1, -3): (3, -6, 3).
  CalcNormal({0, 0, 0, 0}, {2, 1, 0, 0}, {1, 2, 3, 0}, out);
  ExpectPoint(out, 3, -6, 3, 77);
}

TEST(Points, OperationsMayWriteOverTheirArguments) {
  point3Dtype a{5, 7, 9, 1};
  Sub3DP(a, a, {1, 1, 1, 1});
  ExpectPoint(a, 4, 6, 8, 1);
  point3Dtype n{0, 0, 0, 0};
  CalcNormal(n, {1, 0, 0, 0}, {1, 1, 0, 0}, n);
  ExpectPoint(n, 0, 0, 1, 0);
}

TEST(Points, Distances) {
  point3Dtype p{1, 2, 3, 100};
  EXPECT_DOUBLE_EQ(NearPointText(p, {3, 5, 9, 0}), 7.0);  // 4 + 9 + 36 = 49
}

TEST(Points, NearTestIsNotGreaterThan) {
  EXPECT_EQ(NearTest(1.0, 1.5, 0.5), 1);
  EXPECT_EQ(NearTest(1.5, 1.0, 0.5), 1);
  EXPECT_EQ(NearTest(1.0, 1.75, 0.5), 0);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(NearTest(nan, 1.0, 0.5), 1);
  EXPECT_EQ(NearTest(1.0, 2.0, nan), 1);
}

TEST(Points, InterpolateAtTheGivenCoordinate) {
  const point3Dtype p0{0, 0, 0, 0};
  const point3Dtype p1{2, 4, 2, 10};
  for (const int plane : {0, 3}) {
    point3Dtype out{7, 7, 1, 7};
    interpolatepoint3D(p0, p1, out, plane);
    ExpectPoint(out, 1, 2, 1, 5);
  }
  for (const int plane : {1, 4}) {
    point3Dtype out{7, 1, 7, 7};
    interpolatepoint3D(p0, p1, out, plane);
    ExpectPoint(out, 0.5, 1, 0.5, 2.5);
  }
  for (const int plane : {2, 5}) {
    point3Dtype out{1.5, 7, 7, 7};
    interpolatepoint3D(p0, p1, out, plane);
    ExpectPoint(out, 1.5, 3, 1.5, 7.5);
  }
  for (const int plane : {6, 100, -1}) {
    point3Dtype out{7, 7, 1, 7};
    interpolatepoint3D(p0, p1, out, plane);
    ExpectPoint(out, 7, 7, 1, 7);
  }
}

TEST(Points, InterpolationHasNoGuard) {
  point3Dtype out{7, 7, 1, 7};
  interpolatepoint3D({0, 0, 0, 0}, {1, 1, 0, 1}, out, 0);
  EXPECT_TRUE(std::isinf(out.x));
}

}  // namespace
