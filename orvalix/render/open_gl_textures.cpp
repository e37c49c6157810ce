#include <algorithm>
#include <cstddef>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr int kTextureSize = 256;

}  // namespace

void COpenGL::SetTextureMode(int mode) {
  m_textureMode = mode;
  if (mode < 0) return;
  SendGathered();
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
  glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  // Kept: GL_CLAMP is no parameter name, so OpenGL refuses this call and textures repeat; colours
  // of values outside the range depend on it.
  glTexParameteri(GL_TEXTURE_1D, GL_CLAMP, GL_NEAREST);
}

void COpenGL::EnableTexture(int flag) {
  m_textureEnabled = flag;
  if (m_recorder != nullptr) {
    m_recorder->GetState().isTextured = flag != 0 ? 1 : 0;
    return;
  }
  orvalix::SetCapability(GL_TEXTURE_1D, flag != 0);
}

void COpenGL::UploadTexture(int size) {
  SendGathered();
  glTexImage1D(GL_TEXTURE_1D, 0, 4, size, 0, GL_RGBA, GL_UNSIGNED_BYTE, m_textureColors.data());
}

void COpenGL::SetTextureColorArray(const RGBDType* colors, double min, double max, int n) {
  if (colors == nullptr || n < 1) return;
  n = std::min(n, kTextureSize);
  int size = 2;
  while (size < n) size *= 2;
  const double ratio = static_cast<double>(size) / static_cast<double>(n);
  m_textureMinimum = min;
  m_textureMaximum = ratio * max;
  m_textureScale = 1.0 / (ratio * max - min);
  for (int i = 0; i < size; ++i) {
    m_textureColors[static_cast<std::size_t>(i)] = RGBDtoRGBB(colors[std::min(i, n - 1)]);
  }
  UploadTexture(size);
}

void COpenGL::SetTextureEndpointColors(RGBDType const& c0, RGBDType const& c1, double min,
                                       double max, int steps) {
  constexpr double kStep = 1.0 / kTextureSize;
  steps = std::max(steps, 1);
  m_textureMinimum = min;
  m_textureMaximum = max;
  m_textureScale = 1.0 / (max - min);

  m_textureColors.front() = RGBDtoRGBB(c0);
  RGBDType running = SetRGBD(c0.red, c0.green, c0.blue, 1.0);
  RGBDType shown = running;
  for (int i = 1; i < kTextureSize - 1; ++i) {
    running.red += (c1.red - c0.red) * kStep;
    running.green += (c1.green - c0.green) * kStep;
    running.blue += (c1.blue - c0.blue) * kStep;
    if ((i - 1) % steps == 0) shown = running;
    m_textureColors[static_cast<std::size_t>(i)] = RGBDtoRGBB(shown);
  }
  m_textureColors.back() = RGBDtoRGBB(c1);

  // Kept: the ramp between the colours gives way to a grey one; only their alpha survives.
  for (std::size_t i = 0; i < m_textureColors.size(); ++i) {
    const auto grey = static_cast<unsigned char>(i);
    m_textureColors[i].red = grey;
    m_textureColors[i].green = grey;
    m_textureColors[i].blue = grey;
  }
  UploadTexture(kTextureSize);
}

void COpenGL::CopyTextureArray(RGBDType* out) const {
  if (out == nullptr) return;
  std::transform(m_textureColors.begin(), m_textureColors.end(), out, RGBBtoRGBD);
}

void COpenGL::CopyXYorZtoV(point3Dtype* points, double scale, double offset, int axis,
                           int n) const {
  if (points == nullptr || axis < 0 || axis > 2) return;
  for (int i = 0; i < n; ++i) {
    point3Dtype& point = points[i];
    const double coordinate = axis == 0 ? point.x : axis == 1 ? point.y : point.z;
    point.v = (coordinate - offset) * scale;
  }
}
