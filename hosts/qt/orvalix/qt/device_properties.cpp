#include "orvalix/qt/device_properties_internal.h"

#include <orvalix/host/host.h>

#include <QtCore/QtMath>
#include <QtGui/QGuiApplication>
#include <QtGui/QPaintDevice>
#include <QtGui/QScreen>

namespace orvalix {
namespace {

constexpr int kBitsPerPixel = 32;
constexpr int kPlanes = 1;

QSize SizeOf(const QPaintDevice& device) {
  return device.devType() == QInternal::Widget ? LargestScreen()
                                               : QSize(device.width(), device.height());
}

int PixelsPerInch(const QPaintDevice& device, int logical) {
  // Pages and images count their own pixels, widgets those of a screen without a ratio.
  const double ratio = device.devType() == QInternal::Widget ? device.devicePixelRatioF() : 1.0;
  return qRound(logical * ratio);
}

}  // namespace

QSize LargestScreen() {
  QSize largest;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QSizeF pixels = QSizeF(screen->size()) * screen->devicePixelRatio();
    largest = largest.expandedTo(QSize(qCeil(pixels.width()), qCeil(pixels.height())));
  }
  return largest;
}

int DeviceProperty(const QPaintDevice& device, int index) {
  switch (index) {
    case HORZRES:
      return SizeOf(device).width();
    case VERTRES:
      return SizeOf(device).height();
    case LOGPIXELSX:
      return PixelsPerInch(device, device.logicalDpiX());
    case LOGPIXELSY:
      return PixelsPerInch(device, device.logicalDpiY());
    case BITSPIXEL:
      return kBitsPerPixel;
    case PLANES:
      return kPlanes;
    default:
      return 0;
  }
}

}  // namespace orvalix
