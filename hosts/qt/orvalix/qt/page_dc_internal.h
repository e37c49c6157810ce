/// @file
/// A device context over a page that is begun as late as possible.
#pragma once

#include <orvalix/host/host.h>

#include <QtGui/QPainter>

#include "orvalix/qt/qt_dc.h"

class QPagedPaintDevice;

namespace orvalix {

/// Begins to print with the first picture. What fails before that leaves printer and file as they
/// were; a job that has begun can't be taken back on every platform.
class PageDC : public CDC {
 public:
  /// @param pages to which nothing is painting; must outlive this object
  explicit PageDC(QPagedPaintDevice& pages);

  int GetDeviceCaps(int index) const override;
  /// Shows nothing once the pages were refused.
  BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                int strideBytes) override;

  /// Finishes the page, which may be empty.
  /// @return false when the pages were refused
  bool End();

 private:
  bool Begin();

  QPagedPaintDevice& m_pages;
  QPainter m_painter;
  CQtDC m_dc;  ///< over the painter, once that is active
  bool m_isRefused = false;
};

}  // namespace orvalix
