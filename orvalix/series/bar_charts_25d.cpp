#include <algorithm>
#include <cstddef>

#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

void CChartObj3D::DrawBarChart25D() {
  if (m_indData.empty() || m_depData.empty()) return;
  const double dx = m_indAxis != 0 ? m_constWidth : m_indWidth;
  const double dy = m_indAxis == 1 ? m_indWidth : m_constWidth;
  const double z = m_transform->CVTWS(2, m_baseValue);
  const double indOffset = calcbgoffset(m_indWidth, m_indJustify);
  const double constOffset = calcbgoffset(m_constWidth, m_constJustify);
  const std::size_t count = std::min(
      {static_cast<std::size_t>(std::max(m_numDataPnts, 0)), m_indData.size(), m_depData.size()});
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    const double dz = m_transform->CVTWS(2, m_depData[i] - m_baseValue);
    const bool hasOwnColor = m_segmentColorMode != 0 && i < m_segmentColors.size();
    const RGBDType& fill = hasOwnColor ? m_segmentColors[i] : m_fillColor;
    if (m_indAxis == 1) {
      m_openGL->DrawPrism3D(m_transform->CVTWS(0, m_constValue) + constOffset,
                            m_transform->CVTWS(1, m_indData[i]) + indOffset, z, dx, dy, dz, fill,
                            m_outlineColor);
    } else {
      m_openGL->DrawPrism3D(m_transform->CVTWS(0, m_indData[i]) + indOffset,
                            m_transform->CVTWS(1, m_constValue) + constOffset, z, dx, dy, dz, fill,
                            m_outlineColor);
    }
  }
  m_openGL->SetLineWidth3D(1.0);
}
