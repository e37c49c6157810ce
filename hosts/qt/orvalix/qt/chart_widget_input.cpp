#include <orvalix/orvalix.h>

#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QMenu>
#include <cmath>

#include "orvalix/qt/chart_widget.h"
#include "orvalix/qt/navigation_internal.h"

using orvalix::ViewPoint;

namespace {

constexpr double kDegreesAcross = 180.0;  ///< turned by a drag over the whole widget
constexpr double kDegreesPerKey = 5.0;
constexpr double kShareMovedPerKey = 0.05;  ///< of the widget's size
constexpr double kZoomPerStep = 1.2;        ///< of the wheel, or per key
constexpr double kWheelStep = 120.0;        ///< eighths of a degree

}  // namespace

void ChartWidget::mousePressEvent(QMouseEvent* event) {
  const bool isLeft = event->button() == Qt::LeftButton;
  const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool moves = event->button() == Qt::MiddleButton || (isLeft && isShifted);
  m_drag = Drag::kNone;
  if (moves && Allows(kPanning)) m_drag = Drag::kMoving;
  if (isLeft && !isShifted && Allows(kRotation)) m_drag = Drag::kTurning;
  if (m_drag == Drag::kNone) {
    event->ignore();
    return;
  }
  m_dragPosition = event->position();
  m_draggedCharts = m_navigation->ChartsAt(ToPixels(m_dragPosition), SizeInPixels());
  setCursor(m_drag == Drag::kTurning ? Qt::ClosedHandCursor : Qt::SizeAllCursor);
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (m_drag == Drag::kNone) {
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
  m_drag = Drag::kNone;
  unsetCursor();
}

void ChartWidget::mouseDoubleClickEvent(QMouseEvent* event) {
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
  QMenu menu(this);
  menu.addAction(tr("&Reset View"), this, &ChartWidget::ResetView);
  menu.addAction(tr("Zoom &In"), this, [this] { ZoomView(kZoomPerStep); });
  menu.addAction(tr("Zoom &Out"), this, [this] { ZoomView(1.0 / kZoomPerStep); });
  menu.addSeparator();
  menu.addAction(tr("&Copy Picture"), this, &ChartWidget::CopyToClipboard);
  if (!actions().isEmpty()) {
    menu.addSeparator();
    menu.addActions(actions());
  }
  menu.exec(event->globalPos());
}
