#include "orvalix/render/font_3d.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <new>
#include <utility>
#include <vector>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/font_glyphs_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/outline_face_internal.h"

namespace {

constexpr int kBold = 700;
constexpr LONG kFontHeight = -28;
constexpr LONG kNormalWeight = 400;
/// The chordal deviation is told in units of the font's height.
constexpr double kDeviationUnitsPerEm = -kFontHeight;

bool IsCompilingList() {
  GLint list = 0;
  glGetIntegerv(GL_LIST_INDEX, &list);
  return list != 0;
}

}  // namespace

int CFont3D::nSelfID = 0;

CFont3D::CFont3D() { InitFontDefaults(); }

CFont3D::~CFont3D() = default;

CFont3D::CFont3D(COpenGL* context, CDC* deviceContext, int listBase) {
  InitFontDefaults();
  InitFont(context, deviceContext, listBase);
}

void CFont3D::InitFontDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_metrics = {};
  m_deviceContext = nullptr;
  m_description = {};
  m_description.lfHeight = kFontHeight;
  m_description.lfWeight = kNormalWeight;
  m_spare = 0;
  m_listBase = 0;
  m_builtListBase = 0;
  m_glyphs.reset();
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
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_FONT3D,
                      "InitFont");
  // What another context has stays with it.
  if (context != m_context) m_glyphs.reset();
  m_context = context;
  m_deviceContext = deviceContext;
  m_listBase = listBase;
}

int CFont3D::RegisterFont(CString const& face, double scale, int weight, int italic, int underline,
                          int numChars) {
  return Register(face, scale, weight, italic, underline, numChars, Lists::kAtOnce);
}

int CFont3D::Register(CString const& face, double scale, int weight, int italic, int underline,
                      int numChars, Lists lists) {
  m_numChars = numChars;
  m_italic = italic;
  m_underline = underline;
  m_weight = weight;
  m_requestedSize = scale;
  DescribeFont(face);
  // OpenGL has no list 0.
  if (m_context == nullptr || m_listBase < 1) return 0;
  try {
    std::vector<orvalix::Glyph> glyphs =
        orvalix::LoadGlyphs({.name = face,
                             .weight = weight,
                             .italic = italic != 0,
                             .underline = underline != 0,
                             .count = std::min(numChars, static_cast<int>(m_metrics.size())),
                             .deviation = m_rendering / kDeviationUnitsPerEm});
    if (glyphs.empty()) return 0;
    auto characters = std::make_unique<orvalix::FontGlyphs>(std::move(glyphs), m_extrusion);
    if (lists == Lists::kAtOnce) characters->FillAll();
    CString name = face;
    TakeGlyphs(std::move(characters));
    m_faceName = std::move(name);
    if (lists == Lists::kAtOnce) CompileLists();
  } catch (const std::bad_alloc&) {
    return 0;
  }
  m_scaleFactor = scale;
  return 1;
}

void CFont3D::TakeGlyphs(std::unique_ptr<orvalix::FontGlyphs> glyphs) {
  m_context->MakeCurrent();
  for (std::size_t code = 0; m_glyphs != nullptr && code < m_glyphs->Count(); ++code) {
    if (!m_glyphs->HasList(code)) continue;
    glDeleteLists(static_cast<GLuint>(m_builtListBase) + static_cast<GLuint>(code), 1);
  }
  m_metrics = {};
  for (std::size_t code = 0; code < glyphs->Count(); ++code) {
    m_metrics[code] = glyphs->Metrics(code);
  }
  m_glyphs = std::move(glyphs);
  m_builtListBase = m_listBase;
}

void CFont3D::DescribeFont(CString const& face) {
  m_description.lfWeight = m_weight;
  m_description.lfItalic = m_italic != 0;
  m_description.lfUnderline = m_underline != 0;
  // A longer name is cut here; the face is looked for with all of it.
  std::snprintf(m_description.lfFaceName, sizeof m_description.lfFaceName, "%s", face.GetString());
}

bool CFont3D::KnowsCharacters() const {
  return m_glyphs != nullptr && m_listBase == m_builtListBase;
}

unsigned CFont3D::ListOf(std::size_t code) const {
  return static_cast<unsigned>(m_listBase) + static_cast<unsigned>(code);
}

void CFont3D::CompileLists() const {
  m_glyphs->FillAll();
  m_context->MakeCurrent();
  if (IsCompilingList()) return;
  for (std::size_t code = 0; code < m_glyphs->Count(); ++code) {
    m_glyphs->CompileList(code, ListOf(code));
  }
}

bool CFont3D::HasListsFor(CString const& text) const {
  // Lists are their context's.
  const bool canCompile = m_context->IsCurrent() && !IsCompilingList();
  try {
    for (int i = 0; i < text.GetLength(); ++i) {
      const std::size_t code = static_cast<unsigned char>(text[i]);
      if (code >= m_glyphs->Count()) continue;
      if (canCompile) m_glyphs->CompileList(code, ListOf(code));
      if (!m_glyphs->HasList(code)) return false;
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return m_context->IsCurrent();
}

const GLYPHMETRICSFLOAT& CFont3D::MetricsOf(char character) const {
  static constexpr GLYPHMETRICSFLOAT kNone{};
  const std::size_t code = static_cast<unsigned char>(character);
  return static_cast<int>(code) < m_numChars ? m_metrics[code] : kNone;
}

double CFont3D::TextWidth3D(CString const& text) const {
  double width = 0.0;
  for (int i = 0; i < text.GetLength(); ++i) {
    width += static_cast<double>(MetricsOf(text[i]).gmfCellIncX);
  }
  return width * m_scaleFactor;
}

double CFont3D::TextHeight3D(CString const& text) const {
  double height = 0.0;
  for (int i = 0; i < text.GetLength(); ++i) {
    height = std::max(height, static_cast<double>(MetricsOf(text[i]).gmfBlackBoxY));
  }
  return height * m_scaleFactor;
}

double CFont3D::TextDiagonal3D(CString const& text) const {
  return std::hypot(TextWidth3D(text), TextHeight3D(text));
}

GLYPHMETRICSFLOAT CFont3D::GetGlyphMetrics(int code) const {
  if (code < 0 || code >= static_cast<int>(m_metrics.size())) return {};
  return MetricsOf(static_cast<char>(code));
}

void CFont3D::DrawText3D(CString const& text) const {
  if (KnowsCharacters() && m_context->GathersTexts()) {
    GatherText(text);
    return;
  }
  if (m_context != nullptr) m_context->SendGathered();
  glEnable(GL_CULL_FACE);
  glCullFace(GL_BACK);
  if (KnowsCharacters() && !HasListsFor(text)) {
    SendText(text);
  } else {
    glListBase(static_cast<GLuint>(m_listBase));
    glCallLists(text.GetLength(), GL_UNSIGNED_BYTE, text.GetString());
  }
  glDisable(GL_CULL_FACE);
}

void CFont3D::GatherText(CString const& text) const {
  for (int i = 0; i < text.GetLength(); ++i) {
    const std::size_t code = static_cast<unsigned char>(text[i]);
    if (code >= m_glyphs->Count()) continue;
    m_context->RecordGlyph(*m_glyphs, code);
    m_context->Translate3D(static_cast<double>(m_metrics[code].gmfCellIncX),
                           static_cast<double>(m_metrics[code].gmfCellIncY), 0.0);
  }
}

void CFont3D::SendText(CString const& text) const {
  try {
    for (int i = 0; i < text.GetLength(); ++i) {
      const std::size_t code = static_cast<unsigned char>(text[i]);
      if (code < m_glyphs->Count()) m_glyphs->Send(code);
    }
  } catch (const std::bad_alloc&) {
    // The text ends where memory does, as charts are drawn without text where it doesn't suffice
    // for a font.
  }
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

int CFont3D::GetListBase() const {
  if (KnowsCharacters()) {
    orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_FONT3D, "GetListBase",
                                  [this] { CompileLists(); });
  }
  return m_listBase;
}

CString CFont3D::GetFaceName() const {
  return orvalix::CopyText(m_faceName, ERR3DCLASS_FONT3D, "GetFaceName");
}

int CFont3D::GetClassTag() const { return m_classTag; }

template <class Record, class Self>
void CFont3D::RecordFields(Record& record, Self& self) {
  record.Field("spare", self.m_spare);
  record.Field("list base", self.m_listBase);
  record.Field("italic", self.m_italic);
  record.Field("underline", self.m_underline);
  record.Field("weight", self.m_weight);
  record.Field("number of characters", self.m_numChars);
  record.Field("extrusion", self.m_extrusion);
  record.Field("rendering", self.m_rendering);
  record.Field("spare factor", self.m_spareFactor);
  // Kept: the scale factor stands in the record twice; the second one holds on reading.
  record.Field("scale factor", self.m_scaleFactor);
  record.Field("scale factor", self.m_scaleFactor);
  record.Field("face name", self.m_faceName);
}

void CFont3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_FONT3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CFont3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_FONT3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
