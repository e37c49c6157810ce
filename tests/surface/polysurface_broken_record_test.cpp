#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/memory_file.h"
#include "support/temporary_file.h"
#include "surface/sample_meshes.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kAdjacencyFlag;
using orvalix::test::kNoError;
using orvalix::test::MemoryFile;
using orvalix::test::PutInt;
using orvalix::test::Quadrilaterals;
using orvalix::test::Saved;
using orvalix::test::ScatteredTriangles;
using orvalix::test::SmallGrid;

constexpr int kHuge = 2147483647;
constexpr int kLowest = -kHuge - 1;
const CaughtError kBroken{7, 18, "Load"};

// Where the record of SmallGrid() has its fields: 8 points, 2 polygons, 6 vertices, 6 neighbours.
constexpr std::size_t kNumPoints = kAdjacencyFlag + 12;
constexpr std::size_t kPoints = kNumPoints + 4;
constexpr std::size_t kMaxPolygons = kPoints + 8 * 32;
constexpr std::size_t kNumPolygons = kMaxPolygons + 4;
constexpr std::size_t kIndexCapacity = kMaxPolygons + 8;
constexpr std::size_t kPointsPerPolygon = kMaxPolygons + 12;
constexpr std::size_t kIndexCount = kMaxPolygons + 16;
constexpr std::size_t kPolygons = kMaxPolygons + 20;
constexpr std::size_t kCountOfSecond = kPolygons + 104 + 96;
constexpr std::size_t kPlaceOfSecond = kPolygons + 104 + 100;
constexpr std::size_t kIndices = kPolygons + 2 * 104;
constexpr std::size_t kNeighbors = kIndices + 6 * 4;
constexpr std::size_t kEnd = kNeighbors + 6 * 4;

/// Reads all of a polygon, whether it is there or not, and expects that nothing is contradictory.
void ExpectSafePolygon(const CPolysurface& mesh, int polygon) {
  std::array<int, 255> indices{};
  std::array<point3Dtype, 255> points{};
  RGBDType first{};
  RGBDType second{};
  int count = -1;
  mesh.GetPSPolygonIndices(polygon, indices.data(), count, first, second);
  ASSERT_GE(count, 0);
  ASSERT_LE(count, 255);
  const int stored = mesh.GetPSPoints() != nullptr ? mesh.GetPSNumPoints() + 4 : 0;
  const bool exists = std::all_of(indices.begin(), indices.begin() + count,
                                  [stored](int index) { return index >= 0 && index < stored; });
  int vertices = -1;
  mesh.GPSPolygon(polygon, points.data(), vertices);
  EXPECT_EQ(vertices, exists ? count : 0);
  mesh.GetPolysurfacePolygon(polygon, points.data(), vertices, first, second);
  EXPECT_EQ(vertices, exists ? count : 0);
  if (vertices == 0) {
    EXPECT_EQ(mesh.GetPSPMean(polygon, 0), 0.0);
  }
  for (const int axis : {-1, 0, 1, 2, 3}) mesh.GetPSPMean(polygon, axis);
  std::array<int, 3> neighbors{};
  mesh.GetAdjacentPolyList(polygon, neighbors.data());
  for (const int neighbor : neighbors) {
    EXPECT_GE(neighbor, -1);
    EXPECT_LT(neighbor, mesh.GetPSMaxPolygons());
  }
}

/// Does to a mesh of its own whatever can be done to one.
void Use(CPolysurface mesh) {
  const int columns = mesh.GetRGColumns();
  for (int type = 0; type <= 3; ++type) {
    Catch([&] { CPolysurface().ReducePolysurface(&mesh, type); });
  }
  Catch([&] { CPolysurface reduced(&mesh, 1); });
  Catch([&] { mesh.CreateRGAdjacentPolygonList(); });
  for (int polygon = -1; polygon <= mesh.GetPSMaxPolygons(); ++polygon) {
    mesh.SetPolysurfaceColors(polygon, {}, {});
    Catch([&] {
      mesh.AddPolysurfacePolygon(polygon, std::array{0, 1, 2}.data(), 3, {1, 0, 0, 1}, {});
    });
    ExpectSafePolygon(mesh, polygon);
  }
  EXPECT_LE(mesh.GetPSNumPolygons(), mesh.GetPSMaxPolygons());
  for (int type = 2; type <= 3; ++type) {
    Catch([&] { mesh.ConvertRG2PS(nullptr, mesh.GetRGRows(), columns, type); });
    Catch([&] { mesh.ConvertRG2PS(nullptr, 2, 2, type); });
    Catch([&] { mesh.CreateRGAdjacentPolygonList(); });
  }
  mesh.CopyXYorZtoV(2, 1, 0);
  mesh.ResetPolysurfacePolygons();
  EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  mesh.ClosePolysurface();
  EXPECT_EQ(mesh.GetPSPoints(), nullptr);
}

/// Expects that a mesh is sound whatever it was loaded from: it answers, can be used, and what it
/// saves can be loaded.
void ExpectSafe(const CPolysurface& mesh) {
  const int maxPolygons = mesh.GetPSMaxPolygons();
  EXPECT_GE(mesh.GetPSNumPoints(), 0);
  EXPECT_GE(mesh.GetPSNumPolygons(), 0);
  EXPECT_LE(mesh.GetPSNumPolygons(), maxPolygons);
  EXPECT_EQ(mesh.GetEvenGridFlag(), 0);
  EXPECT_EQ(mesh.GetGridType(), 1);
  EXPECT_EQ(mesh.GetWireFrame(), 0);
  for (const int index : {kLowest, -1, 0, mesh.GetPSNumPoints() + 4, kHuge}) {
    point3Dtype point{};
    mesh.GetOnePolysurfacePoint(index, point);
  }
  for (int polygon = -1; polygon <= maxPolygons; ++polygon) ExpectSafePolygon(mesh, polygon);
  for (const int polygon : {kLowest, kHuge}) ExpectSafePolygon(mesh, polygon);

  static const MemoryFile file;
  const CString name = file.Path();
  mesh.Save(name);
  const Bytes record = file.Read();
  CPolysurface again;
  EXPECT_EQ(Catch([&] { again.Load(name); }), kNoError);
  again.Save(name);
  EXPECT_EQ(file.Read(), record);
  Use(mesh);
}

/// Loads a record over another mesh and expects a sound one, however it ends.
CaughtError LoadBroken(CPolysurface& mesh, const Bytes& record) {
  mesh = Quadrilaterals();
  mesh.SetWireFrame(1);
  static const MemoryFile file;
  file.Fill(record);
  const CaughtError error = Catch([&] { mesh.Load(CString(file.Path())); });
  EXPECT_TRUE(error == kNoError || error == kBroken) << error;
  ExpectSafe(mesh);
  return error;
}

/// Loads SmallGrid() with one integer changed.
CaughtError LoadChanged(CPolysurface& mesh, std::size_t offset, int value) {
  Bytes record = Saved(SmallGrid());
  PutInt(record, offset, value);
  return LoadBroken(mesh, record);
}

TEST(PolysurfaceBrokenRecord, FieldsStandWhereTheyAreChangedHere) {
  EXPECT_EQ(kEnd, 644U);
  EXPECT_EQ(Saved(SmallGrid()).size(), kEnd);
}

/// What is missing is as in a closed mesh. An array that was promised is an error, a number isn't.
TEST(PolysurfaceBrokenRecord, SurvivesEveryTruncation) {
  const Bytes record = Saved(SmallGrid());
  for (std::size_t length = 0; length < record.size(); ++length) {
    SCOPED_TRACE(length);
    CPolysurface mesh;
    const CaughtError error = LoadBroken(
        mesh, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    const bool isArrayPromised =
        (length >= kPoints && length < kMaxPolygons) || length >= kPolygons;
    EXPECT_EQ(error, isArrayPromised ? kBroken : kNoError);
    EXPECT_EQ(mesh.GetRGRows(), length >= 4 ? 2 : 0);
    EXPECT_EQ(mesh.GetRGStepY(), length >= kAdjacencyFlag ? 6.0 : 0.0);
    EXPECT_EQ(mesh.GetPSNumPoints(), length >= kMaxPolygons ? 4 : 0);
    EXPECT_EQ(mesh.GetPSPointsPerPolygon(), length >= kIndexCount ? 3 : 0);
    EXPECT_EQ(mesh.GetPSMaxPolygons(), length >= kIndices ? 2 : 0);
    EXPECT_EQ(mesh.GetPSNumPolygons(), length >= kNeighbors ? 2 : 0);
    EXPECT_EQ(mesh.GetPSPMean(1, 1), length >= kNeighbors ? 14.0 : 0.0);  // (10 + 16 + 16) / 3
    EXPECT_EQ(mesh.GetClassTag(), 1414);                                  // of what was there
  }
}

/// A file of these bytes alone, so that nothing behind a number is read as something else.
TEST(PolysurfaceBrokenRecord, NumbersOfPointsArePossible) {
  for (const int count : {-1, kLowest, 1, 2, 3, 9, 1000, kHuge}) {
    SCOPED_TRACE(count);
    Bytes record = Saved(SmallGrid());
    record.resize(kMaxPolygons);
    PutInt(record, kNumPoints, count);
    CPolysurface mesh;
    EXPECT_EQ(LoadBroken(mesh, record), kBroken);
    EXPECT_EQ(mesh.GetPSPoints(), nullptr);
    EXPECT_EQ(mesh.GetRGColumns(), 2);
  }
  // The spare points alone. What follows them is no number of polygons.
  CPolysurface mesh;
  EXPECT_EQ(LoadChanged(mesh, kNumPoints, 4), kBroken);
  EXPECT_EQ(mesh.GetPSNumPoints(), 0);
  EXPECT_NE(mesh.GetPSPoints(), nullptr);
}

TEST(PolysurfaceBrokenRecord, MeshesWithoutPointsHaveNoPolygons) {
  const Bytes closed = Saved(CPolysurface());
  const std::size_t counts = kPoints;  // no point stands before them
  for (const std::size_t place : {std::size_t{0}, std::size_t{8}}) {
    Bytes record = closed;
    PutInt(record, counts + place, 1);
    record.resize(record.size() + 1000);  // room for whatever is promised
    CPolysurface mesh;
    EXPECT_EQ(LoadBroken(mesh, record), kBroken);
    EXPECT_EQ(mesh.GetPSMaxPolygons(), 0);
  }
}

/// Expects an error, points and no polygons.
void ExpectRefused(std::size_t offset, std::initializer_list<int> values) {
  for (const int value : values) {
    SCOPED_TRACE(value);
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, offset, value), kBroken);
    EXPECT_EQ(mesh.GetPSNumPoints(), 4);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 0);
  }
}

TEST(PolysurfaceBrokenRecord, CountsOfPolygonsArePossible) {
  // 3 polygons are 312 bytes; 256 are left.
  ExpectRefused(kMaxPolygons, {-1, kLowest, 0, 1, 3, 1000, kHuge});
  ExpectRefused(kNumPolygons, {-1, kLowest, 3, 1000, kHuge});
  for (const int count : {0, 1}) {
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kNumPolygons, count), kNoError);
    EXPECT_EQ(mesh.GetPSNumPolygons(), count);
  }
}

TEST(PolysurfaceBrokenRecord, CountsOfVerticesArePossible) {
  // 12 vertices are all that is left, neighbours included; 6 are used.
  ExpectRefused(kIndexCapacity, {-1, kLowest, 0, 5, 13, 1000, kHuge});
  ExpectRefused(kIndexCount, {-1, kLowest, 7, 1000, kHuge});
  for (const int count : {7, 12}) {  // these take the place of neighbours
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kIndexCapacity, count), kBroken);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
    std::array<int, 3> neighbors{};
    mesh.GetAdjacentPolyList(0, neighbors.data());
    EXPECT_EQ(neighbors, (std::array{-1, -1, -1}));
  }
  for (const int count : {0, 3}) {
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kIndexCount, count), kNoError);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  }
}

TEST(PolysurfaceBrokenRecord, PointsPerPolygonAreOnlyTold) {
  for (const int count : {kLowest, -1, 0, 2, 4, kHuge}) {
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kPointsPerPolygon, count), kNoError);
    EXPECT_EQ(mesh.GetPSPointsPerPolygon(), count);
    EXPECT_EQ(mesh.GetPSPMean(1, 1), 14.0);
  }
}

TEST(PolysurfaceBrokenRecord, CountsNeverReserveMoreThanTheFileHolds) {
  const Bytes record = Saved(SmallGrid());
  for (const std::size_t offset : {kNumPoints, kMaxPolygons, kIndexCapacity}) {
    for (const int count : {1000, 10000000, kHuge}) {
      Bytes changed = record;
      PutInt(changed, offset, count);
      const orvalix::test::TemporaryFile file(changed);
      CFile in;
      ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
      CPolysurface mesh;
      const orvalix::test::AllocationMeter meter;
      EXPECT_EQ(Catch([&] { mesh.Load(in.m_hFile); }), kBroken);
      EXPECT_LE(meter.Largest(), 1000U);
    }
  }
}

TEST(PolysurfaceBrokenRecord, PolygonsOutsideTheVerticesAreNotThere) {
  for (const int place : {-1, -3, kLowest, 4, 6, kHuge, kHuge - 2}) {
    SCOPED_TRACE(place);
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kPlaceOfSecond, place), kNoError);
    EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
    EXPECT_EQ(mesh.GetPSPMean(1, 1), 0.0);
    EXPECT_EQ(mesh.GetPSPMean(0, 1), 12.0);  // (10 + 10 + 16) / 3
  }
  for (const int count : {0, 4, 255}) {  // with the padding
    SCOPED_TRACE(count);
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kCountOfSecond, count), kNoError);
    EXPECT_EQ(mesh.GetPSPMean(1, 1), 0.0);
  }
}

TEST(PolysurfaceBrokenRecord, VerticesThatDoNotExistAreToldAndNotFollowed) {
  for (const int vertex : {-1, kLowest, 8, kHuge}) {
    SCOPED_TRACE(vertex);
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kIndices + 4 * 4, vertex), kNoError);
    std::array<int, 3> indices{};
    int count = 0;
    RGBDType color{};
    mesh.GetPSPolygonIndices(1, indices.data(), count, color, color);
    EXPECT_EQ(indices, (std::array{1, vertex, 2}));
    mesh.GPSPolygon(1, nullptr, count);
    EXPECT_EQ(count, 0);
  }
}

TEST(PolysurfaceBrokenRecord, NeighborsThatDoNotExistAreNone) {
  for (const int neighbor : {-2, kLowest, 2, kHuge}) {
    SCOPED_TRACE(neighbor);
    CPolysurface mesh;
    EXPECT_EQ(LoadChanged(mesh, kNeighbors + 4, neighbor), kNoError);
    std::array<int, 3> neighbors{};
    mesh.GetAdjacentPolyList(0, neighbors.data());
    EXPECT_EQ(neighbors, (std::array{-1, -1, -1}));
    mesh.GetAdjacentPolyList(1, neighbors.data());
    EXPECT_EQ(neighbors, (std::array{-1, -1, 0}));
  }
}

TEST(PolysurfaceBrokenRecord, GridsThatDoNotFitAreOnlyTold) {
  for (const int rows : {kLowest, -1, 0, 1, 3, 65536, kHuge}) {
    for (const int columns : {kLowest, -1, 0, 1, 3, 65536, kHuge}) {
      SCOPED_TRACE(::testing::Message() << rows << " rows, " << columns << " columns");
      Bytes record = Saved(SmallGrid());
      PutInt(record, 0, rows);
      PutInt(record, 4, columns);
      CPolysurface mesh;
      EXPECT_EQ(LoadBroken(mesh, record), kNoError);
      EXPECT_EQ(mesh.GetRGRows(), rows);
      EXPECT_EQ(mesh.GetRGColumns(), columns);
      mesh.CreateRGAdjacentPolygonList();  // no grid of two triangles: nothing happens
      EXPECT_EQ(Saved(mesh).size(), kEnd);
    }
  }
}

TEST(PolysurfaceBrokenRecord, AdjacencyFlagsDecide) {
  Bytes record = Saved(SmallGrid());
  PutInt(record, kAdjacencyFlag, 0);  // the list that follows is not read
  CPolysurface mesh;
  EXPECT_EQ(LoadBroken(mesh, record), kNoError);
  EXPECT_EQ(Saved(mesh).size(), kNeighbors);
  record = Saved(ScatteredTriangles());
  PutInt(record, kAdjacencyFlag, 1);  // no list follows
  EXPECT_EQ(LoadBroken(mesh, record), kBroken);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 3);
}

/// Changes a few bytes, or a whole integer to one that is often a border, or the length.
/// @param behindPoints by how much the fields behind the points stand further than SmallGrid()'s
Bytes Mutated(Bytes record, std::size_t behindPoints, std::mt19937& random) {
  constexpr std::array kBorders{0, 1, 2, 3, 4, -1, -2, 5, 255, 256, kHuge, kLowest};
  // The numbers that decide how the rest is read.
  constexpr std::array kDeciding{kMaxPolygons, kNumPolygons,   kIndexCapacity,
                                 kIndexCount,  kPlaceOfSecond, kCountOfSecond};
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
    const int border = kBorders[below(kBorders.size())];
    switch (below(5)) {
      case 0:
        record[below(record.size())] = static_cast<unsigned char>(random());
        break;
      case 1:
        record[below(record.size())] ^= static_cast<unsigned char>(1U << below(8));
        break;
      case 2:
        PutInt(record, below(record.size() / 4) * 4, border);
        break;
      case 3:
        PutInt(record, kDeciding[below(kDeciding.size())] + behindPoints, border);
        break;
      default:
        PutInt(record, std::array{std::size_t{0}, std::size_t{4}, kAdjacencyFlag}[below(3)],
               border);
    }
  }
  if (below(8) == 0) record.resize(kPolygons + below(record.size()));
  return record;
}

/// The work is divided so that the parts can run side by side.
class PolysurfaceRandomRecord : public ::testing::TestWithParam<int> {
 protected:
  static constexpr int kShards = 4;
};

TEST_P(PolysurfaceRandomRecord, IsSurvived) {
  constexpr unsigned kSeed = 1414;
  constexpr int kRounds = 100000 / 3 / kShards + 1;
  std::mt19937 random(kSeed + static_cast<unsigned>(GetParam()));
  int readable = 0;
  int broken = 0;
  for (const CPolysurface& sample : {SmallGrid(), ScatteredTriangles(), Quadrilaterals()}) {
    const Bytes record = Saved(sample);
    const std::size_t behindPoints = (static_cast<std::size_t>(sample.GetPSNumPoints()) - 4) * 32;
    for (int round = 0; round < kRounds && !HasFailure(); ++round) {
      SCOPED_TRACE(round);
      CPolysurface mesh;
      const CaughtError error = LoadBroken(mesh, Mutated(record, behindPoints, random));
      ++(error == kNoError ? readable : broken);
    }
  }
  // Both ways are walked often.
  EXPECT_GT(readable, 2000);
  EXPECT_GT(broken, 2000);
}

INSTANTIATE_TEST_SUITE_P(Shards, PolysurfaceRandomRecord, ::testing::Range(0, 4));

}  // namespace
