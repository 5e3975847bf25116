// A menu entry shows its keys when they are its short cut. The context is the menu's own focus,
// which it never has, so the entry itself does not react.
#include "ui/parts/short_cut_keys.h"

#include <QAction>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

QKeySequence SequenceOf(std::u16string_view keys) {
    return QKeySequence(ToQString(keys), QKeySequence::PortableText);
}

}  // namespace

void AddShortCuts(QWidget& window, std::span<const ShortCut> table,
                  const std::function<void(CommandId)>& run) {
    for (const ShortCut& entry : table) {
        auto* const shortCut = new QShortcut(SequenceOf(entry.keys), &window);
        shortCut->setAutoRepeat(false);
        QObject::connect(shortCut, &QShortcut::activated, &window,
                         [run, command = entry.command] { run(command); });
    }
}

void ShowKeys(QAction& action, std::span<const ShortCut> table, CommandId command) {
    const std::u16string_view keys = KeysOf(table, command);
    if (keys.empty()) return;
    action.setShortcut(SequenceOf(keys));
    action.setShortcutContext(Qt::WidgetShortcut);
    action.setShortcutVisibleInContextMenu(true);
}

QString KeysForTip(std::span<const ShortCut> table, CommandId command) {
    return SequenceOf(KeysOf(table, command)).toString(QKeySequence::NativeText);
}

}  // namespace kalvex
