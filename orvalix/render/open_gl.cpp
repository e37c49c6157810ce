#include "orvalix/render/open_gl.h"

#include <new>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/gl_binding_internal.h"
#include "orvalix/render/pixel_format_internal.h"
#include "orvalix/render/pushed_back_internal.h"

namespace {

constexpr std::array<unsigned short, 16> kStipples{0xFFFF, 0x0101, 0x1111, 0x5555, 0x0303, 0x0707,
                                                   0x0F0F, 0xFF00, 0xFE10, 0xFF3C, 0xFE44, 0xFFFF,
                                                   0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};

/// What the errors of making a context name as their place.
constexpr const char* kInitPlace = "InitContext";

orvalix::BitmapTarget TargetOf(const CDIBSection& dib) {
  return {.width = dib.DIBWidth(),
          .height = dib.DIBHeight(),
          .bitCount = dib.GetDIBHeader().biBitCount,
          .stride = dib.StorageWidth(),
          .bits = static_cast<unsigned char*>(dib.FindDIBBits())};
}

}  // namespace

COpenGL::COpenGL(CDC* windowDC, CDIBSection* dib)
    : m_currentFont(0),
      m_fontsAtCreation(0),
      m_windowColorBits(windowDC != nullptr ? windowDC->GetDeviceCaps(BITSPIXEL) : 0),
      m_bitmapDC(dib != nullptr ? dib->GetTargetDC() : nullptr),
      m_dib(dib),
      m_lineIsOpen(false),
      m_currentColor(SetRGBD(1.0, 1.0, 1.0, 1.0)),
      m_sentLineWidth(1.0F),
      m_clippingEnabled(0),
      m_gathering(1),
      m_tellsFarSides(false),
      m_isCutAnywhere(false),
      m_isMagnified(false),
      m_unmagnified{},
      m_magnified{},
      m_texts(nullptr),
      m_textMatrix(nullptr),
      m_setSince(0),
      m_inherited(0),
      m_hasFailedToGather(false),
      m_gatheredEnd{} {
  SetOpenGLDefaults();
  InitContext();
  NewFont3D();
}

COpenGL::~COpenGL() { Close(); }

void COpenGL::SetOpenGLDefaults() {
  InitPaletteConstants();
  m_fillColor = SetRGBD(0.0, 0.0, 0.0, 0.0);
  m_fillColor2 = SetRGBD(0.0, 0.0, 0.0, 0.0);
  m_outlineColor = SetRGBD(1.0, 1.0, 1.0, 1.0);
  m_lineColor = SetRGBD(0.0, 0.0, 0.0, 0.0);
  m_polygonFillMode = GL_FILL;
  m_lineStyle = 0;
  m_textureMode = 0;
  m_textureEnabled = 0;
  m_polygonOutlineMode = 0;
  m_lineWidth = 1.0F;
  m_colorMode = 0;
  m_savedColorMode = 0;
  m_lineNormal = {};
  m_modelAmbient = SetRGBF(0.4F, 0.4F, 0.4F, 1.0F);
  m_lightAmbient = SetRGBF(0.1F, 0.1F, 0.1F, 1.0F);
  m_lightDiffuse = SetRGBF(1.0F, 1.0F, 1.0F, 1.0F);
  m_lightSpecular = SetRGBF(0.0F, 0.0F, 0.0F, 1.0F);
  m_lightPosition = {1.0F, 0.0F, 0.0F, 0.0F};
  m_materialColor1 = SetRGBF(1.0F, 1.0F, 1.0F, 1.0F);
  m_materialColor2 = SetRGBF(0.0F, 0.0F, 0.0F, 1.0F);
  m_stipples = kStipples;
  m_lineStyleFactor = 1;
  m_viewport = {};
  m_outputViewport = {};
  m_textureColors = {};
  m_textureMinimum = 0.0;
  m_textureMaximum = 0.0;
  m_textureScale = 0.0;
  m_classTag = orvalix::kOpenGLTag;
}

int COpenGL::bSetupPixelFormat() {
  if (m_dib == nullptr || m_bitmapDC == nullptr || m_dib->GetBitmapHandle() == nullptr) return 0;
  const int colorBits = m_windowColorBits * m_bitmapDC->GetDeviceCaps(PLANES);
  return orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, kInitPlace, [&] {
    // A context that is there stays: the bitmap, and with it the binding, is the same.
    if (!m_binding) m_binding = std::make_unique<orvalix::GLBinding>(TargetOf(*m_dib));
    return m_binding->SetPixelFormat(orvalix::WantedPixelFormat(colorBits)) ? 1 : 0;
  });
}

void COpenGL::InitContext() {
  if (bSetupPixelFormat() == 0) {
    orvalix::ThrowError(ERR3D_PIXEL_FORMAT, ERR3DCLASS_OPENGL, kInitPlace);
  }
  m_dib->CreateRGBPalette();
  m_lineIsOpen = false;
  const bool created =
      orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, kInitPlace,
                                    [this] { return m_binding->CreateContext(); });
  if (!created) orvalix::ThrowError(ERR3D_PIXEL_FORMAT, ERR3DCLASS_OPENGL, kInitPlace);
  // Drawings that were kept belonged to the context before.
  m_buffers = orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, kInitPlace,
                                            [] { return std::make_shared<orvalix::BufferPool>(); });
  glClearDepth(1.0);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  glDisable(GL_POLYGON_SMOOTH);
  orvalix::PushedBack::SetForOutlines();
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glEnable(GL_NORMALIZE);
  glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
}

void COpenGL::MakeCurrent() {
  if (m_binding && m_binding->MakeCurrent() && m_buffers) m_buffers->DeleteReturned();
}

void COpenGL::MakeNonCurrent() {
  if (m_binding) m_binding->MakeNonCurrent();
}

void COpenGL::ExchangeBuffers() {
  if (m_dib != nullptr) UpdateBitmap(m_dib->DIBWidth(), m_dib->DIBHeight());
}

void COpenGL::Close() {
  if (!m_binding || !m_binding->HasContext()) return;
  MakeCurrent();
  MakeNonCurrent();
  m_buffers.reset();
  m_binding->DeleteContext();
  SelectPalette(m_bitmapDC->GetSafeHdc(), static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)),
                FALSE);
}

void COpenGL::Flush() {
  SendGathered();
  glFlush();
}

void COpenGL::UpdateBitmap(int width, int height) {
  SendGathered();
  const bool hasPixels = m_dib != nullptr && m_dib->FindDIBBits() != nullptr;
  if (m_binding && hasPixels) m_binding->CopyToBitmap(width, height);
}

int COpenGL::GetClassTag() const { return m_classTag; }
