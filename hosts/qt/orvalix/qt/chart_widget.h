/// @file
/// A widget that shows charts.
#pragma once

#include <QtCore/QFlags>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QCursor>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "orvalix/qt/export.h"

class CChartView3D;
class CQtDC;
class CQtWnd;
class QMenu;
class QPagedPaintDevice;

namespace orvalix {
class Navigation;
struct ViewPoint;
}  // namespace orvalix

/// Owns a view, paints it at the resolution of the screen, and lets its user turn, magnify, move
/// and copy the charts. Charts are made through GetView(); after changing them, call update().
///
/// | user | what happens |
/// |---|---|
/// | drags with the left button | the charts under the pointer turn with it |
/// | drags with the middle button, or the left one and Shift | they move |
/// | turns the wheel | they are magnified about the pointer |
/// | double-clicks | all charts go back to how they stood at first |
/// | clicks with the right button, presses the menu key | a menu |
/// | presses arrow keys; with Shift; + and -; Home | as above, for all charts |
/// | presses the keys for copying | the picture is on the clipboard |
///
/// Until the button that began a drag is up again, other buttons and the menu do nothing.
///
/// A point that is over no chart stands for all of them. Turning changes the rotation of all
/// transforms of a chart, magnifying and moving its zoom (CChart3D::SetZoom()).
///
/// What fails while painting is reported once, after the painting, and not again until painting has
/// succeeded; meanwhile the widget shows the message.
class ORVALIX_QT_API ChartWidget : public QWidget {
  Q_OBJECT

 public:
  /// What the user can do.
  enum Interaction {
    kRotation = 1,      ///< turning with the mouse
    kZoom = 2,          ///< magnifying with the wheel
    kPanning = 4,       ///< moving with the mouse
    kReset = 8,         ///< going back with a double click
    kContextMenu = 16,  ///< the menu
    kKeyboard = 32      ///< all of it with keys
  };
  Q_DECLARE_FLAGS(Interactions, Interaction)

  /// How a step of the wheel, or a key, magnifies.
  static constexpr double kZoomPerStep = 1.2;

  /// A view whose bitmap is as large as the largest screen, in its pixels, so that a window that
  /// fills a screen is filled. The bitmap never grows: what a still larger widget has in addition,
  /// at the top and at the right, is background. Printed and copied pictures have its size.
  /// @throws CErr3D as CChartView3D(CWnd*), for example type 18 without OpenGL
  explicit ChartWidget(QWidget* parent = nullptr);
  /// The same with a bitmap of that many pixels.
  explicit ChartWidget(const QSize& bitmapSize, QWidget* parent = nullptr);
  ~ChartWidget() override;

  /// The view; owned by the widget.
  CChartView3D* GetView() const;

  /// Default: all of them. Events that an interaction doesn't want are ignored, so that they go to
  /// the parent.
  void SetInteractions(Interactions interactions);
  Interactions GetInteractions() const;
  void EnableInteraction(Interaction interaction, bool enable = true);

  /// @name What the user does, for programs
  /// For all charts, with the interactions switched off too.
  /// @{

  /// Turns by degrees: what is in front goes to the right and up.
  void RotateView(double right, double up);
  /// Magnifies about the middle, from a tenth up to 50 times.
  void ZoomView(double factor);
  /// Moves by pixels as Qt counts them, to the right and down. The middle of a chart's rectangle
  /// always shows something of it.
  void PanView(double right, double down);
  /// Goes back to how the charts stood before the first change.
  void ResetView();
  /// Takes how the charts stand now as what ResetView() goes back to. Call it after charts were
  /// loaded or turned by the program.
  void KeepView();
  /// @}

  /// Off, the widget keeps showing what it has painted last, in the upper left corner when it is
  /// resized, and doesn't touch its view, which may then be used on another thread; the context
  /// must not be current here meanwhile (COpenGL::MakeNonCurrent(), after this call), nor there
  /// afterwards. Takes a copy of the picture until it is on again. Default on.
  void EnablePainting(bool enable);

  /// Puts the picture, of the bitmap's size, on the clipboard.
  /// @return true when it is there. False when that failed, or when the clipboard is in use or
  ///   refuses pictures: the user has then been told, unless messages are off
  ///   (CErr3D::SetErrorReportMode())
  bool CopyToClipboard();
  /// Prints the view on one page, in the view's scale mode (CChartView3D::SetPrintScaleMode()).
  /// Nothing is printed, and a file that is there stays, when the view can't be drawn.
  /// @param pages a printer or a PDF file, to which nothing is painting
  /// @return false when that failed, which the user has been told unless the device refused or
  ///   messages are off
  bool Print(QPagedPaintDevice& pages);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The charts were turned, magnified or moved, by the user or through this class.
  void viewChanged();
  /// Painting failed, after it had not failed before.
  void drawingFailed(const QString& message);
  /// The picture is not on the clipboard, whoever asked for it: CopyToClipboard(), the menu, or a
  /// key.
  void copyingFailed(const QString& message);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// Shows a menu with the interactions that are switched on, followed by the actions that were
  /// added to the widget (QWidget::addAction()).
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  enum class Drag { kNone, kTurning, kMoving };

  bool Allows(Interaction interaction) const;
  orvalix::ViewPoint ToPixels(const QPointF& position) const;
  orvalix::ViewPoint SizeInPixels() const;
  void Changed();
  void PaintView(QPainter& painter);
  void PaintKeptFrame(QPainter& painter) const;
  void PaintRest(QPainter& painter) const;
  void PaintFailure(QPainter& painter) const;
  QImage CopyOfFrame() const;
  void Fail(const QString& message);
  bool IsDragging(Qt::MouseButtons buttons);
  bool IsAmidDrag(const QMouseEvent& press);
  void EndDrag();
  bool MoveByKey(int key, bool shift);
  void FillMenu(QMenu& menu);

  std::unique_ptr<CQtWnd> m_window;
  std::unique_ptr<CChartView3D> m_view;
  std::unique_ptr<CQtDC> m_dc;  ///< over the painter of the paint event at hand
  std::unique_ptr<orvalix::Navigation> m_navigation;
  Interactions m_interactions;
  Drag m_drag = Drag::kNone;
  Qt::MouseButton m_dragButton = Qt::NoButton;  ///< whose release ends the drag
  std::optional<QCursor> m_cursorBeforeDrag;    ///< that the program had set, if any
  bool m_isTrackedAlways = false;    ///< moves without a button, as the program has set it
  QPointF m_dragPosition;            ///< of the last mouse event
  std::vector<int> m_draggedCharts;  ///< as Navigation::Charts
  bool m_isPainting = true;          ///< see EnablePainting()
  bool m_wasPainted = false;         ///< once at least
  QImage m_keptFrame;                ///< shown while painting is off
  QString m_failure;                 ///< why painting fails; null while it doesn't
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ChartWidget::Interactions)
