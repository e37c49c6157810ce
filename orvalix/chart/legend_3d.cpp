#include "orvalix/chart/legend_3d.h"

#include <algorithm>
#include <array>

#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/has_text_internal.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/chart/viewport_internal.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/kept_drawing_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// The slab: almost the whole square, and that thick.
constexpr double kEdge = 0.98;
constexpr double kThickness = 0.1;
constexpr double kFrameDepth = 0.05;
constexpr double kFrameWidth = 3.0;
/// Of symbols and texts: in front of the slab.
constexpr double kEntryDepth = 0.15;

constexpr int kLeft = 0;
constexpr int kBottom = 0;
constexpr int kCenter = 1;

}  // namespace

int CLegend3D::nSelfID = 0;

CLegend3D::CLegend3D() { InitDefaults(); }

CLegend3D::CLegend3D(CChartView3D* view) : CLegend3D() { InitLegend(view); }

CLegend3D::~CLegend3D() = default;

void CLegend3D::InitDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_view = nullptr;
  m_orientation = 0;
  m_contourDecimals = 0;
  m_colorMode = 0;
  m_rows = 1;
  m_columns = 1;
  m_contourTextColorFlag = 1;
  m_enable = 1;
  m_borderEnable = 1;
  m_viewAspect = 1.0;
  m_viewportAspect = 1.0;
  m_fontHeightSF = 1.0;
  m_fontSize = 0.1;
  m_rowStep = 0.1;
  m_columnStep = 0.25;
  m_topMargin = 0.1;
  m_leftMargin = 0.2;
  m_borderThickness = 2.0;
  m_symbolTextSpace = 1.5;
  m_yLocation = 0.7;
  m_contourTextColor = SetRGBD(0.0, 0.0, 0.0, 1.0);
  m_bkColor = SetRGBD(1.0, 1.0, 1.0, 1.0);
  m_borderColor = SetRGBD(0.0, 0.0, 0.0, 1.0);
  m_position = {0.0, 0.0, 1.0, 1.0};
  m_viewport = {0, 0, 0, 0};
  m_transformID = 0;
  m_classTag = orvalix::kLegendTag;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_LEGEND3D, "InitLegend", [this] {
    m_title1 = std::make_unique<CTextObj3D>();
    m_title2 = std::make_unique<CTextObj3D>();
    m_footer = std::make_unique<CTextObj3D>();
  });
}

void CLegend3D::InitLegend(CChartView3D* view) {
  orvalix::RequireTag(view, orvalix::kChartViewTag, ERR3D_CHARTVIEW_PARAMETER, ERR3DCLASS_LEGEND3D,
                      "InitLegend");
  m_view = view;
  m_context = nullptr;
  if (view->GetOpenGLPntr() != nullptr) Bind();
}

void CLegend3D::Bind() {
  COpenGL* context = m_view->GetOpenGLPntr();
  const point3Dtype min{0.0, 0.0, 0.0, 0.0};
  const point3Dtype max{1.0, 1.0, 1.0, 0.0};
  auto transform = orvalix::WithAllocationErrors(
      ERR3D_OBJECT_NEW, ERR3DCLASS_LEGEND3D, "InitLegend",
      [&] { return std::make_unique<CTransform3D>(context, min, max); });
  for (CTextObj3D* text : {m_title1.get(), m_title2.get(), m_footer.get()}) {
    text->InitTextObj(context, context->GetFont(), transform.get());
  }
  for (CLegendObj3D* entry : m_entries) entry->InitLegendObj(context, transform.get());
  m_context = context;
  m_transform = std::move(transform);
  m_transformID = m_transform->GetTransformID();
}

CLegendObj3D* CLegend3D::NewLegendObj() { return AppendEntry(nullptr); }

CLegendObj3D* CLegend3D::NewLegendObj(const CString& text) { return AppendEntry(&text); }

CLegendObj3D* CLegend3D::AppendEntry(const CString* text) {
  return orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_LEGEND3D, "NewLegendObj",
                                       [&, this] {
                                         auto entry = std::make_unique<CLegendObj3D>();
                                         if (m_context != nullptr)
                                           entry->InitLegendObj(m_context, m_transform.get());
                                         if (text != nullptr) entry->SetText(*text);
                                         return m_entries.Append(std::move(entry));
                                       });
}

CLegendObj3D* CLegend3D::NewLegendObj(const CString& text, int symbol, const RGBDType& color) {
  CLegendObj3D* entry = NewLegendObj(text);
  entry->SetSymbol(symbol);
  entry->SetSymbolColor(color);
  return entry;
}

int CLegend3D::GetNumLegendObjs() const { return m_entries.Count(); }

CLegendObj3D* CLegend3D::GetLegendObj(int index) const { return m_entries.At(index); }

int CLegend3D::GetNumberActiveLegends() const {
  return static_cast<int>(
      std::count_if(m_entries.begin(), m_entries.end(),
                    [](const CLegendObj3D* entry) { return entry->GetLegendObjEnable() != 0; }));
}

double CLegend3D::GetMaxLegendTextWidth() const {
  double widest = 0.0;
  for (const CLegendObj3D* entry : m_entries) widest = std::max(widest, entry->TextWidth());
  return widest;
}

void CLegend3D::Place() {
  int width = 0;
  int height = 0;
  m_view->GetViewSize(width, height);
  const GLViewportType viewport = orvalix::PixelViewport(m_position, width, height);
  SetLegendViewport(&viewport);
}

void CLegend3D::SetLegendPosition(const GLViewRType& position) {
  m_position = position;
  if (m_view != nullptr) Place();
}

void CLegend3D::SetLegendViewport(const GLViewportType* viewport) {
  if (viewport == nullptr) return;
  m_viewport = *viewport;
  if (m_viewport.width == 0) return;  // a view that hasn't been drawn yet has no size
  m_viewportAspect = static_cast<double>(m_viewport.height) / m_viewport.width;
}

void CLegend3D::DrawLegend() {
  if (m_enable == 0 || m_context == nullptr) return;
  m_context->SetColorMode(m_colorMode);
  Place();
  if (m_viewport.width < 1 || m_viewport.height < 1) return;
  m_fontHeightSF = 1.0 / m_position.height;
  DrawLegendTable();
}

void CLegend3D::TransformLegend() {
  if (m_context == nullptr) return;
  m_context->SetViewport(m_viewport);
  m_context->SetFontScaleFactor(m_fontSize);
  m_transform->SetFontAspect(m_viewportAspect * m_viewAspect);
  m_transform->SetFontHeightSF(m_fontHeightSF);
  m_transform->TextTransform();
}

void CLegend3D::DrawSlab() {
  m_context->SetPolygonOutlineMode(1);
  m_context->SetLineWidth3D(m_borderThickness);
  m_context->DrawPrism3D(-kEdge, m_yLocation, -kEdge, 2.0 * kEdge, kThickness, 2.0 * kEdge,
                         m_bkColor, m_borderColor);
  if (m_borderEnable == 0) return;
  const double y = m_yLocation + kFrameDepth;
  m_context->SetLineStyle3D(0, kFrameWidth, m_borderColor);
  m_context->StartLineAbs3D({-kEdge, y, -kEdge, 0.0});
  m_context->AppendLineAbs3D({-kEdge, y, kEdge, 0.0});
  m_context->AppendLineAbs3D({kEdge, y, kEdge, 0.0});
  m_context->AppendLineAbs3D({kEdge, y, -kEdge, 0.0});
  m_context->EndLineAbs3D({-kEdge, y, -kEdge, 0.0});
}

void CLegend3D::DrawTitle(CTextObj3D& text, double z) {
  text.SetNormLocation({0.0, m_yLocation + kEntryDepth, z, 0.0});
  text.SetXJustify(kCenter);
  text.OutTextNorm();
}

void CLegend3D::DrawLegendTable() {
  const int entries = GetNumberActiveLegends();
  if (entries < 1 || m_context == nullptr) return;
  TransformLegend();
  orvalix::DrawTexts(m_kept, *m_context, m_transform->GetFontTransform(),
                     [&] { DrawTable(entries); });
}

void CLegend3D::DrawTable(int entries) {
  DrawSlab();
  m_context->SetPolygonOutlineMode(1);
  m_context->SetLineWidth3D(1.0);
  GLViewportType viewport;
  m_context->GetViewport(viewport);
  const double aspect = static_cast<double>(viewport.height) / viewport.width;
  const CLegendObj3D& first = *m_entries.First();
  // Sizes as texts are drawn: fonts measure them before the factors of the transform.
  const double drawnHeight = m_transform->GetFontHeightSF();
  const double drawnWidth = m_transform->GetFontAspect() * drawnHeight;
  const double halfHeight = first.TextHeight() * drawnHeight / 2.0;
  const int columns = std::max(m_columns, 1);
  int titles = 0;
  for (const CTextObj3D* text : {m_title1.get(), m_title2.get(), m_footer.get()}) {
    if (orvalix::HasText(*text)) ++titles;
  }
  m_rows = (entries - 1) / columns + 1;
  m_rowStep = (2.0 - 2.0 * m_topMargin) / (static_cast<double>(m_rows) + titles);
  m_columnStep = (2.0 - 2.0 * m_leftMargin) / columns;

  const double space = first.GetSymbolScale() * aspect * m_symbolTextSpace;
  Cell cell{};
  cell.textZ = 1.0 - m_topMargin - 2.0 * halfHeight;
  if (m_orientation != 0) {
    cell.symbolX = m_leftMargin - 1.0;
    cell.textX = cell.symbolX + space;
  } else {
    cell.textX = m_leftMargin - 1.0;
    cell.symbolX = cell.textX + space + GetMaxLegendTextWidth() * drawnWidth;
  }
  if (orvalix::HasText(*m_title1)) {
    m_title1->SetYJustify(kBottom);
    DrawTitle(*m_title1, cell.textZ);
    cell.textZ -= m_rowStep;
  }
  if (orvalix::HasText(*m_title2)) {
    // Kept: the first title is justified again; the second one stays as its owner wants it.
    m_title1->SetYJustify(kBottom);
    DrawTitle(*m_title2, cell.textZ);
    cell.textZ -= m_rowStep;
  }
  cell.symbolZ = cell.textZ + halfHeight;
  DrawEntries(cell, columns);
  if (orvalix::HasText(*m_footer)) {
    m_footer->SetYJustify(kBottom);
    DrawTitle(*m_footer, m_topMargin - 1.0);
  }
  m_context->SetPolygonOutlineMode(0);
}

void CLegend3D::DrawEntries(Cell cell, int columns) {
  const double y = m_yLocation + kEntryDepth;
  const Cell start = cell;
  int column = 0;
  for (CLegendObj3D* entry : m_entries) {
    if (entry->GetLegendObjEnable() == 0) continue;
    entry->SetSymbolPosition({cell.symbolX, y, cell.symbolZ, 0.0});
    entry->DrawLegendSymbol();
    entry->SetTextPosition({cell.textX, y, cell.textZ, 0.0});
    entry->GetTextObj()->SetJustify(kLeft, kBottom);
    entry->DrawLegendText();
    if (++column < columns) {
      cell.textX += m_columnStep;
      cell.symbolX += m_columnStep;
    } else {
      column = 0;
      cell.textX = start.textX;
      cell.symbolX = start.symbolX;
      cell.textZ -= m_rowStep;
      cell.symbolZ -= m_rowStep;
    }
  }
}
