#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/gl_binding_internal.h"
#include "orvalix/render/open_gl.h"

void COpenGL::InitPaletteConstants() { m_paletteRules = orvalix::DefaultPaletteRules(); }

unsigned char COpenGL::ComponentFromIndex(int index, unsigned bits, unsigned shift) const {
  return orvalix::ComponentFromIndex(m_paletteRules, index, bits, shift);
}

void COpenGL::CreateLogPalette(PIXELFORMATDESCRIPTOR* format, LOGPALETTE* palette, int count) {
  if (format == nullptr || palette == nullptr || count < 0) return;
  orvalix::FillLogPalette(m_paletteRules, *format, palette, count);
}

void COpenGL::CreateRGBPalette() {
  if (!m_binding) return;
  HPALETTE palette = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_OPENGL, "CreateRGBPalette",
      [&] { return orvalix::CreatePaletteFor(m_paletteRules, m_binding->PixelFormat()); });
  if (palette == nullptr) return;
  // The old palette may still be selected, and a selected palette can't be deleted.
  const HPALETTE old = static_cast<HPALETTE>(m_palette.Detach());
  m_palette.Attach(palette);
  SelectPalette(m_bitmapDC->GetSafeHdc(), palette, FALSE);
  RealizePalette(m_bitmapDC->GetSafeHdc());
  if (old != nullptr) DeleteObject(old);
}
