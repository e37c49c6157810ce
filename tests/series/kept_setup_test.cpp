#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "series/gathering_fixture.h"
#include "support/temporary_file.h"

// Series that are set up anew after they were drawn, and what of their transform nothing else sets.

namespace {

using namespace orvalix::test;

using Work = std::function<void(SeriesScene&)>;

/// Draws the sample, does something to it, and compares it with one that wasn't drawn before, and
/// with one by one.
void ExpectShownAtOnce(const std::string& sample, const Work& change, const Work& before,
                       bool shows) {
  constexpr int kMostDiffering = kSceneSize * kSceneSize / 1000;
  SeriesScene scene;
  SampleNamed(sample).setUp(scene.series, 0);
  before(scene);
  const PixelBytes early = scene.Picture();
  ASSERT_EQ(scene.Picture(), early);
  change(scene);
  const PixelBytes after = scene.Picture();
  SeriesScene fresh;
  SampleNamed(sample).setUp(fresh.series, 0);
  before(fresh);
  change(fresh);
  EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0) << "the old drawing shows";
  EXPECT_EQ(DifferingPixels(after, early) != 0, shows);
  EXPECT_EQ(scene.Picture(), after) << "the next frame differs";
  scene.gl.SetGathering(0);
  EXPECT_LE(DifferingPixels(scene.Picture(), after), kMostDiffering) << "one by one it differs";
}

// What one set-up routine leaves as it is, the next type shows too.
TEST(KeptSetup, EveryTypeIsSetUpAfterEveryOther) {
  const std::vector<SeriesSample> samples = SeriesSamples();
  for (const std::size_t step : {1U, 7U}) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
      const SeriesSample& next = samples[(i + step) % samples.size()];
      SCOPED_TRACE(next.name + " after " + samples[i].name);
      ExpectShownAtOnce(
          samples[i].name, [&](SeriesScene& s) { next.setUp(s.series, 0); }, [](SeriesScene&) {},
          true);
    }
  }
}

// Along another axis.
TEST(KeptSetup, EveryTypeIsSetUpAnew) {
  for (const SeriesSample& sample : SeriesSamples()) {
    if (!sample.hasIndAxis) continue;
    SCOPED_TRACE(sample.name);
    ExpectShownAtOnce(
        sample.name, [&](SeriesScene& s) { sample.setUp(s.series, 1); }, [](SeriesScene&) {}, true);
  }
}

TEST(KeptSetup, TransformsThatAreReadOrResetShowAtOnce) {
  const auto load = [](SeriesScene& s) {
    CTransform3D other(&s.gl, {0, 0, -5, 0}, {12, 11, 10, 0});
    other.SetRotate({-20, 5, 100, 0});
    other.SetChartRect({0.7, 0.6, 0.5, 0});
    LoadFrom(s.transform, Saved(other));
  };
  const auto bind = [](SeriesScene& s) { s.transform.InitTransform(&s.gl); };
  const auto reset = [](SeriesScene& s) {
    s.transform.SetTransformDefaults();
    s.transform.InitTransform(&s.gl);
    s.transform.SetScale({0, 0, -5, 0}, {10, 10, 10, 0});
  };
  const auto adjust = [](SeriesScene& s) { s.transform.SetAdjustedScale(); };
  for (const char* sample : {"bars", "cubes", "surface", "line", "market", "texts", "contours"}) {
    SCOPED_TRACE(sample);
    const Work nothing = [](SeriesScene&) {};
    ExpectShownAtOnce(sample, load, nothing, true);
    ExpectShownAtOnce(sample, bind, nothing, false);
    ExpectShownAtOnce(sample, reset, nothing, true);
    ExpectShownAtOnce(sample, adjust, nothing, false);
    const Work logarithmic = [](SeriesScene& s) {
      s.transform.SetScale({1, 1, 1, 0}, {10, 10, 10, 0});
      s.transform.SetAxisScaleMode(2, 1);
    };
    ExpectShownAtOnce(sample, adjust, logarithmic, false);
    ExpectShownAtOnce(
        sample, [](SeriesScene& s) { s.transform.SetAxisScaleMode(2, 0); }, logarithmic, true);
  }
}

TEST(KeptSetup, TextsFollowTheirTransformAndFont) {
  const Work nothing = [](SeriesScene&) {};
  const std::vector<std::pair<const char*, Work>> works{
      {"aspect", [](SeriesScene& s) { s.transform.SetFontAspect(0.5); }},
      {"height", [](SeriesScene& s) { s.transform.SetFontHeightSF(2.0); }},
      {"size", [](SeriesScene& s) { s.gl.SetFontScaleFactor(0.3); }},
      {"font", [](SeriesScene& s) { s.gl.RegisterFont("Courier New", 0.2, 400, 0, 0, 256); }}};
  for (const auto& [name, work] : works) {
    SCOPED_TRACE(name);
    ExpectShownAtOnce("texts", work, nothing, true);
    ExpectShownAtOnce("bars", work, nothing, false);
  }
}

// A series that isn't clipped is drawn while the program has clipping on: in one frame, not in the
// next one, for drawing ends with clipping off.
TEST(KeptSetup, ClippingThatTheProgramSwitchesOnCutsOneFrame) {
  for (const char* sample : {"bars", "cubes", "surface", "line", "planes"}) {
    SCOPED_TRACE(sample);
    const auto frames = [&](int gathering) {
      SeriesScene scene;
      SampleNamed(sample).setUp(scene.series, 0);
      scene.transform.SetScale({2, 3, -2, 0}, {7, 8, 4, 0});
      scene.gl.SetGathering(gathering);
      std::vector<PixelBytes> pictures{scene.Picture()};
      for (int i = 0; i < 2; ++i) {
        scene.transform.ChartTransform();
        scene.transform.SetClipping(1);
        pictures.push_back(scene.Picture());
        pictures.push_back(scene.Picture());
      }
      return pictures;
    };
    const std::vector<PixelBytes> gathered = frames(1);
    const std::vector<PixelBytes> single = frames(0);
    for (std::size_t i = 0; i < gathered.size(); ++i) {
      EXPECT_LE(DifferingPixels(gathered[i], single[i]), kSceneSize * kSceneSize / 1000) << i;
    }
    EXPECT_GT(DifferingPixels(gathered[1], gathered[0]), 0);
    EXPECT_EQ(gathered[2], gathered[0]);
    EXPECT_EQ(gathered[3], gathered[1]);
    EXPECT_EQ(gathered[4], gathered[0]);
  }
}

}  // namespace
