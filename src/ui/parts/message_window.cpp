// A MessageBox record becomes a modal QMessageBox on the heap, which deletes itself. The text is
// plain, so that a function line with
// "<" is not taken for markup. A function line may be one word of any length: zero-width spaces let
// it be broken, and the middle of a very long one is left out, so that the rest of the text and the
// buttons stay on the screen. Buttons are at least as high as a finger needs.
#include "ui/parts/message_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>

#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

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

constexpr qsizetype kLongestLine = 400;
constexpr qsizetype kLongestWord = 20;
constexpr int kLeastWidth = 280;  // so that a caption can be read above a short text

/// One line of a text as a box can show it; a line of ordinary words stays as it is.
QString ShowableLine(QString line) {
    if (line.size() > kLongestLine) {
        line = line.left(kLongestLine / 2) + QChar(0x2026) + line.right(kLongestLine / 2);
    }
    QString shown;
    qsizetype word = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        word = line.at(i).isSpace() ? 0 : word + 1;
        if (word > kLongestWord && !line.at(i).isLowSurrogate()) {
            shown += QChar(0x200B);
            word = 1;
        }
        shown += line.at(i);
    }
    return shown;
}

/// The window that a box belongs to: the dialog in front, else the active window. A window that is
/// closing is not taken, because it would take the box with it.
QWidget* WindowInFront() {
    QWidget* const dialog = QApplication::activeModalWidget();
    QWidget* const window = dialog != nullptr ? dialog : QApplication::activeWindow();
    return window != nullptr && window->isVisible() ? window : nullptr;
}

void WidenBox(QMessageBox& window) {
    auto* const grid = qobject_cast<QGridLayout*>(window.layout());
    if (grid == nullptr) return;
    grid->addItem(new QSpacerItem(kLeastWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

QString ShowableText(const QString& text) {
    QStringList lines = text.split('\n');
    for (QString& line : lines)
        line = ShowableLine(line);
    return lines.join('\n');
}

void OpenMessageWindow(const MessageBox& box, const TakeAnswer& answered) {
    auto* const opened = new QMessageBox(WindowInFront());
    QMessageBox& window = *opened;
    opened->setAttribute(Qt::WA_DeleteOnClose);
    opened->setModal(true);
    window.setWindowTitle(ToQString(box.caption));
    window.setTextFormat(Qt::PlainText);
    window.setText(ShowableText(ToQString(box.text)));
    window.setIcon(IconOf(box.icon));
    const bool question = box.buttons == MessageButtons::YesNo;
    window.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (question) window.setEscapeButton(QMessageBox::No);
    for (QAbstractButton* const button : window.buttons()) {
        button->setMinimumSize(kTouchTarget * 2, kTouchTarget);
    }
    WidenBox(window);
    QObject::connect(
        opened, &QDialog::finished, opened,
        [opened, question, answered] {
            const bool yes = opened->standardButton(opened->clickedButton()) == QMessageBox::Yes;
            const TakeAnswer take = answered;  // what follows may delete the box
            if (!question) return take(MessageAnswer::Ok);
            take(yes ? MessageAnswer::Yes : MessageAnswer::No);
        },
        Qt::SingleShotConnection);
    opened->show();
}

}  // namespace kalvex
