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

}  // namespace orvalix
