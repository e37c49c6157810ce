#include <algorithm>
#include <cmath>

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

/// Share of the extent by which clip planes are moved towards larger values, so that what lies on
/// the upper limit isn't cut.
constexpr double kClipMargin = 0.00123456;

const float* Components(const RGBFType& color) { return &color.red; }

}  // namespace

void COpenGL::Clear(int mask) {
  SendGathered();
  glClear(static_cast<GLbitfield>(mask));
}

void COpenGL::SetClearColor(double r, double g, double b, double) {
  glClearColor(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), 0.0F);
}

void COpenGL::SetViewport(GLViewportType const& viewport) {
  SendGathered();
  m_viewport = viewport;
  const int width = std::max(viewport.width, 0);
  const int height = std::max(viewport.height, 0);
  glViewport(viewport.x, viewport.y, width, height);
  glScissor(viewport.x, viewport.y, width, height);
  glEnable(GL_SCISSOR_TEST);
}

void COpenGL::GetViewport(GLViewportType& viewport) const {
  std::array<GLint, 4> values{};
  glGetIntegerv(GL_VIEWPORT, values.data());
  viewport = {.x = values[0], .y = values[1], .width = values[2], .height = values[3]};
}

void COpenGL::SetOutputViewport(GLViewportType const& viewport) { m_outputViewport = viewport; }

void COpenGL::GetOutputViewport(GLViewportType& viewport) const { viewport = m_outputViewport; }

void COpenGL::SetColorMode(int mode) {
  m_colorMode = mode;
  if (m_recorder != nullptr) {
    m_recorder->GetState().isLit = mode != 0 ? 1 : 0;
    return;
  }
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
    orvalix::SetCapability(static_cast<GLenum>(capability), mode != 0);
  }
}

int COpenGL::GetColorMode() const { return m_colorMode; }

void COpenGL::EnableLight(int capability) {
  SendGathered();
  glEnable(static_cast<GLenum>(capability));
}

void COpenGL::SetLightComponent(int which, RGBDType const& color) {
  switch (which) {
    case GL_AMBIENT:
      m_lightAmbient = RGBDtoRGBF(color);
      break;
    case GL_DIFFUSE:
      m_lightDiffuse = RGBDtoRGBF(color);
      break;
    case GL_SPECULAR:
      m_lightSpecular = RGBDtoRGBF(color);
      break;
    case LIGHT3D_MODEL_AMBIENT:
      m_modelAmbient = RGBDtoRGBF(color);
      break;
    default:
      break;
  }
}

RGBDType COpenGL::GetLightComponent(int which) const {
  switch (which) {
    case GL_AMBIENT:
      return RGBFtoRGBD(m_lightAmbient);
    case GL_DIFFUSE:
      return RGBFtoRGBD(m_lightDiffuse);
    case GL_SPECULAR:
      return RGBFtoRGBD(m_lightSpecular);
    case LIGHT3D_MODEL_AMBIENT:
      return RGBFtoRGBD(m_modelAmbient);
    default:
      return SetRGBD(0.0, 0.0, 0.0, 0.0);
  }
}

void COpenGL::SetLightPosition(point3Dtype const& position) {
  // The chart's z-up frame is turned by -90 degrees about x on its way to OpenGL's.
  m_lightPosition = {static_cast<float>(position.x), static_cast<float>(position.z),
                     static_cast<float>(-position.y), 0.0F};
}

void COpenGL::LoadLight(int which) {
  SendGathered();
  switch (which) {
    case GL_AMBIENT:
      glLightfv(GL_LIGHT0, GL_AMBIENT, Components(m_lightAmbient));
      glLightModelfv(GL_LIGHT_MODEL_AMBIENT, Components(m_modelAmbient));
      break;
    case GL_DIFFUSE:
      glLightfv(GL_LIGHT0, GL_DIFFUSE, Components(m_lightDiffuse));
      break;
    case GL_SPECULAR:
      glLightfv(GL_LIGHT0, GL_SPECULAR, Components(m_lightSpecular));
      break;
    case GL_POSITION:
      glLightfv(GL_LIGHT0, GL_POSITION, m_lightPosition.data());
      break;
    default:
      break;
  }
}

void COpenGL::SetupShading() {
  SendGathered();
  glShadeModel(GL_SMOOTH);
  glClearDepth(1.0);
  glEnable(GL_DEPTH_TEST);
}

void COpenGL::SetClipLimits(point3Dtype const& min, point3Dtype const& max) {
  SendGathered();
  const std::array<double, 3> margin{(max.x - min.x) * kClipMargin, (max.y - min.y) * kClipMargin,
                                     (max.z - min.z) * kClipMargin};
  // Kept: y and z follow the x axis, not their own order; charts are clipped the same everywhere.
  const bool inverted = min.x > max.x;
  const point3Dtype low = inverted ? max : min;
  const point3Dtype high = inverted ? min : max;
  const std::array<double, 3> lowest{low.x, low.y, low.z};
  const std::array<double, 3> highest{high.x, high.y, high.z};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    std::array<double, 4> plane{};
    plane[axis] = 1.0;
    plane[3] = -lowest[axis] - margin[axis];
    glClipPlane(static_cast<GLenum>(GL_CLIP_PLANE0 + axis), plane.data());
    plane[axis] = -1.0;
    plane[3] = highest[axis] + margin[axis];
    glClipPlane(static_cast<GLenum>(GL_CLIP_PLANE3 + axis), plane.data());
  }
}

void COpenGL::EnableClipping(int flag) {
  m_clippingEnabled = flag != 0 ? 1 : 0;
  if (m_recorder != nullptr) {
    m_recorder->GetState().isClipped = m_clippingEnabled;
    return;
  }
  for (GLenum plane = GL_CLIP_PLANE0; plane <= GL_CLIP_PLANE5; ++plane) {
    orvalix::SetCapability(plane, flag != 0);
  }
}

void COpenGL::SendColor(RGBDType const& color) {
  m_currentColor = color;
  m_setSince |= kCurrentColor;
  if (m_recorder == nullptr) glColor3d(color.red, color.green, color.blue);
}

void COpenGL::SetFillStyle3D(RGBDType const& fill, RGBDType const& second,
                             RGBDType const& outline) {
  m_fillColor = fill;
  m_fillColor2 = second;
  m_outlineColor = outline;
  m_setSince |= kOutlineColor;
  if (FillsInFillColor()) SendColor(fill);
}

void COpenGL::SetLineStyle3D(int style, double width, RGBDType const& color) {
  SetLineStyle(style);
  SetLineWidth3D(width);
  SetLineColor3D(color);
}

void COpenGL::SetLineStyle(int style) {
  m_lineStyle = style;
  m_setSince |= kLineStyle;
}

int COpenGL::GetLineStyle() const { return m_lineStyle; }

void COpenGL::SetLineStyleFactor(int factor) { m_lineStyleFactor = factor; }

int COpenGL::GetLineStyleFactor() const { return m_lineStyleFactor; }

void COpenGL::SetLineWidth3D(double width) {
  m_lineWidth = static_cast<float>(width);
  m_setSince |= m_lineWidth > 0.0F ? kLineWidth | kStoredLineWidth : kStoredLineWidth;
}

double COpenGL::GetLineWidth3D() const { return static_cast<double>(m_lineWidth); }

void COpenGL::SetLineColor3D(RGBDType const& color) {
  m_lineColor = color;
  m_setSince |= kLineColor;
}

RGBDType COpenGL::GetLineColor3D() const { return m_lineColor; }

void COpenGL::SetPolygonOutlineMode(int mode) { m_polygonOutlineMode = mode; }

int COpenGL::GetPolygonOutlineMode() const { return m_polygonOutlineMode; }

void COpenGL::SetLineNormal(point3Dtype const& normal, int absolute) {
  m_lineNormal = normal;
  m_setSince |= kLineNormal;
  if (absolute == 0) return;
  m_lineNormal.x = std::abs(normal.x);
  m_lineNormal.y = std::abs(normal.y);
  m_lineNormal.z = std::abs(normal.z);
}

point3Dtype COpenGL::GetLineNormal() const { return m_lineNormal; }

void COpenGL::GetAxesPlaneNormal(int plane, point3Dtype& normal) const {
  switch (plane % 3) {
    case 0:
      AssignPoint3D(normal, 0.0, 0.0, 1.0);
      break;
    case 1:
      AssignPoint3D(normal, 0.0, 1.0, 0.0);
      break;
    case 2:
      AssignPoint3D(normal, 1.0, 0.0, 0.0);
      break;
    default:
      break;
  }
}
