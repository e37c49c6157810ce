/// @file
/// Vertex arrays of ours beside those of the program.
#pragma once

#include <algorithm>

#include "orvalix/render/gl_api_internal.h"

namespace orvalix {

/// Keeps the program's arrays, and which buffers it has bound, while this lives; none of its arrays
/// is on meanwhile, except for attributes that only shaders read.
class OwnArrays {
 public:
  OwnArrays() {
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    for (const int array : {GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_EDGE_FLAG_ARRAY, GL_INDEX_ARRAY,
                            GL_SECONDARY_COLOR_ARRAY, GL_FOG_COORD_ARRAY}) {
      glDisableClientState(static_cast<GLenum>(array));
    }
    GLint units = 0;
    glGetIntegerv(GL_MAX_TEXTURE_COORDS, &units);
    // Ends with the first one, which is ours.
    for (GLint unit = std::max(units, 1) - 1; unit >= 0; --unit) {
      glClientActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
      glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
  }
  ~OwnArrays() { glPopClientAttrib(); }
  OwnArrays(const OwnArrays&) = delete;
  OwnArrays& operator=(const OwnArrays&) = delete;
};

}  // namespace orvalix
