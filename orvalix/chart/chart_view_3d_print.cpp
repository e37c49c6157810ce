#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/selected_palette_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"

void CChartView3D::OnPrint(CDC* dc, CPrintInfo*) {
  if (!m_deviceInitialized) {
    orvalix::ThrowError(ERR3D_DIB_HANDLE, ERR3DCLASS_CHARTVIEW3D, "OnPrint");
  }
  m_printing = 1;
  try {
    const orvalix::SelectedPalette palette(dc, m_dib->GetPaletteHandle());
    DrawViewPrinter(dc);
  } catch (...) {
    EndPrinting();
    throw;
  }
  EndPrinting();
}

void CChartView3D::EndPrinting() {
  m_printing = 0;
  // What asked for the screen meanwhile was not drawn.
  m_window->InvalidateRect(nullptr, TRUE);
}

void CChartView3D::OnEndPrinting(CDC*, CPrintInfo*) {}

void CChartView3D::DrawViewPrinter(CDC* dc) {
  if (m_printing == 0) return;
  SetViewSizeBitmap();
  DrawView();
  m_dib->SetNormPrintRect(m_normPrintRect);
  m_dib->PrintDIBSection(dc, static_cast<unsigned short>(m_printScaleMode), "");
}

int CChartView3D::GetPrintingState() const { return m_printing; }

void CChartView3D::SetPrintScaleMode(int mode) { m_printScaleMode = mode; }

int CChartView3D::GetPrintScaleMode() const { return m_printScaleMode; }

void CChartView3D::SetNormPrintRect(const REALRECT& rectangle) { m_normPrintRect = rectangle; }

void CChartView3D::GetNormPrintRect(REALRECT& rectangle) const { rectangle = m_normPrintRect; }
