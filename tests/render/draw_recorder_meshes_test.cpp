#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "orvalix/foundation/points.h"
#include "orvalix/render/draw_recorder_internal.h"

// Polygons that meet at their corners, and the vertices that they share there.

namespace {

using orvalix::DrawRecorder;
using orvalix::FillVertex;
using orvalix::GatheredColor;
using orvalix::GatheredGeometry;
using orvalix::RecordedFill;

constexpr RGBDType kBlack{0, 0, 0, 1};
constexpr GatheredColor kGray{0.5F, 0.5F, 0.5F};
constexpr GatheredColor kGreen{0.0F, 1.0F, 0.0F};
constexpr point3Dtype kUp{0, 0, 1, 0};
constexpr point3Dtype kAside{1, 0, 0, 0};

/// A polygon of a mesh and what is to become of it.
struct MeshPolygon {
  std::vector<point3Dtype> corners;
  point3Dtype normal;
  GatheredColor color = kGray;
  std::vector<float> textures;
};

std::array<float, 3> ToFloats(const point3Dtype& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

void Add(DrawRecorder& recorder, const MeshPolygon& polygon) {
  std::vector<point3Dtype> points = polygon.corners;
  points.push_back(points.front());
  std::vector<float> textures = polygon.textures;
  if (!textures.empty()) textures.push_back(textures.front());
  const RecordedFill fill{
      .color = polygon.color, .isOutlined = 1, .outlineColor = kBlack, .outlineWidth = 1.0F};
  recorder.AddPolygon(points.data(), static_cast<int>(points.size()), polygon.normal,
                      textures.empty() ? nullptr : textures.data(), fill);
}

std::vector<std::uint32_t> FillIndices(const GatheredGeometry& geometry) {
  const orvalix::IndexList& list = geometry.segments.at(0).fills.at(0).indices;
  std::vector<std::uint32_t> indices;
  if (list.IsRange()) {
    for (std::uint32_t i = 0; i < list.size(); ++i) indices.push_back(list.First() + i);
  }
  list.Stored().ForEachChunk([&](const std::uint32_t* stored, std::size_t count) {
    indices.insert(indices.end(), stored, stored + count);
  });
  return indices;
}

std::size_t Lines(const GatheredGeometry& geometry) {
  return geometry.segments.at(0).lines.at(0).indices.size() / 2;
}

GatheredColor ColorOf(const GatheredGeometry& geometry, std::uint32_t vertex) {
  return geometry.fillColors.empty() ? geometry.fillColor : geometry.fillColors[vertex];
}

/// Each triangle has the corners of its polygon; where it is flat, its last vertex has what the
/// polygon takes light with, else all three have.
void ExpectTriangles(const GatheredGeometry& geometry, const std::vector<MeshPolygon>& mesh) {
  const std::vector<std::uint32_t> indices = FillIndices(geometry);
  std::size_t at = 0;
  for (const MeshPolygon& polygon : mesh) {
    for (std::size_t i = 2; i < polygon.corners.size(); ++i) {
      const std::array<std::size_t, 3> corners{i - 1, i, 0};
      for (std::size_t k = 0; k < 3; ++k, ++at) {
        ASSERT_LT(at, indices.size());
        const FillVertex& vertex = geometry.fillVertices[indices[at]];
        ASSERT_EQ(vertex.position, ToFloats(polygon.corners[corners[k]])) << at;
        if (!polygon.textures.empty()) {
          ASSERT_EQ(geometry.fillTextures[indices[at]], polygon.textures[corners[k]]) << at;
        }
        if (k < 2 && geometry.isFlat) continue;
        ASSERT_EQ(vertex.normal, ToFloats(polygon.normal)) << at;
        ASSERT_EQ(ColorOf(geometry, indices[at]), polygon.color) << at;
      }
    }
  }
  EXPECT_EQ(at, indices.size());
}

/// Where the point of a grid in that column and row is.
using Place = std::function<point3Dtype(int column, int row)>;

/// A floor with random heights.
point3Dtype OnFloor(int column, int row) {
  std::minstd_rand random(static_cast<unsigned>(1 + column + 4096 * row));
  random.discard(3);
  const double height = static_cast<double>(random() % 1000) / 1000.0;
  return {static_cast<double>(column), static_cast<double>(row), height, 0.0};
}

/// A grid of `columns` by `rows` cells of two triangles each.
std::vector<MeshPolygon> Grid(int columns, int rows, const Place& place = OnFloor) {
  std::vector<MeshPolygon> mesh;
  const auto add = [&](const point3Dtype& a, const point3Dtype& b, const point3Dtype& c) {
    MeshPolygon& polygon = mesh.emplace_back();
    polygon.corners = {a, b, c};
    CalcNormal(a, b, c, polygon.normal);
  };
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const point3Dtype corner = place(column, row);
      const point3Dtype opposite = place(column + 1, row + 1);
      add(corner, place(column + 1, row), opposite);
      add(corner, opposite, place(column, row + 1));
    }
  }
  return mesh;
}

GatheredGeometry Gathered(const std::vector<MeshPolygon>& mesh, bool isFlat) {
  DrawRecorder recorder({.isTextured = mesh.at(0).textures.empty() ? 0 : 1}, isFlat);
  for (const MeshPolygon& polygon : mesh) Add(recorder, polygon);
  EXPECT_FALSE(recorder.HasFailed());
  return recorder.TakeGeometry();
}

TEST(DrawRecorderMeshes, ShareCornersInEvenLight) {
  const std::vector<MeshPolygon> mesh{
      {{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {0, 1, 0, 0}}, kUp, kGray, {}},
      // Its first corner takes a vertex that no polygon needs yet.
      {{{1, 0, 0, 0}, {2, 0, 1, 0}, {2, 1, 1, 0}, {1, 1, 0, 0}}, kAside, kGray, {}},
      // Its first corner needs one of its own.
      {{{1, 0, 0, 0}, {1, 1, 0, 0}, {1, 1, 1, 0}}, kUp, kGreen, {}}};
  const GatheredGeometry geometry = Gathered(mesh, true);
  ExpectTriangles(geometry, mesh);
  EXPECT_EQ(geometry.fillVertices.size(), 8U);
  EXPECT_EQ(Lines(geometry), 9U) << "of eleven: all three meet at one edge";
}

TEST(DrawRecorderMeshes, ShareOnlyCornersThatTakeTheSameLightOtherwise) {
  const std::vector<MeshPolygon> mesh{
      {{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {0, 1, 0, 0}}, kUp, kGray, {}},
      {{{1, 0, 0, 0}, {2, 0, 0, 0}, {2, 1, 0, 0}, {1, 1, 0, 0}}, kUp, kGray, {}},
      {{{2, 0, 0, 0}, {3, 0, 1, 0}, {3, 1, 1, 0}, {2, 1, 0, 0}}, kAside, kGray, {}},
      {{{3, 0, 1, 0}, {4, 0, 1, 0}, {4, 1, 1, 0}, {3, 1, 1, 0}}, kAside, kGreen, {}}};
  const GatheredGeometry geometry = Gathered(mesh, false);
  ExpectTriangles(geometry, mesh);
  EXPECT_EQ(geometry.fillVertices.size(), 4U + 2U + 4U + 4U);
  EXPECT_EQ(Lines(geometry), 13U) << "edges don't take light";
}

TEST(DrawRecorderMeshes, ShareNoCornersWithOtherTextures) {
  const std::vector<point3Dtype> corners{{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}};
  const std::vector<MeshPolygon> mesh{{corners, kUp, kGray, {0.25F, 0.5F, 0.75F}},
                                      {corners, kUp, kGray, {0.25F, 0.5F, 1.0F}}};
  for (const bool isFlat : {false, true}) {
    const GatheredGeometry geometry = Gathered(mesh, isFlat);
    ExpectTriangles(geometry, mesh);
    EXPECT_EQ(geometry.fillVertices.size(), 4U) << isFlat;
  }
}

TEST(DrawRecorderMeshes, StoreNoMoreThanAVertexForEachTriangleOfAGrid) {
  constexpr int kSide = 300;
  const std::vector<MeshPolygon> mesh = Grid(kSide, kSide);
  const GatheredGeometry geometry = Gathered(mesh, true);
  ExpectTriangles(geometry, mesh);
  constexpr double kTriangles = 2.0 * kSide * kSide;
  constexpr double kEdges = 3.0 * kSide * kSide + 2.0 * kSide;
  EXPECT_LE(static_cast<double>(geometry.fillVertices.size()), 1.01 * kTriangles);
  EXPECT_GE(static_cast<double>(Lines(geometry)), kEdges);
  EXPECT_LE(static_cast<double>(Lines(geometry)), 1.01 * kEdges);
}

// Places whose numbers are round, and which all lie in a plane, are told apart as fast as others.
TEST(DrawRecorderMeshes, StoreCornersOfUprightWallsOnce) {
  constexpr int kSide = 100;
  const std::vector<std::pair<const char*, Place>> walls{
      {"floor",
       [](int i, int k) {
         return point3Dtype{1.0 * i, 1.0 * k, 3.0, 0.0};
       }},
      {"back",
       [](int i, int k) {
         return point3Dtype{1.0 * i, 3.0, 1.0 * k, 0.0};
       }},
      {"back by columns",
       [](int i, int k) {
         return point3Dtype{1.0 * k, 3.0, 1.0 * i, 0.0};
       }},
      {"side",
       [](int i, int k) {
         return point3Dtype{3.0, 1.0 * i, 1.0 * k, 0.0};
       }},
      {"side of tenths", [](int i, int k) {
         return point3Dtype{3.0, 0.1 * i, 0.1 * k, 0.0};
       }}};
  for (const auto& [name, place] : walls) {
    SCOPED_TRACE(name);
    const std::vector<MeshPolygon> mesh = Grid(kSide, kSide, place);
    const GatheredGeometry geometry = Gathered(mesh, true);
    ExpectTriangles(geometry, mesh);
    constexpr double kPlaces = (kSide + 1.0) * (kSide + 1.0);
    EXPECT_LE(static_cast<double>(geometry.fillVertices.size()), 1.02 * kPlaces);
    constexpr double kEdges = 3.0 * kSide * kSide + 2.0 * kSide;
    EXPECT_LE(static_cast<double>(Lines(geometry)), 1.02 * kEdges);
  }
}

/// Rows that are longer than what is remembered.
TEST(DrawRecorderMeshes, AreWholeWhereNeighboursAreForgotten) {
  constexpr int kColumns = 40000;
  const std::vector<MeshPolygon> mesh = Grid(kColumns, 2);
  const GatheredGeometry geometry = Gathered(mesh, true);
  ExpectTriangles(geometry, mesh);
  constexpr std::size_t kEdges = 7U * kColumns + 2U;
  EXPECT_GE(Lines(geometry), kEdges);
  EXPECT_LE(Lines(geometry), kEdges + kColumns) << "between the rows, each may come twice";
}

TEST(DrawRecorderMeshes, GiveEachPolygonItsColors) {
  std::mt19937 random(11);
  std::vector<MeshPolygon> mesh = Grid(20, 20);
  for (MeshPolygon& polygon : mesh) {
    polygon.color = random() % 2 == 0 ? kGray : kGreen;
    for (const point3Dtype& corner : polygon.corners) {
      polygon.textures.push_back(static_cast<float>(corner.z));
    }
  }
  std::shuffle(mesh.begin(), mesh.end(), random);
  for (const bool isFlat : {false, true}) ExpectTriangles(Gathered(mesh, isFlat), mesh);
}

}  // namespace
