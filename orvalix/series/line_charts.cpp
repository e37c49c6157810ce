#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

template <class PointAt>
void CChartObj3D::DrawLineThrough(std::size_t count, PointAt pointAt) {
  if (count == 0) return;
  m_openGL->SetLineStyle3D(m_lineStyle, m_lineWidth, m_outlineColor);
  m_openGL->StartLineAbs3D(m_transform->CPTWS(pointAt(0)));
  for (std::size_t i = 1; i + 1 < count; ++i) {
    CheckSetSegmentColor(static_cast<int>(i));
    m_openGL->AppendLineAbs3D(m_transform->CPTWS(pointAt(i)));
  }
  m_openGL->EndLineAbs3D(m_transform->CPTWS(pointAt(count - 1)));
  m_openGL->SetLineStyle3D(0, 1.0, m_outlineColor);
}

void CChartObj3D::DrawLineChart25D() {
  DrawLineThrough(PointsIn({m_indData.size(), m_depData.size()}), [this](std::size_t i) {
    return m_indAxis == 0 ? point3Dtype{m_indData[i], m_constValue, m_depData[i], 0.0}
                          : point3Dtype{m_constValue, m_indData[i], m_depData[i], 0.0};
  });
}

void CChartObj3D::DrawLineChart3D() {
  DrawLineThrough(PointsIn({m_points.size()}), [this](std::size_t i) { return m_points[i]; });
}

void CChartObj3D::DrawProjectionLineChart3D() {
  m_openGL->SetFillStyle3D(m_fillColor, m_fillColor, m_outlineColor);
  DrawLineThrough(PointsIn({m_points.size()}), [this](std::size_t i) {
    return ProjectOnto(m_projectionPlane, m_constValue, m_points[i]);
  });
}
