/// @file
/// A frame of axes, and what is done to it after it was drawn.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "support/drawn_pixels.h"
#include "support/offscreen.h"

namespace orvalix::test {

inline constexpr int kFrameSize = 200;
inline constexpr RGBDType kFrameColor{0.9, 0.1, 0.5, 1};
inline constexpr RGBDType kFrameGray{0.7, 0.7, 0.7, 1};
inline constexpr RGBDType kFramePale{0.8, 0.9, 1.0, 1};
inline constexpr RGBDType kFrameDark{0.1, 0.1, 0.1, 1};

/// Axes with tics, grids on planes 0 to 2, a fill on plane 0 and a wall on plane 1.
struct AxesScene {
  AxesScene()
      : target(kFrameSize, kFrameSize),
        gl(*target.gl),
        transform(&gl, {0, 0, 0, 0}, {10, 10, 10, 0}),
        axes(&gl, &transform, {0, 0, 0, 0}, {10, 10, 10, 0}) {
    gl.RegisterFont("Arial", 0.1, 400, 0, 0, 256);
    for (const int which : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_POSITION}) gl.LoadLight(which);
    transform.SetRotate({20, 10, 30, 0});
    for (int i = 0; i < 3; ++i) {
      axes.SetAxisTics(i, 0.0, 1.0, 5, 0.02, 0.04, 0);
      axes.SetAxisIntercept(i, 5, 9);
      axes.SetPlaneGrid(i, 2, 5, kFrameGray, 1.0, 0, 1);
    }
    axes.SetPlaneColor(0, kFramePale, kFrameDark);
    axes.SetWallPlane(1, kFramePale, kFrameDark);
  }

  PixelBytes Picture() {
    ClearToWhite(gl);
    axes.DrawAxes();
    return DrawnPixels(kFrameSize, kFrameSize);
  }

  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
  CAxes3D axes;
};

/// Something that is done to a frame.
struct AxesChange {
  std::string name;
  std::function<void(AxesScene&)> apply;
  bool shows = true;
};

inline AxesChange OfFrame(const char* name, void (*apply)(CAxes3D&)) {
  return {name, [apply](AxesScene& scene) { apply(scene.axes); }};
}

/// Of the axis along y.
inline AxesChange OfAxis(const char* name, void (*apply)(CAxis3D&)) {
  return {name, [apply](AxesScene& scene) { apply(*scene.axes.GetAxis(1)); }};
}

/// Of the labels of the axis along x.
inline AxesChange OfLabels(const char* name, void (*apply)(CAxisLabels3D&)) {
  return {name, [apply](AxesScene& scene) { apply(*scene.axes.GetAxisLabels(0)); }};
}

inline AxesChange OfTransform(const char* name, void (*apply)(CTransform3D&)) {
  return {name, [apply](AxesScene& scene) { apply(scene.transform); }};
}

/// For what is only stored, and for what looks the same.
inline AxesChange Unseen(AxesChange change) {
  change.shows = false;
  return change;
}

/// Draws a frame, changes it and draws it again: it shows as one that never was otherwise, gathered
/// or one by one.
/// @param setUp of every frame
inline void ExpectShownAtOnce(
    const std::vector<AxesChange>& changes,
    const std::function<void(AxesScene&)>& setUp = [](AxesScene&) {}) {
  constexpr int kMostDiffering = kFrameSize * kFrameSize / 1000;
  for (const AxesChange& change : changes) {
    SCOPED_TRACE(change.name);
    AxesScene scene;
    setUp(scene);
    const PixelBytes before = scene.Picture();
    ASSERT_EQ(DifferingPixels(scene.Picture(), before), 0);
    change.apply(scene);
    const PixelBytes after = scene.Picture();
    AxesScene fresh;
    setUp(fresh);
    change.apply(fresh);
    EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0) << "the old drawing shows";
    EXPECT_EQ(DifferingPixels(after, before) != 0, change.shows);
    EXPECT_EQ(DifferingPixels(scene.Picture(), after), 0) << "the next frame differs";
    scene.gl.SetGathering(0);
    EXPECT_LE(DifferingPixels(scene.Picture(), after), kMostDiffering) << "one by one it differs";
  }
}

}  // namespace orvalix::test
