/// @file
/// The pixels that OpenGL has drawn.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace orvalix::test {

/// Red, green and blue of each pixel, row by row.
using PixelBytes = std::vector<unsigned char>;

/// Makes everything white, as a chart clears its view before each frame.
inline void ClearToWhite(COpenGL& gl) {
  gl.MakeCurrent();
  glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  gl.LoadIdentity();
}

/// What the current context has drawn in its lower left corner.
inline PixelBytes DrawnPixels(int width, int height) {
  PixelBytes pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

/// How many pixels of two pictures of one size have another colour.
inline int DifferingPixels(const PixelBytes& a, const PixelBytes& b) {
  EXPECT_EQ(a.size(), b.size());
  if (a == b) return 0;  // the usual case, told at once
  int differing = 0;
  for (std::size_t i = 0; i + 2 < a.size() && i + 2 < b.size(); i += 3) {
    if (a[i] != b[i] || a[i + 1] != b[i + 1] || a[i + 2] != b[i + 2]) ++differing;
  }
  return differing;
}

}  // namespace orvalix::test
