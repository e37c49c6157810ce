#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "render/gathered_fixture.h"
#include "support/fail_at.h"

// Geometry in buffers: large and small, without memory, and after its context.

namespace {

using namespace orvalix::test;
using orvalix::BufferPool;
using orvalix::DrawList;
using orvalix::DrawRecorder;

constexpr RGBDType kRed{0.9, 0.2, 0.2, 1};
constexpr RGBDType kGreen{0.2, 0.7, 0.2, 1};
constexpr RGBDType kBlack{0, 0, 0, 1};

int BuffersAlive() {
  constexpr unsigned kNames = 2000;
  int alive = 0;
  for (unsigned name = 1; name <= kNames; ++name) alive += glIsBuffer(name) == GL_TRUE ? 1 : 0;
  return alive;
}

/// Draws so many triangles and lines, side by side, in two colours.
void DrawTriangles(COpenGL& gl, int n) {
  const double step = 10.0 / n;
  for (int i = 0; i < n; ++i) {
    const double x = step * i;
    const std::array<point3Dtype, 4> corners{
        {{x, 0, 1, 0}, {x + step, 0, 1, 0}, {x + step, 10, 5 + 4 * std::sin(x), 0}, {x, 0, 1, 0}}};
    gl.SetFillStyle3D(i % 3 == 0 ? kRed : kGreen, kBlack, kBlack);
    gl.PolyFillAbs3D(corners.data(), i % 2 == 0 ? 4 : 3);
  }
}

/// Gathered, one by one, and kept.
void ExpectSame(const GatheredScene::Work& work) {
  GatheredScene gathered;
  GatheredScene single(0);
  const PixelBytes first = gathered.Kept(work);
  EXPECT_LE(DifferingPixels(first, single.Kept(work)), kMostDiffering);
  gathered.gl.MakeCurrent();
  EXPECT_EQ(DifferingPixels(gathered.Kept(work), first), 0);
  EXPECT_GT(DifferingPixels(first, PixelBytes(first.size(), 255)), 500);
}

// A chunk holds 1365 vertices of faces and of lines, 2730 colours, and 8192 indices.
TEST(DrawList, IsWholeWhereChunksEnd) {
  for (const int n : {454, 455, 456, 909, 910, 911, 1364, 1365, 1366, 2730, 2731}) {
    SCOPED_TRACE(n);
    ExpectSame([n](COpenGL& gl) {
      gl.SetPolygonOutlineMode(n % 2);
      DrawTriangles(gl, n);
    });
  }
}

// More vertices than two bytes count, each in its place.
TEST(DrawList, HasIndicesBeyondTwoBytes) {
  ExpectSame([](COpenGL& gl) {
    constexpr int kAcross = 150;  // 150 * 150 squares of four vertices: 90000
    constexpr double kStep = 10.0 / kAcross;
    constexpr double kSize = 0.95 * kStep;  // they don't meet
    const auto height = [](double x, double y) { return 5.0 + std::sin(x) + std::cos(2.0 * y); };
    for (int row = 0; row < kAcross; ++row) {
      for (int column = 0; column < kAcross; ++column) {
        const double x = column * kStep;
        const double y = row * kStep;
        const bool isLast = row == kAcross - 1 && column == kAcross - 1;
        const std::array<point3Dtype, 5> corners{
            {{x, y, height(x, y), 0},
             {x + kSize, y, height(x + kSize, y), 0},
             {x + kSize, y + kSize, isLast ? 12.0 : height(x + kSize, y + kSize), 0},
             {x, y + kSize, height(x, y + kSize), 0},
             {x, y, height(x, y), 0}}};
        gl.SetPolygonOutlineMode(column % 10 == 0 ? 1 : 0);
        gl.SetFillStyle3D(row < kAcross / 2 ? kRed : kGreen, kBlack, kBlack);
        gl.PolyFillAbs3D(corners.data(), 5);
      }
    }
  });
}

TEST(DrawList, MayBeEmpty) {
  GatheredScene scene;
  const PixelBytes picture = scene.Kept([](COpenGL&) {});
  EXPECT_EQ(DifferingPixels(picture, PixelBytes(picture.size(), 255)), 0);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(scene.Kept([](COpenGL&) {}), picture);
  EXPECT_EQ(scene.Kept([](COpenGL& gl) { gl.PolyFillAbs3D(nullptr, 3); }), picture);
}

TEST(DrawList, BelongsToTheContextThatItWasMadeIn) {
  GatheredScene first;
  GatheredScene second;
  first.gl.MakeCurrent();
  const int before = BuffersAlive();
  DrawRecorder recorder({}, true);
  recorder.AddLine({0, 0, 0, 0}, {1, 1, 1, 0}, {}, {1.0F, 0xFFFF, 1});
  auto pool = std::make_shared<BufferPool>();
  auto list = std::make_unique<DrawList>(pool, recorder.Geometry());
  EXPECT_TRUE(list->IsOf(pool));
  EXPECT_FALSE(list->IsOf(std::make_shared<BufferPool>()));
  EXPECT_EQ(BuffersAlive(), before + 2);
  // Its buffers wait for their context: another one may be current when it goes.
  second.gl.MakeCurrent();
  list.reset();
  first.gl.MakeCurrent();
  EXPECT_EQ(BuffersAlive(), before + 2);
  pool->DeleteReturned();
  EXPECT_EQ(BuffersAlive(), before);
  list = std::make_unique<DrawList>(pool, recorder.Geometry());
  std::weak_ptr<BufferPool> gone = pool;
  pool.reset();  // with the context
  EXPECT_TRUE(gone.expired()) << "a drawing doesn't keep its context's buffers";
  list.reset();
}

TEST(DrawList, MakesNoBuffersWithoutMemory) {
  GatheredScene scene;
  const int before = BuffersAlive();
  DrawRecorder recorder({}, true);
  recorder.AddLine({0, 0, 0, 0}, {1, 1, 1, 0}, {}, {1.0F, 0x00FF, 1});
  recorder.StartStrip({1.0F, 0x00FF, 1});
  recorder.AddToStrip({0, 0, 0, 0}, {});
  recorder.AddToStrip({1, 0, 0, 0}, {});
  const auto pool = std::make_shared<BufferPool>();
  int failures = 0;
  for (bool hasFailed = true; hasFailed; ++failures) {
    std::unique_ptr<DrawList> list;
    {
      const AllocationFailure failure(failures + 1);
      try {
        list = std::make_unique<DrawList>(pool, recorder.Geometry());
      } catch (const std::bad_alloc&) {
      }
      hasFailed = failure.Happened();
    }
    EXPECT_EQ(list == nullptr, hasFailed) << failures;
    list.reset();
    pool->DeleteReturned();
    EXPECT_EQ(BuffersAlive(), before) << failures;
  }
  EXPECT_GT(failures, 4);
}

/// Everything that takes memory to gather: several colours, polygons that meet, a texture,
/// matrices, dashes.
void DrawAll(COpenGL& gl) {
  static const std::array<point3Dtype, 5> square{
      {{1, 1, 9, 0}, {4, 1, 9, 0}, {4, 4, 9, 0}, {1, 4, 9, 0}, {1, 1, 9, 0}}};
  for (int i = 0; i < 20; ++i) {
    const double x = 0.5 * i;
    const std::array<point3Dtype, 5> step{
        {{x, 7, 1, 0}, {x + 0.5, 7, 1, 0}, {x + 0.5, 9, 2, 0}, {x, 9, 2, 0}, {x, 7, 1, 0}}};
    gl.SetFillStyle3D(i % 2 == 0 ? kRed : kGreen, kBlack, kBlack);
    gl.PolyFillAbs3D(step.data(), 5);
  }
  gl.DrawPrism3D(1, 1, 1, 3, 3, 3, kRed, kBlack);
  gl.DrawPrism3D(1, 1, 4, 3, 3, 3, kGreen, kRed);
  gl.PushMatrix();
  gl.Translate3D(7, 7, 2);
  gl.DrawCube(2, kRed, kBlack);
  gl.PopMatrix();
  gl.EnableTexture(1);
  gl.DrawPrism3D(6, 1, 1, 3, 3, 6, kRed, kBlack);
  gl.EnableTexture(0);
  gl.Frame3D(square.data(), 5);
  gl.SetLineStyle3D(3, 1.0, kGreen);
  gl.StartLineAbs3D({0, 10, 0, 0});
  gl.AppendLineAbs3D({5, 5, 5, 0});
  gl.EndLineAbs3D({10, 0, 5, 0});
  gl.LineAbs3D({0, 0, 0, 0}, {10, 10, 10, 0});
}

// Whichever allocation fails, and whether any after it succeeds: the same picture and state.
TEST(DrawMemory, FailsUnseen) {
  GatheredScene scene;
  const std::array<RGBDType, 2> colors{kRed, kGreen};
  scene.gl.SetTextureColorArray(colors.data(), 0, 10, 2);
  scene.gl.SetTextureMode(2);
  // OpenGL compiles what it needs for either way once, and can't do without memory for that.
  scene.gl.SetGathering(0);
  const PixelBytes single = scene.Kept(DrawAll);
  const std::vector<double> state = StateOf(scene.gl);
  scene.gl.SetGathering(1);
  const PixelBytes gathered = scene.Kept(DrawAll);
  scene.Gathered(DrawAll);
  EXPECT_LE(DifferingPixels(gathered, single), kMostDiffering);
  for (const Failing extent : {Failing::kOne, Failing::kFromThen}) {
    int failures = 0;
    for (bool hasFailed = true; hasFailed; ++failures) {
      SCOPED_TRACE(::testing::Message() << "allocation " << failures + 1);
      ASSERT_LT(failures, 1000);
      scene.slot.Forget();
      scene.Clear();
      {
        const AllocationFailure failure(failures + 1, extent);
        scene.Keep(DrawAll);
        hasFailed = failure.Happened();
      }
      EXPECT_LE(DifferingPixels(GatheredScene::Pixels(), single), kMostDiffering);
      EXPECT_EQ(StateOf(scene.gl), state);
      EXPECT_EQ(DifferingPixels(scene.Kept(DrawAll), gathered), 0) << "the next frame";
    }
    EXPECT_GT(failures, 10);
  }
}

// A program that asks for it to be sent hears that it can't be.
TEST(DrawMemory, IsReportedWhereASendingFails) {
  GatheredScene scene;
  const auto frame = [](COpenGL& gl) {
    gl.DrawPrism3D(1, 1, 1, 3, 3, 3, kRed, kBlack);
    gl.SendGathered();
    gl.DrawPrism3D(5, 1, 1, 3, 3, 3, kGreen, kBlack);
  };
  scene.gl.SetGathering(0);
  scene.Kept(frame);
  scene.gl.SetGathering(1);
  const PixelBytes whole = scene.Kept(frame);
  int reported = 0;
  bool hasFailed = true;
  for (int n = 1; hasFailed; ++n) {
    SCOPED_TRACE(n);
    ASSERT_LT(n, 1000);
    scene.slot.Forget();
    scene.Clear();
    const CaughtError error = FailAt(n, hasFailed, [&] { scene.Keep(frame); });
    if (error == kNoError) {
      EXPECT_LE(DifferingPixels(GatheredScene::Pixels(), whole), kMostDiffering);
    } else {
      ++reported;
      EXPECT_EQ(error, (CaughtError{ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, "SendGathered"}));
    }
    EXPECT_EQ(DifferingPixels(scene.Kept(frame), whole), 0) << "the next frame";
  }
  EXPECT_GT(reported, 0);
}

}  // namespace
