// All dialogs and boxes are modal, so Qt's list of modal windows says what is in front.
#include "ui/parts/gate.h"

#include <QApplication>
#include <QDialog>

namespace kalvex {

bool IsAnythingOpen() {
    return QApplication::activeModalWidget() != nullptr;
}

bool MayRun(const QWidget& widget) {
    const QWidget* const window = widget.window();
    const QWidget* const front = QApplication::activeModalWidget();
    return window->isVisible() && (front == nullptr || front == window);
}

void CloseWhatIsOpen() {
    const QWidget* last = nullptr;
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        if (popup == last) break;  // it does not close
        last = popup;
        popup->close();
    }
    while (QWidget* const front = QApplication::activeModalWidget()) {
        if (front == last) break;
        last = front;
        if (auto* const dialog = qobject_cast<QDialog*>(front)) {
            dialog->reject();
        } else {
            front->close();
        }
    }
}

}  // namespace kalvex
