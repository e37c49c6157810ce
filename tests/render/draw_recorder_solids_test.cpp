#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/solid_faces_internal.h"
#include "support/allocation_failure.h"

// Solids, matrices and memory of a recorder.

namespace {

using orvalix::DrawRecorder;
using orvalix::FillGroup;
using orvalix::GatheredGeometry;
using orvalix::kMostDirections;
using orvalix::LineGroup;
using orvalix::RecordedFill;
using orvalix::RecordedStroke;

constexpr std::array<double, 16> kMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
constexpr RecordedFill kOutlined{
    .color = {0.5F, 0.5F, 0.5F}, .isOutlined = 1, .outlineColor = {0, 0, 0, 1}, .outlineWidth = 1};

using Corners = std::array<point3Dtype, 8>;

/// From the origin, turned about z.
Corners Box(double height, double degrees = 0.0) {
  const double angle = degrees * std::numbers::pi / 180.0;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  constexpr std::array<std::array<double, 2>, 4> kBottom{{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};
  Corners corners{};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto [x, y] = kBottom[i % 4];
    corners[i] = {c * x - s * y, s * x + c * y, i < 4 ? 0.0 : height, 0};
  }
  return corners;
}

void Add(DrawRecorder& recorder, const Corners& corners, const RecordedFill& fill = kOutlined) {
  recorder.AddSolid(corners.data(), nullptr, fill);
}

/// Faces whose direction is told apart.
std::size_t FacesWithDirection(const GatheredGeometry& geometry) {
  std::size_t indices = 0;
  for (const FillGroup& group : geometry.segments.at(0).fills) {
    if (group.state.facing >= 0) indices += group.indices.size();
  }
  return indices / 6;
}

std::size_t Faces(const GatheredGeometry& geometry) {
  std::size_t indices = 0;
  for (const FillGroup& group : geometry.segments.at(0).fills) indices += group.indices.size();
  return indices / 6;
}

std::size_t Edges(const GatheredGeometry& geometry) {
  std::size_t indices = 0;
  for (const LineGroup& group : geometry.segments.at(0).lines) indices += group.indices.size();
  return indices / 2;
}

TEST(RecordedSolids, HaveSixFacesInSixDirectionsAndTwelveEdges) {
  DrawRecorder recorder({}, true);
  Add(recorder, Box(1));
  Add(recorder, Box(2));
  Add(recorder, Box(-2));  // inside out: its sides look the same ways
  const GatheredGeometry& geometry = recorder.Geometry();
  EXPECT_EQ(geometry.directions.size(), 6U);
  EXPECT_EQ(geometry.segments.at(0).fills.size(), 6U);
  EXPECT_EQ(Faces(geometry), 18U);
  EXPECT_EQ(FacesWithDirection(geometry), 18U);
  EXPECT_EQ(Edges(geometry), 36U);
  for (const LineGroup& group : geometry.segments[0].lines) {
    EXPECT_GE(group.state.facing, 0);
    EXPECT_LT(group.state.facing, group.state.otherFacing);
  }
  // The extent of them all, for they may hide one another's insides alone.
  ASSERT_EQ(geometry.extents.size(), 1U);
  EXPECT_EQ(geometry.extents[0].extent.low, (std::array<double, 3>{0, 0, -2}));
  EXPECT_EQ(geometry.extents[0].extent.high, (std::array<double, 3>{1, 1, 2}));
}

TEST(RecordedSolids, TellSoManyDirectionsApartAndNoMore) {
  DrawRecorder recorder({}, true);
  // Two for up and down, and four more for each: 2 + 4 * 7 = 30, and two of the eighth's.
  for (int i = 0; i < 8; ++i) Add(recorder, Box(1, 10.0 * i));
  const GatheredGeometry& geometry = recorder.Geometry();
  EXPECT_EQ(geometry.directions.size(), kMostDirections);
  EXPECT_EQ(FacesWithDirection(geometry), 7U * 6U + 4U);
  EXPECT_EQ(Faces(geometry), 8U * 6U);
  Add(recorder, Box(1, 85));
  EXPECT_EQ(recorder.Geometry().directions.size(), kMostDirections);
  EXPECT_EQ(FacesWithDirection(recorder.Geometry()), 7U * 6U + 4U + 2U);
  EXPECT_EQ(Edges(recorder.Geometry()), 9U * 12U);
}

TEST(RecordedSolids, HaveDirectionsForEachMatrix) {
  DrawRecorder recorder({}, true);
  Add(recorder, Box(1));
  recorder.LoadMatrix(kMatrix.data());
  Add(recorder, Box(5));
  const GatheredGeometry& geometry = recorder.Geometry();
  EXPECT_EQ(geometry.directions.size(), 12U);
  ASSERT_EQ(geometry.extents.size(), 2U);
  EXPECT_EQ(geometry.extents[0].extent.high[2], 1.0);
  EXPECT_EQ(geometry.extents[1].extent.high[2], 5.0);
}

TEST(RecordedSolids, ThatAreCutOpenOrNoneAreSeenFromEverywhere) {
  DrawRecorder clipped({.isLit = 1, .isTextured = 0, .isClipped = 1}, true);
  Add(clipped, Box(1));
  EXPECT_EQ(FacesWithDirection(clipped.Geometry()), 0U);
  EXPECT_EQ(Faces(clipped.Geometry()), 6U);
  EXPECT_TRUE(clipped.Geometry().extents.empty());
  DrawRecorder dented({}, true);
  Corners corners = Box(1);
  corners[6] = {0.2, 0.2, 0.2, 0};
  Add(dented, corners);
  EXPECT_EQ(FacesWithDirection(dented.Geometry()), 0U);
  EXPECT_EQ(Edges(dented.Geometry()), 12U);
}

TEST(RecordedSolids, WithoutHeightHaveTwoFacesAndEightEdges) {
  DrawRecorder recorder({}, true);
  Add(recorder, Box(0));
  EXPECT_EQ(FacesWithDirection(recorder.Geometry()), 2U);
  EXPECT_EQ(Edges(recorder.Geometry()), 8U) << "four have no length";
}

TEST(RecordedMatrices, MoveWhatFollows) {
  DrawRecorder recorder({}, true);
  const auto added = [&] {
    recorder.AddLine({1, 2, 3, 0}, {0, 0, 0, 0}, {}, {1.0F, 0xFFFF, 1});
    const auto& vertices = recorder.Geometry().lineVertices;
    return vertices[vertices.size() - 2].position;
  };
  using Position = std::array<float, 3>;
  recorder.PopMatrix();  // there is none: nothing happens
  EXPECT_EQ(added(), (Position{1, 2, 3}));
  recorder.PushMatrix();
  recorder.Multiply({2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1});
  EXPECT_EQ(added(), (Position{2, 6, 12}));
  recorder.Multiply({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 1, 1, 1});  // before the scale
  EXPECT_EQ(added(), (Position{4, 9, 16}));
  recorder.PushMatrix();
  EXPECT_EQ(recorder.SavedMatrices().size(), 2U);
  recorder.LoadMatrix(kMatrix.data());
  EXPECT_EQ(recorder.LoadedMatrix(), kMatrix.data());
  EXPECT_EQ(added(), (Position{1, 2, 3}));
  recorder.PopMatrix();
  EXPECT_EQ(recorder.LoadedMatrix(), nullptr);
  EXPECT_EQ(added(), (Position{4, 9, 16}));
  recorder.PopMatrix();
  EXPECT_EQ(added(), (Position{1, 2, 3}));
}

TEST(RecordedMatrices, TurnNormalsAsTheyTurnFaces) {
  constexpr std::array<point3Dtype, 3> kCorners{{{0, 0, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}}};
  const auto normalOf = [&](const std::array<double, 16>& matrix, const point3Dtype& normal) {
    DrawRecorder recorder({}, true);
    recorder.Multiply(matrix);
    recorder.AddPolygon(kCorners.data(), 3, normal, nullptr, kOutlined);
    return recorder.Geometry().fillVertices[0].normal;
  };
  using Normal = std::array<float, 3>;
  const auto expect = [](const Normal& normal, double x, double y, double z) {
    EXPECT_NEAR(normal[0], x, 1e-6);
    EXPECT_NEAR(normal[1], y, 1e-6);
    EXPECT_NEAR(normal[2], z, 1e-6);
  };
  // A quarter turn about z takes x to y.
  expect(normalOf({0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 5, 5, 1}, {1, 0, 0, 0}), 0, 1, 0);
  // Faces at 45 degrees get steeper when x is stretched: (1, 1) goes to (1/2, 1), of length 1.
  const double length = std::sqrt(1.25);
  expect(normalOf({2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, {1, 1, 0, 0}), 0.5 / length,
         1.0 / length, 0);
  // Mirrored at x = 0.
  expect(normalOf({-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, {1, 0, 0, 0}), -1, 0, 0);
  expect(normalOf({-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, {0, 1, 0, 0}), 0, 1, 0);
  // Without an extent there is no direction, and nothing undefined either.
  for (const float number : normalOf({}, {1, 1, 1, 0})) EXPECT_FALSE(std::isnan(number));
}

const orvalix::GlyphMesh kTriangle{
    .corners = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, .front = {0, 1, 2}, .walls = {}, .back = {}};

/// Outlined triangles of two colours round a point.
void RecordFan(DrawRecorder& recorder) {
  constexpr int kTriangles = 30;
  const auto corner = [](int i) {
    const double angle = 0.2 * i;
    return point3Dtype{std::cos(angle), std::sin(angle), 0.1 * i, 0};
  };
  for (int i = 0; i < kTriangles; ++i) {
    const std::array<point3Dtype, 4> triangle{
        {{0, 0, 0, 0}, corner(i), corner(i + 1), {0, 0, 0, 0}}};
    const RecordedFill fill{.color = {i % 2 == 0 ? 1.0F : 0.0F, 0, 0},
                            .isOutlined = 1,
                            .outlineColor = {0, 0, 0, 1},
                            .outlineWidth = 1};
    recorder.AddPolygon(triangle.data(), 4, {0, 0, 1.0 + i, 0}, nullptr, fill);
    recorder.AddFrame(triangle.data(), 4, {0, 0, 0, 1}, 1.0F);
  }
}

/// Something of everything.
void RecordAll(DrawRecorder& recorder) {
  constexpr RecordedStroke kDashed{2.0F, 0x00FF, 1};
  RecordFan(recorder);
  Add(recorder, Box(1));
  recorder.PushMatrix();
  Add(recorder, Box(1, 33),
      {.color = {1, 0, 0}, .isOutlined = 1, .outlineColor = {1, 0, 0, 1}, .outlineWidth = 2});
  recorder.PopMatrix();
  recorder.GetState().isTextured = 1;
  float* const textures = recorder.TexturesFor(8);
  if (textures != nullptr) recorder.AddSolid(Box(3).data(), textures, kOutlined);
  recorder.AddPolygon(Box(1).data(), 4, {0, 0, 1, 0}, textures,
                      {.color = {0, 1, 0}, .isOutlined = 0, .outlineColor = {}, .outlineWidth = 1});
  recorder.AddFrame(Box(2).data(), 4, {0, 0, 0, 1}, 1.0F);
  recorder.AddGlyph(kTriangle, 1, {0, 0, 1});
  recorder.StartStrip(kDashed);
  recorder.AddToStrip({0, 0, 0, 0}, {});
  recorder.InterruptStrip();
  recorder.AddToStrip({1, 0, 0, 0}, {});
  recorder.AddLine({0, 0, 0, 0}, {1, 1, 1, 0}, {}, kDashed);
}

void FailEverywhere(orvalix::test::Failing extent, bool isFlat) {
  int failures = 0;
  for (bool hasFailed = true; hasFailed; ++failures) {
    SCOPED_TRACE(failures);
    DrawRecorder recorder({}, isFlat);
    {
      const orvalix::test::AllocationFailure failure(failures + 1, extent);
      RecordAll(recorder);
      hasFailed = failure.Happened();
    }
    EXPECT_EQ(recorder.HasFailed(), hasFailed);
    if (!hasFailed) break;
    EXPECT_EQ(recorder.TexturesFor(3), nullptr);
    const std::size_t vertices = recorder.Geometry().fillVertices.size();
    RecordAll(recorder);
    EXPECT_EQ(recorder.Geometry().fillVertices.size(), vertices);
    EXPECT_TRUE(recorder.HasFailed());
  }
  EXPECT_GT(failures, 25);
}

TEST(RecordedMemory, FailsOnceAndTakesNothingMore) {
  for (const auto extent : {orvalix::test::Failing::kOne, orvalix::test::Failing::kFromThen}) {
    for (const bool isFlat : {false, true}) FailEverywhere(extent, isFlat);
  }
}

TEST(RecordedMemory, TakesHugeCountsForFailures) {
  DrawRecorder recorder({}, true);
  EXPECT_EQ(recorder.TexturesFor(-1), nullptr);
  EXPECT_TRUE(recorder.HasFailed());
}

}  // namespace
