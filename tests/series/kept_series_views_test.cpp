#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "series/gathering_fixture.h"
#include "support/allocation_failure.h"
#include "support/drawing_state.h"
#include "support/feedback.h"

// Kept drawings among contexts, beside other drawing, without memory, and over many frames.

namespace {

using namespace orvalix::test;

/// As of gathered drawings in general.
constexpr int kMostDiffering = kSceneSize * kSceneSize / 800;

TEST(KeptSeriesState, IsThatOfDrawingOneByOne) {
  for (const SeriesSample& sample : SeriesSamples()) {
    SCOPED_TRACE(sample.name);
    for (const int colorMode : {0, 1, 2}) {
      std::array<std::vector<double>, 2> first;
      std::array<std::vector<double>, 2> second;
      for (const int gathering : {0, 1}) {
        SeriesScene scene;
        sample.setUp(scene.series, 0);
        scene.series.SetColorMode(colorMode);
        scene.gl.SetGathering(gathering);
        scene.Picture();
        const auto mode = static_cast<std::size_t>(gathering);
        first[mode] = StateOf(scene.gl);
        // As something else would leave it before the next frame.
        scene.gl.SetLineStyle3D(5, 3.0, {0.2, 0.4, 0.6, 1.0});
        scene.gl.SetFillStyle3D({0.5, 0.25, 1.0, 1.0}, {1, 1, 1, 1}, {0.75, 0.5, 0.25, 1.0});
        scene.Picture();
        second[mode] = StateOf(scene.gl);
      }
      EXPECT_EQ(first[1], first[0]) << "colour mode " << colorMode;
      EXPECT_EQ(second[1], second[0]) << "colour mode " << colorMode << ", second frame";
    }
  }
}

TEST(KeptSeriesState, FeedbackTellsOfEveryVertexInOrder) {
  for (const SeriesSample& sample : SeriesSamples()) {
    SCOPED_TRACE(sample.name);
    SeriesScene scene;
    sample.setUp(scene.series, 0);
    const auto transcript = [&] {
      scene.gl.LoadIdentity();
      return ToTranscript(CaptureFeedback([&] { scene.series.DrawChartObj(); }));
    };
    const std::string before = transcript();
    const PixelBytes picture = scene.Picture();  // now there is something kept
    EXPECT_EQ(transcript(), before);
    EXPECT_EQ(scene.Picture(), picture);
    scene.gl.SetGathering(0);
    EXPECT_EQ(transcript(), before);
    EXPECT_FALSE(before.empty());
  }
}

TEST(KeptSeriesState, ADrawingBesideItIsThatOfItsOwnState) {
  const std::array<point3Dtype, 4> square{
      {{-0.9, -0.9, 0, 0}, {-0.5, -0.9, 0, 0}, {-0.5, -0.5, 0, 0}, {-0.9, -0.5, 0, 0}}};
  std::array<PixelBytes, 2> pictures;
  for (const int gathering : {0, 1}) {
    SeriesScene scene;
    scene.gl.SetGathering(gathering);
    SampleNamed("bars").setUp(scene.series, 0);
    for (int frame = 0; frame < 2; ++frame) {
      scene.Clear();
      glColor3d(0.0, 1.0, 0.0);
      glRectd(-0.9, 0.5, -0.5, 0.9);
      scene.gl.SetLineStyle3D(2, 2.0, {1, 0, 0, 1});
      scene.series.DrawChartObj();
      scene.gl.SetColorMode(0);
      scene.gl.LoadIdentity();
      scene.gl.LineAbs3D({-1, 0, -1, 0}, {1, 0.5, -1, 0});
      scene.gl.SetFillStyle3D({0, 0, 1, 1}, {0, 0, 1, 1}, {0, 0, 0, 1});
      scene.gl.PolyFillAbs3D(square.data(), 4);
      glColor3d(1.0, 0.0, 1.0);
      glRectd(0.5, 0.5, 0.9, 0.9);
    }
    pictures[static_cast<std::size_t>(gathering)] = SeriesScene::Pixels();
  }
  EXPECT_LE(DifferingPixels(pictures[0], pictures[1]), kMostDiffering);
}

TEST(KeptSeriesContexts, ASeriesGoesFromOneToTheOtherAndBack) {
  SeriesScene first;
  SeriesScene second;
  second.transform.SetRotate({50, 20, 10, 0});
  for (const char* name : {"bars", "cubes", "surface"}) {
    SCOPED_TRACE(name);
    const SeriesSample sample = SampleNamed(name);
    CChartObj3D series(&first.gl, &first.transform);
    sample.setUp(series, 0);
    const PixelBytes onFirst = first.PictureOf(series);
    series.InitChartObj3D(&second.gl, &second.transform);
    const PixelBytes onSecond = second.PictureOf(series);
    sample.setUp(second.series, 0);
    EXPECT_EQ(DifferingPixels(onSecond, second.Picture()), 0);
    EXPECT_NE(DifferingPixels(onSecond, onFirst), 0);
    series.InitChartObj3D(&first.gl, &first.transform);
    EXPECT_EQ(DifferingPixels(first.PictureOf(series), onFirst), 0);
    // The same transform, another context.
    CTransform3D shared(&first.gl, {0, 0, -5, 0}, {10, 10, 10, 0});
    series.InitChartObj3D(&first.gl, &shared);
    first.PictureOf(series);
    shared.InitTransform(&second.gl);
    series.InitChartObj3D(&second.gl, &shared);
    EXPECT_GT(DrawnPixels(second.PictureOf(series)), 0);
  }
}

TEST(KeptSeriesContexts, ASeriesOutlivesItsContextAndTheOtherWayRound) {
  auto scene = std::make_unique<SeriesScene>();
  SampleNamed("bars").setUp(scene->series, 0);
  const PixelBytes picture = scene->Picture();
  auto series = std::make_unique<CChartObj3D>(&scene->gl, &scene->transform);
  SampleNamed("bars").setUp(*series, 0);
  EXPECT_EQ(scene->PictureOf(*series), picture);
  CChartObj3D copy(*series);
  EXPECT_EQ(scene->PictureOf(copy), picture);
  series.reset();  // before its context
  EXPECT_EQ(scene->PictureOf(copy), picture);
  CChartObj3D left(copy);
  scene->PictureOf(left);
  scene.reset();  // before `copy` and `left`
  SeriesScene other;
  left.InitChartObj3D(&other.gl, &other.transform);
  EXPECT_EQ(other.PictureOf(left), picture);
}

TEST(KeptSeriesContexts, ANewTransformAtTheSameAddressIsFollowed) {
  SeriesScene scene;
  std::optional<CTransform3D> transform;
  SampleNamed("bars").setUp(scene.series, 0);
  PixelBytes before;
  for (const double turn : {0.0, 30.0, 200.0}) {
    transform.reset();
    transform.emplace(&scene.gl, point3Dtype{0, 0, -5, 0}, point3Dtype{10, 10, 10, 0});
    transform->SetRotate({turn, 10, 30, 0});
    scene.series.InitChartObj3D(&scene.gl, &*transform);
    const PixelBytes picture = scene.Picture();
    scene.gl.SetGathering(0);
    EXPECT_LE(DifferingPixels(picture, scene.Picture()), kMostDiffering);
    scene.gl.SetGathering(1);
    EXPECT_NE(picture, before);
    before = picture;
  }
}

// Of one colour, and without need of memory of their own: OpenGL itself compiles anew for some
// others, which takes memory that it must have.
TEST(KeptSeriesMemory, FramesWithoutMemoryShowTheSame) {
  for (const char* name : {"bars", "ribbon", "line_3d", "planes", "floating_bars"}) {
    SCOPED_TRACE(name);
    SeriesScene scene;
    SampleNamed(name).setUp(scene.series, 0);
    // What it needs either way.
    scene.gl.SetGathering(0);
    scene.Picture();
    scene.gl.SetGathering(1);
    const PixelBytes gathered = scene.Picture();
    for (const Failing extent : {Failing::kOne, Failing::kFromThen}) {
      for (const bool isKept : {false, true}) {
        bool hasFailed = true;
        for (int n = 1; hasFailed && n < 1000; ++n) {
          SCOPED_TRACE(::testing::Message() << "allocation " << n << ", kept " << isKept);
          if (!isKept) scene.series.SetDepData(-1, 0.0);  // forgets what is kept
          scene.Clear();
          {
            const AllocationFailure failure(n, extent);
            scene.series.DrawChartObj();
            hasFailed = failure.Happened();
          }
          EXPECT_LE(DifferingPixels(SeriesScene::Pixels(), gathered), kMostDiffering);
        }
        EXPECT_FALSE(hasFailed);
        EXPECT_EQ(DifferingPixels(scene.Picture(), gathered), 0);
      }
    }
  }
}

/// Buffers of the current context.
int BuffersAlive() {
  constexpr unsigned kNames = 5000;
  int alive = 0;
  for (unsigned name = 1; name <= kNames; ++name) alive += glIsBuffer(name) == GL_TRUE ? 1 : 0;
  return alive;
}

struct FrameCost {
  std::size_t bytes;
  int buffers;
  friend bool operator==(const FrameCost&, const FrameCost&) = default;
  friend std::ostream& operator<<(std::ostream& out, const FrameCost& cost) {
    return out << cost.bytes << " bytes, " << cost.buffers << " buffers";
  }
};

FrameCost CostOf(SeriesScene& scene) {
  scene.Clear();
  FrameCost cost{};
  {
    const AllocationMeter meter;
    scene.series.DrawChartObj();
    cost.bytes = meter.Total();
  }
  cost.buffers = BuffersAlive();
  return cost;
}

TEST(KeptSeriesGrowth, AThousandFramesTakeNoMoreThanTen) {
  for (const char* name : {"bars", "cubes", "surface", "market", "flat_wire_frame", "texts"}) {
    for (const bool changes : {false, true}) {
      SCOPED_TRACE(::testing::Message() << name << (changes ? ", changed each frame" : ", turned"));
      SeriesScene scene;
      SampleNamed(name).setUp(scene.series, 0);
      FrameCost early{};
      for (int frame = 1; frame <= 1000; ++frame) {
        scene.transform.SetRotate({20, 10, frame * 0.36, 0});
        if (changes) {
          scene.series.SetDepData(0, 1.0 + frame * 1e-3);
          scene.series.Set3DPoint(0, {1, 2, 1.0 + frame * 1e-3, 0});
          scene.series.SetPolysurfacePoint(0, {1, 1, 1.0 + frame * 1e-3, 0});
        }
        if (frame == 10) {
          early = CostOf(scene);
        } else if (frame == 1000) {
          EXPECT_EQ(CostOf(scene), early);
          EXPECT_LE(early.buffers, 6);
        } else {
          scene.Clear();
          scene.series.DrawChartObj();
        }
      }
    }
  }
}

}  // namespace
