#include "orvalix/chart/header_3d.h"

#include "orvalix/chart/has_text_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/kept_drawing_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// From the first title to the second, in heights of the first.
constexpr double kLineStep = 5.0 / 3.0;
/// Which part of a text lies at its place.
constexpr int kCenter = 1;
constexpr int kTop = 2;
constexpr int kBottom = 0;

void DrawLine(CTextObj3D& text, double height, int yJustify) {
  point3Dtype location;
  AssignPoint3D(location, 0.0, 0.0, height);
  text.SetNormLocation(location);
  text.SetJustify(kCenter, yJustify);
  text.OutTextNorm();
}

}  // namespace

int CHeader3D::nSelfID = 0;

CHeader3D::CHeader3D() { InitHeaderDefaults(); }

CHeader3D::CHeader3D(COpenGL* context) : CHeader3D() { InitHeaders(context); }

CHeader3D::~CHeader3D() = default;

void CHeader3D::InitHeaderDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_headerMargin = 0.05;
  m_viewAspect = 1.0;
  m_fontHeightSF = 1.0;
  m_fontSize = 0.1;
  m_transformID = 0;
  m_classTag = orvalix::kHeaderTag;
  m_headerEnable = 1;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_HEADER3D, "InitHeaderDefaults",
                                [this] {
                                  m_title1 = std::make_unique<CTextObj3D>();
                                  m_title2 = std::make_unique<CTextObj3D>();
                                  m_footer = std::make_unique<CTextObj3D>();
                                });
}

void CHeader3D::InitHeaders(COpenGL* context) {
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_HEADER3D,
                      "InitHeaders");
  auto transform =
      orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_HEADER3D, "InitHeaders",
                                    [&] { return std::make_unique<CTransform3D>(context); });
  CFont3D* font = context->GetFont();
  for (CTextObj3D* text : {m_title1.get(), m_title2.get(), m_footer.get()}) {
    text->InitTextObj(context, font, transform.get());
  }
  m_context = context;
  m_transform = std::move(transform);
  m_transformID = m_transform->GetTransformID();
}

void CHeader3D::SetTitle1(const CString& text) { m_title1->SetString(text); }

CString CHeader3D::GetTitle1() const { return m_title1->GetString(); }

void CHeader3D::SetTitle2(const CString& text) { m_title2->SetString(text); }

CString CHeader3D::GetTitle2() const { return m_title2->GetString(); }

void CHeader3D::SetFooter(const CString& text) { m_footer->SetString(text); }

CString CHeader3D::GetFooter() const { return m_footer->GetString(); }

CTextObj3D* CHeader3D::GetTitle1Obj() const { return m_title1.get(); }

CTextObj3D* CHeader3D::GetTitle2Obj() const { return m_title2.get(); }

CTextObj3D* CHeader3D::GetFooterObj() const { return m_footer.get(); }

void CHeader3D::EnableHeader(int flag) { m_headerEnable = flag; }

int CHeader3D::GetHeaderEnable() const { return m_headerEnable; }

void CHeader3D::SetViewAspect(double aspect) { m_viewAspect = aspect; }

void CHeader3D::SetFontHeightSF(double factor) { m_fontHeightSF = factor; }

double CHeader3D::GetFontHeightSF() const { return m_fontHeightSF; }

void CHeader3D::SetFontSize(double size) { m_fontSize = size; }

double CHeader3D::GetFontSize() const { return m_fontSize; }

int CHeader3D::GetClassTag() const { return m_classTag; }

void CHeader3D::DrawHeader() {
  if (m_headerEnable == 0 || m_context == nullptr) return;
  m_transform->SetFontAspect(m_viewAspect);
  m_transform->SetFontHeightSF(m_fontHeightSF);
  m_transform->TextTransform();
  orvalix::DrawTexts(m_kept, *m_context, m_transform->GetFontTransform(), [this] { DrawLines(); });
}

bool CHeader3D::DrawsAnything() const {
  return m_headerEnable != 0 && m_context != nullptr &&
         (orvalix::HasText(*m_title1) || orvalix::HasText(*m_title2) ||
          orvalix::HasText(*m_footer));
}

void CHeader3D::DrawLines() {
  double height = 1.0 - m_headerMargin;
  if (orvalix::HasText(*m_title1)) {
    DrawLine(*m_title1, height, kTop);
    height -= m_title1->TextHeight() * kLineStep;
  }
  if (orvalix::HasText(*m_title2)) DrawLine(*m_title2, height, kTop);
  if (orvalix::HasText(*m_footer)) DrawLine(*m_footer, m_headerMargin - 1.0, kBottom);
}

template <class Record, class Self>
void CHeader3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("header margin", self.m_headerMargin);
  record.Field("view aspect", self.m_viewAspect);
  record.Field("font height scale factor", self.m_fontHeightSF);
  record.Field("font size", self.m_fontSize);
  record.Field("header enable", self.m_headerEnable);
  record.Child(*self.m_title1);
  record.Child(*self.m_title2);
  record.Child(*self.m_footer);
}

void CHeader3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_HEADER3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CHeader3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_HEADER3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
