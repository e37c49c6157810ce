#include "orvalix/axes/axes_3d.h"

#include <cstddef>

#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/axes/hand_on_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/kept_drawing_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

using orvalix::Apply;
using orvalix::Ask;

namespace {

/// The element at `index`; null out of range.
template <class Array>
auto* ElementAt(Array& array, int index) {
  const bool exists = index >= 0 && index < static_cast<int>(array.size());
  return exists ? &array[static_cast<std::size_t>(index)] : nullptr;
}

template <std::size_t N>
void Store(std::array<int, N>& array, int index, int value) {
  Apply(ElementAt(array, index), [&](int& element) { element = value; });
}

template <std::size_t N>
int Read(const std::array<int, N>& array, int index) {
  const int* element = ElementAt(array, index);
  return element != nullptr ? *element : 0;
}

}  // namespace

int CAxes3D::nSelfID = 0;

CAxes3D::CAxes3D() { SetAxesDefaults(); }

CAxes3D::CAxes3D(COpenGL* context, CTransform3D* transform, point3Dtype const& min,
                 point3Dtype const& max)
    : CAxes3D() {
  SetAxesLimits(min, max);
  InitAxes(context, transform);
}

CAxes3D::~CAxes3D() = default;

void CAxes3D::SetAxesDefaults() {
  m_context = nullptr;
  m_transform = nullptr;
  m_axisColorModes.fill(1);
  m_axisLabelsEnable.fill(0);
  m_axisEnable.fill(0);
  m_outlineMode = 1;
  m_grids.fill({.nthTic1 = 1,
                .nthTic2 = 1,
                .wallFlag = 0,
                .thickness = 1.0,
                .style = 1,
                .color = SetRGBD(0.0, 0.0, 0.0, 1.0),
                .enable = 0});
  m_planes.fill({.color = SetRGBD(0.0, 0.0, 0.0, 0.0),
                 .outlineColor = SetRGBD(0.0, 0.0, 0.0, 0.0),
                 .wallThickness = 0.06,
                 .wallOffset = 0.002,
                 .outlineWidth = 2.0,
                 .wallMode = 0,
                 .enable = 0});
  m_planeColorModes.fill(1);
  AssignPoint3D(m_min, 0.0, 0.0, 0.0);
  AssignPoint3D(m_max, 0.0, 0.0, 0.0);
  m_planeAxes = {{{0, 1, 2}, {0, 2, 1}, {1, 2, 0}, {0, 1, 2}, {0, 2, 1}, {1, 2, 0}}};
  m_transformID = 0;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_AXES3D, "SetAxesDefaults", [this] {
    for (auto& axis : m_axes) axis = std::make_unique<CAxis3D>();
    for (auto& labels : m_axisLabels) labels = std::make_unique<CAxisLabels3D>();
  });
  m_classTag = orvalix::kAxesTag;
  orvalix::CountInstance(nSelfID);
}

void CAxes3D::InitAxes(COpenGL* context, CTransform3D* transform) {
  BindAxes(context, transform);
  SetAxesLimits(m_min, m_max);
}

void CAxes3D::BindAxes(COpenGL* context, CTransform3D* transform) {
  m_context = nullptr;
  m_transform = nullptr;
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_AXES3D,
                      "InitAxes");
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_AXES3D, "InitAxes");
  for (int i = 0; i < kAxes; ++i) {
    CAxis3D* axis = GetAxis(i);
    axis->InitAxis(context, transform, i);
    GetAxisLabels(i)->InitAxisLabels(context, transform, axis);
  }
  m_context = context;
  m_transform = transform;
  m_transformID = transform->GetTransformID();
}

void CAxes3D::SetAxesLimits(point3Dtype const& min, point3Dtype const& max) {
  const point3Dtype low = min;  // may be the frame's own
  const point3Dtype high = max;
  m_min = low;
  m_max = high;
  for (int i = 0; i < kAxes; ++i) {
    SetAxisLimits(i, GetCoord3D(m_min, i), GetCoord3D(m_max, i));
  }
}

void CAxes3D::GetAxesLimits(point3Dtype& min, point3Dtype& max) const {
  min = m_min;
  max = m_max;
}

CAxis3D* CAxes3D::GetAxis(int axis) const {
  const auto* found = ElementAt(m_axes, axis);
  return found != nullptr ? found->get() : nullptr;
}

CAxisLabels3D* CAxes3D::GetAxisLabels(int axis) const {
  const auto* found = ElementAt(m_axisLabels, axis);
  return found != nullptr ? found->get() : nullptr;
}

void CAxes3D::DrawAxes() {
  if (m_context == nullptr) return;
  m_transform->ChartTransform();
  orvalix::DrawKeeping(
      m_kept, *m_context, [this] { return Shape(); },
      [this] {
        m_context->LoadMatrixTransform(m_transform->GetGraphTransform());
        DrawAxisLines();
        for (int plane = 0; plane < kPlanes; ++plane) {
          DrawPlaneGrid(plane);
          DrawPlaneFill(plane);
          DrawPlaneWall(plane);
        }
      });
  m_transform->TextTransform();
  orvalix::DrawTexts(m_keptLabels, *m_context, m_transform->GetFontTransform(),
                     [this] { DrawLabels(); });
}

void CAxes3D::DrawAxisLines() {
  for (int i = 0; i < kAxes; ++i) {
    m_context->SetColorMode(Read(m_axisColorModes, i));
    if (GetAxisEnable(i) != 0) GetAxis(i)->DrawAxis();
  }
}

void CAxes3D::DrawLabels() {
  for (int i = 0; i < kAxes; ++i) {
    if (GetAxisLabelsEnable(i) != 0) GetAxisLabels(i)->DrawAxisLabels();
  }
}

void CAxes3D::EnableAxis(int axis, int flag) { Store(m_axisEnable, axis, flag); }

int CAxes3D::GetAxisEnable(int axis) const { return Read(m_axisEnable, axis); }

void CAxes3D::EnableAxisLabels(int axis, int flag) { Store(m_axisLabelsEnable, axis, flag); }

int CAxes3D::GetAxisLabelsEnable(int axis) const { return Read(m_axisLabelsEnable, axis); }

void CAxes3D::SetAxisColorMode(int axis, int mode) {
  Store(m_axisColorModes, axis, mode);
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetColorMode(mode); });
}

int CAxes3D::GetAxisColorMode(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetColorMode); }

void CAxes3D::SetAxisTics(int axis, double centerPoint, double ticSpace, int nthTicMajor,
                          double minorTicLength, double majorTicLength, int ticDir) {
  Apply(GetAxis(axis), [&](CAxis3D& a) {
    a.SetAxisTics(centerPoint, ticSpace, nthTicMajor, minorTicLength, majorTicLength, ticDir);
  });
  EnableAxis(axis, 1);
}

CAxes3D::PlaneGrid* CAxes3D::GridAt(int plane) { return ElementAt(m_grids, plane); }

const CAxes3D::PlaneGrid* CAxes3D::GridAt(int plane) const { return ElementAt(m_grids, plane); }

void CAxes3D::EnableGrid(int plane, int flag) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.enable = flag; });
}

int CAxes3D::GetGridEnable(int plane) const { return Ask(GridAt(plane), &PlaneGrid::enable); }

void CAxes3D::SetPlaneGrid(int plane, int nthTic1, int nthTic2, RGBDType const& color,
                           double thickness, int style, int wallFlag) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) {
    grid = {.nthTic1 = nthTic1,
            .nthTic2 = nthTic2,
            .wallFlag = wallFlag,
            .thickness = thickness,
            .style = style,
            .color = color,
            .enable = 1};
  });
}

void CAxes3D::SetPlaneGridAttrib(int plane, RGBDType const& color, double thickness, int) {
  SetPlaneGridColor(plane, color);
  SetPlaneGridThickness(plane, thickness);
}

void CAxes3D::SetPlaneGridColor(int plane, RGBDType const& color) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.color = color; });
}

RGBDType CAxes3D::GetPlaneGridColor(int plane) const {
  return Ask(GridAt(plane), &PlaneGrid::color);
}

void CAxes3D::SetPlaneGridNthTic1(int plane, int n) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.nthTic1 = n; });
}

int CAxes3D::GetPlaneGridNthTic1(int plane) const {
  return Ask(GridAt(plane), &PlaneGrid::nthTic1);
}

void CAxes3D::SetPlaneGridNthTic2(int plane, int n) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.nthTic2 = n; });
}

int CAxes3D::GetPlaneGridNthTic2(int plane) const {
  return Ask(GridAt(plane), &PlaneGrid::nthTic2);
}

void CAxes3D::SetPlaneGridStyle(int plane, int style) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.style = style; });
}

int CAxes3D::GetPlaneGridStyle(int plane) const { return Ask(GridAt(plane), &PlaneGrid::style); }

void CAxes3D::SetPlaneGridThickness(int plane, double thickness) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.thickness = thickness; });
}

double CAxes3D::GetPlaneGridThickness(int plane) const {
  return Ask(GridAt(plane), &PlaneGrid::thickness);
}

void CAxes3D::SetPlaneGridWallFlag(int plane, int flag) {
  Apply(GridAt(plane), [&](PlaneGrid& grid) { grid.wallFlag = flag; });
}

int CAxes3D::GetPlaneGridWallFlag(int plane) const {
  return Ask(GridAt(plane), &PlaneGrid::wallFlag);
}

CAxes3D::Plane* CAxes3D::PlaneAt(int plane) { return ElementAt(m_planes, plane); }

const CAxes3D::Plane* CAxes3D::PlaneAt(int plane) const { return ElementAt(m_planes, plane); }

void CAxes3D::SetFillOrWall(int plane, RGBDType const& fill, RGBDType const& outline,
                            int wallMode) {
  Apply(PlaneAt(plane), [&](Plane& p) {
    p.color = fill;
    p.outlineColor = outline;
    p.wallMode = wallMode;
    p.enable = 1;
  });
}

void CAxes3D::SetPlaneColor(int plane, RGBDType const& fill, RGBDType const& outline) {
  SetFillOrWall(plane, fill, outline, 0);
}

RGBDType CAxes3D::GetPlaneColor(int plane) const { return Ask(PlaneAt(plane), &Plane::color); }

void CAxes3D::SetWallPlane(int plane, RGBDType const& fill, RGBDType const& outline) {
  SetFillOrWall(plane, fill, outline, 1);
}

RGBDType CAxes3D::GetWallColor(int plane) const { return GetPlaneColor(plane); }

void CAxes3D::EnablePlane(int plane, int flag) {
  Apply(PlaneAt(plane), [&](Plane& p) { p.enable = flag; });
}

int CAxes3D::GetPlaneEnable(int plane) const { return Ask(PlaneAt(plane), &Plane::enable); }

void CAxes3D::EnableWall(int plane, int flag) { EnablePlane(plane, flag); }

int CAxes3D::GetWallEnable(int plane) const { return GetPlaneEnable(plane); }

void CAxes3D::SetPlaneColorMode(int plane, int mode) { Store(m_planeColorModes, plane, mode); }

int CAxes3D::GetPlaneColorMode(int plane) const { return Read(m_planeColorModes, plane); }

void CAxes3D::SetOutlineColor(int plane, RGBDType const& color) {
  Apply(PlaneAt(plane), [&](Plane& p) { p.outlineColor = color; });
}

RGBDType CAxes3D::GetOutlineColor(int plane) const {
  return Ask(PlaneAt(plane), &Plane::outlineColor);
}

void CAxes3D::SetOutlineWidth(int plane, double width) {
  Apply(PlaneAt(plane), [&](Plane& p) { p.outlineWidth = width; });
}

double CAxes3D::GetOutlineWidth(int plane) const {
  return Ask(PlaneAt(plane), &Plane::outlineWidth);
}

void CAxes3D::SetOutlineMode(int mode) { m_outlineMode = mode; }

int CAxes3D::GetOutlineMode() const { return m_outlineMode; }

void CAxes3D::SetWallOffset(int plane, double offset) {
  Apply(PlaneAt(plane), [&](Plane& p) { p.wallOffset = offset; });
}

double CAxes3D::GetWallOffset(int plane) const { return Ask(PlaneAt(plane), &Plane::wallOffset); }

void CAxes3D::SetWallThickness(int plane, double thickness) {
  Plane* found = PlaneAt(plane);
  if (found == nullptr) return;
  found->wallThickness = thickness;
  for (const int which : {0, 1}) {
    GetAxis(PlaneAxis(plane, which))->SetAxisWallThickness(thickness);
  }
}

double CAxes3D::GetWallThickness(int plane) const {
  return Ask(PlaneAt(plane), &Plane::wallThickness);
}

int CAxes3D::GetTransformID() const { return m_transformID; }

int CAxes3D::GetClassTag() const { return m_classTag; }
