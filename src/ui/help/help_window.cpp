// The window takes the place and the size of the window below it, full screen included, so that the
// page has all the room of a small screen too. Without a page the window is never shown.
#include "ui/help/help_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QShortcut>
#include <QVBoxLayout>

#include "resources/data_folders.h"
#include "resources/help_address.h"
#include "resources/strings.h"
#include "ui/help/about_box.h"
#include "ui/help/help_browser.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kLeastWidth = 240;
constexpr int kLeastHeight = 240;
constexpr int kGap = 8;

/// As large as another window and in its place.
void TakePlaceOf(const QWidget& below, QWidget& window) {
    window.setWindowState(below.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
    window.move(below.frameGeometry().topLeft());
    window.resize(below.size());
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : FrontDialog(parent) {
    setObjectName("helpWindow");
    setWindowTitle(TextOf(StringId::Title));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(kLeastWidth, kLeastHeight);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    browser = new HelpBrowser(this);
    column->addWidget(browser);
    AddFindLine();
    auto* const bar = new BottomBar(TextOf(StringId::HelpOk), {}, this);
    bar->menuButton()->setObjectName("okKey");
    bar->menuButton()->setAutoDefault(false);
    bar->ShowOneKey();
    connect(bar->menuButton(), &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(bar);
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, this,
            &HelpWindow::OpenFindLine);
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this,
            [this] { Find(true); });
    connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, this,
            [this] { Find(false); });
    browser->setFocus();
}

void HelpWindow::AddFindLine() {
    findLine = new QWidget(this);
    findLine->hide();
    auto* const row = new QHBoxLayout(findLine);
    row->setContentsMargins(kGap, kGap, kGap, kGap);
    findText = new QLineEdit(findLine);
    findText->setObjectName("findText");
    findText->setPlaceholderText(TextOf(StringId::HelpFind));
    findText->setAccessibleName(TextOf(StringId::HelpFind));
    findText->setToolTip(TextOf(StringId::HelpFindTip));
    findText->setMinimumHeight(kTouchTarget);
    findText->setClearButtonEnabled(true);
    notFound = new QLabel(TextOf(StringId::HelpNotFound), findLine);
    notFound->setObjectName("notFound");
    notFound->hide();
    row->addWidget(findText);
    row->addWidget(notFound);
    layout()->addWidget(findLine);
    connect(findText, &QLineEdit::textEdited, this, [this] { Find(true, true); });
}

void HelpWindow::OpenFindLine() {
    findLine->show();
    findText->setFocus(Qt::ShortcutFocusReason);
    findText->selectAll();
}

void HelpWindow::CloseFindLine() {
    findLine->hide();
    browser->setFocus();
}

void HelpWindow::Find(bool forward, bool here) {
    if (findText->text().isEmpty()) {
        notFound->hide();
        return OpenFindLine();
    }
    notFound->setVisible(!browser->FindText(findText->text(), forward, here));
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && findText->hasFocus()) return Find(!(event->modifiers() & Qt::ShiftModifier));
    if (event->key() == Qt::Key_Escape && findLine->isVisible()) return CloseFindLine();
    QDialog::keyPressEvent(event);
}

void OpenHelpPage(QWidget* parent, const QString& page) {
    auto* const window = new HelpWindow(parent);
    if (!window->Page().ShowPage(page)) {
        delete window;
        return;
    }
    TakePlaceOf(*parent->window(), *window);
    window->open();
}

QString SystemHelpPage() {
    const QStringList languages = QLocale::system().uiLanguages();
    const int language =
        LanguageNumber(languages.isEmpty() ? std::string() : languages.first().toStdString());
    const std::string module = QCoreApplication::applicationFilePath().toStdString();
    return QString::fromStdString(HelpPage(HelpAddress(module, language), DataFolders("help")));
}

bool RunHelpCommand(QWidget* parent, CommandId command) {
    switch (command) {
        case CommandId::Help:
        case CommandId::EditHelp:
            OpenHelpPage(parent, SystemHelpPage());
            return true;
        case CommandId::About:
            OpenAboutBox(parent);
            return true;
        default:
            return false;
    }
}

}  // namespace kalvex
