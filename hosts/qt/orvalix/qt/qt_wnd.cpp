#include "orvalix/qt/qt_wnd.h"

#include <QtCore/QtMath>

#include "orvalix/qt/device_properties_internal.h"
#include "orvalix/qt/qt_host.h"

/// What a view asks about the screen, and where it sends pictures outside of paint events.
class CQtWnd::ScreenDC : public CDC {
 public:
  explicit ScreenDC(CQtWnd& window) : m_window(window) { CreateHostDC(); }

  int GetDeviceCaps(int index) const override {
    return m_window.m_widget ? orvalix::DeviceProperty(*m_window.m_widget, index) : 0;
  }
  BOOL PutImage(const RECT& destination, const void*, int, int, int) override {
    m_window.InvalidateRect(&destination);
    return TRUE;
  }

 private:
  CQtWnd& m_window;
};

CQtWnd::CQtWnd() : CQtWnd(nullptr) {}

CQtWnd::CQtWnd(QWidget* widget) : m_widget(widget) {
  ConnectQtHost();
  if (widget == nullptr) return;
  m_screenDC = std::make_unique<ScreenDC>(*this);
  // Any address will do that is nobody else's.
  m_hWnd = reinterpret_cast<HWND>(widget);
  m_destroyed = QObject::connect(widget, &QObject::destroyed, [this] { m_hWnd = nullptr; });
}

CQtWnd::~CQtWnd() { QObject::disconnect(m_destroyed); }

QWidget* CQtWnd::GetWidget() const { return m_widget; }

void CQtWnd::GetClientRect(RECT* rect) const {
  if (rect == nullptr) return;
  *rect = {};
  if (!m_widget) return;
  const double ratio = m_widget->devicePixelRatioF();
  rect->right = qRound(m_widget->width() * ratio);
  rect->bottom = qRound(m_widget->height() * ratio);
}

CDC* CQtWnd::GetDC() { return m_widget ? m_screenDC.get() : nullptr; }

int CQtWnd::ReleaseDC(CDC* dc) { return dc != nullptr && dc == m_screenDC.get() ? 1 : 0; }

void CQtWnd::InvalidateRect(const RECT* rect, BOOL erase) {
  CWnd::InvalidateRect(rect, erase);
  if (!m_widget) return;
  if (rect == nullptr) {
    m_widget->update();
    return;
  }
  const double unit = 1.0 / m_widget->devicePixelRatioF();
  const QRectF part(QPointF(rect->left * unit, rect->top * unit),
                    QPointF(rect->right * unit, rect->bottom * unit));
  m_widget->update(part.toAlignedRect());
}
