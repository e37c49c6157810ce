#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"
#include "surface/sample_meshes.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::FromHex;
using orvalix::test::kAdjacencyFlag;
using orvalix::test::kEvenFlag;
using orvalix::test::kGridType;
using orvalix::test::kNoError;
using orvalix::test::LoadFrom;
using orvalix::test::PutInt;
using orvalix::test::Quadrilaterals;
using orvalix::test::Saved;
using orvalix::test::ScatteredTriangles;
using orvalix::test::SmallGrid;
using orvalix::test::StoredAgain;
using orvalix::test::TemporaryFile;

/// SmallGrid() as it has to stand in every file.
constexpr const char* kStoredGrid = R"(
02000000 02000000  # 2 rows, 2 columns
000000000000f03f 0000000000001040 0000000000000840  # x from 1 to 4, range 3
0000000000002440 0000000000003040 0000000000001840  # y from 10 to 16, range 6
00000000000000c0 0000000000002040 0000000000002440  # z from -2 to 8, range 10
0000000000000840 0000000000001840  # steps 3 and 6
01000000  # neighbours are there
01000000 03000000  # an even grid of type 3
08000000  # 8 points, the last four spare: x y z v
000000000000f03f 0000000000002440 000000000000e03f 000000000000e03f  # 1 10 0.5 0.5
0000000000001040 0000000000002440 00000000000000c0 00000000000000c0  # 4 10 -2 -2
000000000000f03f 0000000000003040 0000000000002040 0000000000002040  # 1 16 8 8
0000000000001040 0000000000003040 0000000000000240 0000000000000240  # 4 16 2.25 2.25
000000000000f0bf 00000000000000c0 00000000000008c0 00000000000010c0  # -1 -2 -3 -4
000000000000f0bf 00000000000000c0 00000000000008c0 00000000000014c0  # -1 -2 -3 -5
000000000000f0bf 00000000000000c0 00000000000008c0 00000000000018c0  # -1 -2 -3 -6
000000000000f0bf 00000000000000c0 00000000000008c0 0000000000001cc0  # -1 -2 -3 -7
02000000 02000000  # room for 2 polygons, 2 there
06000000 03000000 06000000  # room for 6 vertices, 3 per polygon, 6 used
0000000000000000 0000000000000000  # polygon 0: first colour 0 0 1 1
000000000000f03f 000000000000f03f
0000000000000000 0000000000000000  # not used
0000000000000000 0000000000000000
0000000000000000 0000000000000000  # second colour 0 0 0 1
0000000000000000 000000000000f03f
03 000000 00000000  # 3 vertices, padding, from place 0 on
000000000000d03f 000000000000e03f  # polygon 1: first colour 0.25 0.5 0.75 1
000000000000e83f 000000000000f03f
0000000000000000 0000000000000000  # not used
0000000000000000 0000000000000000
000000000000f03f 0000000000000000  # second colour 1 0 0 0.5
0000000000000000 000000000000e03f
03 000000 03000000  # 3 vertices, padding, from place 3 on
00000000 01000000 02000000  # vertices of polygon 0
01000000 03000000 02000000  # vertices of polygon 1
ffffffff 01000000 ffffffff  # neighbours of polygon 0
ffffffff ffffffff 00000000  # neighbours of polygon 1
)";

/// A closed mesh that still tells the grid it was made from. All of its numbers differ.
constexpr const char* kStoredClosed = R"(
07000000 09000000  # 7 rows, 9 columns
000000000000f03f 0000000000000040 0000000000000840  # 1 2 3: x from, to, range
0000000000001040 0000000000001440 0000000000001840  # 4 5 6: y
0000000000001c40 0000000000002040 0000000000002240  # 7 8 9: z
0000000000002440 0000000000002640  # 10 11: steps
00000000 00000000 01000000  # no neighbours, not even, type 1
00000000  # no points
00000000 00000000 00000000 05000000 00000000  # 5 points per polygon
)";

/// Where the polygons of kStoredGrid stand.
constexpr std::size_t kPolygons = kGridType + 4 + 4 + 8 * 32 + 5 * 4;

using Numbers = std::vector<double>;

void Append(Numbers& numbers, const RGBDType& color) {
  numbers.insert(numbers.end(), {color.red, color.green, color.blue, color.alpha});
}

/// Everything that a mesh tells of itself and that loading leaves alone.
Numbers Contents(const CPolysurface& mesh) {
  Numbers all{mesh.GetRGMinX(),  mesh.GetRGMaxX(),  mesh.GetRGMinY(),   mesh.GetRGMaxY(),
              mesh.GetRGStepX(), mesh.GetRGStepY(), mesh.GetRGRangeX(), mesh.GetRGRangeY(),
              mesh.GetRGMinZ(),  mesh.GetRGMaxZ(),  mesh.GetRGRangeZ()};
  for (const int number :
       {mesh.GetRGRows(), mesh.GetRGColumns(), mesh.GetPSNumPoints(), mesh.GetPSMaxPolygons(),
        mesh.GetPSNumPolygons(), mesh.GetPSPointsPerPolygon()}) {
    all.push_back(number);
  }
  for (int i = 0; mesh.GetPSPoints() != nullptr && i < mesh.GetPSNumPoints() + 4; ++i) {
    point3Dtype point{};
    mesh.GetOnePolysurfacePoint(i, point);
    all.insert(all.end(), {point.x, point.y, point.z, point.v});
  }
  for (int polygon = 0; polygon < mesh.GetPSMaxPolygons(); ++polygon) {
    std::array<int, 255> indices{};
    int count = 0;
    RGBDType first{};
    RGBDType second{};
    mesh.GetPSPolygonIndices(polygon, indices.data(), count, first, second);
    all.push_back(count);
    all.insert(all.end(), indices.begin(), indices.begin() + count);
    Append(all, first);
    Append(all, second);
    std::array<int, 3> neighbors{};
    mesh.GetAdjacentPolyList(polygon, neighbors.data());
    all.insert(all.end(), neighbors.begin(), neighbors.end());
  }
  return all;
}

/// Loads what `mesh` saves and looks whether it is the same.
void ExpectRoundTrip(const CPolysurface& mesh) {
  const Bytes record = Saved(mesh);
  CPolysurface loaded;
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
  EXPECT_EQ(Contents(loaded), Contents(mesh));
  EXPECT_EQ(loaded.GetEvenGridFlag(), 0);
  EXPECT_EQ(loaded.GetGridType(), 1);
  EXPECT_EQ(loaded.GetWireFrame(), 0);
  EXPECT_EQ(Saved(loaded), StoredAgain(record));
}

TEST(PolysurfaceRecord, IsWrittenByteForByte) {
  const Bytes record = Saved(SmallGrid());
  // 2 integers, 11 reals, 3 + 1 integers, 8 points, 5 integers, 2 polygons, 6 vertices, 2 times 3
  // neighbours.
  EXPECT_EQ(record.size(), 8U + 88 + 16 + 8 * 32 + 20 + 2 * 104 + 24 + 24);
  EXPECT_EQ(record, FromHex(kStoredGrid));
}

TEST(PolysurfaceRecord, IsReadBack) {
  CPolysurface mesh;
  LoadFrom(mesh, FromHex(kStoredGrid));
  EXPECT_EQ(mesh.GetPSNumPoints(), 4);
  EXPECT_EQ(mesh.GetPSPoints()[3].v, 2.25);
  EXPECT_EQ(mesh.GetPSPoints()[7].v, -7.0);  // the last spare one
  EXPECT_EQ(mesh.GetPSMaxPolygons(), 2);
  EXPECT_EQ(mesh.GetPSNumPolygons(), 2);
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 3);
  std::array<int, 3> indices{};
  int count = 0;
  RGBDType first{};
  RGBDType second{};
  mesh.GetPSPolygonIndices(1, indices.data(), count, first, second);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(indices, (std::array{1, 3, 2}));
  EXPECT_EQ(first.blue, 0.75);
  EXPECT_EQ(second.alpha, 0.5);
  std::array<int, 3> neighbors{};
  mesh.GetAdjacentPolyList(0, neighbors.data());
  EXPECT_EQ(neighbors, (std::array{-1, 1, -1}));
  EXPECT_EQ(mesh.GetClassTag(), 1414);
  EXPECT_EQ(Contents(mesh), Contents(SmallGrid()));
  // All places for vertices are used: there is none for another.
  mesh.AddPolysurfacePolygon(0, indices.data(), 1, first, second);
  EXPECT_EQ(Saved(mesh), StoredAgain(FromHex(kStoredGrid)));
}

/// Kept: steps stand behind the heights, ranges with their axes.
TEST(PolysurfaceRecord, HoldsTheGridInAnOrderOfItsOwn) {
  CPolysurface mesh;
  LoadFrom(mesh, FromHex(kStoredClosed));
  EXPECT_EQ(mesh.GetRGRows(), 7);
  EXPECT_EQ(mesh.GetRGColumns(), 9);
  EXPECT_EQ((std::array{mesh.GetRGMinX(), mesh.GetRGMaxX(), mesh.GetRGRangeX()}),
            (std::array{1.0, 2.0, 3.0}));
  EXPECT_EQ((std::array{mesh.GetRGMinY(), mesh.GetRGMaxY(), mesh.GetRGRangeY()}),
            (std::array{4.0, 5.0, 6.0}));
  EXPECT_EQ((std::array{mesh.GetRGMinZ(), mesh.GetRGMaxZ(), mesh.GetRGRangeZ()}),
            (std::array{7.0, 8.0, 9.0}));
  EXPECT_EQ((std::array{mesh.GetRGStepX(), mesh.GetRGStepY()}), (std::array{10.0, 11.0}));
  EXPECT_EQ(mesh.GetPSPointsPerPolygon(), 5);
  EXPECT_EQ(mesh.GetPSPoints(), nullptr);
  EXPECT_EQ(mesh.GetClassTag(), 0);  // never open
  EXPECT_EQ(Saved(mesh), FromHex(kStoredClosed));
}

TEST(PolysurfaceRecord, KeepsWhatNobodyUses) {
  Bytes record = StoredAgain(FromHex(kStoredGrid));
  for (std::size_t i = 32; i < 64; ++i) record[kPolygons + i] = static_cast<unsigned char>(i);
  for (std::size_t i = 97; i < 100; ++i) record[kPolygons + i] = static_cast<unsigned char>(i);
  CPolysurface mesh;
  LoadFrom(mesh, record);
  EXPECT_EQ(Saved(mesh), record);
}

TEST(PolysurfaceRecord, OfEveryKindOfMeshIsReadBack) {
  ExpectRoundTrip(SmallGrid());
  ExpectRoundTrip(ScatteredTriangles());
  ExpectRoundTrip(Quadrilaterals());
  ExpectRoundTrip(CPolysurface());
  ExpectRoundTrip(CPolysurface(0, 0, 0));
  ExpectRoundTrip(CPolysurface(3, 0, 7));
  ExpectRoundTrip(CPolysurface(3, 4, 0));
  ExpectRoundTrip(CPolysurface(2, 3, 1, 1, 2, 2, [](double x, double y) { return x * y; }));
  CPolysurface closed = SmallGrid();
  closed.ClosePolysurface();
  ExpectRoundTrip(closed);
}

TEST(PolysurfaceRecord, OfManyPointsAndPolygonsIsReadBack) {
  std::vector<double> heights(60 * 50);
  std::iota(heights.begin(), heights.end(), 0.5);
  const CPolysurface mesh(60, 50, 0, 0, 1, 1, heights.data(), 1);
  // 3004 points, room for 6002 triangles, and their neighbours.
  EXPECT_EQ(Saved(mesh).size(), 132U + 3004 * 32 + 6002 * (104 + 3 * 4 + 3 * 4));
  ExpectRoundTrip(mesh);
}

TEST(PolysurfaceRecord, HoldsPolygonsOfAnyLength) {
  CPolysurface mesh(2, 5, 200);
  const std::vector<int> corners(300, 1);
  for (const auto& [polygon, count] : std::initializer_list<std::pair<int, int>>{
           {4, 1}, {1, 255}, {3, 300}}) {  // 300 are stored as 44
    mesh.AddPolysurfacePolygon(polygon, corners.data(), count, {1, 0, 0, 1}, {0, 1, 0, 1});
  }
  ExpectRoundTrip(mesh);
  CPolysurface loaded;
  LoadFrom(loaded, Saved(mesh));
  // 556 of 1000 places are used, by all the vertices there were: 444 are left.
  const std::vector<int> more(445, 1);
  loaded.AddPolysurfacePolygon(0, more.data(), 445, {}, {});
  EXPECT_EQ(loaded.GetPSNumPolygons(), 3);
  loaded.AddPolysurfacePolygon(0, more.data(), 444, {}, {});
  EXPECT_EQ(loaded.GetPSNumPolygons(), 4);
}

/// Kept: whatever the file holds.
TEST(PolysurfaceRecord, LoadedGridsAreUnevenAndOfTriangles) {
  for (const int number : {0, 1, 2, 3, 77, -1}) {
    Bytes record = FromHex(kStoredGrid);
    PutInt(record, kEvenFlag, number);
    PutInt(record, kGridType, number);
    CPolysurface mesh;
    mesh.SetWireFrame(5);
    LoadFrom(mesh, record);
    EXPECT_EQ(mesh.GetEvenGridFlag(), 0);
    EXPECT_EQ(mesh.GetGridType(), 1);
    EXPECT_EQ(mesh.GetWireFrame(), 0);
  }
}

TEST(PolysurfaceRecord, WireFramesAreNotStored) {
  CPolysurface mesh = SmallGrid();
  mesh.SetWireFrame(1);
  EXPECT_EQ(Saved(mesh), FromHex(kStoredGrid));
}

TEST(PolysurfaceRecord, AnyAdjacencyFlagButZeroHasNeighbors) {
  for (const int flag : {2, -1, 256}) {
    Bytes record = FromHex(kStoredGrid);
    PutInt(record, kAdjacencyFlag, flag);
    CPolysurface mesh;
    LoadFrom(mesh, record);
    EXPECT_EQ(Contents(mesh), Contents(SmallGrid()));
    EXPECT_EQ(Saved(mesh), StoredAgain(FromHex(kStoredGrid)));
  }
}

TEST(PolysurfaceRecord, ReplacesWhatWasThere) {
  CPolysurface mesh = SmallGrid();  // a grid with neighbours
  LoadFrom(mesh, Saved(ScatteredTriangles()));
  EXPECT_EQ(Contents(mesh), Contents(ScatteredTriangles()));
  EXPECT_EQ(mesh.GetRGRows(), 0);
  LoadFrom(mesh, Saved(CPolysurface()));
  EXPECT_EQ(Contents(mesh), Contents(CPolysurface()));
  EXPECT_EQ(mesh.GetClassTag(), 1414);  // it has been open
}

TEST(PolysurfaceRecord, StandsAmongOthersInAFile) {
  const TemporaryFile file;
  CFile out;
  ASSERT_TRUE(out.Open(file.Path(), CFile::modeCreate | CFile::modeWrite));
  out.Write("before", 6);
  SmallGrid().Save(out.m_hFile);
  CPolysurface().Save(out.m_hFile);
  Quadrilaterals().Save(out.m_hFile);
  out.Write("after", 5);
  out.Close();

  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  in.Seek(6, CFile::begin);
  const CPolysurface grid(in.m_hFile);
  const CPolysurface empty(in.m_hFile);
  const CPolysurface quadrilaterals(in.m_hFile);
  EXPECT_EQ(Contents(grid), Contents(SmallGrid()));
  EXPECT_EQ(Contents(empty), Contents(CPolysurface()));
  EXPECT_EQ(Contents(quadrilaterals), Contents(Quadrilaterals()));
  std::array<char, 5> after{};
  EXPECT_EQ(in.Read(after.data(), 5), 5U);
  EXPECT_EQ(std::string(after.data(), 5), "after");
}

TEST(PolysurfaceRecord, NullHandlesDoNothing) {
  CPolysurface mesh = SmallGrid();
  mesh.SetWireFrame(3);
  void* const none = nullptr;
  EXPECT_EQ(Catch([&] {
              mesh.Save(none);
              mesh.Load(none);
            }),
            kNoError);
  EXPECT_EQ(Saved(mesh), FromHex(kStoredGrid));
  EXPECT_EQ(mesh.GetWireFrame(), 3);
  const CPolysurface closed(none);
  EXPECT_EQ(Contents(closed), Contents(CPolysurface()));
  EXPECT_EQ(closed.GetGridType(), 0);
}

}  // namespace
