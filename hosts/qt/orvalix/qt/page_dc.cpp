#include "orvalix/qt/page_dc_internal.h"

#include <QtGui/QPagedPaintDevice>

#include "orvalix/qt/device_properties_internal.h"

namespace orvalix {

PageDC::PageDC(QPagedPaintDevice& pages) : m_pages(pages) { CreateHostDC(); }

int PageDC::GetDeviceCaps(int index) const { return DeviceProperty(m_pages, index); }

BOOL PageDC::PutImage(const RECT& destination, const void* bgra, int width, int height,
                      int strideBytes) {
  if (!Begin()) return TRUE;
  return m_dc.PutImage(destination, bgra, width, height, strideBytes);
}

bool PageDC::Begin() {
  if (m_isRefused || m_painter.isActive()) return !m_isRefused;
  m_isRefused = !m_painter.begin(&m_pages);
  if (!m_isRefused) m_dc.SetPainter(&m_painter);
  return !m_isRefused;
}

bool PageDC::End() { return Begin() && m_painter.end(); }

}  // namespace orvalix
