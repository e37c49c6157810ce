#include <orvalix/orvalix.h>

#include <QtCore/QPointer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <cmath>

#include "orvalix/qt/chart_widget.h"
#include "orvalix/qt/navigation_internal.h"

using orvalix::ViewPoint;

namespace {

constexpr double kDegreesAcross = 180.0;  ///< turned by a drag over the whole widget
constexpr double kDegreesPerKey = 5.0;
constexpr double kShareMovedPerKey = 0.05;  ///< of the widget's size
constexpr double kWheelStep = 120.0;        ///< eighths of a degree

}  // namespace

void ChartWidget::mousePressEvent(QMouseEvent* event) {
  if (IsAmidDrag(*event)) return;
  const bool isLeft = event->button() == Qt::LeftButton;
  const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool moves = event->button() == Qt::MiddleButton || (isLeft && isShifted);
  if (moves && Allows(kPanning)) m_drag = Drag::kMoving;
  if (isLeft && !isShifted && Allows(kRotation)) m_drag = Drag::kTurning;
  if (m_drag == Drag::kNone) {
    event->ignore();
    return;
  }
  m_dragButton = event->button();
  m_dragPosition = event->position();
  m_draggedCharts = m_navigation->ChartsAt(ToPixels(m_dragPosition), SizeInPixels());
  // A move without the button tells that its release went elsewhere.
  m_isTrackedAlways = hasMouseTracking();
  setMouseTracking(true);
  if (testAttribute(Qt::WA_SetCursor)) m_cursorBeforeDrag = cursor();
  setCursor(m_drag == Drag::kTurning ? Qt::ClosedHandCursor : Qt::SizeAllCursor);
}

/// Ends a drag whose button isn't down any more: its release went to another window.
bool ChartWidget::IsDragging(Qt::MouseButtons buttons) {
  if (!buttons.testFlag(m_dragButton)) EndDrag();
  return m_drag != Drag::kNone;
}

/// Ends the drag when it is its own button that is pressed again.
bool ChartWidget::IsAmidDrag(const QMouseEvent& press) {
  if (press.button() == m_dragButton) EndDrag();
  return IsDragging(press.buttons());
}

void ChartWidget::EndDrag() {
  if (m_drag == Drag::kNone) return;
  m_drag = Drag::kNone;
  m_dragButton = Qt::NoButton;
  setMouseTracking(m_isTrackedAlways);
  if (m_cursorBeforeDrag) {
    setCursor(*m_cursorBeforeDrag);
  } else {
    unsetCursor();
  }
  m_cursorBeforeDrag.reset();
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!IsDragging(event->buttons())) {
    event->ignore();
    return;
  }
  const QPointF by = event->position() - m_dragPosition;
  m_dragPosition = event->position();
  if (by.isNull()) return;
  if (m_drag == Drag::kTurning) {
    const double degreesPerUnit = kDegreesAcross / std::max(width(), 1);
    m_navigation->Rotate(m_draggedCharts, by.x() * degreesPerUnit, -by.y() * degreesPerUnit);
  } else {
    m_navigation->Pan(m_draggedCharts, ToPixels(by), SizeInPixels());
  }
  Changed();
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (m_drag == Drag::kNone) {
    event->ignore();
    return;
  }
  if (event->button() == m_dragButton) EndDrag();
}

void ChartWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (IsAmidDrag(*event)) return;
  if (event->button() != Qt::LeftButton || !Allows(kReset)) {
    mousePressEvent(event);
    return;
  }
  ResetView();
}

void ChartWidget::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / kWheelStep;
  if (!Allows(kZoom) || steps == 0.0) {
    event->ignore();
    return;
  }
  const ViewPoint point = ToPixels(event->position());
  const ViewPoint size = SizeInPixels();
  m_navigation->Zoom(m_navigation->ChartsAt(point, size), std::pow(kZoomPerStep, steps), point,
                     size);
  event->accept();
  Changed();
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
  if (!Allows(kKeyboard)) {
    event->ignore();
    return;
  }
  if (event->matches(QKeySequence::Copy)) {
    CopyToClipboard();
    return;
  }
  const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
  if (event->modifiers().testFlag(Qt::ControlModifier) ||
      event->modifiers().testFlag(Qt::AltModifier) || !MoveByKey(event->key(), isShifted)) {
    event->ignore();
  }
}

bool ChartWidget::MoveByKey(int key, bool shift) {
  const double across = shift ? width() * kShareMovedPerKey : kDegreesPerKey;
  const double upwards = shift ? height() * kShareMovedPerKey : kDegreesPerKey;
  const auto move = [this, shift](double right, double up) {
    if (shift) {
      PanView(right, -up);
    } else {
      RotateView(right, up);
    }
    return true;
  };
  switch (key) {
    case Qt::Key_Left:
      return move(-across, 0.0);
    case Qt::Key_Right:
      return move(across, 0.0);
    case Qt::Key_Up:
      return move(0.0, upwards);
    case Qt::Key_Down:
      return move(0.0, -upwards);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      ZoomView(kZoomPerStep);
      return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      ZoomView(1.0 / kZoomPerStep);
      return true;
    case Qt::Key_Home:
      ResetView();
      return true;
    default:
      return false;
  }
}

void ChartWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (!Allows(kContextMenu)) {
    event->ignore();
    return;
  }
  if (IsDragging(QGuiApplication::mouseButtons())) return;
  // What is chosen may delete the widget, which takes its menu along.
  const QPointer<QMenu> menu = new QMenu(this);
  FillMenu(*menu);
  menu->exec(event->globalPos());
  delete menu;
}

void ChartWidget::FillMenu(QMenu& menu) {
  if (Allows(kReset)) menu.addAction(tr("&Reset View"), this, &ChartWidget::ResetView);
  if (Allows(kZoom)) {
    menu.addAction(tr("Zoom &In"), this, [this] { ZoomView(kZoomPerStep); });
    menu.addAction(tr("Zoom &Out"), this, [this] { ZoomView(1.0 / kZoomPerStep); });
  }
  if (!menu.isEmpty()) menu.addSeparator();
  menu.addAction(tr("&Copy Picture"), this, &ChartWidget::CopyToClipboard);
  if (actions().isEmpty()) return;
  menu.addSeparator();
  menu.addActions(actions());
}
