#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

void CLegend3D::SetText(int index, const CString& text) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->SetText(text);
}

CString CLegend3D::GetText(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetText() : CString();
}

void CLegend3D::SetTextColor(int index, const RGBDType& color) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->SetTextColor(color);
}

RGBDType CLegend3D::GetTextColor(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetTextColor() : RGBDType{};
}

void CLegend3D::SetSymbol(int index, int symbol) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->SetSymbol(symbol);
}

int CLegend3D::GetSymbol(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetSymbol() : 0;
}

void CLegend3D::SetSymbolColor(int index, const RGBDType& color) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->SetSymbolColor(color);
}

RGBDType CLegend3D::GetSymbolColor(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetSymbolColor() : RGBDType{};
}

void CLegend3D::SetSymbolScale(int index, double scale) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->SetSymbolScale(scale);
}

double CLegend3D::GetSymbolScale(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetSymbolScale() : 0.0;
}

void CLegend3D::SetColor(int index, const RGBDType& color) { SetSymbolColor(index, color); }

void CLegend3D::EnableLegendObj(int index, int flag) {
  if (CLegendObj3D* entry = GetLegendObj(index)) entry->EnableLegendObj(flag);
}

int CLegend3D::GetLegendObjEnable(int index) const {
  const CLegendObj3D* entry = GetLegendObj(index);
  return entry != nullptr ? entry->GetLegendObjEnable() : 0;
}

void CLegend3D::SetTitle1(const CString& text) { m_title1->SetString(text); }

void CLegend3D::SetTitle2(const CString& text) { m_title2->SetString(text); }

void CLegend3D::SetFooter(const CString& text) { m_footer->SetString(text); }

CTextObj3D* CLegend3D::GetTitle1Obj() const { return m_title1.get(); }

CTextObj3D* CLegend3D::GetTitle2Obj() const { return m_title2.get(); }

CTextObj3D* CLegend3D::GetFooterObj() const { return m_footer.get(); }

GLViewRType CLegend3D::GetLegendPosition() const { return m_position; }

GLViewportType CLegend3D::GetLegendViewport() const { return m_viewport; }

void CLegend3D::SetLegendOrientation(int orientation) { m_orientation = orientation; }

int CLegend3D::GetLegendOrientation() const { return m_orientation; }

void CLegend3D::SetLegendColumns(int columns) { m_columns = columns; }

int CLegend3D::GetLegendColumns() const { return m_columns; }

void CLegend3D::SetLegendRows(int rows) { m_rows = rows; }

int CLegend3D::GetLegendRows() const { return m_rows; }

void CLegend3D::EnableLegend(int flag) { m_enable = flag; }

int CLegend3D::GetLegendEnable() const { return m_enable; }

void CLegend3D::EnableLegendBorder(int flag) { m_borderEnable = flag; }

int CLegend3D::GetLegendBorderEnable() const { return m_borderEnable; }

void CLegend3D::SetColorMode(int mode) { m_colorMode = mode; }

int CLegend3D::GetColorMode() const { return m_colorMode; }

void CLegend3D::SetViewAspect(double aspect) { m_viewAspect = aspect; }

void CLegend3D::SetFontHeightSF(double factor) { m_fontHeightSF = factor; }

double CLegend3D::GetFontHeightSF() const { return m_fontHeightSF; }

void CLegend3D::SetFontSize(double size) { m_fontSize = size; }

double CLegend3D::GetFontSize() const { return m_fontSize; }

void CLegend3D::SetBorderThickness(double thickness) { m_borderThickness = thickness; }

double CLegend3D::GetBorderThickness() const { return m_borderThickness; }

void CLegend3D::SetSymbolTextSpace(double space) { m_symbolTextSpace = space; }

double CLegend3D::GetSymbolTextSpace() const { return m_symbolTextSpace; }

void CLegend3D::SetLegendYLoc(double y) { m_yLocation = y; }

double CLegend3D::GetLegendYLoc() const { return m_yLocation; }

void CLegend3D::SetLegendBkColor(const RGBDType& color) { m_bkColor = color; }

RGBDType CLegend3D::GetLegendBkColor() const { return m_bkColor; }

void CLegend3D::SetLegendBorderColor(const RGBDType& color) { m_borderColor = color; }

RGBDType CLegend3D::GetLegendBorderColor() const { return m_borderColor; }

int CLegend3D::GetTransformID() const { return m_transformID; }

int CLegend3D::GetClassTag() const { return m_classTag; }
