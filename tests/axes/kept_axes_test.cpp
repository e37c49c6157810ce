#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"

// A frame of axes that changed after it was drawn shows as if it had never been otherwise.

namespace {

using orvalix::test::LoadFrom;
using orvalix::test::Offscreen;
using orvalix::test::Saved;

using PixelBytes = std::vector<unsigned char>;

constexpr int kSize = 200;
constexpr RGBDType kColor{0.9, 0.1, 0.5, 1};
constexpr RGBDType kGray{0.7, 0.7, 0.7, 1};
constexpr RGBDType kPale{0.8, 0.9, 1.0, 1};
constexpr RGBDType kDark{0.1, 0.1, 0.1, 1};

/// Axes with tics, grids on planes 0 to 2, a fill on plane 0 and a wall on plane 1.
struct AxesScene {
  AxesScene()
      : target(kSize, kSize),
        gl(*target.gl),
        transform(&gl, {0, 0, 0, 0}, {10, 10, 10, 0}),
        axes(&gl, &transform, {0, 0, 0, 0}, {10, 10, 10, 0}) {
    gl.RegisterFont("Arial", 0.1, 400, 0, 0, 256);
    for (const int which : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_POSITION}) gl.LoadLight(which);
    transform.SetRotate({20, 10, 30, 0});
    for (int i = 0; i < 3; ++i) {
      axes.SetAxisTics(i, 0.0, 1.0, 5, 0.02, 0.04, 0);
      axes.SetAxisIntercept(i, 5, 9);
      axes.SetPlaneGrid(i, 2, 5, kGray, 1.0, 0, 1);
    }
    axes.SetPlaneColor(0, kPale, kDark);
    axes.SetWallPlane(1, kPale, kDark);
  }

  PixelBytes Picture() {
    gl.MakeCurrent();
    glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    gl.LoadIdentity();
    axes.DrawAxes();
    PixelBytes pixels(std::size_t{kSize} * kSize * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kSize, kSize, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
  }

  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
  CAxes3D axes;
};

int DifferingPixels(const PixelBytes& a, const PixelBytes& b) {
  int differing = 0;
  for (std::size_t i = 0; i < a.size(); i += 3) {
    if (a[i] != b[i] || a[i + 1] != b[i + 1] || a[i + 2] != b[i + 2]) ++differing;
  }
  return differing;
}

struct Change {
  std::string name;
  std::function<void(AxesScene&)> apply;
};

Change OfFrame(const char* name, void (*apply)(CAxes3D&)) {
  return {name, [apply](AxesScene& scene) { apply(scene.axes); }};
}

Change OfAxis(const char* name, void (*apply)(CAxis3D&)) {
  return {name, [apply](AxesScene& scene) { apply(*scene.axes.GetAxis(1)); }};
}

Change OfTransform(const char* name, void (*apply)(CTransform3D&)) {
  return {name, [apply](AxesScene& scene) { apply(scene.transform); }};
}

void ExpectShownAtOnce(const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    SCOPED_TRACE(change.name);
    AxesScene scene;
    const PixelBytes before = scene.Picture();
    ASSERT_EQ(DifferingPixels(scene.Picture(), before), 0);
    change.apply(scene);
    const PixelBytes after = scene.Picture();
    AxesScene fresh;
    change.apply(fresh);
    EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0) << "the old drawing shows";
    EXPECT_GT(DifferingPixels(after, before), 0) << "nothing has changed";
  }
}

TEST(KeptAxes, WhatIsSetOfAnAxisShowsAtOnce) {
  ExpectShownAtOnce({
      OfAxis("limits", [](CAxis3D& a) { a.SetAxisLimits(2, 8); }),
      OfAxis("minimum", [](CAxis3D& a) { a.SetAxisMin(3); }),
      OfAxis("maximum", [](CAxis3D& a) { a.SetAxisMax(7); }),
      OfAxis("tics", [](CAxis3D& a) { a.SetAxisTics(0, 2.5, 2, 0.05, 0.1, 1); }),
      OfAxis("centre point", [](CAxis3D& a) { a.SetAxisCenterPoint(0.5); }),
      OfAxis("tic space", [](CAxis3D& a) { a.SetAxisTicSpace(2); }),
      OfAxis("major tics", [](CAxis3D& a) { a.SetAxisNthTicMajor(2); }),
      OfAxis("length of minor tics", [](CAxis3D& a) { a.SetAxisMinorTicLength(0.1); }),
      OfAxis("length of major tics", [](CAxis3D& a) { a.SetAxisMajorTicLength(0.2); }),
      OfAxis("tic direction", [](CAxis3D& a) { a.SetAxisTicDir(2); }),
      OfAxis("attributes", [](CAxis3D& a) { a.SetAxisAttrib(kColor, kColor, 3, 2); }),
      OfAxis("colour", [](CAxis3D& a) { a.SetAxisColor(kColor); }),
      OfAxis("tic colour", [](CAxis3D& a) { a.SetAxisTicColor(kColor); }),
      OfAxis("thickness", [](CAxis3D& a) { a.SetAxisThickness(4); }),
      OfAxis("style", [](CAxis3D& a) { a.SetAxisStyle(3); }),
      OfAxis("intercepts", [](CAxis3D& a) { a.SetAxisIntercept(4, 6); }),
      OfAxis("first intercept", [](CAxis3D& a) { a.SetAxisIntercept1(4); }),
      OfAxis("second intercept", [](CAxis3D& a) { a.SetAxisIntercept2(4); }),
  });
}

TEST(KeptAxes, WhatIsSetOfAnAxisThroughItsFrameShowsAtOnce) {
  ExpectShownAtOnce({
      OfFrame("all limits",
              [](CAxes3D& a) {
                a.SetAxesLimits({2, 2, 2, 0}, {8, 8, 8, 0});
              }),
      OfFrame("limits", [](CAxes3D& a) { a.SetAxisLimits(1, 2, 8); }),
      OfFrame("minimum", [](CAxes3D& a) { a.SetAxisMin(1, 3); }),
      OfFrame("maximum", [](CAxes3D& a) { a.SetAxisMax(1, 7); }),
      OfFrame("enabling", [](CAxes3D& a) { a.EnableAxis(1, 0); }),
      OfFrame("tics", [](CAxes3D& a) { a.SetAxisTics(1, 0, 2.5, 2, 0.05, 0.1, 1); }),
      OfFrame("centre point", [](CAxes3D& a) { a.SetAxisCenterPoint(1, 0.5); }),
      OfFrame("tic space", [](CAxes3D& a) { a.SetAxisTicSpace(1, 2); }),
      OfFrame("major tics", [](CAxes3D& a) { a.SetAxisNthTicMajor(1, 2); }),
      OfFrame("length of minor tics", [](CAxes3D& a) { a.SetAxisMinorTicLength(1, 0.1); }),
      OfFrame("length of major tics", [](CAxes3D& a) { a.SetAxisMajorTicLength(1, 0.2); }),
      OfFrame("tic direction", [](CAxes3D& a) { a.SetAxisTicDir(1, 2); }),
      OfFrame("attributes", [](CAxes3D& a) { a.SetAxisAttrib(1, kColor, kColor, 3, 2); }),
      OfFrame("colour", [](CAxes3D& a) { a.SetAxisColor(1, kColor); }),
      OfFrame("tic colour", [](CAxes3D& a) { a.SetAxisTicColor(1, kColor); }),
      OfFrame("thickness", [](CAxes3D& a) { a.SetAxisThickness(1, 4); }),
      OfFrame("style", [](CAxes3D& a) { a.SetAxisStyle(1, 3); }),
      OfFrame("intercepts", [](CAxes3D& a) { a.SetAxisIntercept(1, 4, 6); }),
      OfFrame("first intercept", [](CAxes3D& a) { a.SetAxisIntercept1(1, 4); }),
      OfFrame("second intercept", [](CAxes3D& a) { a.SetAxisIntercept2(1, 4); }),
  });
}

TEST(KeptAxes, GridsAndPlanesShowAtOnce) {
  ExpectShownAtOnce({
      OfFrame("grid", [](CAxes3D& a) { a.SetPlaneGrid(2, 5, 1, kColor, 3.0, 2, 0); }),
      OfFrame("grid enabled", [](CAxes3D& a) { a.EnableGrid(2, 0); }),
      OfFrame("grid attributes", [](CAxes3D& a) { a.SetPlaneGridAttrib(2, kColor, 3.0, 2); }),
      OfFrame("grid colour", [](CAxes3D& a) { a.SetPlaneGridColor(2, kColor); }),
      OfFrame("tics of the first axis", [](CAxes3D& a) { a.SetPlaneGridNthTic1(2, 5); }),
      OfFrame("tics of the second axis", [](CAxes3D& a) { a.SetPlaneGridNthTic2(2, 1); }),
      OfFrame("grid style", [](CAxes3D& a) { a.SetPlaneGridStyle(2, 3); }),
      OfFrame("grid thickness", [](CAxes3D& a) { a.SetPlaneGridThickness(2, 4); }),
      OfFrame("grid across the wall", [](CAxes3D& a) { a.SetPlaneGridWallFlag(1, 0); }),
      OfFrame("plane colour", [](CAxes3D& a) { a.SetPlaneColor(0, kColor, kDark); }),
      OfFrame("wall", [](CAxes3D& a) { a.SetWallPlane(0, kColor, kDark); }),
      OfFrame("plane enabled", [](CAxes3D& a) { a.EnablePlane(0, 0); }),
      OfFrame("wall enabled", [](CAxes3D& a) { a.EnableWall(1, 0); }),
      OfFrame("plane colour mode",
              [](CAxes3D& a) { a.SetPlaneColorMode(0, 1 - a.GetPlaneColorMode(0)); }),
      OfFrame("outline colour", [](CAxes3D& a) { a.SetOutlineColor(0, kColor); }),
      OfFrame("outline width", [](CAxes3D& a) { a.SetOutlineWidth(0, 4); }),
      OfFrame("outlines", [](CAxes3D& a) { a.SetOutlineMode(a.GetOutlineMode() == 0 ? 1 : 0); }),
      OfFrame("wall offset", [](CAxes3D& a) { a.SetWallOffset(1, 0.1); }),
      OfFrame("wall thickness", [](CAxes3D& a) { a.SetWallThickness(1, 0.2); }),
  });
}

TEST(KeptAxes, WhatElseShapesAFrameShowsAtOnce) {
  ExpectShownAtOnce({
      OfTransform("scale",
                  [](CTransform3D& t) {
                    t.SetScale({-2, -2, -2, 0}, {12, 12, 12, 0});
                  }),
      OfTransform("scale mode", [](CTransform3D& t) { t.SetAxisScaleMode(2, 1); }),
      OfTransform("chart rectangle",
                  [](CTransform3D& t) {
                    t.SetChartRect({0.3, 0.4, 0.6, 0});
                  }),
      OfTransform("turn",
                  [](CTransform3D& t) {
                    t.SetRotate({-30, 20, 200, 0});
                  }),
      OfTransform("offset",
                  [](CTransform3D& t) {
                    t.SetOffset({0.1, 0.1, 0.1, 0});
                  }),
      {"line style factor",
       [](AxesScene& s) {
         s.axes.SetAxisStyle(0, 3);
         s.gl.SetLineStyleFactor(4);
       }},
      {"loading",
       [](AxesScene& s) {
         AxesScene other;
         other.axes.SetAxisLimits(0, 2, 5);
         other.axes.SetWallThickness(1, 0.2);
         const auto record = Saved(other.axes);
         s.gl.MakeCurrent();
         LoadFrom(s.axes, record);
         s.axes.BindAxes(&s.gl, &s.transform);
       }},
  });
}

// Gathered or not, from all sides, and from straight in front of what lies in one plane.
TEST(KeptAxes, LookAsOneByOneFromAllSides) {
  constexpr int kMostDiffering = kSize * kSize / 800;
  AxesScene scene;
  for (const int outlines : {0, 1}) {
    scene.axes.SetOutlineMode(outlines);
    for (const point3Dtype& turn : std::vector<point3Dtype>{{20, 10, 30, 0},
                                                            {0, 0, 0, 0},
                                                            {90, 0, 0, 0},
                                                            {-90, 0, 0, 0},
                                                            {0, 0, 90, 0},
                                                            {30, 0, 180, 0},
                                                            {-25, 15, 225, 0},
                                                            {160, 20, 310, 0}}) {
      SCOPED_TRACE(::testing::Message() << "outlines " << outlines << ", turned by " << turn.x
                                        << " " << turn.y << " " << turn.z);
      scene.transform.SetRotate(turn);
      scene.gl.SetGathering(1);
      const PixelBytes first = scene.Picture();
      EXPECT_EQ(DifferingPixels(scene.Picture(), first), 0);
      scene.gl.SetGathering(0);
      EXPECT_LE(DifferingPixels(scene.Picture(), first), kMostDiffering);
    }
  }
}

}  // namespace
