#include "orvalix/axes/axis_3d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "orvalix/axes/directions_internal.h"
#include "orvalix/axes/tic_walk_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/record_shape_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Colouring by value applies to this colour mode alone.
constexpr int kTextureColorMode = 2;

/// By axis: the axis itself, its first and its second other one.
constexpr std::array<std::array<int, 3>, 3> kInterceptAxes{{{0, 1, 2}, {1, 0, 2}, {2, 0, 1}}};

}  // namespace

int CAxis3D::nSelfID = 0;

CAxis3D::CAxis3D() { InitAxisDefaults(); }

CAxis3D::CAxis3D(COpenGL* context, CTransform3D* transform) : CAxis3D(context, transform, 0) {}

CAxis3D::CAxis3D(COpenGL* context, CTransform3D* transform, int axis) : CAxis3D() {
  InitAxis(context, transform, axis);
}

CAxis3D::CAxis3D(COpenGL* context, CTransform3D* transform, int axis, double start, double stop)
    : CAxis3D(context, transform, axis) {
  SetAxisLimits(start, stop);
}

void CAxis3D::InitAxisDefaults() {
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_transform = nullptr;
  m_axis = 0;
  m_ticDir = 0;
  m_style = 0;
  m_nthTicMajor = 5;
  m_colorMode = 1;
  m_axisColor = black;
  m_ticColor = black;
  m_thickness = 1.0;
  m_min = 0.0;
  m_max = 10.0;
  m_start = 0.0;
  m_stop = 10.0;
  m_minorTicLength = 0.5;
  m_majorTicLength = 1.0;
  m_wallThickness = 0.05;
  m_ticSpace = 1.0;
  m_centerPoint = 0.0;
  m_intercept1 = 0.0;
  m_intercept2 = 0.0;
  m_axisSet = 0;
  m_transformID = 0;
  m_classTag = orvalix::kAxisTag;
}

void CAxis3D::InitAxis(COpenGL* context, CTransform3D* transform, int axis) {
  m_context = nullptr;
  m_transform = nullptr;
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_AXIS3D,
                      "InitAxis");
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_AXIS3D, "InitAxis");
  m_context = context;
  m_transform = transform;
  m_axis = orvalix::ValidAxis(axis);
  m_transformID = transform->GetTransformID();
}

void CAxis3D::SetAxisLimits(double start, double stop) {
  m_min = std::min(start, stop);
  m_max = std::max(start, stop);
  m_start = start;
  m_stop = stop;
  m_axisSet = 1;
}

void CAxis3D::SetAxisMin(double value) {
  const double max = m_max;
  m_start = value;
  m_min = std::min(value, max);
  m_max = std::max(value, max);
  m_axisSet = 1;
}

void CAxis3D::SetAxisMax(double value) {
  const double min = m_min;
  m_stop = value;
  m_min = std::min(value, min);
  m_max = std::max(value, min);
  m_axisSet = 1;
}

double CAxis3D::GetAxisMin() const { return m_min; }

double CAxis3D::GetAxisMax() const { return m_max; }

double CAxis3D::GetAxisStart() const { return m_start; }

double CAxis3D::GetAxisStop() const { return m_stop; }

double CAxis3D::GetAxisRange() const { return std::abs(m_max - m_min); }

int CAxis3D::GetAxisDir() const { return m_stop < m_start; }

int CAxis3D::IsAxisSet() const { return m_axisSet; }

int CAxis3D::GetAxisScaleMode() const {
  return m_transform != nullptr ? m_transform->GetAxisScaleMode(m_axis) : 0;
}

void CAxis3D::SetAxisTics(double centerPoint, double ticSpace, int nthTicMajor,
                          double minorTicLength, double majorTicLength, int ticDir) {
  m_centerPoint = centerPoint;
  m_ticSpace = ticSpace;
  m_nthTicMajor = nthTicMajor;
  m_minorTicLength = minorTicLength;
  m_majorTicLength = majorTicLength;
  m_ticDir = ticDir;
}

void CAxis3D::SetAxisCenterPoint(double value) { m_centerPoint = value; }

double CAxis3D::GetAxisCenterPoint() const { return m_centerPoint; }

void CAxis3D::SetAxisTicSpace(double space) { m_ticSpace = space; }

double CAxis3D::GetAxisTicSpace() const { return m_ticSpace; }

void CAxis3D::SetAxisNthTicMajor(int n) { m_nthTicMajor = n; }

int CAxis3D::GetAxisNthTicMajor() const { return m_nthTicMajor; }

void CAxis3D::SetAxisMinorTicLength(double length) { m_minorTicLength = length; }

double CAxis3D::GetAxisMinorTicLength() const { return m_minorTicLength; }

void CAxis3D::SetAxisMajorTicLength(double length) { m_majorTicLength = length; }

double CAxis3D::GetAxisMajorTicLength() const { return m_majorTicLength; }

void CAxis3D::SetAxisTicDir(int direction) { m_ticDir = direction; }

int CAxis3D::GetAxisTicDir() const { return m_ticDir; }

void CAxis3D::SetAxisAttrib(RGBDType const& axisColor, RGBDType const& ticColor, double thickness,
                            int style) {
  m_axisColor = axisColor;
  m_ticColor = ticColor;
  m_thickness = thickness;
  m_style = style;
}

void CAxis3D::SetAxisColor(RGBDType const& color) { m_axisColor = color; }

RGBDType CAxis3D::GetAxisColor() const { return m_axisColor; }

void CAxis3D::SetAxisTicColor(RGBDType const& color) { m_ticColor = color; }

RGBDType CAxis3D::GetAxisTicColor() const { return m_ticColor; }

void CAxis3D::SetAxisThickness(double thickness) { m_thickness = thickness; }

double CAxis3D::GetAxisThickness() const { return m_thickness; }

void CAxis3D::SetAxisStyle(int style) { m_style = style; }

int CAxis3D::GetAxisStyle() const { return m_style; }

void CAxis3D::SetColorMode(int mode) { m_colorMode = mode; }

int CAxis3D::GetColorMode() const { return m_colorMode; }

void CAxis3D::SetAxisWallThickness(double thickness) { m_wallThickness = thickness; }

double CAxis3D::GetAxisWallThickness() const { return m_wallThickness; }

void CAxis3D::SetAxisIntercept(double first, double second) {
  m_intercept1 = first;
  m_intercept2 = second;
}

void CAxis3D::SetAxisIntercept1(double first) { m_intercept1 = first; }

void CAxis3D::SetAxisIntercept2(double second) { m_intercept2 = second; }

double CAxis3D::GetAxisIntercept1() const { return m_intercept1; }

double CAxis3D::GetAxisIntercept2() const { return m_intercept2; }

double CAxis3D::GetAxisIntercept(int which) const {
  if (which <= 0) return m_centerPoint;
  return which == 1 ? m_intercept1 : m_intercept2;
}

int CAxis3D::GetAxisInterceptAxis(int which) const {
  return kInterceptAxes[static_cast<std::size_t>(m_axis)]
                       [static_cast<std::size_t>(orvalix::ValidAxis(which))];
}

void CAxis3D::GetAxisEndPoints(point3Dtype& start, point3Dtype& end) const {
  GetAxisPoint(start, m_min);
  GetAxisPoint(end, m_max);
}

void CAxis3D::GetAxisPoint(point3Dtype& point, double value) const {
  AssignPoint3D(point, 0.0, 0.0, 0.0);
  coordassign(point, m_axis, value);
  coordassign(point, GetAxisInterceptAxis(1), m_intercept1);
  coordassign(point, GetAxisInterceptAxis(2), m_intercept2);
}

int CAxis3D::GetAxisIndex() const { return m_axis; }

int CAxis3D::GetTransformID() const { return m_transformID; }

int CAxis3D::GetClassTag() const { return m_classTag; }

bool CAxis3D::IsDrawn() const { return m_axisSet != 0 && m_context != nullptr; }

void CAxis3D::DrawAxis() {
  if (!IsDrawn()) return;
  m_context->SetColorMode(m_colorMode);
  m_context->EnableTexture(m_colorMode == kTextureColorMode);
  point3Dtype start;
  point3Dtype end;
  GetAxisEndPoints(start, end);
  point3Dtype towardsTics = end;
  calcticpoint(towardsTics, m_minorTicLength, m_ticDir);
  point3Dtype normal{};
  CalcNormal(start, end, towardsTics, normal);
  m_context->SetLineNormal(normal, 1);
  DrawAxisLine();
  DrawAxisTics();
  m_context->EnableTexture(0);
}

void CAxis3D::DrawAxisLine() {
  if (!IsDrawn()) return;
  point3Dtype start;
  point3Dtype end;
  GetAxisEndPoints(start, end);
  m_context->SetLineStyle3D(m_style, m_thickness, m_axisColor);
  m_context->StartLineAbs3D(m_transform->CPTWS(start));
  m_context->EndLineAbs3D(m_transform->CPTWS(end));
}

void CAxis3D::DrawAxisTics() {
  if (!IsDrawn()) return;
  m_context->SetLineStyle3D(m_style, m_thickness, m_ticColor);
  if (GetAxisScaleMode() != 0) {
    const orvalix::TicRange range{.min = m_transform->LogLimits(m_axis, m_min),
                                  .max = m_transform->LogLimits(m_axis, m_max),
                                  .center = m_transform->LogLimits(m_axis, m_centerPoint)};
    orvalix::VisitLogarithmicTics(range,
                                  [this](double value, bool major) { DrawTic(value, major); });
    return;
  }
  const orvalix::TicRange range{.min = m_min, .max = m_max, .center = m_centerPoint};
  orvalix::VisitLinearTics(range, m_ticSpace, [this](double value, int count) {
    DrawTic(value, m_nthTicMajor != 0 && count % m_nthTicMajor == 0);
  });
}

void CAxis3D::DrawTic(double value, bool major) {
  point3Dtype start;
  GetAxisPoint(start, value);
  start = m_transform->CPTWS(start);
  point3Dtype end = start;
  calcticpoint(end, major ? m_majorTicLength : m_minorTicLength, m_ticDir);
  m_context->StartLineAbs3D(start);
  m_context->EndLineAbs3D(end);
}

void CAxis3D::calcticpoint(point3Dtype& point, double length, int direction) const {
  const double range = m_transform->GetAxisWorkingRange(orvalix::AxisOfDirection(direction));
  orvalix::MovePoint(point, std::abs(range) * length, direction);
}

template <class Record, class Self>
void CAxis3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("axis", self.m_axis);
  record.Field("tic direction", self.m_ticDir);
  record.Field("style", self.m_style);
  record.Field("nth tic major", self.m_nthTicMajor);
  record.Field("colour mode", self.m_colorMode);
  record.Field("axis colour", self.m_axisColor);
  record.Field("tic colour", self.m_ticColor);
  record.Field("thickness", self.m_thickness);
  record.Field("minimum", self.m_min);
  record.Field("maximum", self.m_max);
  record.Field("start", self.m_start);
  record.Field("stop", self.m_stop);
  record.Field("minor tic length", self.m_minorTicLength);
  record.Field("major tic length", self.m_majorTicLength);
  record.Field("wall thickness", self.m_wallThickness);
  record.Field("tic spacing", self.m_ticSpace);
  record.Field("centre point", self.m_centerPoint);
  record.Field("intercept 1", self.m_intercept1);
  record.Field("intercept 2", self.m_intercept2);
  record.Field("set", self.m_axisSet);
  if constexpr (Record::kReading) self.m_axis = orvalix::ValidAxis(self.m_axis);
}

void CAxis3D::AppendShape(std::vector<double>& numbers) const {
  orvalix::RecordShape shape(nSelfID);
  RecordFields(shape, *this);
  numbers.insert(numbers.end(), shape.numbers.begin(), shape.numbers.end());
  numbers.push_back(IsDrawn() ? 1.0 : 0.0);
  if (m_transform != nullptr) m_transform->AppendShape(numbers);
}

void CAxis3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_AXIS3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CAxis3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_AXIS3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
