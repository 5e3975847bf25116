#include "ui/parts/asking_dialog.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

namespace kalvex {
namespace {

bool BelongsTo(const QObject* part, const QObject* whole) {
    while (part != nullptr && part != whole)
        part = part->parent();
    return part != nullptr;
}

}  // namespace

int EventLoopLevel() {
    return QThread::currentThread()->loopLevel();
}

void ClosePopupsOf(const QWidget& dialog) {
    const QWidget* last = nullptr;
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        if (popup == last || !BelongsTo(popup, &dialog)) break;
        last = popup;
        popup->close();
    }
}

void DeleteWhenNothingWaits(QDialog& dialog, int openedAt) {
    constexpr int kRetry = 20;  // milliseconds
    if (EventLoopLevel() <= openedAt) return dialog.deleteLater();
    QTimer::singleShot(kRetry, &dialog,
                       [&dialog, openedAt] { DeleteWhenNothingWaits(dialog, openedAt); });
}

}  // namespace kalvex
