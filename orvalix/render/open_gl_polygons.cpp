#include <algorithm>
#include <array>
#include <cstddef>

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/pushed_back_internal.h"
#include "orvalix/render/solid_faces_internal.h"
#include "orvalix/render/view_direction_internal.h"

namespace {

using orvalix::SideView;

/// Keeps the texture coordinate of the lowest value inside the first texture entry.
constexpr double kTextureInset = 0.004;

constexpr int kCorners = 8;
constexpr int kFaces = 6;

/// How the faces of a solid are drawn; one that isn't closed has no inside.
std::array<SideView, kFaces> ViewsOfSides(const point3Dtype* corners, bool isCutAnywhere) {
  std::array<point3Dtype, kCorners> solid;
  std::copy_n(corners, kCorners, solid.begin());
  const orvalix::SolidSides sides = orvalix::FindSides(solid);
  std::array<SideView, kFaces> views{};
  if (!sides.isClosed) return views;
  orvalix::Extent extent;
  for (const point3Dtype& corner : solid) extent.Include(corner);
  const std::array<double, 16> matrix = orvalix::ToClipSpace();
  const bool isCut = isCutAnywhere || orvalix::IsCutInFront(matrix, extent);
  for (std::size_t i = 0; i < views.size(); ++i) {
    if (sides.hasNoArea[i]) continue;
    views[i] = orvalix::ViewOfSide(orvalix::LooksAway(matrix, sides.outward[i]), isCut);
  }
  return views;
}

}  // namespace

double COpenGL::TextureCoordinate(point3Dtype const& point) const {
  double value = point.z;
  if (m_textureMode == 0) value = point.x;
  if (m_textureMode == 1) value = point.y;
  if (m_textureMode == 3) value = point.v;
  return (value - m_textureMinimum) * m_textureScale + kTextureInset;
}

void COpenGL::PolyFillAbs3D(const point3Dtype* points, int n) { FillPolygon(points, n, false); }

void COpenGL::FillPolygon(const point3Dtype* points, int n, bool isBehind) {
  SetFillStyle3D(m_fillColor, m_fillColor2, m_outlineColor);
  if (m_recorder == nullptr) glPolygonMode(GL_FRONT, GL_FILL);
  if (points == nullptr || n < 1 || !orvalix::ArePlaceable(points, n)) return;
  if (m_recorder != nullptr) {
    RecordPolygon(points, n);
    return;
  }
  const bool outlined = m_polygonOutlineMode != 0;
  {
    const orvalix::PushedBack pushedBack(outlined, isBehind);
    glBegin(GL_POLYGON);
    if (n >= 3) {
      point3Dtype normal;
      CalcNormal(points[0], points[1], points[2], normal);
      glNormal3d(normal.x, normal.y, normal.z);
    }
    for (int i = 0; i < n; ++i) {
      if (m_textureEnabled != 0) glTexCoord1d(TextureCoordinate(points[i]));
      SendVertex(points[i]);
    }
    glEnd();
  }
  if (outlined) Frame3D(points, n);
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
  const bool isWhole = std::count(faceFlags, faceFlags + kFaces, 0) == 0;
  if (m_recorder != nullptr && isWhole) {
    SetFillStyle3D(fill, black, outline);
    RecordSolid(corners);
    return;
  }
  // Single pixels of far sides would be seen at the outlines. Where clip planes open solids, what
  // they show inside is a matter of the order too.
  const bool tellsFarSides = isWhole && m_tellsFarSides && m_clippingEnabled == 0;
  const std::array<SideView, kFaces> views =
      tellsFarSides ? ViewsOfSides(corners, m_isCutAnywhere) : std::array<SideView, kFaces>{};
  for (std::size_t k = 0; k < orvalix::kSolidFaces.size(); ++k) {
    const orvalix::SolidFace& face = orvalix::kSolidFaces[k];
    if (faceFlags[face.flag] == 0) continue;
    SetFillStyle3D(fill, black, outline);
    if (views[k] == SideView::kNotSeen) {
      if (m_polygonOutlineMode != 0) SendColor(m_outlineColor);  // as if it had been drawn
      continue;
    }
    std::array<point3Dtype, 5> outlined;
    for (std::size_t i = 0; i < outlined.size(); ++i) outlined[i] = corners[face.corners[i % 4]];
    FillPolygon(outlined.data(), static_cast<int>(outlined.size()), views[k] == SideView::kBehind);
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
