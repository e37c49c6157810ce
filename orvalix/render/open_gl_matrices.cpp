#include <array>
#include <cmath>
#include <numbers>

#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

using Matrix = std::array<double, 16>;

/// Columns of a turn about x (0), y (1) or z (2).
Matrix Turn(double degrees, int axis) {
  constexpr double kDegreesPerHalfTurn = 180.0;
  const double angle = degrees * std::numbers::pi / kDegreesPerHalfTurn;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  if (axis == 0) return {1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1};
  if (axis == 1) return {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1};
  return {c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix Projection() {
  Matrix projection{};
  glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
  return projection;
}

}  // namespace

void COpenGL::PushMatrix() {
  if (m_recorder != nullptr) {
    m_recorder->PushMatrix();
  } else {
    glPushMatrix();
  }
}

void COpenGL::PopMatrix() {
  if (m_recorder != nullptr) {
    m_recorder->PopMatrix();
  } else {
    glPopMatrix();
  }
}

void COpenGL::LoadIdentity() {
  if (m_recorder != nullptr) {
    m_recorder->LoadMatrix(nullptr);
  } else {
    glLoadIdentity();
  }
}

void COpenGL::LoadMatrixTransform(const double* matrix) {
  if (matrix == nullptr) return;
  if (m_recorder != nullptr) {
    m_recorder->LoadMatrix(matrix);
  } else {
    glLoadMatrixd(matrix);
  }
}

void COpenGL::ReadModelViewMatrix(double* matrix) {
  SendGathered();
  if (matrix != nullptr) glGetDoublev(GL_MODELVIEW_MATRIX, matrix);
}

void COpenGL::SelectModelView() {
  // Whoever gathers has selected it before.
  if (m_recorder == nullptr) glMatrixMode(GL_MODELVIEW);
}

void COpenGL::SetMagnification(double factor, double x, double y) {
  const bool isUsable = factor > 0.0 && std::isfinite(factor * x) && std::isfinite(factor * y);
  const bool magnifies = isUsable && (factor != 1.0 || x != 0.0 || y != 0.0);
  if (!magnifies && !m_isMagnified) return;
  SendGathered();
  glMatrixMode(GL_PROJECTION);
  const Matrix found = Projection();
  if (!m_isMagnified || found != m_magnified) m_unmagnified = found;
  // A program that selects has a projection that picks out of what is on the screen.
  const bool picks = orvalix::RenderMode() == GL_SELECT;
  glLoadIdentity();
  if (picks) glMultMatrixd(m_unmagnified.data());
  if (magnifies) {
    glScaled(factor, factor, 1.0);
    glTranslated(-x, -y, 0.0);
  }
  if (!picks) glMultMatrixd(m_unmagnified.data());
  m_magnified = Projection();
  glMatrixMode(GL_MODELVIEW);
  m_isMagnified = magnifies;
}

void COpenGL::Rotate3D(double degrees, int axis) {
  if (axis < 0 || axis > 2) return;
  if (m_recorder != nullptr) {
    m_recorder->Multiply(Turn(degrees, axis));
  } else {
    glRotated(degrees, axis == 0 ? 1.0 : 0.0, axis == 1 ? 1.0 : 0.0, axis == 2 ? 1.0 : 0.0);
  }
}

void COpenGL::Scale3D(double x, double y, double z) {
  if (m_recorder != nullptr) {
    m_recorder->Multiply({x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1});
  } else {
    glScaled(x, y, z);
  }
}

void COpenGL::Translate3D(double x, double y, double z) {
  if (m_recorder != nullptr) {
    m_recorder->Multiply({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1});
  } else {
    glTranslated(x, y, z);
  }
}
