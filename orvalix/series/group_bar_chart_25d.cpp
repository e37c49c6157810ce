#include <algorithm>
#include <cmath>

#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

constexpr int kSideBySide = 0;
constexpr int kStacked = 1;

}  // namespace

void CChartObj3D::DrawGroupBarChart25D() {
  const bool stacked = m_groupType == kStacked;
  if (!stacked && m_groupType != kSideBySide) return;
  if (m_groupColors.empty()) return;
  const std::size_t count = PointsIn({m_indData.size()});
  const std::size_t groups = GroupsHeld();
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 0; i < count; ++i) {
    double sum = 0.0;
    for (std::size_t g = 0; g < groups; ++g) {
      const double value = GroupRow(g)[i];
      if (stacked) {
        const double from = m_transform->CVTWS(2, sum);
        sum += value;
        const double to = m_transform->CVTWS(2, sum);
        DrawGroupBar(m_indData[i], m_indWidth, std::min(from, to), std::abs(to - from), g);
      } else {
        // Groups without values keep their slots.
        const double slot = m_indWidth / static_cast<double>(m_numGroups);
        DrawGroupBar(m_indData[i] + static_cast<double>(g) * slot, slot,
                     m_transform->CVTWS(2, m_baseValue), std::abs(m_transform->CVTWS(2, value)), g);
      }
    }
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawGroupBar(double ind, double width, double z, double dz, std::size_t group) {
  const point3Dtype from = m_transform->CPTWS(Place25D(ind, m_constValue, 0.0));
  const point3Dtype to =
      m_transform->CPTWS(Place25D(ind + width, m_constValue + m_constWidth, 0.0));
  const point3Dtype offset = Place25D(calcbgoffset(m_indWidth, m_indJustify),
                                      calcbgoffset(m_constWidth, m_constJustify), 0.0);
  m_openGL->DrawPrism3D(from.x + offset.x, from.y + offset.y, z, std::abs(to.x - from.x),
                        std::abs(to.y - from.y), dz, GroupFill(group), m_outlineColor);
}
