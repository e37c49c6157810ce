/// @file
/// The declarations of OpenGL, for the implementation files of the drawing layers.
#pragma once

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

namespace orvalix {

/// Switches an OpenGL capability on or off.
inline void SetCapability(GLenum capability, bool on) {
  if (on) {
    glEnable(capability);
  } else {
    glDisable(capability);
  }
}

/// GL_RENDER, or GL_FEEDBACK or GL_SELECT, in which OpenGL tells what it would draw.
inline GLenum RenderMode() {
  GLint mode = 0;
  glGetIntegerv(GL_RENDER_MODE, &mode);
  return static_cast<GLenum>(mode);
}

/// Loads a matrix; null stands for the identity.
inline void LoadMatrix(const double* matrix) {
  if (matrix != nullptr) {
    glLoadMatrixd(matrix);
  } else {
    glLoadIdentity();
  }
}

}  // namespace orvalix
