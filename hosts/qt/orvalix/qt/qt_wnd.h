/// @file
/// A window over a widget.
#pragma once

#include <orvalix/host/host.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <memory>

#include "orvalix/qt/export.h"

/// A widget as the window of a view, for programs with a widget of their own; ChartWidget has one
/// inside. In its paintEvent(), such a widget lets the view draw to a CQtDC over its QPainter, and
/// catches CErr3D, as nothing may be thrown through Qt; the failure is told once, after the
/// painting (see CQtDC).
///
/// Sizes are pixels of the screen: with a device pixel ratio of 2, twice as many as Qt counts.
class ORVALIX_QT_API CQtWnd : public CWnd {
 public:
  /// A window without a handle.
  CQtWnd();
  /// @param widget not owned; when it is destroyed, the window has no handle any more. Null makes a
  ///   window without one.
  explicit CQtWnd(QWidget* widget);
  ~CQtWnd() override;

  /// The widget; null when there is none, or no longer.
  QWidget* GetWidget() const;

  /// (0, 0) to the widget's size in pixels of its screen.
  void GetClientRect(RECT* rect) const override;
  /// A device context with the properties of the screens: HORZRES and VERTRES are the largest width
  /// and height of all of them, so that a bitmap of that size fills a window on each. Qt draws
  /// widgets only while it paints them: a picture for this device context asks for a repaint of its
  /// place instead. Null without a widget.
  CDC* GetDC() override;
  int ReleaseDC(CDC* dc) override;
  /// Asks for a repaint. Edges are widened to whole units of Qt.
  void InvalidateRect(const RECT* rect, BOOL erase = TRUE) override;

 private:
  class ScreenDC;

  QPointer<QWidget> m_widget;
  QMetaObject::Connection m_destroyed;   ///< takes the handle away
  std::unique_ptr<ScreenDC> m_screenDC;  ///< null without a widget
};
