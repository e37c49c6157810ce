#include <array>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

void CChartObj3D::DrawRibbonChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size()});
  if (count == 0) return;
  const int indAxis = m_indAxis == 1 ? 1 : 0;
  const int depthAxis = 1 - indAxis;
  const double gap = GetSmallGap();
  const double near =
      m_transform->CVTWS(depthAxis, m_constValue) + calcbgoffset(m_constWidth, m_constJustify);
  // Kept: the near edge, converted already, is converted once more; ribbons on a logarithmic depth
  // axis are as deep as they always were.
  const double far = m_transform->CVTWS(depthAxis, near + m_constWidth);
  m_openGL->SetFillStyle3D(m_fillColor, m_fillColor, m_outlineColor);
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 1; i < count; ++i) {
    CheckSetSegmentColor(static_cast<int>(i));
    const double za = m_transform->CVTWS(2, m_depData[i - 1]);
    const double zb = m_transform->CVTWS(2, m_depData[i]);
    const double a = m_transform->CVTWS(indAxis, m_indData[i - 1]);
    const double b = m_transform->CVTWS(indAxis, m_indData[i]) - gap;
    const std::array<point3Dtype, 5> corners{Place25D(a, near, za), Place25D(b, near, zb),
                                             Place25D(b, far, zb), Place25D(a, far, za),
                                             Place25D(a, near, za)};
    m_openGL->PolyFillAbs3D(corners.data(), static_cast<int>(corners.size()));
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawGroupRibbonChart25D() {
  if (m_groupColors.empty()) return;
  const std::size_t count = PointsIn({m_indData.size()});
  const std::size_t groups = GroupsHeld();
  std::vector<double> sums = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, "DrawGroupRibbonChart25D",
      [&] { return std::vector<double>(count, 0.0); });
  for (std::size_t g = 0; g < groups; ++g) {
    for (std::size_t i = 0; i < count; ++i) sums[i] += GroupRow(g)[i];
    CChartObj3D ribbon = MakePart();
    ribbon.RibbonChart25D(m_indData.data(), sums.data(), m_constValue, static_cast<int>(count),
                          m_constWidth, GroupFill(g), m_outlineColor, m_constJustify, m_indAxis);
    ribbon.DrawRibbonChart25D();
  }
}
