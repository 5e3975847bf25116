// Qt takes an ampersand in a menu word for a mark, so it is doubled here. Only the entry with the
// check mark is checkable: some styles draw an empty box beside the others, as if several could be
// chosen together.
#include "ui/parts/menu_builder.h"

#include <QMenu>

#include "ui/parts/qt_text.h"
#include "ui/parts/short_cut_keys.h"

namespace kalvex {
namespace {

QString MenuWord(std::u16string_view text) {
    return ToQString(text).replace("&", "&&");
}

}  // namespace

void FillMenu(QMenu& menu, const Menu& entries, const StateOfEntry& stateOf,
              const std::function<void(CommandId)>& run, std::span<const ShortCut> keys) {
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
            ShowKeys(*action, keys, id);
            QObject::connect(action, &QAction::triggered, &menu, [run, id] { run(id); });
        } else {
            QMenu* const submenu = menu.addMenu(MenuWord(state.text));
            FillMenu(*submenu, entry.children, stateOf, run, keys);
            action = submenu->menuAction();
        }
        action->setData(static_cast<int>(entry.id));
        action->setEnabled(state.enabled);
        action->setCheckable(state.checked);
        action->setChecked(state.checked);
    }
}

}  // namespace kalvex
