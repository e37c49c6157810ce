#include <cmath>
#include <cstddef>

#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Rows of the group data, and flags of the parts that show them.
enum Row : std::size_t { kOpen, kHigh, kLow, kClose };
constexpr std::size_t kLineFlag = 4;
constexpr std::size_t kRows = 4;

/// Kept: planes and tics take this share of the scale for each unit of size.
constexpr double kSizeDivisor = 10.0;

}  // namespace

void CChartObj3D::DrawOHLCChart25D() {
  constexpr const char* kPlace = "DrawOHLCChart25D";
  const std::size_t count = PointsIn({m_indData.size()});
  if (count == 0 || GroupsHeld() < kRows || m_groupColors.empty()) return;
  const auto enabled = [this](std::size_t part) { return m_comboChartFlags[part] != 0; };
  const point3Dtype range = m_transform->GetRange();
  const double sizeX = m_relSize / kSizeDivisor * range.x;
  const double sizeY = m_relSize / kSizeDivisor * range.y;
  const double along = m_indAxis == 1 ? sizeY : sizeX;
  const double across = m_indAxis == 1 ? sizeX : sizeY;

  if (enabled(kLineFlag)) {
    m_openGL->SetLineStyle3D(m_lineStyle, m_lineWidth, m_ohlcLineColor);
    DrawUprightLines(GroupRow(kHigh), GroupRow(kLow), count);
  }
  // Before the parts, which leave another transform in force.
  if (enabled(kOpen) && !IsSymbol(m_symbol)) DrawTics(kOpen, -1.0, count);
  if (enabled(kClose) && !IsSymbol(m_symbol2)) DrawTics(kClose, 1.0, count);
  const auto drawSymbols = [&](std::size_t row, int symbol) {
    if (!enabled(row)) return;
    CChartObj3D symbols = MakePart();
    SetUpSymbols(symbols, row, symbol, count, kPlace);
    symbols.DrawAsPart();
  };
  drawSymbols(kOpen, m_symbol);
  for (const std::size_t row : {kHigh, kLow}) {
    if (!enabled(row)) continue;
    CChartObj3D planes = MakePart();
    planes.PlaneChart25D(m_indData.data(), GroupRow(row).data(), m_constValue,
                         static_cast<int>(count), along, across, GroupFill(row), m_outlineColor, 1,
                         1, m_indAxis);
    planes.DrawAsPart();
  }
  drawSymbols(kClose, m_symbol2);
  m_openGL->SetLineStyle3D(0, 1.0, RGBDType{0.0, 0.0, 0.0, 1.0});
}

void CChartObj3D::DrawTics(std::size_t row, double direction, std::size_t count) {
  const std::span<const double> values = GroupRow(row);
  const double size = m_relSize / kSizeDivisor * m_transform->GetAxisWorkingRange(m_indAxis == 1);
  const double length = std::copysign(size / 2.0, direction);
  m_openGL->SetLineStyle3D(m_lineStyle, m_lineWidth, GroupFill(row));
  for (std::size_t i = 0; i < count; ++i) {
    const point3Dtype from = m_transform->CPTWS(Place25D(m_indData[i], m_constValue, values[i]));
    point3Dtype to = from;
    (m_indAxis == 1 ? to.y : to.x) += length;
    m_openGL->LineAbs3D(from, to);
  }
}
