#include "viewer/gallery_menu.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <array>
#include <string_view>

namespace orvalix {
namespace {

/// Charts of one kind stand together in the gallery.
struct Kind {
  std::string_view first;  ///< name of the first one
  const char* title;
};

constexpr std::array kKinds{Kind{"auto_axes", "&Bars"},
                            Kind{"lines", "&Lines, Ribbons and Areas"},
                            Kind{"market", "&Markets and Statistics"},
                            Kind{"scatter", "&Points and Lines in Space"},
                            Kind{"surface", "&Surfaces"},
                            Kind{"logarithmic", "&Axes and Legends"},
                            Kind{"several_charts", "M&ore"}};

const Kind* KindThatBegins(const examples::Example& example) {
  const auto* const found = std::find_if(
      kKinds.begin(), kKinds.end(), [&](const Kind& kind) { return kind.first == example.name; });
  return found != kKinds.end() ? &*found : nullptr;
}

/// "Bar rows" for bar_rows.
QString NameInMenu(const examples::Example& example) {
  QString name = QString::fromUtf8(example.name).replace('_', ' ');
  name[0] = name[0].toUpper();
  return name;
}

}  // namespace

void FillGalleryMenu(QMenu& menu, QActionGroup& actions,
                     const std::function<void(const examples::Example&)>& open) {
  QMenu* submenu = &menu;
  for (const examples::Example& example : examples::Examples()) {
    if (const Kind* const kind = KindThatBegins(example)) {
      submenu = menu.addMenu(QCoreApplication::translate("Viewer", kind->title));
      submenu->setToolTipsVisible(true);
    }
    QAction* const action =
        submenu->addAction(NameInMenu(example), &actions, [open, &example] { open(example); });
    action->setToolTip(QString::fromUtf8(example.title));
    action->setObjectName(QString::fromUtf8(example.name));
    action->setCheckable(true);
    actions.addAction(action);
  }
}

}  // namespace orvalix
