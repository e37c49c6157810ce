#include "orvalix/qt/held_notices_internal.h"

#include <orvalix/host/host.h>

#include <QtCore/QByteArray>
#include <QtCore/QMetaObject>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

namespace orvalix {
namespace {

/// Of a widget whose failure has been told; stays with the widget, as what paints it needn't.
constexpr const char* kIsTold = "orvalixFailureIsTold";

}  // namespace

void HeldNotices::Begin(QWidget& widget) {
  End();
  m_widget = &widget;
  m_outer = s_innermost;
  s_innermost = this;
  m_isHolding = true;
  m_hasFailed = false;
}

void HeldNotices::End() {
  if (!m_isHolding) return;
  m_isHolding = false;
  // Others may have begun meanwhile and still be there.
  HeldNotices** link = &s_innermost;
  while (*link != this) link = &(*link)->m_outer;
  *link = m_outer;
  if (m_widget && !m_hasFailed && m_widget->property(kIsTold).isValid()) {
    m_widget->setProperty(kIsTold, QVariant());
  }
}

bool HeldNotices::Take(const char* text) {
  HeldNotices* holding = s_innermost;
  while (holding != nullptr && !holding->IsPainting()) holding = holding->m_outer;
  if (holding == nullptr) return false;
  holding->Keep(text);
  return true;
}

bool HeldNotices::IsPainting() const {
  return m_widget && m_widget->testAttribute(Qt::WA_WState_InPaintEvent);
}

void HeldNotices::Keep(const char* text) {
  m_hasFailed = true;
  if (m_widget->property(kIsTold).isValid()) return;
  m_widget->setProperty(kIsTold, true);
  const auto tell = [notice = QByteArray(text)] { AfxMessageBox(notice.constData()); };
  QMetaObject::invokeMethod(m_widget, tell, Qt::QueuedConnection);
}

}  // namespace orvalix
