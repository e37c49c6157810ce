#include <array>
#include <cstddef>

#include "orvalix/foundation/points.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr std::array<int, 6> kAllFaces{1, 1, 1, 1, 1, 1};

/// The corners of a horizontal rectangle in the order that solids take them: (-,-), (-,+), (+,+),
/// (+,-) of (x, y).
void SetRectangle(point3Dtype* corners, double x0, double y0, double x1, double y1, double z) {
  AssignPoint3D(corners[0], x0, y0, z);
  AssignPoint3D(corners[1], x0, y1, z);
  AssignPoint3D(corners[2], x1, y1, z);
  AssignPoint3D(corners[3], x1, y0, z);
}

/// The same, centred on the z axis; 0 by 0 makes an apex.
void SetCentredRectangle(point3Dtype* corners, double w, double d, double z) {
  SetRectangle(corners, -w / 2.0, -d / 2.0, w / 2.0, d / 2.0, z);
}

/// The corners of a box centred on the z axis.
std::array<point3Dtype, 8> CentredBox(double w, double d, double bottom, double top) {
  std::array<point3Dtype, 8> corners;
  SetCentredRectangle(corners.data(), w, d, bottom);
  SetCentredRectangle(corners.data() + 4, w, d, top);
  return corners;
}

}  // namespace

void COpenGL::DrawPrism3D(double x, double y, double z, double dx, double dy, double dz,
                          RGBDType const& fill, RGBDType const& outline) {
  std::array<point3Dtype, 8> corners;
  SetRectangle(corners.data(), x, y, x + dx, y + dy, z);
  SetRectangle(corners.data() + 4, x, y, x + dx, y + dy, z + dz);
  DrawSolidObject3D(corners.data(), fill, outline, kAllFaces.data());
}

void COpenGL::DrawCube(double size, RGBDType const& fill, RGBDType const& outline) {
  DrawCubeSolidObject3D(size, size, size, fill, outline, kAllFaces.data());
}

void COpenGL::DrawCubeSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                    RGBDType const& outline, const int* faceFlags) {
  DrawSolidObject3D(CentredBox(w, d, -h / 2.0, h / 2.0).data(), fill, outline, faceFlags);
}

void COpenGL::DrawPyramidSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                       RGBDType const& outline) {
  std::array<point3Dtype, 8> points;
  SetCentredRectangle(points.data(), w, d, -h / 2.0);
  SetCentredRectangle(points.data() + 4, 0.0, 0.0, h / 2.0);
  DrawComplexObject3D(points.data(), 1, fill, outline);
}

void COpenGL::DrawDiamondSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                       RGBDType const& outline) {
  std::array<point3Dtype, 12> points;
  SetCentredRectangle(points.data(), 0.0, 0.0, -h / 2.0);
  SetCentredRectangle(points.data() + 4, w, d, 0.0);
  SetCentredRectangle(points.data() + 8, 0.0, 0.0, h / 2.0);
  DrawComplexObject3D(points.data(), 2, fill, outline);
}

void COpenGL::DrawHourglassSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                         RGBDType const& outline) {
  std::array<point3Dtype, 12> points;
  SetCentredRectangle(points.data(), w, d, -h / 2.0);
  SetCentredRectangle(points.data() + 4, w / 2.0, d / 2.0, 0.0);
  SetCentredRectangle(points.data() + 8, w, d, h / 2.0);
  DrawComplexObject3D(points.data(), 2, fill, outline);
}

void COpenGL::DrawPlusSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                    RGBDType const& outline) {
  DrawComplexObject3D(CentredBox(w / 2.0, d / 2.0, -h / 2.0, h / 2.0).data(), 1, fill, outline);
  DrawComplexObject3D(CentredBox(w, d, -h / 4.0, h / 4.0).data(), 1, fill, outline);
}

void COpenGL::DrawArrowSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                     RGBDType const& outline) {
  DrawComplexObject3D(CentredBox(w / 2.0, d / 2.0, -h / 2.0, 0.0).data(), 1, fill, outline);
  std::array<point3Dtype, 8> head;
  SetCentredRectangle(head.data(), w, d, 0.0);
  // Kept: the head is h/4 high, so that the arrow ends halfway between its middle and h/2.
  SetCentredRectangle(head.data() + 4, 0.0, d / 2.0, h / 4.0);
  DrawComplexObject3D(head.data(), 1, fill, outline);
}
