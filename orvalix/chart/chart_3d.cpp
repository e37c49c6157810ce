#include "orvalix/chart/chart_3d.h"

#include <algorithm>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/border_internal.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/viewport_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Magnifies what is drawn while it lives.
class Magnified {
 public:
  Magnified(COpenGL& openGL, double factor, double x, double y) : m_openGL(openGL) {
    m_openGL.SetMagnification(factor, x, y);
  }
  ~Magnified() { m_openGL.SetMagnification(1.0, 0.0, 0.0); }
  Magnified(const Magnified&) = delete;
  Magnified& operator=(const Magnified&) = delete;

 private:
  COpenGL& m_openGL;
};

}  // namespace

int CChart3D::nSelfID = 0;

CChart3D::CChart3D() { InitChartDefaults(); }

CChart3D::CChart3D(CChartView3D* view) : CChart3D() { InitChart3D(view); }

CChart3D::CChart3D(CChartView3D* view, point3Dtype const& min, point3Dtype const& max,
                   CTransform3D** transform, CAxes3D** axes)
    : CChart3D(view) {
  CTransform3D* madeTransform = NewTransform(min, max);
  CAxes3D* madeAxes = NewAxes(madeTransform, min, max);
  if (transform != nullptr) *transform = madeTransform;
  if (axes != nullptr) *axes = madeAxes;
}

CChart3D::~CChart3D() = default;

void CChart3D::InitChartDefaults() {
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  const RGBDType white = SetRGBD(1.0, 1.0, 1.0, 1.0);
  orvalix::CountInstance(nSelfID);
  m_openGL = nullptr;
  m_view = nullptr;
  m_viewAspectFactor = 1.0;
  m_chartAspect = 1.0;
  m_fontHeightSF = 1.0;
  m_fontSize = 0.1;
  m_spareScale = 0.05;
  m_borderThickness = 1.0;
  m_chartEnable = 1;
  m_borderEnable = 1;
  AssignViewport(m_viewport, 0, 0, 100, 100);
  AssignViewR(m_position, 0.0, 0.0, 1.0, 1.0);
  SetZoom(1.0, 0.0, 0.0);
  AssignPoint3D(m_lightPosition, 0.0, 1.0, 1.0);
  m_chartBkColor = white;
  m_borderColor = black;
  m_textureColors.fill(black);
  m_diffuseLight = white;
  m_ambientLight = SetRGBD(0.4, 0.4, 0.4, 1.0);
  m_textureMinimum = 0.0;
  m_textureMaximum = 1.0;
  m_textureMode = -1;
  m_numTextureColors = 0;
  m_classTag = orvalix::kChartTag;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHART3D, "InitChartDefaults",
                                [this] { m_header = std::make_unique<CHeader3D>(); });
}

void CChart3D::InitChart3D(CChartView3D* view) {
  orvalix::RequireTag(view, orvalix::kChartViewTag, ERR3D_CVIEW_PARAMETER, ERR3DCLASS_CHART3D,
                      "InitChart3D");
  m_view = view;
  m_openGL = view->GetOpenGLPntr();
  if (m_openGL == nullptr) return;
  // Another view's context may be current.
  m_openGL->MakeCurrent();
  m_openGL->SetupShading();
  m_openGL->LoadLight(GL_AMBIENT);
  m_openGL->LoadLight(GL_DIFFUSE);
  m_openGL->LoadLight(GL_SPECULAR);
  m_header->InitHeaders(m_openGL);
  BindChildren();
}

void CChart3D::DrawChart() {
  if (m_chartEnable == 0 || m_openGL == nullptr) return;
  SetChartPosition(m_position);
  SetupOpenGL();
  SetFontFactors();
  DrawHeader();
  const Magnified magnified(*m_openGL, m_zoomFactor, m_zoomX, m_zoomY);
  DrawAxes();
  DrawChartObjs();
  DrawAuxObjs();
  DrawDIBObjs();
  DrawChartTexts();
}

bool CChart3D::HidesBorderOf(const CChartView3D& view) const {
  // A program may have bound it to another view.
  if (m_view != &view || m_openGL == nullptr) return false;
  if (m_borderEnable == 0 || !(m_borderThickness > 0.0)) return false;
  int width = 0;
  int height = 0;
  view.GetViewSize(width, height);
  const GLViewportType pixels = orvalix::PixelViewport(m_position, width, height);
  return pixels.x == 0 && pixels.y == 0 && pixels.width == width && pixels.height == height;
}

void CChart3D::SetupOpenGL() {
  m_openGL->LoadIdentity();
  m_openGL->SetViewport(m_viewport);
  m_openGL->SetClearColor(m_chartBkColor.red, m_chartBkColor.green, m_chartBkColor.blue,
                          m_chartBkColor.alpha);
  m_openGL->Clear(m_view->WhatToClear(m_viewport, m_chartBkColor));
  if (m_borderEnable != 0) DrawBorder();
  SetupLight();
  SetupTexture();
}

void CChart3D::DrawBorder() {
  orvalix::DrawBorder(*m_openGL, m_borderThickness, m_viewport.width, m_viewport.height,
                      m_borderColor);
}

void CChart3D::SetupLight() {
  m_openGL->SetLightPosition(m_lightPosition);
  m_openGL->LoadLight(GL_POSITION);
  m_openGL->SetLightComponent(LIGHT3D_MODEL_AMBIENT, m_ambientLight);
  m_openGL->SetLightComponent(GL_DIFFUSE, m_diffuseLight);
  m_openGL->LoadLight(GL_AMBIENT);
  m_openGL->LoadLight(GL_DIFFUSE);
}

void CChart3D::SetupTexture() {
  if (m_textureMode < 0) return;
  m_openGL->SetTextureMode(m_textureMode);
  m_openGL->SetTextureColorArray(m_textureColors.data(), m_textureMinimum, m_textureMaximum,
                                 m_numTextureColors);
}

void CChart3D::SetFontFactors() {
  m_openGL->SetFontScaleFactor(m_fontSize);
  for (CTransform3D* transform : m_transforms) {
    transform->SetFontAspect(m_viewAspectFactor * m_chartAspect);
    transform->SetFontHeightSF(m_fontHeightSF);
  }
}

void CChart3D::DrawHeader() {
  m_header->SetViewAspect(m_viewAspectFactor * m_chartAspect);
  m_header->SetFontHeightSF(m_fontHeightSF);
  m_header->DrawHeader();
}

void CChart3D::DrawAxes() {
  for (CAxes3D* axes : m_axes) axes->DrawAxes();
}

void CChart3D::DrawChartObjs() {
  for (CChartObj3D* chartObj : m_chartObjs) chartObj->DrawChartObj();
}

void CChart3D::DrawAuxObjs() {
  for (CAuxObj3D* auxObj : m_auxObjs) auxObj->DrawAuxObj();
}

void CChart3D::DrawDIBObjs() {
  for (CDIBObj3D* dibObj : m_dibObjs) dibObj->DrawDIBObj();
}

void CChart3D::DrawChartTexts() {
  for (CTextObj3D* text : m_chartTexts) text->OutText();
}

void CChart3D::EnableChart(int flag) { m_chartEnable = flag; }

int CChart3D::GetChartEnable() const { return m_chartEnable; }

void CChart3D::EnableBorder(int flag) { m_borderEnable = flag; }

int CChart3D::GetBorderEnable() const { return m_borderEnable; }

void CChart3D::SetBorderColor(RGBDType const& color) { m_borderColor = color; }

RGBDType CChart3D::GetBorderColor() const { return m_borderColor; }

void CChart3D::SetBorderThickness(double thickness) { m_borderThickness = thickness; }

double CChart3D::GetBorderThickness() const { return m_borderThickness; }

void CChart3D::SetChartBkColor(RGBDType const& color) { m_chartBkColor = color; }

RGBDType CChart3D::GetChartBkColor() const { return m_chartBkColor; }

void CChart3D::SetChartPosition(GLViewRType const& position) {
  m_position = position;
  if (m_view == nullptr) return;
  int width = 0;
  int height = 0;
  m_view->GetViewSize(width, height);
  SetChartViewport(orvalix::PixelViewport(position, width, height));
}

void CChart3D::SetZoom(double factor, double x, double y) {
  m_zoomFactor = factor;
  m_zoomX = x;
  m_zoomY = y;
}

void CChart3D::GetZoom(double& factor, double& x, double& y) const {
  factor = m_zoomFactor;
  x = m_zoomX;
  y = m_zoomY;
}

void CChart3D::GetChartPosition(GLViewRType& position) const { position = m_position; }

void CChart3D::SetChartViewport(GLViewportType const& viewport) {
  m_viewport = viewport;
  m_chartAspect = static_cast<double>(viewport.height) / static_cast<double>(viewport.width);
}

void CChart3D::GetChartViewport(GLViewportType& viewport) const { viewport = m_viewport; }

void CChart3D::SetLightPosition(point3Dtype const& position) { m_lightPosition = position; }

void CChart3D::GetLightPosition(point3Dtype& position) const { position = m_lightPosition; }

void CChart3D::SetLightComponent(int key, RGBDType const& color) {
  if (key == GL_DIFFUSE) m_diffuseLight = color;
  if (key == LIGHT3D_MODEL_AMBIENT) m_ambientLight = color;
}

RGBDType CChart3D::GetLightComponent(int key) const {
  if (key == GL_DIFFUSE) return m_diffuseLight;
  if (key == LIGHT3D_MODEL_AMBIENT) return m_ambientLight;
  return SetRGBD(0.0, 0.0, 0.0, 0.0);
}

void CChart3D::SetFontSize(double size) { m_fontSize = size; }

double CChart3D::GetFontSize() const { return m_fontSize; }

void CChart3D::SetTextureMode(int mode) { m_textureMode = mode; }

int CChart3D::GetTextureMode() const { return m_textureMode; }

void CChart3D::SetTextureColorArray(const RGBDType* colors, double min, double max, int count) {
  if (count < 0 || (colors == nullptr && count > 0)) return;
  m_numTextureColors = std::min(count, static_cast<int>(m_textureColors.size()));
  std::copy_n(colors, m_numTextureColors, m_textureColors.begin());
  m_textureMinimum = min;
  m_textureMaximum = max;
}

void CChart3D::GetTextureColorArray(RGBDType* colors, double* min, double* max) const {
  if (colors != nullptr) std::copy_n(m_textureColors.begin(), m_numTextureColors, colors);
  if (min != nullptr) *min = m_textureMinimum;
  if (max != nullptr) *max = m_textureMaximum;
}

int CChart3D::GetNumTextureColors() const { return m_numTextureColors; }

int CChart3D::GetNumTransforms() const { return m_transforms.Count(); }

CTransform3D* CChart3D::GetTransform(int index) const { return m_transforms.At(index); }

int CChart3D::GetNumAxes() const { return m_axes.Count(); }

CAxes3D* CChart3D::GetAxes(int index) const { return m_axes.At(index); }

int CChart3D::GetNumChartTextObjs() const { return m_chartTexts.Count(); }

CTextObj3D* CChart3D::GetChartTextObj(int index) const { return m_chartTexts.At(index); }

CHeader3D* CChart3D::GetHeader() const { return m_header.get(); }

int CChart3D::GetNumChartObjs() const { return m_chartObjs.Count(); }

CChartObj3D* CChart3D::GetChartObj(int index) const { return m_chartObjs.At(index); }

int CChart3D::GetNumAuxObjs() const { return m_auxObjs.Count(); }

CAuxObj3D* CChart3D::GetAuxObj(int index) const { return m_auxObjs.At(index); }

int CChart3D::GetNumDIBObjs() const { return m_dibObjs.Count(); }

CDIBObj3D* CChart3D::GetDIBObj(int index) const { return m_dibObjs.At(index); }

int CChart3D::GetClassTag() const { return m_classTag; }
