#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

// What the types that draw several rows of values at once, or themselves by other types, share.

std::size_t CChartObj3D::GroupsHeld() const {
  if (m_numGroups < 1 || m_numDataPnts < 1) return 0;
  const std::size_t rows = m_groupData.size() / static_cast<std::size_t>(m_numDataPnts);
  return std::min(rows, static_cast<std::size_t>(m_numGroups));
}

std::span<const double> CChartObj3D::GroupRow(std::size_t group) const {
  const auto points = static_cast<std::size_t>(m_numDataPnts);
  return std::span(m_groupData).subspan(group * points, points);
}

const RGBDType& CChartObj3D::GroupFill(std::size_t group) const {
  return group < m_groupColors.size() ? m_groupColors[group] : m_fillColor;
}

CChartObj3D CChartObj3D::MakePart() const {
  CChartObj3D part(m_openGL, m_transform);
  part.m_outlineWidth = m_outlineWidth;
  part.m_outlineMode = m_outlineMode;
  part.m_colorMode = m_colorMode;
  part.m_clipping = m_clipping;
  part.m_planeThickness = m_planeThickness;
  part.m_fillGap = m_fillGap;
  return part;
}

void CChartObj3D::SetUpSymbols(CChartObj3D& part, std::size_t row, int symbol, std::size_t count,
                               const char* place) const {
  constexpr int kNoPlane = -1;
  const std::span<const double> values = GroupRow(row);
  const std::vector<point3Dtype> points =
      orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, place, [&] {
        std::vector<point3Dtype> made(count);
        for (std::size_t i = 0; i < count; ++i) {
          made[i] = Place25D(m_indData[i], m_constValue, values[i]);
        }
        return made;
      });
  part.ScatterChart3D(points.data(), m_relSize, static_cast<int>(count), symbol, GroupFill(row),
                      m_outlineColor, kNoPlane, 0.0);
}

void CChartObj3D::DrawUprightLines(std::span<const double> from, std::span<const double> to,
                                   std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    m_openGL->LineAbs3D(m_transform->CPTWS(Place25D(m_indData[i], m_constValue, from[i])),
                        m_transform->CPTWS(Place25D(m_indData[i], m_constValue, to[i])));
  }
}
