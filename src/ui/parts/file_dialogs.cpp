// Only Qt's own dialog has the parts that are looked for here. A dialog of the desktop adapts to
// its screen by itself.
#include "ui/parts/file_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <QTreeView>
#include <memory>
#include <utility>

#include "ui/parts/gate.h"

namespace kalvex {
namespace {

constexpr int kNarrow = 700;  // logical pixels
constexpr int kFrame = 12;
constexpr int kTitle = 40;

bool BelongsTo(const QObject* part, const QObject* whole) {
    while (part != nullptr && part != whole)
        part = part->parent();
    return part != nullptr;
}

/// Closes the menus and lists that a dialog has open.
void ClosePopupsOf(const QWidget& dialog) {
    const QWidget* last = nullptr;
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        if (popup == last || !BelongsTo(popup, &dialog)) break;
        last = popup;
        popup->close();
    }
}

}  // namespace

FileDialog::FileDialog(QWidget* parent, const QString& caption, const QString& folder)
    : QFileDialog(parent, caption, folder), openedAt(QThread::currentThread()->loopLevel()) {}

void FileDialog::accept() {
    if (MayRun(*this)) QFileDialog::accept();
}

void FileDialog::done(int result) {
    if (!MayRun(*this)) return;
    ClosePopupsOf(*this);
    QFileDialog::done(result);
    DeleteWhenNothingWaits();
}

// A box or a menu that the dialog waits for has an event loop, which would also run a deletion that
// is put off with deleteLater.
void FileDialog::DeleteWhenNothingWaits() {
    constexpr int kRetry = 20;  // milliseconds
    if (QThread::currentThread()->loopLevel() <= openedAt) return deleteLater();
    QTimer::singleShot(kRetry, this, [this] { DeleteWhenNothingWaits(); });
}

void FitFileDialog(QFileDialog& dialog, const QSize& room) {
    if (room.width() < kNarrow) {
        if (auto* const places = dialog.findChild<QWidget*>("sidebar")) places->hide();
        if (auto* const files = dialog.findChild<QTreeView*>("treeView")) {
            for (int column = 1; column < files->header()->count(); ++column)
                files->hideColumn(column);
        }
    }
    dialog.resize(dialog.size().boundedTo(room - QSize(kFrame, kTitle)));
}

void WhenChosen(QFileDialog& dialog, std::function<void(const QString& path)> chosen) {
    const auto path = std::make_shared<QString>();
    QObject::connect(&dialog, &QFileDialog::fileSelected, &dialog,
                     [path](const QString& selected) { *path = selected; });
    QObject::connect(
        &dialog, &QDialog::finished, dialog.parent(),
        [path, chosen = std::move(chosen)](int result) {
            if (result == QDialog::Accepted) chosen(*path);
        },
        Qt::SingleShotConnection);
}

QString StartFolder(const QString& last) {
    if (!last.isEmpty()) return last;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

}  // namespace kalvex
