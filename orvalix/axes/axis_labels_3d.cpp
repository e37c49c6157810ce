#include "orvalix/axes/axis_labels_3d.h"

#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/label_justification_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Labels at the minimum, the centre and the maximum.
constexpr int kAllEnds = 7;
constexpr int kAutomaticJustify = -1;
constexpr int kFacingTheViewer = 3;

}  // namespace

int CAxisLabels3D::nSelfID = 0;

CAxisLabels3D::CAxisLabels3D() { InitAxisLabelsDefaults(); }

CAxisLabels3D::CAxisLabels3D(COpenGL* context, CTransform3D* transform, CAxis3D* axis)
    : CAxisLabels3D() {
  InitAxisLabels(context, transform, axis);
}

CAxisLabels3D::~CAxisLabels3D() = default;

void CAxisLabels3D::InitAxisLabelsDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_axis = nullptr;
  m_transform = nullptr;
  FreeLabelObjs();
  m_axisIndex = 0;
  m_labelsPlane = kFacingTheViewer;
  m_labelsDir = 0;
  m_labelsRotation = 0;
  m_labelsDecimals = 0;
  m_labelsFormat = 0;
  m_labelsEnds = kAllEnds;
  m_labelsXJust = kAutomaticJustify;
  m_labelsYJust = kAutomaticJustify;
  m_titlePlane = kFacingTheViewer;
  m_titleDir = 0;
  m_titleRotation = 0;
  m_titleXJust = 0;
  m_titleYJust = 1;
  m_titleAutomatic = 1;
  m_labelsNthTic = 0;
  m_ticOffset = 1.5;
  m_labelsSize = 1.0;
  m_titleSize = 1.0;
  InitLabelJustTable();
  m_labelsSet = 0;
  m_reserved = 0;
  m_labelStringsEnable = 0;
  m_labelsFlipX = 0;
  m_labelsFlipY = 0;
  m_titleFlipX = 0;
  m_titleFlipY = 0;
  m_labelsColor = SetRGBD(0.0, 0.0, 0.0, 1.0);
  // Kept: stored charts hold this alpha.
  m_titleColor = SetRGBD(0.0, 0.0, 0.0, 0.0);
  DeleteTicStringsStorage();
  m_transformID = 0;
  m_classTag = orvalix::kAxisLabelsTag;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_AXISLABELS3D, "InitAxisLabelsDefaults",
                                [this] {
                                  m_engString = " KMBT";
                                  m_title = std::make_unique<CTextObj3D>();
                                });
}

void CAxisLabels3D::InitLabelJustTable() { m_justification = orvalix::DefaultLabelJustification(); }

void CAxisLabels3D::InitAxisLabels(COpenGL* context, CTransform3D* transform, CAxis3D* axis) {
  m_context = nullptr;
  m_transform = nullptr;
  m_axis = nullptr;
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_AXISLABELS3D,
                      "InitAxisLabels");
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_AXISLABELS3D, "InitAxisLabels");
  orvalix::RequireTag(axis, orvalix::kAxisTag, ERR3D_PARAMETER, ERR3DCLASS_AXISLABELS3D,
                      "InitAxisLabels");
  m_title->InitTextObj(context, context->GetFont(), transform);
  m_context = context;
  m_transform = transform;
  m_axis = axis;
  m_axisIndex = axis->GetAxisIndex();
  m_transformID = transform->GetTransformID();
}

void CAxisLabels3D::SetAxisLabels(int plane, int rotation, int direction, int decimals, int ends,
                                  RGBDType const& color, const CString* strings, int count) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_AXISLABELS3D, "SetAxisLabels",
                                [&] { InitTicStringsStorage(strings, count); });
  m_labelsPlane = plane;
  m_labelsRotation = rotation;
  m_labelsDir = direction;
  m_labelsDecimals = decimals;
  m_labelsEnds = ends;
  m_labelsColor = color;
  m_labelsSet = 1;
}

void CAxisLabels3D::SetAxisLabelsStrings(const CString* strings, int count) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_AXISLABELS3D, "SetAxisLabelsStrings",
                                [&] { InitTicStringsStorage(strings, count); });
}

void CAxisLabels3D::InitTicStringsStorage(const CString* strings, int count) {
  if (strings == nullptr || count < 1) {
    DeleteTicStringsStorage();
    return;
  }
  m_ticStrings = std::vector<CString>(strings, strings + count);
}

void CAxisLabels3D::DeleteTicStringsStorage() { m_ticStrings.clear(); }

void CAxisLabels3D::EnableAxisLabelsStrings(int flag) { m_labelStringsEnable = flag; }

int CAxisLabels3D::GetAxisLabelsStringEnable() const { return m_labelStringsEnable; }

CString* CAxisLabels3D::GetAxisLabelsStrings() {
  return m_ticStrings.empty() ? nullptr : m_ticStrings.data();
}

int CAxisLabels3D::GetNumAxisLabelsStrings() const { return static_cast<int>(m_ticStrings.size()); }

void CAxisLabels3D::SetAxisLabelsPlane(int plane) { m_labelsPlane = plane; }

int CAxisLabels3D::GetAxisLabelsPlane() const { return m_labelsPlane; }

void CAxisLabels3D::SetAxisLabelsDir(int direction) { m_labelsDir = direction; }

int CAxisLabels3D::GetAxisLabelsDir() const { return m_labelsDir; }

void CAxisLabels3D::SetAxisLabelsRotation(int degrees) { m_labelsRotation = degrees; }

int CAxisLabels3D::GetAxisLabelsRotation() const { return m_labelsRotation; }

void CAxisLabels3D::SetAxisLabelsDecimals(int decimals) { m_labelsDecimals = decimals; }

int CAxisLabels3D::GetAxisLabelsDecimals() const { return m_labelsDecimals; }

void CAxisLabels3D::SetAxisLabelsFormat(int format) { m_labelsFormat = format; }

int CAxisLabels3D::GetAxisLabelsFormat() const { return m_labelsFormat; }

void CAxisLabels3D::SetAxisLabelsEnds(int bits) { m_labelsEnds = bits; }

int CAxisLabels3D::GetAxisLabelsEnds() const { return m_labelsEnds; }

void CAxisLabels3D::SetAxisLabelsXJust(int justify) { m_labelsXJust = justify; }

int CAxisLabels3D::GetAxisLabelsXJust() const { return m_labelsXJust; }

void CAxisLabels3D::SetAxisLabelsYJust(int justify) { m_labelsYJust = justify; }

int CAxisLabels3D::GetAxisLabelsYJust() const { return m_labelsYJust; }

void CAxisLabels3D::SetAxisLabelsNthTic(int n) { m_labelsNthTic = n; }

int CAxisLabels3D::GetAxisLabelsNthTic() const { return m_labelsNthTic; }

void CAxisLabels3D::SetAxisLabelsTicOffset(double lengths) { m_ticOffset = lengths; }

double CAxisLabels3D::GetAxisLabelsTicOffset() const { return m_ticOffset; }

void CAxisLabels3D::SetAxisLabelsSize(double size) { m_labelsSize = size; }

double CAxisLabels3D::GetAxisLabelsSize() const { return m_labelsSize; }

void CAxisLabels3D::SetAxisLabelsFlipX(int flag) { m_labelsFlipX = flag; }

int CAxisLabels3D::GetAxisLabelsFlipX() const { return m_labelsFlipX; }

void CAxisLabels3D::SetAxisLabelsFlipY(int flag) { m_labelsFlipY = flag; }

int CAxisLabels3D::GetAxisLabelsFlipY() const { return m_labelsFlipY; }

void CAxisLabels3D::SetAxisLabelsColor(RGBDType const& color) { m_labelsColor = color; }

RGBDType CAxisLabels3D::GetAxisLabelsColor() const { return m_labelsColor; }

void CAxisLabels3D::SetEngString(CString const& suffixes) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_AXISLABELS3D, "SetEngString",
                                [&] { m_engString = suffixes; });
}

CString CAxisLabels3D::GetEngString() const {
  return orvalix::CopyText(m_engString, ERR3DCLASS_AXISLABELS3D, "GetEngString");
}

int CAxisLabels3D::GetNumAxisLabelObjs() const { return m_labels.Count(); }

CTextObj3D* CAxisLabels3D::GetAxisLabelObj(int index) const { return m_labels.At(index); }

void CAxisLabels3D::SetAxisTitle(int plane, int direction, int rotation, int xJust, int yJust,
                                 int automatic, RGBDType const& color, CString const& text) {
  m_titlePlane = plane;
  m_titleDir = direction;
  m_titleRotation = rotation;
  m_titleXJust = xJust;
  m_titleYJust = yJust;
  m_titleAutomatic = automatic;
  m_titleColor = color;
  SetAxisTitleString(text);
}

void CAxisLabels3D::SetAxisTitleString(CString const& text) { m_title->SetString(text); }

void CAxisLabels3D::GetAxisTitleString(CString& text) const { m_title->GetString(text); }

void CAxisLabels3D::SetAxisTitlePlane(int plane) { m_titlePlane = plane; }

int CAxisLabels3D::GetAxisTitlePlane() const { return m_titlePlane; }

void CAxisLabels3D::SetAxisTitleDir(int direction) { m_titleDir = direction; }

int CAxisLabels3D::GetAxisTitleDir() const { return m_titleDir; }

void CAxisLabels3D::SetAxisTitleRotation(int degrees) { m_titleRotation = degrees; }

int CAxisLabels3D::GetAxisTitleRotation() const { return m_titleRotation; }

void CAxisLabels3D::SetAxisTitleXJust(int justify) { m_titleXJust = justify; }

int CAxisLabels3D::GetAxisTitleXJust() const { return m_titleXJust; }

void CAxisLabels3D::SetAxisTitleYJust(int justify) { m_titleYJust = justify; }

int CAxisLabels3D::GetAxisTitleYJust() const { return m_titleYJust; }

void CAxisLabels3D::SetAxisTitleAutomatic(int flag) { m_titleAutomatic = flag; }

int CAxisLabels3D::GetAxisTitleAutomatic() const { return m_titleAutomatic; }

void CAxisLabels3D::SetAxisTitleSize(double size) { m_titleSize = size; }

double CAxisLabels3D::GetAxisTitleSize() const { return m_titleSize; }

void CAxisLabels3D::SetAxisTitleFlipX(int flag) { m_titleFlipX = flag; }

int CAxisLabels3D::GetAxisTitleFlipX() const { return m_titleFlipX; }

void CAxisLabels3D::SetAxisTitleFlipY(int flag) { m_titleFlipY = flag; }

int CAxisLabels3D::GetAxisTitleFlipY() const { return m_titleFlipY; }

void CAxisLabels3D::SetAxisTitleColor(RGBDType const& color) { m_titleColor = color; }

RGBDType CAxisLabels3D::GetAxisTitleColor() const { return m_titleColor; }

CTextObj3D* CAxisLabels3D::GetAxisTitleObj() const { return m_title.get(); }

int CAxisLabels3D::GetTransformID() const { return m_transformID; }

int CAxisLabels3D::GetClassTag() const { return m_classTag; }
