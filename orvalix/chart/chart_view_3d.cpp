#include "orvalix/chart/chart_view_3d.h"

#include <memory>

#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/open_gl.h"

namespace {

constexpr double kVersion = 1.0;
constexpr int kBold = 700;
constexpr int kFitPage = 1;

}  // namespace

CChartView3D::CChartView3D() { InitChartViewDefaults(); }

CChartView3D::CChartView3D(CWnd* wnd) : CChartView3D() {
  if (wnd == nullptr) {
    orvalix::ThrowError(ERR3D_CWND_PARAMETER, ERR3DCLASS_CHARTVIEW3D, "CChartView3D");
  }
  m_window = wnd;
  InitDeviceContext(true);
}

CChartView3D::CChartView3D(CWnd* wnd, int width, int height) : CChartView3D() {
  if (wnd == nullptr) {
    orvalix::ThrowError(ERR3D_CWND_PARAMETER, ERR3DCLASS_CHARTVIEW3D, "CChartView3D");
  }
  m_window = wnd;
  m_requestedWidth = width;
  m_requestedHeight = height;
  InitDeviceContext(false);
}

CChartView3D::~CChartView3D() {
  DeleteChartViewObjects();
  m_header.reset();
  if (m_openGL) m_openGL->Close();
  m_openGL.reset();
  DeleteBitmap();
}

void CChartView3D::InitChartViewDefaults() {
  m_window = nullptr;
  m_bitmapWidth = 0;
  m_bitmapHeight = 0;
  m_requestedWidth = -1;
  m_requestedHeight = -1;
  m_viewWidth = 0;
  m_viewHeight = 0;
  m_viewAspect = 1.0;
  m_borderThickness = 1.0;
  m_viewBkColor = SetRGBD(1.0, 1.0, 1.0, 1.0);
  m_borderColor = SetRGBD(0.0, 0.0, 0.0, 1.0);
  m_viewBkMode = 2;
  m_printScaleMode = kFitPage;
  m_deviceInitialized = false;
  m_fontCharacters = 128;
  m_normPrintRect = {0.0, 0.0, 1.0, 1.0};
  m_printing = 0;
  m_borderEnable = 1;
  m_fontChanged = true;
  m_fontItalics = 0;
  m_fontUnderline = 0;
  m_fontName = "Arial";
  m_fontWeight = kBold;
  m_classTag = orvalix::kChartViewTag;
  m_previousBitmap = nullptr;
}

double CChartView3D::GetVersionNumber() const { return kVersion; }

template <class... Arguments>
CChart3D* CChartView3D::AppendChart(Arguments... arguments) {
  return orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, "NewChart3D", [&] {
    return m_charts.Append(std::make_unique<CChart3D>(this, arguments...));
  });
}

CChart3D* CChartView3D::NewChart3D() { return AppendChart(); }

CChart3D* CChartView3D::NewChart3D(const point3Dtype& min, const point3Dtype& max) {
  return AppendChart(min, max);
}

CChart3D* CChartView3D::NewChart3D(const point3Dtype& min, const point3Dtype& max,
                                   CTransform3D** transform) {
  return NewChart3D(min, max, transform, nullptr);
}

CChart3D* CChartView3D::NewChart3D(const point3Dtype& min, const point3Dtype& max,
                                   CTransform3D** transform, CAxes3D** axes) {
  CChart3D* chart = AppendChart(min, max);
  if (transform != nullptr) *transform = chart->GetTransform(0);
  if (axes != nullptr) *axes = chart->GetAxes(0);
  return chart;
}

int CChartView3D::GetNumCharts() const { return m_charts.Count(); }

CChart3D* CChartView3D::GetChart(int index) const { return m_charts.At(index); }

CLegend3D* CChartView3D::NewLegend3D() {
  return orvalix::WithAllocationErrors(
      ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, "NewLegend3D",
      [this] { return m_legends.Append(std::make_unique<CLegend3D>(this)); });
}

int CChartView3D::GetNumLegends() const { return m_legends.Count(); }

CLegend3D* CChartView3D::GetLegend(int index) const { return m_legends.At(index); }

void CChartView3D::DeleteCharts() { m_charts.Clear(); }

void CChartView3D::DeleteLegends() { m_legends.Clear(); }

void CChartView3D::DeleteChartViewObjects() {
  DeleteCharts();
  DeleteLegends();
}

void CChartView3D::SetViewBkColor(const RGBDType& color) { m_viewBkColor = color; }

RGBDType CChartView3D::GetViewBkColor() const { return m_viewBkColor; }

void CChartView3D::SetViewBkMode(int mode) { m_viewBkMode = mode; }

int CChartView3D::GetViewBkMode() const { return m_viewBkMode; }

void CChartView3D::SetViewBorderColor(const RGBDType& color) { m_borderColor = color; }

RGBDType CChartView3D::GetViewBorderColor() const { return m_borderColor; }

void CChartView3D::SetViewBorderThickness(double thickness) { m_borderThickness = thickness; }

double CChartView3D::GetViewBorderThickness() const { return m_borderThickness; }

void CChartView3D::EnableBorder(int flag) { m_borderEnable = flag; }

int CChartView3D::GetBorderEnable() const { return m_borderEnable; }

void CChartView3D::SetFont(const CString& name, int weight, int characterCount) {
  SetFont(name, weight, m_fontItalics, m_fontUnderline, characterCount);
}

void CChartView3D::SetFont(const CString& name, int weight, int italics, int underline,
                           int characterCount) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTVIEW3D, "SetFont",
                                [&] { m_fontName = name; });
  m_fontWeight = weight;
  m_fontItalics = italics;
  m_fontUnderline = underline;
  m_fontCharacters = characterCount;
  m_fontChanged = true;
}

CString CChartView3D::GetFontName() const {
  return orvalix::CopyText(m_fontName, ERR3DCLASS_CHARTVIEW3D, "GetFontName");
}

int CChartView3D::GetFontWeight() const { return m_fontWeight; }

void CChartView3D::SetFontItalics(int flag) {
  m_fontItalics = flag;
  m_fontChanged = true;
}

int CChartView3D::GetFontItalics() const { return m_fontItalics; }

void CChartView3D::SetFontUnderline(int flag) {
  m_fontUnderline = flag;
  m_fontChanged = true;
}

int CChartView3D::GetFontUnderline() const { return m_fontUnderline; }

COpenGL* CChartView3D::GetOpenGLPntr() const { return m_openGL.get(); }

CHeader3D* CChartView3D::GetHeader() const { return m_header.get(); }

CDIBSection* CChartView3D::GetDIBSection() const { return m_dib.get(); }

void CChartView3D::GetViewSize(int& width, int& height) const {
  width = m_viewWidth;
  height = m_viewHeight;
}

int CChartView3D::GetClassTag() const { return m_classTag; }
