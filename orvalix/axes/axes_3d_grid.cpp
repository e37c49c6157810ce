#include <cmath>
#include <cstddef>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/directions_internal.h"
#include "orvalix/axes/tic_walk_internal.h"
#include "orvalix/foundation/planes.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Position of the axis across a plane among the plane's axes.
constexpr int kNormal = 2;

}  // namespace

bool CAxes3D::IsHighPlane(int plane) {
  constexpr int kFirstHighPlane = 3;
  return plane >= kFirstHighPlane;
}

int CAxes3D::PlaneAxis(int plane, int which) const {
  // The table may come from a file.
  return orvalix::ValidAxis(
      m_planeAxes[static_cast<std::size_t>(plane)][static_cast<std::size_t>(which)]);
}

double CAxes3D::NormalCoordinate(int plane) const {
  const CAxis3D* normal = GetAxis(PlaneAxis(plane, kNormal));
  return IsHighPlane(plane) ? normal->GetAxisMax() : normal->GetAxisMin();
}

double CAxes3D::Outwards(int plane, double share) const {
  const double range = m_transform->GetAxisWorkingRange(PlaneAxis(plane, kNormal));
  const double distance = std::abs(range) * share;
  return IsHighPlane(plane) ? -distance : distance;
}

point3Dtype CAxes3D::CalcPlanePoint(int plane, point3Dtype const& point, double offset) const {
  point3Dtype working = m_transform->CPTWS(swapcoords(plane, point));
  const int normal = GetNormalAxis(plane);
  coordassign(working, normal, GetCoord3D(working, normal) - offset);
  return working;
}

void CAxes3D::DrawPlaneGrid(int plane) {
  if (GetGridEnable(plane) == 0) return;
  for (const int direction : {0, 1}) DrawPlaneGridDirection(plane, direction);
}

void CAxes3D::DrawPlaneGridDirection(int plane, int direction) {
  const PlaneGrid& grid = *GridAt(plane);
  m_context->SetLineStyle3D(grid.style, grid.thickness, grid.color);
  const int nth = direction == 0 ? grid.nthTic1 : grid.nthTic2;
  const int axisIndex = PlaneAxis(plane, direction);
  const CAxis3D& axis = *GetAxis(axisIndex);
  if (m_transform->GetAxisScaleMode(axisIndex) == 0) {
    orvalix::VisitLinearTics(
        {.min = axis.GetAxisMin(), .max = axis.GetAxisMax(), .center = axis.GetAxisIntercept(0)},
        axis.GetAxisTicSpace() * nth,
        [&](double value, int) { DrawGridLine(plane, direction, value); });
    return;
  }
  orvalix::VisitLogarithmicGrid(
      {.min = m_transform->LogLimits(axisIndex, axis.GetAxisMin()),
       .max = m_transform->LogLimits(axisIndex, axis.GetAxisMax()),
       .center = m_transform->LogLimits(axisIndex, axis.GetAxisIntercept(0))},
      nth, axis.GetAxisNthTicMajor(), [&](double value) { DrawGridLine(plane, direction, value); });
}

void CAxes3D::DrawGridLine(int plane, int direction, double value) {
  const CAxis3D& along = *GetAxis(PlaneAxis(plane, 1 - direction));
  const auto pointAt = [&](double other) {
    point3Dtype point;
    AssignPoint3D(point, direction == 0 ? value : other, direction == 0 ? other : value,
                  NormalCoordinate(plane));
    return CalcPlanePoint(plane, point, 0.0);
  };
  const point3Dtype start = pointAt(along.GetAxisMin());
  const point3Dtype end = pointAt(along.GetAxisMax());
  const bool extended = GetPlaneGridWallFlag(plane) != 0;
  if (extended) DrawGridExtension(plane, start);
  m_context->StartLineAbs3D(start);
  m_context->EndLineAbs3D(end);
  if (extended) DrawGridExtension(plane, end);
}

void CAxes3D::DrawGridExtension(int plane, point3Dtype const& from) {
  point3Dtype to = from;
  const int normal = GetNormalAxis(plane);
  coordassign(to, normal, GetCoord3D(to, normal) - Outwards(plane, GetWallThickness(plane)));
  m_context->StartLineAbs3D(from);
  m_context->EndLineAbs3D(to);
}
