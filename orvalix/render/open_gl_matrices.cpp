#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

void COpenGL::PushMatrix() { glPushMatrix(); }

void COpenGL::PopMatrix() { glPopMatrix(); }

void COpenGL::LoadIdentity() { glLoadIdentity(); }

void COpenGL::LoadMatrixTransform(const double* matrix) {
  if (matrix != nullptr) glLoadMatrixd(matrix);
}

void COpenGL::ReadModelViewMatrix(double* matrix) const {
  if (matrix != nullptr) glGetDoublev(GL_MODELVIEW_MATRIX, matrix);
}

void COpenGL::SelectModelView() { glMatrixMode(GL_MODELVIEW); }

void COpenGL::Rotate3D(double degrees, int axis) {
  switch (axis) {
    case 0:
      glRotated(degrees, 1.0, 0.0, 0.0);
      break;
    case 1:
      glRotated(degrees, 0.0, 1.0, 0.0);
      break;
    case 2:
      glRotated(degrees, 0.0, 0.0, 1.0);
      break;
    default:
      break;
  }
}

void COpenGL::Scale3D(double x, double y, double z) { glScaled(x, y, z); }

void COpenGL::Translate3D(double x, double y, double z) { glTranslated(x, y, z); }
