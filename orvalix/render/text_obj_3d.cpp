#include "orvalix/render/text_obj_3d.h"

#include <cmath>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/transform_3d.h"

namespace {

// Kept: the sizes of turned texts come out of this rounding of a degree.
constexpr double kDegree = 0.01745;

/// Shift along one axis so that the text's beginning, middle or end lies at its place.
double Shift(int justify, double extent) {
  if (justify == 1) return -extent / 2.0;
  if (justify == 2) return -extent;
  return 0.0;
}

}  // namespace

int CTextObj3D::nSelfID = 0;

CTextObj3D::CTextObj3D() { InitTextObjDefaults(); }

CTextObj3D::CTextObj3D(COpenGL* context, CFont3D* font, CTransform3D* transform,
                       CString const& text)
    : CTextObj3D() {
  InitTextObj(context, font, transform);
  SetString(text);
}

void CTextObj3D::InitTextObjDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_transform = nullptr;
  m_string = "";
  m_font = nullptr;
  AssignPoint3D(m_location, 0.0, 0.0, 0.0);
  AssignPoint3D(m_normLocation, 0.0, 0.0, 0.0);
  m_xJustify = 0;
  m_yJustify = 0;
  m_color = SetRGBD(0.0, 0.0, 0.0, 1.0);
  m_textPlane = 3;
  m_rotation = 0;
  m_reserved = 0;
  m_clipping = 0;
  m_textEnable = 1;
  m_flipX = 0;
  m_flipY = 0;
  m_charSize = 1.0;
  m_transformID = 0;
  m_classTag = orvalix::kTextObjTag;
}

void CTextObj3D::InitTextObj(COpenGL* context, CFont3D* font, CTransform3D* transform) {
  m_context = nullptr;
  m_font = nullptr;
  m_transform = nullptr;
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_TEXTOBJ3D,
                      "InitTextObj");
  orvalix::RequireTag(font, orvalix::kFontTag, ERR3D_FONT_PARAMETER, ERR3DCLASS_TEXTOBJ3D,
                      "InitTextObj");
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_TEXTOBJ3D, "InitTextObj");
  m_context = context;
  m_font = font;
  m_transform = transform;
  m_transformID = transform->GetTransformID();
}

void CTextObj3D::SetString(CString const& text) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_TEXTOBJ3D, "SetString",
                                [&] { m_string = text; });
}

CString CTextObj3D::GetString() const {
  return orvalix::CopyText(m_string, ERR3DCLASS_TEXTOBJ3D, "GetString");
}

void CTextObj3D::GetString(CString& text) const { text = GetString(); }

void CTextObj3D::SetLocation(point3Dtype const& location) { m_location = location; }

point3Dtype CTextObj3D::GetLocation() const { return m_location; }

void CTextObj3D::SetNormLocation(point3Dtype const& location) { m_normLocation = location; }

point3Dtype CTextObj3D::GetNormLocation() const { return m_normLocation; }

void CTextObj3D::SetJustify(int x, int y) {
  SetXJustify(x);
  SetYJustify(y);
}

void CTextObj3D::SetXJustify(int x) { m_xJustify = x; }

void CTextObj3D::SetYJustify(int y) { m_yJustify = y; }

int CTextObj3D::GetXJustify() const { return m_xJustify; }

int CTextObj3D::GetYJustify() const { return m_yJustify; }

void CTextObj3D::GetJustify3D(int* x, int* y) const {
  if (x != nullptr) *x = m_xJustify;
  if (y != nullptr) *y = m_yJustify;
}

void CTextObj3D::SetColor(RGBDType const& color) { m_color = color; }

RGBDType CTextObj3D::GetColor() const { return m_color; }

void CTextObj3D::SetTextPlane(int plane) { m_textPlane = plane; }

int CTextObj3D::GetTextPlane() const { return m_textPlane; }

void CTextObj3D::SetRotation(int degrees) { m_rotation = degrees; }

int CTextObj3D::GetRotation() const { return m_rotation; }

void CTextObj3D::SetFlipX(int flag) { m_flipX = flag; }

int CTextObj3D::GetFlipX() const { return m_flipX; }

void CTextObj3D::SetFlipY(int flag) { m_flipY = flag; }

int CTextObj3D::GetFlipY() const { return m_flipY; }

void CTextObj3D::SetCharSize(double size) { m_charSize = size; }

double CTextObj3D::GetCharSize() const { return m_charSize; }

void CTextObj3D::SetClipping(int flag) { m_clipping = flag; }

int CTextObj3D::GetClipping() const { return m_clipping; }

void CTextObj3D::EnableTextObj(int flag) { m_textEnable = flag; }

int CTextObj3D::GetTextEnable() const { return m_textEnable; }

int CTextObj3D::GetTransformID() const { return m_transformID; }

int CTextObj3D::GetClassTag() const { return m_classTag; }

double CTextObj3D::TextWidth() const {
  return m_font != nullptr ? m_font->TextWidth3D(m_string) : 0.0;
}

double CTextObj3D::TextHeight() const {
  return m_font != nullptr ? m_font->TextHeight3D(m_string) : 0.0;
}

bool CTextObj3D::IsDrawn() const { return m_textEnable != 0 && m_context != nullptr; }

void CTextObj3D::Transform() {
  if (m_context == nullptr) return;
  m_context->SelectModelView();
  m_context->LoadIdentity();
  m_context->PushMatrix();
  m_transform->TransformAll();
  m_context->ReadModelViewMatrix(m_transform->GetGraphTransform());
  m_context->PopMatrix();
  m_context->PushMatrix();
  m_transform->TransformRotate();
  m_context->ReadModelViewMatrix(m_transform->GetFontTransform());
  m_context->PopMatrix();
  m_context->LoadMatrixTransform(m_transform->GetGraphTransform());
}

void CTextObj3D::OutText() {
  if (!IsDrawn()) return;
  m_transform->TextTransform();
  m_transform->NormalizePoint(m_location, m_normLocation);
  OutTextNorm();
}

void CTextObj3D::OutTextNorm() {
  if (!IsDrawn()) return;
  point3Dtype scale;
  CalcComplexAspectRatio(scale);
  if (!orvalix::IsPlaceable(m_normLocation) || !orvalix::IsPlaceable(scale)) return;

  // Another context's font isn't gathered.
  if (!m_context->GathersTexts() || m_font->m_context != m_context) m_context->SendGathered();
  // The projection may still be the current matrix when a view draws its first text.
  m_context->SelectModelView();
  m_context->PushMatrix();
  m_transform->TextTransform();
  if (!m_context->GathersTexts()) glColor3f(1.0F, 1.0F, 1.0F);
  const double unitsPerEm = m_font->GetFontScaleFactor();
  point3Dtype offset;
  calccharjust(offset, TextWidth() / unitsPerEm, TextHeight() / unitsPerEm);
  repostextstart3D(m_normLocation);
  TransformTextPlane(m_transform->GetRotation());
  m_context->Scale3D(scale.x, scale.y, scale.z);
  if (orvalix::IsPlaceable(offset)) repostextstart3D(offset);

  const int colorMode = m_context->GetColorMode();
  m_context->SetColorMode(0);
  m_context->SetFillStyle3D(m_color, SetRGBD(0.0, 0.0, 0.0, 1.0), m_color);
  m_font->DrawText3D(m_string);
  m_context->SetColorMode(colorMode);
  m_context->PopMatrix();
}

void CTextObj3D::CalcComplexAspectRatio(point3Dtype& scale) const {
  const double aspect = m_transform->GetFontAspect();
  const double angle = m_rotation * kDegree;
  const double cosine = std::abs(std::cos(angle));
  const double sine = std::abs(std::sin(angle));
  const double size = m_font->GetFontScaleFactor() * m_transform->GetFontHeightSF() * m_charSize;
  // Between its two axes a turned text gets a blend of their aspects.
  const double along = cosine * aspect + sine;
  const double across = sine * aspect + cosine;
  AssignPoint3D(scale, size * along, size * across, size * along);
}

void CTextObj3D::calccharjust(point3Dtype& offset, double width, double height) const {
  AssignPoint3D(offset, Shift(m_xJustify, width), Shift(m_yJustify, height), 0.0);
}

void CTextObj3D::repostextstart3D(point3Dtype const& offset) const {
  m_context->Translate3D(offset.x, offset.y, offset.z);
}

void CTextObj3D::TransformTextPlane(point3Dtype const& rotation) const {
  constexpr int kX = 0;
  constexpr int kY = 1;
  constexpr int kZ = 2;
  switch (m_textPlane) {
    case 0:
      m_context->Rotate3D(180.0, kX);
      m_context->Rotate3D(m_rotation, kZ);
      break;
    case 1:
      m_context->Rotate3D(m_rotation, kY);
      m_context->Rotate3D(90.0, kX);
      break;
    case 2:
      m_context->Rotate3D(m_rotation, kX);
      m_context->Rotate3D(90.0, kX);
      m_context->Rotate3D(-90.0, kY);
      break;
    default:
      m_context->Rotate3D(-rotation.z, kZ);
      m_context->Rotate3D(-rotation.y, kY);
      m_context->Rotate3D(-rotation.x, kX);
      m_context->Rotate3D(90.0, kX);
      m_context->Rotate3D(m_rotation, kZ);
      break;
  }
  if (m_flipX != 0) m_context->Rotate3D(180.0, kX);
  if (m_flipY != 0) m_context->Rotate3D(180.0, kY);
}

template <class Record, class Self>
void CTextObj3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("string", self.m_string);
  record.Field("location", self.m_location);
  record.Field("norm location", self.m_normLocation);
  record.Field("x justification", self.m_xJustify);
  record.Field("y justification", self.m_yJustify);
  record.Field("colour", self.m_color);
  record.Field("text plane", self.m_textPlane);
  record.Field("flip x", self.m_flipX);
  record.Field("flip y", self.m_flipY);
  record.Field("rotation", self.m_rotation);
  record.Field("reserved", self.m_reserved);
  record.Field("clipping", self.m_clipping);
  record.Field("text enable", self.m_textEnable);
  record.Field("character size", self.m_charSize);
}

void CTextObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_TEXTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CTextObj3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_TEXTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
