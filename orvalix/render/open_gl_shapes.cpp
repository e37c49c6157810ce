#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/shapes.h"

namespace {

void DrawSolid(int type, point3Dtype const& size) {
  switch (type) {
    case CAuxObj3D::kSphere:
      return auxSolidSphere(size.x);
    case CAuxObj3D::kCube:
      return auxSolidCube(size.x);
    case CAuxObj3D::kBox:
      return auxSolidBox(size.x, size.y, size.z);
    case CAuxObj3D::kTorus:
      return auxSolidTorus(size.x, size.y);
    case CAuxObj3D::kCylinder:
      return auxSolidCylinder(size.x, size.y);
    case CAuxObj3D::kIcosahedron:
      return auxSolidIcosahedron(size.x);
    case CAuxObj3D::kOctahedron:
      return auxSolidOctahedron(size.x);
    case CAuxObj3D::kTetrahedron:
      return auxSolidTetrahedron(size.x);
    case CAuxObj3D::kDodecahedron:
      return auxSolidDodecahedron(size.x);
    case CAuxObj3D::kCone:
      return auxSolidCone(size.x, size.y);
    default:
      return;
  }
}

void DrawWire(int type, point3Dtype const& size) {
  switch (type) {
    case CAuxObj3D::kSphere:
      return auxWireSphere(size.x);
    case CAuxObj3D::kCube:
      return auxWireCube(size.x);
    case CAuxObj3D::kBox:
      return auxWireBox(size.x, size.y, size.z);
    case CAuxObj3D::kTorus:
      return auxWireTorus(size.x, size.y);
    case CAuxObj3D::kCylinder:
      return auxWireCylinder(size.x, size.y);
    case CAuxObj3D::kIcosahedron:
      return auxWireIcosahedron(size.x);
    case CAuxObj3D::kOctahedron:
      return auxWireOctahedron(size.x);
    case CAuxObj3D::kTetrahedron:
      return auxWireTetrahedron(size.x);
    case CAuxObj3D::kDodecahedron:
      return auxWireDodecahedron(size.x);
    case CAuxObj3D::kCone:
      return auxWireCone(size.x, size.y);
    default:
      return;
  }
}

}  // namespace

void COpenGL::DrawAuxObject(int type, int solid, point3Dtype const& size) {
  SendGathered();
  const int colorMode = m_colorMode;
  if (solid != 0) {
    SetFillStyle3D(m_fillColor, m_fillColor2, m_outlineColor);
    DrawSolid(type, size);
  } else {
    SetColorMode(0);
    SendColor(m_lineColor);
    SendLineWidth();
    DrawWire(type, size);
  }
  SetColorMode(colorMode);
}
