// A dialog as large as its parent, up to a size that is comfortable for reading. The texts are in
// Qt's own text boxes, which can be selected, copied and read aloud.
#include "ui/report/report_window.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "resources/menus.h"
#include "resources/strings.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/front_dialog.h"
#include "ui/parts/menu_builder.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/short_cut_keys.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kPageMargin = 2;
constexpr QSize kLargestSize(640, 560);
constexpr QSize kFrame(8, 0);  // what a window manager draws beside a dialog

/// A text that the arrow keys scroll. The caret, at the end, only serves to select with Shift.
class ReportText final : public QPlainTextEdit {
  public:
    using QPlainTextEdit::QPlainTextEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        QScrollBar& bar = *verticalScrollBar();
        const bool plain = event->modifiers() == Qt::NoModifier;
        const int key = plain ? event->key() : 0;
        if (key == Qt::Key_Up) return bar.triggerAction(QScrollBar::SliderSingleStepSub);
        if (key == Qt::Key_Down) return bar.triggerAction(QScrollBar::SliderSingleStepAdd);
        if (key == Qt::Key_PageUp) return bar.triggerAction(QScrollBar::SliderPageStepSub);
        if (key == Qt::Key_PageDown) return bar.triggerAction(QScrollBar::SliderPageStepAdd);
        QPlainTextEdit::keyPressEvent(event);
    }
};

/// A page: the text box with its margin. The caret is at the end; the beginning of the text shows.
QWidget* MakePage(const QString& title, std::u16string_view text, QWidget* parent) {
    auto* const page = new QWidget(parent);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    auto* const box = new ReportText(page);
    box->setObjectName("reportText");
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setTabChangesFocus(true);
    box->setPlainText(ToQString(text));
    box->setAccessibleName(title);
    QTextCursor caret = box->textCursor();
    caret.movePosition(QTextCursor::End);
    box->setTextCursor(caret);
    box->verticalScrollBar()->setValue(0);
    layout->addWidget(box);
    return page;
}

QDialog* MakeDialog(QWidget* parent, const ReportActions& actions) {
    auto* const dialog = new FrontDialog(parent);
    dialog->setObjectName("report");
    dialog->setWindowTitle(TextOf(StringId::AnalysisTitle));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize((parent->size() - kFrame).boundedTo(kLargestSize));
    QObject::connect(dialog, &QDialog::finished, dialog, [actions] { actions.closed(); });
    return dialog;
}

void RunReportCommand(QDialog* dialog, const ReportActions& actions, CommandId command) {
    if (!MayRun(*dialog)) return;
    switch (command) {
        case CommandId::ReportOk:
            return dialog->accept();
        case CommandId::FunctionToFile:
            return actions.saveTable(dialog);
        case CommandId::ReportToFile:
            return actions.saveReport(dialog);
        default:
            // KEEP: `Analiz function` has a place in the menu and does nothing.
            return;
    }
}

using Run = std::function<void(CommandId)>;

void OpenExportMenu(QDialog* dialog, const QWidget* key, bool paged, const Run& run) {
    if (!MayRun(*dialog)) return;
    auto* const menu = new QMenu(dialog);
    menu->setObjectName("exportMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // KEEP: the form with a single text shows its entries greyed.
    const auto stateOf = [paged](const MenuEntry& entry) {
        return MenuItemState{entry.text, paged, false, true};
    };
    const std::span<const ShortCut> keys = ReportShortCuts();
    FillMenu(*menu, paged ? ExportMenuOfPages() : ExportMenu(), stateOf, run,
             paged ? keys : keys.first(0));
    PopUpAbove(*menu, *key);
}

/// The soft keys below the text, and the keys of the keyboard.
void AddKeys(QDialog* dialog, bool paged, const ReportActions& actions) {
    auto* const bar =
        new BottomBar(TextOf(StringId::ReportOk), TextOf(StringId::ExportKey), dialog);
    bar->actionButton()->setAutoDefault(false);
    bar->actionButton()->setToolTip(TextOf(StringId::MenuKeyTip));
    for (QPushButton* const key : {bar->menuButton(), bar->actionButton()})
        key->setFocusPolicy(Qt::StrongFocus);
    dialog->layout()->addWidget(bar);
    const Run run = [dialog, actions](CommandId command) {
        RunReportCommand(dialog, actions, command);
    };
    const auto openMenu = [dialog, key = bar->actionButton(), paged, run] {
        OpenExportMenu(dialog, key, paged, run);
    };
    QObject::connect(bar->menuButton(), &QPushButton::clicked, dialog,
                     [run] { run(CommandId::ReportOk); });
    QObject::connect(bar->actionButton(), &QPushButton::clicked, dialog, openMenu);
    auto* const menuKey = new QShortcut(QKeySequence(Qt::Key_F10), dialog);
    QObject::connect(menuKey, &QShortcut::activated, dialog, openMenu);
    if (!paged) return;
    AddShortCuts(*dialog, ReportShortCuts(), run);
}

QVBoxLayout* MakeColumn(QDialog* dialog) {
    auto* const column = new QVBoxLayout(dialog);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

}  // namespace

void OpenPagedReport(QWidget* parent, std::span<const ReportPage> pages,
                     const ReportActions& actions) {
    QDialog* const dialog = MakeDialog(parent, actions);
    auto* const sheet = new QTabWidget(dialog);
    sheet->setObjectName("reportPages");
    sheet->setDocumentMode(true);
    sheet->tabBar()->setExpanding(true);
    sheet->setUsesScrollButtons(false);
    sheet->setElideMode(Qt::ElideRight);
    for (const ReportPage& page : pages) {
        const QString title = ToQString(page.title);
        sheet->addTab(MakePage(title, page.text, sheet), title);
    }
    MakeColumn(dialog)->addWidget(sheet);
    AddKeys(dialog, true, actions);
    sheet->tabBar()->setFocus(Qt::TabFocusReason);  // shows its focus
    dialog->open();
}

void OpenSingleReport(QWidget* parent, std::u16string_view text, const ReportActions& actions) {
    QDialog* const dialog = MakeDialog(parent, actions);
    MakeColumn(dialog)->addWidget(MakePage(dialog->windowTitle(), text, dialog));
    AddKeys(dialog, false, actions);
    dialog->open();
}

}  // namespace kalvex
