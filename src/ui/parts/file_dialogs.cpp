// Only Qt's own dialog has the parts that are looked for here. A dialog of the desktop adapts to
// its screen by itself.
#include "ui/parts/file_dialogs.h"

#include <QDir>
#include <QHeaderView>
#include <QStandardPaths>
#include <QTreeView>
#include <memory>
#include <utility>

namespace kalvex {
namespace {

constexpr int kNarrow = 700;  // logical pixels
constexpr int kFrame = 12;
constexpr int kTitle = 40;

}  // namespace

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
