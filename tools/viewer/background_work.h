/// @file
/// Work that may take a while.
#pragma once

#include <QtCore/QString>
#include <functional>

class QWidget;

namespace orvalix {

/// Runs work on another thread and returns when it is done. Meanwhile windows are repainted, input
/// waits, and, from half a second on, a box tells what is being done. What the work throws is
/// thrown here. Without room for another thread it runs on this one.
void RunInBackground(QWidget* parent, const QString& what, const std::function<void()>& work);

}  // namespace orvalix
