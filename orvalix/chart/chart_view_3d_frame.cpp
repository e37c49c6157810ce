#include <algorithm>
#include <array>

#include "orvalix/chart/border_internal.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/png_file_internal.h"
#include "orvalix/chart/selected_palette_internal.h"
#include "orvalix/chart/window_dc_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace {

/// Size in which the view's font is registered.
constexpr double kFontSize = 0.2;

GLViewportType Pixels(int width, int height) {
  GLViewportType viewport;
  AssignViewport(viewport, 0, 0, width, height);
  return viewport;
}

void RequireDC(const CDC* dc) {
  if (dc == nullptr) {
    orvalix::ThrowError(ERR3D_CDC_PARAMETER, ERR3DCLASS_CHARTVIEW3D, "DrawViewScreen");
  }
}

/// Nothing is fresh any more when it ends.
class OneFrame {
 public:
  explicit OneFrame(orvalix::FreshArea& fresh) : m_fresh(fresh) {}
  ~OneFrame() { m_fresh = {}; }
  OneFrame(const OneFrame&) = delete;
  OneFrame& operator=(const OneFrame&) = delete;

 private:
  orvalix::FreshArea& m_fresh;
};

}  // namespace

void CChartView3D::DrawViewScreen(CDC* dc) {
  if (m_printing != 0) return;
  RequireDC(dc);
  if (!m_deviceInitialized) InitDeviceContext(true);
  if (!m_deviceInitialized) return;
  SetViewSizeWindow();
  DrawToDC(dc, 0, 0);
}

void CChartView3D::DrawViewScreen(CDC* dc, int x, int y, int width, int height) {
  if (m_printing != 0) return;
  RequireDC(dc);
  if (!m_deviceInitialized) InitDeviceContext(true);
  if (!m_deviceInitialized) return;
  SetViewSizeSubWindow(width, height);
  DrawToDC(dc, x, y);
}

void CChartView3D::DrawViewScreen() {
  if (!m_deviceInitialized || m_window->GetSafeHwnd() == nullptr) return;
  const orvalix::WindowDC dc(*m_window, "InitDeviceContext");
  if (m_printing != 0) return;
  SetViewSizeWindow();
  DrawToDC(dc.Get(), 0, 0);
}

void CChartView3D::DrawToDC(CDC* dc, int x, int y) {
  if (m_viewWidth < 1 || m_viewHeight < 1) return;
  DrawView();
  const orvalix::SelectedPalette palette(dc, m_dib->GetPaletteHandle());
  CopyBitmap(dc, x, y, m_viewWidth, m_viewHeight);
}

void CChartView3D::CopyBitmap(CDC* dc, int x, int y, int width, int height) {
  // OpenGL's lower left corner is the bitmap's, whose rows count from the top.
  dc->BitBlt(x, y, width, height, &m_memoryDC, 0, m_bitmapHeight - height, SRCCOPY);
}

void CChartView3D::SaveToFile(const CString& name) {
  DrawForFile("SaveToFile");
  m_dib->SaveDIB(name);
}

void CChartView3D::SaveToPng(const CString& name) {
  constexpr const char* kPlace = "SaveToPng";
  DrawForFile(kPlace);
  orvalix::WritePngFile(*m_dib, name, ERR3DCLASS_CHARTVIEW3D, kPlace);
}

void CChartView3D::DrawForFile(const char* place) {
  if (!m_deviceInitialized) {
    orvalix::ThrowError(ERR3D_DIB_HANDLE, ERR3DCLASS_CHARTVIEW3D, place);
  }
  SetViewSizeBitmap();
  DrawView();
}

void CChartView3D::DrawView() {
  if (m_viewWidth < 1 || m_viewHeight < 1) return;
  m_openGL->MakeCurrent();
  m_openGL->SetViewport(Pixels(m_viewWidth, m_viewHeight));
  m_viewAspect = static_cast<double>(m_viewHeight) / static_cast<double>(m_viewWidth);
  m_openGL->SetClearColor(m_viewBkColor.red, m_viewBkColor.green, m_viewBkColor.blue,
                          m_viewBkColor.alpha);
  m_openGL->Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  m_openGL->LoadIdentity();
  const bool showsBorder = m_borderEnable != 0 && !IsBorderHidden();
  if (showsBorder) DrawBorder();
  if (m_fontChanged) RegisterChangedFont();
  DrawHeader();
  if (!m_charts.IsEmpty()) DrawCharts(!showsBorder && !m_header->DrawsAnything());
  if (!m_legends.IsEmpty()) DrawLegends();
  m_openGL->Flush();
  m_openGL->UpdateBitmap(m_viewWidth, m_viewHeight);
}

void CChartView3D::DrawBorder() {
  orvalix::DrawBorder(*m_openGL, m_borderThickness, m_viewWidth, m_viewHeight, m_borderColor);
}

bool CChartView3D::IsBorderHidden() const {
  // A program that asks what is drawn hears of it.
  if (!m_openGL->IsRendering() || m_header->DrawsAnything()) return false;
  const auto first = std::find_if(m_charts.begin(), m_charts.end(), [](const CChart3D* chart) {
    return chart->GetChartEnable() != 0;
  });
  return first != m_charts.end() && (*first)->HidesBorderOf(*this);
}

void CChartView3D::RegisterChangedFont() {
  m_openGL->RegisterFontOfView(m_fontName, kFontSize, m_fontWeight, m_fontItalics, m_fontUnderline,
                               m_fontCharacters);
  m_fontChanged = false;
}

void CChartView3D::DrawHeader() {
  // Charts leave a font size of their own behind; each frame starts out with the registered one.
  m_openGL->SetFontScaleFactor(kFontSize);
  m_header->SetViewAspect(m_viewAspect);
  m_header->DrawHeader();
}

void CChartView3D::DrawCharts(bool isFresh) {
  const OneFrame frame(m_fresh);
  if (isFresh) m_fresh = {Pixels(m_viewWidth, m_viewHeight), m_viewBkColor};
  for (CChart3D* chart : m_charts) {
    chart->DrawChart();
    // OpenGL works on it while the next one is sent.
    m_openGL->Flush();
  }
}

int CChartView3D::WhatToClear(const GLViewportType& pixels, const RGBDType& color) {
  const bool isFresh = m_fresh.Contains(pixels);
  m_fresh.Cover(pixels);
  if (!isFresh) return GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT;
  return m_fresh.HasColor(color) ? 0 : GL_COLOR_BUFFER_BIT;
}

void CChartView3D::DrawLegends() {
  for (CLegend3D* legend : m_legends) legend->DrawLegend();
  m_openGL->Flush();
}
