#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "orvalix/render/text_obj_3d.h"
#include "render/gathered_fixture.h"
#include "support/feedback.h"

// What ends a gathered drawing in its middle: the rest is drawn one by one, and nobody sees it.

namespace {

using namespace orvalix::test;
using Work = GatheredScene::Work;

constexpr RGBDType kRed{0.9, 0.2, 0.2, 1};
constexpr RGBDType kGreen{0.2, 0.7, 0.2, 1};
constexpr RGBDType kBlue{0.2, 0.3, 0.9, 1};
constexpr RGBDType kBlack{0, 0, 0, 1};

constexpr std::array<point3Dtype, 5> kSquare{
    {{1, 1, 9, 0}, {4, 1, 9, 0}, {4, 4, 9, 0}, {1, 4, 9, 0}, {1, 1, 9, 0}}};

/// Drawing with solids that touch, a polygon, lines of all kinds, moved matrices and texts by
/// value.
std::vector<Work> Steps() {
  return {
      [](COpenGL& gl) { gl.DrawPrism3D(1, 1, 1, 3, 3, 3, kRed, kBlack); },
      [](COpenGL& gl) { gl.DrawPrism3D(1, 1, 4, 3, 3, 3, kGreen, kBlack); },
      [](COpenGL& gl) {
        gl.SetFillStyle3D(kBlue, kBlue, kRed);
        gl.PolyFillAbs3D(kSquare.data(), 5);
      },
      [](COpenGL& gl) {
        gl.LineAbs3D({0, 0, 0, 0}, {10, 10, 10, 0});
      },
      [](COpenGL& gl) {
        gl.SetLineStyle3D(3, 2.0, kGreen);
        gl.StartLineAbs3D({0, 10, 0, 0});
        gl.AppendLineAbs3D({5, 5, 5, 0});
        gl.EndLineAbs3D({10, 0, 5, 0});
      },
      [](COpenGL& gl) {
        gl.PushMatrix();
        gl.Translate3D(6, 2, 2);
        gl.Rotate3D(30, 2);
      },
      [](COpenGL& gl) { gl.DrawCube(2.5, kBlue, kRed); },
      [](COpenGL& gl) { gl.PushMatrix(); },
      [](COpenGL& gl) {
        gl.Scale3D(1, 1, 2);
        gl.DrawPyramidSolidObject3D(2, 2, 3, kGreen, kBlack);
      },
      [](COpenGL& gl) { gl.PopMatrix(); },
      [](COpenGL& gl) {
        gl.SetPolygonOutlineMode(0);
        gl.DrawDiamondSolidObject3D(1, 1, 6, kRed, kBlack);
        gl.SetPolygonOutlineMode(1);
      },
      [](COpenGL& gl) { gl.PopMatrix(); },
      [](COpenGL& gl) {
        gl.SetLineWidth3D(3.0);
        gl.Frame3D(kSquare.data(), 5);
      },
      [](COpenGL& gl) { gl.DrawPrism3D(7, 7, 0, 2, 2, 5, kGreen, kRed); },
  };
}

/// All steps, with something done before the n-th one.
Work With(std::size_t n, const Work& interruption) {
  return [n, interruption](COpenGL& gl) {
    const std::vector<Work> steps = Steps();
    for (std::size_t i = 0; i < steps.size(); ++i) {
      if (i == n) interruption(gl);
      steps[i](gl);
    }
  };
}

const Work kAll = With(Steps().size(), [](COpenGL&) {});

TEST(InterruptedGathering, ShowsTheSameWhereverItIsSent) {
  GatheredScene scene;
  const PixelBytes whole = scene.Kept(kAll);
  const std::vector<double> state = StateOf(scene.gl);
  GatheredScene single(0);
  const PixelBytes oneByOne = single.Kept(kAll);
  EXPECT_LE(DifferingPixels(whole, oneByOne), kMostDiffering);
  for (std::size_t n = 0; n < Steps().size(); ++n) {
    SCOPED_TRACE(::testing::Message() << "sent before step " << n);
    const Work sent = With(n, [](COpenGL& gl) { gl.SendGathered(); });
    GatheredScene fresh;
    const PixelBytes first = fresh.Kept(sent);
    EXPECT_LE(DifferingPixels(first, oneByOne), kMostDiffering);
    EXPECT_EQ(StateOf(fresh.gl), state);
    EXPECT_EQ(DifferingPixels(fresh.Kept(sent), first), 0) << "the second frame differs";
    // What has been kept of a whole drawing doesn't keep another one from being interrupted.
    scene.slot.Forget();
    EXPECT_EQ(DifferingPixels(scene.Kept(sent), first), 0);
    EXPECT_LE(DifferingPixels(scene.Gathered(sent), single.Gathered(sent)), kMostDiffering);
  }
}

// The two sides of a plate without thickness lie at the same depth: the one that looks away isn't
// drawn, before an interruption or after it.
TEST(InterruptedGathering, HidesFarSidesInItsSecondHalfToo) {
  const Work plates = [](COpenGL& gl) {
    gl.DrawPrism3D(1, 1, 1, 3, 3, 0, kRed, kBlack);
    gl.SendGathered();
    gl.DrawPrism3D(5, 1, 1, 3, 3, 0, kGreen, kBlack);
    gl.DrawPrism3D(5, 5, 1, 3, 0, 3, kGreen, kBlack);
    gl.DrawPrism3D(1, 5, 1, 0, 3, 3, kGreen, kBlack);
  };
  for (const point3Dtype& turn : std::vector<point3Dtype>{
           {30, 0, 30, 0}, {-60, 0, 30, 0}, {30, 0, 210, 0}, {120, 0, 30, 0}}) {
    SCOPED_TRACE(::testing::Message() << "turned by " << turn.x << " " << turn.z);
    GatheredScene gathered;
    GatheredScene single(0);
    gathered.transform.SetRotate(turn);
    single.transform.SetRotate(turn);
    EXPECT_LE(DifferingPixels(gathered.Kept(plates), single.Kept(plates)), kMostDiffering);
  }
}

/// A line that OpenGL calls end goes no further, whatever is said of it afterwards.
TEST(InterruptedGathering, EndsAnOpenLine) {
  GatheredScene scene;
  const PixelBytes cut = scene.Kept([](COpenGL& gl) {
    gl.StartLineAbs3D({0, 0, 0, 0});
    gl.AppendLineAbs3D({5, 5, 5, 0});
    gl.SendGathered();
    gl.AppendLineAbs3D({10, 0, 10, 0});
    gl.EndLineAbs3D({10, 0, 0, 0});
    gl.DrawCube(2, kRed, kBlack);
  });
  EXPECT_EQ(scene.gl.GetColorMode(), 1);
  GatheredScene whole;
  EXPECT_LE(DifferingPixels(cut, whole.Kept([](COpenGL& gl) {
              gl.StartLineAbs3D({0, 0, 0, 0});
              gl.EndLineAbs3D({5, 5, 5, 0});
              gl.DrawCube(2, kRed, kBlack);
            })),
            kMostDiffering);
}

/// Operations that what was gathered has to be sent for.
std::vector<std::pair<std::string, Work>> Interruptions() {
  static const std::array<RGBDType, 2> colors{kRed, kGreen};
  static const std::array<unsigned char, 16> picture{255, 0, 0,   255, 0, 255, 0, 255,
                                                     0,   0, 255, 255, 9, 9,   9, 255};
  return {{"Clear", [](COpenGL& gl) { gl.Clear(GL_DEPTH_BUFFER_BIT); }},
          {"SetViewport",
           [](COpenGL& gl) {
             gl.SetViewport({20, 20, 150, 150});
           }},
          {"EnableLight", [](COpenGL& gl) { gl.EnableLight(GL_LIGHT1); }},
          {"LoadLight",
           [](COpenGL& gl) {
             gl.SetLightComponent(GL_DIFFUSE, kRed);
             gl.LoadLight(GL_DIFFUSE);
           }},
          {"SetupShading", [](COpenGL& gl) { gl.SetupShading(); }},
          {"SetClipLimits",
           [](COpenGL& gl) {
             gl.SetClipLimits({0, 0, 0, 0}, {6, 6, 6, 0});
             gl.EnableClipping(1);
           }},
          {"EnableClipping and back",
           [](COpenGL& gl) {
             gl.SetClipLimits({0, 0, 0, 0}, {6, 6, 6, 0});
             gl.EnableClipping(1);
             gl.DrawPrism3D(4, 4, 4, 4, 4, 4, kRed, kBlack);
             gl.EnableClipping(0);
           }},
          {"PolyAbs3D", [](COpenGL& gl) { gl.PolyAbs3D(kSquare.data(), 5); }},
          {"solid shape",
           [](COpenGL& gl) {
             gl.DrawAuxObject(1, 1, {2, 2, 2, 0});
           }},
          {"wire shape",
           [](COpenGL& gl) {
             gl.DrawAuxObject(0, 0, {2, 2, 2, 0});
           }},
          {"picture",
           [](COpenGL& gl) { gl.DrawPictureQuad(picture.data(), 2, 2, kSquare.data(), 1, 1); }},
          {"texture",
           [](COpenGL& gl) {
             gl.SetTextureColorArray(colors.data(), 0, 10, 2);
             gl.SetTextureMode(2);
             gl.EnableTexture(1);
             gl.DrawPrism3D(4, 4, 4, 4, 4, 4, kRed, kBlack);
             gl.EnableTexture(0);
           }},
          {"ReadModelViewMatrix",
           [](COpenGL& gl) {
             std::array<double, 16> matrix{};
             gl.ReadModelViewMatrix(matrix.data());
             gl.LoadMatrixTransform(matrix.data());
             gl.DrawCube(2, kRed, kBlack);
           }},
          {"Flush", [](COpenGL& gl) { gl.Flush(); }},
          {"UpdateBitmap", [](COpenGL& gl) { gl.UpdateBitmap(kGatheredSize, kGatheredSize); }},
          {"a font", [](COpenGL& gl) { gl.RegisterFont("Courier New", 0.1, 400, 0, 0, 256); }},
          {"flat colours", [](COpenGL& gl) { gl.SetColorMode(0); }},
          {"identity", [](COpenGL& gl) {
             gl.PushMatrix();
             gl.LoadIdentity();
             gl.DrawCube(0.4, kRed, kBlack);
             gl.PopMatrix();
           }}};
}

TEST(InterruptedGathering, OperationsThatNeedOpenGLFindAllThatWasDrawn) {
  for (const auto& [name, interruption] : Interruptions()) {
    for (const std::size_t n : {0U, 6U, 8U, 13U}) {
      SCOPED_TRACE(::testing::Message() << name << " before step " << n);
      GatheredScene gathered;
      GatheredScene single(0);
      const Work work = With(n, interruption);
      const PixelBytes first = gathered.Kept(work);
      const std::vector<double> state = StateOf(gathered.gl);
      EXPECT_LE(DifferingPixels(first, single.Kept(work)), kMostDiffering);
      single.gl.MakeCurrent();
      EXPECT_EQ(StateOf(single.gl), state);
    }
  }
}

TEST(InterruptedGathering, TextsOfOtherTransformsComeBetween) {
  const auto draw = [](GatheredScene& scene) {
    scene.gl.RegisterFont("Arial", 0.1, 400, 0, 0, 256);
    CTransform3D other(&scene.gl, {0, 0, 0, 0}, {10, 10, 10, 0});
    other.SetRotate({0, 0, 45, 0});
    CTextObj3D own(&scene.gl, scene.gl.GetFont(), &scene.transform, CString("own"));
    CTextObj3D foreign(&scene.gl, scene.gl.GetFont(), &other, CString("other"));
    own.SetLocation({2, 5, 5, 0});
    foreign.SetLocation({5, 5, 2, 0});
    return scene.Gathered([&](COpenGL& gl) {
      own.OutText();
      gl.DrawCube(0.3, kRed, kBlack);
      foreign.OutText();
      own.OutText();
      gl.DrawCube(0.5, kGreen, kBlack);
    });
  };
  GatheredScene gathered;
  GatheredScene single(0);
  const PixelBytes picture = draw(gathered);
  EXPECT_LE(DifferingPixels(picture, draw(single)), kMostDiffering);
  EXPECT_EQ(DifferingPixels(picture, draw(gathered)), 0);
}

}  // namespace
