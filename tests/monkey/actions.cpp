#include "monkey/actions.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QWidget>
#include <csignal>

namespace kalvex::monkey {
namespace {

/// The interfaces of a window and of everything in it that can be pressed. The cells of tables are
/// left out: those of Qt's file dialog may outlive their model, and Qt 6.4 then crashes when it
/// deletes them at the end of the program.
void AddPressable(QAccessibleInterface* interface, QList<QAccessibleInterface*>& found) {
    if (interface == nullptr || found.size() > 500) return;
    if (interface->actionInterface() != nullptr &&
        !interface->actionInterface()->actionNames().isEmpty()) {
        found.append(interface);
    }
    if (interface->tableInterface() != nullptr) return;
    for (int child = 0; child < interface->childCount(); ++child)
        AddPressable(interface->child(child), found);
}

}  // namespace

std::string Resize(Random& random) {
    QWidget* const window = SomeWindow(random);
    if (window == nullptr) return "no window to resize";
    switch (Below(random, 4)) {
        case 0:
            window->showMaximized();
            return "maximise";
        case 1:
            window->showNormal();
            return "normal size";
        default:
            window->resize(200 + Below(random, 1200), 200 + Below(random, 900));
            return "resize";
    }
}

std::string ChangeClipboard(Random& random) {
    QString text;
    for (int length = Below(random, 80); length > 0; --length)
        text.append(QChar(Below(random, 20) == 0 ? Below(random, 0xFFFF) : 32 + Below(random, 95)));
    text.remove(u'/');
    QGuiApplication::clipboard()->setText(text);
    return "clipboard of " + std::to_string(text.size());
}

std::string CloseWindow(Random& random) {
    QWidget* const window = SomeWindow(random);
    if (window == nullptr) return "no window to close";
    const std::string name = window->objectName().toStdString();
    window->close();
    return "close " + name;
}

std::string PressThroughAccessibility(Random& random) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    if (windows.isEmpty()) return "no window to press in";
    QList<QAccessibleInterface*> found;
    QWidget* const window = OneOf(random, windows);
    if (!window->isVisible()) return "window is hidden";
    AddPressable(QAccessible::queryAccessibleInterface(window), found);
    if (found.isEmpty()) return "nothing to press";
    QAccessibleInterface* const pressed = OneOf(random, found);
    const QString name = pressed->text(QAccessible::Name);
    const QStringList actions = pressed->actionInterface()->actionNames();
    const QString action = OneOf(random, actions);
    pressed->actionInterface()->doAction(action);
    return "accessible " + action.toStdString() + ' ' + name.toStdString();
}

std::string ReplaceFile(Random&) {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog->acceptMode() != QFileDialog::AcceptSave) {
        PressControlS();
        return "keys of a save dialog";
    }
    const QString path = QDir::home().filePath("again.png");
    QFile(path).open(QIODevice::Append);
    dialog->setDirectory(QDir::home());
    auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
    auto* const buttons = dialog->findChild<QDialogButtonBox*>();
    if (name == nullptr || buttons == nullptr) return "no name to type";
    name->setText("again.png");
    // The question is asked inside this call.
    if (QPushButton* const save = buttons->button(QDialogButtonBox::Save)) save->click();
    return "replace a file";
}

std::string EndSession(Random&) {
    // The session manager cannot be made here; the program does not look at it.
    const QMetaObject& type = QGuiApplication::staticMetaObject;
    const int signal = type.indexOfSignal("commitDataRequest(QSessionManager&)");
    void* arguments[] = {nullptr, qApp};
    QMetaObject::activate(qApp, signal, arguments);
    return "end of the session";
}

std::string Terminate(Random&) {
    std::raise(SIGTERM);
    return "SIGTERM";
}

std::string StartAgain(Random&) {
    auto* const process = new QProcess(qApp);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("KALVEX_MONKEY_SEED");
    process->setProcessEnvironment(environment);
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->start(QCoreApplication::applicationFilePath(), QStringList());
    return "second start";
}

}  // namespace kalvex::monkey
