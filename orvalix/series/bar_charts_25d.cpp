#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

void CChartObj3D::DrawPrismAt(double ind, double z, const Footprint& footprint, double dz,
                              RGBDType const& fill) {
  double x = m_transform->CVTWS(0, m_indAxis == 1 ? m_constValue : ind);
  double y = m_transform->CVTWS(1, m_indAxis == 1 ? ind : m_constValue);
  (m_indAxis == 1 ? y : x) += calcbgoffset(m_indWidth, m_indJustify);
  (m_indAxis == 1 ? x : y) += calcbgoffset(m_constWidth, m_constJustify);
  m_openGL->DrawPrism3D(x, y, z, footprint.dx, footprint.dy, dz, fill, m_outlineColor);
}

CChartObj3D::Footprint CChartObj3D::StoredFootprint() const {
  return {.dx = m_indAxis != 0 ? m_constWidth : m_indWidth,
          .dy = m_indAxis == 1 ? m_indWidth : m_constWidth};
}

void CChartObj3D::DrawBarChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size()});
  if (count == 0) return;
  const double z = m_transform->CVTWS(2, m_baseValue);
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    const double dz = m_transform->CVTWS(2, m_depData[i] - m_baseValue);
    DrawPrismAt(m_indData[i], z, StoredFootprint(), dz, SegmentFill(i));
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawFloatingBarChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size(), m_barHeights.size()});
  if (count == 0) return;
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    const double height = m_transform->CVTWS(2, m_barHeights[i]);
    const double top = m_transform->CVTWS(2, m_depData[i]);
    DrawPrismAt(m_indData[i], top - height, StoredFootprint(), height, SegmentFill(i));
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawPlaneChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size()});
  if (count == 0) return;
  Footprint footprint = StoredFootprint();
  footprint.dx = m_transform->CVTWS(0, footprint.dx);
  footprint.dy = m_transform->CVTWS(1, footprint.dy);
  const double thickness = m_planeThickness * m_transform->GetWorkingRange().z;
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    DrawPrismAt(m_indData[i], m_transform->CVTWS(2, m_depData[i]), footprint, thickness,
                SegmentFill(i));
  }
  m_openGL->SetLineWidth3D(1.0);
}
