// A record in, a modal QMessageBox out. Texts are plain: a function line with "<" in it must not
// be taken for markup. The box has no parent text format or detail; its buttons are at least as
// high as a finger.
#include "ui/message_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "base/encoding.h"
#include "ui/qt_text.h"
#include "ui/touch.h"

namespace kalvex {
namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Stop:
            return QMessageBox::Critical;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

MessageAnswer ShowMessageWindow(const MessageBox& box) {
    QMessageBox window(QApplication::activeWindow());
    window.setWindowTitle(ToQString(box.caption));
    window.setTextFormat(Qt::PlainText);
    window.setText(ToQString(box.text));
    window.setIcon(IconOf(box.icon));
    const bool question = box.buttons == MessageButtons::YesNo;
    window.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (question) window.setEscapeButton(QMessageBox::No);
    for (QAbstractButton* const button : window.buttons()) {
        button->setMinimumSize(kTouchTarget * 2, kTouchTarget);
    }
    const int answer = window.exec();
    if (!question) return MessageAnswer::Ok;
    return answer == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

MessageAnswer WriteMessageLine(const MessageBox& box) {
    std::string line = ToUtf8(box.caption) + ": ";
    for (const char character : ToUtf8(box.text)) {
        if (character == '\n') {
            line += "\\n";
        } else {
            line += character;
        }
    }
    std::fprintf(stderr, "%s\n", line.c_str());
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

}  // namespace kalvex
