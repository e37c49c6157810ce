#include <array>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/foundation/planes.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Colouring by value applies to this colour mode alone.
constexpr int kTextureColorMode = 2;
/// A wall stands this many of its offsets behind its plane.
constexpr double kWallGap = 10.0;

}  // namespace

void CAxes3D::BeginPlane(int plane) {
  const int colorMode = GetPlaneColorMode(plane);
  m_context->SetColorMode(colorMode);
  m_context->EnableTexture(colorMode == kTextureColorMode);
  m_context->SetLineWidth3D(GetOutlineWidth(plane));
  m_context->SetPolygonOutlineMode(m_outlineMode);
}

void CAxes3D::EndPlane() {
  m_context->SetPolygonOutlineMode(0);
  m_context->SetLineWidth3D(1.0);
  m_context->EnableTexture(0);
}

void CAxes3D::DrawPlaneFill(int plane) {
  const Plane& fill = *PlaneAt(plane);
  if (fill.wallMode != 0 || fill.enable == 0) return;
  const CAxis3D& first = *GetAxis(PlaneAxis(plane, 0));
  const CAxis3D& second = *GetAxis(PlaneAxis(plane, 1));
  const double offset = Outwards(plane, fill.wallOffset);
  const auto corner = [&](double along, double across) {
    point3Dtype point;
    AssignPoint3D(point, along, across, NormalCoordinate(plane));
    return CalcPlanePoint(plane, point, offset);
  };
  std::array<point3Dtype, 5> corners{corner(first.GetAxisMin(), second.GetAxisMin()),
                                     corner(first.GetAxisMax(), second.GetAxisMin()),
                                     corner(first.GetAxisMax(), second.GetAxisMax()),
                                     corner(first.GetAxisMin(), second.GetAxisMax())};
  corners[4] = corners[0];
  BeginPlane(plane);
  m_context->SetFillStyle3D(fill.color, fill.color, fill.outlineColor);
  m_context->PolyFillAbs3D(corners.data(), static_cast<int>(corners.size()));
  EndPlane();
}

void CAxes3D::DrawPlaneWall(int plane) {
  const Plane& wall = *PlaneAt(plane);
  if (wall.wallMode != 1 || wall.enable == 0) return;
  const int normal = PlaneAxis(plane, 2);
  point3Dtype corner{};
  point3Dtype extent{};
  for (int i = 0; i < kAxes; ++i) {
    const double low = m_transform->CVTWS(i, GetAxis(i)->GetAxisMin());
    const double high = m_transform->CVTWS(i, GetAxis(i)->GetAxisMax());
    coordassign(corner, i, low);
    coordassign(extent, i, high - low);
  }
  const double depth = GetCoord3D(extent, normal) * wall.wallThickness;
  const double gap = kWallGap * wall.wallOffset * depth;
  for (int i = 0; i < kAxes; ++i) {
    const double low = GetCoord3D(corner, i);
    coordassign(corner, i, low + wall.wallOffset * GetCoord3D(extent, i));
  }
  const double face = m_transform->CVTWS(normal, NormalCoordinate(plane));
  coordassign(corner, normal, IsHighPlane(plane) ? face + gap : face - depth - gap);
  coordassign(extent, normal, depth);

  const double inset = 1.0 - 2.0 * wall.wallOffset;
  BeginPlane(plane);
  m_context->DrawPrism3D(corner.x, corner.y, corner.z, extent.x * inset, extent.y * inset,
                         extent.z * inset, wall.color, wall.outlineColor);
  EndPlane();
}
