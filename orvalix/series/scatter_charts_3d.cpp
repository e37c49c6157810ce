#include <array>
#include <cmath>
#include <cstddef>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Kept: a symbol of size 1 is a tenth of a normalised unit large.
constexpr double kSymbolScale = 2.0 / 20.0;

/// Of texts, both ways.
constexpr int kCentred = 1;

}  // namespace

bool CChartObj3D::IsSymbol(int symbol) { return symbol >= kCube && symbol <= kArrow; }

point3Dtype CChartObj3D::ProjectOnto(int plane, double place, point3Dtype point) {
  switch (plane) {
    case 0:
    case 3:
      point.z = place;
      break;
    case 1:
    case 4:
      point.y = place;
      break;
    case 2:
    case 5:
      point.x = place;
      break;
    default:
      break;
  }
  return point;
}

void CChartObj3D::ProjectionLine(point3Dtype const& point, RGBDType const& color) {
  constexpr int kLastPlane = 5;
  m_openGL->SetLineStyle3D(m_lineStyle, 1.0, color);
  // Planes that don't exist have no line: it would begin at the point and end nowhere.
  if (m_projectionPlane >= 0 && m_projectionPlane <= kLastPlane) {
    m_openGL->LoadMatrixTransform(m_transform->GetGraphTransform());
    m_openGL->LineAbs3D(m_transform->CPTWS(point),
                        m_transform->CPTWS(ProjectOnto(m_projectionPlane, m_constValue, point)));
  }
  m_openGL->SetLineStyle3D(0, 1.0, m_fillColor);
}

void CChartObj3D::DrawSymbol(RGBDType const& fill) {
  const RGBDType& outline = m_outlineColor;
  switch (m_symbol) {
    case kCube: {
      constexpr std::array<int, 6> kAllFaces{1, 1, 1, 1, 1, 1};
      m_openGL->DrawCubeSolidObject3D(1.0, 1.0, 1.0, fill, outline, kAllFaces.data());
      break;
    }
    case kPlus:
      m_openGL->DrawPlusSolidObject3D(1.0, 1.0, 1.0, fill, outline);
      break;
    case kDiamond:
      m_openGL->DrawDiamondSolidObject3D(1.0, 1.0, 2.0, fill, outline);
      break;
    case kPyramid:
      m_openGL->DrawPyramidSolidObject3D(1.0, 1.0, 1.0, fill, outline);
      break;
    case kHourglass:
      m_openGL->DrawHourglassSolidObject3D(1.0, 1.0, 1.0, fill, outline);
      break;
    case kArrow:
      m_openGL->DrawArrowSolidObject3D(1.0, 1.0, 1.0, fill, outline);
      break;
    default:
      break;
  }
}

void CChartObj3D::DrawScatterChart3D() {
  const std::size_t count = PointsIn({m_points.size()});
  if (count == 0) return;
  const double scale = m_relSize * kSymbolScale;
  for (std::size_t i = 0; i < count; ++i) {
    const RGBDType color = SegmentFill(i);
    ProjectionLine(m_points[i], color);
    if (!IsSymbol(m_symbol) || !std::isfinite(scale)) continue;
    point3Dtype place;
    m_transform->NormalizePoint(m_points[i], place);
    if (!orvalix::IsPlaceable(place)) continue;
    m_openGL->LoadMatrixTransform(m_transform->GetFontTransform());
    m_openGL->Translate3D(place.x, place.y, place.z);
    m_openGL->Scale3D(scale, scale, scale);
    m_openGL->SetLineWidth3D(m_outlineWidth);
    DrawSymbol(color);
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawScatterText3D() {
  const std::size_t count = PointsIn({m_points.size(), m_strings.size()});
  for (std::size_t i = 0; i < count; ++i) {
    CTextObj3D text(m_openGL, m_openGL->GetFont(), m_transform, CString());
    CString string = orvalix::WithAllocationErrors(
        ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTOBJ3D, "DrawScatterText3D", [&] { return m_strings[i]; });
    text.SetString(string);
    text.SetLocation(m_points[i]);
    text.SetCharSize(m_relSize);
    text.SetTextPlane(m_textPlane);
    text.SetColor(m_fillColor);
    text.SetJustify(kCentred, kCentred);
    text.OutText();
    ProjectionLine(m_points[i], m_fillColor);
  }
}
