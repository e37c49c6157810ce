#include "orvalix/render/transform_3d.h"

#include <bit>
#include <cstdint>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/logarithms.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr int kAxes = 3;

point3Dtype Point(double x, double y, double z) { return {.x = x, .y = y, .z = z, .v = 0.0}; }

point3Dtype Difference(point3Dtype const& a, point3Dtype const& b) {
  point3Dtype difference = Point(0.0, 0.0, 0.0);
  Sub3DP(difference, a, b);
  return difference;
}

}  // namespace

int CTransform3D::nSelfID = 0;

CTransform3D::CTransform3D() { SetTransformDefaults(); }

CTransform3D::CTransform3D(COpenGL* context)
    : CTransform3D(context, Point(-1.0, -1.0, -1.0), Point(1.0, 1.0, 1.0)) {}

CTransform3D::CTransform3D(COpenGL* context, point3Dtype const& min, point3Dtype const& max) {
  SetTransformDefaults();
  InitTransform(context);
  SetScale(min, max);
}

void CTransform3D::SetTransformDefaults() {
  const point3Dtype zero = Point(0.0, 0.0, 0.0);
  const point3Dtype one = Point(1.0, 1.0, 1.0);
  m_context = nullptr;
  m_graphTransform.fill(0.0);
  m_fontTransform.fill(0.0);
  m_centroid = zero;
  m_offset = zero;
  m_rotation = zero;
  m_normalizationFactors = zero;
  m_chartRect = Point(0.5, 0.5, 0.5);
  m_scaleMin = zero;
  m_scaleMax = one;
  m_adjustedScaleMin = one;
  m_adjustedScaleMax = Point(10.0, 10.0, 10.0);
  m_workingScaleMin = zero;
  m_workingScaleMax = one;
  m_clipping = 0;
  m_axisScaleModes.fill(0);
  m_reserved = 0;
  m_fontAspect = 1.0;
  m_fontHeightSF = 1.0;
  m_classTag = orvalix::kTransformTag;
  m_id = orvalix::CountInstance(nSelfID);
}

void CTransform3D::InitTransform(COpenGL* context) {
  m_context = nullptr;
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_TRANSFORM3D,
                      "InitTransform");
  m_context = context;
}

void CTransform3D::SetScale(point3Dtype const& min, point3Dtype const& max) {
  m_scaleMin = min;
  m_scaleMax = max;
}

void CTransform3D::GetScale(point3Dtype& min, point3Dtype& max) const {
  min = m_scaleMin;
  max = m_scaleMax;
}

void CTransform3D::SetScaleMin(point3Dtype const& min) { SetScale(min, m_scaleMax); }

void CTransform3D::SetScaleMax(point3Dtype const& max) { SetScale(m_scaleMin, max); }

point3Dtype CTransform3D::GetScaleMin() const { return m_scaleMin; }

point3Dtype CTransform3D::GetScaleMax() const { return m_scaleMax; }

void CTransform3D::SetAdjustedScale() {
  m_adjustedScaleMin = m_scaleMin;
  m_adjustedScaleMax = m_scaleMax;
  for (int axis = 0; axis < kAxes; ++axis) {
    if (GetAxisScaleMode(axis) == 0) continue;
    coordassign(m_adjustedScaleMin, axis, AntilogLog10Ex(GetCoord3D(m_scaleMin, axis)));
    coordassign(m_adjustedScaleMax, axis, AntilogLog10Ex(GetCoord3D(m_scaleMax, axis)));
  }
}

point3Dtype CTransform3D::GetAdjustedScaleMin() {
  SetAdjustedScale();
  return m_adjustedScaleMin;
}

point3Dtype CTransform3D::GetAdjustedScaleMax() {
  SetAdjustedScale();
  return m_adjustedScaleMax;
}

void CTransform3D::CalcWorkingScale(point3Dtype const& min, point3Dtype const& max) {
  m_workingScaleMin = CPTWS(min);
  m_workingScaleMax = CPTWS(max);
}

void CTransform3D::GetWorkingScale(point3Dtype& min, point3Dtype& max) const {
  min = m_workingScaleMin;
  max = m_workingScaleMax;
}

point3Dtype CTransform3D::GetRange() const { return Difference(m_scaleMax, m_scaleMin); }

point3Dtype CTransform3D::GetWorkingRange() const {
  return Difference(m_workingScaleMax, m_workingScaleMin);
}

double CTransform3D::GetAxisRange(int axis) const {
  point3Dtype range = GetRange();
  return GetCoord3D(range, axis);
}

double CTransform3D::GetAxisWorkingRange(int axis) const {
  point3Dtype range = GetWorkingRange();
  return GetCoord3D(range, axis);
}

int CTransform3D::IsScaleInverted(int axis) const { return GetAxisWorkingRange(axis % 3) < 0.0; }

void CTransform3D::SetAxisScaleMode(int axis, int mode) {
  if (axis < 0 || axis >= static_cast<int>(m_axisScaleModes.size())) return;
  m_axisScaleModes[static_cast<std::size_t>(axis)] = mode;
}

int CTransform3D::GetAxisScaleMode(int axis) const {
  if (axis < 0 || axis >= static_cast<int>(m_axisScaleModes.size())) return 0;
  return m_axisScaleModes[static_cast<std::size_t>(axis)];
}

void CTransform3D::SetChartRect(point3Dtype const& rect) { m_chartRect = rect; }

point3Dtype CTransform3D::GetChartRect() const { return m_chartRect; }

void CTransform3D::SetOffset(point3Dtype const& offset) { m_offset = offset; }

point3Dtype CTransform3D::GetOffset() const { return m_offset; }

void CTransform3D::SetRotate(point3Dtype const& degrees) {
  m_rotation.x = degrees.x;
  m_rotation.y = degrees.y;
  m_rotation.z = degrees.z;
}

point3Dtype CTransform3D::GetRotation() const { return m_rotation; }

void CTransform3D::SetCentroid(point3Dtype const& centroid) { m_centroid = centroid; }

point3Dtype CTransform3D::GetCentroid() const { return m_centroid; }

point3Dtype CTransform3D::GetNormalizationFactors() const { return m_normalizationFactors; }

void CTransform3D::SetClipping(int flag) {
  m_clipping = flag;
  if (m_context == nullptr) return;
  if (flag != 0) m_context->SetClipLimits(m_workingScaleMin, m_workingScaleMax);
  m_context->EnableClipping(flag);
}

int CTransform3D::GetClipping() const { return m_clipping; }

void CTransform3D::SetFontAspect(double aspect) { m_fontAspect = aspect; }

double CTransform3D::GetFontAspect() const { return m_fontAspect; }

void CTransform3D::SetFontHeightSF(double factor) { m_fontHeightSF = factor; }

double CTransform3D::GetFontHeightSF() const { return m_fontHeightSF; }

double CTransform3D::CVTWS(int axis, double value) const {
  return GetAxisScaleMode(axis % kAxes) != 0 ? log10Ex(value) : value;
}

double CTransform3D::CVFWS(int axis, double value) const {
  return GetAxisScaleMode(axis % kAxes) != 0 ? Antilog10Ex(value) : value;
}

point3Dtype CTransform3D::CPTWS(point3Dtype const& point) const {
  return {.x = CVTWS(0, point.x), .y = CVTWS(1, point.y), .z = CVTWS(2, point.z), .v = point.v};
}

void CTransform3D::CPFWS(point3Dtype& out, point3Dtype const& in) const {
  out.x = CVFWS(0, in.x);
  out.y = CVFWS(1, in.y);
  out.z = CVFWS(2, in.z);
}

void CTransform3D::C3DATWS(point3Dtype* points, int n) const {
  if (points == nullptr) return;
  for (int i = 0; i < n; ++i) points[i] = CPTWS(points[i]);
}

double CTransform3D::LogLimits(int axis, double value) const {
  return GetAxisScaleMode(axis) != 0 ? AntilogLog10Ex(value) : value;
}

void CTransform3D::NormalizePoint(point3Dtype const& in, point3Dtype& out) const {
  const auto normalize = [](double value, double min, double max, double rect) {
    return ((value - min) * 2.0 / (max - min) - 1.0) * rect;
  };
  const point3Dtype working = CPTWS(in);
  out.x = normalize(working.x, m_workingScaleMin.x, m_workingScaleMax.x, m_chartRect.x);
  out.y = normalize(working.y, m_workingScaleMin.y, m_workingScaleMax.y, m_chartRect.y);
  out.z = normalize(working.z, m_workingScaleMin.z, m_workingScaleMax.z, m_chartRect.z);
  out.v = in.v;
}

void CTransform3D::UnNormalizePoint(point3Dtype const& in, point3Dtype& out) const {
  const auto interpolate = [](double value, double min, double max, double rect) {
    return (max - min) * ((value / rect + 1.0) * 0.5) + min;
  };
  const point3Dtype raw{.x = interpolate(in.x, m_scaleMin.x, m_scaleMax.x, m_chartRect.x),
                        .y = interpolate(in.y, m_scaleMin.y, m_scaleMax.y, m_chartRect.y),
                        .z = interpolate(in.z, m_scaleMin.z, m_scaleMax.z, m_chartRect.z),
                        .v = in.v};
  CPFWS(out, raw);
  out.v = raw.v;
}

void CTransform3D::MakeGraphTransformCurrent() {
  m_context->LoadMatrixTransform(m_graphTransform.data());
}

void CTransform3D::MakeTextTransformCurrent() {
  m_context->LoadMatrixTransform(m_fontTransform.data());
}

void CTransform3D::AppendShape(std::vector<double>& numbers) const {
  for (const point3Dtype& point :
       {m_scaleMin, m_scaleMax, m_workingScaleMin, m_workingScaleMax, m_chartRect}) {
    numbers.insert(numbers.end(), {point.x, point.y, point.z});
  }
  numbers.insert(numbers.end(), m_axisScaleModes.begin(), m_axisScaleModes.end());
  // Drawings load its matrices from where they are.
  numbers.push_back(std::bit_cast<double>(reinterpret_cast<std::uintptr_t>(this)));
}

void CTransform3D::ChartTransform() {
  if (m_context == nullptr) return;
  m_context->SelectModelView();
  m_context->LoadIdentity();
  m_context->PushMatrix();
  TransformAll();
  m_context->ReadModelViewMatrix(m_graphTransform.data());
  m_context->PopMatrix();
  MakeGraphTransformCurrent();
}

void CTransform3D::TextTransform() {
  if (m_context == nullptr) return;
  if (m_context->GathersTextsThrough(m_fontTransform.data())) {
    // Whoever gathers has brought it up to date.
    MakeTextTransformCurrent();
    return;
  }
  m_context->SendGathered();
  m_context->SelectModelView();
  m_context->LoadIdentity();
  m_context->PushMatrix();
  TransformRotate();
  m_context->ReadModelViewMatrix(m_fontTransform.data());
  m_context->PopMatrix();
  MakeTextTransformCurrent();
}

void CTransform3D::TransformAll() {
  TransformRotate();
  TransformScale();
  TransformTranslate();
}

void CTransform3D::TransformRotate() {
  if (m_context == nullptr) return;
  m_context->Rotate3D(-90.0, 0);
  m_context->Translate3D(m_offset.x, m_offset.y, m_offset.z);
  m_context->Rotate3D(m_rotation.x, 0);
  m_context->Rotate3D(m_rotation.y, 1);
  m_context->Rotate3D(m_rotation.z, 2);
}

void CTransform3D::TransformScale() {
  SetAdjustedScale();
  CalcWorkingScale(m_adjustedScaleMin, m_adjustedScaleMax);
  const point3Dtype range = GetWorkingRange();
  AssignPoint3D(m_normalizationFactors, 2.0 / range.x, 2.0 / range.y, 2.0 / range.z);
  if (m_context == nullptr) return;
  m_context->Scale3D(m_normalizationFactors.x, m_normalizationFactors.y, m_normalizationFactors.z);
  m_context->Scale3D(m_chartRect.x, m_chartRect.y, m_chartRect.z);
}

void CTransform3D::TransformTranslate() {
  const point3Dtype range = GetWorkingRange();
  AssignPoint3D(m_centroid, m_workingScaleMin.x + range.x * 0.5,
                m_workingScaleMin.y + range.y * 0.5, m_workingScaleMin.z + range.z * 0.5);
  if (m_context != nullptr) m_context->Translate3D(-m_centroid.x, -m_centroid.y, -m_centroid.z);
}

double* CTransform3D::GetGraphTransform() { return m_graphTransform.data(); }

double* CTransform3D::GetFontTransform() { return m_fontTransform.data(); }

template <class Record, class Self>
void CTransform3D::RecordFields(Record& record, Self& self) {
  record.Field("id", self.m_id);
  record.Fields("graph transform", self.m_graphTransform);
  record.Fields("font transform", self.m_fontTransform);
  record.Field("centroid", self.m_centroid);
  record.Field("offset", self.m_offset);
  record.Field("rotation", self.m_rotation);
  record.Field("normalisation factors", self.m_normalizationFactors);
  record.Field("chart rectangle", self.m_chartRect);
  record.Field("scale minimum", self.m_scaleMin);
  record.Field("scale maximum", self.m_scaleMax);
  // Kept: the working scale stands before the adjusted one; stored charts have them so.
  record.Field("working scale minimum", self.m_workingScaleMin);
  record.Field("working scale maximum", self.m_workingScaleMax);
  record.Field("adjusted scale minimum", self.m_adjustedScaleMin);
  record.Field("adjusted scale maximum", self.m_adjustedScaleMax);
  record.Fields("axis scale modes", self.m_axisScaleModes);
  record.Field("clipping", self.m_clipping);
  record.Field("reserved", self.m_reserved);
  record.Field("font aspect", self.m_fontAspect);
  record.Field("font height scale factor", self.m_fontHeightSF);
}

void CTransform3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_TRANSFORM3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CTransform3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_TRANSFORM3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

int CTransform3D::GetTransformID() const { return m_id; }

int CTransform3D::GetClassTag() const { return m_classTag; }
