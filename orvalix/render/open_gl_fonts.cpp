#include <new>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr int kFirstListBase = 1000;
constexpr int kListsPerFont = 256;

}  // namespace

int COpenGL::NewFont3D() {
  const int listBase = kFirstListBase + kListsPerFont * m_fontsAtCreation;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, "NewFont3D", [&] {
    m_fonts.Append(std::make_unique<CFont3D>(this, m_bitmapDC, listBase));
  });
  m_fontsAtCreation = m_fonts.Count();
  m_currentFont = m_fonts.Count() - 1;
  return m_fonts.Count();
}

int COpenGL::RegisterFont(CString const& face, double scale, int weight, int italic, int numChars) {
  return RegisterFont(face, scale, weight, italic, 0, numChars);
}

int COpenGL::RegisterFont(CString const& face, double scale, int weight, int italic, int underline,
                          int numChars) {
  CFont3D* font = FontToRegister();
  if (font == nullptr) return 0;
  return font->RegisterFont(face, scale, weight, italic, underline, numChars);
}

int COpenGL::RegisterFontOfView(CString const& face, double scale, int weight, int italic,
                                int underline, int numChars) {
  CFont3D* font = FontToRegister();
  if (font == nullptr) return 0;
  return font->Register(face, scale, weight, italic, underline, numChars,
                        CFont3D::Lists::kWhenAskedFor);
}

CFont3D* COpenGL::FontToRegister() {
  if (m_fonts.IsEmpty()) NewFont3D();
  return GetFont();
}

CFont3D* COpenGL::GetFont() const { return m_fonts.At(m_currentFont); }

int COpenGL::GetCurrentFont() const { return m_currentFont; }

void COpenGL::SetCurrentFont(int index) { m_currentFont = index; }

double COpenGL::GetFontScaleFactor() const {
  const CFont3D* font = GetFont();
  return font != nullptr ? font->GetFontScaleFactor() : 0.0;
}

void COpenGL::SetFontScaleFactor(double factor) {
  CFont3D* font = GetFont();
  if (font != nullptr) font->SetFontScaleFactor(factor);
}
