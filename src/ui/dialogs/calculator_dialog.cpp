// The line with the expression and, below it, a text about the result. That text has room for three
// rows from the start, so that nothing moves when it is a reason and not a number; on a narrow
// screen it may need a fourth.
#include "ui/dialogs/calculator_dialog.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include "commands/calculator.h"
#include "resources/message_boxes.h"
#include "resources/platform.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kEditId = 1025;
constexpr int kCalcId = 1009;
constexpr int kCancelId = 1024;
constexpr int kDetailRows = 3;

/// The line with the expression. Up and Down bring back earlier lines.
class CalculatorEdit final : public QLineEdit {
  public:
    CalculatorEdit(CalculatorHistory& lines, QWidget* parent) : QLineEdit(parent), history(lines) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool up = event->key() == Qt::Key_Up;
        if (!up && event->key() != Qt::Key_Down) return QLineEdit::keyPressEvent(event);
        const std::u16string shown = FromQString(text());
        const auto line = up ? OlderLine(history, shown) : NewerLine(history, shown);
        if (line) setText(ToQString(*line));
    }

  private:
    CalculatorHistory& history;
};

QLabel* AddDetail(FormDialog& dialog) {
    QLabel* const detail = dialog.AddMeaning();
    detail->setObjectName("detail");
    detail->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    detail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    detail->setFocusPolicy(Qt::NoFocus);
    QFont small = detail->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    detail->setFont(small);
    return detail;
}

void ShowDetail(QLabel& detail, const QString& text) {
    detail.setText(text);
    const int rows = kDetailRows * detail.fontMetrics().lineSpacing();
    detail.setMinimumHeight(qMax(rows, detail.heightForWidth(detail.width())));
}

/// What `Calc` does. The boxes are in front of the dialog that has the line and the text.
Flow CalculateLine(QLineEdit* edit, QLabel* detail, CalculatorHistory& history, ShowBox show) {
    const std::u16string typed = FromQString(edit->text());
    CalculatorAnswer answer;
    const auto boxes = BoxesOf([&](const ShowMessage& tell) { answer = Calculate(typed, tell); });
    for (const MessageBox& box : boxes)
        co_await show(box);
    if (typed != Text(StringId::EnterExpression)) Remember(history, typed);
    if (answer.accepted) {
        edit->setText(ToQString(answer.text));
        edit->selectAll();
    }
    ShowDetail(*detail, ToQString(answer.detail));
    edit->setAccessibleDescription(detail->text());
    if (answer.accepted) co_return;
    const MessageBox refusal = ErrorBox(answer.text);
    co_await show(refusal);
    edit->setFocus(Qt::OtherFocusReason);
}

}  // namespace

QPoint CalculatorPlace(const QSize& dialog, const QRect& screen, std::u16string_view platform) {
    const int x = screen.left() + (screen.width() - dialog.width()) / 2;
    int y = screen.top() + (screen.height() - dialog.height()) / 2;
    if (platform == kPocketPc) y = screen.top() + screen.height() / 2 - dialog.height() * 3 / 10;
    const int lastX = screen.left() + screen.width() - dialog.width();
    const int lastY = screen.top() + screen.height() - dialog.height();
    return {qMax(screen.left(), qMin(x, lastX)), qMax(screen.top(), qMin(y, lastY))};
}

void OpenCalculator(QWidget* parent, CalculatorHistory& history, const ShowBox& show) {
    auto* const dialog =
        new FormDialog(TextOf(StringId::MenuCalculator), parent, TextOf(StringId::CalcKey));
    dialog->setObjectName("calculatorDialog");
    auto* const edit = new CalculatorEdit(history, dialog);
    edit->setObjectName("expression");
    edit->setProperty("controlId", kEditId);
    edit->setAccessibleName(TextOf(StringId::CalculatorLine));
    edit->setText(TextOf(StringId::EnterExpression));
    dialog->AddWide(edit);
    edit->setMinimumHeight(kTouchTarget);
    QLabel* const detail = AddDetail(*dialog);
    ShowDetail(*detail, {});
    dialog->SaveKey()->setProperty("controlId", kCalcId);
    dialog->CancelKey()->setProperty("controlId", kCancelId);
    dialog->save = [edit, detail, &history, show] {
        CalculateLine(edit, detail, history, show);
        return false;
    };
    QObject::connect(dialog, &QDialog::finished, dialog,
                     [] { QGuiApplication::inputMethod()->hide(); });
    // The text below belongs to the expression that was calculated, so it goes when that changes.
    QObject::connect(edit, &QLineEdit::textChanged, detail, [edit, detail] {
        ShowDetail(*detail, {});
        edit->setAccessibleDescription({});
    });
    StartBelow(history);
    PointAt(*edit);
    dialog->FitToScreen();
    dialog->move(
        CalculatorPlace(dialog->size(), dialog->screen()->availableGeometry(), kPlatformType));
    dialog->OpenOverParent();
}

}  // namespace kalvex
