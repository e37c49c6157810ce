#include "orvalix/render/solid_faces_internal.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "orvalix/render/view_direction_internal.h"

namespace {

using orvalix::FindSides;
using orvalix::IsCutInFront;
using orvalix::LooksAway;
using orvalix::SideView;
using orvalix::SolidSides;
using orvalix::ViewOfSide;

using Corners = std::array<point3Dtype, 8>;

/// From (0, 0, 0) to (dx, dy, dz), the bottom's corners first.
Corners Box(double dx, double dy, double dz) {
  return {{{0, 0, 0, 0},
           {0, dy, 0, 0},
           {dx, dy, 0, 0},
           {dx, 0, 0, 0},
           {0, 0, dz, 0},
           {0, dy, dz, 0},
           {dx, dy, dz, 0},
           {dx, 0, dz, 0}}};
}

void ExpectNormal(const std::array<double, 3>& normal, double x, double y, double z) {
  EXPECT_NEAR(normal[0], x, 1e-12);
  EXPECT_NEAR(normal[1], y, 1e-12);
  EXPECT_NEAR(normal[2], z, 1e-12);
}

TEST(SolidFaces, OfABoxLookOutwardsWhicheverWayItIsTurned) {
  // A bar of negative height is inside out, yet its sides look the same ways.
  for (const double height : {3.0, -3.0}) {
    SCOPED_TRACE(height);
    const SolidSides sides = FindSides(Box(1, 2, height));
    ASSERT_TRUE(sides.isClosed);
    const double up = height > 0.0 ? 1.0 : -1.0;
    ExpectNormal(sides.outward[0], 0, -1, 0);
    ExpectNormal(sides.outward[1], 0, 1, 0);
    ExpectNormal(sides.outward[2], -1, 0, 0);
    ExpectNormal(sides.outward[3], 1, 0, 0);
    ExpectNormal(sides.outward[4], 0, 0, -up);
    ExpectNormal(sides.outward[5], 0, 0, up);
    for (const bool hasNoArea : sides.hasNoArea) EXPECT_FALSE(hasNoArea);
  }
}

TEST(SolidFaces, OfAPlateWithoutThicknessAreTwoThatLookInOppositeDirections) {
  const SolidSides sides = FindSides(Box(1, 2, 0));
  ASSERT_TRUE(sides.isClosed);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_TRUE(sides.hasNoArea[i]) << i;
  EXPECT_FALSE(sides.hasNoArea[4]);
  EXPECT_FALSE(sides.hasNoArea[5]);
  ExpectNormal(sides.outward[4], 0, 0, -1);
  ExpectNormal(sides.outward[5], 0, 0, 1);
}

TEST(SolidFaces, OfWhatIsNoConvexSolidAreUnknown) {
  Corners dented = Box(2, 2, 2);
  dented[6] = {0.2, 0.2, 0.2, 0};
  EXPECT_FALSE(FindSides(dented).isClosed);
  EXPECT_FALSE(FindSides(Box(0, 0, 0)).isClosed);
  EXPECT_FALSE(FindSides(Box(std::numeric_limits<double>::quiet_NaN(), 1, 1)).isClosed);
  EXPECT_FALSE(FindSides(Box(std::numeric_limits<double>::infinity(), 1, 1)).isClosed);
}

TEST(SolidFaces, TwelveEdgesJoinTwoFacesEach) {
  for (const orvalix::SolidEdge& edge : orvalix::kSolidEdges) EXPECT_LT(edge.face, edge.other);
}

constexpr std::array<double, 16> kStraight{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// In clip space, depths grow away from the viewer.
TEST(ViewDirection, FacesThatLookIntoTheDepthLookAway) {
  EXPECT_TRUE(LooksAway(kStraight, {0, 0, 1}));
  EXPECT_FALSE(LooksAway(kStraight, {0, 0, -1}));
  EXPECT_FALSE(LooksAway(kStraight, {1, 0, 0})) << "edge-on";
  std::array<double, 16> mirrored = kStraight;
  mirrored[10] = -1;  // the depth turned round
  EXPECT_FALSE(LooksAway(mirrored, {0, 0, 1}));
  EXPECT_TRUE(LooksAway(mirrored, {0, 0, -1}));
}

TEST(ViewDirection, SolidsAreCutOpenInFrontOfTheViewerAlone) {
  EXPECT_FALSE(IsCutInFront(kStraight, {{-0.5, -0.5, -0.5}, {0.5, 0.5, 0.5}}));
  EXPECT_TRUE(IsCutInFront(kStraight, {{-0.5, -0.5, -1.5}, {0.5, 0.5, 0.5}}));
  EXPECT_FALSE(IsCutInFront(kStraight, {{-5, -5, -0.5}, {5, 5, 5}})) << "cut off elsewhere";
  std::array<double, 16> perspective = kStraight;
  perspective[11] = -0.5;
  EXPECT_TRUE(IsCutInFront(perspective, {{-0.5, -0.5, -0.5}, {0.5, 0.5, 0.5}})) << "not known";
}

TEST(ViewDirection, SidesThatLookAwayAreDrawnWhereTheyMayBeSeen) {
  EXPECT_EQ(ViewOfSide(false, false), SideView::kWhole);
  EXPECT_EQ(ViewOfSide(false, true), SideView::kWhole);
  EXPECT_EQ(ViewOfSide(true, false), SideView::kNotSeen);
  EXPECT_EQ(ViewOfSide(true, true), SideView::kBehind);
}

TEST(ViewDirection, NothingLooksAwayInPerspective) {
  std::array<double, 16> perspective = kStraight;
  perspective[11] = -0.5;
  EXPECT_FALSE(LooksAway(perspective, {0, 0, 1}));
  EXPECT_FALSE(LooksAway(perspective, {0, 0, -1}));
}

TEST(ViewDirection, NothingLooksAwayThroughMatricesWithoutADepth) {
  EXPECT_FALSE(LooksAway({}, {0, 0, 1}));
  std::array<double, 16> flat = kStraight;
  flat[10] = 0;
  EXPECT_FALSE(LooksAway(flat, {0, 0, 1}));
  std::array<double, 16> undefined = kStraight;
  undefined[0] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(LooksAway(undefined, {0, 0, 1}));
}

}  // namespace
