#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/window_dc_internal.h"
#include "orvalix/foundation/throw_error_internal.h"

void CChartView3D::CopyToClipboard() {
  constexpr const char* kPlace = "CopyToClipboard";
  if (m_window == nullptr || m_window->GetSafeHwnd() == nullptr) return;
  const orvalix::WindowDC dc(*m_window, kPlace);
  if (!m_deviceInitialized) {
    orvalix::ThrowError(ERR3D_DIB_HANDLE, ERR3DCLASS_CHARTVIEW3D, kPlace);
  }

  CBitmap picture;
  CDC memory;
  if (!picture.CreateCompatibleBitmap(dc.Get(), m_bitmapWidth, m_bitmapHeight) ||
      !memory.CreateCompatibleDC(dc.Get())) {
    orvalix::ThrowError(ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTVIEW3D, kPlace);
  }
  SetViewSizeBitmap();
  DrawView();
  CBitmap* const stock = memory.SelectObject(&picture);
  memory.BitBlt(0, 0, m_bitmapWidth, m_bitmapHeight, &m_memoryDC, 0, 0, SRCCOPY);
  // The clipboard takes no bitmap that a device context holds.
  memory.SelectObject(stock);

  if (!OpenClipboard(m_window->GetSafeHwnd())) return;
  EmptyClipboard();
  if (SetClipboardData(CF_BITMAP, picture.m_hObject) != nullptr) picture.Detach();
  CloseClipboard();
}
