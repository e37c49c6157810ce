#include <algorithm>
#include <cmath>

#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/axes/axis_number_internal.h"
#include "orvalix/axes/directions_internal.h"
#include "orvalix/axes/label_justification_internal.h"
#include "orvalix/axes/tic_walk_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

constexpr int kAutomaticJustify = -1;
/// Where a label stands on its axis.
constexpr int kAtMin = 1;
constexpr int kAtCenter = 2;
constexpr int kAtMax = 4;
/// Share of the axis range within which a label is at such a place.
constexpr double kEndTolerance = 1.0 / 1000.0;

constexpr int kX = 0;
constexpr int kY = 1;

/// Characters of an axis' labels: a stored axis may have more tics, and more digits at each, than
/// can be drawn in any time.
constexpr int kMostCharacters = 10000;

}  // namespace

void CAxisLabels3D::DrawAxisLabels() {
  FreeLabelObjs();
  if (!IsDrawn() || !CalcAxisLabels()) return;
  for (CTextObj3D* label : m_labels) label->OutText();
  m_title->OutTextNorm();
}

bool CAxisLabels3D::IsDrawn() const {
  return m_labelsSet != 0 && m_context != nullptr && m_context->GetFont() != nullptr;
}

bool CAxisLabels3D::CalcAxisLabels() {
  m_context->SetFillStyle3D(m_labelsColor, SetRGBD(0.0, 0.0, 0.0, 1.0), m_labelsColor);
  return m_axis->GetAxisScaleMode() == 0 ? CalcLinAxisLabels() : CalcLogAxisLabels();
}

bool CAxisLabels3D::CalcLinAxisLabels() {
  const orvalix::TicRange range{.min = m_axis->GetAxisMin(),
                                .max = m_axis->GetAxisMax(),
                                .center = m_axis->GetAxisIntercept(0)};
  const double step = m_axis->GetAxisTicSpace() * m_axis->GetAxisNthTicMajor();
  const Justification justify = LabelJustify();
  point3Dtype location;
  const auto locate = [&](double value) {
    m_axis->GetAxisPoint(location, value);
    calcticpoint(location, SetOff(), m_labelsDir);
  };
  locate(range.min);
  int index = 0;
  orvalix::VisitLinearTics(range, step, [&](double value, int) {
    locate(value);
    if (IsKept(value, range.min, range.center, range.max)) {
      CTextObj3D* label = AppendLabel(value, index, justify, location);
      if (label != nullptr) {
        label->SetFlipX(m_labelsFlipX);
        label->SetFlipY(m_labelsFlipY);
      }
    }
    ++index;
  });
  CalcAxisTitle(location);
  return true;
}

bool CAxisLabels3D::CalcLogAxisLabels() {
  const int nthMajor = m_axis->GetAxisNthTicMajor();
  if (nthMajor == 0) return false;
  const int axis = m_axis->GetAxisIndex();
  const orvalix::TicRange range{
      .min = m_transform->LogLimits(axis, m_axis->GetAxisMin()),
      .max = m_transform->LogLimits(axis, m_axis->GetAxisMax()),
      .center = m_transform->LogLimits(axis, m_axis->GetAxisIntercept(0))};
  const Justification justify = LabelJustify();
  point3Dtype location;
  const auto locate = [&](double value) {
    m_axis->GetAxisPoint(location, value);
    for (const int which : {1, 2}) {
      const int other = m_axis->GetAxisInterceptAxis(which);
      coordassign(location, other, m_transform->LogLimits(other, m_axis->GetAxisIntercept(which)));
    }
    calcticpoint(location, SetOff(), m_labelsDir);
  };
  locate(range.min);
  int index = 0;
  orvalix::VisitLogarithmicLabels(range, nthMajor, [&](double value) {
    locate(value);
    if (IsKept(value, range.min, range.center, range.max)) {
      AppendLabel(value, index, justify, location);
    }
    ++index;
  });
  CalcAxisTitle(location);
  return true;
}

CAxisLabels3D::Justification CAxisLabels3D::LabelJustify() const {
  const int direction = orvalix::ValidDirection(m_labelsDir);
  const bool swapped =
      orvalix::PointsUp(direction) != (m_transform->IsScaleInverted(direction) != 0);
  Justification justify{m_labelsXJust, m_labelsYJust};
  if (justify.x == kAutomaticJustify) {
    justify.x =
        orvalix::LabelXJustify(m_justification, m_axisIndex, m_labelsPlane, m_labelsRotation);
    if (swapped && orvalix::AxisOfDirection(direction) == kX) {
      justify.x = orvalix::SwapTextJust(justify.x);
    }
  }
  if (justify.y == kAutomaticJustify) {
    justify.y =
        orvalix::LabelYJustify(m_justification, m_axisIndex, m_labelsPlane, m_labelsRotation);
    if (swapped && orvalix::AxisOfDirection(direction) == kY) {
      justify.y = orvalix::SwapTextJust(justify.y);
    }
  }
  // Kept: the flags cross over; a text that is turned about x has its top where its bottom was.
  if (m_labelsFlipX != 0) justify.y = orvalix::SwapTextJust(justify.y);
  if (m_labelsFlipY != 0) justify.x = orvalix::SwapTextJust(justify.x);
  return justify;
}

double CAxisLabels3D::SetOff() const {
  return std::max(m_axis->GetAxisMajorTicLength(), m_axis->GetAxisWallThickness()) * m_ticOffset;
}

bool CAxisLabels3D::IsKept(double value, double min, double center, double max) const {
  const double tolerance = m_axis->GetAxisRange() * kEndTolerance;
  int places = 0;
  if (NearTest(value, min, tolerance) != 0) places |= kAtMin;
  if (NearTest(value, center, tolerance) != 0) places |= kAtCenter;
  if (NearTest(value, max, tolerance) != 0) places |= kAtMax;
  return places == 0 || (places & m_labelsEnds) != 0;
}

CString CAxisLabels3D::LabelText(double value, int index) const {
  if (m_ticStrings.empty() || m_labelStringsEnable == 0) {
    return orvalix::FormatAxisNumber(value, m_labelsFormat, m_labelsDecimals, m_engString);
  }
  const auto position = static_cast<std::size_t>(index);
  return position < m_ticStrings.size() ? m_ticStrings[position] : CString();
}

CTextObj3D* CAxisLabels3D::NewLabelObj(CString const& text) {
  return m_labels.Append(
      std::make_unique<CTextObj3D>(m_context, m_context->GetFont(), m_transform, text));
}

CTextObj3D* CAxisLabels3D::AppendLabel(double value, int index, Justification justify,
                                       point3Dtype const& location) {
  if (m_labelCharacters >= kMostCharacters) return nullptr;
  CTextObj3D* label =
      orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_AXISLABELS3D, "NewLabelObj", [&] {
        const CString text = LabelText(value, index);
        m_labelCharacters += std::min(text.GetLength(), kMostCharacters) + 1;
        return NewLabelObj(text);
      });
  label->SetJustify(justify.x, justify.y);
  label->SetColor(m_labelsColor);
  label->SetLocation(location);
  label->SetRotation(m_labelsRotation);
  label->SetTextPlane(m_labelsPlane);
  label->SetCharSize(m_labelsSize);
  return label;
}

void CAxisLabels3D::FreeLabelObjs() {
  m_labels.Clear();
  m_labelCharacters = 0;
}

double CAxisLabels3D::GetMaxLabelLength() const {
  double longest = 0.0;
  for (const CTextObj3D* label : m_labels) longest = std::max(longest, label->TextWidth());
  return longest;
}

CAxisLabels3D::Justification CAxisLabels3D::TitleJustify(int& rotation) const {
  Justification justify{m_titleXJust, m_titleYJust};
  if (m_titleAutomatic != 0) {
    const bool swapped = orvalix::PointsUp(m_labelsDir);
    justify.x = 1;
    justify.y = m_axisIndex == kY ? 0 : 2;
    rotation = m_axisIndex == kX || m_axisIndex == kY ? 0 : 270;
    if (swapped && m_axisIndex == kX) justify.x = orvalix::SwapTextJust(justify.x);
    if (swapped && m_axisIndex != kX) justify.y = orvalix::SwapTextJust(justify.y);
  }
  // Kept: crossed as for labels.
  if (m_titleFlipX != 0) justify.y = orvalix::SwapTextJust(justify.y);
  if (m_titleFlipY != 0) justify.x = orvalix::SwapTextJust(justify.x);
  return justify;
}

void CAxisLabels3D::CalcAxisTitle(point3Dtype const& labelLocation) {
  const int axis = m_axis->GetAxisIndex();
  const double middle = (m_transform->CVTWS(axis, m_axis->GetAxisMin()) +
                         m_transform->CVTWS(axis, m_axis->GetAxisMax())) /
                        2.0;
  point3Dtype location = labelLocation;
  coordassign(location, axis, m_transform->CVFWS(axis, middle));
  m_transform->NormalizePoint(location, location);
  const double height = m_title->TextHeight();
  const double distance = axis == kX ? 1.5 * height : height + GetMaxLabelLength();
  orvalix::MovePoint(location, distance, m_labelsDir);

  int rotation = m_titleRotation;
  const Justification justify = TitleJustify(rotation);
  m_title->SetFlipX(m_titleFlipX);
  m_title->SetFlipY(m_titleFlipY);
  m_title->SetNormLocation(location);
  m_title->SetCharSize(m_titleSize);
  m_title->SetColor(m_titleColor);
  m_title->SetTextPlane(m_titlePlane);
  m_title->SetRotation(rotation);
  m_title->SetJustify(justify.x, justify.y);
}

void CAxisLabels3D::calcticpoint(point3Dtype& point, double length, int direction) const {
  const double range = m_transform->GetAxisWorkingRange(orvalix::AxisOfDirection(direction));
  point3Dtype working = m_transform->CPTWS(point);
  orvalix::MovePoint(working, std::abs(range) * length, direction);
  m_transform->CPFWS(point, working);
}
