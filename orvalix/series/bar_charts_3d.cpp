#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

void CChartObj3D::DrawBarChart3D() {
  const std::size_t count = PointsIn({m_points.size()});
  const double dx = m_transform->CVTWS(0, m_indWidth);
  const double dy = m_transform->CVTWS(1, m_constWidth);
  for (std::size_t i = 0; i < count; ++i) {
    const double height = i < m_barHeights.size() ? m_barHeights[i] : 0.0;
    const double z = m_transform->CVTWS(2, height);
    const point3Dtype point = m_transform->CPTWS(m_points[i]);
    m_openGL->DrawPrism3D(point.x, point.y, z, dx, dy, point.z - z, SegmentFill(i), m_outlineColor);
  }
}

void CChartObj3D::DrawPlaneChart3D() {
  const std::size_t count = PointsIn({m_points.size()});
  const double dx = m_transform->CVTWS(0, m_indWidth);
  const double dy = m_transform->CVTWS(1, m_constWidth);
  const double thickness = m_planeThickness * m_transform->GetWorkingRange().z;
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    const point3Dtype point = m_transform->CPTWS(m_points[i]);
    m_openGL->DrawPrism3D(point.x, point.y, point.z, dx, dy, thickness, SegmentFill(i),
                          m_outlineColor);
  }
  m_openGL->SetLineWidth3D(1.0);
}
