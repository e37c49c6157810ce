/// @file
/// Failure notices that may not be shown at once.
#pragma once

#include <QtCore/QPointer>

class QWidget;

namespace orvalix {

/// Holds notices back that come up while a widget is painted: a box that waits for its button in
/// the middle of painting would paint again, fail again, and open the next one. The first of them
/// is shown once the painting is over, and none after it until that widget was painted without one.
///
/// On the thread of the windows only.
class HeldNotices {
 public:
  HeldNotices() = default;
  ~HeldNotices() { End(); }
  HeldNotices(const HeldNotices&) = delete;
  HeldNotices& operator=(const HeldNotices&) = delete;

  /// Holds notices until End(), or until the widget's paint event is over.
  void Begin(QWidget& widget);
  /// Does nothing when none are held.
  void End();

  /// Keeps a notice. @return false when none are held
  static bool Take(const char* text);

 private:
  bool IsPainting() const;
  void Keep(const char* text);

  static inline HeldNotices* s_innermost = nullptr;

  QPointer<QWidget> m_widget;
  HeldNotices* m_outer = nullptr;  ///< began before this one
  bool m_isHolding = false;
  bool m_hasFailed = false;  ///< since Begin()
};

}  // namespace orvalix
