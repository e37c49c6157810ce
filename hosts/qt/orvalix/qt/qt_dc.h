/// @file
/// A device context over a painter.
#pragma once

#include <orvalix/host/host.h>

#include <memory>

#include "orvalix/qt/export.h"

class QPainter;

namespace orvalix {
class HeldNotices;
}

/// Shows pictures through a QPainter: in a widget while it is being painted, in an image, or on the
/// page of a printer or a PDF file.
///
/// Coordinates are pixels of the device from the painter's origin: a widget on a screen with a
/// device pixel ratio of 2 has twice as many of them as Qt counts.
///
/// A failure notice (AfxMessageBox()) that comes up in the paint event of a widget, while one of
/// these has a painter of that widget, is shown once that event is over, and not again until the
/// widget was painted without one: a box within painting would paint again and never end.
class ORVALIX_QT_API CQtDC : public CDC {
 public:
  /// Draws nothing until SetPainter().
  CQtDC();
  /// @param painter active and not owned; must outlive its use here
  explicit CQtDC(QPainter* painter);
  ~CQtDC() override;

  /// Exchanges the painter. A device context that stays lets repeated pictures use the same memory.
  /// @param painter active and not owned; null for none
  void SetPainter(QPainter* painter);

  /// HORZRES, VERTRES: the printable page of a printer, the largest screen for a widget, the size
  /// of every other device. LOGPIXELSX, LOGPIXELSY: pixels per inch. BITSPIXEL: 32, PLANES: 1,
  /// whatever the device makes of the colours. 0 for other indices and without a painter.
  int GetDeviceCaps(int index) const override;
  /// Draws the picture, stretched where the destination has another size: smoothly on pages,
  /// dropping or repeating pixels elsewhere.
  /// @return FALSE without a painter, with one that isn't active, and for a picture without pixels
  BOOL PutImage(const RECT& destination, const void* bgra, int width, int height,
                int strideBytes) override;

 private:
  QPainter* m_painter = nullptr;                    ///< not owned
  std::unique_ptr<orvalix::HeldNotices> m_notices;  ///< of the painter's widget
};
