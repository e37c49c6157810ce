#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "series/gathering_fixture.h"

namespace {

using orvalix::test::DifferingPixels;
using orvalix::test::DrawnPixels;
using orvalix::test::kSceneSize;
using orvalix::test::PixelBytes;
using orvalix::test::SeriesSample;
using orvalix::test::SeriesSamples;
using orvalix::test::SeriesScene;

/// Gathered drawings differ from those sent one by one in single pixels at edges, of which small
/// pictures have many: an eighth of a percent.
constexpr int kMostDiffering = kSceneSize * kSceneSize / 800;

/// From above, the front, below, behind and the sides.
constexpr std::array<point3Dtype, 12> kTurns{{{0, 0, 0, 0},
                                              {20, 10, 30, 0},
                                              {90, 0, 0, 0},
                                              {-90, 0, 0, 0},
                                              {-35, 0, 20, 0},
                                              {30, 0, 180, 0},
                                              {25, 0, 135, 0},
                                              {-25, 15, 225, 0},
                                              {0, 0, 90, 0},
                                              {10, 180, 0, 0},
                                              {40, 75, -60, 0},
                                              {160, 20, 310, 0}}};

/// What else there is to a picture.
struct Look {
  std::string name;
  std::function<void(SeriesScene&)> apply;
};

void SetSegmentColors(SeriesScene& scene) {
  // Contours keep their colours where other series have those of their segments.
  if (scene.series.GetChartType() == CChartObj3D::kContourPolysurface3D) return;
  scene.series.InitSegmentColorsStorage(orvalix::test::kSampleColors.data());
}

/// All values above zero, and no bar without height.
void LiftValues(SeriesScene& scene) {
  CChartObj3D& series = scene.series;
  for (int i = 0; i < series.GetNumDataPnts(); ++i) {
    series.SetDepData(i, std::abs(series.GetDepData(i)) + 1.5);
    series.SetBarHeight(i, 0.7);
    point3Dtype point = series.Get3DPoint(i);
    point.z = std::abs(point.z) + 1.5;
    series.Set3DPoint(i, point);
    for (int group = 0; group < series.GetNumGroups(); ++group) {
      series.SetGroupData(group, i, (series.GetGroupData(group, i) + 4.0) * 0.6);
    }
  }
}

void MakeLogarithmic(SeriesScene& scene) {
  scene.transform.SetScale({0, 0, 0.5, 0}, {10, 10, 10, 0});
  scene.transform.SetAxisScaleMode(2, 1);
  LiftValues(scene);
}

std::vector<Look> Looks() {
  return {
      {"lit", [](SeriesScene&) {}},
      {"without outlines", [](SeriesScene& s) { s.series.SetOutlineMode(0); }},
      {"flat",
       [](SeriesScene& s) {
         s.series.SetColorMode(0);
         s.series.SetOutlineMode(0);
       }},
      {"by value", [](SeriesScene& s) { s.series.SetColorMode(2); }},
      {"by value without outlines",
       [](SeriesScene& s) {
         s.series.SetColorMode(2);
         s.series.SetOutlineMode(0);
       }},
      {"segment colours", SetSegmentColors},
      {"dashed",
       [](SeriesScene& s) {
         s.series.SetLineStyle(3);
         s.gl.SetLineStyleFactor(2);
       }},
      {"wide outlines", [](SeriesScene& s) { s.series.SetOutlineWidth(1.5); }},
      {"x inverted",
       [](SeriesScene& s) {
         s.transform.SetScale({10, 0, -5, 0}, {0, 10, 10, 0});
       }},
      {"z inverted",
       [](SeriesScene& s) {
         s.transform.SetScale({0, 0, 10, 0}, {10, 10, -5, 0});
       }},
  };
}

/// So that the viewer looks into what is nearest.
void MakeLarge(SeriesScene& scene) {
  LiftValues(scene);
  scene.transform.SetChartRect({1.5, 1.5, 1.5, 0});
}

void Clip(SeriesScene& scene) {
  LiftValues(scene);
  scene.transform.SetScale({1.5, 2.5, -1, 0}, {8, 8, 6, 0});
  scene.series.SetClipping(1);
}

/// Solids that are cut open, or that stand in one another.
std::vector<Look> InsideLooks() {
  return {{"logarithmic", MakeLogarithmic},
          {"larger than the view", MakeLarge},
          {"larger than the view, without outlines",
           [](SeriesScene& s) {
             MakeLarge(s);
             s.series.SetOutlineMode(0);
           }},
          {"larger than the view, by value",
           [](SeriesScene& s) {
             MakeLarge(s);
             s.series.SetColorMode(2);
           }},
          {"clipped", Clip},
          {"clipped, without outlines", [](SeriesScene& s) {
             Clip(s);
             s.series.SetOutlineMode(0);
           }}};
}

class GatheredPictures : public ::testing::TestWithParam<SeriesSample> {
 protected:
  /// Pixels that the series covers.
  static int Compare(SeriesScene& scene) {
    scene.gl.SetGathering(1);
    const PixelBytes first = scene.Picture();
    const PixelBytes kept = scene.Picture();
    EXPECT_EQ(DifferingPixels(first, kept), 0) << "the second frame differs";
    scene.gl.SetGathering(0);
    const PixelBytes single = scene.Picture();
    EXPECT_LE(DifferingPixels(first, single), kMostDiffering) << "one by one it differs";
    return DrawnPixels(single);
  }

  static void CompareFromAllSides(const Look& look, int indAxis) {
    SeriesScene scene;
    GetParam().setUp(scene.series, indAxis);
    look.apply(scene);
    int mostDrawn = 0;
    for (const point3Dtype& turn : kTurns) {
      SCOPED_TRACE(::testing::Message()
                   << look.name << ", independent axis " << indAxis << ", turned by " << turn.x
                   << " " << turn.y << " " << turn.z);
      scene.transform.SetRotate(turn);
      mostDrawn = std::max(mostDrawn, Compare(scene));
    }
    EXPECT_GT(mostDrawn, 30) << look.name << ": there is nothing to compare";
  }
};

TEST_P(GatheredPictures, AreThoseOfDrawingOneByOne) {
  for (const Look& look : Looks()) {
    CompareFromAllSides(look, 0);
    if (GetParam().hasIndAxis) CompareFromAllSides(look, 1);
  }
}

TEST_P(GatheredPictures, ShowTheSameInsideOfSolids) {
  for (const Look& look : InsideLooks()) {
    CompareFromAllSides(look, 0);
    if (GetParam().hasIndAxis) CompareFromAllSides(look, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Series, GatheredPictures, ::testing::ValuesIn(SeriesSamples()),
                         [](const auto& sample) { return sample.param.name; });

}  // namespace
