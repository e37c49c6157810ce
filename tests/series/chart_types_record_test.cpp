#include <functional>
#include <string>
#include <utility>

#include "series/chart_3d_fixture.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

constexpr int kPoints = 3;
const std::array<double, kPoints> kPlaces{1, 4, 7};
const std::array<double, kPoints> kValues{5, 8, 3};
const std::array<double, kPoints> kOthers{2, 9, 1};
const std::array<point3Dtype, kPoints> kInSpace{{{1, 2, 8, 1}, {5, 4, 6, 2}, {7, 6, 9, 3}}};
/// Six rows, enough for each of the grouped types.
const std::array<double, 18> kRows{1, 2, 1, 3, 4, 2, 4, 5, 3, 5, 7, 6, 8, 9, 7, 6, 5, 4};

/// Every chart type with a series of its own, drawn before and after a stay in a file.
class ChartTypesRecord : public Chart3DTest {
 protected:
  ChartTypesRecord() : before(CChartObj3D::nSelfID) {
    gl.RegisterFont("Arial", 0.2, 400, 0, 0, 128);
    transform.SetRotate({-30, 0, 25, 0});
  }
  ~ChartTypesRecord() override { CChartObj3D::nSelfID = before; }

  using SetUp = std::function<void(CChartObj3D&)>;

  /// The set-up of every type, by its number.
  std::vector<std::pair<int, SetUp>> Types() const {
    const std::array<RGBDType, 6> groups{red, green, blue, yellow, black, red};
    const double* x = kPlaces.data();
    const double* z = kValues.data();
    const double* rows = kRows.data();
    const point3Dtype* points = kInSpace.data();
    return {{1, [=, this](auto& o) { o.RibbonChart25D(x, z, 2, 3, 1.5, red, blue, 1, 0); }},
            {2, [=, this](auto& o) { o.BarChart25D(x, z, 1, 2, 3, 1.5, 2, red, blue, 1, 2, 1); }},
            {3, [=, this](auto& o) { o.BarChart3D(points, nullptr, 3, 1.5, 2, red, blue); }},
            {4, [=, this](auto& o) { o.AreaFillChart25D(x, z, 1, 2, 3, 1.5, red, blue, 1, 0); }},
            {5,
             [=, this](auto& o) {
               o.AreaRangeChart25D(x, z, kOthers.data(), 2, 3, 1.5, red, blue, 1, 1);
             }},
            {6, [=, this](auto& o) { o.LineChart25D(x, z, 2, 3, 1, 3.0, red, 1); }},
            {7, [=, this](auto& o) { o.ScatterChart3D(points, 2, 3, 13, red, blue, 1, 2.5); }},
            {8, [=, this](auto& o) { o.LineChart3D(points, 3, 1, 3, red); }},
            {9, [=, this](auto& o) { o.ProjectionLineChart3D(points, 9, 3, 1, 3, red, 2, 1.5); }},
            {10,
             [=, this](auto& o) {
               o.GroupBarChart25D(x, rows, 2, 1, 3, 2, 1, 1.5, 2, groups.data(), blue, 1, 2, 0);
             }},
            {11,
             [=, this](auto& o) {
               o.GroupRibbonChart25D(x, rows, 2, 3, 3, 1.5, groups.data(), blue, 1, 0);
             }},
            {12,
             [=, this](auto& o) {
               o.GroupAreaFillChart25D(x, rows, 2, 3, 2, 1.5, groups.data(), blue, 1, 1);
             }},
            {13,
             [=, this](auto& o) {
               o.OHLCChart25D(x, rows, 2, 3, 10, 13, 1, 2, groups.data(), blue, 1, 2, 0, nullptr);
             }},
            {14, [=, this](auto& o) { o.PlaneChart3D(points, 3, 1.5, 2, red, blue); }},
            {15,
             [=, this](auto& o) {
               const std::array<CString, 3> texts{CString("one"), CString(""), CString("three")};
               o.ScatterText3D(points, texts.data(), 3, 1.5, 2, red, 1, 2.5);
             }},
            {16,
             [=, this](auto& o) {
               o.BoxAndWhiskerChart25D(x, rows, 2, 3, 1.5, 2, 12, 1, 2, groups.data(), blue, 1, 2,
                                       1, 1);
             }},
            {17,
             [=, this](auto& o) {
               o.FloatingBarChart25D(x, z, kOthers.data(), 2, 3, 1.5, 2, red, blue, 1, 2, 0);
             }},
            {18, [=, this](auto& o) { o.PlaneChart25D(x, z, 2, 3, 1.5, 2, red, blue, 1, 2, 1); }},
            {50,
             [=](auto& o) {
               const CPolysurface mesh = Mesh();
               o.PolysurfaceChart2D(&mesh, 2.5, 0);
             }},
            {51,
             [=](auto& o) {
               const CPolysurface mesh = Mesh();
               o.PolysurfaceChart3D(&mesh);
             }},
            {52, [=](auto& o) {
               const CPolysurface mesh = Mesh();
               o.ContourPolysurface3D(&mesh, kOthers.data(), groups.data(), 3, 2.5, 1);
             }}};
  }

  static CPolysurface Mesh() {
    const std::array<double, 9> heights{1, 2, 4, 3, 9, 5, 2, 6, 8};
    return CPolysurface(3, 3, 1, 1, 9, 9, heights.data(), 1);
  }

  std::string PictureOf(CChartObj3D& object) {
    object.InitChartObj3D(&gl, &transform);
    return ToTranscript(DrawnBy(object));
  }

  static CChartObj3D Reloaded(const CChartObj3D& object) {
    CChartObj3D loaded;
    const Bytes record = Saved(object);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
    return loaded;
  }

  void ExpectToLookTheSame(CChartObj3D& object) {
    CChartObj3D loaded = Reloaded(object);
    const std::string picture = PictureOf(object);
    EXPECT_FALSE(picture.empty());
    EXPECT_EQ(PictureOf(loaded), picture);
  }

  int before;
};

TEST_F(ChartTypesRecord, ThereAre21) {
  const auto types = Types();
  EXPECT_EQ(types.size(), 21U);
  for (const auto& [number, setUp] : types) {
    CChartObj3D object;
    setUp(object);
    EXPECT_EQ(object.GetChartType(), number);
  }
}

TEST_F(ChartTypesRecord, EachLooksTheSameAfterwards) {
  for (const auto& [number, setUp] : Types()) {
    SCOPED_TRACE(number);
    CChartObj3D object;
    setUp(object);
    ExpectToLookTheSame(object);  // lit, with outlines
    object.SetColorMode(0);
    object.SetOutlineMode(0);
    object.SetClipping(1);
    ExpectToLookTheSame(object);
  }
}

TEST_F(ChartTypesRecord, AttributesComeAlong) {
  for (const auto& [number, setUp] : Types()) {
    SCOPED_TRACE(number);
    CChartObj3D object;
    setUp(object);
    object.SetFillGap(0.05);
    object.SetOutlineWidth(2.5);
    object.SetPlaneThickness(0.1);
    object.SetLineStyle(2);
    object.SetLineWidth(3);
    object.SetIndAxis(1 - object.GetIndAxis());
    ExpectToLookTheSame(object);
    const CChartObj3D loaded = Reloaded(object);
    EXPECT_EQ(loaded.GetOutlineWidth(), 2.5);
    EXPECT_EQ(loaded.GetLineStyle(), 2);
    EXPECT_EQ(loaded.GetLineWidth(), 3);
    EXPECT_EQ(loaded.GetChartType(), number);
    EXPECT_EQ(loaded.GetTextPlane(), object.GetTextPlane());
    EXPECT_EQ(loaded.GetProjectionPlane(), object.GetProjectionPlane());
  }
}

TEST_F(ChartTypesRecord, SegmentColorsComeAlong) {
  const std::array<RGBDType, kPoints> colors{yellow, green, black};
  for (const auto& [number, setUp] : Types()) {
    if (number >= 50) continue;  // surfaces have no points that would have colours
    SCOPED_TRACE(number);
    CChartObj3D object;
    setUp(object);
    object.InitSegmentColorsStorage(colors.data());
    ExpectToLookTheSame(object);
  }
}

TEST_F(ChartTypesRecord, TwiceIsAsGoodAsOnce) {
  for (const auto& [number, setUp] : Types()) {
    SCOPED_TRACE(number);
    CChartObj3D object;
    setUp(object);
    const CChartObj3D once = Reloaded(object);
    const CChartObj3D twice = Reloaded(once);
    EXPECT_EQ(Saved(twice), Saved(once));
  }
}

/// Kept: stored charts have no room for the heights of bars in space.
TEST_F(ChartTypesRecord, BarsInSpaceStandOn0Afterwards) {
  CChartObj3D object;
  object.BarChart3D(kInSpace.data(), kOthers.data(), kPoints, 1.5, 2, red, blue);
  CChartObj3D loaded = Reloaded(object);
  const std::string picture = PictureOf(object);
  EXPECT_NE(PictureOf(loaded), picture);
  object.DeleteBarHeightsStorage();
  EXPECT_EQ(PictureOf(loaded), PictureOf(object));
  EXPECT_EQ(loaded.GetBarHeight(0), 0.0);
}

TEST_F(ChartTypesRecord, HiddenSeriesStayHidden) {
  for (const auto& [number, setUp] : Types()) {
    SCOPED_TRACE(number);
    CChartObj3D object;
    setUp(object);
    object.EnableChartObj(0);
    CChartObj3D loaded = Reloaded(object);
    EXPECT_EQ(PictureOf(loaded), "");
    loaded.EnableChartObj(1);
    object.EnableChartObj(1);
    EXPECT_EQ(PictureOf(loaded), PictureOf(object));
  }
}

}  // namespace
