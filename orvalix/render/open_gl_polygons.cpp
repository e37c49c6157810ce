#include <array>
#include <cstddef>

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"

namespace {

/// Keeps the texture coordinate of the lowest value inside the first texture entry.
constexpr double kTextureInset = 0.004;

constexpr int kCorners = 8;

struct Face {
  std::size_t flag;                    ///< index of the face's flag
  std::array<std::size_t, 4> corners;  ///< in drawing order, seen from outside counterclockwise
};

constexpr std::array<Face, 6> kFaces{{{0, {0, 3, 7, 4}},
                                      {5, {1, 5, 6, 2}},
                                      {1, {0, 4, 5, 1}},
                                      {2, {3, 2, 6, 7}},
                                      {3, {0, 1, 2, 3}},
                                      {4, {4, 7, 6, 5}}}};

}  // namespace

void COpenGL::SendTextureCoordinate(point3Dtype const& point) {
  double value = point.z;
  if (m_textureMode == 0) value = point.x;
  if (m_textureMode == 1) value = point.y;
  if (m_textureMode == 3) value = point.v;
  glTexCoord1d((value - m_textureMinimum) * m_textureScale + kTextureInset);
}

void COpenGL::PolyFillAbs3D(const point3Dtype* points, int n) {
  SetFillStyle3D(m_fillColor, m_fillColor2, m_outlineColor);
  glPolygonMode(GL_FRONT, GL_FILL);
  if (points == nullptr || n < 1 || !orvalix::ArePlaceable(points, n)) return;
  const bool outlined = m_polygonOutlineMode != 0;
  // The filled area gives way, by the depth that it covers in a pixel, to the lines on its edge.
  if (outlined) glEnable(GL_POLYGON_OFFSET_FILL);
  glBegin(GL_POLYGON);
  if (n >= 3) {
    point3Dtype normal;
    CalcNormal(points[0], points[1], points[2], normal);
    glNormal3d(normal.x, normal.y, normal.z);
  }
  for (int i = 0; i < n; ++i) {
    if (m_textureEnabled != 0) SendTextureCoordinate(points[i]);
    SendVertex(points[i]);
  }
  glEnd();
  if (!outlined) return;
  glDisable(GL_POLYGON_OFFSET_FILL);
  Frame3D(points, n);
}

void COpenGL::DrawSimpleZPlane(double width, double depth, double, RGBDType const& fill,
                               RGBDType const& outline) {
  const double x = width / 2.0;
  const double y = depth / 2.0;
  const std::array<point3Dtype, 5> corners{{{-x, -y, 0.0, 0.0},
                                            {x, -y, 0.0, 0.0},
                                            {x, y, 0.0, 0.0},
                                            {-x, y, 0.0, 0.0},
                                            {-x, -y, 0.0, 0.0}}};
  SetFillStyle3D(fill, SetRGBD(0.0, 0.0, 0.0, 1.0), outline);
  PolyFillAbs3D(corners.data(), static_cast<int>(corners.size()));
}

void COpenGL::DrawSolidObject3D(const point3Dtype* corners, RGBDType const& fill,
                                RGBDType const& outline, const int* faceFlags) {
  if (corners == nullptr || faceFlags == nullptr) return;
  if (!orvalix::ArePlaceable(corners, kCorners)) return;
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  for (const Face& face : kFaces) {
    if (faceFlags[face.flag] == 0) continue;
    std::array<point3Dtype, 5> outlined;
    for (std::size_t i = 0; i < outlined.size(); ++i) outlined[i] = corners[face.corners[i % 4]];
    SetFillStyle3D(fill, black, outline);
    PolyFillAbs3D(outlined.data(), static_cast<int>(outlined.size()));
  }
}

void COpenGL::DrawComplexObject3D(const point3Dtype* points, int n, RGBDType const& fill,
                                  RGBDType const& outline) {
  constexpr std::array<int, 6> kAllFaces{1, 1, 1, 1, 1, 1};
  if (points == nullptr) return;
  for (int k = 0; k < n; ++k) {
    DrawSolidObject3D(points + std::ptrdiff_t{4} * k, fill, outline, kAllFaces.data());
  }
}
