/// @file
/// A rendering context without a view: window, bitmap and OpenGL, as a view would put them
/// together.
#pragma once

#include <memory>

#include "orvalix/host/host.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/open_gl.h"

namespace orvalix::test {

class Offscreen {
 public:
  explicit Offscreen(int width = 200, int height = 100, int bitsPerPixel = 32) {
    window.CreateOffscreen(width, height, bitsPerPixel);
    CDC* windowDC = window.GetDC();
    memory.CreateCompatibleDC(windowDC);
    dib = std::make_unique<CDIBSection>(windowDC, &memory, width, height, bitsPerPixel);
    ::SelectObject(memory.GetSafeHdc(), dib->GetBitmapHandle());
    gl = std::make_unique<COpenGL>(windowDC, dib.get());
    window.ReleaseDC(windowDC);
    gl->SetViewport({0, 0, width, height});
    gl->SelectModelView();
  }

  CWnd window;
  std::unique_ptr<CDIBSection> dib;
  CDC memory;
  std::unique_ptr<COpenGL> gl;
};

}  // namespace orvalix::test
