#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "axes/kept_axes_fixture.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/drawing_state.h"
#include "support/temporary_file.h"

// Labels and titles of axes, which are gathered in each frame: changed, they show at once.

namespace {

using namespace orvalix::test;

const std::array<CString, 3> kTexts{CString("a"), CString("b"), CString("c")};

void AddLabels(AxesScene& scene) {
  for (int i = 0; i < 3; ++i) {
    scene.axes.SetAxisLabels(i, 0, 0, 0, 0, 7, kFrameDark, nullptr, 0);
    scene.axes.EnableAxisLabels(i, 1);
  }
  scene.axes.SetAxisTitleString(0, "Title");
}

void ExpectLabelsShownAtOnce(const std::vector<AxesChange>& changes) {
  ExpectShownAtOnce(changes, AddLabels);
}

/// With texts in place of numbers.
void ExpectTextsShownAtOnce(const std::vector<AxesChange>& changes) {
  ExpectShownAtOnce(changes, [](AxesScene& scene) {
    AddLabels(scene);
    scene.axes.SetAxisLabelsStrings(0, kTexts.data(), 3);
    scene.axes.EnableAxisLabelsStrings(0, 1);
  });
}

/// With a title that is placed by its own properties.
void ExpectFreeTitleShownAtOnce(const std::vector<AxesChange>& changes) {
  ExpectShownAtOnce(changes, [](AxesScene& scene) {
    AddLabels(scene);
    scene.axes.GetAxisLabels(0)->SetAxisTitleAutomatic(0);
  });
}

using Labels = CAxisLabels3D;

TEST(KeptLabels, WhatIsSetOfLabelsShowsAtOnce) {
  ExpectLabelsShownAtOnce({
      OfLabels("all", [](Labels& l) { l.SetAxisLabels(1, 45, 1, 1, 3, kFrameColor, nullptr, 0); }),
      OfLabels("plane", [](Labels& l) { l.SetAxisLabelsPlane(1); }),
      OfLabels("direction", [](Labels& l) { l.SetAxisLabelsDir(1); }),
      OfLabels("rotation", [](Labels& l) { l.SetAxisLabelsRotation(90); }),
      OfLabels("decimals", [](Labels& l) { l.SetAxisLabelsDecimals(2); }),
      OfLabels("format", [](Labels& l) { l.SetAxisLabelsFormat(1); }),
      OfLabels("ends", [](Labels& l) { l.SetAxisLabelsEnds(0); }),
      OfLabels("x justification", [](Labels& l) { l.SetAxisLabelsXJust(0); }),
      OfLabels("y justification", [](Labels& l) { l.SetAxisLabelsYJust(0); }),
      Unseen(OfLabels("nth tic", [](Labels& l) { l.SetAxisLabelsNthTic(2); })),
      OfLabels("tic offset", [](Labels& l) { l.SetAxisLabelsTicOffset(4); }),
      OfLabels("size", [](Labels& l) { l.SetAxisLabelsSize(2); }),
      OfLabels("flip about x", [](Labels& l) { l.SetAxisLabelsFlipX(1); }),
      OfLabels("flip about y", [](Labels& l) { l.SetAxisLabelsFlipY(1); }),
      OfLabels("colour", [](Labels& l) { l.SetAxisLabelsColor(kFrameColor); }),
      OfLabels("texts",
               [](Labels& l) {
                 l.SetAxisLabelsStrings(kTexts.data(), 3);
                 l.EnableAxisLabelsStrings(1);
               }),
      Unseen(OfLabels("table of justifications", [](Labels& l) { l.InitLabelJustTable(); })),
      OfLabels("defaults", [](Labels& l) { l.InitAxisLabelsDefaults(); }),
  });
}

TEST(KeptLabels, OtherSuffixesShowAtOnce) {
  ExpectShownAtOnce({OfLabels("suffixes", [](Labels& l) { l.SetEngString(CString(" x")); })},
                    [](AxesScene& scene) {
                      scene.transform.SetScale({0, 0, 0, 0}, {10000, 10, 10, 0});
                      scene.axes.SetAxesLimits({0, 0, 0, 0}, {10000, 10, 10, 0});
                      AddLabels(scene);
                      scene.axes.SetAxisTicSpace(0, 1000);
                      scene.axes.SetAxisLabelsFormat(0, 2);
                    });
}

TEST(KeptLabels, WhatIsSetOfLabelsThroughTheFrameShowsAtOnce) {
  ExpectLabelsShownAtOnce({
      OfFrame("all",
              [](CAxes3D& a) { a.SetAxisLabels(0, 1, 45, 1, 1, 3, kFrameColor, nullptr, 0); }),
      OfFrame("enabling", [](CAxes3D& a) { a.EnableAxisLabels(0, 0); }),
      OfFrame("plane", [](CAxes3D& a) { a.SetAxisLabelsPlane(0, 1); }),
      OfFrame("direction", [](CAxes3D& a) { a.SetAxisLabelsDir(0, 1); }),
      OfFrame("rotation", [](CAxes3D& a) { a.SetAxisLabelsRotation(0, 90); }),
      OfFrame("decimals", [](CAxes3D& a) { a.SetAxisLabelsDecimals(0, 2); }),
      OfFrame("format", [](CAxes3D& a) { a.SetAxisLabelsFormat(0, 1); }),
      OfFrame("ends", [](CAxes3D& a) { a.SetAxisLabelsEnds(0, 0); }),
      OfFrame("x justification", [](CAxes3D& a) { a.SetAxisLabelsXJust(0, 0); }),
      OfFrame("y justification", [](CAxes3D& a) { a.SetAxisLabelsYJust(0, 0); }),
      Unseen(OfFrame("nth tic", [](CAxes3D& a) { a.SetAxisLabelsNthTic(0, 2); })),
      OfFrame("tic offset", [](CAxes3D& a) { a.SetAxisLabelsTicOffset(0, 4); }),
      OfFrame("size", [](CAxes3D& a) { a.SetAxisLabelsSize(0, 2); }),
      OfFrame("flip about x", [](CAxes3D& a) { a.SetAxisLabelsFlipX(0, 1); }),
      OfFrame("flip about y", [](CAxes3D& a) { a.SetAxisLabelsFlipY(0, 1); }),
      OfFrame("colour", [](CAxes3D& a) { a.SetAxisLabelsColor(0, kFrameColor); }),
      OfFrame("texts",
              [](CAxes3D& a) {
                a.SetAxisLabelsStrings(0, kTexts.data(), 3);
                a.EnableAxisLabelsStrings(0, 1);
              }),
      // What of the axis and the frame moves or makes labels.
      OfFrame("wall thickness of the axis",
              [](CAxes3D& a) { a.GetAxis(0)->SetAxisWallThickness(0.4); }),
      OfFrame("wall thickness", [](CAxes3D& a) { a.SetWallThickness(0, 0.4); }),
      OfFrame("major tics", [](CAxes3D& a) { a.SetAxisNthTicMajor(0, 2); }),
      OfFrame("tic space", [](CAxes3D& a) { a.SetAxisTicSpace(0, 0.5); }),
      OfFrame("length of major tics", [](CAxes3D& a) { a.SetAxisMajorTicLength(0, 0.2); }),
      OfFrame("limits", [](CAxes3D& a) { a.SetAxisLimits(0, 2, 8); }),
      OfFrame("intercepts", [](CAxes3D& a) { a.SetAxisIntercept(0, 2, 3); }),
  });
}

TEST(KeptLabels, TextsShowAtOnce) {
  ExpectTextsShownAtOnce({
      OfFrame("other texts", [](CAxes3D& a) { a.SetAxisLabelsStrings(0, kTexts.data() + 1, 2); }),
      OfFrame("no texts", [](CAxes3D& a) { a.SetAxisLabelsStrings(0, nullptr, 0); }),
      OfFrame("texts disabled", [](CAxes3D& a) { a.EnableAxisLabelsStrings(0, 0); }),
      OfFrame("one text, in place",
              [](CAxes3D& a) { a.GetAxisLabelsStrings(0)[1] = CString("other"); }),
      OfLabels("other texts, of the labels",
               [](Labels& l) { l.SetAxisLabelsStrings(kTexts.data() + 1, 2); }),
      OfLabels("texts disabled, of the labels", [](Labels& l) { l.EnableAxisLabelsStrings(0); }),
  });
}

TEST(KeptLabels, TitlesShowAtOnce) {
  ExpectLabelsShownAtOnce({
      OfLabels("all",
               [](Labels& l) { l.SetAxisTitle(1, 0, 45, 1, 1, 0, kFrameColor, CString("Else")); }),
      OfLabels("text", [](Labels& l) { l.SetAxisTitleString(CString("Else")); }),
      OfLabels("no text", [](Labels& l) { l.SetAxisTitleString(CString("")); }),
      OfLabels("plane", [](Labels& l) { l.SetAxisTitlePlane(1); }),
      Unseen(OfLabels("direction", [](Labels& l) { l.SetAxisTitleDir(2); })),
      OfLabels("automatic", [](Labels& l) { l.SetAxisTitleAutomatic(0); }),
      OfLabels("size", [](Labels& l) { l.SetAxisTitleSize(2); }),
      OfLabels("flip about x", [](Labels& l) { l.SetAxisTitleFlipX(1); }),
      OfLabels("flip about y", [](Labels& l) { l.SetAxisTitleFlipY(1); }),
      OfLabels("colour", [](Labels& l) { l.SetAxisTitleColor(kFrameColor); }),
      OfLabels("text of the object",
               [](Labels& l) { l.GetAxisTitleObj()->SetString(CString("Else")); }),
      OfLabels("object disabled", [](Labels& l) { l.GetAxisTitleObj()->EnableTextObj(0); }),
      OfFrame("text of the frame", [](CAxes3D& a) { a.SetAxisTitleString(0, "Else"); }),
      OfFrame("colour of the frame", [](CAxes3D& a) { a.SetAxisTitleColor(0, kFrameColor); }),
      OfFrame("flip about x of the frame", [](CAxes3D& a) { a.SetAxisTitleFlipX(0, 1); }),
      OfFrame("flip about y of the frame", [](CAxes3D& a) { a.SetAxisTitleFlipY(0, 1); }),
      OfFrame("plane of the frame", [](CAxes3D& a) { a.SetAxisTitlePlane(0, 1); }),
      OfFrame("size of the frame", [](CAxes3D& a) { a.SetAxisTitleSize(0, 2); }),
  });
  ExpectFreeTitleShownAtOnce({
      OfLabels("rotation", [](Labels& l) { l.SetAxisTitleRotation(90); }),
      OfLabels("x justification", [](Labels& l) { l.SetAxisTitleXJust(2); }),
      OfLabels("y justification", [](Labels& l) { l.SetAxisTitleYJust(2); }),
  });
}

TEST(KeptLabels, WhatElseShapesThemShowsAtOnce) {
  ExpectLabelsShownAtOnce({
      OfTransform("font aspect", [](CTransform3D& t) { t.SetFontAspect(0.5); }),
      OfTransform("font height", [](CTransform3D& t) { t.SetFontHeightSF(2); }),
      OfTransform("scale",
                  [](CTransform3D& t) {
                    t.SetScale({-2, -2, -2, 0}, {12, 12, 12, 0});
                  }),
      OfTransform("scale mode", [](CTransform3D& t) { t.SetAxisScaleMode(0, 1); }),
      OfTransform("turn",
                  [](CTransform3D& t) {
                    t.SetRotate({-30, 20, 200, 0});
                  }),
      {"size of the font", [](AxesScene& s) { s.gl.SetFontScaleFactor(0.2); }},
      {"another axis",
       [](AxesScene& s) {
         s.axes.GetAxisLabels(0)->InitAxisLabels(&s.gl, &s.transform, s.axes.GetAxis(2));
       }},
      {"loading",
       [](AxesScene& s) {
         AxesScene other;
         AddLabels(other);
         other.axes.SetAxisLabelsDecimals(0, 2);
         const auto record = Saved(*other.axes.GetAxisLabels(0));
         s.gl.MakeCurrent();
         LoadFrom(*s.axes.GetAxisLabels(0), record);
       }},
      {"the frame made anew",
       [](AxesScene& s) {
         s.axes.GetAxis(0)->SetAxisLimits(3, 4);
         s.axes.InitAxes(&s.gl, &s.transform);
         s.axes.SetAxisLabelsColor(0, kFrameColor);
       }},
      {"another font",
       [](AxesScene& s) {
         s.gl.NewFont3D();  // the current one from now on
         s.gl.RegisterFont("Courier New", 0.15, 400, 0, 0, 256);
       }},
  });
}

// Whatever was drawn before, and whether a frame is drawn anew, kept, or one by one.
TEST(KeptAxes, LeaveTheStateOfDrawingOneByOne) {
  const auto states = [](int gathering) {
    AxesScene scene;
    AddLabels(scene);
    scene.gl.SetGathering(gathering);
    CAxes3D other(&scene.gl, &scene.transform, {0, 0, 0, 0}, {10, 10, 10, 0});
    other.SetAxisTics(1, 0.0, 1.0, 5, 0.02, 0.04, 2);
    other.SetPlaneColor(2, kFramePale, kFrameDark);
    std::vector<std::vector<double>> all;
    for (int frame = 0; frame < 3; ++frame) {
      scene.Picture();
      all.push_back(StateOf(scene.gl));
      scene.gl.SetLineNormal({frame * 0.5, 0.25, 0, 0}, 0);
      scene.gl.SetLineStyle3D(5, 3.0, {0.2, 0.4, 0.6, 1.0});
      scene.gl.SetFillStyle3D({0.5, 0.25, 1.0, 1.0}, {1, 1, 1, 1}, {0.75, 0.5, 0.25, 1.0});
      other.DrawAxes();
      all.push_back(StateOf(scene.gl));
      // Without a set axis nothing of the state is touched but by planes.
      scene.gl.SetLineNormal({0, frame * 0.5, 0.25, 0}, 0);
      other.EnableAxis(1, frame % 2);
    }
    return all;
  };
  const auto gathered = states(1);
  const auto single = states(0);
  for (std::size_t i = 0; i < single.size(); ++i) EXPECT_EQ(gathered[i], single[i]) << i;
}

// The same numbers, but another transform at another address, whose matrices are others.
TEST(KeptAxes, AFrameBoundToAnotherTransformIsDrawnThroughIt) {
  const auto other = [](AxesScene& scene) {
    auto transform = std::make_unique<CTransform3D>(&scene.gl, point3Dtype{0, 0, 0, 0},
                                                    point3Dtype{10, 10, 10, 0});
    transform->SetRotate({-30, 20, 200, 0});
    return transform;
  };
  AxesScene scene;
  AddLabels(scene);
  const PixelBytes before = scene.Picture();
  std::unique_ptr<CTransform3D> transform = other(scene);
  scene.axes.BindAxes(&scene.gl, transform.get());
  const PixelBytes after = scene.Picture();
  scene.transform.SetRotate({5, 5, 5, 0});
  EXPECT_EQ(DifferingPixels(scene.Picture(), after), 0) << "the old one still counts";
  AxesScene fresh;
  AddLabels(fresh);
  const std::unique_ptr<CTransform3D> freshTransform = other(fresh);
  fresh.axes.BindAxes(&fresh.gl, freshTransform.get());
  EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0);
  // A new one in its place.
  scene.gl.MakeCurrent();
  scene.axes.BindAxes(&scene.gl, &scene.transform);
  transform.reset();
  scene.transform.SetRotate({20, 10, 30, 0});
  EXPECT_EQ(DifferingPixels(scene.Picture(), before), 0);
}

// A single axis may be bound elsewhere than its frame.
TEST(KeptAxes, AnAxisOfAnotherTransformIsScaledByIt) {
  std::array<PixelBytes, 2> pictures;
  for (const bool isDrawnBefore : {false, true}) {
    AxesScene scene;
    CTransform3D other(&scene.gl, {0, 0, 0, 0}, {20, 20, 20, 0});
    if (isDrawnBefore) scene.Picture();
    scene.axes.GetAxis(1)->InitAxis(&scene.gl, &other, 1);
    pictures[isDrawnBefore ? 1 : 0] = scene.Picture();
    other.SetAxisScaleMode(1, 1);
    const PixelBytes changed = scene.Picture();
    EXPECT_GT(DifferingPixels(changed, pictures[isDrawnBefore ? 1 : 0]), 0);
    scene.gl.SetGathering(0);
    EXPECT_LE(DifferingPixels(scene.Picture(), changed), kFrameSize * kFrameSize / 1000);
  }
  EXPECT_EQ(DifferingPixels(pictures[0], pictures[1]), 0);
}

// Labels read before the frame is drawn again, not only after.
TEST(KeptLabels, LoadedLabelsShowAtOnce) {
  AxesScene source;
  AddLabels(source);
  source.axes.SetAxisLabelsDecimals(0, 2);
  source.axes.SetAxisTitleString(0, "Else");
  source.gl.MakeCurrent();
  const auto record = Saved(source.axes);
  const PixelBytes wanted = source.Picture();
  AxesScene scene;
  AddLabels(scene);
  EXPECT_GT(DifferingPixels(scene.Picture(), wanted), 0);
  LoadFrom(scene.axes, record);
  scene.axes.BindAxes(&scene.gl, &scene.transform);
  EXPECT_EQ(DifferingPixels(scene.Picture(), wanted), 0);
}

}  // namespace
