#include <array>

#include "orvalix/render/flat_faces_internal.h"
#include "orvalix/render/gl_api_internal.h"

namespace orvalix {

bool AreFacesFlat() {
  GLint program = 0;
  glGetIntegerv(GL_CURRENT_PROGRAM, &program);
  if (program != 0 || glIsEnabled(GL_TEXTURE_GEN_S) != GL_FALSE) return false;
  GLint isViewerLocal = GL_FALSE;
  glGetIntegerv(GL_LIGHT_MODEL_LOCAL_VIEWER, &isViewerLocal);
  if (isViewerLocal != GL_FALSE) return false;
  GLint lights = 0;
  glGetIntegerv(GL_MAX_LIGHTS, &lights);
  for (GLint i = 0; i < lights; ++i) {
    const GLenum light = GL_LIGHT0 + static_cast<GLenum>(i);
    // The first one is on while lit faces are drawn.
    if (i > 0 && glIsEnabled(light) == GL_FALSE) continue;
    std::array<GLfloat, 4> position{};
    glGetLightfv(light, GL_POSITION, position.data());
    if (position[3] != 0.0F) return false;
  }
  return true;
}

}  // namespace orvalix
