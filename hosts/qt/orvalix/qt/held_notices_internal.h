/// @file
/// Failure notices that may not be shown at once.
#pragma once

#include <QtCore/QString>

namespace orvalix {

/// While one lives, notices on the thread of the windows are kept instead of shown: a box that
/// waits for its button in the middle of painting would paint again.
class HeldNotices {
 public:
  HeldNotices();
  ~HeldNotices();
  HeldNotices(const HeldNotices&) = delete;
  HeldNotices& operator=(const HeldNotices&) = delete;

  /// Keeps a notice. @return false when none are held
  static bool Take(const char* text);
  /// The first one; null when there was none.
  const QString& First() const { return m_first; }

 private:
  HeldNotices* m_outer;  ///< held before this one
  QString m_first;
};

}  // namespace orvalix
