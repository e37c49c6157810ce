#include <array>
#include <cstddef>

#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"

namespace {

constexpr int kCorners = 4;
/// Red, green, blue and alpha, in the words of OpenGL's first version.
constexpr int kComponents = 4;

/// Puts everything that drawing a picture changes back.
class KeptState {
 public:
  KeptState() {
    glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_POLYGON_BIT | GL_CURRENT_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
  }
  ~KeptState() {
    glPopClientAttrib();
    glPopAttrib();
  }
  KeptState(const KeptState&) = delete;
  KeptState& operator=(const KeptState&) = delete;
};

/// A texture of its own, so that nothing of a picture stays behind in OpenGL.
class TextureObject {
 public:
  TextureObject() {
    glGenTextures(1, &m_name);
    glBindTexture(GL_TEXTURE_2D, m_name);
  }
  ~TextureObject() { glDeleteTextures(1, &m_name); }
  TextureObject(const TextureObject&) = delete;
  TextureObject& operator=(const TextureObject&) = delete;

 private:
  GLuint m_name = 0;
};

/// Uploads the picture into the bound texture; false when OpenGL doesn't take it.
bool Upload(const unsigned char* rgba, int width, int height) {
  GLint largest = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
  if (width > largest || height > largest) return false;
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexImage2D(GL_TEXTURE_2D, 0, kComponents, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
  GLint uploaded = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &uploaded);
  return uploaded == width;
}

}  // namespace

void COpenGL::DrawPictureQuad(const unsigned char* rgba, int width, int height,
                              const point3Dtype* corners, int repeatX, int repeatY) {
  if (rgba == nullptr || width < 1 || height < 1 || corners == nullptr) return;
  if (!orvalix::ArePlaceable(corners, kCorners)) return;
  SendGathered();
  const KeptState state;
  const TextureObject texture;
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
  glEnable(GL_TEXTURE_2D);
  if (!Upload(rgba, width, height)) return;

  const std::array<std::array<int, 2>, kCorners> coordinates{
      {{0, 0}, {0, repeatY}, {repeatX, repeatY}, {repeatX, 0}}};
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glBegin(GL_QUADS);
  glNormal3d(0.0, 1.0, 0.0);
  for (std::size_t i = 0; i < kCorners; ++i) {
    glTexCoord2i(coordinates[i][0], coordinates[i][1]);
    SendVertex(corners[i]);
  }
  glEnd();
}
