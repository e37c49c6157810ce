#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "series/gathering_fixture.h"
#include "support/temporary_file.h"

// Whatever shapes a series: changed after it was drawn, it shows as if it had never been otherwise.

namespace {

using namespace orvalix::test;

using Work = std::function<void(SeriesScene&)>;

/// Something that is done to a series of a sample.
struct Change {
  std::string name;
  std::string sample;
  Work apply;
  Work before = [](SeriesScene&) {};  ///< to both series
  bool shows = true;
};

/// A change by a setter of the series.
template <class Set>
Change Of(const char* name, const char* sample, Set set) {
  return {name, sample, [set](SeriesScene& s) { set(s.series); }};
}

void SetUp(SeriesScene& scene, const Change& change) {
  SampleNamed(change.sample).setUp(scene.series, 0);
  change.before(scene);
}

void ExpectShownAtOnce(const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    SCOPED_TRACE(change.name + " of " + change.sample);
    SeriesScene scene;
    SetUp(scene, change);
    const PixelBytes before = scene.Picture();
    ASSERT_EQ(scene.Picture(), before);
    change.apply(scene);
    const PixelBytes after = scene.Picture();
    SeriesScene fresh;
    SetUp(fresh, change);
    change.apply(fresh);
    EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0) << "the old drawing shows";
    EXPECT_EQ(DifferingPixels(before, after) != 0, change.shows);
    EXPECT_EQ(scene.Picture(), after) << "the next frame differs";
  }
}

const std::array<double, 4> kOther{2, 4, 6, 8};
const RGBDType kOtherColor{0.9, 0.1, 0.5, 1};

using Object = CChartObj3D;

TEST(KeptSeries, NumbersShowAtOnce) {
  ExpectShownAtOnce({
      Of("base value", "bars", [](Object& o) { o.SetBaseValue(-3); }),
      Of("const value", "bars", [](Object& o) { o.SetConstValue(6); }),
      Of("const width", "bars", [](Object& o) { o.SetConstWidth(1); }),
      Of("fill gap", "ribbon", [](Object& o) { o.SetFillGap(0.05); }),
      Of("independent width", "bars", [](Object& o) { o.SetIndWidth(0.5); }),
      Of("outline width", "bars", [](Object& o) { o.SetOutlineWidth(4); }),
      Of("plane thickness", "planes", [](Object& o) { o.SetPlaneThickness(0.1); }),
      Of("relative size", "cubes", [](Object& o) { o.SetRelSize(3); }),
      Of("base value that is no number", "bars",
         [](Object& o) { o.SetBaseValue(std::numeric_limits<double>::quiet_NaN()); }),
  });
}

TEST(KeptSeries, CodesShowAtOnce) {
  ExpectShownAtOnce({
      Of("chart type", "bars", [](Object& o) { o.SetChartType(Object::kRibbonChart25D); }),
      {"clipping", "bars", [](SeriesScene& s) { s.series.SetClipping(1); },
       [](SeriesScene& s) {
         s.transform.SetScale({2, 0, -1, 0}, {7, 10, 4, 0});
       }},
      Of("colour mode", "bars", [](Object& o) { o.SetColorMode(0); }),
      Of("colour mode by value", "bars", [](Object& o) { o.SetColorMode(2); }),
      Of("const justification", "bars", [](Object& o) { o.SetConstJustify(2); }),
      Of("group type", "group_bars", [](Object& o) { o.SetGroupType(1); }),
      Of("independent axis", "bars", [](Object& o) { o.SetIndAxis(1); }),
      Of("independent justification", "bars", [](Object& o) { o.SetIndJustify(0); }),
      Of("line style", "line", [](Object& o) { o.SetLineStyle(3); }),
      Of("line width", "line", [](Object& o) { o.SetLineWidth(5); }),
      Of("number of contours", "contours", [](Object& o) { o.SetNumContours(1); }),
      Of("number of points", "bars", [](Object& o) { o.SetNumDataPnts(2); }),
      Of("number of groups", "group_bars", [](Object& o) { o.SetNumGroups(2); }),
      Of("outline mode", "bars", [](Object& o) { o.SetOutlineMode(0); }),
      Of("projection plane", "cubes", [](Object& o) { o.SetProjectionPlane(1); }),
      {"segment colour mode", "bars", [](SeriesScene& s) { s.series.SetSegmentColorMode(0); },
       [](SeriesScene& s) { s.series.InitSegmentColorsStorage(kSampleColors.data()); }},
      Of("symbol", "cubes", [](Object& o) { o.SetSymbol(Object::kArrow); }),
      Of("symbol 2", "market", [](Object& o) { o.SetSymbol2(Object::kArrow); }),
      Of("text plane", "texts", [](Object& o) { o.SetTextPlane(0); }),
      Of("enabling", "bars", [](Object& o) { o.EnableChartObj(0); }),
      Of("composite flags", "market",
         [](Object& o) {
           const std::array<int, 6> flags{0, 1, 0, 1, 1, 0};
           o.SetComboChartFlags(flags.data());
         }),
  });
  // Only stored.
  std::vector<Change> hidden{
      Of("dependent justification", "bars", [](Object& o) { o.SetDepJustify(2); }),
      Of("contour label flag", "contours", [](Object& o) { o.SetContourLabelFlag(1); })};
  for (Change& change : hidden) change.shows = false;
  ExpectShownAtOnce(hidden);
}

TEST(KeptSeries, ColorsShowAtOnce) {
  ExpectShownAtOnce({
      Of("fill colour", "bars", [](Object& o) { o.SetFillColor(kOtherColor); }),
      Of("fill colour of symbols", "cubes", [](Object& o) { o.SetFillColor(kOtherColor); }),
      Of("outline colour", "bars", [](Object& o) { o.SetOutlineColor(kOtherColor); }),
      Of("group colour", "group_bars", [](Object& o) { o.SetGroupColor(1, kOtherColor); }),
      {"segment colour", "bars", [](SeriesScene& s) { s.series.SetSegmentColor(1, kOtherColor); },
       [](SeriesScene& s) { s.series.InitSegmentColorsStorage(kSampleColors.data()); }},
      Of("contour colour", "contours", [](Object& o) { o.SetContourColor(1, kOtherColor); }),
  });
}

TEST(KeptSeries, ElementsShowAtOnce) {
  ExpectShownAtOnce({
      Of("independent value", "bars", [](Object& o) { o.SetIndData(1, 2); }),
      Of("dependent value", "bars", [](Object& o) { o.SetDepData(1, 7); }),
      Of("second dependent value", "ranges", [](Object& o) { o.SetDepData2(1, 7); }),
      Of("bar height", "floating_bars", [](Object& o) { o.SetBarHeight(1, 5); }),
      Of("bar height in space", "bars_3d", [](Object& o) { o.SetBarHeight(0, 8); }),
      Of("group value", "group_bars", [](Object& o) { o.SetGroupData(1, 2, 7); }),
      Of("point", "cubes",
         [](Object& o) {
           o.Set3DPoint(1, {2, 8, 6, 1});
         }),
      Of("text", "texts", [](Object& o) { o.SetScatterTextString(1, CString("other")); }),
      Of("contour value", "contours", [](Object& o) { o.SetContourValue(1, 4.5); }),
      Of("point of a surface", "surface",
         [](Object& o) {
           o.SetPolysurfacePoint(14, {4, 4, 9, 1});
         }),
  });
}

TEST(KeptSeries, StoragesShowAtOnce) {
  const CPolysurface wire = SampleSurface(1);
  const std::array<CString, 4> texts{CString("w"), CString("x"), CString("y"), CString("z")};
  const auto segmentColors = [](SeriesScene& s) {
    s.series.InitSegmentColorsStorage(kSampleColors.data());
  };
  const std::array<RGBDType, 6> colors{kOtherColor, kSampleFill, kOtherColor,
                                       kSampleFill, kOtherColor, kSampleFill};
  const double* other = kOther.data();
  const std::array<point3Dtype, 4> points{{{2, 2, 2, 0}, {3, 4, 5, 0}, {7, 7, 1, 0}, {9, 2, 8, 0}}};
  ExpectShownAtOnce({
      Of("InitIndDataStorage", "bars", [&](Object& o) { o.InitIndDataStorage(other); }),
      Of("DeleteIndDataStorage", "bars", [](Object& o) { o.DeleteIndDataStorage(); }),
      Of("InitDepDataStorage", "bars", [&](Object& o) { o.InitDepDataStorage(other); }),
      Of("DeleteDepDataStorage", "bars", [](Object& o) { o.DeleteDepDataStorage(); }),
      Of("InitDepData2Storage", "ranges", [&](Object& o) { o.InitDepData2Storage(other); }),
      Of("DeleteDepData2Storage", "ranges", [](Object& o) { o.DeleteDepData2Storage(); }),
      Of("InitBarHeightsStorage", "bars_3d", [&](Object& o) { o.InitBarHeightsStorage(other); }),
      Of("DeleteBarHeightsStorage", "bars_3d", [](Object& o) { o.DeleteBarHeightsStorage(); }),
      Of("SetBarHeightsStorage", "floating_bars",
         [&](Object& o) { o.SetBarHeightsStorage(other); }),
      Of("InitGroupDataStorage", "group_bars",
         [](Object& o) { o.InitGroupDataStorage(kSampleRows.data()); }),
      Of("DeleteGroupDataStorage", "group_bars", [](Object& o) { o.DeleteGroupDataStorage(); }),
      Of("InitGroupColorsStorage", "group_bars",
         [&](Object& o) { o.InitGroupColorsStorage(colors.data()); }),
      Of("DeleteGroupColorsStorage", "group_bars", [](Object& o) { o.DeleteGroupColorsStorage(); }),
      Of("InitSegmentColorsStorage", "bars",
         [&](Object& o) { o.InitSegmentColorsStorage(colors.data()); }),
      {"InitSegmentColorsStorage of null", "bars",
       [](SeriesScene& s) { s.series.InitSegmentColorsStorage(nullptr); }, segmentColors},
      {"DeleteSegmentColorsStorage", "bars",
       [](SeriesScene& s) { s.series.DeleteSegmentColorsStorage(); }, segmentColors},
      Of("Init3DPointStorage", "cubes", [&](Object& o) { o.Init3DPointStorage(points.data()); }),
      Of("Init3DPointStorage of null", "cubes", [](Object& o) { o.Init3DPointStorage(nullptr); }),
      Of("Delete3DPointStorage", "cubes", [](Object& o) { o.Delete3DPointStorage(); }),
      Of("Set3DPointStorage", "line_3d", [&](Object& o) { o.Set3DPointStorage(points.data(), 3); }),
      Of("InitContourValueStorage", "contours",
         [&](Object& o) { o.InitContourValueStorage(other); }),
      Of("DeleteContourValueStorage", "contours", [](Object& o) { o.DeleteContourValueStorage(); }),
      Of("InitContourColorsStorage", "contours",
         [&](Object& o) { o.InitContourColorsStorage(colors.data()); }),
      Of("DeleteContourColorsStorage", "contours",
         [](Object& o) { o.DeleteContourColorsStorage(); }),
      Of("SetContourStorage", "contours",
         [&](Object& o) { o.SetContourStorage(&wire, other, colors.data(), 2); }),
      Of("InitPolysurfaceStorage", "surface", [&](Object& o) { o.InitPolysurfaceStorage(&wire); }),
      Of("DeletePolysurfaceStorage", "surface", [](Object& o) { o.DeletePolysurfaceStorage(); }),
      Of("SetPolysurface", "surface", [&](Object& o) { o.SetPolysurface(&wire); }),
      Of("InitDataStringsStorage", "texts",
         [&](Object& o) { o.InitDataStringsStorage(texts.data()); }),
      Of("DeleteDataStringsStorage", "texts", [](Object& o) { o.DeleteDataStringsStorage(); }),
      Of("SetDataStringsStorage", "texts",
         [&](Object& o) { o.SetDataStringsStorage(points.data(), texts.data(), 3); }),
      Of("SetDataStorage25D", "ranges",
         [&](Object& o) { o.SetDataStorage25D(other, kSampleDep2.data(), other, 3); }),
      Of("SetGroupDataStorage", "group_bars",
         [&](Object& o) { o.SetGroupDataStorage(other, kSampleRows.data(), 4, 2, colors.data()); }),
  });
}

TEST(KeptSeries, EveryTypeFollowsEveryOther) {
  const std::vector<SeriesSample> samples = SeriesSamples();
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const SeriesSample& next = samples[(i + 1) % samples.size()];
    SCOPED_TRACE(next.name + " after " + samples[i].name);
    SeriesScene scene;
    samples[i].setUp(scene.series, 0);
    scene.Picture();
    CChartObj3D other(&scene.gl, &scene.transform);
    next.setUp(other, 0);
    scene.series = other;  // operator=
    const PixelBytes after = scene.Picture();
    SeriesScene fresh;
    next.setUp(fresh.series, 0);
    EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0);
    EXPECT_GT(DrawnPixels(after), 0);
  }
}

TEST(KeptSeries, ALoadedSeriesShowsAtOnce) {
  SeriesScene source;
  SampleNamed("group_areas").setUp(source.series, 0);
  const Bytes record = Saved(source.series);
  SeriesScene scene;
  SampleNamed("bars").setUp(scene.series, 0);
  scene.Picture();
  LoadFrom(scene.series, record);
  SeriesScene fresh;
  LoadFrom(fresh.series, record);
  const PixelBytes after = scene.Picture();
  EXPECT_GT(DrawnPixels(after), 0);
  EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0);
}

// Of a surface, the numbers that shape a series stay when its arrays are moved away.
TEST(KeptSeries, WhatASeriesHeldDoesNotShowAfterItWasMovedAway) {
  for (const SeriesSample& sample : SeriesSamples()) {
    SCOPED_TRACE(sample.name);
    SeriesScene scene;
    sample.setUp(scene.series, 0);
    const PixelBytes whole = scene.Picture();
    CChartObj3D taken(std::move(scene.series));
    EXPECT_EQ(DifferingPixels(scene.PictureOf(taken), whole), 0);
    const PixelBytes left = scene.Picture();  // NOLINT(bugprone-use-after-move)
    scene.gl.SetGathering(0);
    EXPECT_EQ(DifferingPixels(left, scene.Picture()), 0);
    scene.gl.SetGathering(1);
    scene.series = std::move(taken);
    EXPECT_EQ(DifferingPixels(scene.Picture(), whole), 0);
    EXPECT_EQ(DifferingPixels(scene.PictureOf(taken), left), 0);  // NOLINT
  }
}

TEST(KeptSeries, TransformsShowAtOnce) {
  using Scene = SeriesScene;
  const std::vector<std::pair<std::string, Work>> works{
      {"scale",
       [](Scene& s) {
         s.transform.SetScale({0, 0, 0, 0}, {12, 9, 8, 0});
       }},
      {"minimum",
       [](Scene& s) {
         s.transform.SetScaleMin({-3, -2, -7, 0});
       }},
      {"maximum",
       [](Scene& s) {
         s.transform.SetScaleMax({13, 12, 17, 0});
       }},
      {"inverted scale",
       [](Scene& s) {
         s.transform.SetScale({10, 10, 10, 0}, {0, 0, -5, 0});
       }},
      {"scale mode of x", [](Scene& s) { s.transform.SetAxisScaleMode(0, 1); }},
      {"scale mode of y", [](Scene& s) { s.transform.SetAxisScaleMode(1, 1); }},
      {"scale mode of z", [](Scene& s) { s.transform.SetAxisScaleMode(2, 1); }},
      {"chart rectangle",
       [](Scene& s) {
         s.transform.SetChartRect({0.3, 0.4, 0.6, 0});
       }},
      {"turn",
       [](Scene& s) {
         s.transform.SetRotate({-20, 40, 160, 0});
       }},
      {"offset",
       [](Scene& s) {
         s.transform.SetOffset({0.1, 0.2, -0.1, 0});
       }},
      {"centroid",
       [](Scene& s) {
         s.transform.SetCentroid({3, 3, 3, 0});
       }},
      {"another transform",
       [](Scene& s) {
         static std::vector<std::unique_ptr<CTransform3D>> others;
         others.push_back(std::make_unique<CTransform3D>(&s.gl, point3Dtype{0, 0, 0, 0},
                                                         point3Dtype{20, 20, 20, 0}));
         s.series.InitChartObj3D(&s.gl, others.back().get());
       }},
  };
  for (const char* sample : {"bars", "cubes", "surface", "line", "market", "texts", "contours"}) {
    std::vector<Change> changes;
    for (const auto& [name, work] : works) {
      changes.push_back({.name = name, .sample = sample, .apply = work});
      // Each drawing finds the centre of the scale again.
      if (name == "centroid") changes.back().shows = false;
    }
    ExpectShownAtOnce(changes);
  }
}

TEST(KeptSeries, WhatTheContextAddsShowsAtOnce) {
  using Scene = SeriesScene;
  const Work dashed = [](Scene& s) { s.series.SetLineStyle(3); };
  const Work byValue = [](Scene& s) { s.series.SetColorMode(2); };
  const std::array<RGBDType, 2> colors{kOtherColor, kSampleFill};
  std::vector<Change> changes{
      {"line style factor", "line", [](Scene& s) { s.gl.SetLineStyleFactor(5); }, dashed},
      {"line style factor", "line_3d", [](Scene& s) { s.gl.SetLineStyleFactor(5); }, dashed}};
  for (const char* sample : {"bars", "surface", "areas", "ribbon"}) {
    changes.push_back({"texture mode", sample, [](Scene& s) { s.gl.SetTextureMode(0); }, byValue});
    changes.push_back({"texture colours", sample,
                       [=](Scene& s) { s.gl.SetTextureColorArray(colors.data(), -5, 10, 2); },
                       byValue});
    changes.push_back({"texture range", sample,
                       [=](Scene& s) { s.gl.SetTextureColorArray(colors.data(), 2, 6, 2); },
                       byValue});
    changes.push_back(
        {"ramp", sample,
         [](Scene& s) { s.gl.SetTextureEndpointColors(kOtherColor, kSampleFill, -5, 10, 8); },
         byValue});
    changes.push_back({"light", sample, [](Scene& s) {
                         s.gl.SetLightComponent(GL_DIFFUSE, kOtherColor);
                         s.gl.LoadLight(GL_DIFFUSE);
                       }});
  }
  ExpectShownAtOnce(changes);
}

}  // namespace
