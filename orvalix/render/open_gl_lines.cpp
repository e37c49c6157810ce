#include <cmath>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"

void COpenGL::SendLineWidth() {
  // OpenGL itself refuses widths that aren't positive; an undefined one never reaches it.
  if (!(m_lineWidth > 0.0F)) return;
  m_sentLineWidth = m_lineWidth;
  glLineWidth(m_lineWidth);
}

unsigned short COpenGL::StippleOf(int style) const {
  const bool known = style >= 0 && style < static_cast<int>(m_stipples.size());
  return m_stipples[known ? static_cast<std::size_t>(style) : 0];
}

void COpenGL::SendStipple(int style) { glLineStipple(m_lineStyleFactor, StippleOf(style)); }

void COpenGL::SendVertex(point3Dtype const& point) { glVertex3d(point.x, point.y, point.z); }

void COpenGL::BeginLine() {
  // A line has a colour of its own, not that of the vertex that was coloured by value last.
  if (m_textureEnabled != 0) glDisable(GL_TEXTURE_1D);
  glEnable(GL_LINE_STIPPLE);
  m_savedColorMode = m_colorMode;
  SetColorMode(0);
  SendColor(m_lineColor);
  SendLineWidth();
  SendStipple(m_lineStyle);
}

void COpenGL::EndLine() {
  glDisable(GL_LINE_STIPPLE);
  SetColorMode(m_savedColorMode);
  if (m_textureEnabled != 0) glEnable(GL_TEXTURE_1D);
}

void COpenGL::LineAbs3D(point3Dtype const& a, point3Dtype const& b) {
  if (m_recorder != nullptr) {
    RecordLine(a, b);
    return;
  }
  BeginLine();
  if (orvalix::IsPlaceable(a) && orvalix::IsPlaceable(b)) {
    glBegin(GL_LINES);
    SendVertex(a);
    SendVertex(b);
    glEnd();
  }
  EndLine();
}

void COpenGL::StartLineAbs3D(point3Dtype const& point) {
  if (m_lineIsOpen) FinishLine();
  m_lineIsOpen = true;
  if (m_recorder != nullptr) {
    StartRecordedLine();
    SendLinePoint(point);
    return;
  }
  BeginLine();
  glShadeModel(GL_FLAT);  // each line has the colour of its end
  glBegin(GL_LINE_STRIP);
  SendLinePoint(point);
}

void COpenGL::AppendLineAbs3D(point3Dtype const& point) {
  if (m_lineIsOpen) SendLinePoint(point);
}

void COpenGL::EndLineAbs3D(point3Dtype const& point) {
  if (!m_lineIsOpen) return;
  SendLinePoint(point);
  FinishLine();
}

void COpenGL::FinishLine() {
  if (m_recorder != nullptr) {
    m_lineIsOpen = false;
    SetColorMode(m_savedColorMode);
    return;
  }
  glEnd();
  glShadeModel(GL_SMOOTH);
  m_lineIsOpen = false;
  EndLine();
}

void COpenGL::SendLinePoint(point3Dtype const& point) {
  if (m_recorder != nullptr) {
    RecordLinePoint(point);
    return;
  }
  if (orvalix::IsPlaceable(point)) {
    SendVertex(point);
    return;
  }
  // The line goes on behind the gap.
  glEnd();
  glBegin(GL_LINE_STRIP);
}

void COpenGL::BeginOutline(RGBDType const& color) {
  if (m_textureEnabled != 0) glDisable(GL_TEXTURE_1D);
  SendLineWidth();
  SendStipple(0);
  m_savedColorMode = m_colorMode;
  SetColorMode(0);
  SendColor(color);
}

void COpenGL::EndOutline() {
  SendStipple(m_lineStyle);
  SetColorMode(m_savedColorMode);
  if (m_textureEnabled != 0) glEnable(GL_TEXTURE_1D);
}

void COpenGL::PolyAbs3D(const point3Dtype* points, int n) {
  if (points == nullptr) return;
  SendGathered();
  BeginOutline(m_lineColor);
  glPolygonMode(GL_FRONT, GL_LINE);
  if (orvalix::ArePlaceable(points, n)) {
    glBegin(GL_POLYGON);
    for (int i = 0; i < n; ++i) SendVertex(points[i]);
    glEnd();
  }
  glPolygonMode(GL_FRONT, GL_FILL);
  EndOutline();
}

void COpenGL::Frame3D(const point3Dtype* points, int n) {
  if (points == nullptr || n < 1) return;
  if (m_recorder != nullptr) {
    RecordFrame(points, n);
    return;
  }
  BeginOutline(m_outlineColor);
  glBegin(GL_LINE_STRIP);
  for (int i = 0; i < n; ++i) SendLinePoint(points[i]);
  glEnd();
  EndOutline();
}
