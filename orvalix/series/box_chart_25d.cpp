#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Rows of the group data.
enum Row : std::size_t { kLowerEnd, kLowerEdge, kDivision, kUpperEdge, kUpperEnd, kSymbolValue };
constexpr std::size_t kRows = 6;

/// Group colours of parts that have no row of that number.
constexpr std::size_t kWhiskerColor = 4;

}  // namespace

void CChartObj3D::DrawBoxAndWhiskerChart25D() {
  constexpr const char* kPlace = "DrawBoxAndWhiskerChart25D";
  const std::size_t count = PointsIn({m_indData.size()});
  if (count == 0 || GroupsHeld() < kRows) return;
  m_openGL->SetLineStyle3D(m_lineStyle, m_lineWidth, GroupFill(kWhiskerColor));
  DrawUprightLines(GroupRow(kUpperEnd), GroupRow(kLowerEnd), count);

  std::vector<double> heights =
      orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, kPlace,
                                    [&] { return std::vector<double>(count, 0.0); });
  CChartObj3D part = MakePart();
  const auto drawEnd = [&](std::size_t row, std::size_t color) {
    part.PlaneChart25D(m_indData.data(), GroupRow(row).data(), m_constValue,
                       static_cast<int>(count), m_indWidth, m_constWidth, GroupFill(color),
                       m_outlineColor, 1, 1, m_indAxis);
    part.DrawAsPart();
  };
  const auto drawBox = [&](std::size_t bottom, std::size_t top, std::size_t color) {
    for (std::size_t i = 0; i < count; ++i) heights[i] = GroupRow(top)[i] - GroupRow(bottom)[i];
    part.FloatingBarChart25D(m_indData.data(), GroupRow(top).data(), heights.data(), m_constValue,
                             static_cast<int>(count), m_indWidth, m_constWidth, GroupFill(color),
                             m_outlineColor, 1, 1, m_indAxis);
    part.DrawAsPart();
  };
  if (m_comboChartFlags[0] != 0) {
    SetUpSymbols(part, kSymbolValue, m_symbol, count, kPlace);
    part.DrawAsPart();
  }
  drawEnd(kLowerEnd, 0);
  drawBox(kLowerEdge, kDivision, 1);
  drawBox(kDivision, kUpperEdge, 2);
  drawEnd(kUpperEnd, 3);
}
