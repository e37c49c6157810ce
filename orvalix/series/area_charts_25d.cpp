#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Share of the working range that counts as lying on the base value.
constexpr double kToleranceDivisor = 500.0;

constexpr std::array<int, 6> kAllFaces{1, 1, 1, 1, 1, 1};

struct OutlinePoint {
  double ind;
  double dep;
};

/// True when the values reach the level from both sides, or lie on it.
bool Crosses(double before, double after, double level) {
  return std::isfinite(before) && std::isfinite(after) && before != after &&
         !(before > level && after > level) && !(before < level && after < level);
}

/// The points of a series, with one more wherever it crosses the base value.
std::vector<OutlinePoint> RefineOutline(const std::vector<double>& ind,
                                        const std::vector<double>& dep, std::size_t count,
                                        double base, double level) {
  std::vector<OutlinePoint> outline;
  outline.reserve(2 * count);
  outline.push_back({ind[0], dep[0]});
  for (std::size_t i = 1; i < count; ++i) {
    if (Crosses(dep[i - 1], dep[i], level)) {
      // The level lies a little below the base: near it, the base isn't between the two.
      const double share = std::clamp((dep[i - 1] - base) / (dep[i - 1] - dep[i]), 0.0, 1.0);
      outline.push_back({ind[i - 1] + share * (ind[i] - ind[i - 1]), base});
    }
    outline.push_back({ind[i], dep[i]});
  }
  return outline;
}

}  // namespace

double CChartObj3D::AreaGap() const {
  return m_transform->GetAxisScaleMode(m_indAxis) == 0 ? GetSmallGap() : 0.0;
}

CChartObj3D::AreaEnd CChartObj3D::ToWorking(const AreaEnd& end) const {
  return {m_transform->CVTWS(m_indAxis == 1 ? 1 : 0, end.ind), m_transform->CVTWS(2, end.bottom),
          m_transform->CVTWS(2, end.top)};
}

void CChartObj3D::DrawAreaSolid(const AreaEnd& a, const AreaEnd& b, RGBDType const& fill) {
  const int depthAxis = m_indAxis == 1 ? 0 : 1;
  const double place = m_constValue + calcbgoffset(m_constWidth, m_constJustify);
  const double near = m_transform->CVTWS(depthAxis, place);
  const double far = m_transform->CVTWS(depthAxis, place + m_constWidth);
  const std::array<point3Dtype, 8> corners{
      Place25D(a.ind, near, a.bottom), Place25D(a.ind, far, a.bottom),
      Place25D(b.ind, far, b.bottom),  Place25D(b.ind, near, b.bottom),
      Place25D(a.ind, near, a.top),    Place25D(a.ind, far, a.top),
      Place25D(b.ind, far, b.top),     Place25D(b.ind, near, b.top)};
  m_openGL->DrawSolidObject3D(corners.data(), fill, m_outlineColor, kAllFaces.data());
}

void CChartObj3D::DrawAreaFillChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size()});
  if (count < 2) return;
  point3Dtype scaleMin;
  point3Dtype scaleMax;
  m_transform->GetWorkingScale(scaleMin, scaleMax);
  const double tolerance = (scaleMax.z - scaleMin.z) / kToleranceDivisor;
  const std::vector<OutlinePoint> outline = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, "DrawAreaFillChart25D", [&] {
        return RefineOutline(m_indData, m_depData, count, m_baseValue, m_baseValue - tolerance);
      });
  const double gap = AreaGap();
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 1; i < outline.size(); ++i) {
    const OutlinePoint& a = outline[i - 1];
    const OutlinePoint& b = outline[i];
    const bool touches = a.dep == m_baseValue || b.dep == m_baseValue;
    const double level = touches ? m_baseValue - tolerance : m_baseValue;
    if (a.dep >= m_baseValue && b.dep >= m_baseValue) {
      DrawAreaSolid(ToWorking({a.ind, level, a.dep}), ToWorking({b.ind - gap, level, b.dep}),
                    SegmentFill(i));
    } else {
      DrawAreaSolid(ToWorking({a.ind, a.dep, level}), ToWorking({b.ind - gap, b.dep, level}),
                    SegmentFill(i));
    }
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawAreaRangeChart25D() {
  const std::size_t count = PointsIn({m_indData.size(), m_depData.size(), m_depData2.size()});
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t i = 1; i < count; ++i) {
    DrawLayer(ToWorking({m_indData[i - 1], m_depData[i - 1], m_depData2[i - 1]}),
              ToWorking({m_indData[i], m_depData[i], m_depData2[i]}), SegmentFill(i));
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawGroupAreaFillChart25D() {
  if (m_groupColors.empty()) return;
  const std::size_t count = PointsIn({m_indData.size()});
  const std::size_t groups = GroupsHeld();
  std::vector<double> sums = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, "DrawGroupAreaFillChart25D",
      [&] { return std::vector<double>(count, 0.0); });
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (std::size_t g = 0; g < groups; ++g) {
    const std::span<const double> row = GroupRow(g);
    for (std::size_t i = 1; i < count; ++i) {
      DrawLayer(ToWorking({m_indData[i - 1], sums[i - 1], sums[i - 1] + row[i - 1]}),
                ToWorking({m_indData[i], sums[i], sums[i] + row[i]}), GroupFill(g));
    }
    for (std::size_t i = 0; i < count; ++i) sums[i] += row[i];
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawLayer(const AreaEnd& a, const AreaEnd& b, RGBDType const& fill) {
  // The gap is taken from the far end, but never more than there is; on an inverted axis it comes
  // with the sign of the working range.
  const double gap = std::min(std::abs(AreaGap()), std::abs(b.ind - a.ind));
  const double end = b.ind - std::copysign(gap, b.ind - a.ind);
  const double thicknessA = a.top - a.bottom;
  const double thicknessB = b.top - b.bottom;
  // Rows that leave for infinity cross nowhere.
  const bool cross = std::isfinite(thicknessA) && std::isfinite(thicknessB) && thicknessA != 0.0 &&
                     thicknessB != 0.0 && (thicknessA < 0.0) != (thicknessB < 0.0);
  if (!cross) {
    DrawUpright(a, {end, b.bottom, b.top}, fill);
    return;
  }
  const double share = thicknessA / (thicknessA - thicknessB);
  const double level = a.top + share * (b.top - a.top);
  const AreaEnd crossing{a.ind + share * (end - a.ind), level, level};
  DrawUpright(a, crossing, fill);
  DrawUpright(crossing, {end, b.bottom, b.top}, fill);
}

void CChartObj3D::DrawUpright(AreaEnd a, AreaEnd b, RGBDType const& fill) {
  for (AreaEnd* end : {&a, &b}) {
    if (end->bottom > end->top) std::swap(end->bottom, end->top);
  }
  const bool mirrored = (m_indAxis == 1) != ((a.ind > b.ind) != (m_constWidth < 0.0));
  if (mirrored) std::swap(a, b);
  DrawAreaSolid(a, b, fill);
}
