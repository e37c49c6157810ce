#include <limits>
#include <string>

#include "series/chart_3d_fixture.h"

namespace {

using namespace orvalix::test;

constexpr int kNoPlane = -1;

class PolysurfaceCharts : public Chart3DTest {
 protected:
  /// A quadrilateral and a triangle beside it, each with colours of its own.
  CPolysurface TwoPolygons() const {
    CPolysurface mesh(5, 2, 4);
    const std::array<point3Dtype, 5> points{
        {{1, 2, 3, 0}, {4, 2, 3, 0.25}, {4, 6, 5, 0.5}, {1, 6, 5, 0.75}, {8, 4, 9, 1}}};
    mesh.SetPolysurfacePoints(points.data(), 0, 5);
    mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2, 3}.data(), 4, red, blue);
    mesh.AddPolysurfacePolygon(1, std::array{1, 4, 2}.data(), 3, green, yellow);
    return mesh;
  }
  const std::vector<Place> quadrilateral{{1, 2, 3}, {4, 2, 3}, {4, 6, 5}, {1, 6, 5}, {1, 2, 3}};
  const std::vector<Place> triangle{{4, 2, 3}, {8, 4, 9}, {4, 6, 5}, {4, 2, 3}};

  void SetUpSurface(const CPolysurface& mesh) { chart.PolysurfaceChart3D(&mesh); }
  void SetUpFlat(const CPolysurface& mesh, int plane, double constant) {
    chart.PolysurfaceChart2D(&mesh, constant, plane);
  }
  CPolysurface TwoFrames() const {
    CPolysurface mesh = TwoPolygons();
    mesh.SetWireFrame(1);
    return mesh;
  }

  /// The places with one coordinate replaced; planes 0 to 2 are those of z, y and x.
  static std::vector<Place> Flat(std::vector<Place> places, int plane, double constant) {
    for (Place& place : places) {
      if (plane == 0) place.z = constant;
      if (plane == 1) place.y = constant;
      if (plane == 2) place.x = constant;
    }
    return places;
  }

  /// Expects the lines from place to place, from `first` on.
  void ExpectFrame(const Primitives& drawn, std::size_t first, const std::vector<Place>& path,
                   const RGBDType& color) const {
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
      SCOPED_TRACE(first + i);
      ASSERT_LT(first + i, drawn.size());
      ExpectLine(drawn[first + i], path[i], path[i + 1]);
      ExpectColor(drawn[first + i], color);
    }
  }

  /// The first texture coordinate of each vertex.
  static std::vector<double> CoordinatesOf(const FeedbackPrimitive& primitive) {
    std::vector<double> coordinates;
    for (const auto& vertex : primitive.vertices) coordinates.push_back(vertex.t);
    return coordinates;
  }
  static void ExpectCoordinates(const FeedbackPrimitive& primitive,
                                const std::vector<double>& expected) {
    const auto actual = CoordinatesOf(primitive);
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(actual[i], expected[i], 1e-6) << i;
    }
  }

  /// A texture for the values from 0 to 8 of the coordinate that a texture mode names: value v is
  /// at v / 8, moved by 0.004 into the colour of the lowest value.
  void SetUpTexture(int mode) {
    const std::array<RGBDType, 4> colors{red, green, blue, yellow};
    gl.SetTextureMode(mode);
    gl.SetTextureColorArray(colors.data(), 0.0, 8.0, 4);
    while (glGetError() != GL_NO_ERROR) {
    }
  }
};

TEST_F(PolysurfaceCharts, SetUpCopiesTheMesh) {
  CPolysurface mesh = TwoPolygons();
  SetUpSurface(mesh);
  EXPECT_EQ(chart.GetChartType(), 51);
  SetUpFlat(mesh, 2, 7.0);
  EXPECT_EQ(chart.GetChartType(), 50);
  EXPECT_EQ(chart.GetProjectionPlane(), 2);
  EXPECT_EQ(chart.GetConstValue(), 7.0);
  SetUpSurface(mesh);
  mesh.SetOnePolysurfacePoint(0, {9, 9, 9, 9});
  mesh.SetWireFrame(1);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectPlaces(drawn[0], quadrilateral);
}

TEST_F(PolysurfaceCharts, SolidPolygonsHaveTheirFirstColor) {
  SetUpSurface(TwoPolygons());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].kind, Kind::kPolygon);
  EXPECT_EQ(drawn[1].kind, Kind::kPolygon);
  ExpectPlaces(drawn[0], quadrilateral);  // with the first vertex again at the end
  ExpectPlaces(drawn[1], triangle);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], green);
}

TEST_F(PolysurfaceCharts, EdgesHaveTheSecondColorAndTheOutlineWidth) {
  SetUpSurface(TwoPolygons());
  chart.SetOutlineMode(1);
  chart.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U + 4 + 1 + 3);
  ExpectColor(drawn[0], red);
  ExpectFrame(drawn, 1, quadrilateral, blue);
  ExpectColor(drawn[5], green);
  ExpectFrame(drawn, 6, triangle, yellow);
  EXPECT_EQ(WidthInUse(), 3.0F);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(PolysurfaceCharts, WireFramesAreTheEdgesAlone) {
  SetUpSurface(TwoFrames());
  chart.SetOutlineWidth(2.0);
  for (const int outlineMode : {0, 1}) {
    chart.SetOutlineMode(outlineMode);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 4U + 3);
    ExpectFrame(drawn, 0, quadrilateral, blue);
    ExpectFrame(drawn, 4, triangle, yellow);
    EXPECT_EQ(WidthInUse(), 2.0F);
    EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
  }
}

TEST_F(PolysurfaceCharts, FlatPolygonsAreBlackAndLieOnTheirPlane) {
  for (const int plane : {0, 1, 2}) {
    for (const double constant : {0.0, 7.0}) {
      SCOPED_TRACE(::testing::Message() << "plane " << plane << ", at " << constant);
      SetUpFlat(TwoPolygons(), plane, constant);
      const auto drawn = Drawn();
      ASSERT_EQ(drawn.size(), 2U);
      ExpectPlaces(drawn[0], Flat(quadrilateral, plane, constant));
      ExpectPlaces(drawn[1], Flat(triangle, plane, constant));
      for (const auto& polygon : drawn) ExpectColor(polygon, black);
    }
  }
}

TEST_F(PolysurfaceCharts, OtherPlanesChangeNothing) {
  for (const int plane : {-1, 3, 4, 5, 6, 1000}) {
    SCOPED_TRACE(plane);
    SetUpFlat(TwoPolygons(), plane, 7.0);
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 2U);
    ExpectPlaces(drawn[0], quadrilateral);
    ExpectPlaces(drawn[1], triangle);
    ExpectColor(drawn[0], black);
  }
}

TEST_F(PolysurfaceCharts, FlatPolygonsHaveEdgesOfTheirSecondColor) {
  SetUpFlat(TwoPolygons(), 1, 7.0);
  chart.SetOutlineMode(1);
  chart.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U + 4 + 1 + 3);
  ExpectColor(drawn[0], black);
  ExpectFrame(drawn, 1, Flat(quadrilateral, 1, 7.0), blue);
  ExpectFrame(drawn, 6, Flat(triangle, 1, 7.0), yellow);
  EXPECT_EQ(WidthInUse(), 3.0F);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

/// Whichever way the polygons go round as seen from there.
TEST_F(PolysurfaceCharts, FlatWireFramesAreSeenFromAboveAndFromBelow) {
  for (const int plane : {0, 1, 2, kNoPlane}) {
    for (const point3Dtype& turn :
         {point3Dtype{-60, 0, 30, 0}, point3Dtype{60, 0, 30, 0}, point3Dtype{-60, 0, 200, 0}}) {
      SCOPED_TRACE(::testing::Message()
                   << "plane " << plane << ", turned by " << turn.x << ", " << turn.z);
      transform.SetRotate(turn);
      SetUpFlat(TwoFrames(), plane, 7.0);
      const auto drawn = Drawn();
      ASSERT_EQ(drawn.size(), 4U + 3);
      for (std::size_t i = 0; i < drawn.size(); ++i) {
        EXPECT_EQ(drawn[i].kind, Kind::kLine) << i;
        ExpectColor(drawn[i], i < 4 ? blue : yellow);
      }
    }
  }
}

TEST_F(PolysurfaceCharts, FlatWireFramesRunAlongTheEdges) {
  // Seen from the front, plane 1 is seen straight: an end of each edge is at each vertex.
  SetUpFlat(TwoFrames(), 1, 7.0);
  chart.SetOutlineWidth(2.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 4U + 3);
  const auto countEndsAt = [&](const Place& place, std::size_t first, std::size_t count) {
    const FeedbackVertex expected = Window(place);
    int ends = 0;
    for (std::size_t i = first; i < first + count; ++i) {
      for (const auto& vertex : drawn[i].vertices) {
        const bool near = std::abs(vertex.x - expected.x) < 1e-2 &&
                          std::abs(vertex.y - expected.y) < 1e-2 &&
                          std::abs(vertex.z - expected.z) < 1e-5;
        ends += near ? 1 : 0;
      }
    }
    return ends;
  };
  for (const Place& corner : {Place{1, 7, 3}, Place{4, 7, 3}, Place{4, 7, 5}, Place{1, 7, 5}}) {
    EXPECT_EQ(countEndsAt(corner, 0, 4), 2);
  }
  for (const Place& corner : {Place{4, 7, 3}, Place{8, 7, 9}, Place{4, 7, 5}}) {
    EXPECT_EQ(countEndsAt(corner, 4, 3), 2);
  }
  EXPECT_EQ(WidthInUse(), 2.0F);
  EXPECT_EQ(gl.GetLineWidth3D(), 1.0);
}

TEST_F(PolysurfaceCharts, FlatWireFramesAreSeenOnInvertedAxes) {
  transform.SetScale({10, 0, 0, 0}, {0, 10, 10, 0});
  SetUpFlat(TwoFrames(), 1, 7.0);
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 4U + 3);
  for (const auto& line : drawn) EXPECT_EQ(line.kind, Kind::kLine);
  transform.SetScale({10, 0, 10, 0}, {0, 10, 0, 0});
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 4U + 3);
  for (const auto& line : drawn) EXPECT_EQ(line.kind, Kind::kLine);
}

TEST_F(PolysurfaceCharts, FlatWireFramesAreSeenFromTheirEdge) {
  // The plane of z is a line across the middle of the window at z = 5; the edges lie in it.
  SetUpFlat(TwoFrames(), 0, 5.0);
  for (int degrees = 0; degrees < 360; degrees += 7) {
    SCOPED_TRACE(degrees);
    transform.SetRotate({0, 0, static_cast<double>(degrees), 0});
    const auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), 4U + 3);
    for (const auto& line : drawn) {
      ASSERT_EQ(line.kind, Kind::kLine);
      for (const auto& vertex : line.vertices) EXPECT_NEAR(vertex.y, 100.0, 1e-2);
    }
  }
}

TEST_F(PolysurfaceCharts, ColorsByTheHeight) {
  SetUpTexture(2);
  chart.SetColorMode(2);
  SetUpSurface(TwoPolygons());
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectCoordinates(drawn[0], {0.379, 0.379, 0.629, 0.629, 0.379});  // z of 3 and 5
  ExpectCoordinates(drawn[1], {0.379, 1.129, 0.629, 0.379});         // and 9
  // Laid flat, all points have the same z.
  SetUpFlat(TwoPolygons(), 0, 4.0);
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectCoordinates(drawn[0], {0.504, 0.504, 0.504, 0.504, 0.504});
  // Across another plane the height stays.
  SetUpFlat(TwoPolygons(), 1, 4.0);
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectCoordinates(drawn[0], {0.379, 0.379, 0.629, 0.629, 0.379});
}

TEST_F(PolysurfaceCharts, ColorsByTheValueOfThePoints) {
  SetUpTexture(3);
  chart.SetColorMode(2);
  SetUpSurface(TwoPolygons());
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  // v of 0, 0.25, 0.5, 0.75 and 1, in eighths.
  ExpectCoordinates(drawn[0], {0.004, 0.03525, 0.0665, 0.09775, 0.004});
  ExpectCoordinates(drawn[1], {0.03525, 0.129, 0.0665, 0.03525});
  SetUpFlat(TwoPolygons(), 0, 4.0);  // flat, they keep their values
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectCoordinates(drawn[0], {0.004, 0.03525, 0.0665, 0.09775, 0.004});
}

TEST_F(PolysurfaceCharts, TheTextureCoversTheBlackOfFlatPolygons) {
  SetUpTexture(3);
  CPolysurface mesh = TwoPolygons();
  mesh.CopyXYorZtoV(0.0, 0.0, 0);  // v = 0 everywhere: the first colour, red
  chart.SetColorMode(2);
  SetUpFlat(mesh, 1, 5.0);
  gl.SetClearColor(1, 1, 1, 1);
  gl.Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  gl.LoadIdentity();
  chart.DrawChartObj();
  std::array<unsigned char, 4> pixel{};
  glReadPixels(75, 90, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());  // x = 2.5, z = 4
  EXPECT_EQ(pixel[0], 255);
  EXPECT_EQ(pixel[1], 0);
  EXPECT_EQ(pixel[2], 0);
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
}

TEST_F(PolysurfaceCharts, EdgesAreNotColoredByValue) {
  SetUpTexture(2);
  chart.SetColorMode(2);
  chart.SetOutlineMode(1);
  SetUpSurface(TwoPolygons());
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U + 4 + 1 + 3);
  ExpectFrame(drawn, 1, quadrilateral, blue);
  for (const bool flat : {false, true}) {
    if (flat) {
      SetUpFlat(TwoFrames(), 1, 7.0);
    } else {
      SetUpSurface(TwoFrames());
    }
    drawn = Drawn();
    ASSERT_EQ(drawn.size(), 4U + 3);
    for (std::size_t i = 0; i < drawn.size(); ++i) ExpectColor(drawn[i], i < 4 ? blue : yellow);
  }
}

TEST_F(PolysurfaceCharts, LogarithmicAxes) {
  transform.SetScale({1, 0, 1, 0}, {100, 10, 1000, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  CPolysurface mesh(3, 1, 3);
  const std::array<point3Dtype, 3> points{{{1, 2, 10, 0}, {100, 4, 1, 0}, {10, 6, 1000, 0}}};
  mesh.SetPolysurfacePoints(points.data(), 0, 3);
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 2}.data(), 3, red, blue);
  SetUpSurface(mesh);
  auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectPlaces(drawn[0], {{0, 2, 1}, {2, 4, 0}, {1, 6, 3}, {0, 2, 1}});
  SetUpFlat(mesh, 0, 100.0);  // log10(100) = 2
  drawn = Drawn();
  ASSERT_EQ(drawn.size(), 1U);
  ExpectPlaces(drawn[0], {{0, 2, 2}, {2, 4, 2}, {1, 6, 2}, {0, 2, 2}});
}

TEST_F(PolysurfaceCharts, PolygonsWithoutTheirPointsAreLeftOut) {
  CPolysurface mesh(3, 4, 3);
  const std::array<point3Dtype, 3> points{{{1, 2, 3, 0}, {4, 2, 3, 0}, {4, 6, 5, 0}}};
  mesh.SetPolysurfacePoints(points.data(), 0, 3);
  mesh.AddPolysurfacePolygon(0, std::array{0, 1, 1000}.data(), 3, red, blue);
  mesh.AddPolysurfacePolygon(1, std::array{0, -1, 2}.data(), 3, red, blue);
  mesh.AddPolysurfacePolygon(2, std::array{0, 1, 2}.data(), 3, green, blue);
  for (const int wireFrame : {0, 1}) {
    mesh.SetWireFrame(wireFrame);
    SetUpSurface(mesh);
    auto drawn = Drawn();
    ASSERT_EQ(drawn.size(), wireFrame == 0 ? 1U : 3U);
    ExpectColor(drawn[0], wireFrame == 0 ? green : blue);
    SetUpFlat(mesh, 1, 0.0);
    drawn = Drawn();
    ASSERT_EQ(drawn.size(), wireFrame == 0 ? 1U : 3U);
    ExpectColor(drawn[0], wireFrame == 0 ? black : blue);
  }
}

TEST_F(PolysurfaceCharts, PolygonsWithoutAPlaceAreLeftOut) {
  CPolysurface mesh = TwoPolygons();
  mesh.SetOnePolysurfacePoint(4, {8, std::numeric_limits<double>::quiet_NaN(), 9, 0});
  SetUpSurface(mesh);
  EXPECT_EQ(Drawn().size(), 1U);
  SetUpFlat(mesh, 0, 1.0);
  EXPECT_EQ(Drawn().size(), 1U);
  mesh.SetWireFrame(1);
  SetUpFlat(mesh, 0, 1.0);
  EXPECT_EQ(OfKind(Drawn(), Kind::kLine).size(), 4U);
  SetUpFlat(TwoPolygons(), 0, std::numeric_limits<double>::infinity());
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(PolysurfaceCharts, PolygonsMayHaveManyVertices) {
  constexpr int kMost = 255;
  CPolysurface mesh(kMost, 1, kMost);
  std::vector<int> indices;
  for (int i = 0; i < kMost; ++i) {
    mesh.SetOnePolysurfacePoint(i, {i * 0.03, 5, i * (kMost - i) * 0.0005, 0});
    indices.push_back(i);
  }
  mesh.AddPolysurfacePolygon(0, indices.data(), kMost, red, blue);
  mesh.SetWireFrame(1);
  SetUpSurface(mesh);
  EXPECT_EQ(Drawn().size(), 255U);
  SetUpFlat(mesh, 1, 7.0);
  EXPECT_EQ(Drawn().size(), 255U);
}

TEST_F(PolysurfaceCharts, EmptyMeshesDrawNothing) {
  CPolysurface mesh(3, 2, 3);
  SetUpSurface(mesh);
  EXPECT_TRUE(Drawn().empty());
  SetUpFlat(mesh, 0, 0.0);
  EXPECT_TRUE(Drawn().empty());
  mesh.ClosePolysurface();
  SetUpSurface(mesh);
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(PolysurfaceCharts, WithoutAMeshNothingIsDrawn) {
  gl.SetLineWidth3D(5.0);
  for (const int type : {50, 51, 52}) {
    chart.SetChartType(type);
    EXPECT_TRUE(Drawn().empty()) << type;
    EXPECT_EQ(gl.GetLineWidth3D(), 5.0) << type;
  }
  SetUpSurface(TwoPolygons());
  chart.PolysurfaceChart3D(nullptr);  // what was there stays
  EXPECT_EQ(Drawn().size(), 2U);
  chart.PolysurfaceChart2D(nullptr, 1.0, 1);
  EXPECT_EQ(Drawn().size(), 2U);
  chart.DeletePolysurfaceStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(PolysurfaceCharts, GridsDrawAllTheirPolygons) {
  const std::array<double, 6> heights{1, 2, 3, 4, 5, 6};
  const CPolysurface triangles(2, 3, 0, 0, 10, 10, heights.data(), 1);
  SetUpSurface(triangles);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 4U);
  // Point r * 3 + c at (5 c, 10 r): first (0, 1, 3), then (1, 4, 3).
  ExpectPlaces(drawn[0], {{0, 0, 1}, {5, 0, 2}, {0, 10, 4}, {0, 0, 1}});
  ExpectPlaces(drawn[1], {{5, 0, 2}, {5, 10, 5}, {0, 10, 4}, {5, 0, 2}});
  ExpectColor(drawn[0], blue);
  const CPolysurface quadrilaterals(2, 3, 0, 0, 10, 10, heights.data(), 0);
  SetUpSurface(quadrilaterals);
  EXPECT_EQ(Drawn().size(), 2U);
}

}  // namespace
