/// @file
/// The charts of the gallery in a menu.
#pragma once

#include <QtGui/QActionGroup>
#include <functional>

#include "support/examples.h"

class QMenu;

namespace orvalix {

/// Fills a menu with a submenu for each kind of chart: all charts in one would be as high as a
/// screen. The actions have the examples' names as theirs, and are checkable.
/// @param actions takes the actions
/// @param open what an action does
void FillGalleryMenu(QMenu& menu, QActionGroup& actions,
                     const std::function<void(const examples::Example&)>& open);

}  // namespace orvalix
