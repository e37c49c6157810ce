/// @file
/// Drawing that is gathered, against the same drawn one by one.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/kept_drawing_internal.h"
#include "orvalix/render/transform_3d.h"
#include "support/drawing_state.h"
#include "support/drawn_pixels.h"
#include "support/offscreen.h"

namespace orvalix::test {

inline constexpr int kGatheredSize = 200;
/// Pixels at edges that may differ: one of a thousand.
inline constexpr int kMostDiffering = kGatheredSize * kGatheredSize / 1000;

/// A lit target that looks at the box from (0, 0, 0) to (10, 10, 10), turned.
class GatheredScene {
 public:
  using Work = std::function<void(COpenGL&)>;

  explicit GatheredScene(int gathering = 1)
      : target(kGatheredSize, kGatheredSize),
        gl(*target.gl),
        transform(&gl, {0, 0, 0, 0}, {10, 10, 10, 0}) {
    for (const int which : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_POSITION}) gl.LoadLight(which);
    gl.SetGathering(gathering);
    transform.SetRotate({20, 10, 30, 0});
    Clear();
  }

  void Clear() { ClearToWhite(gl); }
  /// Draws through the chart's matrix, as series do, keeping what was drawn.
  void Keep(const Work& work) {
    Prepare();
    orvalix::DrawKeeping(
        slot, gl, [] { return std::vector<double>{}; },
        [&] {
          gl.LoadMatrixTransform(transform.GetGraphTransform());
          work(gl);
        });
  }
  /// Draws through the texts' matrix, as legends do.
  void Gather(const Work& work) {
    Prepare();
    transform.TextTransform();
    orvalix::DrawTexts(texts, gl, transform.GetFontTransform(), [&] { work(gl); });
  }
  static PixelBytes Pixels() { return DrawnPixels(kGatheredSize, kGatheredSize); }
  PixelBytes Kept(const Work& work) {
    Clear();
    Keep(work);
    return Pixels();
  }
  PixelBytes Gathered(const Work& work) {
    Clear();
    Gather(work);
    return Pixels();
  }

  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
  orvalix::KeptDrawingSlot slot;
  orvalix::KeptDrawingSlot texts;

 private:
  void Prepare() {
    transform.ChartTransform();
    gl.SetColorMode(1);
    gl.SetPolygonOutlineMode(1);
    gl.SetLineStyle3D(0, 1.0, {0, 0, 0, 1});
  }
};

}  // namespace orvalix::test
