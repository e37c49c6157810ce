#include "orvalix/qt/qt_dc.h"

#include <QtGui/QImage>
#include <QtGui/QPagedPaintDevice>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>
#include <new>

#include "orvalix/qt/device_properties_internal.h"
#include "orvalix/qt/held_notices_internal.h"

namespace {

/// Devices whose pixels are so small that a picture is stretched over many of them.
bool IsPage(const QPaintDevice& device) {
  return dynamic_cast<const QPagedPaintDevice*>(&device) != nullptr;
}

/// Devices that draw later, when the pixels are gone: recordings, and the pages of a preview.
bool DrawsLater(const QPaintDevice& device) {
  return IsPage(device) || device.devType() == QInternal::Picture;
}

}  // namespace

CQtDC::CQtDC() : CQtDC(nullptr) {}

CQtDC::CQtDC(QPainter* painter) : m_notices(new (std::nothrow) orvalix::HeldNotices) {
  CreateHostDC();
  SetPainter(painter);
}

CQtDC::~CQtDC() = default;

void CQtDC::SetPainter(QPainter* painter) {
  m_painter = painter;
  if (!m_notices) return;
  QPaintDevice* const device = painter != nullptr ? painter->device() : nullptr;
  if (device != nullptr && device->devType() == QInternal::Widget) {
    m_notices->Begin(static_cast<QWidget&>(*device));
  } else {
    m_notices->End();
  }
}

int CQtDC::GetDeviceCaps(int index) const {
  const QPaintDevice* const device = m_painter != nullptr ? m_painter->device() : nullptr;
  return device != nullptr ? orvalix::DeviceProperty(*device, index) : 0;
}

BOOL CQtDC::PutImage(const RECT& destination, const void* bgra, int width, int height,
                     int strideBytes) {
  if (m_painter == nullptr || !m_painter->isActive()) return FALSE;
  // Wraps the pixels: nothing is copied on the way to a widget or an image.
  QImage picture(static_cast<const uchar*>(bgra), width, height, strideBytes, QImage::Format_RGB32);

  const QPaintDevice& device = *m_painter->device();
  if (DrawsLater(device)) picture = picture.copy();
  if (picture.isNull()) return FALSE;
  const double unit = 1.0 / device.devicePixelRatioF();
  m_painter->save();
  m_painter->scale(unit, unit);
  m_painter->setRenderHint(QPainter::LosslessImageRendering);
  m_painter->setRenderHint(QPainter::SmoothPixmapTransform, IsPage(device));
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  const QPointF upperLeft(destination.left, destination.top);
  const QPointF lowerRight(destination.right, destination.bottom);
  m_painter->drawImage(QRectF(upperLeft, lowerRight), picture);
  m_painter->restore();
  return TRUE;
}
