/// @file
/// Vertex arrays of ours beside those of the program.
#pragma once

#include "orvalix/render/gl_api_internal.h"

namespace orvalix {

/// Keeps the program's arrays, and which buffers it has bound, while this lives; none of its arrays
/// is on meanwhile.
class OwnArrays {
 public:
  OwnArrays() {
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glClientActiveTexture(GL_TEXTURE0);
    for (const int array :
         {GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_EDGE_FLAG_ARRAY,
          GL_INDEX_ARRAY, GL_SECONDARY_COLOR_ARRAY, GL_FOG_COORD_ARRAY}) {
      glDisableClientState(static_cast<GLenum>(array));
    }
  }
  ~OwnArrays() { glPopClientAttrib(); }
  OwnArrays(const OwnArrays&) = delete;
  OwnArrays& operator=(const OwnArrays&) = delete;
};

}  // namespace orvalix
