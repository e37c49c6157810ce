#include <gtest/gtest.h>

#include <vector>

#include "axes/kept_axes_fixture.h"
#include "support/temporary_file.h"

// A frame of axes that changed after it was drawn shows as if it had never been otherwise.

namespace {

using namespace orvalix::test;

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
      OfAxis("attributes", [](CAxis3D& a) { a.SetAxisAttrib(kFrameColor, kFrameColor, 3, 2); }),
      OfAxis("colour", [](CAxis3D& a) { a.SetAxisColor(kFrameColor); }),
      OfAxis("tic colour", [](CAxis3D& a) { a.SetAxisTicColor(kFrameColor); }),
      OfAxis("thickness", [](CAxis3D& a) { a.SetAxisThickness(4); }),
      OfAxis("style", [](CAxis3D& a) { a.SetAxisStyle(3); }),
      OfAxis("intercepts", [](CAxis3D& a) { a.SetAxisIntercept(4, 6); }),
      OfAxis("first intercept", [](CAxis3D& a) { a.SetAxisIntercept1(4); }),
      OfAxis("second intercept", [](CAxis3D& a) { a.SetAxisIntercept2(4); }),
      // Lines have no light, and the wall's thickness only moves labels.
      Unseen(OfAxis("colour mode", [](CAxis3D& a) { a.SetColorMode(2); })),
      OfAxis("defaults", [](CAxis3D& a) { a.InitAxisDefaults(); }),
      {"another axis", [](AxesScene& s) { s.axes.GetAxis(1)->InitAxis(&s.gl, &s.transform, 0); }},
      {"loading",
       [](AxesScene& s) {
         CAxis3D other(&s.gl, &s.transform, 1, 2, 8);
         other.SetAxisTics(5, 0.5, 2, 0.1, 0.2, 1);
         LoadFrom(*s.axes.GetAxis(1), Saved(other));
       }},
      Unseen(OfAxis("wall thickness", [](CAxis3D& a) { a.SetAxisWallThickness(0.2); })),
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
      OfFrame("attributes", [](CAxes3D& a) { a.SetAxisAttrib(1, kFrameColor, kFrameColor, 3, 2); }),
      OfFrame("colour", [](CAxes3D& a) { a.SetAxisColor(1, kFrameColor); }),
      OfFrame("tic colour", [](CAxes3D& a) { a.SetAxisTicColor(1, kFrameColor); }),
      OfFrame("thickness", [](CAxes3D& a) { a.SetAxisThickness(1, 4); }),
      OfFrame("style", [](CAxes3D& a) { a.SetAxisStyle(1, 3); }),
      OfFrame("intercepts", [](CAxes3D& a) { a.SetAxisIntercept(1, 4, 6); }),
      OfFrame("first intercept", [](CAxes3D& a) { a.SetAxisIntercept1(1, 4); }),
      OfFrame("second intercept", [](CAxes3D& a) { a.SetAxisIntercept2(1, 4); }),
      Unseen(OfFrame("colour mode", [](CAxes3D& a) { a.SetAxisColorMode(1, 2); })),
      OfFrame("an axis's colour, of all that has been set",
              [](CAxes3D& a) { a.GetAxis(2)->SetAxisColor(kFrameColor); }),
  });
}

TEST(KeptAxes, GridsAndPlanesShowAtOnce) {
  ExpectShownAtOnce({
      OfFrame("grid", [](CAxes3D& a) { a.SetPlaneGrid(2, 5, 1, kFrameColor, 3.0, 2, 0); }),
      OfFrame("grid enabled", [](CAxes3D& a) { a.EnableGrid(2, 0); }),
      OfFrame("grid attributes", [](CAxes3D& a) { a.SetPlaneGridAttrib(2, kFrameColor, 3.0, 2); }),
      OfFrame("grid colour", [](CAxes3D& a) { a.SetPlaneGridColor(2, kFrameColor); }),
      OfFrame("tics of the first axis", [](CAxes3D& a) { a.SetPlaneGridNthTic1(2, 5); }),
      OfFrame("tics of the second axis", [](CAxes3D& a) { a.SetPlaneGridNthTic2(2, 1); }),
      OfFrame("grid style", [](CAxes3D& a) { a.SetPlaneGridStyle(2, 3); }),
      OfFrame("grid thickness", [](CAxes3D& a) { a.SetPlaneGridThickness(2, 4); }),
      OfFrame("grid across the wall", [](CAxes3D& a) { a.SetPlaneGridWallFlag(1, 0); }),
      OfFrame("plane colour", [](CAxes3D& a) { a.SetPlaneColor(0, kFrameColor, kFrameDark); }),
      OfFrame("wall", [](CAxes3D& a) { a.SetWallPlane(0, kFrameColor, kFrameDark); }),
      OfFrame("plane enabled", [](CAxes3D& a) { a.EnablePlane(0, 0); }),
      OfFrame("wall enabled", [](CAxes3D& a) { a.EnableWall(1, 0); }),
      OfFrame("plane colour mode",
              [](CAxes3D& a) { a.SetPlaneColorMode(0, 1 - a.GetPlaneColorMode(0)); }),
      OfFrame("outline colour", [](CAxes3D& a) { a.SetOutlineColor(0, kFrameColor); }),
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
  constexpr int kMostDiffering = kFrameSize * kFrameSize / 800;
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
