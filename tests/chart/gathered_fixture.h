/// @file
/// Headers and legends that change after they were drawn.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/drawing_state.h"
#include "support/drawn_pixels.h"

namespace orvalix::test {

inline constexpr int kPictureWidth = 240;
inline constexpr int kPictureHeight = 200;
/// Pixels at edges that may differ: one of a thousand.
inline constexpr int kMostDiffering = kPictureWidth * kPictureHeight / 1000;

/// A view that has been drawn once, so that it has a size and a font.
struct DrawnView {
  DrawnView() : on(kPictureWidth, kPictureHeight), view(*on.view), gl(*view.GetOpenGLPntr()) {
    view.EnableBorder(0);
    view.DrawViewScreen();
  }

  /// What `draw` draws over a white view.
  template <class Draw>
  PixelBytes PictureOf(Draw draw) {
    gl.MakeCurrent();
    gl.SetViewport({0, 0, kPictureWidth, kPictureHeight});
    gl.SetColorMode(0);
    gl.SetFontScaleFactor(0.2);
    ClearToWhite(gl);
    draw();
    return DrawnPixels(kPictureWidth, kPictureHeight);
  }

  ViewOn on;
  CChartView3D& view;
  COpenGL& gl;
};

/// Something that is done to a scene.
template <class Scene>
struct SceneChange {
  std::string name;
  std::function<void(Scene&)> apply;
  bool shows = true;
};

/// For what is only stored, and for what drawing sets itself.
template <class Scene>
SceneChange<Scene> Unseen(SceneChange<Scene> change) {
  change.shows = false;
  return change;
}

/// Draws a scene, changes it and draws it again: it shows as one that never was otherwise, gathered
/// or one by one, and leaves the same state to the next drawing.
template <class Scene>
void ExpectShownAtOnce(const std::vector<SceneChange<Scene>>& changes) {
  for (const SceneChange<Scene>& change : changes) {
    SCOPED_TRACE(change.name);
    Scene scene;
    const PixelBytes before = scene.Picture();
    ASSERT_EQ(DifferingPixels(scene.Picture(), before), 0);
    change.apply(scene);
    const PixelBytes after = scene.Picture();
    const std::vector<double> state = StateOf(scene.gl);
    Scene fresh;
    change.apply(fresh);
    EXPECT_EQ(DifferingPixels(after, fresh.Picture()), 0) << "the old drawing shows";
    EXPECT_EQ(DifferingPixels(after, before) != 0, change.shows);
    EXPECT_EQ(DifferingPixels(scene.Picture(), after), 0) << "the next frame differs";
    scene.gl.SetGathering(0);
    EXPECT_LE(DifferingPixels(scene.Picture(), after), kMostDiffering) << "one by one it differs";
    EXPECT_EQ(StateOf(scene.gl), state);
  }
}

}  // namespace orvalix::test
