// The event filter sees a key before the line does and notes whether it types a letter. When the
// line then reports the edit, the word before the caret contains the letter, and the list opens for
// it. Any other change of the text or the caret closes the list.
#include "ui/editor/completion.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "commands/completion.h"
#include "resources/strings.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kInset = 5;  // of a name in the list: the names stand exactly below the word

/// The character that an event types; 0 for a key that types nothing.
char16_t TypedCharacter(const QKeyEvent& key) {
    const bool command =
        key.modifiers().testFlag(Qt::ControlModifier) || key.modifiers().testFlag(Qt::AltModifier);
    return command || key.text().isEmpty() ? char16_t{0} : key.text().back().unicode();
}

bool IsOnlyModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

bool IsBlank(const QString& text) {
    return !text.isEmpty() && text.trimmed().isEmpty();
}

QString JoinedNames(const std::vector<std::u16string_view>& names) {
    QStringList texts;
    for (const std::u16string_view name : names)
        texts += ToQString(name);
    return texts.join(", ");
}

}  // namespace

Completion::Completion(QWidget* window) : QObject(window), list(new CompletionList(window)) {
    connect(list, &CompletionList::Chosen, this, [this](const QString& name) {
        tapped = line;
        Choose(name);
    });
}

void Completion::Watch(LineEdit* watched) {
    watched->installEventFilter(this);
    connect(watched, &QLineEdit::textEdited, this, [this, watched] {
        if (std::exchange(letterTyped, false)) Open(watched);
    });
    const auto closeIfMoved = [this, watched] {
        if (line != watched) return;
        if (watched->text() != shownFor || watched->cursorPosition() != caret) Close();
    };
    connect(watched, &QLineEdit::textChanged, this, closeIfMoved);
    connect(watched, &QLineEdit::cursorPositionChanged, this, closeIfMoved);
}

void Completion::Open(LineEdit* edited) {
    if (platform != kPocketPc || edited->keepsBlanks || !list) return;
    const std::u16string before = FromQString(edited->text().left(edited->cursorPosition()));
    const std::size_t length = WordLength(before, before.size());
    const auto names =
        NamesBeginningWith(std::u16string_view(before).substr(before.size() - length));
    if (names.empty()) return;
    line = edited;
    wordLength = static_cast<int>(length);
    shownFor = edited->text();
    caret = edited->cursorPosition();
    list->setFont(edited->font());
    list->Fill(names);
    QWidget* const window = list->parentWidget();
    const QRect place(edited->mapTo(window, QPoint(0, 0)), edited->size());
    const QString word = shownFor.mid(caret - wordLength, wordLength);
    const int wordLeft =
        edited->CaretPlace().center().x() - edited->fontMetrics().horizontalAdvance(word) - kInset;
    list->setGeometry(PlaceList(place, place.left() + std::max(0, wordLeft), list->WantedSize(),
                                room ? room() : window->rect()));
    list->show();
    list->raise();
    Say(TextOf(StringId::NamesOffered, {FromQString(JoinedNames(names))}));
}

void Completion::Close() {
    if (line == nullptr) return;
    line = nullptr;
    if (list) list->hide();
    Say({});
}

void Completion::Say(const QString& text) {
    said = text;
    emit Told();
}

void Completion::Choose(const QString& name) {
    if (line == nullptr) return;
    LineEdit* const edited = line;
    const int length = wordLength;
    Close();
    letterTyped = false;  // the edit that follows is not a typed letter
    edited->setSelection(edited->cursorPosition() - length, length);
    edited->InsertText(name);
}

void Completion::MoveHighlight(int step) {
    const int row = std::clamp(list->Highlighted() + step, -1, list->count() - 1);
    list->Highlight(row);
    if (row < 0) return;
    Say(TextOf(StringId::NameHighlighted, {FromQString(list->item(row)->text()),
                                           NumberText(row + 1), NumberText(list->count())}));
}

bool Completion::TakeKey(const QKeyEvent& key) {
    const bool open = IsOpen();
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (open && (key.key() == Qt::Key_Down || key.key() == Qt::Key_Up)) {
        MoveHighlight(key.key() == Qt::Key_Down ? 1 : -1);
        return true;
    }
    if (open && key.key() == Qt::Key_Escape) {
        Close();
        return true;
    }
    if (open && enter && list->Highlighted() >= 0) {
        Choose(list->item(list->Highlighted())->text());
        return true;
    }
    if (!enter && !IsOnlyModifier(key.key()) && !IsBlank(key.text())) Close();
    letterTyped = AsksForNames(TypedCharacter(key));
    return false;
}

/// The second press of a double tap on a name reaches the line, because the list has closed.
bool Completion::TakeSecondTap() {
    if (!tapped) return false;
    tapped->setFocus(Qt::OtherFocusReason);
    tapped = nullptr;
    return true;
}

bool Completion::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            tapped = nullptr;
            return TakeKey(static_cast<const QKeyEvent&>(*event));
        case QEvent::KeyRelease:
            letterTyped = false;
            break;
        case QEvent::InputMethod: {
            const QString typed = static_cast<const QInputMethodEvent&>(*event).commitString();
            letterTyped = !typed.isEmpty() && AsksForNames(typed.back().unicode());
            if (!typed.isEmpty() && !IsBlank(typed)) Close();
            break;
        }
        case QEvent::MouseButtonDblClick:
            if (TakeSecondTap()) return true;
            Close();
            break;
        case QEvent::MouseButtonPress:
            tapped = nullptr;
            Close();
            break;
        case QEvent::FocusOut:
            Close();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace kalvex
