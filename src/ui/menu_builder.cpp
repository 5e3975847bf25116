// The words of the tables are exact, so an ampersand in one must stay one: it is doubled here.
// Entries that are alternatives of each other are all checkable, so that the mark of the current
// one has its column even while none is set.
#include "ui/menu_builder.h"

#include <QMenu>

#include "ui/qt_text.h"

namespace kalvex {
namespace {

QString MenuWord(std::u16string_view text) {
    return ToQString(text).replace("&", "&&");
}

bool IsAlternative(CommandId id) {
    const bool type = id >= CommandId::Polar && id <= CommandId::Parametric;
    return (id >= CommandId::Red && id <= CommandId::Great) || type || id == CommandId::File ||
           (id >= CommandId::LeastSquares && id <= CommandId::Implicit);
}

}  // namespace

void FillMenu(QMenu& menu, const Menu& entries, const StateOfEntry& stateOf,
              const std::function<void(CommandId)>& run) {
    for (const MenuEntry& entry : entries) {
        if (entry.id == CommandId::None && entry.text.empty()) {
            menu.addSeparator();
            continue;
        }
        const MenuItemState state = stateOf(entry);
        if (!state.visible) continue;
        QAction* action = nullptr;
        if (entry.children.empty()) {
            action = menu.addAction(MenuWord(state.text));
            const CommandId id = entry.id;
            QObject::connect(action, &QAction::triggered, &menu, [run, id] { run(id); });
        } else {
            QMenu* const submenu = menu.addMenu(MenuWord(state.text));
            FillMenu(*submenu, entry.children, stateOf, run);
            action = submenu->menuAction();
        }
        action->setData(static_cast<int>(entry.id));
        action->setEnabled(state.enabled);
        action->setCheckable(IsAlternative(entry.id));
        action->setChecked(state.checked && action->isCheckable());
    }
}

}  // namespace kalvex
