#include <cstring>
#include <limits>
#include <string>

#include "series/chart_3d_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

// Where things stand in the record of a series.
constexpr std::size_t kIntegers = 8 + 8 * 8 + 3 * 32;
constexpr std::size_t kPolysurfaceFlag = kIntegers + 4 * 9;
constexpr std::size_t kNumContours = kIntegers + 4 * 22;
constexpr std::size_t kArrays = 304;

/// A contour chart of one triangle, as it has to stand in every file.
constexpr const char* kStoredContours = R"(
07000000  # series counted so far: 7
00000000  # owner: none
0000000000001440  # const value 5
0000000000000000  # base value 0
000000000000f03f  # relative size 1
000000000000f03f  # const width 1
000000000000f03f  # independent width 1
2d431cebe2365a3f  # fill gap 0.0016
7b14ae47e17a943f  # plane thickness 0.02
000000000000f03f  # outline width 1
0000000000000000 0000000000000000  # fill colour 0 0 1 1
000000000000f03f 000000000000f03f
0000000000000000 0000000000000000  # outline colour 0 0 0 1
0000000000000000 000000000000f03f
0000000000000000 0000000000000000  # line colour 0 0 0 1
0000000000000000 000000000000f03f
00000000 00000000  # symbols 0 and 0
00000000  # no points
00000000 00000000 00000000  # no second values, no heights, no 3D points
00000000 00000000 00000000  # no group colours, no segment colours, no texts
01000000  # a surface
00000000  # no groups
01000000 00000000  # line width 1, style 0
00000000 00000000 00000000  # justifications
00000000  # independent axis 0
00000000 01000000  # projection plane 0, text plane 1
00000000  # group type 0
34000000  # chart type 52
00000000  # segments have no own colours
02000000 01000000  # two contours, labelled
01000000  # colour mode 1: lit
00000000  # not clipped
01000000  # outlined
00000000 00000000 00000000  # combo chart flags
00000000 00000000 00000000
01000000  # enabled
# the mesh
00000000 00000000  # no rows, no columns
0000000000000000 0000000000000000 0000000000000000  # x: min, max, range
0000000000000000 0000000000000000 0000000000000000  # y
0000000000000000 0000000000000000 0000000000000000  # z
0000000000000000 0000000000000000  # steps
00000000 00000000 00000000  # no neighbours, no even grid, grid type 0
07000000  # three points and four spare ones
000000000000f03f 0000000000000040 0000000000000840 0000000000001040  # 1 2 3 4
0000000000001040 0000000000000040 0000000000000840 0000000000000000  # 4 2 3 0
0000000000001040 0000000000001840 0000000000001440 0000000000000000  # 4 6 5 0
0000000000000000 0000000000000000 0000000000000000 0000000000000000
0000000000000000 0000000000000000 0000000000000000 0000000000000000
0000000000000000 0000000000000000 0000000000000000 0000000000000000
0000000000000000 0000000000000000 0000000000000000 0000000000000000
01000000 01000000  # room for one polygon, one there
03000000 03000000 03000000  # room for 3 indices, 3 per polygon, 3 there
000000000000f03f 0000000000000000  # first colour 1 0 0 1
0000000000000000 000000000000f03f
0000000000000000 0000000000000000  # unused
0000000000000000 0000000000000000
0000000000000000 0000000000000000  # second colour 0 0 1 1
000000000000f03f 000000000000f03f
03000000  # three vertices, padding
00000000  # from index 0 on
00000000 01000000 02000000  # indices
# the contours
0000000000000c40 0000000000001240  # values 3.5 4.5
000000000000f03f 0000000000000000  # colours 1 0 0 1
0000000000000000 000000000000f03f
0000000000000000 000000000000f03f  # 0 1 0 1
0000000000000000 000000000000f03f
000000000000f03f 000000000000f03f  # 1 1 0 1
0000000000000000 000000000000f03f
)";

class PolysurfaceRecord : public Chart3DTest {
 protected:
  PolysurfaceRecord() : before(CChartObj3D::nSelfID) {}
  ~PolysurfaceRecord() override { CChartObj3D::nSelfID = before; }

  static CPolysurface Triangle() {
    CPolysurface mesh(3, 1, 3);
    const std::array<point3Dtype, 3> points{{{1, 2, 3, 4}, {4, 2, 3, 0}, {4, 6, 5, 0}}};
    mesh.SetPolysurfacePoints(points.data(), 0, 3);
    mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, {1, 0, 0, 1}, {0, 0, 1, 1});
    return mesh;
  }

  /// Contours at 3.5 and 4.5 of that triangle.
  CChartObj3D Contours() const {
    const std::array<double, 2> levels{3.5, 4.5};
    const std::array<RGBDType, 3> colors{red, green, yellow};
    const CPolysurface mesh = Triangle();
    CChartObj3D object;
    object.ContourPolysurface3D(&mesh, levels.data(), colors.data(), 2, 5.0, 1);
    return object;
  }

  static void PutInteger(Bytes& bytes, std::size_t offset, int value) {
    std::memcpy(bytes.data() + offset, &value, sizeof value);
  }
  static int IntegerAt(const Bytes& bytes, std::size_t offset) {
    int value = 0;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
  }

  /// A record with the grid type 1 in its mesh, as every mesh has it that comes from a file.
  static Bytes OfAGrid(Bytes record, std::size_t mesh) {
    PutInteger(record, mesh + 2 * 4 + 11 * 8 + 2 * 4, 1);
    return record;
  }

  std::string PictureOf(CChartObj3D& object) {
    object.InitChartObj3D(&gl, &transform);
    return ToTranscript(DrawnBy(object));
  }

  /// Expects that a series looks the same after a stay in a file.
  CChartObj3D ExpectToLookTheSame(CChartObj3D& object) {
    CChartObj3D loaded;
    const Bytes record = Saved(object);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
    const std::string picture = PictureOf(object);
    EXPECT_FALSE(picture.empty());
    EXPECT_EQ(PictureOf(loaded), picture);
    return loaded;
  }

  int before;
};

TEST_F(PolysurfaceRecord, ContoursAreWrittenByteForByte) {
  const CChartObj3D object = Contours();
  CChartObj3D::nSelfID = 7;
  EXPECT_EQ(Saved(object), FromHex(kStoredContours));
}

TEST_F(PolysurfaceRecord, ContoursAreReadBack) {
  CChartObj3D object;
  LoadFrom(object, FromHex(kStoredContours));
  EXPECT_EQ(CChartObj3D::nSelfID, 7);
  EXPECT_EQ(object.GetChartType(), 52);
  EXPECT_EQ(object.GetConstValue(), 5.0);
  EXPECT_EQ(object.GetNumContours(), 2);
  EXPECT_EQ(object.GetContourLabelFlag(), 1);
  EXPECT_EQ(object.GetSegmentColorMode(), 0);
  EXPECT_EQ(object.GetPolysurfacePoint(0).v, 4.0);
  EXPECT_EQ(object.GetPolysurfacePoint(2).z, 5.0);
  // Without points there are no values to be read, but they are there.
  EXPECT_EQ(object.GetNumDataPnts(), 0);
  for (int i = -1; i < 4; ++i) EXPECT_EQ(object.GetContourValue(i), 0.0) << i;
  EXPECT_EQ(object.GetContourColor(0).red, 1.0);
  EXPECT_EQ(object.GetContourColor(1).green, 0.0);
  object.SetNumDataPnts(2);
  EXPECT_EQ(object.GetContourValue(0), 3.5);
  EXPECT_EQ(object.GetContourValue(1), 4.5);
  ExpectSameColor(object.GetContourColor(2), yellow);
  object.SetNumDataPnts(0);
  EXPECT_EQ(Saved(object), OfAGrid(FromHex(kStoredContours), kArrays));
  CChartObj3D drawn = Contours();
  EXPECT_EQ(PictureOf(object), PictureOf(drawn));
}

TEST_F(PolysurfaceRecord, SurfacesEndWithTheirMesh) {
  const std::array<double, 9> heights{1, 2, 3, 4, 5, 6, 7, 8, 9};
  CPolysurface grid(3, 3, 0, 0, 10, 10, heights.data(), 1);
  const Bytes mesh = Saved(grid);
  CChartObj3D object;
  object.PolysurfaceChart2D(&grid, 4.0, 1);
  const Bytes record = Saved(object);
  ASSERT_EQ(record.size(), kArrays + mesh.size());
  EXPECT_EQ(IntegerAt(record, kPolysurfaceFlag), 1);
  EXPECT_TRUE(
      std::equal(mesh.begin(), mesh.end(), record.begin() + static_cast<std::ptrdiff_t>(kArrays)));
  ExpectToLookTheSame(object);
  object.PolysurfaceChart3D(&grid);
  ExpectToLookTheSame(object);
}

TEST_F(PolysurfaceRecord, TheMeshStandsBetweenColorsAndTexts) {
  const CPolysurface mesh = Triangle();
  const std::array<point3Dtype, 1> points{{{1, 2, 3, 4}}};
  const std::array<CString, 1> texts{CString("abc")};
  CChartObj3D object;
  object.SetDataStringsStorage(points.data(), texts.data(), 1);
  object.InitSegmentColorsStorage(&green);
  object.PolysurfaceChart3D(&mesh);
  const Bytes record = Saved(object);
  const Bytes meshRecord = Saved(mesh);
  // A point and a colour, the mesh, then a text of three bytes.
  ASSERT_EQ(record.size(), kArrays + 2 * 32 + meshRecord.size() + 7);
  EXPECT_TRUE(std::equal(meshRecord.begin(), meshRecord.end(),
                         record.begin() + static_cast<std::ptrdiff_t>(kArrays + 2 * 32)));
  CChartObj3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(loaded.GetNumDataPnts(), 1);  // there are no contours that would take its place
  EXPECT_STREQ(loaded.GetScatterTextString(0), "abc");
  EXPECT_EQ(Saved(loaded), OfAGrid(record, kArrays + 2 * 32));
}

TEST_F(PolysurfaceRecord, WireFramesComeBackSolid) {
  CPolysurface mesh = Triangle();
  mesh.SetWireFrame(1);
  CChartObj3D object;
  object.PolysurfaceChart3D(&mesh);
  object.SetOutlineMode(0);
  object.InitChartObj3D(&gl, &transform);
  EXPECT_EQ(OfKind(DrawnBy(object), Kind::kLine).size(), 3U);
  CChartObj3D loaded;
  LoadFrom(loaded, Saved(object));
  loaded.InitChartObj3D(&gl, &transform);
  const auto drawn = DrawnBy(loaded);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].kind, Kind::kPolygon);
}

TEST_F(PolysurfaceRecord, ContoursWithoutColorsKeepThatOfTheOutlines) {
  const CPolysurface mesh = Triangle();
  const double level = 4.0;
  CChartObj3D object;
  object.SetOutlineColor(green);
  object.ContourPolysurface3D(&mesh, &level, nullptr, 1, 5.0, 0);
  object.InitChartObj3D(&gl, &transform);
  const auto drawn = DrawnBy(object);
  ASSERT_EQ(drawn.size(), 1U);
  ExpectColor(drawn[0], green);
  ExpectToLookTheSame(object);
}

TEST_F(PolysurfaceRecord, ContoursAfterBars) {
  const std::array<double, 3> ind{1, 4, 7};
  const std::array<double, 3> dep{5, 8, 3};
  const std::array<RGBDType, 3> bars{green, red, blue};
  const CPolysurface mesh = Triangle();
  std::vector<double> levels;
  for (int i = 0; i < 20; ++i) levels.push_back(3.05 + i * 0.1);
  CChartObj3D object;
  object.BarChart25D(ind.data(), dep.data(), 0, 4, 3, 2, 3, red, yellow, 0, 0, 0);
  object.InitSegmentColorsStorage(bars.data());
  object.ContourPolysurface3D(&mesh, levels.data(), nullptr, 20, 5.0, 0);
  const CChartObj3D loaded = ExpectToLookTheSame(object);
  EXPECT_EQ(loaded.GetNumContours(), 20);
  EXPECT_EQ(loaded.GetNumDataPnts(), 0);
}

TEST_F(PolysurfaceRecord, OnlyContoursWithValuesAreStored) {
  CChartObj3D object = Contours();
  const Bytes whole = Saved(object);
  for (const int count : {3, 1000000, 2147483647}) {
    object.SetNumContours(count);
    EXPECT_EQ(Saved(object), whole) << count;
  }
  for (const int count : {0, -1, -2147483647}) {
    object.SetNumContours(count);
    const Bytes record = Saved(object);
    EXPECT_EQ(record.size(), whole.size() - 2 * 8 - 3 * 32) << count;
    EXPECT_EQ(IntegerAt(record, kNumContours), 0);
  }
  object.SetNumContours(2);
  object.DeleteContourValueStorage();
  EXPECT_EQ(IntegerAt(Saved(object), kNumContours), 0);
}

TEST_F(PolysurfaceRecord, DistrustsTheNumberOfContours) {
  for (const int count : {-1, -2147483647, 3, 100, 2147483647}) {
    SCOPED_TRACE(count);
    Bytes record = FromHex(kStoredContours);
    PutInteger(record, kNumContours, count);
    CChartObj3D loaded;
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), (CaughtError{7, 5, "Load"}));
    PictureOf(loaded);
    const Bytes again = Saved(loaded);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, again); }), kNoError);
    EXPECT_EQ(Saved(loaded), again);
  }
  // Fewer are read; what follows is not a part of the record.
  Bytes record = FromHex(kStoredContours);
  PutInteger(record, kNumContours, 1);
  CChartObj3D loaded;
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
  PutInteger(record, kNumContours, 0);
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
}

TEST_F(PolysurfaceRecord, DistrustsTheMesh) {
  constexpr std::size_t kStoredPoints = kArrays + 2 * 4 + 11 * 8 + 3 * 4;
  constexpr std::size_t kCounts = kStoredPoints + 4 + 7 * 32;
  for (const std::size_t offset :
       {kStoredPoints, kCounts, kCounts + 4, kCounts + 8, kCounts + 16}) {
    for (const int count : {-1, 2147483647}) {
      SCOPED_TRACE(::testing::Message() << "at " << offset << ", " << count);
      Bytes record = FromHex(kStoredContours);
      PutInteger(record, offset, count);
      CChartObj3D loaded;
      EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), (CaughtError{7, 18, "Load"}));
      PictureOf(loaded);
      const Bytes again = Saved(loaded);
      EXPECT_EQ(Catch([&] { LoadFrom(loaded, again); }), kNoError);
      EXPECT_EQ(Saved(loaded), again);
    }
  }
}

TEST_F(PolysurfaceRecord, SurvivesEveryTruncation) {
  const Bytes record = FromHex(kStoredContours);
  // Points come all at once, the spare ones with them.
  const std::size_t thirdPoint = kArrays + 2 * 4 + 11 * 8 + 3 * 4 + 4 + 7 * 32;
  for (std::size_t length = 0; length < record.size(); ++length) {
    SCOPED_TRACE(length);
    CChartObj3D loaded;
    const CaughtError error = Catch([&] {
      LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    if (error != kNoError) {
      const int errorClass = error.errorClass == 18 ? 18 : 5;
      EXPECT_EQ(error, (CaughtError{7, errorClass, "Load"}));
    }
    // Fields that a file no longer holds keep their values; arrays have to be there.
    EXPECT_EQ(error == kNoError, length < kArrays);
    EXPECT_EQ(loaded.GetPolysurfacePoint(2).z, length >= thirdPoint ? 5.0 : 0.0);
    loaded.InitChartObj3D(&gl, &transform);
    loaded.DrawChartObj();
    const Bytes again = Saved(loaded);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, again); }), kNoError);
  }
}

TEST_F(PolysurfaceRecord, ReplacesTheMeshThatWasThere) {
  const std::array<double, 4> heights{1, 2, 3, 4};
  const CPolysurface grid(2, 2, 0, 0, 10, 10, heights.data(), 1);
  CChartObj3D object;
  object.PolysurfaceChart3D(&grid);
  LoadFrom(object, FromHex(kStoredContours));
  CChartObj3D drawn = Contours();
  EXPECT_EQ(PictureOf(object), PictureOf(drawn));
  EXPECT_EQ(object.GetPolysurfacePoint(7).x, 0.0);  // eight points before, seven now
}

TEST_F(PolysurfaceRecord, ReportsFullFiles) {
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  const CChartObj3D object = Contours();
  // The mesh comes when the file is full already.
  EXPECT_EQ(Catch([&] { object.Save(full.m_hFile); }), (CaughtError{7, 5, "Save"}));
}

TEST_F(PolysurfaceRecord, ReportsMemoryThatRunsOut) {
  const CChartObj3D object = Contours();
  CFile nowhere;
  ASSERT_TRUE(nowhere.Open("/dev/null", CFile::modeWrite));
  const TemporaryFile file(FromHex(kStoredContours));
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  const auto expectErrors = [](const char* place, const auto& work) {
    int errors = 0;
    const int failures = FailEachAllocation([&] {
      const CaughtError error = Catch(work);
      if (error == kNoError) return;
      EXPECT_TRUE(error == (CaughtError{2, 5, place}) || error == (CaughtError{2, 18, place}))
          << error;
      ++errors;
    });
    EXPECT_GT(failures, 3);
    EXPECT_EQ(errors, failures);
  };
  expectErrors("Save", [&] { object.Save(nowhere.m_hFile); });
  expectErrors("Load", [&] {
    in.Seek(0, CFile::begin);
    CChartObj3D loaded;
    loaded.Load(in.m_hFile);
  });
}

// A record that ends before it comes to the surface leaves what the series had.
TEST(ChartObjSurfaceRecord, WhatAShortRecordDoesNotHoldStays) {
  const std::array<double, 4> heights{1, 2, 3, 4};
  const CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, heights.data(), 1);
  const std::array<RGBDType, 1> colors{{{1, 0, 0, 1}}};
  CChartObj3D series;
  series.PolysurfaceChart3D(&mesh);
  series.SetNumDataPnts(1);
  series.InitSegmentColorsStorage(colors.data());
  series.SetSegmentColorMode(0);
  const Bytes record = Saved(series);
  for (const std::size_t length : {std::size_t{0}, std::size_t{100}, std::size_t{300}}) {
    CChartObj3D loaded = series;
    LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    EXPECT_EQ(loaded.GetSegmentColorMode(), 0) << length;
    EXPECT_EQ(loaded.GetPolysurfacePoint(3).z, 4.0) << length;
  }
}

TEST(ChartObjSurfaceRecord, ARecordWithoutASurfaceTakesItAway) {
  const std::array<double, 4> heights{1, 2, 3, 4};
  const CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, heights.data(), 1);
  CChartObj3D series;
  const Bytes record = Saved(series);
  series.PolysurfaceChart3D(&mesh);
  LoadFrom(series, record);
  EXPECT_EQ(series.GetPolysurfacePoint(3).z, 0.0);
}

}  // namespace
