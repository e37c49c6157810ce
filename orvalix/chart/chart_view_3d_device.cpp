#include <memory>

#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/window_dc_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/open_gl.h"

void CChartView3D::InitDeviceContext(bool useScreenSize) {
  if (m_window == nullptr || m_window->GetSafeHwnd() == nullptr) return;
  const orvalix::WindowDC dc(*m_window, "InitDeviceContext");
  if (useScreenSize) {
    m_requestedWidth = dc->GetDeviceCaps(HORZRES);
    m_requestedHeight = dc->GetDeviceCaps(VERTRES);
  }
  InitChartView3D(dc.Get());
  m_deviceInitialized = true;
}

void CChartView3D::InitChartView3D(CDC* dc) {
  MakeCompatibleDC(dc);
  MakeCompatibleBitmap(m_requestedWidth, m_requestedHeight, dc);
  MakeCompatibleOpenGL(dc);
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, "InitChartView3D",
                                [this] {
                                  if (!m_header) m_header = std::make_unique<CHeader3D>();
                                });
  m_header->InitHeaders(m_openGL.get());
  for (CChart3D* chart : m_charts) chart->InitChart3D(this);
  for (CLegend3D* legend : m_legends) legend->InitLegend(this);
}

void CChartView3D::MakeCompatibleDC(CDC* dc) {
  DeleteBitmap();
  m_memoryDC.DeleteDC();
  if (!m_memoryDC.CreateCompatibleDC(dc)) {
    orvalix::ThrowError(ERR3D_CDC_PARAMETER, ERR3DCLASS_CHARTVIEW3D, "InitDeviceContext");
  }
}

void CChartView3D::MakeCompatibleBitmap(int width, int height, CDC* dc) {
  constexpr const char* kPlace = "MakeCompatibleBitmap";
  // The platform makes no bitmap without pixels, but a view without an area is legal.
  const int bitmapWidth = width == 0 ? 1 : width;
  const int bitmapHeight = height == 0 ? 1 : height;
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, kPlace, [&] {
    m_dib = std::make_unique<CDIBSection>(dc, &m_memoryDC, bitmapWidth, bitmapHeight,
                                          dc->GetDeviceCaps(BITSPIXEL));
  });
  if (m_dib->GetBitmapHandle() == nullptr) {
    orvalix::ThrowError(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, kPlace);
  }
  m_bitmapWidth = bitmapWidth;
  m_bitmapHeight = bitmapHeight;
  ActivateBitmap(true);
}

void CChartView3D::MakeCompatibleOpenGL(CDC* dc) {
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, "MakeCompatibleOpenGL",
                                [&] { m_openGL = std::make_unique<COpenGL>(dc, m_dib.get()); });
}

void CChartView3D::ActivateBitmap(bool active) {
  const HDC memoryDC = m_memoryDC.GetSafeHdc();
  if (active) {
    const HGDIOBJ previous = SelectObject(memoryDC, m_dib->GetBitmapHandle());
    if (m_previousBitmap == nullptr) m_previousBitmap = previous;
  } else if (m_previousBitmap != nullptr) {
    SelectObject(memoryDC, m_previousBitmap);
    m_previousBitmap = nullptr;
  }
}

void CChartView3D::DeleteBitmap() {
  ActivateBitmap(false);
  m_dib.reset();
}

void CChartView3D::SetViewSizeWindow() {
  RECT client{};
  m_window->GetClientRect(&client);
  SetViewSizeSubWindow(static_cast<int>(client.right), static_cast<int>(client.bottom));
}

void CChartView3D::SetViewSizeSubWindow(int width, int height) {
  m_viewWidth = width;
  m_viewHeight = height;
}

void CChartView3D::SetViewSizeBitmap() { SetViewSizeSubWindow(m_bitmapWidth, m_bitmapHeight); }
