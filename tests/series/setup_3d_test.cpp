#include <gtest/gtest.h>

#include <vector>

#include "series/setup_fixture.h"

namespace {

using orvalix::test::Colors;
using orvalix::test::Components;
using orvalix::test::kColors;
using orvalix::test::kDep2;
using orvalix::test::kFill;
using orvalix::test::kInd;
using orvalix::test::kOutline;
using orvalix::test::kPoints;
using orvalix::test::kTexts;
using orvalix::test::Surface;

class SetUp3D : public orvalix::test::SetUpTest {};

TEST_F(SetUp3D, BarChart3D) {
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

TEST_F(SetUp3D, ScatterChart3D) {
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

TEST_F(SetUp3D, LineChart3D) {
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
TEST_F(SetUp3D, ProjectionLineChart3D) {
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

TEST_F(SetUp3D, PlaneChart3D) {
  ExpectChanges([&] { object.PlaneChart3D(kPoints.data(), 2, 61, 62, kFill, kOutline); },
                {{"points", {41, 44, 45, 48}},
                 {"n", {2}},
                 {"indWidth", {61}},
                 {"constWidth", {62}},
                 {"fill", Components(kFill)},
                 {"outline", Components(kOutline)},
                 {"type", {14}}});
}

TEST_F(SetUp3D, ScatterText3D) {
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

TEST_F(SetUp3D, PolysurfaceCharts) {
  const CPolysurface surface = Surface(81);
  ExpectChanges([&] { object.PolysurfaceChart2D(&surface, 61, 62); },
                {{"surface", {81, 82, 83}}, {"const", {61}}, {"plane", {62}}, {"type", {50}}});
  const CPolysurface other = Surface(91);
  ExpectChanges([&] { object.PolysurfaceChart3D(&other); },
                {{"surface", {91, 92, 93}}, {"type", {51}}});
}

// Values and colours, of which there is one more, take the place of other types' arrays.
TEST_F(SetUp3D, ContourPolysurface3D) {
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

}  // namespace
