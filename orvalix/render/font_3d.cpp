#include "orvalix/render/font_3d.h"

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr int kBold = 700;
constexpr LONG kFontHeight = -28;
constexpr LONG kNormalWeight = 400;

}  // namespace

int CFont3D::nSelfID = 0;

CFont3D::CFont3D() { InitFontDefaults(); }

CFont3D::CFont3D(COpenGL* context, CDC* deviceContext, int listBase) {
  InitFontDefaults();
  InitFont(context, deviceContext, listBase);
}

void CFont3D::InitFontDefaults() {
  ++nSelfID;
  m_context = nullptr;
  m_metrics = {};
  m_deviceContext = nullptr;
  m_description = {};
  m_description.lfHeight = kFontHeight;
  m_description.lfWeight = kNormalWeight;
  m_spare = 0;
  m_listBase = 0;
  m_italic = 0;
  m_underline = 0;
  m_weight = kBold;
  m_numChars = 128;
  m_extrusion = 0.01;
  m_rendering = 0.1;
  m_spareFactor = 1.0;
  m_scaleFactor = 0.05;
  m_requestedSize = 0.0;
  m_faceName = "Arial";
  m_classTag = orvalix::kFontTag;
}

void CFont3D::InitFont(COpenGL* context, CDC* deviceContext, int listBase) {
  if (deviceContext == nullptr || deviceContext->GetSafeHdc() == nullptr) {
    orvalix::ThrowError(ERR3D_CDC_PARAMETER, ERR3DCLASS_FONT3D, "InitFont");
  }
  if (!orvalix::IsTagged(context, orvalix::kOpenGLTag)) {
    orvalix::ThrowError(ERR3D_OPENGL_PARAMETER, ERR3DCLASS_FONT3D, "InitFont");
  }
  m_context = context;
  m_deviceContext = deviceContext;
  m_listBase = listBase;
}

int CFont3D::RegisterFont(CString const&, double scale, int weight, int italic, int underline,
                          int numChars) {
  m_numChars = numChars;
  m_italic = italic;
  m_underline = underline;
  m_weight = weight;
  m_requestedSize = scale;
  return 0;
}

int CFont3D::RegisterFont(CString const& face, double scale, int weight, int italic, int numChars) {
  return RegisterFont(face, scale, weight, italic, 0, numChars);
}

void CFont3D::SetFontExtrusion(double extrusion) { m_extrusion = extrusion; }

double CFont3D::GetFontExtrusion() const { return m_extrusion; }

void CFont3D::SetFontRendering(double deviation) { m_rendering = deviation; }

double CFont3D::GetFontRendering() const { return m_rendering; }

void CFont3D::SetFontScaleFactor(double factor) { m_scaleFactor = factor; }

double CFont3D::GetFontScaleFactor() const { return m_scaleFactor; }

void CFont3D::SetNumFontChars(int count) { m_numChars = count; }

int CFont3D::GetNumFontChars() const { return m_numChars; }

int CFont3D::GetListBase() const { return m_listBase; }

CString CFont3D::GetFaceName() const { return m_faceName; }

int CFont3D::GetClassTag() const { return m_classTag; }

template <class Record, class Self>
void CFont3D::RecordFields(Record& record, Self& self) {
  record.Field(self.m_spare);
  record.Field(self.m_listBase);
  record.Field(self.m_italic);
  record.Field(self.m_underline);
  record.Field(self.m_weight);
  record.Field(self.m_numChars);
  record.Field(self.m_extrusion);
  record.Field(self.m_rendering);
  record.Field(self.m_spareFactor);
  // Kept: the scale factor stands in the record twice; the second one holds on reading.
  record.Field(self.m_scaleFactor);
  record.Field(self.m_scaleFactor);
  record.Field(self.m_faceName);
}

void CFont3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_FONT3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CFont3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_FONT3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
