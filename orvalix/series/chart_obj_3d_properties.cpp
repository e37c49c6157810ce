#include <algorithm>
#include <cstddef>
#include <limits>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// True when `i` lies below `bound` and inside the storage, whichever is shorter.
template <class T>
bool Holds(const std::vector<T>& storage, int i, int bound) {
  return i >= 0 && i < bound && static_cast<std::size_t>(i) < storage.size();
}

template <class T>
T Element(const std::vector<T>& storage, int i, int bound) {
  return Holds(storage, i, bound) ? storage[static_cast<std::size_t>(i)] : T{};
}

template <class T>
void SetElement(std::vector<T>& storage, int i, int bound, const T& value) {
  if (Holds(storage, i, bound)) storage[static_cast<std::size_t>(i)] = value;
}

/// There is a contour colour more than there are contours.
int OneMore(int count) { return count < std::numeric_limits<int>::max() ? count + 1 : count; }

}  // namespace

double CChartObj3D::GetIndData(int i) const { return Element(m_indData, i, m_numDataPnts); }

void CChartObj3D::SetIndData(int i, double value) {
  m_kept.Forget();
  SetElement(m_indData, i, m_numDataPnts, value);
}

double CChartObj3D::GetDepData(int i) const { return Element(m_depData, i, m_numDataPnts); }

void CChartObj3D::SetDepData(int i, double value) {
  m_kept.Forget();
  SetElement(m_depData, i, m_numDataPnts, value);
}

double CChartObj3D::GetDepData2(int i, double) const {
  return Element(m_depData2, i, m_numDataPnts);
}

void CChartObj3D::SetDepData2(int i, double value) {
  m_kept.Forget();
  SetElement(m_depData2, i, m_numDataPnts, value);
}

double CChartObj3D::GetBarHeight(int i) const { return Element(m_barHeights, i, m_numDataPnts); }

void CChartObj3D::SetBarHeight(int i, double value) {
  m_kept.Forget();
  SetElement(m_barHeights, i, m_numDataPnts, value);
}

bool CChartObj3D::FindGroupData(int group, int point, std::size_t& index) const {
  if (group < 0 || group >= m_numGroups || point < 0 || point >= m_numDataPnts) return false;
  index = static_cast<std::size_t>(group) * static_cast<std::size_t>(m_numDataPnts) +
          static_cast<std::size_t>(point);
  return index < m_groupData.size();
}

double CChartObj3D::GetGroupData(int group, int point) const {
  std::size_t index = 0;
  return FindGroupData(group, point, index) ? m_groupData[index] : 0.0;
}

void CChartObj3D::SetGroupData(int group, int point, double value) {
  m_kept.Forget();
  std::size_t index = 0;
  if (FindGroupData(group, point, index)) m_groupData[index] = value;
}

RGBDType CChartObj3D::GetGroupColor(int i) const { return Element(m_groupColors, i, m_numGroups); }

void CChartObj3D::SetGroupColor(int i, RGBDType const& color) {
  m_kept.Forget();
  SetElement(m_groupColors, i, m_numGroups, color);
}

RGBDType CChartObj3D::GetSegmentColor(int i) const {
  return Element(m_segmentColors, i, m_numDataPnts);
}

void CChartObj3D::SetSegmentColor(int i, RGBDType const& color) {
  m_kept.Forget();
  SetElement(m_segmentColors, i, m_numDataPnts, color);
}

point3Dtype CChartObj3D::Get3DPoint(int i) const { return Element(m_points, i, m_numDataPnts); }

void CChartObj3D::Set3DPoint(int i, point3Dtype const& point) {
  m_kept.Forget();
  SetElement(m_points, i, m_numDataPnts, point);
}

CString CChartObj3D::GetScatterTextString(int i) const {
  return orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D,
                                       "GetScatterTextString",
                                       [&] { return Element(m_strings, i, m_numDataPnts); });
}

void CChartObj3D::SetScatterTextString(int i, CString const& text) {
  m_kept.Forget();
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, "SetScatterTextString",
                                [&] { SetElement(m_strings, i, m_numDataPnts, text); });
}

double CChartObj3D::GetContourValue(int i) const { return Element(m_indData, i, m_numDataPnts); }

void CChartObj3D::SetContourValue(int i, double value) {
  m_kept.Forget();
  SetElement(m_indData, i, m_numContours, value);
}

RGBDType CChartObj3D::GetContourColor(int i) const {
  return Element(m_segmentColors, i, OneMore(m_numDataPnts));
}

void CChartObj3D::SetContourColor(int i, RGBDType const& color) {
  m_kept.Forget();
  SetElement(m_segmentColors, i, OneMore(m_numContours), color);
}

point3Dtype CChartObj3D::GetPolysurfacePoint(int i) const {
  point3Dtype point{};
  if (m_polysurface.has_value()) m_polysurface->GetOnePolysurfacePoint(i, point);
  return point;
}

void CChartObj3D::SetPolysurfacePoint(int i, point3Dtype const& point) {
  m_kept.Forget();
  if (m_polysurface.has_value()) m_polysurface->SetOnePolysurfacePoint(i, point);
}

void CChartObj3D::SetBaseValue(double value) { m_baseValue = value; }

double CChartObj3D::GetBaseValue() const { return m_baseValue; }

void CChartObj3D::SetConstValue(double value) { m_constValue = value; }

double CChartObj3D::GetConstValue() const { return m_constValue; }

void CChartObj3D::SetConstWidth(double value) { m_constWidth = value; }

double CChartObj3D::GetConstWidth() const { return m_constWidth; }

void CChartObj3D::SetFillGap(double value) { m_fillGap = value; }

double CChartObj3D::GetFillGap() const { return m_fillGap; }

void CChartObj3D::SetIndWidth(double value) { m_indWidth = value; }

double CChartObj3D::GetIndWidth() const { return m_indWidth; }

void CChartObj3D::SetOutlineWidth(double value) { m_outlineWidth = value; }

double CChartObj3D::GetOutlineWidth() const { return m_outlineWidth; }

void CChartObj3D::SetPlaneThickness(double value) { m_planeThickness = value; }

double CChartObj3D::GetPlaneThickness() const { return m_planeThickness; }

void CChartObj3D::SetRelSize(double value) { m_relSize = value; }

double CChartObj3D::GetRelSize() const { return m_relSize; }

void CChartObj3D::SetChartType(int value) { m_chartType = value; }

int CChartObj3D::GetChartType() const { return m_chartType; }

void CChartObj3D::SetClipping(int value) { m_clipping = value; }

int CChartObj3D::GetClipping() const { return m_clipping; }

void CChartObj3D::SetColorMode(int value) { m_colorMode = value; }

int CChartObj3D::GetColorMode() const { return m_colorMode; }

void CChartObj3D::SetConstJustify(int value) { m_constJustify = value; }

int CChartObj3D::GetConstJustify() const { return m_constJustify; }

void CChartObj3D::SetContourLabelFlag(int value) { m_contourLabelFlag = value; }

int CChartObj3D::GetContourLabelFlag() const { return m_contourLabelFlag; }

void CChartObj3D::SetGroupType(int value) { m_groupType = value; }

int CChartObj3D::GetGroupType() const { return m_groupType; }

void CChartObj3D::SetIndAxis(int value) { m_indAxis = value; }

int CChartObj3D::GetIndAxis() const { return m_indAxis; }

void CChartObj3D::SetIndJustify(int value) { m_indJustify = value; }

int CChartObj3D::GetIndJustify() const { return m_indJustify; }

void CChartObj3D::SetLineStyle(int value) { m_lineStyle = value; }

int CChartObj3D::GetLineStyle() const { return m_lineStyle; }

void CChartObj3D::SetLineWidth(int value) { m_lineWidth = value; }

int CChartObj3D::GetLineWidth() const { return m_lineWidth; }

void CChartObj3D::SetNumContours(int value) { m_numContours = value; }

int CChartObj3D::GetNumContours() const { return m_numContours; }

void CChartObj3D::SetNumDataPnts(int value) { m_numDataPnts = value; }

int CChartObj3D::GetNumDataPnts() const { return m_numDataPnts; }

void CChartObj3D::SetNumGroups(int value) { m_numGroups = value; }

int CChartObj3D::GetNumGroups() const { return m_numGroups; }

void CChartObj3D::SetOutlineMode(int value) { m_outlineMode = value; }

int CChartObj3D::GetOutlineMode() const { return m_outlineMode; }

void CChartObj3D::SetProjectionPlane(int value) { m_projectionPlane = value; }

int CChartObj3D::GetProjectionPlane() const { return m_projectionPlane; }

void CChartObj3D::SetSegmentColorMode(int value) { m_segmentColorMode = value; }

int CChartObj3D::GetSegmentColorMode() const { return m_segmentColorMode; }

void CChartObj3D::SetSymbol(int value) { m_symbol = value; }

int CChartObj3D::GetSymbol() const { return m_symbol; }

void CChartObj3D::SetSymbol2(int value) { m_symbol2 = value; }

int CChartObj3D::GetSymbol2() const { return m_symbol2; }

void CChartObj3D::SetTextPlane(int value) { m_textPlane = value; }

int CChartObj3D::GetTextPlane() const { return m_textPlane; }

void CChartObj3D::SetFillColor(RGBDType const& color) { m_fillColor = color; }

RGBDType CChartObj3D::GetFillColor() const { return m_fillColor; }

void CChartObj3D::SetOutlineColor(RGBDType const& color) { m_outlineColor = color; }

RGBDType CChartObj3D::GetOutlineColor() const { return m_outlineColor; }

void CChartObj3D::SetDepJustify(int value) { m_depJustify = value; }

void CChartObj3D::SetComboChartFlags(const int* flags) {
  if (flags != nullptr) std::copy_n(flags, m_comboChartFlags.size(), m_comboChartFlags.begin());
}

void CChartObj3D::GetComboChartFlags(int* flags) const {
  if (flags != nullptr) std::copy(m_comboChartFlags.begin(), m_comboChartFlags.end(), flags);
}

void CChartObj3D::EnableChartObj(int flag) { m_enable = flag; }

int CChartObj3D::GetChartObjEnable() const { return m_enable; }

int CChartObj3D::GetOwnerID() const { return m_ownerID; }

int CChartObj3D::GetClassTag() const { return m_classTag; }
